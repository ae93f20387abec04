#pragma once

// Cells as text with tabs between columns and line ends behind rows, as spreadsheets exchange them.

#include <QString>
#include <QStringList>

#include <vector>

namespace sheetwright {

// A cell with a tab, a line break or a quote at its front stands in quotes, its own quotes doubled.
[[nodiscard]] QString TabSeparated(const std::vector<QStringList>& rows);

// A cell is in quotes only when the second one is at its end. A line end behind the last row begins no
// further one.
[[nodiscard]] std::vector<QStringList> CellsOf(const QString& text);

}  // namespace sheetwright
