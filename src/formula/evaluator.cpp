#include "formula/evaluator.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/function_arguments.h"
#include "formula/functions.h"
#include "formula/reference.h"
#include "formula/value_conversion.h"

#include <array>
#include <cmath>

namespace sheetwright {

namespace {

// An expression of full length, nested to the limit and evaluated once throughout, stays below half of this.
// What exceeds it evaluates arguments over and over and would not end in anybody's lifetime.
constexpr qint64 kMaxWork = 40'000'000;
constexpr qint64 kWorkOfOneCall = 16;

constexpr std::size_t kLongestName = 17;

void RequireLength(QStringView expression) {
    if (expression.size() > evaluator_limits::kLength) throw Failure(failure::kOverflow);
}

bool StartsNumber(QStringView expression) {
    if (expression.isEmpty()) return false;
    const char16_t first = expression.front().unicode();
    return (first >= u'0' && first <= u'9') || first == u'-' || first == u'.';
}

// `name` in capitals, in a buffer that costs no allocation. Only A to Z matter: no name has other letters.
class UpperName {
  public:
    explicit UpperName(QStringView name) {
        if (name.size() > static_cast<qsizetype>(kLongestName)) return;
        for (const QChar character : name)
            m_letters[m_size++] = Upper(character.unicode());
    }
    [[nodiscard]] QStringView View() const {
        return QStringView(m_letters.data(), static_cast<qsizetype>(m_size));
    }

  private:
    static char16_t Upper(char16_t letter) {
        return letter >= u'a' && letter <= u'z' ? static_cast<char16_t>(letter - u'a' + u'A') : letter;
    }

    std::array<char16_t, kLongestName> m_letters{};
    std::size_t m_size = 0;
};

}  // namespace

std::int16_t FindMyClosing(QStringView expression, std::int16_t openPosition) {
    if (openPosition < 0) throw Failure(failure::kInvalidCall);
    int depth = 1;
    for (qsizetype index = openPosition; index < expression.size(); ++index) {
        const char16_t character = expression[index].unicode();
        if (character == u'(') ++depth;
        if (character == u')' && --depth == 0) return ToInt16(static_cast<double>(index) + 1);
    }
    return 0;
}

QStringView FSplitComma(QStringView arguments, std::int16_t n) {
    ArgumentCutter cutter(arguments);
    std::optional<QStringView> argument;
    for (int count = 0; count < n; ++count) {
        argument = cutter.Next();
        if (!argument) break;
    }
    return argument.value_or(QStringView(u","));
}

// One level of nesting, left again however the evaluation ends. The outermost one starts a new account of
// work.
class Evaluator::Level {
  public:
    Level(Evaluator& evaluator, qsizetype work) : m_evaluator(evaluator) {
        if (evaluator.m_depth == 0) evaluator.m_work = 0;
        if (evaluator.m_depth >= evaluator_limits::kDepth) throw Failure(failure::kOutOfStack);
        evaluator.Charge(kWorkOfOneCall + work);
        ++evaluator.m_depth;
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --m_evaluator.m_depth; }

  private:
    Evaluator& m_evaluator;
};

void Evaluator::Charge(qint64 work) {
    m_work += work;
    if (m_work > kMaxWork) throw Failure(failure::kOutOfStack);
}

Value Evaluator::Evaluate(QString& expression) {
    if (!StartsNumber(expression)) return Evaluate(QStringView(expression));
    RequireLength(expression);
    const Level level(*this, expression.size());
    const QChar separator = m_context.application.conventions.DecimalSeparator;
    const qsizetype point = separator == u'.' ? -1 : expression.indexOf(u'.');
    if (point >= 0) expression[point] = separator;
    return NumberOf(expression);
}

Value Evaluator::Evaluate(QStringView expression) {
    RequireLength(expression);
    if (StartsNumber(expression)) return EvaluateNumber(expression);
    const Level level(*this, expression.size());
    return EvaluateUnlessNumber(expression);
}

// Copies only what the number rule is going to rewrite.
Value Evaluator::EvaluateNumber(QStringView expression) {
    const bool isRewritten =
        m_context.application.conventions.DecimalSeparator != u'.' && expression.contains(u'.');
    if (isRewritten) {
        QString copy = expression.toString();
        return Evaluate(copy);
    }
    const Level level(*this, expression.size());
    return NumberOf(expression);
}

Value Evaluator::EvaluateUnlessNumber(QStringView expression) {
    if (expression.startsWith(u'{')) return ResolveReference(m_context, expression);
    if (expression.startsWith(u'"')) return StringOf(expression);
    const qsizetype open = expression.indexOf(u'(');
    return open < 0 ? KeywordOf(expression) : Call(expression, open);
}

Value Evaluator::NumberOf(QStringView literal) const {
    return Finite(ToNumber(literal, m_context.application.conventions));
}

Value Evaluator::StringOf(QStringView literal) const {
    if (literal.size() < 2) throw Failure(failure::kInvalidCall);
    const QStringView text = literal.sliced(1, literal.size() - 2);
    const Conventions& conventions = m_context.application.conventions;
    if (StrictNumber(text, conventions)) return Finite(ToNumber(text, conventions));
    return text.toString();
}

Value Evaluator::KeywordOf(QStringView word) const {
    const UpperName name(word);
    if (name.View() == u"ME") return m_context.Me;
    if (name.View() == u"PAGENUMBER") return m_context.DataPageNum;
    if (name.View() == u"PAGECOUNT") return m_context.memory.DataPageCount();
    return Empty{};
}

Value Evaluator::Call(QStringView expression, qsizetype open) {
    const qsizetype close = FindMyClosing(expression, static_cast<std::int16_t>(open + 1)) - 1;
    if (close < open) throw Failure(failure::kInvalidCall);
    const FormulaFunction function = FindFunction(UpperName(expression.first(open)).View());
    if (function == nullptr) return Empty{};
    return function(*this, expression.sliced(open + 1, close - open - 1));
}

void Evaluator::RunStatements(const QString& formula) {
    const Level level(*this, formula.size());
    QStringView rest = formula;
    int depth = 0;
    bool quoted = false;
    for (qsizetype index = 0; index < rest.size(); ++index) {
        const char16_t character = rest[index].unicode();
        if (character == u'"') quoted = !quoted;
        if (quoted) continue;
        if (character == u'(') ++depth;
        if (character == u')') --depth;
        if (character == u';' && depth == 0) {
            (void)Evaluate(rest.first(index));
            rest = rest.sliced(index + 1);
            index = 0;  // the loop steps past the first character of the next statement
        }
    }
    if (!rest.isEmpty()) (void)Evaluate(rest);
}

}  // namespace sheetwright
