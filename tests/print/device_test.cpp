#include "print/device.h"

#include "support/fixed_metrics.h"
#include "support/item_text.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

class Sheet : public Device {
  public:
    using Device::Device;
    [[nodiscard]] double Width() const override { return 11906; }
    [[nodiscard]] double Height() const override { return 16838; }
    [[nodiscard]] double TwipsPerPixelX() const override { return 5; }
    [[nodiscard]] double TwipsPerPixelY() const override { return 5; }

    Recording drawn;
    int touches = 0;

  protected:
    void Draw(DrawnItem item) override { drawn.Add(std::move(item)); }
    void Touch() override { ++touches; }
};

class DeviceTest : public ::testing::Test {
  protected:
    FixedMetrics metrics;
    Sheet sheet{metrics};
};

TEST_F(DeviceTest, StartsWithAThinBlackSolidPenAndNoFill) {
    sheet.Line(0, 0, 300, 200, sheet.ForeColor(), u"B");
    EXPECT_EQ(TextsOf(sheet.drawn),
              QStringList{QStringLiteral("box 0,0 300,200 pen 5/0/0x000000 fill 1/0x000000")});
}

TEST_F(DeviceTest, UnknownFontNameIsRefusedAndTheOldOneStays) {
    metrics.SetFamilies({QStringLiteral("Arial"), QStringLiteral("Courier New")});
    sheet.SetFontName(QStringLiteral("Courier New"));
    EXPECT_EQ(FailureOf([&] { sheet.SetFontName(QStringLiteral("Nowhere Sans")); }), 380);
    EXPECT_EQ(FailureOf([&] { sheet.SetFontName(QString()); }), 380);
    EXPECT_EQ(sheet.FontName(), QStringLiteral("Courier New"));
}

TEST_F(DeviceTest, FontSizeMustBeAboveZeroAndAtMost2160) {
    for (const double size : {0.0, -8.0, 2160.01, kNotANumber, HUGE_VAL}) {
        EXPECT_EQ(FailureOf([&] { sheet.SetFontSize(size); }), 380) << size;
    }
    EXPECT_EQ(sheet.FontSize(), 8.25);
    for (const double size : {0.01, 7.5, 2160.0}) {
        sheet.SetFontSize(size);
        EXPECT_EQ(sheet.FontSize(), size);
    }
}

TEST_F(DeviceTest, DrawWidthIsRoundedToWholePixels) {
    sheet.SetDrawWidth(2.6);
    EXPECT_EQ(sheet.DrawWidth(), 3);
    sheet.SetDrawWidth(2.5);
    EXPECT_EQ(sheet.DrawWidth(), 2);
    sheet.SetDrawWidth(32767);
    EXPECT_EQ(sheet.DrawWidth(), 32767);
}

TEST_F(DeviceTest, DrawWidthBelowOneIsRefusedAndPast16BitsOverflows) {
    for (const double width : {0.0, 0.4, -1.0}) {
        EXPECT_EQ(FailureOf([&] { sheet.SetDrawWidth(width); }), 380) << width;
    }
    EXPECT_EQ(FailureOf([&] { sheet.SetDrawWidth(32768); }), 6);
    EXPECT_EQ(FailureOf([&] { sheet.SetDrawWidth(kNotANumber); }), 6);
    EXPECT_EQ(sheet.DrawWidth(), 1);
}

TEST_F(DeviceTest, DrawStyleBelowZeroOrAboveSixIsRefusedAndTheOldOneStays) {
    sheet.SetDrawStyle(6);
    EXPECT_EQ(FailureOf([&] { sheet.SetDrawStyle(-1); }), 380);
    EXPECT_EQ(FailureOf([&] { sheet.SetDrawStyle(7); }), 380);
    EXPECT_EQ(sheet.DrawStyle(), 6);
}

TEST_F(DeviceTest, AnyFillStyleIsKept) {
    for (const std::int16_t style : std::initializer_list<std::int16_t>{-32768, 0, 7, 8, 32767}) {
        sheet.SetFillStyle(style);
        EXPECT_EQ(sheet.FillStyle(), style);
    }
}

TEST_F(DeviceTest, SizeOfThePaperCantBeSet) {
    EXPECT_EQ(FailureOf([&] { sheet.SetWidth(100); }), 380);
    EXPECT_EQ(FailureOf([&] { sheet.SetHeight(100); }), 380);
}

TEST_F(DeviceTest, SurfaceThatIsNoPrinterHasNoDriverName) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(sheet.DriverName()); }), 438);
    EXPECT_EQ(sheet.GetDeviceCaps(112), 0);
}

