#include "ui/tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace sheetwright {

namespace {

QList<QMdiSubWindow*> ShownWindows(const QMdiArea& area) {
    QList<QMdiSubWindow*> shown;
    for (QMdiSubWindow* const window : area.subWindowList(QMdiArea::StackingOrder))
        if (!window->isMinimized() && window->isVisible()) shown.prepend(window);
    return shown;
}

// The share of window `at` of `count`, without gaps.
int Edge(int length, qsizetype at, qsizetype count) {
    return static_cast<int>(length * at / count);
}

void Tile(QMdiArea& area, bool isBeside) {
    const QList<QMdiSubWindow*> shown = ShownWindows(area);
    const QSize room = area.viewport()->size();
    const int length = isBeside ? room.width() : room.height();
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const int from = Edge(length, at, shown.size());
        const int extent = Edge(length, at + 1, shown.size()) - from;
        shown[at]->showNormal();
        shown[at]->setGeometry(isBeside ? QRect(from, 0, extent, room.height())
                                        : QRect(0, from, room.width(), extent));
    }
}

}  // namespace

void TileHorizontally(QMdiArea& area) {
    Tile(area, false);
}

void TileVertically(QMdiArea& area) {
    Tile(area, true);
}

}  // namespace sheetwright
