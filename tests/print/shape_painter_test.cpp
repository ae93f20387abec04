#include "print/shape_painter.h"

#include "print/fonts.h"
#include "print/picture_surface.h"
#include "support/pixels.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;

// A page of 100 by 100 screen pixels.
class ShapesTest : public ::testing::Test {
  protected:
    [[nodiscard]] QImage Render(double dotsPerInch = 96) const { return surface.Render(dotsPerInch); }

    Fonts fonts;
    PictureSurface surface{fonts, 1500, 1500};
};

TEST_F(ShapesTest, LevelLineCoversWholePixelsWithBothEnds) {
    surface.Line(300, 450, 600, 450, 0);
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(20, 30, 21, 1));
    EXPECT_EQ(CountOf(image, 0), 21);
}

TEST_F(ShapesTest, UprightLineMayRunUpwards) {
    surface.Line(300, 600, 300, 450, 0x0000FF);
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(20, 30, 1, 11));
    EXPECT_EQ(CountOf(image, 0xFF0000), 11);
}

TEST_F(ShapesTest, PlaceBetweenPixelsFallsOnThePixelItLiesIn) {
    surface.Line(300, 459, 600, 459, 0);
    EXPECT_EQ(InkOf(Render()), QRect(20, 30, 21, 1));
}

TEST_F(ShapesTest, LineWithoutLengthIsADot) {
    surface.SetDrawWidth(3);
    surface.Line(300, 450, 300, 450, 0);
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(19, 29, 3, 3));
    EXPECT_EQ(CountOf(image, 0), 9);
}

TEST_F(ShapesTest, PenIsAtLeastOnePixelWide) {
    surface.Line(0, 750, 1485, 750, 0);
    const QImage image = Render(10);
    EXPECT_EQ(InkOf(image).height(), 1);
    EXPECT_EQ(CountOf(image, 0), image.width());
}

TEST_F(ShapesTest, FourLinesAroundABoxHaveWholeCorners) {
    surface.SetDrawWidth(3);
    surface.Line(300, 300, 600, 300, 0);
    surface.Line(600, 300, 600, 600, 0);
    surface.Line(600, 600, 300, 600, 0);
    surface.Line(300, 600, 300, 300, 0);
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(19, 19, 23, 23));
    EXPECT_EQ(CountOf(image, 0), 23 * 23 - 17 * 17);
}

TEST_F(ShapesTest, BoxHasItsCornersOnTheirPixels) {
    surface.Line(600, 750, 300, 450, 0, u"B");
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(20, 30, 21, 21));
    EXPECT_EQ(CountOf(image, 0), 80);
    EXPECT_EQ(ColourAt(image, 21, 31), kWhite);
}

TEST_F(ShapesTest, BoxWithoutHeightIsALine) {
    surface.Line(300, 450, 600, 450, 0, u"B");
    const QImage image = Render();
    EXPECT_EQ(InkOf(image), QRect(20, 30, 21, 1));
    EXPECT_EQ(CountOf(image, 0), 21);
}

TEST_F(ShapesTest, SolidFillReachesTheOutline) {
    surface.SetFillStyle(0);
    surface.SetFillColor(0x00FF00);
    surface.Line(300, 300, 600, 600, 0x0000FF, u"B");
    const QImage image = Render();
    EXPECT_EQ(CountOf(image, 0xFF0000), 80);
    EXPECT_EQ(CountOf(image, 0x00FF00), 19 * 19);
}

TEST_F(ShapesTest, FilledBoxModeIgnoresTheFillOfTheSurface) {
    surface.SetFillStyle(1);
    surface.Line(300, 300, 600, 600, 0x0000FF, u"BF");
    EXPECT_EQ(CountOf(Render(), 0xFF0000), 21 * 21);
}

TEST_F(ShapesTest, TransparentStyleDrawsNoOutline) {
    surface.SetDrawStyle(5);
    surface.Line(300, 300, 600, 300, 0);
    surface.Line(300, 300, 600, 600, 0, u"B");
    surface.Circle(700, 700, 200, 0, 1);
    EXPECT_TRUE(InkOf(Render()).isNull());
    surface.SetFillStyle(0);
    surface.SetFillColor(0x0000FF);
    surface.Line(300, 300, 600, 600, 0, u"B");
    EXPECT_EQ(CountOf(Render(), 0xFF0000), 400);
}

