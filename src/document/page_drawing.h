#pragma once

// How the elements of the page on screen look. Texts stand where the printer puts them, so that what is seen
// is what is printed.

#include <QImage>

namespace sheetwright {

class frmSheetwright;
class PictureSurface;

// Draw one element as it is now at its place on the page; hidden ones draw nothing. Raise 340 for one that
// isn't there and what the drawing primitives raise for places and fonts that can't be.
void DrawEntry(frmSheetwright& document, int number, PictureSurface& surface);
void DrawCheck(frmSheetwright& document, int number, PictureSurface& surface);
void DrawBitmap(frmSheetwright& document, int number, PictureSurface& surface);

// The page as pixels, fixed elements and values; an element that can't be drawn is left out. Raises as
// PictureSurface::Render.
[[nodiscard]] QImage RenderPageOnScreen(frmSheetwright& document, double dotsPerInch);

}  // namespace sheetwright
