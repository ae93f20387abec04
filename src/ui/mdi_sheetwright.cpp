#include "ui/mdi_sheetwright.h"

#include "core/application.h"
#include "core/pause.h"
#include "core/run_command.h"
#include "document/document.h"
#include "document/page_view_layout.h"
#include "fields/editing.h"
#include "ui/add_page_dialog.h"
#include "ui/form_window.h"
#include "ui/frame_placement.h"
#include "ui/input_gate.h"
#include "ui/line_icons.h"
#include "ui/page_buttons.h"
#include "ui/page_view.h"
#include "ui/save_rules.h"
#include "ui/tiling.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QSize kSmallestForm(240, 160);

FormWindow& FormOf(const QMdiSubWindow& window) {
    return *static_cast<FormWindow*>(window.widget());
}

QMdiSubWindow& FrameOf(FormWindow& form) {
    return *static_cast<QMdiSubWindow*>(form.parentWidget());
}

QString TitleOfPage(const frmSheetwright& document) {
    const int design = document.memory.WhichDesign(document.DataPageNum);
    const KeyedCollection<QString>& titles = document.memory.PageProps;
    return design >= 1 && design <= titles.Count() ? titles.At(design) : QString();
}

}  // namespace

mdiSheetwright::mdiSheetwright(Application& application)
    : m_application(application), m_area(new QMdiArea(this)), m_gate(new InputGate(*this)) {
    setObjectName(QStringLiteral("mdiSheetwright"));
    setWindowTitle(application.ViewerMode
                       ? application.Translate(QStringLiteral("Tolvane Ketterlin Professional Viewer"))
                       : application.Title);
    setWindowIcon(ProgramIcon());
    setCentralWidget(m_area);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    BuildMenus();
    BuildToolBar();
    BuildStatusBar();
    DrawIcons();
    if (application.ViewerMode) RemoveFunctionality();
    RestorePlacement(*this, application);
    m_actions.blank->setChecked(StoredBlankTick(application));
    connect(m_area, &QMdiArea::subWindowActivated, this, &mdiSheetwright::Activate);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &mdiSheetwright::Refresh);
    application.mainWindow = this;
    Refresh();
}

mdiSheetwright::~mdiSheetwright() {
    m_application.mainWindow = &m_application.noMainWindow;
    m_area->disconnect(this);
    delete m_area;  // and the forms, while what they call is there
}

FormWindow* mdiSheetwright::Active() const {
    const std::vector<FormWindow*> forms = Forms();
    if (std::ranges::find(forms, m_active.data()) != forms.end()) return m_active;
    return forms.empty() ? nullptr : forms.back();
}

std::vector<FormWindow*> mdiSheetwright::Forms() const {
    std::vector<FormWindow*> forms;
    for (const QMdiSubWindow* const window : m_area->subWindowList())
        if (window->widget() != nullptr) forms.push_back(&FormOf(*window));
    return forms;
}

// The first form fills the frame, the others come as the one in front is.
frmSheetwright& mdiSheetwright::MakeDocument() {
    FormWindow* const front = Active();
    const bool isWhole = front == nullptr || FrameOf(*front).isMaximized();
    m_actions.blank->setChecked(false);
    auto made = std::make_unique<FormWindow>(m_application);
    FormWindow& form = *made;
    form.MayClose = [this](FormWindow& closing) { return MayClose(closing); };
    form.View().ZoomChanged = [this] { RefreshZoom(); };
    QMdiSubWindow* const window = m_area->addSubWindow(made.release());
    window->setWindowIcon(windowIcon());
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(window, &QObject::destroyed, this, &mdiSheetwright::Refresh);
    Activate(window);
    window->setMinimumSize(kSmallestForm);
    window->resize(RoomForOne(*m_area));
    if (isWhole) {
        window->showMaximized();
    } else {
        window->show();
    }
    return form.Document();
}

void mdiSheetwright::UnloadDocument(frmSheetwright& document) {
    for (FormWindow* const form : Forms())
        if (&form->Document() == &document) delete &FrameOf(*form);
    if (FormWindow* const next = Active()) ShowPageOf(next->Document());
    Refresh();
}

// Also told when the last form is gone, and when another program comes to the front: then nothing changes.
void mdiSheetwright::Activate(QMdiSubWindow* window) {
    if (window == nullptr || window->widget() == nullptr) return Refresh();
    FormWindow& form = FormOf(*window);
    m_active = &form;
    frmSheetwright& document = form.Document();
    m_application.CurrentTempDir = document.MyTempDir;
    if (document.Pages < 1) {
        ClearPagePanel();
    } else {
        RunCommand(m_application, QStringLiteral("Form_Activate"), [&] { ShowPageOf(document); });
    }
    Refresh();
}

