#include "ui/list_table_window.h"

#include "core/application.h"
#include "core/run_command.h"
#include "ui/help_window.h"
#include "ui/late_quit.h"
#include "ui/line_icons.h"
#include "ui/list_table_cell_editor.h"
#include "ui/list_table_find_bar.h"
#include "ui/list_table_search.h"
#include "ui/list_table_view.h"

#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace sheetwright {

namespace {

constexpr int kIconSide = 24;  // pixels
constexpr QSize kFirstSize(860, 600);
constexpr QSize kSmallestSize(360, 240);
constexpr int kPanelRoom = 8;
constexpr double kMisfitShare = 0.28;

QString Section() {
    return QStringLiteral("frmLists");
}

QString PlaceKey() {
    return QStringLiteral("Place");
}

// Legible behind the text on light and on dark.
QColor MisfitColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor red(220, 50, 40);
    const auto mixed = [](int ground, int ink) {
        return static_cast<int>(ground * (1 - kMisfitShare) + ink * kMisfitShare);
    };
    return {mixed(base.red(), red.red()), mixed(base.green(), red.green()), mixed(base.blue(), red.blue())};
}

// The words of a menu entry without what only a menu shows.
QString ToolTip(const QAction& action) {
    QString words = action.text().remove(u'&').remove(QStringLiteral("..."));
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? words : QStringLiteral("%1 (%2)").arg(words, keys);
}

}  // namespace

ListTableWindow::ListTableWindow(Application& application)
    : m_application(application),
      m_model(application),
      m_view(new ListTableView(this)),
      m_findBar(new ListTableFindBar(application, this)),
      m_search(new ListTableSearch(application, m_model, *m_view, m_stack, *m_findBar,
                                   [this](const QString& name, const auto& command) { Run(name, command); })),
      m_files(application, m_model, m_stack),
      m_editing(application, m_model, *m_view, m_stack),
      m_menus(ListTableMenus(application)) {
    setObjectName(QStringLiteral("frmLists"));
    setMinimumSize(kSmallestSize);
    BuildTable();
    m_commands = FileCommands();
    m_commands.insert(EditCommands());
    m_commands.insert(TableCommands());
    BuildMenus();
    BuildContextMenus();
    BuildStatusBar();
    DrawIcons();
    m_files.Shown = [this] { ShowFile(); };
    connect(&m_stack, &QUndoStack::indexChanged, this, &ListTableWindow::Refresh);
    connect(&m_stack, &QUndoStack::cleanChanged, this, &ListTableWindow::Refresh);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &ListTableWindow::Refresh);
    new LateQuit(*this, [this] { return !m_isRunning; });
    RestorePlace();
    ShowFile();
}

void ListTableWindow::BuildTable() {
    m_view->setModel(&m_model);
    m_view->setAccessibleName(m_application.Translate(QStringLiteral("List")));
    m_view->RowWanted = [this] { Run(QStringLiteral("AddLastRow"), [this] { m_editing.AddLastRow(); }); };
    m_model.Typed = [this](const QModelIndex& cell, const QString& text) { m_editing.Type(cell, text); };
    auto* const middle = new QWidget(this);
    auto* const column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_findBar);
    setCentralWidget(middle);
    m_view->setFocus(Qt::OtherFocusReason);
    connect(m_view->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this] { Run(QStringLiteral("ChangeColumn"), [this] { m_editing.ChangeColumn(); }); });
}

QAction* ListTableWindow::AddAction(const ListTableAction& row) {
    auto* const action = new QAction(row.caption, this);
    action->setObjectName(row.name);
    action->setShortcuts(row.keys);
    action->setToolTip(ToolTip(*action));
    connect(action, &QAction::triggered, this, [this, row] { Run(row.name, m_commands.value(row.command)); });
    m_actions.insert(row.command, action);
    return action;
}

void ListTableWindow::BuildMenus() {
    m_toolBar = addToolBar(m_application.Translate(QStringLiteral("Tool Bar")));
    m_toolBar->setObjectName(QStringLiteral("tbToolBar"));
    m_toolBar->setMovable(false);
    m_toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_toolBar->setIconSize(QSize(kIconSide, kIconSide));
    for (const ListTableMenu& menu : m_menus) {
        QMenu* const shown = menuBar()->addMenu(menu.caption);
        shown->setObjectName(menu.name);
        for (const ListTableAction& row : menu.actions) {
            QAction* const action = AddAction(row);
            shown->addAction(action);
            if (row.endsGroup) shown->addSeparator();
            if (row.isOnToolBar) m_toolBar->addAction(action);
        }
        if (menu.name != QStringLiteral("mnuHelp") && menu.name != QStringLiteral("mnuColumn"))
            m_toolBar->addSeparator();
    }
}

void ListTableWindow::BuildContextMenus() {
    using enum ListTableCommand;
    for (const ListTableCommand command : {Cut, Copy, Paste, Clear, AddRow, DuplicateRows, DeleteRows})
        m_view->addAction(ActionOf(command));
    for (const ListTableCommand command : {AddRow, DuplicateRows, DeleteRows, MoveUp, MoveDown})
        m_view->verticalHeader()->addAction(ActionOf(command));
    for (const ListTableCommand command :
         {ChangeColumn, AddColumn, DeleteColumn, SortAscending, SortDescending})
        m_view->horizontalHeader()->addAction(ActionOf(command));
}

void ListTableWindow::BuildStatusBar() {
    const auto add = [this](const char* name) {
        auto* const label = new QLabel(this);
        label->setObjectName(QString::fromLatin1(name));
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(kPanelRoom, 0, kPanelRoom, 0);
        statusBar()->addPermanentWidget(label);
        return label;
    };
    m_position = add("lblPosition");
    m_size = add("lblSize");
    m_encoding = add("lblEncoding");
}

void ListTableWindow::DrawIcons() {
    const QColor colour = palette().color(QPalette::ButtonText);
    for (const ListTableMenu& menu : m_menus)
        for (const ListTableAction& row : menu.actions)
            if (!row.icon.isEmpty()) ActionOf(row.command)->setIcon(LineIcon(row.icon, colour));
    m_model.SetMisfitColour(MisfitColour(palette()));
}

void ListTableWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_toolBar != nullptr) DrawIcons();
}

void ListTableWindow::Run(const QString& name, const std::function<void()>& command) {
    if (m_isRunning) return;
    const QScopedValueRollback<bool> running(m_isRunning, true);
    m_view->CellEditor().Commit();
    RunCommand(m_application, name, command);
    Refresh();
}

void ListTableWindow::OpenFile(const QString& path) {
    Run(QStringLiteral("OpenFile"), [&] { m_files.OpenFile(path); });
}

void ListTableWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = false;
    Run(QStringLiteral("Close"), [&] { mayClose = m_files.MayLeave(); });
    event->setAccepted(mayClose);
    if (mayClose) StorePlace();
}

void ListTableWindow::RestorePlace() {
    resize(kFirstSize);
    const QString place = m_application.settings.Read(m_application.Title, Section(), PlaceKey());
    restoreGeometry(QByteArray::fromBase64(place.toLatin1()));
}

void ListTableWindow::StorePlace() {
    m_application.settings.Write(m_application.Title, Section(), PlaceKey(),
                                 QString::fromLatin1(saveGeometry().toBase64()));
}

}  // namespace sheetwright
