#pragma once

// The stationery of the page on screen.

#include <QString>

namespace sheetwright {

class frmSheetwright;

// Takes the stationery value of the page's record: image, resolution, adjusts; then paints it. What is no
// number is 0. Raises 6 for numbers past 16 bits (resolution) or single precision (adjusts), and what
// PaintBackground raises.
void LoadPPSettings(frmSheetwright& document, const QString& value);

// Draws the stationery image on `picForm` under an hourglass; without an image nothing happens. Raises 11
// when its resolution is 0.
void PaintBackground(frmSheetwright& document);

}  // namespace sheetwright
