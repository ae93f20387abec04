#include "core/text.h"

#include "support/test_application.h"

namespace sheetwright {
namespace {

QStringList Lines(QStringView text) {
    QStringList lines;
    for (const QStringView line : SplitLines(text))
        lines << line.toString();
    return lines;
}

TEST(DecodeFileText, BytesThatAreNoUtf8AreInTheCodePage) {
    EXPECT_EQ(DecodeFileText("Gr\xF6\xDF"
                             "e \x80"),
              QStringLiteral("Größe €"));
}

TEST(DecodeFileText, ValidUtf8IsUtf8) {
    EXPECT_EQ(DecodeFileText("Größe Ω"), QStringLiteral("Größe Ω"));
}

TEST(DecodeFileText, ByteOrderMarkIsDropped) {
    EXPECT_EQ(DecodeFileText("\xEF\xBB\xBFVERSION"), QStringLiteral("VERSION"));
}

TEST(DecodeFileText, PlainAsciiStaysAsItIs) {
    EXPECT_EQ(DecodeFileText("a=b\x7F\r\n"), QStringLiteral("a=b\x7F\r\n"));
    EXPECT_EQ(DecodeFileText({}), QString());
}

TEST(DecodeFileText, ByteBeyondAsciiIsSeenHoweverFarBehind) {
    EXPECT_EQ(DecodeFileText(QByteArray(10'000, 'x') + '\xE4'), QString(10'000, u'x') + u'ä');
}

TEST(EncodeFileText, UsesTheCodePageWhereItCan) {
    EXPECT_EQ(EncodeFileText(u"Größe €"),
              "Gr\xF6\xDF"
              "e \x80");
    EXPECT_EQ(EncodeFileText(u"plain"), "plain");
}

TEST(EncodeFileText, UsesUtf8ForWhatTheCodePageLacks) {
    EXPECT_EQ(EncodeFileText(u"Größe Ω"), "Größe Ω");
}

TEST(EncodeFileText, UsesUtf8WhereTheCodePageWouldReadAsUtf8) {
    const QString text = QStringLiteral("Ã¼");
    EXPECT_EQ(EncodeFileText(text), text.toUtf8());
    EXPECT_EQ(DecodeFileText(EncodeFileText(text)), text);
}

TEST(EncodeFileText, EveryByteOfTheCodePageComesBack) {
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray bytes = QByteArray("x") + static_cast<char>(byte) + "\xE4y";
        EXPECT_EQ(EncodeFileText(DecodeFileText(bytes)), bytes) << byte;
    }
}

TEST(EncodeFileText, ByteOrderMarkOfTheTextItselfSurvives) {
    const QString text = QChar(QChar::ByteOrderMark) + QStringLiteral("text");
    EXPECT_EQ(DecodeFileText(EncodeFileText(text)), text);
}

TEST(SplitLines, KnowsAllThreeLineEnds) {
    EXPECT_EQ(Lines(u"a\r\nb\nc\rd"), QStringList({QStringLiteral("a"), QStringLiteral("b"),
                                                   QStringLiteral("c"), QStringLiteral("d")}));
}

TEST(SplitLines, EmptyLinesCount) {
    EXPECT_EQ(Lines(u"\r\n\r\na\n\n"), QStringList({QString(), QString(), QStringLiteral("a"), QString()}));
    EXPECT_EQ(Lines(u"\n\r"), QStringList({QString(), QString()}));
}

TEST(SplitLines, NothingStandsBehindTheLastLineEnd) {
    EXPECT_EQ(Lines(u"a\r\n"), QStringList(QStringLiteral("a")));
    EXPECT_EQ(Lines(u""), QStringList());
}

TEST(TakeLine, LeavesTheRest) {
    QStringView rest = u"a\r\nb";
    EXPECT_EQ(TakeLine(rest), u"a");
    EXPECT_EQ(rest, u"b");
    EXPECT_EQ(TakeLine(rest), u"b");
    EXPECT_TRUE(rest.isEmpty());
    EXPECT_TRUE(TakeLine(rest).isEmpty());
}

TEST(TakeLine, LowControlCharactersAreNoLineEnds) {
    QStringView rest = u"a\t\v\fb\nc";
    EXPECT_EQ(TakeLine(rest), u"a\t\v\fb");
}

TEST(StripTabs, StripsLeadingTabsOnly) {
    EXPECT_EQ(StripTabs(u"\t\ta\tb\t"), u"a\tb\t");
    EXPECT_EQ(StripTabs(u" \ta"), u" \ta");
    EXPECT_EQ(StripTabs(u"\t\t"), u"");
}

TEST(TrimBlanks, TrimsBlanksAtBothEndsAndNothingElse) {
    EXPECT_EQ(TrimBlanks(u"  a b  "), u"a b");
    EXPECT_EQ(TrimBlanks(u"\ta\u00A0 "), u"\ta\u00A0");
    EXPECT_EQ(TrimBlanks(u"   "), u"");
}

TEST(EncodeLineBreaks, EachPairBecomesOneCharacter127) {
    EXPECT_EQ(EncodeLineBreaks(u"a\r\nb\r\nc"), QStringLiteral("a\x7F"
                                                               "b\x7F"
                                                               "c"));
}

TEST(EncodeLineBreaks, CharacterBehindACarriageReturnGoesWithIt) {
    EXPECT_EQ(EncodeLineBreaks(u"a\rXb"), QStringLiteral("a\x7F"
                                                         "b"));
    EXPECT_EQ(EncodeLineBreaks(u"a\r\r\nb"), QStringLiteral("a\x7F\x7F"
                                                            "b"));
    EXPECT_EQ(EncodeLineBreaks(u"a\r"), QStringLiteral("a\x7F"));
}

TEST(EncodeLineBreaks, LoneLineFeedDoesNotBreakTheLine) {
    EXPECT_EQ(EncodeLineBreaks(u"a\nb"), QStringLiteral("a\x7F"
                                                        "b"));
}

TEST(DecodeLineBreaks, TwoLineBreaksSurviveTheFile) {
    const QString value = QStringLiteral("first\r\nsecond\r\nthird");
    EXPECT_EQ(DecodeLineBreaks(EncodeLineBreaks(value)), value);
}

TEST(KeyOf, StandsBeforeTheFirstEqualsSign) {
    EXPECT_EQ(KeyOf(u"K=a=b=c"), u"K");
    EXPECT_EQ(ValueOf(u"K=a=b=c"), u"a=b=c");
    EXPECT_EQ(ValueOf(u"K= a"), u" a");
    EXPECT_EQ(KeyOf(u"=a"), u"");
    EXPECT_EQ(ValueOf(u"K="), u"");
}

TEST(KeyOf, LineWithoutAnEqualsSignHasNeitherKeyNorValue) {
    EXPECT_EQ(KeyOf(u"END PAGE"), u"");
    EXPECT_EQ(ValueOf(u"END PAGE"), u"");
}

TEST(WithPairedLineBreaks, EveryKindBecomesOneCrLf) {
    EXPECT_EQ(WithPairedLineBreaks(QStringLiteral("a\rb\nc\r\nd\n\ne\r")),
              QStringLiteral("a\r\nb\r\nc\r\nd\r\n\r\ne\r\n"));
    EXPECT_EQ(WithPairedLineBreaks(QStringLiteral("plain")), QStringLiteral("plain"));
    EXPECT_EQ(WithPairedLineBreaks(QString()), QString());
}

}  // namespace
}  // namespace sheetwright
