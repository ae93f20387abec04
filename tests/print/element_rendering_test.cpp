#include "print/element_rendering.h"

#include "print/printing_test.h"

namespace sheetwright {
namespace {

// A screen pixel on a printer of 600 dots per inch is 6.25 of its own: 6, which are as many twips.
constexpr double kPrinterPen = 6 * 2.4;

class ElementRendering : public PrintingTest {
  protected:
    [[nodiscard]] static QStringList Frame(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3000, 500) << QStringLiteral("BorderStyle=1"), changes);
    }
    [[nodiscard]] static QStringList Line(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3000, 500)
                                     << QStringLiteral("BorderType=1") << QStringLiteral("BorderWidth=1")
                                     << QStringLiteral("BorderColor=255") << QStringLiteral("Direction=0"),
                                 changes);
    }
    [[nodiscard]] static QStringList Shape(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3015, 515)
                                     << QStringLiteral("BorderType=1") << QStringLiteral("BorderWidth=1")
                                     << QStringLiteral("BorderColor=255") << QStringLiteral("FillColor=65280")
                                     << QStringLiteral("FillStyle=0") << QStringLiteral("Shape=0"),
                                 changes);
    }
    [[nodiscard]] static QStringList Label(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3000, 500) + Font()
                                     << QStringLiteral("BorderStyle=0") << QStringLiteral("Alignment=0")
                                     << QStringLiteral("Caption=Name"),
                                 changes);
    }
    [[nodiscard]] static QStringList PictureBox(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3000, 500)
                                     << QStringLiteral("BorderStyle=0") << QStringLiteral("Picture=logo.png"),
                                 changes);
    }
};

TEST_F(ElementRendering, FrameIsABoxOnePixelInsideItsRightAndBottomEdge) {
    EXPECT_EQ(Drawn(u"FRAM", Frame()), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, FrameHasAPenOfOneScreenPixelOnPaper) {
    InstallPrinter();
    EXPECT_EQ(Printed(u"FRAM", Frame()), BoxLines(100, 200, 3085, 685, kPrinterPen));
}

TEST_F(ElementRendering, FrameWithoutBorderLeavesNoMark) {
    EXPECT_EQ(Drawn(u"FRAM", Frame({QStringLiteral("BorderStyle=0")})), QStringList());
    EXPECT_EQ(Drawn(u"FRAM", Frame({QStringLiteral("BorderStyle=2")})), QStringList());
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, FrameIsSolidAndUnfilledAfterAShape) {
    m_surface.SetDrawStyle(3);
    m_surface.SetDrawWidth(7);
    m_surface.SetFillStyle(0);
    EXPECT_EQ(Drawn(u"FRAM", Frame()), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(m_surface.FillStyle(), 1);
}

TEST_F(ElementRendering, UnknownKindDrawsNothing) {
    EXPECT_EQ(Drawn(u"GRID", Frame()), QStringList());
    EXPECT_EQ(Drawn(u"", Frame()), QStringList());
    EXPECT_EQ(Drawn(u"fram", Frame()), QStringList());
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, ElementThatIsNotPrintableIsLeftOut) {
    for (const char* printable : {"Printable=False", "Printable=0"})
        EXPECT_EQ(Drawn(u"FRAM", Frame({QString::fromLatin1(printable)})), QStringList());
    for (const char* printable : {"Printable=True", "Printable=", "Printable=perhaps"})
        EXPECT_EQ(Drawn(u"FRAM", Frame({QString::fromLatin1(printable)})).size(), 4);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, FailureIsLoggedAndCostsOneStep) {
    EXPECT_EQ(Drawn(u"FRAM", Frame({QStringLiteral("-BorderStyle")})), QStringList());
    EXPECT_EQ(Drawn(u"FRAM", Frame({QStringLiteral("-Width")})), QStringList());
    EXPECT_EQ(LogRows(),
              QStringList({QStringLiteral("PrintControl|5: Invalid procedure call or argument|"),
                           QStringLiteral("PrintControl|5: Invalid procedure call or argument|")}));
}

TEST_F(ElementRendering, LineRunsFromCornerToCorner) {
    EXPECT_EQ(Drawn(u"LINE", Line()), QStringList(QStringLiteral("line 100,200 3085,685 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Direction=1")})),
              QStringList(QStringLiteral("line 100,685 3085,200 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Direction=2")})), QStringList());
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Direction=00")})), QStringList());
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, NearlyStraightLineBecomesStraight) {
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Width=30"), QStringLiteral("Height=2000")})),
              QStringList(QStringLiteral("line 100,200 100,2185 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Width=75"), QStringLiteral("Height=2000")})),
              QStringList(QStringLiteral("line 100,200 100,2185 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Width=76"), QStringLiteral("Height=2000")})),
              QStringList(QStringLiteral("line 100,200 161,2185 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Height=75")})),
              QStringList(QStringLiteral("line 100,200 3085,200 pen 15/0/0x0000ff")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("Width=0"), QStringLiteral("Height=0")})),
              QStringList(QStringLiteral("line 100,200 100,200 pen 15/0/0x0000ff")));
}

