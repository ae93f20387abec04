#include "print/text_box.h"

#include "print/device.h"
#include "support/fixed_metrics.h"
#include "support/item_text.h"
#include "support/recording_printer.h"
#include "support/recording_surface.h"
#include "support/test_application.h"

#include <QFile>

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

// A surface that has its own mind about fonts, and remembers what it was asked for.
class WilfulSurface : public RecordingSurface {
  public:
    using RecordingSurface::RecordingSurface;

    QString reportedName;   // what it says it has, when not empty
    double coarseness = 0;  // sizes are rounded up to a multiple of this
    QStringList namesAsked;
    int sizesAsked = 0;

    [[nodiscard]] QString FontName() const override {
        return reportedName.isEmpty() ? RecordingSurface::FontName() : reportedName;
    }
    void SetFontName(const QString& family) override {
        namesAsked << family;
        RecordingSurface::SetFontName(family);
    }
    [[nodiscard]] double FontSize() const override {
        const double size = RecordingSurface::FontSize();
        return coarseness > 0 ? std::ceil(size / coarseness) * coarseness : size;
    }
    void SetFontSize(double points) override {
        ++sizesAsked;
        RecordingSurface::SetFontSize(points);
    }
};

class DrawTextBoxTest : public ApplicationTest {
  protected:
    PrintState& State() { return m_application->printing; }
    void InstallPrinter() { State().printers = &m_printers; }
    void Draw(Device& device, const QString& text, TextBox box) {
        DrawTextBox(*m_application, device, m_measurer, text, m_font, 0, box);
    }
    void Set(const QString& key, const QString& value) const {
        Settings(m_application->settings.Folder())
            .Write(m_application->Title, QStringLiteral("frmPrefs"), key, value);
    }
    // Place and text of each line.
    static QStringList LinesOf(const Recording& recording) {
        QStringList lines;
        for (const DrawnItem& item : recording.Items()) {
            const auto* text = std::get_if<DrawnText>(&item);
            lines << (text == nullptr ? TextOf(item) : item_text::Pair(text->x, text->y) + u' ' + text->text);
        }
        return lines;
    }
    QStringList Lines() const { return LinesOf(m_surface.recording); }
    QStringList PrintedLines() const {
        return m_printer.documents.empty() ? QStringList() : LinesOf(m_printer.documents.back().recording);
    }

    FixedMetrics m_metrics{120, 240};
    Measurer m_measurer{m_metrics};
    RecordingSurface m_surface{m_metrics};
    RecordingPrinter m_printer{m_metrics};
    RecordingPrinters m_printers{m_printer};
    FontSpec m_font{QStringLiteral("Arial"), 10};
};

constexpr TextBox kBox{.top = 1000, .left = 500, .height = 480, .width = 1200};

TEST_F(DrawTextBoxTest, TextStandsThreePixelsDownAndOneToTheRight) {
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(Lines(), QStringList(QStringLiteral("515,1045 Text")));
}

TEST_F(DrawTextBoxTest, TextHasTheFontAndColourThatAreAskedFor) {
    m_font = {QStringLiteral("Courier New"), 8.5, true, true, true, true};
    DrawTextBox(*m_application, m_surface, m_measurer, QStringLiteral("Text"), m_font, 0x0000FF, kBox);
    EXPECT_EQ(TextsOf(m_surface.recording),
              QStringList(QStringLiteral(
                  "text 515,1045 \"Text\" Courier New 8.5 bold italic underline strikethru 0x0000ff")));
    EXPECT_EQ(m_measurer.FontName(), QStringLiteral("Courier New"));
    EXPECT_EQ(m_measurer.FontSize(), 8.5);
    EXPECT_TRUE(m_measurer.FontBold() && m_measurer.FontItalic() && m_measurer.FontUnderline() &&
                m_measurer.FontStrikethru());
}

TEST_F(DrawTextBoxTest, MessagesArePumpedOnceForEachBox) {
    Draw(m_surface, QStringLiteral("a\r\nb"), kBox);
    EXPECT_EQ(m_ui.pumps, 1);
    Draw(m_surface, QString(), kBox);
    EXPECT_EQ(m_ui.pumps, 2);
}

