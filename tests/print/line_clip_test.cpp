#include "print/line_clip.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

const QRectF kArea(0, 0, 100, 50);

TEST(ClippedLine, LineInsideStaysAsItIs) {
    EXPECT_EQ(ClippedLine(QLineF(10, 10, 90, 40), kArea), QLineF(10, 10, 90, 40));
}

TEST(ClippedLine, LineAcrossIsCutAtBothEndsAndKeepsItsDirection) {
    EXPECT_EQ(ClippedLine(QLineF(200, 20, -100, 20), kArea), QLineF(100, 20, 0, 20));
}

TEST(ClippedLine, LineThatPassesByIsGone) {
    EXPECT_FALSE(ClippedLine(QLineF(0, 60, 100, 60), kArea).has_value());
    EXPECT_FALSE(ClippedLine(QLineF(-10, 20, 20, -10.5), QRectF(0, 0, 1, 1)).has_value());
}

TEST(ClippedToEllipse, LineThroughTheMiddleReachesTheRim) {
    EXPECT_EQ(ClippedToEllipse(QLineF(-50, 25, 150, 25), kArea), QLineF(0, 25, 100, 25));
}

TEST(ClippedToEllipse, LineThroughACornerOfTheBoundsIsGone) {
    EXPECT_FALSE(ClippedToEllipse(QLineF(0, 5, 5, 0), kArea).has_value());
    EXPECT_FALSE(ClippedToEllipse(QLineF(0, 0, 5, 5), QRectF(0, 0, 0, 10)).has_value());
}

TEST(ClippedPolygon, LargePolygonBecomesTheArea) {
    const QPolygonF large({{-1000, -1000}, {1000, -1000}, {1000, 1000}, {-1000, 1000}});
    EXPECT_EQ(ClippedPolygon(large, kArea).boundingRect(), kArea);
}

TEST(ClippedPolygon, PolygonElsewhereIsGone) {
    EXPECT_TRUE(ClippedPolygon(QPolygonF({{200, 0}, {300, 0}, {300, 50}}), kArea).isEmpty());
}

}  // namespace
}  // namespace sheetwright
