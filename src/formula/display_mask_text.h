#pragma once

// Texts through display masks.

#include "formula/display_mask_lexer.h"

#include <QString>

namespace sheetwright {

// "@" takes a character or shows a blank, "&" takes one or shows nothing; they are filled from the right,
// with
// "!" from the left. "<" and ">" turn the whole to small and capital letters.
[[nodiscard]] QString FormatText(QStringView text, MaskSection section);

}  // namespace sheetwright
