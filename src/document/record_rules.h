#pragma once

// Which keys the records of a design need, and what their values may be: one table for each kind of record.

#include "core/conventions.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <optional>
#include <vector>

namespace sheetwright {

struct KeyLine;

// Checks the keys of a record of `kind` (its four letters) and tells of each one that is missing, stands
// twice, is written with other capitals or has a value out of range. Kinds without a table are checked for
// keys that stand twice only.
void CheckKeys(QStringView kind, const std::vector<KeyLine>& keys, const TruthWords& words,
               const std::function<void(const QString&)>& report);

// The number that a text of a form stands for, with "." or "," as decimal separator; none when it is no
// number.
[[nodiscard]] std::optional<double> FormNumber(QStringView text);

}  // namespace sheetwright
