#include "ui/file_dialog.h"

#include "core/failure.h"
#include "core/paths.h"
#include "core/user_interface.h"

#include <QFileDialog>
#include <QRegularExpression>

#include <algorithm>

namespace sheetwright {

namespace {

// Words often end in the patterns already.
QString WithoutPatterns(const QString& words) {
    static const QRegularExpression patterns(QStringLiteral(R"(\s*\([^()]*\*[^()]*\)\s*$)"));
    return QString(words).remove(patterns);
}

// Not every file has a dot in its name.
QString Patterns(const QString& separated) {
    QStringList patterns = separated.split(u';', Qt::SkipEmptyParts);
    patterns.replaceInStrings(QRegularExpression(QStringLiteral(R"(^\s*\*\.\*\s*$)")), QStringLiteral("*"));
    return patterns.isEmpty() ? QStringLiteral("*") : patterns.join(u' ');
}

bool Has(const FileDialog& dialog, std::int32_t flag) {
    return (dialog.flags & flag) != 0;
}

void Dress(QFileDialog& box, const FileDialog& dialog, const QStringList& filters, FileChoice choice) {
    const bool asksToReplace = Has(dialog, dialogs::kOverwritePrompt);
    const bool isSaving = choice == FileChoice::Save || asksToReplace;
    box.setAcceptMode(isSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setOption(QFileDialog::DontConfirmOverwrite, !asksToReplace);
    box.setFileMode(Has(dialog, dialogs::kFileMustExist) ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    box.setDefaultSuffix(dialog.defaultExtension);
    if (!filters.isEmpty()) {
        box.setNameFilters(filters);
        box.selectNameFilter(filters.value(dialog.filterIndex - 1, filters.first()));
    }
    if (!dialog.initialFolder.isEmpty()) box.setDirectory(OnDisk(dialog.initialFolder));
    // A pattern tells what to look for, not a file.
    const bool isPattern = dialog.fileName.contains(u'*') || dialog.fileName.contains(u'?');
    if (!isPattern && !dialog.fileName.isEmpty()) box.selectFile(OnDisk(dialog.fileName));
}

}  // namespace

QStringList NameFilters(const QString& filter) {
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype at = 0; at < parts.size(); at += 2)
        if (!parts[at].isEmpty())
            filters << WithoutPatterns(parts[at]) +
                           QStringLiteral(" (%1)").arg(Patterns(parts.value(at + 1)));
    return filters;
}

void ChooseFile(FileDialog& dialog, QWidget* parent, FileChoice choice) {
    QFileDialog box(parent, dialog.title);
    const QStringList filters = NameFilters(dialog.filter);
    Dress(box, dialog, filters, choice);
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) throw Failure(failure::kCancelled);
    dialog.fileName = box.selectedFiles().constFirst();
    const qsizetype chosen = filters.indexOf(box.selectedNameFilter());
    if (chosen >= 0) dialog.filterIndex = static_cast<int>(chosen) + 1;
}

}  // namespace sheetwright