TEST_F(DrawTextBoxTest, BackgroundsAreTransparent) {
    m_surface.FontTransparent = false;
    m_surface.SetBkMode(2);
    Draw(m_surface, QString(), kBox);
    EXPECT_TRUE(m_surface.FontTransparent);
    EXPECT_EQ(m_surface.BkMode(), 1);
}

TEST_F(DrawTextBoxTest, EmptyTextDrawsNothing) {
    Draw(m_surface, QString(), kBox);
    EXPECT_EQ(Lines(), QStringList());
    InstallPrinter();
    Draw(m_printer, QString(), kBox);
    EXPECT_FALSE(m_printer.IsOpen());
}

TEST_F(DrawTextBoxTest, OnAPictureSurfaceWithAPrinterInstalledTextStandsHigher) {
    InstallPrinter();
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(Lines(), QStringList(QStringLiteral("515,1000 Text")));
}

TEST_F(DrawTextBoxTest, OnThePrinterOffsetsAndAdjustsMoveTheText) {
    InstallPrinter();
    Set(QStringLiteral("XOffset"), QStringLiteral("30"));
    Set(QStringLiteral("YOffset"), QStringLiteral("-45"));
    State().PrintXAdjust = 100;
    State().PrintYAdjust = -200.25;
    Draw(m_printer, QStringLiteral("Text"), kBox);
    EXPECT_EQ(PrintedLines(), QStringList(QStringLiteral("645,800 Text")));
}

TEST_F(DrawTextBoxTest, OnAPictureSurfaceOffsetsAndAdjustsDoNotCount) {
    Set(QStringLiteral("XOffset"), QStringLiteral("30"));
    State().PrintXAdjust = 100;
    State().PrintYAdjust = 100;
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(Lines(), QStringList(QStringLiteral("515,1045 Text")));
    Draw(m_printer, QStringLiteral("Text"), kBox);
    EXPECT_EQ(PrintedLines(), QStringList(QStringLiteral("515,1045 Text")));
}

TEST_F(DrawTextBoxTest, OffsetIsReadAsANumberAsFarAsItIsOne) {
    InstallPrinter();
    Set(QStringLiteral("XOffset"), QStringLiteral("12-3"));
    Set(QStringLiteral("YOffset"), QStringLiteral("-"));
    Draw(m_printer, QStringLiteral("Text"), kBox);
    EXPECT_EQ(PrintedLines(), QStringList(QStringLiteral("527,1045 Text")));
}

TEST_F(DrawTextBoxTest, ChangedOffsetCountsForTheNextBox) {
    InstallPrinter();
    Draw(m_printer, QStringLiteral("a"), kBox);
    for (const char* offset : {"10", "20", "30"}) {
        Set(QStringLiteral("XOffset"), QString::fromLatin1(offset));
        Draw(m_printer, QStringLiteral("a"), kBox);
    }
    ASSERT_TRUE(
        QFile::remove(m_application->settings.Folder() + m_application->Title + QStringLiteral(".ini")));
    Draw(m_printer, QStringLiteral("a"), kBox);
    EXPECT_EQ(PrintedLines(), (QStringList{QStringLiteral("515,1045 a"), QStringLiteral("525,1045 a"),
                                           QStringLiteral("535,1045 a"), QStringLiteral("545,1045 a"),
                                           QStringLiteral("515,1045 a")}));
}

TEST_F(DrawTextBoxTest, WithNoPrinterInstalledThePrinterIsNeverAskedFor) {
    InstallPrinter();
    m_printers.count = 0;
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(m_printers.touches, 0);
    EXPECT_EQ(Lines(), QStringList(QStringLiteral("515,1045 Text")));
}

TEST_F(DrawTextBoxTest, BoxThatEndsAtThePageEdgePrints) {
    Draw(m_surface, QStringLiteral("Text"),
         {.top = 16838 - 480, .left = 11906 - 1200, .height = 480, .width = 1200});
    EXPECT_EQ(Lines(), QStringList(QStringLiteral("10721,16403 Text")));
}

