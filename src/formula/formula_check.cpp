#include "formula/formula_check.h"

#include "core/failure.h"
#include "core/quoted.h"
#include "formula/evaluator.h"
#include "formula/formula_scan.h"
#include "formula/function_arguments.h"
#include "formula/functions.h"
#include "formula/reference.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <vector>

namespace sheetwright {

namespace {

// The statement itself takes one of the evaluator's levels.
constexpr int kDeepest = evaluator_limits::kDepth - 1;

// What a function does with the text between its parentheses.
enum class Arguments { List, Whole, DesignTitle, Reference, NotEvaluated };

struct ArgumentRule {
    QStringView name;
    Arguments arguments;
};

// Functions that take a list of expressions are not in the table.
constexpr ArgumentRule kArgumentRules[] = {
    {u"COUNTDESIGNPAGES", Arguments::DesignTitle},
    {u"DAYOFWEEK", Arguments::Whole},
    {u"DESIGNPAGENUMBERS", Arguments::DesignTitle},
    {u"ISEMPTY", Arguments::Whole},
    {u"LENGTH", Arguments::Whole},
    {u"NEGATE", Arguments::Whole},
    {u"NOT", Arguments::Whole},
    {u"PREVIOUSVALUE", Arguments::Reference},
    {u"ROUND", Arguments::Whole},
    {u"SETME", Arguments::Whole},
    {u"STRIPNONALPHA", Arguments::Whole},
    {u"SUM", Arguments::Reference},
    {u"TODAY", Arguments::NotEvaluated},
    {u"TRUNCATE", Arguments::Whole},
    {u"VALIDATE", Arguments::NotEvaluated},
    {u"VALIDATIONPASSED", Arguments::NotEvaluated},
    {u"VAR", Arguments::Whole},
};

Arguments ArgumentsOf(QStringView upperName) {
    const auto* const rule = std::ranges::find(kArgumentRules, upperName, &ArgumentRule::name);
    return rule == std::end(kArgumentRules) ? Arguments::List : rule->arguments;
}

// Numbers and dates, of which the tolerant reading makes what their author meant.
bool IsPlainNumber(QStringView text) {
    // Possessive, so that a long run of digits is gone through once.
    static const QRegularExpression number(
        QStringLiteral(
            "^(-?[0-9]*+(\\.[0-9]*+)?+(E[-+]?[0-9]++)?|[0-9]{1,4}([-/.])[0-9]{1,2}\\4[0-9]{1,4})$"),
        QRegularExpression::CaseInsensitiveOption);
    return number.match(text.toString()).hasMatch();
}

bool IsNumberStart(QChar first) {
    return (first >= u'0' && first <= u'9') || first == u'-' || first == u'.';
}

class Checker {
  public:
    Checker(const QString& formula, const ReferenceTargets& targets, const Conventions& conventions)
        : m_formula(formula), m_scan(formula), m_targets(targets), m_conventions(conventions) {}

    QStringList Run() {
        if (m_formula.size() > evaluator_limits::kLength)
            return {QStringLiteral("longer than 32,767 characters")};
        if (!m_scan.QuotesBalance()) return {QStringLiteral("quotes don't balance")};
        if (m_scan.FirstBlank() >= 0)
            Report(QStringLiteral("blank outside a string at character %1").arg(m_scan.FirstBlank() + 1));
        for (const QStringView statement : StatementsOf(m_formula)) {
            m_pending.push_back({statement, 1});
            CheckPending();
        }
        return m_findings;
    }

  private:
    struct Expression {
        QStringView text;
        int depth;
    };

    // Depth first, so that findings come in the order of the text, with a stack of its own.
    void CheckPending() {
        while (!m_pending.empty()) {
            const Expression expression = m_pending.back();
            m_pending.pop_back();
            if (expression.depth > kDeepest) {
                Report(QStringLiteral("nested more than %1 deep").arg(kDeepest));
                continue;
            }
            Check({expression.text.trimmed(), expression.depth});
        }
    }

    void Report(const QString& text) {
        if (m_known.contains(text)) return;
        m_known.insert(text);
        m_findings << text;
    }

    void Check(const Expression& expression) {
        const QStringView text = expression.text;
        if (text.isEmpty()) return;
        const QChar first = text.front();
        if (first == u'{') {
            CheckReference(text);
        } else if (IsNumberStart(first)) {
            if (!IsPlainNumber(text)) Report(QStringLiteral("%1 is no number").arg(Quoted(text)));
        } else if (first == u'"') {
            if (text.size() < 2 || text.indexOf(u'"', 1) != text.size() - 1)
                Report(QStringLiteral("text behind the end of a string: %1").arg(Quoted(text)));
        } else if (text.contains(u'(')) {
            CheckCall(expression);
        } else {
            CheckKeyword(text);
        }
    }

    void CheckKeyword(QStringView text) {
        const QString name = text.toString().toUpper();
        if (KeywordNames().contains(name)) return;
        if (text.contains(u')')) {
            Report(QStringLiteral("parentheses don't balance: %1").arg(Quoted(text)));
        } else if (FindFunction(name) != nullptr) {
            Report(QStringLiteral("function %1 without parentheses").arg(name));
        } else {
            Report(QStringLiteral("unknown keyword %1").arg(Quoted(text)));
        }
    }

