#include "print/fonts.h"

#include "print/font_face.h"
#include "print/symbol_font.h"
#include "support/test_application.h"

#include <QFont>
#include <QFontInfo>

#include <gtest/gtest.h>

#include <cmath>

namespace sheetwright {
namespace {

FontSpec Spec(const QString& family, double size = 10) {
    return {family, size};
}

QString FamilyBehind(const Fonts& fonts, const QString& name) {
    return QFontInfo(fonts.FaceOf(Spec(name)).Reference()).family();
}

class FontsTest : public ::testing::Test {
  protected:
    Fonts fonts;
    FontSpec arial = Spec(QStringLiteral("Arial"));
};

TEST_F(FontsTest, FamiliesOfOldFormsHaveStandIns) {
    for (const QString& name :
         {QStringLiteral("Arial"), QStringLiteral("ARIAL"), QStringLiteral("Helvetica"),
          QStringLiteral("MS Sans Serif"), QStringLiteral("MS Shell Dlg"), QStringLiteral("Tahoma"),
          QStringLiteral("Verdana"), QStringLiteral("Calibri"), QStringLiteral("Segoe UI")}) {
        EXPECT_TRUE(fonts.HasFamily(name));
        EXPECT_EQ(FamilyBehind(fonts, name), QStringLiteral("Liberation Sans"));
    }
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("Arial Narrow")), QStringLiteral("Liberation Sans Narrow"));
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("Courier New")), QStringLiteral("Liberation Mono"));
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("fixedsys")), QStringLiteral("Liberation Mono"));
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("Times New Roman")), QStringLiteral("Liberation Serif"));
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("Garamond")), QStringLiteral("Liberation Serif"));
}

TEST_F(FontsTest, InstalledFamilyIsUsedItself) {
    EXPECT_TRUE(fonts.HasFamily(QStringLiteral("dejavu sans")));
    EXPECT_EQ(FamilyBehind(fonts, QStringLiteral("dejavu sans")), QStringLiteral("DejaVu Sans"));
}

