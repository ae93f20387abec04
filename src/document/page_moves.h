#pragma once

// From one data page to another. The page that is left is stored first, and recalculated with the whole form
// when it was changed.

#include <QStringView>

#include <cstdint>

namespace sheetwright {

class frmSheetwright;

// Shows data page `number` (1 to `Pages`, others do nothing), tells the host in report mode. Raises what a
// formula raises; the page on screen is then as it was.
void MoveToPage(frmSheetwright& document, std::int16_t number);

// "down" to the next page, "up" to the one before; at the end and for any other text nothing happens.
void ChangePage(frmSheetwright& document, QStringView direction);

}  // namespace sheetwright
