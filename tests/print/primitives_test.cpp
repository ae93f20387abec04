#include "print/primitives.h"

#include "print/fonts.h"
#include "print/picture_surface.h"
#include "support/fixed_metrics.h"
#include "support/item_text.h"
#include "support/recording_printer.h"
#include "support/recording_surface.h"
#include "support/test_application.h"

#include <cmath>

namespace sheetwright {
namespace {

constexpr Colour kRed = 0x0000FF;

class PrimitivesTest : public ApplicationTest {
  protected:
    PrintState& State() { return m_application->printing; }
    QStringList Drawn() const { return TextsOf(m_surface.recording); }
    void SetAdjusts(float x, float y) {
        State().PrintXAdjust = x;
        State().PrintYAdjust = y;
    }
    void Shape(const QString& name, double x1, double y1, double x2, double y2) {
        DrawShape(State(), m_surface, name, x1, y1, x2, y2, kRed);
    }

    FixedMetrics m_metrics;
    RecordingSurface m_surface{m_metrics};
    RecordingPrinter m_printer{m_metrics};
};

using DrawLineTest = PrimitivesTest;
using DrawBoxTest = PrimitivesTest;
using DrawShapeTest = PrimitivesTest;
using LoadPrinterAdjustTest = PrimitivesTest;

TEST_F(DrawLineTest, AddsTheAdjustsToBothEnds) {
    SetAdjusts(10.5F, -20);
    DrawLine(State(), m_surface, 100, 200, 300.2, 400, kRed);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("line 110,180 310,380 pen 15/0/0x0000ff")));
}

TEST_F(DrawLineTest, PlaceIsRoundedBeforeAndAfterItIsAdjusted) {
    SetAdjusts(0.5F, 0.75F);
    DrawLine(State(), m_surface, 10.4, 10.5, 11.4, 11.5, kRed);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("line 10,11 12,13 pen 15/0/0x0000ff")));
}

TEST_F(DrawLineTest, RoundsHalvesToEven) {
    DrawLine(State(), m_surface, 0.5, 1.5, 2.5, -0.5, kRed);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("line 0,2 2,0 pen 15/0/0x0000ff")));
}

TEST_F(DrawLineTest, WithoutAColourTheForeColorCounts) {
    m_surface.SetForeColor(0x123456);
    DrawLine(State(), m_surface, 0, 0, 10, 0, std::nullopt);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("line 0,0 10,0 pen 15/0/0x123456")));
}

TEST_F(DrawLineTest, OnlyTheExactModesGiveBoxes) {
    for (const QStringView mode : {u"", u"B", u"BF", u"b", u"bf", u"FB", u"B "})
        DrawLine(State(), m_surface, 0, 0, 10, 20, kRed, mode);
    const QString line = QStringLiteral("line 0,0 10,20 pen 15/0/0x0000ff");
    EXPECT_EQ(Drawn(), (QStringList{line, QStringLiteral("box 0,0 10,20 pen 15/0/0x0000ff fill 1/0x000000"),
                                    QStringLiteral("box 0,0 10,20 pen 15/0/0x0000ff fill 0/0x0000ff"), line,
                                    line, line, line}));
}

TEST_F(DrawLineTest, CoordinatePast32BitsIsAnOverflow) {
    EXPECT_EQ(FailureOf([&] { DrawLine(State(), m_surface, 0, 0, 2147483648.0, 0, kRed); }), 6);
    SetAdjusts(0, 1e9F);
    EXPECT_EQ(FailureOf([&] { DrawLine(State(), m_surface, 0, 2e9, 0, 0, kRed); }), 6);
    EXPECT_EQ(FailureOf([&] { DrawLine(State(), m_surface, std::nan(""), 0, 0, 0, kRed); }), 6);
    EXPECT_EQ(Drawn(), QStringList());
}

TEST_F(DrawBoxTest, IsFourLinesTopRightBottomLeft) {
    SetAdjusts(1, 2);
    DrawBox(State(), m_surface, 100, 200, 300, 400, kRed);
    EXPECT_EQ(Drawn(), (QStringList{QStringLiteral("line 101,202 301,202 pen 15/0/0x0000ff"),
                                    QStringLiteral("line 301,202 301,402 pen 15/0/0x0000ff"),
                                    QStringLiteral("line 301,402 101,402 pen 15/0/0x0000ff"),
                                    QStringLiteral("line 101,402 101,202 pen 15/0/0x0000ff")}));
}

