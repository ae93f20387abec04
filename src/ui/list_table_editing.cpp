#include "ui/list_table_editing.h"

#include "core/application.h"
#include "core/failure.h"
#include "ui/list_table_column_dialog.h"
#include "ui/list_table_commands.h"
#include "ui/list_table_view.h"

#include <QUndoStack>

#include <algorithm>

namespace sheetwright {

namespace {

// Values of a parameter are separated by this character.
QString Parameter(QString text) {
    return text.replace(u'\u00A6', u'|');
}

bool IsBlankRow(const ListTable& table, int row) {
    for (int column = 0; column < table.ColumnCount(); ++column)
        if (!table.Text(row, column).isEmpty()) return false;
    return true;
}

}  // namespace

ListTableEditing::ListTableEditing(Application& application, ListTableModel& model, ListTableView& view,
                                   QUndoStack& stack)
    : m_application(application), m_model(model), m_view(view), m_stack(stack) {}

bool ListTableEditing::Push(std::unique_ptr<QUndoCommand> command) {
    if (!command) return false;
    m_stack.push(command.release());
    return true;
}

int ListTableEditing::CurrentColumn() const {
    return std::max(m_view.currentIndex().column(), 0);
}

void ListTableEditing::Type(const QModelIndex& cell, const QString& text) {
    CellEdit edit(m_model);
    edit.Set(cell.row(), cell.column(), text);
    Push(edit.Command());
}

void ListTableEditing::InsertRows(int at, std::vector<ListRow> rows) {
    if (m_model.columnCount() == 0) return;
    const int count = static_cast<int>(rows.size());
    const int column = CurrentColumn();
    Push(InsertRowsCommand(m_model, at, std::move(rows)));
    m_view.SelectBlock({at, column, count, 1});
}

void ListTableEditing::AddRow() {
    InsertRows(m_view.currentIndex().isValid() ? m_view.currentIndex().row() + 1 : m_model.rowCount(),
               {ListTable::BlankRow()});
}

void ListTableEditing::AddLastRow() {
    const int count = m_model.rowCount();
    if (count > 0 && IsBlankRow(m_model.Table(), count - 1)) return;
    InsertRows(count, {ListTable::BlankRow()});
}

void ListTableEditing::DuplicateRows() {
    std::vector<ListRow> rows;
    const std::vector<int> places = m_view.SelectedRows();
    for (const int place : places)
        rows.push_back(m_model.Table().Row(place));
    if (!rows.empty()) InsertRows(places.back() + 1, std::move(rows));
}

void ListTableEditing::DeleteRows() {
    std::vector<int> places = m_view.SelectedRows();
    if (places.empty()) return;
    const int next = places.front();
    const int column = CurrentColumn();
    m_view.clearSelection();
    Push(DeleteRowsCommand(m_model, std::move(places)));
    m_view.GoTo(m_model.index(std::min(next, m_model.rowCount() - 1), column));
}

void ListTableEditing::MoveRows(bool isDown) {
    if (Push(MoveRowsCommand(m_model, m_view.SelectedRows(), isDown))) m_view.scrollTo(m_view.currentIndex());
}

QString ListTableEditing::Refusal(const QString& name, int ownColumn) const {
    if (ownColumn >= 0 && name == m_model.Table().Column(ownColumn).name) return {};
    if (name.isEmpty()) return m_application.Translate(QStringLiteral("A column needs a name."));
    const std::vector<ListColumn>& columns = m_model.Table().Columns();
    for (int column = 0; column < m_model.columnCount(); ++column)
        if (column != ownColumn &&
            CaseInsensitiveEqual()(columns[static_cast<std::size_t>(column)].name, name))
            return m_application.Translate(QStringLiteral("There is a column of that name already."));
    return {};
}

void ListTableEditing::AddColumn() {
    if (m_model.columnCount() >= ListTable::kColumnLimit) throw Failure(failure::kOverflow);
    ListTableColumnDialog dialog(
        m_application, m_application.Translate(QStringLiteral("Add Column")), {}, QStringLiteral("TEXT"),
        [this](const QString& name) { return Refusal(name, -1); }, m_view.window());
    if (dialog.exec() != QDialog::Accepted) return;
    const int at = m_view.currentIndex().isValid() ? CurrentColumn() + 1 : m_model.columnCount();
    const int row = std::max(m_view.currentIndex().row(), 0);
    Push(InsertColumnCommand(m_model, at, m_model.Table().NewColumn(dialog.Name(), dialog.Type())));
    m_view.GoTo(m_model.index(row, at));
}

bool ListTableEditing::MayLose(const ListColumn& column, const QString& question) {
    return m_application.ui.ShowMessage(question, column.name, MessageIcon::Exclamation,
                                        MessageButtons::YesNo) == MessageAnswer::Yes;
}

void ListTableEditing::ChangeColumn() {
    if (m_model.columnCount() == 0) return;
    const int at = CurrentColumn();
    ListColumn column = m_model.Table().Column(at);
    ListTableColumnDialog dialog(
        m_application, m_application.Translate(QStringLiteral("Name and Type of Column")), column.name,
        column.type, [this, at](const QString& name) { return Refusal(name, at); }, m_view.window());
    if (dialog.exec() != QDialog::Accepted) return;
    const QString question = m_application.Translate(
        QStringLiteral("Forms that take the column \"%1\" of this list no longer find it. Rename it?"),
        Parameter(column.name));
    if (dialog.Name() != column.name && !MayLose(column, question)) return;
    const ListColumn before = column;
    column.name = dialog.Name();
    column.type = dialog.Type();
    if (column != before) Push(ChangeColumnCommand(m_model, at, column));
}

void ListTableEditing::DeleteColumn() {
    if (m_model.columnCount() == 0) return;
    const int at = CurrentColumn();
    const ListColumn& column = m_model.Table().Column(at);
    if (m_model.columnCount() == 1) {
        m_application.ui.ShowMessage(
            m_application.Translate(QStringLiteral("A list has at least one column.")), column.name,
            MessageIcon::Exclamation);
        return;
    }
    const QString question = m_application.Translate(
        QStringLiteral("Forms that take the column \"%1\" of this list no longer find it. Delete it?"),
        Parameter(column.name));
    if (!MayLose(column, question)) return;
    const int row = m_view.currentIndex().row();
    Push(DeleteColumnCommand(m_model, at));
    m_view.GoTo(m_model.index(row, std::min(at, m_model.columnCount() - 1)));
}

// Only the current cell stays selected: following all cells of a big selection would take long.
void ListTableEditing::Sort(bool isDescending) {
    if (m_model.columnCount() == 0) return;
    std::vector<std::uint32_t> order = m_model.Table().SortedOrder(CurrentColumn(), isDescending);
    if (std::is_sorted(order.begin(), order.end())) return;
    m_view.GoTo(m_view.currentIndex());
    Push(ReorderCommand(m_model, 0, std::move(order)));
    m_view.scrollTo(m_view.currentIndex());
}

}  // namespace sheetwright