TEST_F(DrawTextBoxTest, BoxThatPassesThePageEdgeByOneTwipPrintsNoText) {
    Draw(m_surface, QStringLiteral("Text"), {.top = 0, .left = 11906 - 1199, .height = 480, .width = 1200});
    Draw(m_surface, QStringLiteral("Text"), {.top = 16838 - 479, .left = 0, .height = 480, .width = 1200});
    EXPECT_EQ(Lines(), QStringList());
    EXPECT_EQ(m_ui.pumps, 2);
}

TEST_F(DrawTextBoxTest, AdjustsDontCountForThePageEdge) {
    InstallPrinter();
    State().PrintXAdjust = 600;
    State().PrintYAdjust = 600;
    Draw(m_printer, QStringLiteral("Text"),
         {.top = 16838 - 480, .left = 11906 - 1200, .height = 480, .width = 1200});
    EXPECT_EQ(PrintedLines(), QStringList(QStringLiteral("11321,17003 Text")));
}

TEST_F(DrawTextBoxTest, PlacePast16BitsIsAnOverflow) {
    constexpr std::int16_t kFarthest = std::numeric_limits<std::int16_t>::max();
    EXPECT_EQ(FailureOf([&] { Draw(m_surface, QStringLiteral("a"), {.top = kFarthest - 44}); }), 6);
    EXPECT_EQ(FailureOf([&] { Draw(m_surface, QStringLiteral("a"), {.left = kFarthest - 14}); }), 6);
    EXPECT_EQ(FailureOf([&] {
                  Draw(m_surface, QStringLiteral("a"), {.top = kFarthest - 45, .left = kFarthest - 15});
              }),
              std::nullopt);
    InstallPrinter();
    State().PrintYAdjust = 40'000;
    EXPECT_EQ(FailureOf([&] { Draw(m_printer, QStringLiteral("a"), kBox); }), 6);
}

