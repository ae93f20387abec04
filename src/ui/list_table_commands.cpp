#include "ui/list_table_commands.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace sheetwright {

namespace {

// Undoing and doing again are the same exchange.
class SwapRows : public QUndoCommand {
  public:
    SwapRows(ListTableModel& model, ListTableModel::PlacedRows rows, int column)
        : m_model(model), m_rows(std::move(rows)), m_column(column) {}
    void undo() override { m_model.SwapRows(m_rows, m_column); }
    void redo() override { m_model.SwapRows(m_rows, m_column); }

  private:
    ListTableModel& m_model;
    ListTableModel::PlacedRows m_rows;
    int m_column;
};

class InsertOrDeleteRows : public QUndoCommand {
  public:
    InsertOrDeleteRows(ListTableModel& model, std::vector<int> places, std::vector<ListRow> rows,
                       bool isInsert)
        : m_model(model), m_places(std::move(places)), m_rows(std::move(rows)), m_isInsert(isInsert) {}
    void undo() override { Do(!m_isInsert); }
    void redo() override { Do(m_isInsert); }

  private:
    void Do(bool isInsert) {
        if (isInsert) {
            m_model.InsertRows(m_places, std::exchange(m_rows, {}));
        } else {
            m_rows = m_model.TakeRows(m_places);
        }
    }

    ListTableModel& m_model;
    std::vector<int> m_places;
    std::vector<ListRow> m_rows;  // while they are out of the table
    bool m_isInsert;
};

class Reordering : public QUndoCommand {
  public:
    Reordering(ListTableModel& model, int first, std::vector<std::uint32_t> order)
        : m_model(model), m_first(first), m_order(std::move(order)) {}
    void redo() override { m_model.Reorder(m_first, m_order); }
    void undo() override {
        std::vector<std::uint32_t> back(m_order.size());
        for (std::uint32_t place = 0; place < back.size(); ++place)
            back[m_order[place]] = place;
        m_model.Reorder(m_first, back);
    }

  private:
    ListTableModel& m_model;
    int m_first;
    std::vector<std::uint32_t> m_order;
};

class InsertOrDeleteColumn : public QUndoCommand {
  public:
    InsertOrDeleteColumn(ListTableModel& model, int at, ListColumn column, bool isInsert)
        : m_model(model), m_at(at), m_column(std::move(column)), m_isInsert(isInsert) {}
    void undo() override { Do(!m_isInsert); }
    void redo() override { Do(m_isInsert); }

  private:
    void Do(bool isInsert) {
        if (isInsert) {
            m_model.InsertColumn(m_at, m_column);
        } else {
            m_model.RemoveColumn(m_at);
        }
    }

    ListTableModel& m_model;
    int m_at;
    ListColumn m_column;
    bool m_isInsert;
};

class ColumnChange : public QUndoCommand {
  public:
    ColumnChange(ListTableModel& model, int at, ListColumn column)
        : m_model(model), m_at(at), m_before(model.Table().Column(at)), m_after(std::move(column)) {}
    void undo() override { m_model.SetColumn(m_at, m_before); }
    void redo() override { m_model.SetColumn(m_at, m_after); }

  private:
    ListTableModel& m_model;
    int m_at;
    ListColumn m_before;
    ListColumn m_after;
};

std::vector<std::uint32_t> Unmoved(int count) {
    std::vector<std::uint32_t> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

}  // namespace

void CellEdit::Set(int row, int column, const QString& text) {
    if (row != m_row) EndRow();
    m_row = row;
    if (m_model.Table().Text(row, column) == text) return;
    m_cells.emplace_back(column, text);
    if (m_firstColumn < 0) m_firstColumn = column;
}

void CellEdit::EndRow() {
    if (m_cells.empty()) return;
    const ListTable& table = m_model.Table();
    m_rows.emplace_back(m_row, table.WithTexts(table.Row(m_row), std::exchange(m_cells, {})));
}

std::unique_ptr<QUndoCommand> CellEdit::Command() {
    EndRow();
    if (m_rows.empty()) return nullptr;
    return std::make_unique<SwapRows>(m_model, std::move(m_rows), m_firstColumn);
}

std::unique_ptr<QUndoCommand> InsertRowsCommand(ListTableModel& model, int at, std::vector<ListRow> rows) {
    std::vector<int> places(rows.size());
    std::iota(places.begin(), places.end(), at);
    return std::make_unique<InsertOrDeleteRows>(model, std::move(places), std::move(rows), true);
}

std::unique_ptr<QUndoCommand> DeleteRowsCommand(ListTableModel& model, std::vector<int> places) {
    return std::make_unique<InsertOrDeleteRows>(model, std::move(places), std::vector<ListRow>(), false);
}

std::unique_ptr<QUndoCommand> ReorderCommand(ListTableModel& model, int first,
                                             std::vector<std::uint32_t> order) {
    return std::make_unique<Reordering>(model, first, std::move(order));
}

// Each row changes places with its neighbour, the foremost first; rows that stand at the end stay.
std::unique_ptr<QUndoCommand> MoveRowsCommand(ListTableModel& model, const std::vector<int>& places,
                                              bool isDown) {
    if (places.empty()) return nullptr;
    const int first = std::max(places.front() - 1, 0);
    const int end = std::min(places.back() + 2, model.rowCount());
    std::vector<std::uint32_t> order = Unmoved(end - first);
    const std::vector<std::uint32_t> before = order;
    std::vector<bool> isTaken(order.size());
    const auto move = [&](int place) {
        const auto from = static_cast<std::size_t>(place - first);
        const std::size_t to = isDown ? from + 1 : from - 1;
        const bool canMove = to < order.size() && !isTaken[to];
        if (canMove) std::swap(order[from], order[to]);
        isTaken[canMove ? to : from] = true;
    };
    if (isDown) {
        std::for_each(places.rbegin(), places.rend(), move);
    } else {
        std::for_each(places.begin(), places.end(), move);
    }
    return order == before ? nullptr : ReorderCommand(model, first, std::move(order));
}

std::unique_ptr<QUndoCommand> InsertColumnCommand(ListTableModel& model, int at, const ListColumn& column) {
    return std::make_unique<InsertOrDeleteColumn>(model, at, column, true);
}

std::unique_ptr<QUndoCommand> DeleteColumnCommand(ListTableModel& model, int at) {
    return std::make_unique<InsertOrDeleteColumn>(model, at, model.Table().Column(at), false);
}

std::unique_ptr<QUndoCommand> ChangeColumnCommand(ListTableModel& model, int at, const ListColumn& column) {
    return std::make_unique<ColumnChange>(model, at, column);
}

}  // namespace sheetwright
