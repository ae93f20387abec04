#include "print/device.h"
#include "print/fonts.h"
#include "print/text_wrapping.h"
#include "support/fixed_metrics.h"
#include "support/test_application.h"

#include <random>

namespace sheetwright {
namespace {

// Wrapping as a person would do it: one step after the other, each position tried from the end on, every
// text measured as a whole. Positions count from 1. A surrogate pair is one character: no cut goes through
// it.
class StepByStep {
  public:
    StepByStep(const Measurer& measurer, const QString& text, double width)
        : m_measurer(measurer), m_text(text), m_width(width) {}

    QString Run() {
        qsizetype position = 1;
        bool more = true;
        while (more) {
            const qsizetype found = m_text.indexOf(QStringLiteral("\r\n"), position - 1);
            more = found >= 0;
            m_n = more ? found + 1 - position : m_text.size();
            m_cur = m_text.mid(position - 1, m_n);
            position += m_n + 2;
            while (!m_cur.isEmpty() && WidthOf(m_cur) > m_width)
                Pass();
            m_out += m_cur;
            if (more) m_out += QStringLiteral("\r\n");
        }
        return m_out;
    }

  private:
    double WidthOf(const QString& text) const { return m_measurer.TextWidth(text); }
    static bool IsPair(const QString& text, qsizetype at) {
        return at >= 0 && at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
    }
    bool CutsAPair(qsizetype k) const { return IsPair(m_cur, k - 2); }
    QString FirstCharacter() const { return m_cur.left(IsPair(m_cur, 0) ? 2 : 1); }

    void Pass() {
        if (BlankHelps()) return;
        if (m_n == 1 || (m_n == 2 && IsPair(m_cur, 0))) {
            m_out = FirstCharacter();
            m_cur.clear();
        } else if (!HyphenHelps()) {
            m_out.clear();
            m_cur.clear();
        }
    }

    bool BlankHelps() {
        for (qsizetype k = m_n; k >= 1; --k) {
            if (m_cur.mid(k - 1, 1) != QStringLiteral(" ") || WidthOf(m_cur.left(k - 1)) > m_width) continue;
            m_out += m_cur.left(k - 1) + QStringLiteral("\r\n");
            m_cur = m_cur.mid(k);
            m_n = m_cur.size();
            return true;
        }
        return false;
    }

    bool HyphenHelps() {
        for (qsizetype k = m_n; k >= 1; --k) {
            const QString hyphenated = m_cur.left(k - 1) + u'-';
            if (CutsAPair(k) || WidthOf(hyphenated) > m_width) continue;
            m_out += hyphenated + QStringLiteral("\r\n");
            if (k == 1) m_out = FirstCharacter();
            m_cur = k == 1 ? QString() : m_cur.mid(k - 1);
            m_n = m_cur.size();
            return true;
        }
        return false;
    }

    const Measurer& m_measurer;
    QString m_text;
    double m_width;
    QString m_out;
    QString m_cur;
    qsizetype m_n = 0;
};

class WrappingTest : public ::testing::Test {
  protected:
    QString Wrapped(const QString& text, double width) const {
        QString wrapped = WrappedText(m_measurer, text, width);
        return wrapped.replace(QStringLiteral("\r\n"), QStringLiteral("|"));
    }