TEST_F(ShapesTest, InsideSolidStaysInsideTheBounds) {
    surface.SetDrawWidth(5);
    surface.SetDrawStyle(6);
    surface.Line(300, 300, 600, 600, 0, u"B");
    EXPECT_EQ(InkOf(Render()), QRect(20, 20, 20, 20));
    surface.Cls();
    surface.Circle(750, 750, 300, 0, 1);
    EXPECT_EQ(InkOf(Render()), QRect(30, 30, 40, 40));
}

TEST_F(ShapesTest, DashedLinesFollowTheirPatternInScreenPixels) {
    const std::vector<std::vector<int>> patterns{{18, 6}, {3, 3}, {9, 6, 3, 6}, {9, 3, 3, 3, 3, 3}};
    for (std::size_t style = 1; style <= patterns.size(); ++style) {
        surface.Cls();
        surface.SetDrawStyle(static_cast<std::int16_t>(style));
        surface.Line(0, 150, 1485, 150, 0);
        const QImage image = Render();
        int x = 0;
        for (std::size_t i = 0; x < 48; i = (i + 1) % patterns[style - 1].size()) {
            for (int n = 0; n < patterns[style - 1][i]; ++n, ++x) {
                EXPECT_EQ(ColourAt(image, x, 10), i % 2 == 0 ? 0 : kWhite) << style << " at " << x;
            }
        }
    }
}

TEST_F(ShapesTest, DashesGrowWithThePen) {
    surface.SetDrawStyle(2);
    surface.SetDrawWidth(4);
    surface.Line(0, 750, 1485, 750, 0);
    const QImage image = Render();
    EXPECT_EQ(ColourAt(image, 8, 50), 0U);
    EXPECT_EQ(ColourAt(image, 14, 50), kWhite);
    EXPECT_EQ(ColourAt(image, 26, 50), 0U);
}

TEST_F(ShapesTest, EllipseTouchesTheSamePixelsAsItsBox) {
    surface.Circle(750, 750, 300, 0, 0.5);
    const QRect ink = InkOf(Render());
    surface.Cls();
    surface.Line(450, 600, 1050, 900, 0, u"B");
    EXPECT_EQ(ink, InkOf(Render()));
    EXPECT_EQ(ink, QRect(30, 40, 41, 21));
}

TEST_F(ShapesTest, EllipseWithoutHeightIsALine) {
    surface.Circle(750, 750, 300, 0, 0);
    EXPECT_EQ(InkOf(Render()), QRect(30, 50, 41, 1));
}

TEST_F(ShapesTest, LevelHatchIsEightPixelsApartInItsColour) {
    surface.SetFillStyle(2);
    surface.SetFillColor(0x0000FF);
    surface.Line(150, 150, 1350, 1350, 0, u"B");
    const QImage image = Render();
    for (const int y : {16, 24, 32, 88})
        EXPECT_EQ(ColourAt(image, 50, y), 0xFF0000U) << y;
    EXPECT_EQ(CountOf(image, 0xFF0000), 79 * 10);
}

TEST_F(ShapesTest, UprightHatchAndCrossHatch) {
    surface.SetFillStyle(3);
    surface.Line(150, 150, 1350, 1350, 0, u"B");
    EXPECT_EQ(ColourAt(Render(), 16, 50), 0U);
    EXPECT_EQ(ColourAt(Render(), 50, 16), kWhite);
    surface.SetFillStyle(6);
    surface.Line(150, 150, 1350, 1350, 0, u"B");
    EXPECT_EQ(ColourAt(Render(), 50, 16), 0U);
}

TEST_F(ShapesTest, DiagonalHatchesRunInTheirDirections) {
    surface.SetFillStyle(4);
    surface.Line(0, 0, 1485, 1485, 0, u"B");
    QImage rising = Render();
    surface.Cls();
    surface.SetFillStyle(5);
    surface.Line(0, 0, 1485, 1485, 0, u"B");
    const QImage falling = Render();
    EXPECT_LT(qGray(rising.pixel(44, 35)), 160);
    EXPECT_LT(qGray(rising.pixel(35, 44)), 160);
    EXPECT_LT(qGray(falling.pixel(44, 36)), 160);
    EXPECT_LT(qGray(falling.pixel(36, 44)), 160);
    EXPECT_EQ(ColourAt(rising, 40, 36), kWhite);
    EXPECT_EQ(ColourAt(falling, 40, 36), kWhite);
}

