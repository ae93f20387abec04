// The menus, tool bar and status bar of the frame.

#include "core/application.h"
#include "document/document.h"
#include "ui/form_window.h"
#include "ui/line_icons.h"
#include "ui/mdi_sheetwright.h"
#include "ui/page_buttons.h"
#include "ui/page_view.h"
#include "ui/status_panel.h"
#include "ui/tiling.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace sheetwright {

namespace {

constexpr int kIconSide = 20;  // pixels
constexpr int kStatusMargin = 4;
constexpr double kPercent = 100;
constexpr int kZooms[] = {50, 75, 100, 125, 150, 200, 400};

const auto kFitWidth = [](PageView& view) { view.FitWidth(); };

}  // namespace

void mdiSheetwright::BuildMenus() {
    BuildFileMenu();
    BuildEditMenu();
    BuildViewMenu();
    BuildOptionsMenu();
    BuildWindowMenu();
}

QAction* mdiSheetwright::Add(QMenu& menu, const QString& name, const QString& caption,
                             const Command& command) {
    QAction* const action = menu.addAction(caption);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, [this, name, command] { Run(name, command); });
    return action;
}

QAction* mdiSheetwright::AddForActive(QMenu& menu, const QString& name, const QString& caption,
                                      DocumentCommand command) {
    return Add(menu, name, caption, [this, command] {
        if (FormWindow* const form = Active()) (this->*command)(form->Document());
    });
}

void mdiSheetwright::BuildFileMenu() {
    QMenu& menu = *menuBar()->addMenu(m_application.Translate(QStringLiteral("&File")));
    m_actions.open =
        Add(menu, QStringLiteral("mnuFileOpen"), m_application.Translate(QStringLiteral("&Open...")),
            [this] { mnuFileOpen_Click(); });
    m_actions.close =
        Add(menu, QStringLiteral("mnuFileClose"), m_application.Translate(QStringLiteral("&Close")),
            [this] { mnuFileClose_Click(); });
    menu.addSeparator();
    m_actions.save = AddForActive(menu, QStringLiteral("mnuFileSave"),
                                  m_application.Translate(QStringLiteral("&Save")), &mdiSheetwright::Save);
    m_actions.saveAs =
        AddForActive(menu, QStringLiteral("mnuFileSaveAs"),
                     m_application.Translate(QStringLiteral("Save &As...")), &mdiSheetwright::SaveAs);
    menu.addSeparator();
    QAction* const exit = menu.addAction(m_application.Translate(QStringLiteral("E&xit")));
    exit->setObjectName(QStringLiteral("mnuFileExit"));
    connect(exit, &QAction::triggered, this, &QWidget::close);
    m_actions.open->setShortcut(QKeySequence::Open);
    m_actions.close->setShortcut(QKeySequence::Close);
    m_actions.save->setShortcut(QKeySequence::Save);
    exit->setShortcut(QKeySequence::Quit);
}

void mdiSheetwright::BuildEditMenu() {
    m_actions.edit = menuBar()->addMenu(m_application.Translate(QStringLiteral("&Edit")));
    m_actions.edit->setObjectName(QStringLiteral("mnuPage"));
    m_actions.update = AddForActive(*m_actions.edit, QStringLiteral("MnuEditUpdate"),
                                    m_application.Translate(QStringLiteral("Update &Formulas")),
                                    &mdiSheetwright::UpdateFormulas);
    m_actions.update->setShortcut(QKeySequence(Qt::Key_F9));
    m_actions.edit->addSeparator();
    m_actions.addPage =
        AddForActive(*m_actions.edit, QStringLiteral("mnuPageAdd"),
                     m_application.Translate(QStringLiteral("&Add Page...")), &mdiSheetwright::AddPageByMenu);
}

