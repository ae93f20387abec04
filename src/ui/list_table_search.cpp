#include "ui/list_table_search.h"

#include "core/application.h"
#include "ui/list_table_commands.h"
#include "ui/list_table_find_bar.h"
#include "ui/list_table_view.h"

#include <QTimer>
#include <QUndoStack>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kCellsAtOnce = 40'000;

}  // namespace

ListTableSearch::ListTableSearch(const Application& application, ListTableModel& model, ListTableView& view,
                                 QUndoStack& stack, ListTableFindBar& bar, const Run& run)
    : QObject(&bar),
      m_application(application),
      m_model(model),
      m_view(view),
      m_stack(stack),
      m_bar(bar),
      m_idle(new QTimer(this)) {
    ConnectBar(run);
    connect(m_idle, &QTimer::timeout, this, &ListTableSearch::CountOn);
    connect(&m_stack, &QUndoStack::indexChanged, this, &ListTableSearch::BeginCount);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &ListTableSearch::BeginCount);
}

void ListTableSearch::ConnectBar(const Run& run) {
    m_bar.Find = [this, run](bool isForward) { run(QStringLiteral("Find"), [=, this] { Find(isForward); }); };
    m_bar.Replace = [this, run] { run(QStringLiteral("Replace"), [this] { Replace(); }); };
    m_bar.ReplaceAll = [this, run] { run(QStringLiteral("ReplaceAll"), [this] { ReplaceAll(); }); };
    m_bar.Changed = [this] {
        BeginCount();
        FindTyped();
    };
    m_bar.Closed = [this] { m_view.setFocus(Qt::OtherFocusReason); };
}

void ListTableSearch::Start(bool isReplacing) {
    const QString text = m_view.currentIndex().data(Qt::EditRole).toString();
    const bool isOneLine = !text.contains(u'\n') && !text.contains(u'\r');
    const bool isNew = m_bar.isHidden() && m_bar.Query().text.isEmpty();
    m_bar.Start(isNew && isOneLine ? text : QString(), isReplacing);
    BeginCount();
}

// The first cell that fits from where the person began to type, so that a longer text is not looked for
// behind the place of a shorter one.
void ListTableSearch::FindTyped() {
    const QModelIndex current = m_view.currentIndex();
    if (!m_start.isValid() || current != m_typed) m_start = current;
    if (!m_start.isValid()) return;
    const ListCell before{m_start.row(), m_start.column() - 1};
    const auto found = FindCell(m_model.Table(), m_bar.Query(), before, true);
    if (!found) return;
    m_typed = m_model.index(found->row, found->column);
    m_view.GoTo(m_typed);
}

void ListTableSearch::Find(bool isForward) {
    const QModelIndex current = m_view.currentIndex();
    const ListCell from = current.isValid() ? ListCell{current.row(), current.column()} : ListCell{0, -1};
    const auto found = FindCell(m_model.Table(), m_bar.Query(), from, isForward);
    if (found) m_view.GoTo(m_model.index(found->row, found->column));
}

// The current cell where it fits; then on to the next.
void ListTableSearch::Replace() {
    const QModelIndex current = m_view.currentIndex();
    const ListQuery query = m_bar.Query();
    if (current.isValid() && query.Fits(current.data(Qt::EditRole).toString())) {
        CellEdit edit(m_model);
        edit.Set(current.row(), current.column(),
                 query.Replaced(current.data(Qt::EditRole).toString(), m_bar.Replacement()));
        if (auto command = edit.Command()) m_stack.push(command.release());
    }
    Find(true);
}

void ListTableSearch::ReplaceAll() {
    const ListQuery query = m_bar.Query();
    const ListTable& table = m_model.Table();
    CellEdit edit(m_model);
    qint64 count = 0;
    for (int row = 0; row < table.RowCount(); ++row) {
        for (int column = 0; column < table.ColumnCount(); ++column) {
            const QString text = table.Text(row, column);
            if (!query.Fits(text)) continue;
            edit.Set(row, column, query.Replaced(text, m_bar.Replacement()));
            ++count;
        }
    }
    if (auto command = edit.Command()) m_stack.push(command.release());
    m_idle->stop();
    m_bar.Tell(m_application.Translate(QStringLiteral("Cells replaced: %1"), QString::number(count)));
}

void ListTableSearch::BeginCount() {
    m_query = m_bar.Query();
    m_countedRows = 0;
    m_count = 0;
    m_bar.Tell({});
    if (m_bar.isHidden() || m_query.text.isEmpty()) {
        m_idle->stop();
    } else {
        m_idle->start();
    }
}

void ListTableSearch::CountOn() {
    const ListTable& table = m_model.Table();
    const int rows = std::max(kCellsAtOnce / std::max(table.ColumnCount(), 1), 1);
    const int end = m_countedRows + std::min(rows, table.RowCount() - m_countedRows);
    m_count += CountCells(table, m_query, m_countedRows, end);
    m_countedRows = end;
    if (end == table.RowCount()) EndCount();
}

void ListTableSearch::EndCount() {
    m_idle->stop();
    m_bar.Tell(m_count == 0
                   ? m_application.Translate(QStringLiteral("Not found"))
                   : m_application.Translate(QStringLiteral("Cells found: %1"), QString::number(m_count)));
}

}  // namespace sheetwright
