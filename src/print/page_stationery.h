#pragma once

// The stationery of the page on screen.

#include <QString>

namespace sheetwright {

class frmSheetwright;

// Takes the stationery value of the page's record: image, resolution, adjusts; then paints it. Raises 6 or 13
// for numbers that are none, and what PaintBackground raises.
void LoadPPSettings(frmSheetwright& document, const QString& value);

// Draws the stationery image on `picForm` under an hourglass. Raises 11 when its resolution is 0.
void PaintBackground(frmSheetwright& document);

}  // namespace sheetwright
