#pragma once

// The tagged value that formulas work with. There is no error kind: what goes wrong is a failure.

#include "core/conventions.h"

#include <QString>

#include <cstdint>
#include <variant>

namespace sheetwright {

struct Empty {
    bool operator==(const Empty&) const = default;
};

using Value = std::variant<Empty, bool, std::int16_t, std::int32_t, double, QString>;

// "Empty", "Boolean", "Integer", "Long", "Double" or "String".
[[nodiscard]] QString KindOf(const Value& value);

// A Double as text: at most 15 significant digits, no trailing zeros, the decimal separator of the system, an
// exponent ("1E-05", "1E+15") only below 0.0001 and from 1E15 on.
[[nodiscard]] QString DoubleText(double number, const Conventions& conventions);

// Empty gives "", a Boolean "True" or "False", numbers as DoubleText tells.
[[nodiscard]] QString TextOf(const Value& value, const Conventions& conventions);

}  // namespace sheetwright
