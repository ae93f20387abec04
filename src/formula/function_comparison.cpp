#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/function_text_search.h"
#include "formula/value_conversion.h"

#include <QSet>

namespace sheetwright {

namespace {

// A Boolean's own text, which no installation's language changes.
bool IsTruthText(const QString& text) {
    return text.compare(u"True", Qt::CaseInsensitive) == 0 ||
           text.compare(u"False", Qt::CaseInsensitive) == 0;
}

// What the items of EQUAL are compared with: the first argument, by its own kind.
class EqualReference {
  public:
    EqualReference(Evaluator& evaluator, const Value& value, bool isQuoted)
        : m_evaluator(evaluator), m_value(AsTruthNumber(evaluator, value)), m_isQuoted(isQuoted) {}

    [[nodiscard]] bool Equals(const QString& text) const {
        if (const QString* own = std::get_if<QString>(&m_value)) return *own == text;
        if (std::holds_alternative<Empty>(m_value)) return text.isEmpty();
        const std::optional<double> number = NumberOfItem(text);
        return number && *number == ToNumber(m_value, ConventionsIn(m_evaluator));
    }

  private:
    static Value AsTruthNumber(Evaluator& evaluator, const Value& value) {
        const TruthWords& words = evaluator.Context().words;
        const QString text = TextIn(evaluator, value);
        const bool isWord = text == words.TrueWord || text == words.FalseWord;
        return isWord ? Value(NormalisedText(evaluator, value)) : value;
    }

    // None only beside a quoted literal, "1" say: it is a number, yet was written as text, so a text that is
    // no number merely differs from it.
    [[nodiscard]] std::optional<double> NumberOfItem(const QString& text) const {
        const Conventions& conventions = ConventionsIn(m_evaluator);
        if (std::holds_alternative<bool>(m_value) && IsTruthText(text))
            return ToBoolean(text, conventions) ? -1 : 0;
        if (m_isQuoted) return StrictNumber(text, conventions);
        return StrictNumberOf(text, conventions);
    }

    Evaluator& m_evaluator;
    Value m_value;
    bool m_isQuoted;
};

// Whether each item stands to the one before it as `inOrder` says; stops at the first that does not.
template <typename Order>
bool IsChain(Evaluator& evaluator, QStringView arguments, Order inOrder) {
    ArgumentReader reader(evaluator, arguments);
    double previous = reader.NextNumber();
    while (const std::optional<Value> item = reader.Next()) {
        const double number = NumberIn(evaluator, *item);
        if (!inOrder(previous, number)) return false;
        previous = number;
    }
    return true;
}

}  // namespace

// The first argument is an item of the list as well, and only there a date becomes a stamp: a date never
// equals itself. Forms compare dates with INRANGE.
Value FEqual(Evaluator& evaluator, QStringView arguments) {
    ArgumentCutter cutter(arguments);
    const QStringView expression = cutter.Next().value_or(QStringView());
    const RepeatedArgument first(evaluator, expression);
    const EqualReference reference(evaluator, first.First(), expression.startsWith(u'"'));

    const auto equals = [&](const Value& item) {
        return reference.Equals(StampedText(evaluator, NormalisedText(evaluator, item)));
    };
    bool result = equals(first.Again());
    while (const std::optional<QStringView> item = cutter.Next())
        result = equals(evaluator.Evaluate(*item)) && result;
    return result;
}

Value FNotEqual(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    QSet<QString> seen;
    qsizetype count = 0;
    for (; const std::optional<Value> item = reader.Next(); ++count)
        seen.insert(TrimmedNormalisedText(evaluator, *item));
    return seen.size() == count;
}

Value FGreaterThan(Evaluator& evaluator, QStringView arguments) {
    return IsChain(evaluator, arguments, [](double previous, double number) { return previous > number; });
}

Value FLessThan(Evaluator& evaluator, QStringView arguments) {
    return IsChain(evaluator, arguments, [](double previous, double number) { return previous < number; });
}

// A comparison of texts by character code, for numbers too: only dates, as stamps, come out in their order.
Value FInRange(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const QString value = StampedText(evaluator, reader.NextText());
    const QString low = StampedText(evaluator, reader.NextText());
    const QString high = StampedText(evaluator, reader.NextText());
    return value.compare(low) >= 0 && value.compare(high) <= 0;
}

Value FInString(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const QString text = reader.NextText();
    return Occurs(reader.NextText(), text);
}

Value FIsEmpty(Evaluator& evaluator, QStringView arguments) {
    return TextIn(evaluator, evaluator.Evaluate(arguments)).isEmpty();
}

}  // namespace sheetwright
