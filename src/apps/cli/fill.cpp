#include "apps/cli/fill.h"

#include "apps/cli/fill_edits.h"
#include "apps/cli/session.h"
#include "document/form_writer.h"
#include "formula/recalculation.h"

namespace sheetwright::cli {

namespace {

constexpr OptionSyntax kOptions[] = {
    {u"set", true}, {u"add-page", true}, {u"save", true}, {u"no-recalculate", false}};

constexpr QStringView kHelp =
    u"Sets values and adds pages in the order given, recalculates the whole form once, and\n"
    u"saves it. When a page or name is unknown, or anything else fails, nothing is written.\n"
    u"\n"
    u"  --set PAGE:NAME=VALUE   sets a field, check box or picture field of a data page; in\n"
    u"                          VALUE \\n is a line break, \\t a tab and \\\\ a backslash\n"
    u"  --add-page DESIGN[:MODE[:POSITION]]\n"
    u"                          adds an empty data page; DESIGN is the number or title of\n"
    u"                          a design page, MODE 0 at the start, 1 at the end, 2 before\n"
    u"                          or 3 after page POSITION; without MODE at the end\n"
    u"  --save OUT              saves to OUT (.aff or .aft), which may be FORM itself;\n"
    u"                          without it only a summary is printed\n"
    u"  --no-recalculate        leaves all formulas alone\n";

struct Work {
    std::vector<Edit> edits;
    int valuesSet = 0;
    int pagesAdded = 0;
};

Work WorkOf(const CommandLine& line) {
    Work work;
    for (const Option& option : line.options) {
        if (option.name == QStringLiteral("set")) {
            work.edits.emplace_back(ParseSetValue(option.value));
            ++work.valuesSet;
        } else if (option.name == QStringLiteral("add-page")) {
            work.edits.emplace_back(ParseInsertPage(option.value));
            ++work.pagesAdded;
        }
    }
    return work;
}

void RequireFormName(const QString& path) {
    const bool isForm = path.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive) ||
                        path.endsWith(QStringLiteral(".aft"), Qt::CaseInsensitive);
    if (!isForm) throw UsageError(QStringLiteral("a form's name ends in .aff or .aft, not \"%1\"").arg(path));
}

void PrintSummary(Output& out, const Work& work, const frmSheetwright& document) {
    const auto print = [&](const QString& key, int value) {
        out.Line(key + QStringLiteral(": ") + QString::number(value));
    };
    print(QStringLiteral("values set"), work.valuesSet);
    print(QStringLiteral("pages added"), work.pagesAdded);
    print(QStringLiteral("data pages"), document.Pages);
    out.Line(u"saved: no");
}

int RunFill(Session& session, const CommandLine& line) {
    const QString path = OnlyForm(line);
    const std::optional<QString> target = line.Value(u"save");
    if (target) RequireFormName(*target);
    const Work work = WorkOf(line);

    const auto document = session.OpenForm(path);
    FormEditor editor(*document);
    for (const Edit& edit : work.edits)
        std::visit([&](const auto& known) { editor.Apply(known); }, edit);
    if (!line.Has(u"no-recalculate")) ÜberupdateFormulas(*document, false);

    if (!target) {
        PrintSummary(session.Out(), work, *document);
        return status::kDone;
    }
    document->Tag = *target;
    if (!SaveForm(*document, Recalculate::No)) return status::kFailed;
    session.Out().Line(QStringLiteral("saved ") + *target);
    return status::kDone;
}

}  // namespace

Verb FillVerb() {
    return {u"fill",
            u"FORM [--set PAGE:NAME=VALUE]... [--add-page DESIGN[:MODE[:POSITION]]]... [--save OUT] "
            u"[--no-recalculate]",
            kHelp, kOptions, RunFill};
}

}  // namespace sheetwright::cli