TEST_F(ElementRendering, LineHasThePatternOfItsBorderType) {
    const auto styleOf = [&](int type) {
        (void)Drawn(u"LINE", Line({QStringLiteral("BorderType=%1").arg(type)}));
        return m_surface.DrawStyle();
    };
    for (int type = 1; type <= 5; ++type)
        EXPECT_EQ(styleOf(type), type - 1);
    EXPECT_EQ(styleOf(6), 6);
    m_surface.SetDrawStyle(2);
    EXPECT_EQ(styleOf(7), 2) << "other values leave the pen as it was";
    EXPECT_EQ(LogRows(), QStringList());
    EXPECT_EQ(styleOf(0), 2);
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintControl|380: Invalid property value|")));
}

TEST_F(ElementRendering, PatternedLineOfOnePixelKeepsAPenOfOnePixelOnPaper) {
    InstallPrinter();
    const auto penOf = [&](const char* type, const char* width) {
        (void)Printed(u"LINE", Line({QString::fromLatin1(type), QString::fromLatin1(width)}));
        return int{m_printer.DrawWidth()};
    };
    EXPECT_EQ(penOf("BorderType=1", "BorderWidth=1"), 6);
    EXPECT_EQ(penOf("BorderType=2", "BorderWidth=1"), 1);
    EXPECT_EQ(penOf("BorderType=6", "BorderWidth=1"), 1);
    EXPECT_EQ(penOf("BorderType=2", "BorderWidth=2"), 12) << "12.5 is cut, not rounded";
    EXPECT_EQ(penOf("BorderType=1", "BorderWidth=3"), 18);
    EXPECT_EQ(penOf("BorderType=1", "BorderWidth=0"), 1);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, PenTooWideForSixteenBitsLeavesTheOldOne) {
    InstallPrinter();
    m_printer.SetDrawWidth(4);
    EXPECT_EQ(Printed(u"LINE", Line({QStringLiteral("BorderWidth=6000")})).size(), 1);
    EXPECT_EQ(m_printer.DrawWidth(), 4);
    EXPECT_EQ(LogRows().first(), QStringLiteral("PrintControl|6: Overflow|"));
}

TEST_F(ElementRendering, LineAfterAMissingKeyIsStillDrawn) {
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("-BorderWidth")})),
              QStringList(QStringLiteral("line 100,200 3085,685 pen 15/0/0x0000ff")));
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintControl|5: Invalid procedure call or argument|")));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("-BorderColor")})), QStringList());
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("-Direction")})), QStringList());
    EXPECT_EQ(LogRows().size(), 3);
}

