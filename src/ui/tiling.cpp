#include "ui/tiling.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

namespace sheetwright {

namespace {

// The one in front last.
QList<QMdiSubWindow*> ShownWindows(const QMdiArea& area) {
    QList<QMdiSubWindow*> shown = area.subWindowList(QMdiArea::StackingOrder);
    shown.removeIf([](const QMdiSubWindow* window) { return window->isMinimized() || !window->isVisible(); });
    return shown;
}

// The share of window `at` of `count`, without gaps.
int Edge(int length, qsizetype at, qsizetype count) {
    return static_cast<int>(length * at / count);
}

void Tile(QMdiArea& area, bool isBeside) {
    QList<QMdiSubWindow*> shown = ShownWindows(area);
    std::ranges::reverse(shown);
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

QSize RoomForOne(const QMdiArea& area) {
    return area.viewport()->size() * 3 / 4;
}

void Cascade(QMdiArea& area) {
    const QSize room = area.viewport()->size();
    const QSize size = RoomForOne(area);
    const int step = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    QPoint corner;
    for (QMdiSubWindow* const window : ShownWindows(area)) {
        window->showNormal();
        window->setGeometry(QRect(corner, size));
        window->raise();
        corner += QPoint(step, step);
        if (corner.y() + size.height() > room.height()) corner = QPoint();
    }
}

void TileHorizontally(QMdiArea& area) {
    Tile(area, false);
}

void TileVertically(QMdiArea& area) {
    Tile(area, true);
}

void ArrangeIcons(QMdiArea& area) {
    const QRect room = area.viewport()->rect();
    QPoint corner = room.bottomLeft();
    for (QMdiSubWindow* const window : area.subWindowList(QMdiArea::CreationOrder)) {
        if (!window->isMinimized()) continue;
        if (corner.x() > room.left() && corner.x() + window->width() > room.right() + 1)
            corner = QPoint(room.left(), corner.y() - window->height());
        window->move(corner.x(), corner.y() - window->height() + 1);
        corner.rx() += window->width();
    }
}

}  // namespace sheetwright