    void CheckCall(const Expression& expression) {
        const QStringView text = expression.text;
        const qsizetype start = text.data() - QStringView(m_formula).data();
        const qsizetype open = text.indexOf(u'(');
        const QString name = text.first(open).trimmed().toString().toUpper();
        if (FindFunction(name) == nullptr)
            Report(QStringLiteral("unknown function %1").arg(Quoted(text.first(open))));

        const qsizetype found = m_scan.Closing(start + open);
        const qsizetype outside = m_scan.ClosingOutsideStrings(start + open);
        const qsizetype close = found - start;
        const bool isClosed = found >= 0 && close < text.size();
        if (outside != found) {
            Report(
                QStringLiteral("a parenthesis inside a string spoils the closing search of %1(").arg(name));
        } else if (!isClosed) {
            Report(QStringLiteral("parentheses don't balance: %1").arg(Quoted(text)));
        } else {
            CheckBehind(text.sliced(close + 1), name);
            CheckArguments(name, {text.sliced(open + 1, close - open - 1), expression.depth});
        }
    }

    void CheckBehind(QStringView rest, const QString& name) {
        if (rest.isEmpty()) return;
        Report((rest.contains(u')') ? QStringLiteral("parentheses don't balance behind %1(): %2")
                                    : QStringLiteral("text behind %1() is ignored: %2"))
                   .arg(name, Quoted(rest)));
    }

    // Arguments are put on the stack back to front.
    void CheckArguments(const QString& name, const Expression& arguments) {
        const Arguments rule = ArgumentsOf(name);
        if (rule == Arguments::NotEvaluated) return;
        std::vector<QStringView> cut;
        ArgumentCutter cutter(arguments.text);
        while (const std::optional<QStringView> argument = cutter.Next())
            cut.push_back(*argument);
        if (rule != Arguments::List && cut.size() > 1)
            Report(QStringLiteral("%1 takes one argument").arg(name));
        if (rule == Arguments::DesignTitle) CheckDesignTitle(arguments.text.trimmed());
        if (rule == Arguments::Reference && !IsFieldReference(arguments.text.trimmed())) {
            Report(QStringLiteral("%1 takes one reference {FIELDS\\page,field}").arg(name));
            return;
        }
        for (auto argument = cut.rbegin(); argument != cut.rend(); ++argument)
            m_pending.push_back({*argument, arguments.depth + 1});
    }

    [[nodiscard]] static bool IsFieldReference(QStringView text) {
        return text.startsWith(u"{FIELDS\\", Qt::CaseInsensitive);
    }

    void CheckDesignTitle(QStringView text) {
        const bool isString =
            text.size() > 2 && text.startsWith(u'"') && text.indexOf(u'"', 1) == text.size() - 1;
        if (!isString) return;
        const QStringView title = text.sliced(1, text.size() - 2);
        if (m_targets.PageTitled(title, Qt::CaseInsensitive) == 0)
            Report(QStringLiteral("no design page %1").arg(Quoted(title)));
    }

    void CheckReference(QStringView text) {
        const qsizetype close = ClosingBrace(text);
        if (close != text.size() - 1) {
            Report((close < 0 ? QStringLiteral("reference without closing brace: %1")
                              : QStringLiteral("text behind a reference: %1"))
                       .arg(Quoted(text)));
            return;
        }
        std::optional<Reference> reference;
        if (Ignoring([&] { reference = ParseReference(text, m_conventions); })) {
            Report(QStringLiteral("reference without backslash: %1").arg(Quoted(text)));
        } else if (reference->IsGroup(u"FIELDS")) {
            CheckField(*reference);
        } else if (!reference->IsGroup(u"DRIVERS") && !reference->IsGroup(u"LISTS")) {
            Report(QStringLiteral("unknown reference group %1").arg(Quoted(reference->Group())));
        }
    }

    // Index of the first "}" outside quotes; -1 for none.
    [[nodiscard]] static qsizetype ClosingBrace(QStringView text) {
        bool isQuoted = false;
        for (qsizetype at = 0; at < text.size(); ++at) {
            if (text[at] == u'"') isQuoted = !isQuoted;
            if (text[at] == u'}' && !isQuoted) return at;
        }
        return -1;
    }

    void CheckField(const Reference& reference) {
        const int page = m_targets.PageTitled(reference.Subject(), Qt::CaseSensitive);
        if (page == 0) {
            Report(QStringLiteral("no design page %1").arg(Quoted(reference.Subject())));
        } else if (!m_targets.HasName(page, reference.field)) {
            Report(QStringLiteral("no field %1 on design page %2")
                       .arg(Quoted(reference.field), Quoted(reference.Subject())));
        }
    }

    const QString& m_formula;
    FormulaScan m_scan;
    const ReferenceTargets& m_targets;
    const Conventions& m_conventions;
    std::vector<Expression> m_pending;
    QStringList m_findings;
    QSet<QString> m_known;
};

}  // namespace

void ReferenceTargets::AddTitle(const QString& title) {
    ++m_titles;
    if (!m_pages.contains(title)) m_pages.insert(title, m_titles);
    const QString folded = title.toCaseFolded();
    if (!m_foldedPages.contains(folded)) m_foldedPages.insert(folded, m_titles);
}

void ReferenceTargets::AddName(int page, const QString& name) {
    m_names[page].insert(name);
}

int ReferenceTargets::PageTitled(QStringView title, Qt::CaseSensitivity sensitivity) const {
    return sensitivity == Qt::CaseSensitive ? m_pages.value(title.toString())
                                            : m_foldedPages.value(title.toString().toCaseFolded());
}

bool ReferenceTargets::HasName(int page, const QString& name) const {
    const auto names = m_names.constFind(page);
    return names != m_names.constEnd() && names->contains(name);
}

QStringList CheckFormula(const QString& formula, const ReferenceTargets& targets,
                         const Conventions& conventions) {
    return Checker(formula, targets, conventions).Run();
}

}  // namespace sheetwright