TEST_F(ShapesTest, HatchStaysInsideAnEllipse) {
    surface.SetDrawStyle(5);
    surface.SetFillStyle(7);
    surface.Circle(750, 750, 300, 0, 1);
    const QRect ink = InkOf(Render());
    EXPECT_FALSE(ink.isNull());
    EXPECT_TRUE(QRect(30, 30, 41, 41).contains(ink));
    EXPECT_EQ(ColourAt(Render(), 32, 32), kWhite);
}

TEST_F(ShapesTest, OtherFillStylesFillNothing) {
    for (const std::int16_t style : std::initializer_list<std::int16_t>{-1, 1, 8, 32767}) {
        surface.Cls();
        surface.SetFillStyle(style);
        surface.Line(300, 300, 600, 600, 0, u"B");
        EXPECT_EQ(CountOf(Render(), 0), 80) << style;
    }
}

TEST_F(ShapesTest, HatchOnATinyPageBecomesATint) {
    surface.SetDrawStyle(5);
    surface.SetFillStyle(6);
    surface.Line(0, 0, 1500, 1500, 0, u"B");
    const QImage image = Render(12);
    EXPECT_LT(qGray(image.pixel(6, 6)), 255);
    EXPECT_EQ(image.pixel(6, 6), image.pixel(7, 8));
}

TEST_F(ShapesTest, HighByteOfAColourIsIgnored) {
    surface.Line(0, 0, 150, 0, 0xFF0000FF);
    EXPECT_EQ(ColourAt(Render(), 3, 0), 0xFF0000U);
}

TEST_F(ShapesTest, NumbersThatAreNotFiniteDrawNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    surface.SetFillStyle(0);
    for (const double bad : {nan, HUGE_VAL, -HUGE_VAL}) {
        surface.Line(bad, 0, 100, 100, 0);
        surface.Line(0, 0, 100, bad, 0, u"B");
        surface.Circle(bad, 100, 100, 0, 1);
    }
    EXPECT_TRUE(InkOf(Render()).isNull());
}

TEST_F(ShapesTest, EnormousShapesAreCutToThePage) {
    const double far = 2147483647.0;
    for (std::int16_t style = 0; style <= 6; ++style) {
        surface.SetDrawStyle(style);
        surface.SetFillStyle(static_cast<std::int16_t>(style + 1));
        surface.Line(-far, 450, far, 450, 0);
        surface.Line(-far, -far, far, far, 0);
        surface.Line(-far, -far, far, far, 0, u"B");
        surface.Circle(750, 750, far, 0, 1);
        surface.Circle(far, 750, far, 0, 1);
    }
    const QImage image = Render();
    EXPECT_EQ(ColourAt(image, 50, 30), 0U);

    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    writer.setResolution(1440);
    QPainter painter(&writer);
    surface.Replay(painter, 1);
    EXPECT_TRUE(painter.end());
    EXPECT_GT(bytes.size(), 0);
    EXPECT_LT(bytes.size(), 2'000'000);
}

TEST_F(ShapesTest, EnormousDashedLineKeepsItsPattern) {
    surface.SetDrawStyle(2);
    surface.Line(-6 * 15 * 1'000'000.0, 450, 2e9, 450, 0);
    const QImage image = Render();
    EXPECT_EQ(ColourAt(image, 1, 30), 0U);
    EXPECT_EQ(ColourAt(image, 4, 30), kWhite);
    EXPECT_EQ(ColourAt(image, 7, 30), 0U);
}

TEST_F(ShapesTest, EnormousEllipseIsFilled) {
    surface.SetFillStyle(0);
    surface.SetFillColor(0x0000FF);
    surface.Circle(750, 2e9, 2e9 - 750, 0, 1);
    const QImage image = Render();
    EXPECT_EQ(ColourAt(image, 50, 90), 0xFF0000U);
    EXPECT_EQ(ColourAt(image, 50, 10), kWhite);
}

}  // namespace
}  // namespace sheetwright