void mdiSheetwright::ShowPageOf(frmSheetwright& document) {
    const QString place = QStringLiteral("%1/%2").arg(document.DataPageNum).arg(document.Pages);
    m_application.CurrentTempDir = document.MyTempDir;
    SetPagePanel(place + QStringLiteral(" - ") + TitleOfPage(document) + u' ');
    SetPageBox(place);
    RefreshPageControl(document);
}

void mdiSheetwright::ClearPagePanel() {
    SetPagePanel(QString());
    SetPageBox(QString());
}

bool mdiSheetwright::MayClose(FormWindow& form) {
    frmSheetwright& document = form.Document();
    m_application.CurrentTempDir = document.MyTempDir;
    RunCommand(m_application, QStringLiteral("Form_Unload"), [&] { Unselect(document); });
    if (!SaveBeforeClosing(document)) return false;
    if (!m_application.ReportMode) return true;
    m_application.ui.TellHost(QStringLiteral("EVENT: FORMCLOSE"));
    Pause(1, m_application.ui);
    return true;
}

// A form that could not be saved stays open.
bool mdiSheetwright::SaveBeforeClosing(frmSheetwright& document) {
    if (!document.Changed || !(CanSave(document) || CanSaveAs(document))) return true;
    for (FormWindow* const form : Forms())
        if (&form->Document() == &document) m_area->setActiveSubWindow(&FrameOf(*form));
    const MessageAnswer answer =
        m_application.ui.ShowMessage(m_application.Translate(QStringLiteral("Save any changes?")),
                                     m_application.Title, MessageIcon::Question, MessageButtons::YesNoCancel);
    if (answer != MessageAnswer::Yes) return answer == MessageAnswer::No;
    if (RunCommand(m_application, QStringLiteral("Form_Unload"), [&] { SaveByButton(document); }))
        RecoverFromFailedPass(document);
    return !document.Changed;
}

void mdiSheetwright::closeEvent(QCloseEvent* event) {
    event->ignore();
    const std::vector<FormWindow*> forms = Forms();
    const auto isBusy = [](FormWindow* form) { return form->Document().Busy > 0; };
    if (m_isRunning || !IsEnabled() || std::ranges::any_of(forms, isBusy)) return;
    for (FormWindow* const form : forms)
        if (!FrameOf(*form).close()) return;
    StorePlacement(*this, m_application);
    StoreBlankTick(m_application, IsBlankTicked());
    event->accept();
}

void mdiSheetwright::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_toolBar != nullptr) DrawIcons();
}

bool mdiSheetwright::IsEnabled() const {
    return m_gate->IsOpen() && QApplication::activeModalWidget() == nullptr;
}

void mdiSheetwright::SetEnabled(bool isEnabled) {
    m_gate->SetOpen(isEnabled);
}

bool mdiSheetwright::IsBlankTicked() const {
    return m_actions.blank->isChecked();
}

QString mdiSheetwright::PagePanel() const {
    return m_page->text();
}

void mdiSheetwright::SetPagePanel(const QString& text) {
    m_page->setText(text);
}

void mdiSheetwright::SetPageBox(const QString& text) {
    m_pages->SetBox(text);
}

void mdiSheetwright::RefreshPageList(frmSheetwright& document) {
    FormWindow* const front = Active();
    if (front != nullptr && &front->Document() == &document) RefreshCommands();
}

void mdiSheetwright::ShowAddPage(frmSheetwright& document) {
    sheetwright::ShowAddPage(this, document);
}

void mdiSheetwright::Run(const QString& name, const std::function<void()>& command) {
    if (m_isRunning || !IsEnabled()) return;
    {
        const QScopedValueRollback<bool> running(m_isRunning, true);
        if (RunCommand(m_application, name, command)) Recover();
    }
    Refresh();
}

void mdiSheetwright::RunOnActive(const QString& name, DocumentCommand command) {
    Run(name, [&] {
        if (FormWindow* const form = Active()) (this->*command)(form->Document());
    });
}

void mdiSheetwright::Recover() {
    m_gate->SetOpen(true);
    m_application.ui.SetPointer(Pointer::Normal);
    m_application.ui.HideProgress();
    if (FormWindow* const form = Active()) RecoverFromFailedPass(form->Document());
}

}  // namespace sheetwright