TEST_F(ElementRendering, CoordinateOfALineThatFailsIsZeroAndTheOthersStay) {
    const QString error = QStringLiteral("PrintControl|5: Invalid procedure call or argument|");
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("-Height")})),
              QStringList(QStringLiteral("line 100,200 3085,0 pen 15/0/0x0000ff")));
    EXPECT_EQ(LogRows(), QStringList(error));
    EXPECT_EQ(Drawn(u"LINE", Line({QStringLiteral("-AbsLeft")})),
              QStringList(QStringLiteral("line 0,200 0,685 pen 15/0/0x0000ff")));
    EXPECT_EQ(LogRows(), QStringList({error, error, error})) << "it is read for both ends";
}

TEST_F(ElementRendering, ShapeIsDrawnByItsNumber) {
    EXPECT_EQ(Drawn(u"SHAP", Shape()),
              QStringList(QStringLiteral("box 100,200 3100,700 pen 15/0/0x0000ff fill 0/0x00ff00")));
    EXPECT_EQ(Drawn(u"SHAP", Shape({QStringLiteral("Shape=1")})),
              QStringList(QStringLiteral("box 1350,200 1850,700 pen 15/0/0x0000ff fill 0/0x00ff00")));
    EXPECT_EQ(Drawn(u"SHAP", Shape({QStringLiteral("Shape=2")})),
              QStringList(QStringLiteral("ellipse 1600,450 1500x250 pen 15/0/0x0000ff fill 0/0x00ff00")));
    EXPECT_EQ(Drawn(u"SHAP", Shape({QStringLiteral("Shape=3")})),
              QStringList(QStringLiteral("ellipse 1600,450 250x250 pen 15/0/0x0000ff fill 0/0x00ff00")));
    for (const char* other : {"Shape=4", "Shape=5", "Shape=7", "Shape=-1"})
        EXPECT_EQ(Drawn(u"SHAP", Shape({QString::fromLatin1(other)})), QStringList()) << other;
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, ShapeKeepsItsFillNumberAsItStands) {
    EXPECT_EQ(Drawn(u"SHAP", Shape({QStringLiteral("FillStyle=7"), QStringLiteral("FillColor=1")})),
              QStringList(QStringLiteral("box 100,200 3100,700 pen 15/0/0x0000ff fill 7/0x000001")));
    EXPECT_EQ(Drawn(u"SHAP", Shape({QStringLiteral("FillStyle=99")})).size(), 1);
    EXPECT_EQ(m_surface.FillStyle(), 99);
}

TEST_F(ElementRendering, LabelIsItsTextAndNothingElse) {
    EXPECT_EQ(Drawn(u"LABE", Label()),
              QStringList(QStringLiteral("text 115,245 \"Name\" Arial 10 0x0000ff")));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, LabelStandsHigherOnScreenWhereAPrinterIs) {
    InstallPrinter();
    EXPECT_EQ(Drawn(u"LABE", Label()),
              QStringList(QStringLiteral("text 115,200 \"Name\" Arial 10 0x0000ff")));
    EXPECT_EQ(Printed(u"LABE", Label()),
              QStringList(QStringLiteral("text 115,245 \"Name\" Arial 10 0x0000ff")));
}

TEST_F(ElementRendering, LabelHasABoxOrARule) {
    EXPECT_EQ(Drawn(u"LABE", Label({QStringLiteral("BorderStyle=1")})),
              BoxLines(100, 200, 3085, 685) << QStringLiteral("text 115,245 \"Name\" Arial 10 0x0000ff"));
    EXPECT_EQ(Drawn(u"LABE", Label({QStringLiteral("BorderStyle=2")})),
              QStringList({QStringLiteral("line 100,670 3085,670 pen 15/0/0x000000"),
                           QStringLiteral("text 115,245 \"Name\" Arial 10 0x0000ff")}))
        << "30 twips above the bottom edge";
}

