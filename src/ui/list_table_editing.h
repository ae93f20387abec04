#pragma once

// What the menus do to rows, columns and selected cells. Each is one command that can be undone.

#include "ui/list_table_model.h"

#include <QString>

#include <memory>

class QUndoCommand;
class QUndoStack;

namespace sheetwright {

class Application;
class ListTableView;
struct CellBlock;

class ListTableEditing {
  public:
    ListTableEditing(Application& application, ListTableModel& model, ListTableView& view, QUndoStack& stack);

    void Type(const QModelIndex& cell, const QString& text);

    void AddRow();  // below the current one
    // At the end, unless the last row is blank already.
    void AddLastRow();
    void DuplicateRows();  // below the last of them
    void DeleteRows();
    void MoveRows(bool isDown);

    void AddColumn();  // behind the current one
    void ChangeColumn();
    void DeleteColumn();
    void Sort(bool isDescending);

    void Copy();
    void Cut();
    // From the upper left cell of the selection on; rows are added as needed. One cell fills the selection.
    // Returns how many columns of the text were beyond the last one.
    int Paste();
    void Clear();

  private:
    bool Push(std::unique_ptr<QUndoCommand> command);
    void InsertRows(int at, std::vector<ListRow> rows);
    [[nodiscard]] bool MayLose(const ListColumn& column, const QString& question);
    [[nodiscard]] QString Refusal(const QString& name, int ownColumn) const;
    [[nodiscard]] int CurrentColumn() const;
    void FillSelection(const QString& text);
    int PasteRows(const std::vector<QStringList>& rows);
    void WriteCells(const CellBlock& at, const std::vector<QStringList>& rows);

    Application& m_application;
    ListTableModel& m_model;
    ListTableView& m_view;
    QUndoStack& m_stack;
};

}  // namespace sheetwright
