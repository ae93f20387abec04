#include "print/text_painter.h"

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

class TextsTest : public ::testing::Test {
  protected:
    void Print(const QString& text, double x = 150, double y = 150) {
        surface.CurrentX = x;
        surface.CurrentY = y;
        surface.Print(text);
    }
    [[nodiscard]] QRect Ink(double dotsPerInch = 96) const { return InkOf(surface.Render(dotsPerInch)); }

    Fonts fonts;
    PictureSurface surface{fonts, 15'000, 1500};
};

TEST_F(TextsTest, TextStandsOnItsBaselineBelowItsTop) {
    surface.SetFontSize(12);
    Print(QStringLiteral("HHHH"));
    const QRect ink = Ink();
    EXPECT_NEAR(ink.bottom() + 1, std::round((150 + fonts.Ascent({QStringLiteral("Arial"), 12})) / 15), 1);
    EXPECT_NEAR(ink.height(), 16 * 0.7, 1.5);
    EXPECT_NEAR(ink.left(), 11, 1);
}

TEST_F(TextsTest, LongTextIsDrawnAsWideAsItWasMeasured) {
    const QString words = QStringLiteral("The quick brown fox jumps over the lazy dog. ").repeated(3);
    for (const double size : {7.0, 8.0, 8.25, 9.4, 11.0}) {
        surface.Cls();
        surface.SetFontSize(size);
        const QString text = words.left(100);
        Print(QStringLiteral("H"));
        const int alone = Ink().right();
        surface.Cls();
        Print(text + u'H');
        EXPECT_NEAR(Ink().right() - alone, surface.TextWidth(text) / 15, 1) << size;
    }
}

TEST_F(TextsTest, LayoutIsTheSameAtTwiceTheSize) {
    for (const double size : {7.0, 8.25, 10.0, 14.0}) {
        surface.Cls();
        surface.SetFontSize(size);
        Print(QStringLiteral("Invoice 4711 of the 3rd, illiterate WAVY"));
        const QRect once = Ink(96);
        const QRect twice = Ink(192);
        EXPECT_NEAR(twice.left(), 2 * once.left(), 2);
        EXPECT_NEAR(twice.right(), 2 * once.right(), 3);
        EXPECT_NEAR(twice.bottom(), 2 * once.bottom(), 3);
    }
}

TEST_F(TextsTest, ColourIsThatOfTheSurface) {
    surface.SetFontSize(40);
    surface.SetForeColor(0x0000FF);
    Print(QStringLiteral("I"));
    EXPECT_GT(CountOf(surface.Render(96), 0xFF0000), 50);
}

TEST_F(TextsTest, TickIsDrawnAndIsNoMissingSign) {
    surface.SetFontSize(24);
    surface.SetFontBold(true);
    surface.SetFontName(QStringLiteral("WingDings"));
    Print(QStringLiteral("\u00FC"));
    const QImage tick = surface.Render(96);
    EXPECT_FALSE(InkOf(tick).isNull());
    surface.Cls();
    Print(QStringLiteral("\uEFFF"));  // nothing has it
    EXPECT_NE(tick, surface.Render(96));
    surface.Cls();
    surface.SetFontName(QStringLiteral("DejaVu Sans"));
    Print(QStringLiteral("\u2713"));
    EXPECT_EQ(InkOf(tick).size(), Ink().size());
}

TEST_F(TextsTest, CharactersThatTheFontLacksShow) {
    surface.SetFontSize(20);
    for (const QString& text :
         {QStringLiteral("\u03A9"), QStringLiteral("\u6F22"),
          QStringLiteral("\u0645\u0631\u062D\u0628\u0627"), QStringLiteral("e\u0323")}) {
        surface.Cls();
        Print(text);
        EXPECT_NEAR(Ink().width(), surface.TextWidth(text) / 15, 7);
        EXPECT_GT(Ink().height(), 8);
    }
}

TEST_F(TextsTest, ArabicLettersAreJoined) {
    surface.SetFontSize(20);
    const QString word = QStringLiteral("\u0644\u0644\u0644");
    double apart = 0;
    for (const QChar& letter : word)
        apart += surface.TextWidth(QStringView(&letter, 1));
    EXPECT_LT(surface.TextWidth(word), apart);
}

TEST_F(TextsTest, UnderlineAndStrikethruSpanTheText) {
    surface.SetFontSize(10);
    Print(QStringLiteral("        "));
    EXPECT_TRUE(Ink().isNull());
    surface.SetFontUnderline(true);
    Print(QStringLiteral("        "));
    const QRect underline = Ink();
    EXPECT_NEAR(underline.width(), surface.TextWidth(u"        ") / 15, 1);
    EXPECT_EQ(underline.height(), 1);
    surface.Cls();
    surface.SetFontUnderline(false);
    surface.SetFontStrikethru(true);
    Print(QStringLiteral("        "));
    EXPECT_EQ(Ink().height(), 1);
    EXPECT_LT(Ink().top(), underline.top());
}

TEST_F(TextsTest, LineBreaksAndTabsAreBlanks) {
    surface.SetFontSize(12);
    Print(QStringLiteral("a\nb\tc"));
    const QImage breaks = surface.Render(96);
    surface.Cls();
    Print(QStringLiteral("a b c"));
    EXPECT_EQ(breaks, surface.Render(96));
}

TEST_F(TextsTest, EverySizeCanBeDrawn) {
    surface.SetFontSize(0.01);
    Print(QStringLiteral("Tiny"));
    EXPECT_TRUE(Ink().isNull());
    surface.SetFontSize(1);
    Print(QStringLiteral("Small"));
    EXPECT_FALSE(Ink().isNull());
    surface.Cls();
    surface.SetFontSize(2160);
    Print(QStringLiteral("H"), 0, -20'000);
    EXPECT_GT(CountOf(surface.Render(96), 0), 1000);
}

TEST_F(TextsTest, TextOfAMillionCharactersIsCutToThePage) {
    surface.SetFontSize(10);
    const QString text = QStringLiteral("ABCDEFGHIJ").repeated(100'000);
    Print(text);
    const QImage whole = surface.Render(96);
    surface.Cls();
    Print(text.left(1000));
    EXPECT_EQ(whole, surface.Render(96));
}

TEST_F(TextsTest, TextThatBeginsFarLeftOfThePageShowsWhatReachesIt) {
    surface.SetFontName(QStringLiteral("Courier New"));
    surface.SetFontSize(10);
    const QString text = QStringLiteral("ABCDEFGHIJ").repeated(10'000);
    const double begin = surface.TextWidth(QStringView(text).first(90'000));
    Print(text, -begin);
    const QRect cut = Ink();
    surface.Cls();
    Print(QStringLiteral("ABCDEFGHIJ").repeated(100), 0);
    EXPECT_EQ(cut, Ink());
}

TEST_F(TextsTest, PlacesOffThePageOrNotFiniteDrawNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Print(QStringLiteral("Text"), nan, 0);
    Print(QStringLiteral("Text"), 0, HUGE_VAL);
    Print(QStringLiteral("Text"), 2e9, 2e9);
    Print(QStringLiteral("Text"), -2e9, 0);
    EXPECT_TRUE(Ink().isNull());
}

TEST_F(TextsTest, PdfTakesEverySizeAndScript) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    writer.setResolution(1440);
    QPainter painter(&writer);
    surface.SetFontUnderline(true);
    for (const double size : {0.01, 7.0, 8.25, 8.333, 2160.0}) {
        surface.SetFontSize(size);
        Print(QStringLiteral("Text \u03A9 \u6F22 \u0645\u0631"));
    }
    surface.Replay(painter, 1);
    EXPECT_TRUE(painter.end());
    EXPECT_TRUE(bytes.startsWith("%PDF"));
}

}  // namespace
}  // namespace sheetwright