TEST_F(ElementRendering, LabelHasItsStylesByTheWordForTrue) {
    EXPECT_EQ(
        Drawn(u"LABE", Label({QStringLiteral("FontBold=True"), QStringLiteral("FontItalic=-1"),
                              QStringLiteral("FontStrikethru=True"), QStringLiteral("FontUnderline=true")})),
        QStringList(QStringLiteral("text 115,245 \"Name\" Arial 10 bold strikethru 0x0000ff")));
}

TEST_F(ElementRendering, LabelSetsTheAlignmentOfItsText) {
    InstallPrinter();
    m_metrics.SetWidth(120);
    EXPECT_EQ(Printed(u"LABE", Label({QStringLiteral("Alignment=1")})).size(), 1);
    EXPECT_EQ(m_application->printing.AlignmentMode, 1);
    EXPECT_EQ(Printed(u"LABE", Label({QStringLiteral("-Alignment")})).size(), 2);
    EXPECT_EQ(m_application->printing.AlignmentMode, 1) << "it stays as it was";
    EXPECT_EQ(LogRows().size(), 1);
}

TEST_F(ElementRendering, LabelPastThePagesEdgeShowsItsBorderButNoText) {
    m_surface.SetWidth(3100);
    EXPECT_EQ(Drawn(u"LABE", Label({QStringLiteral("BorderStyle=1")})).size(), 5);
    m_surface.SetWidth(3099);
    EXPECT_EQ(Drawn(u"LABE", Label({QStringLiteral("BorderStyle=1")})), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, LabelPastSixteenBitsHasNoText) {
    EXPECT_EQ(Drawn(u"LABE", Label({QStringLiteral("AbsTop=32768")})), QStringList());
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintControl|6: Overflow|")));
}

TEST_F(ElementRendering, FieldsAndCheckBoxesAreKeptForTheirValues) {
    EXPECT_EQ(Drawn(u"FIEL", {QStringLiteral("Name=first")}), QStringList());
    EXPECT_EQ(Drawn(u"CHEC", {QStringLiteral("Name=tick")}), QStringList());
    ASSERT_EQ(m_document.PrintElements.Count(), 2);
    EXPECT_EQ(m_document.PrintElements.At(u"FIRST")->At(u"Key"), QStringLiteral("F"));
    EXPECT_EQ(m_document.PrintElements.At(u"tick")->At(u"Key"), QStringLiteral("C"));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, SecondElementOfANameIsLoggedAndTheFirstStays) {
    (void)Drawn(u"FIEL", {QStringLiteral("Name=a"), QStringLiteral("Width=1")});
    (void)Drawn(u"CHEC", {QStringLiteral("Name=A"), QStringLiteral("Width=2")});
    EXPECT_EQ(m_document.PrintElements.Count(), 1);
    EXPECT_EQ(m_document.PrintElements.At(u"a")->At(u"Width"), QStringLiteral("1"));
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral(
                             "PrintControl|457: This key is already associated with an element of "
                             "this collection|")));
}

TEST_F(ElementRendering, FieldThatIsNotPrintableIsNotKept) {
    (void)Drawn(u"FIEL", {QStringLiteral("Name=a"), QStringLiteral("Printable=False")});
    (void)Drawn(u"CHEC", {QStringLiteral("Name=b"), QStringLiteral("Printable=False")});
    EXPECT_TRUE(m_document.PrintElements.IsEmpty());
}

TEST_F(ElementRendering, PictureIsStretchedOnePixelSmallerThanItsBox) {
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    EXPECT_EQ(Drawn(u"PICT", PictureBox()),
              QStringList(QStringLiteral("picture 100,200 2985x485 from 0,0 300x150 of 1 items")));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, FramedPictureStandsOnePixelInside) {
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("BorderStyle=1")})),
              BoxLines(100, 200, 3100, 700)
                  << QStringLiteral("picture 115,215 2985x485 from 0,0 300x150 of 1 items"));
}

