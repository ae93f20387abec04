#include "apps/cli/check.h"

#include "apps/cli/session.h"
#include "core/paths.h"
#include "document/form_archive.h"
#include "document/form_check.h"
#include "print/paper_table.h"

#include <QSet>

namespace sheetwright::cli {

namespace {

constexpr QStringView kHelp =
    u"Checks forms and templates for those who write them and prints one finding a line as\n"
    u"\"page: element: text\"; page is the number of a design page, or \"data\" and the number\n"
    u"of a data page. With several forms each line begins with the form. The exit status is\n"
    u"1 when anything was found.\n";

// The pictures that a form has at hand: the members of its archive; for a plain text form, the files beside
// it.
std::function<bool(const QString&)> PicturesOf(const QString& path) {
    if (IsPlainTextForm(path))
        return [folder = GetFolder(path)](const QString& name) { return FileExists(folder + name); };
    QSet<QString> names;
    for (const QString& member : ArchiveMembers(path))
        names.insert(member.toCaseFolded());
    return [names](const QString& name) { return names.contains(name.toCaseFolded()); };
}

// Prints the findings of one form and returns how many there are.
qint64 CheckOne(Session& session, const QString& path, const QString& start) {
    const QString text = session.FormText(path);
    const FormCheckSetting setting{session.App().conventions, session.App().TranslatedTruthWords(),
                                   PicturesOf(path), [&](int code, int orientation) {
                                       return FindPaper(session.App(), static_cast<std::int16_t>(code),
                                                        static_cast<std::int16_t>(orientation))
                                           .has_value();
                                   }};
    qint64 count = 0;
    CheckForm(text, setting, [&](const Finding& finding) {
        ++count;
        session.Out().Line(start + finding.page + QStringLiteral(": ") + OnOneLine(finding.element) +
                           QStringLiteral(": ") + OnOneLine(finding.text));
    });
    return count;
}

int RunCheck(Session& session, const CommandLine& line) {
    if (line.operands.isEmpty()) throw UsageError(QStringLiteral("a form is needed"));
    bool isClean = true;
    for (const QString& path : line.operands) {
        const QString start = line.operands.size() > 1 ? path + QStringLiteral(": ") : QString();
        qint64 count = 0;
        const bool isRead = session.Guarded(u"check", [&] { count = CheckOne(session, path, start); });
        isClean = isClean && isRead && count == 0;
    }
    return isClean ? status::kDone : status::kFailed;
}

}  // namespace

Verb CheckVerb() {
    return {u"check", u"FORM...", kHelp, {}, RunCheck};
}

}  // namespace sheetwright::cli
