#include "ui/drag_pictures.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

TEST(DragPictures, CopyingLooksOtherThanMoving) {
    EXPECT_NE(DragPicture(1, 1).toImage(), DragPicture(2, 1).toImage());
}

TEST(DragPictures, HaveThePixelsOfTheScreen) {
    EXPECT_EQ(DragPicture(1, 1).size(), QSize(32, 32));
    const QPixmap fine = DragPicture(2, 2);
    EXPECT_EQ(fine.size(), QSize(64, 64));
    EXPECT_EQ(fine.deviceIndependentSize(), QSizeF(32, 32));
}

TEST(DragPictures, CursorPointsWithItsTip) {
    const QCursor cursor = DragCursor(1, 2);
    const QPoint tip = cursor.hotSpot();
    EXPECT_LE(tip.x(), 2);
    EXPECT_LE(tip.y(), 2);
    EXPECT_GT(DragPicture(1, 1).toImage().pixelColor(tip + QPoint(1, 4)).alpha(), 200);
}

}  // namespace
}  // namespace sheetwright