TEST_F(ElementRendering, PictureOfThePrinterOpensItsDocument) {
    InstallPrinter();
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    EXPECT_EQ(Printed(u"PICT", PictureBox({QStringLiteral("BorderStyle=1")})),
              BoxLines(100, 200, 3100, 700, kPrinterPen)
                  << QStringLiteral("picture 115,215 2985x485 from 0,0 300x150 of 1 items"));
}

TEST_F(ElementRendering, MissingPictureLeavesItsFrameAndNoMessage) {
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("BorderStyle=1")})), BoxLines(100, 200, 3100, 700));
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("Picture=")})), QStringList());
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("Picture=Z:\\gone\\logo.png")})), QStringList());
    EXPECT_EQ(LogRows(), QStringList());
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_EQ(m_ui.beeps, 0);
}

TEST_F(ElementRendering, MissingPictureDoesNotShowTheOneBefore) {
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    EXPECT_EQ(Drawn(u"PICT", PictureBox()).size(), 1);
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("Picture=gone.png")})), QStringList());
}

TEST_F(ElementRendering, PictureFromElsewhereIsCopiedToTheForm) {
    WritePicture(QStringLiteral("elsewhere/logo.png"), 20, 10);
    const QString picture = QStringLiteral("Picture=") + Path(QStringLiteral("elsewhere/logo.png"));
    EXPECT_EQ(Drawn(u"PICT", PictureBox({picture})).size(), 1);
    EXPECT_EQ(Read(QStringLiteral("temporary/logo.png")), Read(QStringLiteral("elsewhere/logo.png")));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, PictureBesideTheFormIsFoundByItsBareName) {
    WritePicture(QStringLiteral("forms/logo.png"), 20, 10);
    EXPECT_EQ(Drawn(u"PICT", PictureBox()).size(), 1);
    EXPECT_EQ(Read(QStringLiteral("temporary/logo.png")), Read(QStringLiteral("forms/logo.png")));
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("Picture=sub\\other.png")})), QStringList());
}

TEST_F(ElementRendering, PictureOfTheFormWinsOverTheNamedFile) {
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    WritePicture(QStringLiteral("elsewhere/logo.png"), 40, 40);
    const QString picture = QStringLiteral("Picture=") + Path(QStringLiteral("elsewhere/logo.png"));
    EXPECT_EQ(Drawn(u"PICT", PictureBox({picture})),
              QStringList(QStringLiteral("picture 100,200 2985x485 from 0,0 300x150 of 1 items")));
}

TEST_F(ElementRendering, FileThatIsNoPictureIsNeverCopied) {
    const QString secret = Write(QStringLiteral("elsewhere/secret.txt"), "no picture");
    EXPECT_EQ(Drawn(u"PICT", PictureBox({QStringLiteral("Picture=") + secret})), QStringList());
    EXPECT_FALSE(FileExists(m_document.MyTempDir + QStringLiteral("secret.txt")));
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintControl|481: Invalid picture|")));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(ElementRendering, PageTakesTheSizeOfItsPaper) {
    Write(QStringLiteral("papersizes.csv"),
          "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n9,2,16838,11906\r\n");
    m_application->LoadPaperTable();
    EXPECT_EQ(Drawn(u"PAGE", {QStringLiteral("Orientation=2"), QStringLiteral("PaperSize=9")}),
              QStringList());
    EXPECT_EQ(m_application->CurrentOrientation, 2);
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
    EXPECT_EQ(m_surface.Width(), 16838);
    EXPECT_EQ(m_surface.Height(), 11906);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, PageSetsUpThePrinterForAPreview) {
    InstallPrinter();
    (void)Drawn(u"PAGE", {QStringLiteral("Orientation=2"), QStringLiteral("PaperSize=8")});
    EXPECT_EQ(m_printer.calls, QStringList({QStringLiteral("EndDoc"), QStringLiteral("Orientation=2"),
                                            QStringLiteral("PaperSize=8")}));
    EXPECT_EQ(m_surface.Width(), 23811);
    EXPECT_EQ(m_surface.Height(), 16838);
}

