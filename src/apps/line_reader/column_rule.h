#pragma once

// One line of the section [Columns]: where a column of the table takes its values from.

#include "apps/line_reader/record_layout.h"

namespace sheetwright {

// `isFixed` tells whether fields are given by positions. Raises 321 for a rule that makes no sense.
[[nodiscard]] ColumnRule ParseColumnRule(const IniEntry& entry, bool isFixed);

// Raises 321 when the value is none of the conversion's. A blank value stays blank.
[[nodiscard]] QString Converted(const ColumnRule& column, const QString& value);

}  // namespace sheetwright
