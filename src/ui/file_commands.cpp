// The commands of the File menu.

#include "core/application.h"
#include "core/folders.h"
#include "core/paths.h"
#include "document/closing.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "document/open_dialogs.h"
#include "print/print_job.h"
#include "ui/form_area.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"
#include "ui/mdi_sheetwright.h"

#include <QMdiSubWindow>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kMostRefusedNames = 10;

}  // namespace

void FrameCommands::StoreRecent() {
    SaveRecentFiles(m_application, m_recent);
}

// Unlike for a form the tick goes even when there is no such file.
void FrameCommands::OpenTemplate(const QString& path) {
    m_frame.ClearBlankTick();
    OpenaftFile(
        m_application, path, [this]() -> frmSheetwright& { return m_frame.MakeDocument(); },
        [this](frmSheetwright& document) { m_frame.UnloadDocument(document); });
}

void FrameCommands::OpenFormOfSlot() {
    const QString path = m_frame.DialogFileName;
    OpenForm(
        m_application, path,
        [&]() -> frmSheetwright& {
            m_frame.ClearBlankTick();
            AddToRecentFiles(m_application, m_recent, path);
            return m_frame.MakeDocument();
        },
        [this](frmSheetwright& document) { m_frame.UnloadDocument(document); });
}

bool FrameCommands::OpenFile(const QString& path) {
    if (path.endsWith(QStringLiteral(".aft"), Qt::CaseInsensitive)) {
        OpenTemplate(path);
        return true;
    }
    if (!path.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive)) return false;
    m_frame.DialogFileName = path;
    OpenFormOfSlot();
    return true;
}

void FrameCommands::TellRefused(const QStringList& paths) {
    QStringList lines{
        m_application.Translate(QStringLiteral("Only forms and templates can be opened here:"))};
    for (const QString& path : paths.first(std::min<qsizetype>(paths.size(), kMostRefusedNames)))
        lines << GetFileName(path);
    if (paths.size() > kMostRefusedNames) lines << QStringLiteral("…");
    m_application.ui.ShowMessage(lines.join(u'\n'),
                                 m_application.Translate(QStringLiteral("Unable to open file")),
                                 MessageIcon::Exclamation);
}

void FrameCommands::SetOpenFormByDialog(int tab) {
    FileDialog dialog = tab == 1 ? NewDialog(m_application) : OpenDialog(m_application);
    if (ChooseToOpen(m_application, dialog)) m_frame.DialogFileName = dialog.fileName;
}

void FrameCommands::mnuFileNew_Click() {
    SetOpenForm(m_application, OpenKind::New, m_frame.DialogFileName, Opening());
}

void FrameCommands::mnuFileOpen_Click() {
    SetOpenForm(m_application, OpenKind::Existing, m_frame.DialogFileName, Opening());
}

OpenActions FrameCommands::Opening() {
    return {.showWelcome = [this](int tab) { SetOpenFormByDialog(tab); },
            .openTemplate = [this](const QString& path) { OpenTemplate(path); },
            .openForm = [this] { OpenFormOfSlot(); }};
}

void FrameCommands::mnuFileClose_Click() {
    if (FormWindow* const form = m_frame.Active()) FormArea::FrameOf(*form).close();
}

void FrameCommands::mnuFileSave_Click() {
    WithForm([this](frmSheetwright& document) { Save(document); });
}

void FrameCommands::mnuFileSaveAs_Click() {
    WithForm([this](frmSheetwright& document) { SaveAs(document); });
}

void FrameCommands::Save(frmSheetwright& document) {
    m_application.CurrentTempDir = document.MyTempDir;
    sheetwright::mnuFileSave_Click(document);
}

void FrameCommands::SaveAs(frmSheetwright& document) {
    m_application.CurrentTempDir = document.MyTempDir;
    sheetwright::mnuFileSaveAs_Click(document, m_frame.DialogFileName, m_recent);
}

void FrameCommands::tbToolBar_Save() {
    if (m_frame.SaveButtonDescription == QStringLiteral("ReportSave"))
        return m_application.ui.TellHost(QStringLiteral("EVENT: SAVECLICK"));
    WithForm([this](frmSheetwright& document) {
        if (CanSave(document)) return Save(document);
        if (CanSaveAs(document)) SaveAs(document);
    });
}

void FrameCommands::mnuFilePrint_Click() {
    WithForm([](frmSheetwright& document) { sheetwright::mnuFilePrint_Click(document); });
}

// Neither the tick of blank fields nor the folder of forms is touched.
void FrameCommands::mnuFileRecent_Click(std::size_t index) {
    const QString path = RecentFile(m_recent.Entries().at(index).caption);
    const RememberedFolders folders(m_application);
    OpenForm(
        m_application, path,
        [&]() -> frmSheetwright& {
            m_frame.DialogFileName = path;
            AddToRecentFiles(m_application, m_recent, path);
            return m_frame.MakeDocument();
        },
        [this](frmSheetwright& document) { m_frame.UnloadDocument(document); });
}

void FrameCommands::mnuFileExit_Click() {
    m_frame.Exit();
}

}  // namespace sheetwright
