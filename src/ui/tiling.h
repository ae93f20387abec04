#pragma once

// Child windows side by side.

class QMdiArea;

namespace sheetwright {

// One above the other, each as wide as the area, or one beside the other, each as high; minimised ones stay.
void TileHorizontally(QMdiArea& area);
void TileVertically(QMdiArea& area);

}  // namespace sheetwright
