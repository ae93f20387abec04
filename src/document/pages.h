#pragma once

// Adding data pages.

#include <cstdint>

namespace sheetwright {

class frmSheetwright;

// Where a page goes relative to a position; the numbers are those of the command language and the dialog.
enum class Placement : std::int16_t { AtStart = 0, AtEnd = 1, Before = 2, After = 3 };

// Inserts an empty page of `design` and shows it: at `position` for AtStart and Before, behind it for AtEnd
// and After. The page on screen is not saved first: callers do that. Recalculates unless an import is
// running. Raises 9 for a position outside the document or a design that it doesn't have, and 6 past 32,767
// pages; nothing is changed then. What a formula raises leaves the page in the document.
void AddPage(frmSheetwright& document, std::int16_t design, Placement mode, std::int16_t position);

}  // namespace sheetwright
