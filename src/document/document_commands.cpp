#include "document/document_commands.h"

#include "core/application.h"
#include "core/error_log.h"
#include "core/folders.h"
#include "core/paths.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/form_writer.h"
#include "document/page_data.h"
#include "fields/editing.h"
#include "fields/maintainable_lists.h"
#include "fields/navigation.h"

#include <QFile>
#include <QFileInfo>

#include <optional>

namespace sheetwright {

namespace {

// Tells a person when the file can't be opened.
bool IsThere(const Application& application, const QString& path) {
    const std::optional<Failure> failed = Ignoring([&] {
        QFile file(OnDisk(path));
        OpenForReading(file);
    });
    if (!failed) return true;
    application.ui.ShowMessage(application.Translate(QStringLiteral(
                                   "Please check the path is valid and the file is not in use by any "
                                   "other applications.")),
                               application.Translate(QStringLiteral("Unable to open file")),
                               MessageIcon::Critical);
    return false;
}

// A file that nobody may write is read-only also for those whom the system lets write everything.
bool IsReadOnly(const QString& path) {
    constexpr QFile::Permissions kAnyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const QFileInfo file(OnDisk(path));
    return !file.isWritable() || !(file.permissions() & kAnyWrite);
}

void Read(frmSheetwright& document) {
    const BusyDocument busy(document.Busy);
    UnpackAndRead(document);
    if (document.memory.DesignPageCount() < 1) throw Failure(failure::kInputPastEnd);
}

void TellCorrupt(Application& application, const QString& path, const Failure& failed) {
    Ignoring([&] { LogError(application, QStringLiteral("ReadFormFile"), path, failed.Number()); });
    application.ui.SetPointer(Pointer::Normal);
    application.ui.ShowMessage(application.Translate(QStringLiteral("Corrupt form file. Cannot continue.")),
                               application.Translate(QStringLiteral("Load form")), MessageIcon::Critical);
}

void ShowFirstPage(frmSheetwright& document) {
    const BusyDocument busy(document.Busy);
    SheetwrightLoadLists(document);
    UsePageOnScreen(document);
    ConnectEntry(document);
    LoadPage(document);
    SimulateTab(document);
}

void OpenInWindow(frmSheetwright& document, const UnloadDocument& unload) {
    Application& application = document.application;
    if (const std::optional<Failure> failed = Catching([&] { Read(document); })) {
        TellCorrupt(application, document.Tag, *failed);
        unload(document);
        application.ui.SetStatus(QString());
        return;
    }
    ShowFirstPage(document);
}

// What another program or window has made of the file since it was read must not vanish unnoticed. A host
// knows what happens to its files.
bool MayReplaceFile(const frmSheetwright& document) {
    const Application& application = document.application;
    const std::optional<FileStamp> there = StampOf(document.Tag);
    if (!document.Stamp || !there || *document.Stamp == *there || application.ReportMode) return true;
    return application.ui.ShowMessage(
               application.Translate(
                   QStringLiteral("The file has been changed since it was opened. Replace it?")),
               application.Title, MessageIcon::Exclamation, MessageButtons::YesNo) == MessageAnswer::Yes;
}

}  // namespace

void OpenaftFile(Application& application, const QString& path, const MakeDocument& make,
                 const UnloadDocument& unload) {
    if (!IsThere(application, path)) return;
    frmSheetwright& document = make();
    SetTemplateFolder(application, GetFolder(path));
    document.Tag = path;
    document.DoSaveAsOnly = true;
    OpenInWindow(document, unload);
}

void OpenForm(Application& application, const QString& path, const MakeDocument& make,
              const UnloadDocument& unload) {
    if (!IsThere(application, path)) return;
    SetFormFolder(application, GetFolder(path));
    frmSheetwright& document = make();
    document.Tag = path;
    document.Stamp = StampOf(path);
    document.MyReadonly = IsReadOnly(path);
    OpenInWindow(document, unload);
}

void mnuFileSave_Click(frmSheetwright& document) {
    if (!MayReplaceFile(document)) return;
    const BusyDocument busy(document.Busy);
    if (SaveForm(document)) document.Stamp = StampOf(document.Tag);
    document.Caption = GetFileName(OnDisk(document.Tag));
}

}  // namespace sheetwright
