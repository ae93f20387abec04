#include "ui/mdi_sheetwright.h"

#include "core/application.h"
#include "core/run_command.h"
#include "document/closing.h"
#include "document/document.h"
#include "import/download_root.h"
#include "ui/add_page_dialog.h"
#include "ui/file_drop.h"
#include "ui/form_area.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"
#include "ui/frame_menus.h"
#include "ui/frame_placement.h"
#include "ui/frame_status_bar.h"
#include "ui/frame_tool_bar.h"
#include "ui/input_gate.h"
#include "ui/late_quit.h"
#include "ui/line_icons.h"
#include "ui/page_buttons.h"
#include "ui/page_view.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>

namespace sheetwright {

namespace {

// The mark of a changed form stands behind its name; what looks like the mark in a name is none.
QString MarkedCaption(QString caption) {
    const QString mark = QStringLiteral("[*]");
    return caption.replace(mark, mark + mark) + mark;
}

}  // namespace

mdiSheetwright::mdiSheetwright(Application& application, std::unique_ptr<FETCHDOCK> dock)
    : DownloadRoot(sheetwright::DownloadRoot(application)),
      m_application(application),
      m_dock(dock ? std::move(dock) : std::make_unique<NoFetchDock>()),
      m_area(new FormArea(this)),
      m_gate(new InputGate(*this)),
      m_commands(std::make_unique<FrameCommands>(application, *this)),
      m_menus(new FrameMenus(
          application, *menuBar(),
          [this](const QString& name, const FrameCommand& command) { RunCommand(name, command); })),
      m_toolBar(new FrameToolBar(
          application, *m_menus,
          [this](const QString& name, const FrameCommand& command) { RunCommand(name, command); }, this)),
      m_status(new FrameStatusBar(application, this)) {
    setObjectName(QStringLiteral("mdiSheetwright"));
    setWindowTitle(application.Title);
    setWindowIcon(ProgramIcon(application.ViewerMode));
    setCentralWidget(m_area);
    BuildToolBar();
    BuildStatusBar();
    ConnectArea();
    if (application.ViewerMode) RemoveFunctionality();
    LoadSettings();
    new FileDrop(*this, [this](const QStringList& paths) { OpenDropped(paths); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &mdiSheetwright::Refresh);
    new LateQuit(*this, [this] { return !m_isRunning && IsEnabled() && !IsBusy(); });
    application.mainWindow = this;
    Refresh();
}

mdiSheetwright::~mdiSheetwright() {
    m_application.mainWindow = &m_application.noMainWindow;
    delete m_area;  // and the forms, while what they call is there
}

void mdiSheetwright::BuildToolBar() {
    addToolBar(m_toolBar);
    PageButtons& pages = m_toolBar->Pages();
    const auto connectTo = [this](std::function<void()>& button, const char* name,
                                  void (FrameCommands::*command)()) {
        button = [this, name = QString::fromLatin1(name), command] { RunCommand(name, command); };
    };
    connectTo(pages.First, "cmd_firstpage", &FrameCommands::cmd_firstpage_Click);
    connectTo(pages.Previous, "cmd_prevpage", &FrameCommands::cmd_prevpage_Click);
    connectTo(pages.Next, "cmd_nextpage", &FrameCommands::cmd_nextpage_Click);
    connectTo(pages.Last, "cmd_lastpage", &FrameCommands::cmd_lastpage_Click);
    ConnectDrivers();
}

void mdiSheetwright::BuildStatusBar() {
    setStatusBar(m_status);
    m_status->PageClicked = [this] { PopUpEditMenu(); };
    m_status->DoubleClicked = [this] {
        RunCommand(QStringLiteral("sbStatusBar"), &FrameCommands::TellFreeResources);
    };
    m_status->ZoomChosen = [this](double zoom) {
        Run(QStringLiteral("Zoom"), [&] { m_commands->SetZoom(zoom); });
    };
    m_status->FitWidthChosen = [this] {
        RunCommand(QStringLiteral("Zoom"), &FrameCommands::mnuViewFitWidth_Click);
    };
}

void mdiSheetwright::ConnectArea() {
    m_area->setWindowIcon(windowIcon());
    m_area->Deactivated = [this] {
        sheetwright::RunCommand(m_application, QStringLiteral("Form_Deactivate"),
                                [this] { ShowDrivers(QString()); });
    };
    m_area->Activated = [this](FormWindow& form) { Activated(form); };
    m_area->Changed = [this] { Refresh(); };
    m_area->Closed = [this] { TellFormClosed(m_application, Timer); };
    m_menus->ListForms(*m_area);
}

// A viewer changes nothing.
void mdiSheetwright::RemoveFunctionality() {
    for (const QStringView name : MenusNotInViewer())
        m_menus->Hide(name);
    for (const QStringView key : ButtonsNotInViewer())
        m_toolBar->Hide(key);
    setWindowTitle(m_application.Translate(QStringLiteral("Tolvane Ketterlin Professional Viewer")));
}

void mdiSheetwright::LoadSettings() {
    RestorePlacement(*this, m_application);
    for (const FrameOption& option : kFrameOptions)
        m_menus->SetTicked(option.entry, StoredTick(m_application, option));
    UpdateImportDrivers();
}

void mdiSheetwright::StoreSettings() {
    StorePlacement(*this, m_application);
    m_commands->StoreRecent();
    for (const FrameOption& option : kFrameOptions)
        StoreTick(m_application, option, m_menus->IsTicked(option.entry));
}

StatusPanel& mdiSheetwright::Status() const {
    return m_status->Status();
}

FormWindow* mdiSheetwright::Active() const {
    return m_area->Active();
}

std::vector<FormWindow*> mdiSheetwright::Forms() const {
    return m_area->Forms();
}

void mdiSheetwright::OpenTemplate(const QString& path) {
    Run(QStringLiteral("OpenaftFile"), [&] { m_commands->OpenTemplate(path); });
}

void mdiSheetwright::OpenFromDialogSlot() {
    RunCommand(QStringLiteral("OpenForm"), &FrameCommands::OpenFormOfSlot);
}

bool mdiSheetwright::IsEnabled() const {
    return m_gate->IsOpen() && QApplication::activeModalWidget() == nullptr;
}

void mdiSheetwright::SetEnabled(bool isEnabled) {
    m_gate->SetOpen(isEnabled);
}

// It is the form in front whose undo point is made or lost.
void mdiSheetwright::SetUndoEnabled(bool isEnabled) {
    const FormWindow* const form = Active();
    if (form == nullptr) return;
    if (isEnabled) {
        m_undoable.insert(form);
    } else {
        m_undoable.erase(form);
    }
}

bool mdiSheetwright::IsUndoEnabled() const {
    return m_undoable.contains(Active());
}

bool mdiSheetwright::IsBlankTicked() const {
    return m_menus->IsTicked(QStringLiteral("mnuOptionsBlank"));
}

void mdiSheetwright::ClearBlankTick() {
    m_menus->SetTicked(QStringLiteral("mnuOptionsBlank"), false);
}

QString mdiSheetwright::PagePanel() const {
    return m_status->PageText();
}

void mdiSheetwright::SetPagePanel(const QString& text) {
    m_status->SetPageText(text);
}

void mdiSheetwright::SetPageBox(const QString& text) {
    m_toolBar->Pages().SetBox(text);
}

void mdiSheetwright::RefreshPageList(frmSheetwright& document) {
    FormWindow* const front = Active();
    if (front != nullptr && &front->Document() == &document) RefreshCommands();
}

void mdiSheetwright::ShowAddPage(frmSheetwright& document) {
    sheetwright::ShowAddPage(this, document);
}

void mdiSheetwright::PopUpEditMenu() {
    QMenu& menu = m_menus->Menu(QStringLiteral("mnuPage"));
    if (menu.menuAction()->isEnabled() && menu.menuAction()->isVisible()) m_status->PopUp(menu);
}

void mdiSheetwright::RunCommand(const QString& name, const FrameCommand& command) {
    Run(name, [&] { command(*m_commands); });
}

void mdiSheetwright::Run(const QString& name, const std::function<void()>& command) {
    if (m_isRunning || !IsEnabled()) return;
    {
        const QScopedValueRollback<bool> running(m_isRunning, true);
        if (sheetwright::RunCommand(m_application, name, command)) Recover();
    }
    Refresh();
}

void mdiSheetwright::Recover() {
    m_gate->SetOpen(true);
    m_application.ui.SetPointer(Pointer::Normal);
    m_application.ui.HideProgress();
    if (FormWindow* const form = Active()) RecoverFromFailedPass(form->Document());
}

// Each change wakes the program, which then refreshes again: nothing is told what it knows already.
void mdiSheetwright::Refresh() {
    RefreshCaptions();
    RefreshCommands();
    RefreshZoom();
}

void mdiSheetwright::RefreshCaptions() {
    for (FormWindow* const form : Forms()) {
        const bool isChanged = form->Document().Changed;
        form->setWindowTitle(MarkedCaption(form->Document().Caption));
        if (form->isWindowModified() != isChanged) form->setWindowModified(isChanged);
    }
}

void mdiSheetwright::RefreshCommands() {
    FormWindow* const form = Active();
    const frmSheetwright* const document = form == nullptr ? nullptr : &form->Document();
    const CommandStates states = CommandStatesOf(m_application, document);
    m_menus->Refresh({.commands = states,
                      .mayChange = document != nullptr && !document->MyReadonly,
                      .canUndo = m_undoable.contains(form)});
    m_menus->ShowRecentFiles(m_commands->Recent());
    m_toolBar->Refresh(states, SaveButtonDescription == QStringLiteral("ReportSave"));
    m_toolBar->ShowPages(document == nullptr ? 0 : document->DataPageNum,
                         document == nullptr ? 0 : document->Pages);
    if (document == nullptr) ClearPagePanel();
}

void mdiSheetwright::RefreshZoom() {
    FormWindow* const form = Active();
    m_status->Refresh(form != nullptr, form == nullptr ? 1 : form->View().Zoom());
}

}  // namespace sheetwright
