#pragma once

// Child windows side by side, or one upon the other; minimised ones only by `ArrangeIcons`.

#include <QSize>

class QMdiArea;

namespace sheetwright {

// Three quarters of the area: what a child window has that shares it with others.
[[nodiscard]] QSize RoomForOne(const QMdiArea& area);

// Each a step lower and to the right of the one behind it, so that all title bars show.
void Cascade(QMdiArea& area);
// One above the other, each as wide as the area, or one beside the other, each as high.
void TileHorizontally(QMdiArea& area);
void TileVertically(QMdiArea& area);
// The minimised ones in rows along the lower edge.
void ArrangeIcons(QMdiArea& area);

}  // namespace sheetwright
