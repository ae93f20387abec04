#include "apps/cli/eval.h"

#include "apps/cli/session.h"
#include "formula/evaluator.h"

#include <utility>

namespace sheetwright::cli {

namespace {

constexpr OptionSyntax kOptions[] = {{u"page", true}, {u"me", true}};

constexpr QStringView kHelp =
    u"Evaluates each expression over the form and prints one line for it: the kind of its\n"
    u"value (Empty, Boolean, Integer, Long, Double, String), a tab, and its text, with tab,\n"
    u"line break and backslash written \\t, \\n and \\\\. An expression that fails prints\n"
    u"\"Failure\", its number and its text; the others are still evaluated, and the exit\n"
    u"status is 1. Expressions that begin with two dashes stand behind \"--\".\n"
    u"\n"
    u"  --page N    the page being computed: PAGENUMBER gives N, references prefer page N\n"
    u"  --me TEXT   the value that ME has at the start of each expression (else Empty)\n";

QString Evaluated(EvaluationContext& context, const QString& expression) {
    try {
        const Value value = Evaluator(context).Evaluate(QStringView(expression));
        return KindOf(value) + u'\t' + OnOneLine(TextOf(value, context.application.conventions));
    } catch (const Failure& caught) {
        return QStringLiteral("Failure\t%1\t%2").arg(caught.Number()).arg(caught.Text());
    }
}

int RunEval(Session& session, const CommandLine& line) {
    if (line.operands.size() < 2) throw UsageError(QStringLiteral("a form and an expression are needed"));
    const std::optional<QString> wanted = line.Value(u"page");
    const int page = wanted ? PageNumber(*wanted) : 0;
    const std::optional<QString> me = line.Value(u"me");

    const auto document = session.OpenForm(line.operands.first());
    if (wanted) RequirePage(*document, page);
    document->DataPageNum = static_cast<std::int16_t>(wanted ? page : 1);
    document->MePage = static_cast<std::int16_t>(page);

    EvaluationContext context{session.App(),      document->memory,    session.App().FormVars,
                              document->words,    document->MyTempDir, document->DataPageNum,
                              document->MePage,   document->Me,        &document->DriverData,
                              document->EntryList};
    bool hasFailed = false;
    for (const QString& expression : line.operands.sliced(1)) {
        document->Me = me ? Value(*me) : Value(Empty());
        const QString result = Evaluated(context, expression);
        hasFailed = hasFailed || result.startsWith(QStringLiteral("Failure"));
        session.Out().Line(result);
    }
    return hasFailed ? status::kFailed : status::kDone;
}

}  // namespace

Verb EvalVerb() {
    return {u"eval", u"FORM [--page N] [--me TEXT] EXPRESSION...", kHelp, kOptions, RunEval};
}

}  // namespace sheetwright::cli
