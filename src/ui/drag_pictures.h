#pragma once

// What the pointer looks like while a value is dragged from one field to another.

#include <QCursor>
#include <QPixmap>

namespace sheetwright {

// `imgDragIcons`: 1 a sheet that moves, 2 one that is copied. Drawn for a screen with that many physical
// pixels to the logical one.
[[nodiscard]] QPixmap DragPicture(int mode, double devicePixelRatio);
[[nodiscard]] QCursor DragCursor(int mode, double devicePixelRatio);

}  // namespace sheetwright
