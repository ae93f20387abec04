#pragma once

// Each change to a list as a command that can be undone and done again.

#include "ui/list_table_model.h"

#include <QUndoCommand>

#include <memory>
#include <vector>

namespace sheetwright {

// All of the changed cells, by row. Rows that come out as they were are left alone.
class CellEdit {
  public:
    explicit CellEdit(ListTableModel& model) : m_model(model) {}

    // Rows ascend.
    void Set(int row, int column, const QString& text);
    [[nodiscard]] bool IsEmpty() const { return m_rows.empty() && m_cells.empty(); }
    // None when nothing changed.
    [[nodiscard]] std::unique_ptr<QUndoCommand> Command();

  private:
    void EndRow();

    ListTableModel& m_model;
    int m_row = -1;
    int m_firstColumn = -1;  // that changed, in the first row that did
    ListTable::Cells m_cells;
    ListTableModel::PlacedRows m_rows;
};

[[nodiscard]] std::unique_ptr<QUndoCommand> InsertRowsCommand(ListTableModel& model, int at,
                                                              std::vector<ListRow> rows);
// Rows at ascending places.
[[nodiscard]] std::unique_ptr<QUndoCommand> DeleteRowsCommand(ListTableModel& model, std::vector<int> places);
// See `ListTable::Reorder`.
[[nodiscard]] std::unique_ptr<QUndoCommand> ReorderCommand(ListTableModel& model, int first,
                                                           std::vector<std::uint32_t> order);
// Moves rows at ascending places by one, each as far as the rows before it in that direction leave room. None
// when nothing moves.
[[nodiscard]] std::unique_ptr<QUndoCommand> MoveRowsCommand(ListTableModel& model,
                                                            const std::vector<int>& places, bool isDown);
[[nodiscard]] std::unique_ptr<QUndoCommand> InsertColumnCommand(ListTableModel& model, int at,
                                                                const ListColumn& column);
[[nodiscard]] std::unique_ptr<QUndoCommand> DeleteColumnCommand(ListTableModel& model, int at);
// Another name or type.
[[nodiscard]] std::unique_ptr<QUndoCommand> ChangeColumnCommand(ListTableModel& model, int at,
                                                                const ListColumn& column);

}  // namespace sheetwright
