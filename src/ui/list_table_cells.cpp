// The part of editing that concerns selected cells and the clipboard.

#include "ui/list_table_commands.h"
#include "ui/list_table_editing.h"
#include "ui/list_table_text.h"
#include "ui/list_table_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QUndoStack>

#include <algorithm>

namespace sheetwright {

namespace {

// Whether a block holds nothing but selected cells, so that none has to be asked about.
bool IsWhole(const ListTableView& view) {
    return view.selectionModel()->selection().size() <= 1;
}

}  // namespace

void ListTableEditing::Copy() {
    const CellBlock block = m_view.SelectedBlock();
    const bool isWhole = IsWhole(m_view);
    std::vector<QStringList> rows;
    for (int row = block.row; row < block.row + block.rows; ++row) {
        QStringList& cells = rows.emplace_back();
        for (int column = block.column; column < block.column + block.columns; ++column) {
            const bool isTaken = isWhole || m_view.selectionModel()->isSelected(m_model.index(row, column));
            cells << (isTaken ? m_model.Table().Text(row, column) : QString());
        }
    }
    if (!rows.empty()) QGuiApplication::clipboard()->setText(TabSeparated(rows));
}

void ListTableEditing::Cut() {
    Copy();
    Clear();
}

void ListTableEditing::Clear() {
    FillSelection({});
}

void ListTableEditing::FillSelection(const QString& text) {
    const CellBlock block = m_view.SelectedBlock();
    const bool isWhole = IsWhole(m_view);
    CellEdit edit(m_model);
    for (int row = block.row; row < block.row + block.rows; ++row)
        for (int column = block.column; column < block.column + block.columns; ++column)
            if (isWhole || m_view.selectionModel()->isSelected(m_model.index(row, column)))
                edit.Set(row, column, text);
    Push(edit.Command());
}

int ListTableEditing::Paste() {
    const std::vector<QStringList> rows = CellsOf(QGuiApplication::clipboard()->text());
    if (rows.empty() || m_model.columnCount() == 0) return 0;
    if (rows.size() > 1 || rows.front().size() > 1 || m_model.rowCount() == 0) return PasteRows(rows);
    FillSelection(rows.front().front());
    return 0;
}

// Added rows and filled cells are undone together.
int ListTableEditing::PasteRows(const std::vector<QStringList>& rows) {
    const CellBlock at = m_view.SelectedBlock();
    const int count = static_cast<int>(rows.size());
    const int missing = std::max(at.row + count - m_model.rowCount(), 0);
    if (missing > 0) {
        m_stack.beginMacro({});
        const auto end = qScopeGuard([this] { m_stack.endMacro(); });
        Push(InsertRowsCommand(
            m_model, m_model.rowCount(),
            std::vector<ListRow>(static_cast<std::size_t>(missing), ListTable::BlankRow())));
        WriteCells(at, rows);
    } else {
        WriteCells(at, rows);
    }
    const int room = m_model.columnCount() - at.column;
    const auto widest = std::ranges::max(rows, {}, &QStringList::size).size();
    const int width = static_cast<int>(std::min<qsizetype>(widest, room));
    m_view.SelectBlock({at.row, at.column, count, width});
    return static_cast<int>(widest) - width;
}

void ListTableEditing::WriteCells(const CellBlock& at, const std::vector<QStringList>& rows) {
    CellEdit edit(m_model);
    int row = at.row;
    for (const QStringList& cells : rows) {
        int column = at.column;
        for (const QString& cell :
             cells.first(std::min<qsizetype>(cells.size(), m_model.columnCount() - column)))
            edit.Set(row, column++, cell);
        ++row;
    }
    Push(edit.Command());
}

}  // namespace sheetwright
