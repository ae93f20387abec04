#include "print/picture_surface.h"

#include "print/fonts.h"
#include "print/item_painter.h"
#include "support/item_text.h"
#include "support/pixels.h"
#include "support/test_application.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace sheetwright {
namespace {

class PictureSurfaceTest : public ::testing::Test {
  protected:
    Fonts fonts;
    PictureSurface surface{fonts, 1500, 750};
};

TEST_F(PictureSurfaceTest, SizeCanBeSetButNotBelowZero) {
    surface.SetWidth(3000);
    surface.SetHeight(0);
    EXPECT_EQ(surface.Width(), 3000);
    EXPECT_EQ(surface.Height(), 0);
    EXPECT_EQ(FailureOf([&] { surface.SetWidth(-1); }), 380);
    EXPECT_EQ(FailureOf([&] { surface.SetHeight(std::nan("")); }), 380);
    EXPECT_EQ(surface.Width(), 3000);
}

TEST_F(PictureSurfaceTest, PixelIsFifteenTwips) {
    surface.SetDrawWidth(2);
    surface.Line(0, 0, 150, 0, 0);
    EXPECT_EQ(TextsOf(surface.Recorded()), QStringList{QStringLiteral("line 0,0 150,0 pen 30/0/0x000000")});
}

TEST_F(PictureSurfaceTest, ClsForgetsWhatWasDrawn) {
    surface.Line(0, 0, 150, 0, 0);
    surface.Cls();
    EXPECT_TRUE(surface.Recorded().IsEmpty());
}

TEST_F(PictureSurfaceTest, ImageKeepsTheDrawingOfThatMoment) {
    surface.Line(0, 0, 150, 0, 0);
    const Picture picture = surface.Image();
    surface.Line(0, 0, 150, 150, 0);
    surface.Line(0, 0, 150, 300, 0);
    EXPECT_EQ(picture.recording->Items().size(), 1U);
    EXPECT_EQ(surface.Recorded().Items().size(), 3U);
    surface.Cls();
    EXPECT_EQ(picture.recording->Items().size(), 1U);
    EXPECT_EQ(picture.width, 1500);
    EXPECT_EQ(picture.height, 750);
}

TEST_F(PictureSurfaceTest, ImageOfAnEmptySurfaceIsEmpty) {
    EXPECT_TRUE(surface.Image().IsEmpty());
}

TEST_F(PictureSurfaceTest, ImagesOfAnUnchangedSurfaceShareItsDrawing) {
    surface.Line(0, 0, 150, 0, 0);
    EXPECT_EQ(surface.Image().recording, surface.Image().recording);
}

TEST_F(PictureSurfaceTest, SurfacePaintedOnItselfTakesWhatItHad) {
    surface.Line(0, 0, 150, 0, 0);
    surface.PaintPicture(surface.Image(), 0, 300, 1500, 300, 0, 0, 1500, 750);
    EXPECT_EQ(surface.Recorded().Items().size(), 2U);
    EXPECT_FALSE(InkOf(surface.Render(96)).isNull());
}

TEST_F(PictureSurfaceTest, RenderedImageHasItsSizeResolutionAndBackground) {
    surface.BackColor = 0x0080FF;
    const QImage image = surface.Render(192);
    EXPECT_EQ(image.size(), QSize(200, 100));
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    EXPECT_EQ(image.dotsPerMeterX(), 7559);
    EXPECT_EQ(image.dotsPerMeterY(), 7559);
    EXPECT_EQ(CountOf(image, 0xFF8000), 200 * 100);
}

TEST_F(PictureSurfaceTest, ImageHasAtLeastOnePixel) {
    EXPECT_EQ(surface.Render(0.001).size(), QSize(1, 1));
}

TEST_F(PictureSurfaceTest, ResolutionMustBeAPositiveNumber) {
    for (const double bad : {0.0, -96.0, std::nan(""), HUGE_VAL}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(surface.Render(bad)); }), 6) << bad;
    }
}

TEST_F(PictureSurfaceTest, ImageOfTooManyPixelsIsOutOfMemory) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(surface.Render(1e9)); }), 7);
    surface.SetWidth(1e300);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(surface.Render(96)); }), 7);
}

TEST_F(PictureSurfaceTest, ReplayAtAnyPlaceAndSizeLooksLikeTheRenderedPage) {
    surface.Line(150, 150, 1200, 600, 0, u"B");
    surface.Circle(600, 375, 200, 0xFF, 0.5);
    surface.CurrentX = 200;
    surface.CurrentY = 200;
    surface.Print(QStringLiteral("Text"));
    QImage image(210, 120, QImage::Format_RGB32);
    image.setDotsPerMeterX(7559);
    image.setDotsPerMeterY(7559);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(10, 20);
    surface.Replay(painter, 192.0 / 1440);
    painter.end();
    EXPECT_EQ(image.copy(10, 20, 200, 100).convertToFormat(QImage::Format_RGB32), surface.Render(192));
}

TEST_F(PictureSurfaceTest, ReplayLeavesThePainterAsItWas) {
    QImage image(100, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    surface.Line(0, 0, 150, 30, 0);
    surface.Replay(painter, 96.0 / 1440);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
}

TEST_F(PictureSurfaceTest, BoxesStayCrispAtEverySize) {
    surface.Line(307, 158, 1201, 604, 0, u"B");
    for (const double dotsPerInch : {72.0, 96.0, 110.0, 144.0, 192.0, 250.0}) {
        const QImage image = surface.Render(dotsPerInch);
        EXPECT_EQ(CountOf(image, 0) + CountOf(image, 0xFFFFFF), image.width() * image.height())
            << dotsPerInch;
    }
}

TEST_F(PictureSurfaceTest, OneItemPainterServesPagesOfDifferentPlaces) {
    QImage image(100, 50, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    ItemPainter items(painter, fonts, 96.0 / 1440, ItemPainter::Surface::Pixels);
    items.Paint(DrawnLine{0, 0, 150, 0, {}});
    painter.translate(50, 20);
    items.Paint(DrawnLine{0, 0, 150, 0, {}});
    painter.end();
    EXPECT_EQ(InkOf(image), QRect(0, 0, 61, 21));
}

}  // namespace
}  // namespace sheetwright