TEST_F(DeviceTest, PrintDrawsAtTheTextPositionAndMovesToTheNextLine) {
    sheet.CurrentX = 30;
    sheet.CurrentY = 45;
    sheet.SetForeColor(0x0000FF);
    sheet.SetFontBold(true);
    sheet.Print(QStringLiteral("Name"));
    EXPECT_EQ(TextsOf(sheet.drawn),
              QStringList{QStringLiteral("text 30,45 \"Name\" Arial 8.25 bold 0x0000ff")});
    EXPECT_EQ(sheet.CurrentX, 0);
    EXPECT_EQ(sheet.CurrentY, 285);
}

TEST_F(DeviceTest, EmptyTextDrawsNothingButBeginsTheOutput) {
    sheet.CurrentX = 30;
    sheet.Print(QString());
    EXPECT_TRUE(sheet.drawn.IsEmpty());
    EXPECT_EQ(sheet.touches, 1);
    EXPECT_EQ(sheet.CurrentX, 0);
    EXPECT_EQ(sheet.CurrentY, 240);
}

TEST_F(DeviceTest, TextHeightCountsLineBreaks) {
    EXPECT_EQ(sheet.TextHeight(u""), 240);
    EXPECT_EQ(sheet.TextHeight(u"a"), 240);
    EXPECT_EQ(sheet.TextHeight(u"a\r\nb\r\n"), 720);
}

TEST_F(DeviceTest, LineModeIsExact) {
    sheet.SetFillStyle(4);
    sheet.SetFillColor(0x00FF00);
    sheet.SetDrawWidth(3);
    sheet.SetDrawStyle(2);
    sheet.Line(1, 2, 3, 4, 0xFF, u"");
    sheet.Line(1, 2, 3, 4, 0xFF, u"b");
    sheet.Line(1, 2, 3, 4, 0xFF, u"B");
    sheet.Line(1, 2, 3, 4, 0xFF, u"BF");
    EXPECT_EQ(TextsOf(sheet.drawn),
              (QStringList{QStringLiteral("line 1,2 3,4 pen 15/2/0x0000ff"),
                           QStringLiteral("line 1,2 3,4 pen 15/2/0x0000ff"),
                           QStringLiteral("box 1,2 3,4 pen 15/2/0x0000ff fill 4/0x00ff00"),
                           QStringLiteral("box 1,2 3,4 pen 15/2/0x0000ff fill 0/0x0000ff")}));
}

TEST_F(DeviceTest, FlatEllipseHasItsRadiusAsHorizontalHalfAxis) {
    sheet.Circle(1000, 500, 400, 0, 0.25);
    EXPECT_EQ(TextOf(sheet.drawn.Items().front()),
              QStringLiteral("ellipse 1000,500 400x100 pen 5/0/0x000000 fill 1/0x000000"));
}

TEST_F(DeviceTest, TallEllipseHasItsRadiusAsVerticalHalfAxis) {
    sheet.Circle(1000, 500, 400, 0, 4);
    EXPECT_EQ(TextOf(sheet.drawn.Items().front()),
              QStringLiteral("ellipse 1000,500 100x400 pen 5/0/0x000000 fill 1/0x000000"));
}

TEST_F(DeviceTest, AspectOneIsACircle) {
    sheet.Circle(1000, 500, 400, 0, 1);
    EXPECT_EQ(TextOf(sheet.drawn.Items().front()),
              QStringLiteral("ellipse 1000,500 400x400 pen 5/0/0x000000 fill 1/0x000000"));
}

TEST_F(DeviceTest, NegativeRadiusOrAspectIsRefused) {
    EXPECT_EQ(FailureOf([&] { sheet.Circle(0, 0, -1, 0, 1); }), 5);
    EXPECT_EQ(FailureOf([&] { sheet.Circle(0, 0, 1, 0, -1); }), 5);
    EXPECT_EQ(FailureOf([&] { sheet.Circle(0, 0, kNotANumber, 0, 1); }), 5);
    EXPECT_TRUE(sheet.drawn.IsEmpty());
}

TEST_F(DeviceTest, EmptyPictureDrawsNothing) {
    sheet.PaintPicture(Picture(), 0, 0, 100, 100, 0, 0, 100, 100);
    EXPECT_TRUE(sheet.drawn.IsEmpty());
    EXPECT_EQ(sheet.touches, 1);
}

TEST_F(DeviceTest, SurfacesAreToldApartByTheirNumber) {
    const Sheet other(metrics);
    EXPECT_NE(sheet.hdc(), other.hdc());
    EXPECT_EQ(sheet.hdc(), sheet.hdc());
}

TEST(IsPrinter, WithoutPrintersEverySurfaceIsAPicture) {
    const FixedMetrics metrics;
    const Sheet sheet(metrics);
    const PrintState state;
    EXPECT_EQ(InstalledPrinter(state), nullptr);
    EXPECT_FALSE(IsPrinter(state, sheet));
}

}  // namespace
}  // namespace sheetwright
