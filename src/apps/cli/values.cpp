#include "apps/cli/values.h"

#include "apps/cli/session.h"
#include "core/text.h"

namespace sheetwright::cli {

namespace {

constexpr OptionSyntax kOptions[] = {{u"page", true}};

constexpr QStringView kHelp =
    u"Prints the stored values of all data pages, separated by tabs, under the header\n"
    u"\"page design name value\"; design is the title of the page's design. Tab, line break\n"
    u"and backslash in a name or value are written \\t, \\n and \\\\.\n"
    u"\n"
    u"  --page N   only data page N\n";

void PrintPage(Session& session, const frmSheetwright& document, int number) {
    const PageLines& page = document.memory.DataPage(number);
    if (page.IsEmpty()) return;
    const QString start = QString::number(number) + u'\t' +
                          OnOneLine(TitleOf(document, document.memory.WhichDesign(number))) + u'\t';
    for (int position = 2; position <= page.Count(); ++position) {
        const QStringView line = page.Line(position);
        if (line.startsWith(u"END PAGE") || !line.contains(u'=')) continue;
        session.Out().Line(start + OnOneLine(KeyOf(line)) + u'\t' + OnOneLine(ValueOf(line)));
    }
}

int RunValues(Session& session, const CommandLine& line) {
    const std::optional<QString> wanted = line.Value(u"page");
    const int only = wanted ? PageNumber(*wanted) : 0;
    const auto document = session.OpenForm(OnlyForm(line));
    if (wanted) RequirePage(*document, only);

    session.Out().Line(u"page\tdesign\tname\tvalue");
    const int first = wanted ? only : 1;
    const int last = wanted ? only : document->Pages;
    for (int page = first; page <= last; ++page)
        PrintPage(session, *document, page);
    return status::kDone;
}

}  // namespace

Verb ValuesVerb() {
    return {u"values", u"FORM [--page N]", kHelp, kOptions, RunValues};
}

}  // namespace sheetwright::cli
