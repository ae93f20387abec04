#pragma once

// The table in the window: which rows and columns are selected, and the keys that add rows at the end.

#include <QTableView>

#include <functional>
#include <vector>

namespace sheetwright {

class ListTableCellEditor;

// What is selected as one block of cells; empty for nothing.
struct CellBlock {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
};

class ListTableView : public QTableView {
  public:
    explicit ListTableView(QWidget* parent = nullptr);

    // Enter or Down in the last row wants another one.
    std::function<void()> RowWanted;

    [[nodiscard]] ListTableCellEditor& CellEditor() { return *m_editor; }
    // Rows with a selected cell, or that of the current cell; ascending.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    // The smallest block around all selected cells.
    [[nodiscard]] CellBlock SelectedBlock() const;
    // Makes a cell the current and only selected one, and shows it.
    void GoTo(const QModelIndex& cell);
    void SelectBlock(const CellBlock& block);
    // Widths for what stands in the first rows.
    void FitColumns();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Enter();

    ListTableCellEditor* m_editor;
};

}  // namespace sheetwright
