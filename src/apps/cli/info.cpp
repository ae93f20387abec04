#include "apps/cli/info.h"

#include "apps/cli/session.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/form_archive.h"

namespace sheetwright::cli {

namespace {

constexpr QStringView kHelp =
    u"Prints what the form is, one \"key: value\" a line: its version, the number of design\n"
    u"pages and their titles in order, the number of data pages, and the members of the\n"
    u"archive (for a plain text form the file itself).\n";

// The version that the text of the form names; "" for none.
QString VersionOf(const frmSheetwright& document) {
    const QByteArray bytes = ReadWholeFile(document.MyTempDir + GetFileName(document.Tag));
    const QString text = DecodeFileText(bytes);
    QStringView rest(text);
    while (!rest.isEmpty()) {
        const QStringView line = TakeFormLine(rest);
        if (line == u"END DESIGN") break;
        constexpr QStringView kWord = u"VERSION";
        if (line.startsWith(kWord)) return TrimBlanks(line.sliced(kWord.size())).toString();
    }
    return {};
}

int RunInfo(Session& session, const CommandLine& line) {
    const QString path = OnlyForm(line);
    const auto document = session.OpenForm(path);
    const QStringList members = ArchiveMembers(path);
    const auto print = [&](const QString& key, const QString& value) {
        session.Out().Line(key + QStringLiteral(": ") + OnOneLine(value));
    };

    print(QStringLiteral("version"), VersionOf(*document));
    const int designs = document->memory.DesignPageCount();
    print(QStringLiteral("design pages"), QString::number(designs));
    for (int design = 1; design <= designs; ++design)
        print(QStringLiteral("design page %1").arg(design), TitleOf(*document, design));
    print(QStringLiteral("data pages"), QString::number(document->Pages));
    print(QStringLiteral("members"), QString::number(members.size()));
    for (const QString& member : members)
        print(QStringLiteral("member"), member);
    return status::kDone;
}

}  // namespace

Verb InfoVerb() {
    return {u"info", u"FORM", kHelp, {}, RunInfo};
}

}  // namespace sheetwright::cli
