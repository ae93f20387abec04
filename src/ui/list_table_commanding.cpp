// What the window's commands do, and what it tells about the list.

#include "core/application.h"
#include "ui/about_box.h"
#include "ui/help_window.h"
#include "ui/list_table_cell_editor.h"
#include "ui/list_table_search.h"
#include "ui/list_table_view.h"
#include "ui/list_table_window.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>

namespace sheetwright {

namespace {

constexpr int kToldFor = 8000;  // milliseconds

}  // namespace

// What shows the list and its commands goes while these are there.
ListTableWindow::~ListTableWindow() {
    m_stack.disconnect();
    delete centralWidget();
}

ListTableWindow::Commands ListTableWindow::FileCommands() {
    using enum ListTableCommand;
    return {
        {New, [this] { m_files.New(); }},
        {Open, [this] { m_files.Open(); }},
        {Save, [this] { m_files.Save(); }},
        {SaveAs, [this] { m_files.SaveAs(); }},
        // When this command has ended.
        {Exit, [this] { QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection); }},
        {Help, [this] { ShowHelp(); }},
        {About, [this] { ShowAbout(this, m_application); }},
    };
}

ListTableWindow::Commands ListTableWindow::EditCommands() {
    using enum ListTableCommand;
    return {
        {Undo, [this] { StepThrough(false); }},
        {Redo, [this] { StepThrough(true); }},
        {Cut, [this] { m_editing.Cut(); }},
        {Copy, [this] { m_editing.Copy(); }},
        {Paste, [this] { PasteAndTell(); }},
        {Clear, [this] { m_editing.Clear(); }},
        {SelectAll, [this] { m_view->selectAll(); }},
        {Find, [this] { m_search->Start(false); }},
        {Replace, [this] { m_search->Start(true); }},
        {FindNext, [this] { m_search->Find(true); }},
        {FindPrevious, [this] { m_search->Find(false); }},
    };
}

ListTableWindow::Commands ListTableWindow::TableCommands() {
    using enum ListTableCommand;
    return {
        {AddRow, [this] { m_editing.AddRow(); }},
        {DuplicateRows, [this] { m_editing.DuplicateRows(); }},
        {DeleteRows, [this] { m_editing.DeleteRows(); }},
        {MoveUp, [this] { m_editing.MoveRows(false); }},
        {MoveDown, [this] { m_editing.MoveRows(true); }},
        {AddColumn, [this] { m_editing.AddColumn(); }},
        {ChangeColumn, [this] { m_editing.ChangeColumn(); }},
        {DeleteColumn, [this] { m_editing.DeleteColumn(); }},
        {SortAscending, [this] { m_editing.Sort(false); }},
        {SortDescending, [this] { m_editing.Sort(true); }},
    };
}

// The person sees what comes back.
void ListTableWindow::StepThrough(bool isRedo) {
    if (isRedo) {
        m_stack.redo();
    } else {
        m_stack.undo();
    }
    m_view->GoTo(m_model.Touched(m_view->currentIndex().column()));
}

void ListTableWindow::PasteAndTell() {
    const int lost = m_editing.Paste();
    if (lost > 0)
        statusBar()->showMessage(
            m_application.Translate(QStringLiteral("Columns that found no room: %1"), QString::number(lost)),
            kToldFor);
}

void ListTableWindow::ShowHelp() {
    const QString folder = HelpFolder(m_application);
    if (folder.isEmpty()) {
        m_application.ui.ShowMessage(
            m_application.Translate(QStringLiteral(
                "Unable to display Help Contents. There is no Help associated with this application.")),
            m_application.Title, MessageIcon::Exclamation);
        return;
    }
    if (!m_help) m_help = std::make_unique<HelpWindow>(m_application, folder);
    m_help->OpenPage(QStringLiteral("lists.html#maintaining"));
}

// What looks like the mark of a change in a name is none.
void ListTableWindow::ShowFile() {
    const QString mark = QStringLiteral("[*]");
    setWindowTitle(QString(m_files.Name()).replace(mark, mark + mark) + mark + QStringLiteral(" - ") +
                   m_application.Translate(QStringLiteral("Lists")));
    setWindowFilePath(m_files.File().Path());
    m_view->CellEditor().LineBreak = m_files.File().Table().LineEnd();
    if (!m_view->currentIndex().isValid()) {
        m_view->FitColumns();
        m_view->GoTo(m_model.index(0, 0));
    }
    Refresh();
}

void ListTableWindow::Refresh() {
    setWindowModified(!m_stack.isClean());
    const bool hasCell = m_view->currentIndex().isValid();
    const QMap<ListTableRule, bool> holds{{ListTableRule::Always, true},
                                          {ListTableRule::Undo, m_stack.canUndo()},
                                          {ListTableRule::Redo, m_stack.canRedo()},
                                          {ListTableRule::Cell, hasCell},
                                          {ListTableRule::Columns, m_model.columnCount() > 0}};
    for (const ListTableMenu& menu : m_menus)
        for (const ListTableAction& row : menu.actions)
            ActionOf(row.command)->setEnabled(holds.value(row.rule));
    ShowPosition();
}

void ListTableWindow::ShowPosition() {
    const QChar divider(u'\u00A6');
    const QModelIndex current = m_view->currentIndex();
    m_position->setText(current.isValid()
                            ? m_application.Translate(QStringLiteral("Row %1, column %2"),
                                                      QString::number(current.row() + 1) + divider +
                                                          QString::number(current.column() + 1))
                            : QString());
    m_size->setText(m_application.Translate(
        QStringLiteral("Rows: %1, columns: %2"),
        QString::number(m_model.rowCount()) + divider + QString::number(m_model.columnCount())));
    const QMap<CsvEncoding, QString> names{{CsvEncoding::Ascii, QStringLiteral("ASCII")},
                                           {CsvEncoding::Utf8, QStringLiteral("UTF-8")},
                                           {CsvEncoding::CodePage, QStringLiteral("Windows-1252")}};
    m_encoding->setText(names.value(m_model.Table().Encoding()));
}

}  // namespace sheetwright
