#pragma once

// What the benchmarks of the import pour: a table of 12 columns, into pages of 20 lines with 40 formulas.

#include <QByteArray>

namespace sheetwright {

inline constexpr int kImportLines = 20;

// A form of one empty page. Its fields take the columns of the driver "meter".
[[nodiscard]] QByteArray ImportForm();
// In no order; the first column is the key.
[[nodiscard]] QByteArray ImportTable(int records);

}  // namespace sheetwright