TEST_F(ElementRendering, PageOnPaperKeepsThePrintersSize) {
    InstallPrinter();
    m_printer.SetBkMode(2);
    EXPECT_EQ(Printed(u"PAGE", {QStringLiteral("Orientation=1"), QStringLiteral("PaperSize=11")}),
              QStringList());
    EXPECT_EQ(m_printer.calls, QStringList({QStringLiteral("EndDoc"), QStringLiteral("Orientation=1"),
                                            QStringLiteral("PaperSize=11")}));
    EXPECT_EQ(m_printer.BkMode(), 1);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(ElementRendering, PageWithAPaperThatThePrinterLacksIsLogged) {
    InstallPrinter();
    (void)Printed(u"PAGE", {QStringLiteral("Orientation=3"), QStringLiteral("PaperSize=77")});
    EXPECT_EQ(LogRows(), QStringList({QStringLiteral("PrintControl|380: Invalid property value|"),
                                      QStringLiteral("PrintControl|380: Invalid property value|")}));
    EXPECT_EQ(m_application->CurrentPaperSize, 77);
}

TEST_F(ElementRendering, PageWithoutPaperKeepsTheOneBefore) {
    InstallPrinter();
    m_application->CurrentPaperSize = 11;
    (void)Printed(u"PAGE", {QStringLiteral("Orientation=1")});
    EXPECT_EQ(m_printer.calls.last(), QStringLiteral("PaperSize=11"));
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintControl|5: Invalid procedure call or argument|")));
}

TEST_F(ElementRendering, PageThatIsNotPrintableIsNotApplied) {
    InstallPrinter();
    (void)Printed(u"PAGE", {QStringLiteral("Orientation=1"), QStringLiteral("PaperSize=11"),
                            QStringLiteral("Printable=False")});
    EXPECT_EQ(m_printer.calls, QStringList());
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
}

TEST_F(ElementRendering, WithoutAPrinterInstalledNoneIsTouched) {
    InstallNoPrinter();
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    (void)Drawn(u"PAGE", {QStringLiteral("Orientation=1"), QStringLiteral("PaperSize=9")});
    EXPECT_EQ(Drawn(u"FRAM", Frame()).size(), 4);
    EXPECT_EQ(Drawn(u"LINE", Line()).size(), 1);
    EXPECT_EQ(Drawn(u"SHAP", Shape()).size(), 1);
    EXPECT_EQ(Drawn(u"LABE", Label()).size(), 1);
    EXPECT_EQ(Drawn(u"PICT", PictureBox()).size(), 1);
    EXPECT_EQ(m_printers.touches, 0);
}

TEST_F(ElementRendering, AdjustsShiftWhatIsDrawn) {
    m_application->printing.PrintXAdjust = 10;
    m_application->printing.PrintYAdjust = 20;
    WritePicture(QStringLiteral("temporary/logo.png"), 20, 10);
    EXPECT_EQ(Drawn(u"FRAM", Frame()), BoxLines(110, 220, 3095, 705));
    EXPECT_EQ(Drawn(u"SHAP", Shape()),
              QStringList(QStringLiteral("box 110,220 3110,720 pen 15/0/0x0000ff fill 0/0x00ff00")));
    EXPECT_EQ(Drawn(u"PICT", PictureBox()),
              QStringList(QStringLiteral("picture 110,220 2985x485 from 0,0 300x150 of 1 items")));
    EXPECT_EQ(Drawn(u"LABE", Label()), QStringList(QStringLiteral("text 115,245 \"Name\" Arial 10 0x0000ff")))
        << "texts are shifted on a printer only";
    InstallPrinter();
    EXPECT_EQ(Printed(u"LABE", Label()),
              QStringList(QStringLiteral("text 125,265 \"Name\" Arial 10 0x0000ff")));
}

}  // namespace
}  // namespace sheetwright
