#include "ui/list_table_find.h"

namespace sheetwright {

namespace {

// From `column` on, in either direction.
std::optional<int> FindInRow(const ListTable& table, const ListQuery& query, int row, int column, int step) {
    for (; column >= 0 && column < table.ColumnCount(); column += step)
        if (query.Fits(table.Text(row, column))) return column;
    return std::nullopt;
}

}  // namespace

// The row it starts in is looked at again in the end, for what stands before the start.
std::optional<ListCell> FindCell(const ListTable& table, const ListQuery& query, ListCell from,
                                 bool isForward) {
    const int step = isForward ? 1 : -1;
    const int outermost = isForward ? 0 : table.ColumnCount() - 1;
    int row = from.row;
    int column = from.column + step;
    for (int rows = 0; rows <= table.RowCount() && table.RowCount() > 0; ++rows) {
        if (const auto found = FindInRow(table, query, row, column, step)) return ListCell{row, *found};
        row = (row + step + table.RowCount()) % table.RowCount();
        column = outermost;
    }
    return std::nullopt;
}

qint64 CountCells(const ListTable& table, const ListQuery& query, int first, int end) {
    qint64 count = 0;
    for (int row = first; row < end; ++row)
        for (int column = 0; column < table.ColumnCount(); ++column)
            count += query.Fits(table.Text(row, column)) ? 1 : 0;
    return count;
}

}  // namespace sheetwright
