#pragma once

// Numbers through display masks.

#include "core/conventions.h"
#include "formula/display_mask_lexer.h"

#include <QString>

namespace sheetwright {

// A number through the sections for positive numbers, negative numbers and zero; missing and empty ones fall
// back on the first.
[[nodiscard]] QString FormatNumber(double number, const std::vector<MaskSection>& sections,
                                   const Conventions& conventions);

// A number with the currency sign of the locale and two decimals.
[[nodiscard]] QString FormatCurrency(double number, const Conventions& conventions);

}  // namespace sheetwright
