#include "print/image_painter.h"

#include "print/fonts.h"
#include "print/picture_surface.h"
#include "support/pixels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sheetwright {
namespace {

constexpr unsigned kRed = 0xFF0000;
constexpr unsigned kBlue = 0x0000FF;
constexpr unsigned kWhite = 0xFFFFFF;

// Red on the left, blue on the right; 15 twips to the pixel.
Picture TwoColours(int width, int height) {
    Picture picture;
    picture.image = QImage(width, height, QImage::Format_RGB32);
    picture.image.fill(Qt::red);
    for (int y = 0; y < height; ++y) {
        for (int x = width / 2; x < width; ++x)
            picture.image.setPixel(x, y, 0xFF0000FFU);
    }
    picture.width = width * 15;
    picture.height = height * 15;
    return picture;
}

class PicturesTest : public ::testing::Test {
  protected:
    void PaintWhole(const Picture& picture, double x, double y, double w, double h) {
        surface.PaintPicture(picture, x, y, w, h, 0, 0, picture.width, picture.height);
    }

    Fonts fonts;
    PictureSurface surface{fonts, 1500, 1500};
};

TEST_F(PicturesTest, PictureInItsNaturalSizeKeepsItsPixels) {
    PaintWhole(TwoColours(20, 10), 300, 450, 300, 150);
    const QImage image = surface.Render(96);
    EXPECT_EQ(InkOf(image), QRect(20, 30, 20, 10));
    EXPECT_EQ(CountOf(image, kRed), 100);
    EXPECT_EQ(CountOf(image, kBlue), 100);
}

TEST_F(PicturesTest, PartOfAPictureIsScaledIntoItsPlace) {
    surface.PaintPicture(TwoColours(20, 10), 300, 300, 600, 600, 150, 0, 150, 150);
    const QImage image = surface.Render(96);
    EXPECT_EQ(InkOf(image), QRect(20, 20, 40, 40));
    EXPECT_EQ(ColourAt(image, 40, 40), kBlue);
}

TEST_F(PicturesTest, SourceBeyondThePictureLeavesThatPartEmpty) {
    const Picture picture = TwoColours(20, 20);
    surface.PaintPicture(picture, 0, 0, 600, 600, 0, 0, 600, 600);
    EXPECT_EQ(InkOf(surface.Render(96)), QRect(0, 0, 20, 20));
    surface.Cls();
    surface.PaintPicture(picture, 0, 0, 600, 600, 900, 900, 600, 600);
    EXPECT_TRUE(InkOf(surface.Render(96)).isNull());
}

TEST_F(PicturesTest, GreatReductionAveragesPixels) {
    Picture picture;
    picture.image = QImage(4000, 400, QImage::Format_RGB32);
    picture.image.fill(Qt::white);
    for (int x = 0; x < 4000; x += 2) {
        for (int y = 0; y < 400; ++y)
            picture.image.setPixel(x, y, 0xFF000000U);
    }
    picture.width = 60'000;
    picture.height = 6'000;
    PaintWhole(picture, 0, 0, 1500, 150);
    const QImage image = surface.Render(96);
    for (int x = 2; x < 98; ++x)
        EXPECT_NEAR(qGray(image.pixel(x, 5)), 128, 20) << x;
}

TEST_F(PicturesTest, TransparentPixelsShowWhatLiesBehind) {
    Picture picture = TwoColours(20, 10);
    picture.image = QImage(20, 10, QImage::Format_ARGB32);
    picture.image.fill(Qt::transparent);
    surface.BackColor = 0x00FF00;
    PaintWhole(picture, 300, 450, 300, 150);
    EXPECT_EQ(CountOf(surface.Render(96), 0x00FF00), 100 * 100);
}

TEST_F(PicturesTest, RecordedPictureIsDrawnScaledAndClipped) {
    PictureSurface drawing(fonts, 300, 300);
    drawing.Line(-3000, 150, 3000, 150, 0);
    drawing.SetFillStyle(0);
    drawing.SetFillColor(0x0000FF);
    drawing.SetDrawStyle(5);
    drawing.Line(150, 150, 300, 300, 0, u"B");
    PaintWhole(drawing.Image(), 300, 300, 600, 600);
    const QImage image = surface.Render(96);
    EXPECT_EQ(InkOf(image).left(), 20);
    EXPECT_EQ(InkOf(image).right(), 59);
    EXPECT_EQ(ColourAt(image, 50, 50), kRed);
    EXPECT_EQ(ColourAt(image, 30, 50), kWhite);
    EXPECT_EQ(ColourAt(image, 30, 40), 0U);
}

TEST_F(PicturesTest, TextInARecordedPictureGrowsWithIt) {
    PictureSurface drawing(fonts, 600, 300);
    drawing.SetFontSize(8);
    drawing.Print(QStringLiteral("HHH"));
    PaintWhole(drawing.Image(), 0, 0, 600, 300);
    const QRect once = InkOf(surface.Render(96));
    surface.Cls();
    PaintWhole(drawing.Image(), 0, 0, 1200, 300);
    const QRect wide = InkOf(surface.Render(96));
    surface.Cls();
    PaintWhole(drawing.Image(), 0, 0, 1200, 600);
    const QRect twice = InkOf(surface.Render(96));
    EXPECT_NEAR(wide.width(), 2 * once.width(), 3);
    EXPECT_NEAR(wide.height(), once.height(), 2);
    EXPECT_NEAR(twice.width(), 2 * once.width(), 3);
    EXPECT_NEAR(twice.height(), 2 * once.height(), 3);
}

TEST_F(PicturesTest, PicturesWithinPicturesEndFourDeep) {
    PictureSurface inner(fonts, 1500, 1500);
    inner.Line(0, 0, 1500, 1500, 0, u"BF");
    Picture picture = inner.Image();
    for (int depth = 1; depth <= 5; ++depth) {
        surface.Cls();
        PaintWhole(picture, 0, 0, 1500, 1500);
        EXPECT_EQ(InkOf(surface.Render(96)).isNull(), depth > 4) << depth;
        PictureSurface outer(fonts, 1500, 1500);
        outer.PaintPicture(picture, 0, 0, 1500, 1500, 0, 0, 1500, 1500);
        picture = outer.Image();
    }
}

TEST_F(PicturesTest, PlacesWithoutExtentOrNotFiniteDrawNothing) {
    const Picture picture = TwoColours(20, 10);
    PaintWhole(picture, 0, 0, 0, 100);
    PaintWhole(picture, 0, 0, -100, 100);
    PaintWhole(picture, 0, 0, std::nan(""), 100);
    surface.PaintPicture(picture, 0, 0, 100, 100, 0, 0, 0, 0);
    surface.PaintPicture(picture, 0, HUGE_VAL, 100, 100, 0, 0, 100, 100);
    EXPECT_TRUE(InkOf(surface.Render(96)).isNull());
}

TEST_F(PicturesTest, EnormousTargetIsCutToThePage) {
    PaintWhole(TwoColours(20, 10), -1.5e9, -1e9, 2e9, 2e9);
    EXPECT_EQ(CountOf(surface.Render(96), kBlue), 100 * 100);
}

}  // namespace
}  // namespace sheetwright
