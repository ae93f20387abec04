#pragma once

// Where an import may fill a field from: alternatives of the form "column,driver folder", separated by ";".

#include <QStringView>

namespace sheetwright {

// Whether one of the alternatives of `dataSource` stands for `name`: it equals it, or it begins with "*," and
// what follows equals what stands behind the first "," of `name`. Case does not count, and "/" and "\" are
// alike. A ";" in quotes or parentheses does not separate; a quote or parenthesis that stands first in an
// alternative other than the first is not seen.
[[nodiscard]] bool CmpDataSource(QStringView dataSource, QStringView name);

// Whether two names are the same when case does not count and "/" and "\" are alike.
[[nodiscard]] bool IsSameSource(QStringView one, QStringView other);

}  // namespace sheetwright