TEST_F(DrawShapeTest, RectFillsItsBox) {
    m_surface.SetFillStyle(0);
    m_surface.SetFillColor(0x00FF00);
    SetAdjusts(1, 2);
    Shape(QStringLiteral("rect"), 100, 200, 300, 400);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("box 101,202 301,402 pen 15/0/0x0000ff fill 0/0x00ff00")));
}

TEST_F(DrawShapeTest, SquareStandsInTheMiddleOfItsBox) {
    Shape(QStringLiteral("square"), 100, 200, 400, 300);
    Shape(QStringLiteral("square"), 100, 200, 200, 500);
    Shape(QStringLiteral("square"), 100, 200, 200, 300);
    Shape(QStringLiteral("square"), 0, 0, 101, 100);
    EXPECT_EQ(Drawn(), (QStringList{QStringLiteral("box 200,200 300,300 pen 15/0/0x0000ff fill 1/0x000000"),
                                    QStringLiteral("box 100,300 200,400 pen 15/0/0x0000ff fill 1/0x000000"),
                                    QStringLiteral("box 100,200 200,300 pen 15/0/0x0000ff fill 1/0x000000"),
                                    QStringLiteral("box 0,0 100,100 pen 15/0/0x0000ff fill 1/0x000000")}));
}

TEST_F(DrawShapeTest, WideOvalFillsItsBox) {
    Shape(QStringLiteral("oval"), 100, 200, 400, 300);
    EXPECT_EQ(Drawn(),
              QStringList(QStringLiteral("ellipse 250,250 150x50 pen 15/0/0x0000ff fill 1/0x000000")));
}

TEST_F(DrawShapeTest, TallOvalIsSmallerThanItsBox) {
    Shape(QStringLiteral("oval"), 100, 200, 200, 600);
    EXPECT_EQ(Drawn(),
              QStringList(QStringLiteral("ellipse 150,400 12.5x50 pen 15/0/0x0000ff fill 1/0x000000")));
}

TEST_F(DrawShapeTest, FlatOvalIsALineAndOneWithoutWidthAFailure) {
    Shape(QStringLiteral("oval"), 100, 200, 400, 200);
    EXPECT_EQ(Drawn(),
              QStringList(QStringLiteral("ellipse 250,200 150x0 pen 15/0/0x0000ff fill 1/0x000000")));
    EXPECT_EQ(FailureOf([&] { Shape(QStringLiteral("oval"), 100, 200, 100, 300); }), 11);
}

TEST_F(DrawShapeTest, CircleStandsInTheMiddleOfItsBox) {
    Shape(QStringLiteral("circle"), 100, 200, 400, 300);
    Shape(QStringLiteral("circle"), 100, 200, 200, 500);
    Shape(QStringLiteral("circle"), 100, 200, 201, 301);
    EXPECT_EQ(
        Drawn(),
        (QStringList{QStringLiteral("ellipse 250,250 50x50 pen 15/0/0x0000ff fill 1/0x000000"),
                     QStringLiteral("ellipse 150,350 50x50 pen 15/0/0x0000ff fill 1/0x000000"),
                     QStringLiteral("ellipse 150.5,250.5 50.5x50.5 pen 15/0/0x0000ff fill 1/0x000000")}));
}

TEST_F(DrawShapeTest, CornersMayComeInAnyOrder) {
    Shape(QStringLiteral("rect"), 300, 400, 100, 200);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("box 300,400 100,200 pen 15/0/0x0000ff fill 1/0x000000")));
}

TEST_F(DrawShapeTest, OtherNamesDrawNothing) {
    for (const QString& name : {QString(), QStringLiteral("Rect"), QStringLiteral("rectangle")})
        Shape(name, 0, 0, 100, 100);
    EXPECT_EQ(Drawn(), QStringList());
}

TEST_F(DrawShapeTest, WithoutAColourTheForeColorCounts) {
    m_surface.SetForeColor(0x123456);
    DrawShape(State(), m_surface, u"rect", 0, 0, 10, 10, std::nullopt);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("box 0,0 10,10 pen 15/0/0x123456 fill 1/0x000000")));
}

TEST_F(DrawShapeTest, PlaceOrExtentPast32BitsIsAnOverflow) {
    for (const QString& name : {QStringLiteral("rect"), QStringLiteral("oval")}) {
        EXPECT_EQ(FailureOf([&] { Shape(name, 0, 0, 3e9, 10); }), 6);
        EXPECT_EQ(FailureOf([&] { Shape(name, -2e9, 0, 2e9, 10); }), 6);
    }
}

class DrawBitmapTest : public PrimitivesTest {
  protected:
    DrawBitmapTest() {
        m_picture.Left = 100.9;
        m_picture.Top = 200.2;
        m_picture.Line(0, 0, 10, 10, kRed);
    }

