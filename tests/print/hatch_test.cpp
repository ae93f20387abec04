#include "print/hatch.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

TEST(HatchLines, LevelLinesLieOnMultiplesOfTheSpacing) {
    EXPECT_EQ(HatchLines(2, QRectF(0, 10, 50, 20), 8), (QList<QLineF>{{0, 16, 50, 16}, {0, 24, 50, 24}}));
}

TEST(HatchLines, NeighbouringShapesShareOneGrid) {
    const QList<QLineF> left = HatchLines(2, QRectF(0, 3, 10, 100), 8);
    const QList<QLineF> right = HatchLines(2, QRectF(10, 0, 10, 103), 8);
    EXPECT_EQ(left.front().y1(), right.front().y1());
}

TEST(HatchLines, CrossesHaveTheLinesOfBothDirections) {
    const QRectF area(3, 3, 40, 40);
    EXPECT_EQ(HatchLines(6, area, 8), HatchLines(2, area, 8) + HatchLines(3, area, 8));
    EXPECT_EQ(HatchLines(7, area, 8), HatchLines(4, area, 8) + HatchLines(5, area, 8));
}

TEST(HatchLines, OnlyStylesTwoToSevenAreHatches) {
    for (const std::int16_t style : std::initializer_list<std::int16_t>{-1, 0, 1, 8, 32767}) {
        EXPECT_FALSE(IsHatch(style));
        EXPECT_TRUE(HatchLines(style, QRectF(0, 0, 100, 100), 8).isEmpty());
    }
    for (std::int16_t style = 2; style <= 7; ++style)
        EXPECT_TRUE(IsHatch(style));
}

TEST(HatchLines, TheirNumberIsLimited) {
    EXPECT_TRUE(HatchLines(7, QRectF(0, 0, 1e9, 1e9), 8).isEmpty());
    EXPECT_TRUE(HatchLines(7, QRectF(0, 0, 100, 100), 0).isEmpty());
    EXPECT_TRUE(HatchLines(7, QRectF(0, 0, 0, 100), 8).isEmpty());
}

}  // namespace
}  // namespace sheetwright