    FixedMetrics m_metrics{100};
    Measurer m_measurer{m_metrics};
};

TEST_F(WrappingTest, TextThatFitsStaysAsItIs) {
    EXPECT_EQ(Wrapped(QStringLiteral("four"), 400), QStringLiteral("four"));
    EXPECT_EQ(Wrapped(QString(), 400), QString());
    EXPECT_EQ(Wrapped(QStringLiteral("  a "), 400), QStringLiteral("  a "));
}

TEST_F(WrappingTest, LineBreaksAtTheLastBlankThatFits) {
    EXPECT_EQ(Wrapped(QStringLiteral("one two three"), 800), QStringLiteral("one two|three"));
    EXPECT_EQ(Wrapped(QStringLiteral("one two three"), 700), QStringLiteral("one two|three"));
    EXPECT_EQ(Wrapped(QStringLiteral("one two three"), 600), QStringLiteral("one|two|three"));
}

TEST_F(WrappingTest, BlankAtWhichALineBreaksIsLost) {
    EXPECT_EQ(Wrapped(QStringLiteral("four "), 400), QStringLiteral("four|"));
    EXPECT_EQ(Wrapped(QStringLiteral("four  five"), 400), QStringLiteral("four||five"));
    EXPECT_EQ(Wrapped(QStringLiteral(" seven"), 400), QStringLiteral("|sev-|en"));
}

TEST_F(WrappingTest, OnlyTheBlankIsAPlaceToBreak) {
    EXPECT_EQ(Wrapped(QStringLiteral("ab\tcd"), 400), QStringLiteral("ab\t-|cd"));
    EXPECT_EQ(Wrapped(QStringLiteral("ab\u00A0cd"), 400), QStringLiteral("ab\u00A0-|cd"));
}

TEST_F(WrappingTest, WordWiderThanItsBoxIsSplitWithAHyphenOncePerLine) {
    EXPECT_EQ(Wrapped(QStringLiteral("abcdefghij"), 400), QStringLiteral("abc-|def-|ghij"));
    EXPECT_EQ(Wrapped(QStringLiteral("ab cdefghij"), 400), QStringLiteral("ab|cde-|fgh-|ij"));
}

TEST_F(WrappingTest, LineBreaksOfTheTextStay) {
    EXPECT_EQ(Wrapped(QStringLiteral("a\r\n\r\nb"), 400), QStringLiteral("a||b"));
    EXPECT_EQ(Wrapped(QStringLiteral("\r\n"), 400), QStringLiteral("|"));
    EXPECT_EQ(Wrapped(QStringLiteral("ab\rcd\nef"), 900), QStringLiteral("ab\rcd\nef"));
}

TEST_F(WrappingTest, LineBreakAtTheVeryEndGivesALastEmptyLine) {
    EXPECT_EQ(Wrapped(QStringLiteral("end\r\n"), 400), QStringLiteral("end|"));
}

TEST_F(WrappingTest, BoxThatHoldsNotEvenAHyphenLosesTheText) {
    EXPECT_EQ(Wrapped(QStringLiteral("abc"), 90), QString());
    EXPECT_EQ(Wrapped(QStringLiteral("abc"), 0), QString());
    EXPECT_EQ(Wrapped(QStringLiteral("abc"), -5), QString());
    EXPECT_EQ(Wrapped(QStringLiteral("a\r\nb\r\ncd\r\n"), 90), QStringLiteral("|"));
}

TEST_F(WrappingTest, BoxTooNarrowForACharacterKeepsTheLastAndLosesTheLinesBefore) {
    m_metrics.SetWidthOf(u'-', 50);
    EXPECT_EQ(Wrapped(QStringLiteral("abc"), 60), QStringLiteral("a"));
    EXPECT_EQ(Wrapped(QStringLiteral("i\r\nabc\r\nxyz"), 60), QStringLiteral("x"));
    m_metrics.SetWidthOf(u'i', 10);
    EXPECT_EQ(Wrapped(QStringLiteral("i\r\ni\r\nabc\r\ni"), 60), QStringLiteral("a|i"));
}

TEST_F(WrappingTest, SingleCharacterIsKeptThoughItDoesNotFit) {
    EXPECT_EQ(Wrapped(QStringLiteral("a"), 10), QStringLiteral("a"));
    EXPECT_EQ(Wrapped(QStringLiteral("a"), -10), QStringLiteral("a"));
    EXPECT_EQ(Wrapped(QStringLiteral("x\r\na\r\n"), 10), QStringLiteral("a|"));
}

TEST_F(WrappingTest, SingleCharacterBehindTheLastBreakIsLost) {
    EXPECT_EQ(Wrapped(QStringLiteral("x\r\na"), 10), QString());
}

TEST_F(WrappingTest, SurrogatePairIsNeverSplit) {
    const QString smiley = QString::fromUcs4(U"\U0001F600");
    EXPECT_EQ(Wrapped(smiley.repeated(5), 300),
              smiley.repeated(2) + QStringLiteral("-|") + smiley.repeated(3));
    EXPECT_EQ(Wrapped(smiley, 10), smiley);
    EXPECT_EQ(Wrapped(smiley.repeated(2), 100), smiley);
}

TEST_F(WrappingTest, HyphenThatIsDrawnWiderInCompanyStillFits) {
    struct Ligatures : FixedMetrics {
        using FixedMetrics::FixedMetrics;
        double Width(const FontSpec& font, QStringView text) const override {
            return FixedMetrics::Width(font, text) + (text.endsWith(u"d-") ? 1 : 0);
        }
    };
    const Ligatures metrics(100);
    EXPECT_EQ(WrappedText(Measurer(metrics), QStringLiteral("abcdefg"), 500), QStringLiteral("abc-\r\ndefg"));
}

class RandomTexts {
  public:
    QString Next() {
        QString text;
        const int pieces = Below(12);
        for (int piece = 0; piece < pieces; ++piece)
            text += NextPiece();
        return text;
    }
    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