TEST_F(FontsTest, UnknownFamiliesCantBeHad) {
    EXPECT_FALSE(fonts.HasFamily(QString()));
    EXPECT_FALSE(fonts.HasFamily(QStringLiteral("No Such Family")));
    EXPECT_FALSE(fonts.HasFamily(QString(10'000, u'A')));
    EXPECT_FALSE(fonts.HasFamily(QStringLiteral("Arial\r\n\x01")));
}

TEST_F(FontsTest, TextInAnUnknownFamilyIsAsWideAsInArial) {
    const FontSpec unknown = Spec(QString(10'000, u'A'));
    EXPECT_EQ(fonts.Width(unknown, u"Total"), fonts.Width(arial, u"Total"));
    EXPECT_EQ(fonts.Width(Spec(QStringLiteral("\x01\n")), u"Total"), fonts.Width(arial, u"Total"));
}

TEST_F(FontsTest, SignFontsAreAlwaysThere) {
    for (const QString& name : {QStringLiteral("WingDings"), QStringLiteral("Wingdings"),
                                QStringLiteral("WINGDINGS"), QStringLiteral("Symbol")}) {
        EXPECT_TRUE(fonts.HasFamily(name));
    }
}

TEST_F(FontsTest, EmptyTextHasNoWidth) {
    EXPECT_EQ(fonts.Width(arial, u""), 0);
}

TEST_F(FontsTest, WidthsAreThoseOfTheOutlines) {
    // 1139 and 1366 of 2048 units of an em that is 200 twips high.
    EXPECT_NEAR(fonts.Width(arial, u"a"), 1139 * 200.0 / 2048, 1e-6);
    EXPECT_NEAR(fonts.Width(arial, u"A"), 1366 * 200.0 / 2048, 1e-6);
    EXPECT_NEAR(fonts.Width(Spec(QStringLiteral("Courier New")), u"iW"), 2 * 1229 * 200.0 / 2048, 1e-6);
}

TEST_F(FontsTest, PlainTextIsAsWideAsItsCharactersTogether) {
    const QString text = QStringLiteral("WAVY Tofu fi ffl \u00DF\u20AC \u03A9\u0416");
    double sum = 0;
    for (const QChar& character : text)
        sum += fonts.Width(arial, QStringView(&character, 1));
    EXPECT_NEAR(fonts.Width(arial, text), sum, 1e-6);
}

TEST_F(FontsTest, WidthsGrowInProportionToTheSize) {
    const double width = fonts.Width(Spec(QStringLiteral("Times New Roman"), 1), u"Proportion");
    for (const double size : {0.01, 7.0, 8.25, 11.3, 72.0, 2160.0}) {
        EXPECT_NEAR(fonts.Width(Spec(QStringLiteral("Times New Roman"), size), u"Proportion") / size, width,
                    1e-9 * width);
    }
}

TEST_F(FontsTest, LineHeightIsAscentAndDescentOfTheOutlines) {
    EXPECT_NEAR(fonts.LineHeight(arial), (1854 + 434) * 200.0 / 2048, 0.1);
    EXPECT_NEAR(fonts.Ascent(arial), 1854 * 200.0 / 2048, 0.1);
    EXPECT_NEAR(fonts.LineHeight(Spec(QStringLiteral("Arial"), 0.01)), fonts.LineHeight(arial) / 1000, 1e-6);
}

TEST_F(FontsTest, BoldTextIsWider) {
    FontSpec bold = arial;
    bold.bold = true;
    EXPECT_GT(fonts.Width(bold, u"Total"), fonts.Width(arial, u"Total"));
}

TEST_F(FontsTest, UnderlineAndStrikethruDontChangeTheWidth) {
    FontSpec decorated = arial;
    decorated.underline = decorated.strikethru = true;
    EXPECT_EQ(fonts.Width(decorated, u"Total"), fonts.Width(arial, u"Total"));
}

TEST_F(FontsTest, ControlCharactersAreBlanks) {
    EXPECT_EQ(fonts.Width(arial, u"\t\r\n\x7F\u2028"), 5 * fonts.Width(arial, u" "));
    EXPECT_EQ(fonts.DrawnText(arial, QStringLiteral("a\tb\u2028")), QStringLiteral("a b "));
}

TEST_F(FontsTest, ShapedTextsHaveAWidth) {
    EXPECT_GT(fonts.Width(arial, u"\u0645\u0631\u062D\u0628\u0627"), 0);
    EXPECT_GT(fonts.Width(arial, u"\U0001F600"), 0);
    EXPECT_NEAR(fonts.Width(arial, u"e\u0301"), fonts.Width(arial, u"e"), 0.01);
    EXPECT_GE(fonts.Width(arial, u"\xD800"), 0);
}

TEST_F(FontsTest, FittingIsTheLongestBeginningThatIsNotWider) {
    const QString text = QStringLiteral("The quick brown fox");
    for (qsizetype count = 0; count <= text.size(); ++count) {
        const double width = fonts.Width(arial, QStringView(text).first(count));
        EXPECT_EQ(fonts.Fitting(arial, text, width), count);
        EXPECT_EQ(fonts.Fitting(arial, text, width - 0.01), std::max<qsizetype>(count - 1, 0));
    }
    EXPECT_EQ(fonts.Fitting(arial, text, -1), 0);
    EXPECT_EQ(fonts.Fitting(arial, text, std::nan("")), 0);
    EXPECT_EQ(fonts.Fitting(arial, text, HUGE_VAL), text.size());
}

TEST_F(FontsTest, FittingNeverPartsASurrogatePair) {
    const QString text = QString::fromUcs4(U"a\U0001F600\U0001F600", 3);
    const double one = fonts.Width(arial, QStringView(text).first(3));
    EXPECT_EQ(fonts.Fitting(arial, text, one), 3);
    EXPECT_EQ(fonts.Fitting(arial, text, one - 1), 1);
}

TEST_F(FontsTest, FittingOfALongRunIsTheLongestBeginningThatIsNotWider) {
    const QString text = QStringLiteral("\U0001F600").repeated(1000);
    for (const qsizetype characters : {1, 15, 16, 17, 31, 32, 100, 127, 128, 129, 500, 1000}) {
        const double width = fonts.Width(arial, text.left(2 * characters));
        EXPECT_EQ(fonts.Fitting(arial, text, width + 0.01), 2 * characters);
        EXPECT_EQ(fonts.Fitting(arial, text, width - 0.01), 2 * characters - 2);
    }
}

TEST_F(FontsTest, FittingOfShapedTextAgreesWithItsWidth) {
    const QString text =
        QStringLiteral("\u0645\u0631\u062D\u0628\u0627 \u05E9\u05DC\u05D5\u05DD").repeated(100);
    for (const double width : {500.0, 5'000.0, 50'000.0}) {
        const qsizetype count = fonts.Fitting(arial, text, width);
        ASSERT_GT(count, 0);
        EXPECT_LE(fonts.Width(arial, QStringView(text).first(count)), width);
    }
}

TEST_F(FontsTest, DrawnFontHasTheStylesAndTheSizeOfTheSurface) {
    FontSpec spec = arial;
    spec.underline = true;
    const QFont screen = fonts.Drawn(spec, 96.0 / 1440, 96);
    EXPECT_DOUBLE_EQ(screen.pointSizeF(), 10);
    EXPECT_TRUE(screen.underline());
    EXPECT_FALSE(screen.strikeOut());
    EXPECT_FALSE(screen.kerning());
    EXPECT_DOUBLE_EQ(fonts.Drawn(arial, 2 * 96.0 / 1440, 96).pointSizeF(), 20);
    EXPECT_DOUBLE_EQ(fonts.Drawn(arial, 1, 1440).pointSizeF(), 10);
}

TEST_F(FontsTest, ManyDifferentFontsDoNoHarm) {
    for (int i = 1; i <= 2000; ++i) {
        EXPECT_GT(fonts.Drawn(Spec(QStringLiteral("Arial"), i / 10.0), 1, 1440).pointSizeF(), 0);
    }
}

TEST_F(FontsTest, TickAndItsLikeAreDrawnByTheirNamesakes) {
    const FontSpec wingdings = Spec(QStringLiteral("WingDings"));
    EXPECT_EQ(fonts.DrawnText(wingdings, QStringLiteral("\u00FC\u00FB\u00A8\u00FE\u00FDln\u00A7\u00E0")),
              QStringLiteral("\u2713\u2717\u25FB\u2611\u2612\u25CF\u25A0\u25AA\u2192"));
    EXPECT_NEAR(fonts.Width(wingdings, u"\u00FC"),
                fonts.Width(Spec(QStringLiteral("DejaVu Sans")), u"\u2713"), 1e-6);
}

TEST(SymbolNamesake, CodesMayComeAsLettersOfTheCodePageOrFromThePrivateRange) {
    EXPECT_EQ(SymbolNamesake(SymbolSet::Wingdings, u'\uF0FC'), u'\u2713');
    EXPECT_EQ(SymbolNamesake(SymbolSet::Wingdings, u'\u20AC'), u'\u24EA');
    EXPECT_EQ(SymbolNamesake(SymbolSet::Greek, u'W'), u'\u03A9');
}

TEST(SymbolNamesake, UnknownCharactersStayAsTheyAre) {
    EXPECT_EQ(SymbolNamesake(SymbolSet::Wingdings, u' '), u' ');
    EXPECT_EQ(SymbolNamesake(SymbolSet::Wingdings, u'\u6F22'), u'\u6F22');
    EXPECT_EQ(SymbolNamesake(SymbolSet::None, u'\u00FC'), u'\u00FC');
}

class FontsOfTest : public ApplicationTest {};

TEST_F(FontsOfTest, AnApplicationHasOneSetOfFonts) {
    EXPECT_EQ(m_application->printing.fonts, nullptr);
    EXPECT_EQ(&FontsOf(*m_application), &FontsOf(*m_application));
}

}  // namespace
}  // namespace sheetwright