TEST_F(DrawTextBoxTest, FontThatTheSurfaceLacksBecomesArial) {
    m_metrics.SetFamilies({QStringLiteral("Arial"), QStringLiteral("Times New Roman")});
    m_surface.SetFontName(QStringLiteral("Times New Roman"));
    m_font.family = QStringLiteral("No Such Font");
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(m_surface.FontName(), QStringLiteral("Arial"));
    EXPECT_EQ(Lines().size(), 1);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(DrawTextBoxTest, MeasurerTakesAnyFontSoThatLinesNeverDependOnTheTextBefore) {
    m_metrics.SetFamilies({QStringLiteral("Arial"), QStringLiteral("Times New Roman")});
    m_measurer.SetFontName(QStringLiteral("Times New Roman"));
    m_font.family = QStringLiteral("No Such Font");
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(m_measurer.FontName(), QStringLiteral("No Such Font"));
}

TEST_F(DrawTextBoxTest, WithNoFontAtAllTheOldOneStays) {
    m_metrics.SetFamilies({});
    m_font.family = QStringLiteral("No Such Font");
    Draw(m_surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(Lines().size(), 1);
}

TEST_F(DrawTextBoxTest, SurfaceThatReportsAnotherNameIsAskedAgainOverCourierNew) {
    WilfulSurface surface(m_metrics);
    surface.reportedName = QStringLiteral("Helvetica");
    Draw(surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(surface.namesAsked,
              (QStringList{QStringLiteral("Arial"), QStringLiteral("Courier New"), QStringLiteral("Arial")}));
}

TEST_F(DrawTextBoxTest, SizeStepsDownUntilItIsNotTooLarge) {
    WilfulSurface surface(m_metrics);
    surface.coarseness = 0.75;
    Draw(surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(surface.FontSize(), 9.75);
    EXPECT_EQ(surface.sizesAsked, 27);  // 10 twice, then 9.99 down to 9.75
}

TEST_F(DrawTextBoxTest, StepsDownNoFurtherThanFive) {
    WilfulSurface surface(m_metrics);
    surface.coarseness = 50;
    Draw(surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(surface.FontSize(), 50);
    EXPECT_EQ(surface.sizesAsked, 502);
    EXPECT_EQ(LinesOf(surface.recording).size(), 1);
}

TEST_F(DrawTextBoxTest, SmallSizeThatComesOutLargerStands) {
    WilfulSurface surface(m_metrics);
    surface.coarseness = 5;
    m_font.size = 4;
    Draw(surface, QStringLiteral("Text"), kBox);
    EXPECT_EQ(surface.sizesAsked, 1);
}

TEST_F(DrawTextBoxTest, MeasurerThatIsTheDeviceIsSetOnce) {
    WilfulSurface surface(m_metrics);
    DrawTextBox(*m_application, surface, surface, QStringLiteral("Text"), m_font, 0, kBox);
    EXPECT_EQ(surface.sizesAsked, 1);
    EXPECT_EQ(surface.namesAsked, QStringList(QStringLiteral("Arial")));
}

TEST_F(DrawTextBoxTest, SizeThatCantBeIsAFailure) {
    for (const double size : {0.0, -1.0, 2161.0}) {
        m_font.size = size;
        EXPECT_EQ(FailureOf([&] { Draw(m_surface, QStringLiteral("a"), kBox); }), 380) << size;
    }
    EXPECT_EQ(Lines(), QStringList());
}

class PrintedLinesTest : public DrawTextBoxTest {
  protected:
    // In a box at the page's corner; texts begin at 15,45.
    QStringList LinesIn(std::int16_t width, std::int16_t height, const QString& text) {
        m_surface.recording.Clear();
        Draw(m_surface, text, {.height = height, .width = width});
        return Lines();
    }
    QStringList PrintedIn(std::int16_t width, std::int16_t height, const QString& text) {
        m_printer.documents.clear();
        m_printer.EndDoc();
        Draw(m_printer, text, {.height = height, .width = width});
        return PrintedLines();
    }
};

TEST_F(PrintedLinesTest, FollowEachOtherFromTheSameLeftEdge) {
    EXPECT_EQ(LinesIn(1200, 960, QStringLiteral("a\r\n\r\nb")),
              (QStringList{QStringLiteral("15,45 a"), QStringLiteral("15,525 b")}));
}

TEST_F(PrintedLinesTest, LinesThatDontFitAreDropped) {
    EXPECT_EQ(LinesIn(1200, 480, QStringLiteral("a\r\nb\r\nc")),
              (QStringList{QStringLiteral("15,45 a"), QStringLiteral("15,285 b")}));
    EXPECT_EQ(LinesIn(1200, 719, QStringLiteral("a\r\nb\r\nc")).size(), 2);
    EXPECT_EQ(LinesIn(1200, 720, QStringLiteral("a\r\nb\r\nc")).size(), 3);
}

TEST_F(PrintedLinesTest, HeightBelowOneLineHoldsOne) {
    EXPECT_EQ(LinesIn(1200, 10, QStringLiteral("a\r\nb")), QStringList(QStringLiteral("15,45 a")));
    EXPECT_EQ(LinesIn(1200, 0, QStringLiteral("a\r\nb")), QStringList(QStringLiteral("15,45 a")));
}

TEST_F(PrintedLinesTest, OnAPictureSurfaceTheLastLineMayLack30TwipsWithAPrinterInstalled) {
    const QString text = QStringLiteral("a\r\nb\r\nc");
    EXPECT_EQ(LinesIn(1200, 450, text).size(), 1);
    InstallPrinter();
    EXPECT_EQ(LinesIn(1200, 450, text).size(), 2);
    EXPECT_EQ(LinesIn(1200, 449, text).size(), 1);
    EXPECT_EQ(LinesIn(1200, 210, text).size(), 1);
    EXPECT_EQ(LinesIn(1200, 480, text).size(), 2);
    EXPECT_EQ(PrintedIn(1200, 450, text).size(), 1);
    EXPECT_EQ(PrintedIn(1200, 480, text).size(), 2);
}

TEST_F(PrintedLinesTest, TextWrapsAtItsBox) {
    EXPECT_EQ(LinesIn(600, 960, QStringLiteral("one abcdefgh")),
              (QStringList{QStringLiteral("15,45 one"), QStringLiteral("15,285 abcd-"),
                           QStringLiteral("15,525 efgh")}));
}

TEST_F(PrintedLinesTest, BoxThatHoldsNotEvenAHyphenPrintsNothing) {
    EXPECT_EQ(LinesIn(119, 960, QStringLiteral("one two")), QStringList());
}

TEST_F(PrintedLinesTest, LineBreakAtTheVeryEndPrintsNothingMore) {
    EXPECT_EQ(LinesIn(1200, 960, QStringLiteral("a\r\n")), QStringList(QStringLiteral("15,45 a")));
    EXPECT_EQ(m_surface.CurrentY, 45 + 240);
    EXPECT_EQ(LinesIn(1200, 960, QStringLiteral("\r\n")), QStringList());
    EXPECT_EQ(m_surface.CurrentY, 45 + 240);
}

TEST_F(PrintedLinesTest, LoneCrBreaksOnlyWhereNoPairFollows) {
    EXPECT_EQ(
        LinesIn(1200, 960, QStringLiteral("a\rb\rc")),
        (QStringList{QStringLiteral("15,45 a"), QStringLiteral("15,285 b"), QStringLiteral("15,525 c")}));
    EXPECT_EQ(
        LinesIn(1200, 960, QStringLiteral("a\rb\r\nc\rd")),
        (QStringList{QStringLiteral("15,45 a\rb"), QStringLiteral("15,285 c"), QStringLiteral("15,525 d")}));
}

TEST_F(PrintedLinesTest, AlignRightAtTheBoxWidth) {
    State().AlignmentMode = 1;
    EXPECT_EQ(LinesIn(1200, 480, QStringLiteral("abc\r\nabcd")),
              (QStringList{QStringLiteral("855,45 abc"), QStringLiteral("735,285 abcd")}));
    EXPECT_EQ(State().AlignmentMode, 1);
}

TEST_F(PrintedLinesTest, AlignInTheMiddle) {
    State().AlignmentMode = 2;
    EXPECT_EQ(LinesIn(1205, 480, QStringLiteral("abc\r\nabcd")),
              (QStringList{QStringLiteral("437.5,45 abc"), QStringLiteral("377.5,285 abcd")}));
}

TEST_F(PrintedLinesTest, OtherAlignmentsAreLeft) {
    for (const int mode : {0, 3, -1}) {
        State().AlignmentMode = static_cast<std::int16_t>(mode);
        EXPECT_EQ(LinesIn(1200, 240, QStringLiteral("abc")), QStringList(QStringLiteral("15,45 abc")));
    }
}

TEST_F(PrintedLinesTest, RightAlignedLineAsWideAsItsBoxStartsAtTheLeft) {
    State().AlignmentMode = 1;
    EXPECT_EQ(LinesIn(1200, 240, QStringLiteral("abcdefghij")),
              QStringList(QStringLiteral("15,45 abcdefghij")));
}

TEST_F(PrintedLinesTest, WidthsAreThoseOfTheMeasurerAndHeightsThoseOfTheDevice) {
    const FixedMetrics narrow(60, 100);
    RecordingSurface device(narrow);
    State().AlignmentMode = 1;
    Draw(device, QStringLiteral("abcdefghijklm"), {.height = 240, .width = 1200});
    EXPECT_EQ(LinesOf(device.recording),
              (QStringList{QStringLiteral("15,45 abcdefghi-"), QStringLiteral("735,145 jklm")}));
}

TEST_F(PrintedLinesTest, LineWithoutHeightIsAFailure) {
    m_metrics.SetLineHeight(0.2);
    EXPECT_EQ(FailureOf([&] { LinesIn(1200, 240, QStringLiteral("a")); }), 11);
    m_metrics.SetLineHeight(40'000);
    EXPECT_EQ(FailureOf([&] { LinesIn(1200, 240, QStringLiteral("a")); }), 6);
}

TEST_F(PrintedLinesTest, SizeOfAHugeTextDoesNotMatter) {
    EXPECT_EQ(LinesIn(1200, 240, QStringLiteral("word ").repeated(1'000'000)),
              QStringList(QStringLiteral("15,45 word word")));
    m_metrics.SetWidth(0);
    EXPECT_EQ(LinesIn(1200, 480, QStringLiteral("a\r").repeated(2'000'000)),
              (QStringList{QStringLiteral("15,45 a"), QStringLiteral("15,285 a")}));
}

}  // namespace
}  // namespace sheetwright
