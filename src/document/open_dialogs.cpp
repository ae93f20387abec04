#include "document/open_dialogs.h"

#include "core/application.h"
#include "core/folders.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "document/form_archive.h"
#include "document/recent_files.h"

#include <QFileInfo>

#include <optional>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int32_t kAlways = dialogs::kHideReadOnly | dialogs::kKeepFolder |
                                 dialogs::kExtensionMayDiffer | dialogs::kPathMustExist |
                                 dialogs::kExplorerStyle | dialogs::kLongNames;
constexpr std::int32_t kForOpening = kAlways | dialogs::kFileMustExist;
constexpr std::int32_t kForSaving = kAlways | dialogs::kOverwritePrompt;
constexpr qsizetype kEndingLength = 3;

FileDialog TemplateDialog(const Application& application) {
    FileDialog dialog;
    dialog.filter =
        application.Translate(QStringLiteral("Tolvane Form Templates (*.aft)")) + QStringLiteral("|*.aft");
    dialog.defaultExtension = QStringLiteral("aft");
    dialog.fileName = QStringLiteral("*.aft");
    dialog.initialFolder = TemplateFolder(application);
    dialog.flags = kForOpening;
    return dialog;
}

FileDialog FormDialog(const Application& application) {
    FileDialog dialog;
    dialog.filter =
        application.Translate(QStringLiteral("Tolvane Form Files (*.aff)")) + QStringLiteral("|*.aff");
    dialog.defaultExtension = QStringLiteral("aff");
    dialog.fileName = QStringLiteral("*.aff");
    dialog.initialFolder = FormFolder(application);
    dialog.flags = kForOpening;
    return dialog;
}

// Whether the person chose something.
template <typename Show>
bool IsChosen(Show&& show) {
    const std::optional<Failure> caught = Ignoring(std::forward<Show>(show));
    if (caught && caught->Number() != failure::kCancelled) throw Failure(*caught);
    return !caught;
}

bool ChooseInWelcome(QString& dialogFileName, OpenKind kind, const OpenActions& actions) {
    const QString before = std::exchange(dialogFileName, QString());
    actions.showWelcome(kind == OpenKind::New ? 1 : 2);
    if (!dialogFileName.isEmpty()) return true;
    dialogFileName = before;
    return false;
}

bool ChooseInDialog(const Application& application, QString& dialogFileName, OpenKind kind) {
    FileDialog dialog = kind == OpenKind::New ? NewDialog(application) : OpenDialog(application);
    if (!ChooseToOpen(application, dialog)) return false;
    dialogFileName = dialog.fileName;
    return true;
}

void OpenChosen(Application& application, const QString& path, const OpenActions& actions) {
    const QString ending = path.right(kEndingLength).toLower();
    if (ending == u"aft") {
        SetTemplateFolder(application, GetFolder(path));
        actions.openTemplate(path);
    } else if (ending == u"aff") {
        SetFormFolder(application, GetFolder(path));
        actions.openForm();
    }
}

// Only by its ending is the text of a form told from its pictures.
QString FormNameOf(const QString& chosen) {
    if (IsTextMemberName(GetFileName(chosen))) return chosen;
    QString path = chosen + QStringLiteral(".aff");
    if (QFileInfo::exists(OnDisk(path))) throw Failure(failure::kFileExists);
    return path;
}

}  // namespace

FileDialog NewDialog(const Application& application) {
    FileDialog dialog = TemplateDialog(application);
    dialog.title = application.Translate(QStringLiteral("New"));
    return dialog;
}

FileDialog OpenDialog(const Application& application) {
    FileDialog dialog = FormDialog(application);
    dialog.title = application.Translate(QStringLiteral("Open"));
    return dialog;
}

FileDialog SaveAsDialog(const Application& application) {
    FileDialog dialog = FormDialog(application);
    dialog.title = application.Translate(QStringLiteral("Save As"));
    dialog.flags = kForSaving;
    return dialog;
}

FileDialog MergeDialog(const Application& application) {
    FileDialog dialog = TemplateDialog(application);
    dialog.title = application.Translate(QStringLiteral("Merge Template"));
    return dialog;
}

bool ChooseToOpen(const Application& application, FileDialog& dialog) {
    return IsChosen([&] { application.ui.ShowOpen(dialog); });
}

bool ChooseToSave(const Application& application, FileDialog& dialog) {
    return IsChosen([&] { application.ui.ShowSave(dialog); });
}

bool WantsWelcome(const Application& application) {
    if (application.ViewerMode) return false;
    return application.Str2Boolean(application.settings.Read(application.Title, QStringLiteral("frmWelcome"),
                                                             QStringLiteral("ShowOnStartup"),
                                                             QStringLiteral("True")));
}

void SetOpenForm(Application& application, OpenKind kind, QString& dialogFileName,
                 const OpenActions& actions) {
    const bool isChosen = WantsWelcome(application) ? ChooseInWelcome(dialogFileName, kind, actions)
                                                    : ChooseInDialog(application, dialogFileName, kind);
    if (isChosen) OpenChosen(application, dialogFileName, actions);
}

bool mnuFileSaveAs_Click(frmSheetwright& document, QString& dialogFileName, RecentFiles& files) {
    Application& application = document.application;
    FileDialog dialog = SaveAsDialog(application);
    if (!ChooseToSave(application, dialog)) return false;
    QString path;
    if (const auto failed = Ignoring([&] { path = FormNameOf(dialog.fileName); })) {
        application.ui.ShowMessage(failed->Text(),
                                   application.Translate(QStringLiteral("Unable to save file")),
                                   MessageIcon::Critical);
        return false;
    }
    dialogFileName = path;
    AddToRecentFiles(application, files, path);
    document.Tag = path;
    document.Stamp.reset();  // the dialog has asked about the file that is there
    mnuFileSave_Click(document);
    return true;
}

}  // namespace sheetwright