  private:
    QString NextPiece() {
        static constexpr char16_t kLetters[] = u"abiW-";
        switch (Below(12)) {
            case 0:
            case 1:
                return QStringLiteral("\r\n");
            case 2:
                return QStringLiteral("\r");
            case 3:
                return QStringLiteral("\n");
            case 4:
                return QString::fromUcs4(U"\U0001F600");
            case 5:
                return QString(QChar(Below(2) == 0 ? 0xD83D : 0xDE00));
            case 6:
            case 7:
            case 8:
                return QString(Below(3) + 1, u' ');
            default:
                return QString(Below(6) + 1, QChar(kLetters[Below(5)]));
        }
    }

    std::mt19937 m_random{20240229};
};

TEST_F(WrappingTest, RandomTextsBreakAsStepByStep) {
    RandomTexts texts;
    for (int round = 0; round < 20'000; ++round) {
        for (const QChar character : QStringLiteral("abiW- \r\n"))
            m_metrics.SetWidthOf(character, texts.Below(8) * 25);
        const QString text = texts.Next();
        const double width = texts.Below(50) * 25 - 50;
        ASSERT_EQ(WrappedText(m_measurer, text, width), StepByStep(m_measurer, text, width).Run())
            << "width " << width << " of \"" << text.toUtf8().toPercentEncoding().constData() << '"';
    }
}

TEST(Wrapping, RealFontsBreakAsStepByStep) {
    const Fonts fonts;
    RandomTexts texts;
    for (const char* family : {"Arial", "Courier New", "Times New Roman"}) {
        Measurer measurer(fonts);
        measurer.SetFontName(QString::fromLatin1(family));
        for (int round = 0; round < 2'000; ++round) {
            measurer.SetFontSize(5 + texts.Below(60) * 0.25);
            const QString text = texts.Next();
            // Also boxes that a part of the text fills exactly.
            const double filled = measurer.TextWidth(text.left(texts.Below(20)) + u'-');
            const double width = texts.Below(2) == 0 ? filled : texts.Below(3000);
            ASSERT_EQ(WrappedText(measurer, text, width), StepByStep(measurer, text, width).Run())
                << family << ", width " << width << " of \"" << text.toUtf8().toPercentEncoding().constData()
                << '"';
        }
    }
}

// Counts the units that are looked at.
class CountingMetrics : public FixedMetrics {
  public:
    using FixedMetrics::FixedMetrics;

    double Width(const FontSpec& font, QStringView text) const override {
        units += text.size();
        return FixedMetrics::Width(font, text);
    }
    qsizetype Fitting(const FontSpec& font, QStringView text, double width) const override {
        const qsizetype count = FixedMetrics::Fitting(font, text, width);
        units += count;
        return count;
    }

    mutable qsizetype units = 0;
};

TEST(Wrapping, MeasuresInProportionToTheText) {
    const QString kinds[] = {QStringLiteral("word "), QStringLiteral("x"),
                             QStringLiteral(" "),     QStringLiteral("\r\n"),
                             QStringLiteral("a\r"),   QStringLiteral("one longer line of text\r\n")};
    for (const QString& kind : kinds) {
        const CountingMetrics metrics(100);
        const Measurer measurer(metrics);
        const QString text = kind.repeated(1'000'000 / kind.size());
        for (const double width : {0.0, 250.0, 3000.0}) {
            metrics.units = 0;
            EXPECT_LE(WrappedText(measurer, text, width).size(), 4 * text.size());
            EXPECT_LE(metrics.units, 8 * text.size()) << kind.toStdString() << " at " << width;
        }
    }
}

}  // namespace
}  // namespace sheetwright