void mdiSheetwright::AddZoom(QMenu& menu, const QString& name, const QString& caption,
                             const std::function<void(PageView&)>& change, const QList<QKeySequence>& keys) {
    QAction* const action = Add(menu, name, caption, [this, change] {
        if (FormWindow* const form = Active()) change(form->View());
    });
    action->setShortcuts(keys);
    m_actions.zooms.push_back(action);
}

void mdiSheetwright::BuildViewMenu() {
    QMenu& menu = *menuBar()->addMenu(m_application.Translate(QStringLiteral("&View")));
    AddZoom(menu, QStringLiteral("mnuViewZoomIn"), m_application.Translate(QStringLiteral("Zoom &In")),
            [](PageView& view) { view.ZoomIn(); },
            {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    AddZoom(menu, QStringLiteral("mnuViewZoomOut"), m_application.Translate(QStringLiteral("Zoom &Out")),
            [](PageView& view) { view.ZoomOut(); }, {QKeySequence(Qt::CTRL | Qt::Key_Minus)});
    menu.addSeparator();
    AddZoom(menu, QStringLiteral("mnuViewActualSize"),
            m_application.Translate(QStringLiteral("&Actual Size")), [](PageView& view) { view.ResetZoom(); },
            {QKeySequence(Qt::CTRL | Qt::Key_0)});
    AddZoom(menu, QStringLiteral("mnuViewFitWidth"), m_application.Translate(QStringLiteral("Fit &Width")),
            kFitWidth, {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_0)});
}

void mdiSheetwright::BuildOptionsMenu() {
    m_actions.options = menuBar()->addMenu(m_application.Translate(QStringLiteral("&Options")));
    m_actions.blank = Add(*m_actions.options, QStringLiteral("mnuOptionsBlank"),
                          m_application.Translate(QStringLiteral("Highlight &Blank Fields")),
                          [this] { HighlightBlanks(); });
    m_actions.blank->setCheckable(true);
}

void mdiSheetwright::AddArrangement(const QString& name, const QString& caption,
                                    const std::function<void(QMdiArea&)>& arrange) {
    Add(*m_actions.window, name, caption, [this, arrange] { arrange(*m_area); });
}

void mdiSheetwright::BuildWindowMenu() {
    m_actions.window = menuBar()->addMenu(m_application.Translate(QStringLiteral("&Window")));
    AddArrangement(QStringLiteral("mnuWindowCascade"), m_application.Translate(QStringLiteral("&Cascade")),
                   Cascade);
    AddArrangement(QStringLiteral("mnuWindowTileHorizontally"),
                   m_application.Translate(QStringLiteral("Tile &Horizontally")), TileHorizontally);
    AddArrangement(QStringLiteral("mnuWindowTileVertically"),
                   m_application.Translate(QStringLiteral("&Tile Vertically")), TileVertically);
    m_actions.window->addSeparator();
    connect(m_actions.window, &QMenu::aboutToShow, this, &mdiSheetwright::ListWindows);
}

// The open forms, behind the arrangements.
void mdiSheetwright::ListWindows() {
    qDeleteAll(m_actions.windows);
    m_actions.windows.clear();
    const FormWindow* const front = Active();
    for (FormWindow* const form : Forms()) {
        QString caption = form->Document().Caption;
        QAction* const action = m_actions.window->addAction(caption.replace(u'&', QStringLiteral("&&")));
        m_actions.windows.push_back(action);
        action->setCheckable(true);
        action->setChecked(form == front);
        connect(action, &QAction::triggered, form, [this, form] {
            m_area->setActiveSubWindow(static_cast<QMdiSubWindow*>(form->parentWidget()));
        });
    }
}

void mdiSheetwright::BuildToolBar() {
    m_toolBar = addToolBar(m_application.Translate(QStringLiteral("Tool Bar")));
    m_toolBar->setObjectName(QStringLiteral("tbToolBar"));
    m_toolBar->setMovable(false);
    m_toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_toolBar->setIconSize(QSize(kIconSide, kIconSide));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_actions.saveButton = new QAction(m_application.Translate(QStringLiteral("&Save")), this);
    m_actions.saveButton->setObjectName(QStringLiteral("Save"));
    connect(m_actions.saveButton, &QAction::triggered, this,
            [this] { RunOnActive(QStringLiteral("mnuFileSave"), &mdiSheetwright::SaveByButton); });
    m_toolBar->addActions({m_actions.open, m_actions.saveButton});
    m_toolBar->addSeparator();
    m_toolBar->addActions({m_actions.update, m_actions.addPage});
    m_toolBar->addSeparator();
    m_pages = new PageButtons(m_application, m_toolBar);
    m_pages->GoTo = [this](int number) { GoToPage(number); };
    m_actions.pagePanel = m_toolBar->addWidget(m_pages);
}

void mdiSheetwright::BuildStatusBar() {
    m_status = new StatusPanel(this);
    m_page = new QToolButton(this);
    m_page->setObjectName(QStringLiteral("Page"));
    m_page->setAutoRaise(true);
    m_page->setFocusPolicy(Qt::NoFocus);
    connect(m_page, &QToolButton::clicked, this, &mdiSheetwright::PopUpEditMenu);
    BuildZoomBox();
    statusBar()->setStyleSheet(QStringLiteral("QStatusBar::item { border: none; }"));
    statusBar()->setContentsMargins(kStatusMargin, 0, 0, 0);
    statusBar()->addWidget(m_status, 1);
    statusBar()->addPermanentWidget(m_page);
    statusBar()->addPermanentWidget(m_zoom);
}

void mdiSheetwright::BuildZoomBox() {
    m_zoom = new QToolButton(this);
    m_zoom->setObjectName(QStringLiteral("Zoom"));
    m_zoom->setAccessibleName(m_application.Translate(QStringLiteral("Zoom")));
    m_zoom->setToolTip(m_zoom->accessibleName());
    m_zoom->setAutoRaise(true);
    m_zoom->setFocusPolicy(Qt::NoFocus);
    m_zoom->setPopupMode(QToolButton::InstantPopup);
    m_zoom->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    auto* const menu = new QMenu(m_zoom);
    for (const int percent : kZooms)
        AddZoom(*menu, QStringLiteral("Zoom%1").arg(percent), ZoomText(percent / kPercent),
                [percent](PageView& view) { view.SetZoom(percent / kPercent); });
    menu->addSeparator();
    AddZoom(*menu, QStringLiteral("ZoomFitWidth"), m_application.Translate(QStringLiteral("Fit &Width")),
            kFitWidth);
    m_zoom->setMenu(menu);
}

// A viewer changes nothing.
void mdiSheetwright::RemoveFunctionality() {
    m_actions.edit->menuAction()->setVisible(false);
    m_actions.options->menuAction()->setVisible(false);
    for (QAction* const action :
         {m_actions.save, m_actions.saveAs, m_actions.saveButton, m_actions.update, m_actions.addPage})
        action->setVisible(false);
}

void mdiSheetwright::DrawIcons() {
    const QColor colour = palette().color(QPalette::ButtonText);
    m_actions.open->setIcon(LineIcon(QStringLiteral("open"), colour));
    m_actions.save->setIcon(LineIcon(QStringLiteral("save"), colour));
    m_actions.saveButton->setIcon(m_actions.save->icon());
    m_actions.update->setIcon(LineIcon(QStringLiteral("formulas"), colour));
    m_actions.addPage->setIcon(LineIcon(QStringLiteral("add_page"), colour));
    m_pages->SetIconColour(colour);
    // Two colours would not do on the bar of a chosen entry.
    for (QAction* const action : {m_actions.open, m_actions.save, m_actions.update, m_actions.addPage})
        action->setIconVisibleInMenu(false);
}

QString mdiSheetwright::ZoomText(double zoom) {
    return QStringLiteral("%1\u00A0%").arg(qRound(zoom * kPercent));
}

}  // namespace sheetwright