    Fonts m_fonts;
    PictureSurface m_picture{m_fonts, 300, 150};
};

TEST_F(DrawBitmapTest, DrawsAllOfThePictureAtItsPlace) {
    SetAdjusts(0.5F, 1);
    DrawBitmap(*m_application, m_surface, m_picture, 600, 400);
    EXPECT_EQ(Drawn(), QStringList(QStringLiteral("picture 100.5,201 600x400 from 0,0 300x150 of 1 items")));
    EXPECT_TRUE(m_picture.Visible);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(DrawBitmapTest, PrintsAnEmptyTextSoThatADocumentHasBegun) {
    m_picture.Cls();
    DrawBitmap(*m_application, m_printer, m_picture, 600, 400);
    EXPECT_EQ(m_printer.calls, QStringList(QStringLiteral("open")));
    EXPECT_EQ(m_printer.CurrentY, 240);
}

TEST_F(DrawBitmapTest, FailureIsToldWithZeroForItsNumber) {
    m_printer.failureOfPictures = 481;
    m_picture.Visible = false;
    DrawBitmap(*m_application, m_printer, m_picture, 600, 400);
    EXPECT_EQ(m_ui.messages, (std::vector<ShownMessage>{{QStringLiteral("Error:0 Printing Bitmap"),
                                                         m_application->Title, MessageIcon::Exclamation}}));
    EXPECT_EQ(m_ui.beeps, 1);
    EXPECT_FALSE(m_picture.Visible);
}

TEST_F(DrawBitmapTest, PrinterThatOpensNoDocumentIsAFailureOfTheCaller) {
    m_printer.failureOfDrawing = 482;
    EXPECT_EQ(FailureOf([&] { DrawBitmap(*m_application, m_printer, m_picture, 600, 400); }), 482);
    EXPECT_TRUE(m_picture.Visible);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(LoadPrinterAdjustTest, IsTheDriversSettingLessTheMarginPlusTheExtra) {
    const QString suite = QStringLiteral("Tolvane Printer");
    m_application->settings.Write(suite, m_printer.driverName, QStringLiteral("XAdjust"),
                                  QStringLiteral("30"));
    m_application->settings.Write(suite, m_printer.driverName, QStringLiteral("YAdjust"),
                                  QStringLiteral("-7.5"));
    m_printer.marginLeft = 100;
    m_printer.marginTop = 50;
    LoadPrinterAdjust(*m_application, m_printer, 15, 4);
    EXPECT_FLOAT_EQ(State().PrintXAdjust, 30 - 240 + 15);
    EXPECT_FLOAT_EQ(State().PrintYAdjust, -7.5F - 120 + 4);
}

TEST_F(LoadPrinterAdjustTest, DriverWithoutSettingsHasNone) {
    SetAdjusts(1000, 1000);
    m_application->settings.Write(QStringLiteral("Tolvane Printer"), QStringLiteral("Another driver"),
                                  QStringLiteral("XAdjust"), QStringLiteral("30"));
    LoadPrinterAdjust(*m_application, m_printer, 1, 2);
    EXPECT_EQ(State().PrintXAdjust, 1);
    EXPECT_EQ(State().PrintYAdjust, 2);
}

TEST_F(LoadPrinterAdjustTest, SettingThatIsNoNumberIsNone) {
    m_application->settings.Write(QStringLiteral("Tolvane Printer"), m_printer.driverName,
                                  QStringLiteral("XAdjust"), QStringLiteral("left"));
    LoadPrinterAdjust(*m_application, m_printer, 0, 0);
    EXPECT_EQ(State().PrintXAdjust, 0);
}

TEST_F(LoadPrinterAdjustTest, SurfaceThatIsNoPrinterHasNoDriver) {
    SetAdjusts(3, 4);
    EXPECT_EQ(FailureOf([&] { LoadPrinterAdjust(*m_application, m_surface, 0, 0); }), 438);
    EXPECT_EQ(State().PrintXAdjust, 3);
}

TEST_F(LoadPrinterAdjustTest, AdjustThatNoNumberHoldsIsAnOverflow) {
    EXPECT_EQ(FailureOf([&] { LoadPrinterAdjust(*m_application, m_printer, 1e300, 0); }), 6);
    m_application->settings.Write(QStringLiteral("Tolvane Printer"), m_printer.driverName,
                                  QStringLiteral("YAdjust"), QString(50, u'9'));
    EXPECT_EQ(FailureOf([&] { LoadPrinterAdjust(*m_application, m_printer, 0, 0); }), 6);
}

}  // namespace
}  // namespace sheetwright
