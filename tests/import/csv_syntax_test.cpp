#include "import/csv_syntax.h"

#include <QByteArrayList>
#include <QString>

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

QByteArrayList ValuesOf(const QByteArray& bytes) {
    QByteArrayList values;
    CsvFieldReader reader(bytes.constData(), bytes.constData() + bytes.size());
    while (reader.HasNext()) {
        const CsvField field = reader.Next();
        values << (field.isMixed ? UnquotedCsv(field.bytes) : field.bytes.toByteArray());
    }
    return values;
}

QByteArray FirstRecordOf(const QByteArray& bytes) {
    return bytes.first(FindCsvRecordEnd(bytes.constData(), bytes.constData() + bytes.size()).at -
                       bytes.constData());
}

TEST(CsvFieldReader, CommasSeparateValues) {
    EXPECT_EQ(ValuesOf("a,b,c"), QByteArrayList({"a", "b", "c"}));
}

TEST(CsvFieldReader, NothingBetweenCommasIsAnEmptyValue) {
    EXPECT_EQ(ValuesOf(",,"), QByteArrayList({"", "", ""}));
    EXPECT_EQ(ValuesOf("a,"), QByteArrayList({"a", ""}));
}

TEST(CsvFieldReader, ALineEndEndsTheRecord) {
    EXPECT_EQ(ValuesOf("a,b\r\nc"), QByteArrayList({"a", "b"}));
    EXPECT_EQ(ValuesOf("a,b\nc"), QByteArrayList({"a", "b"}));
    EXPECT_EQ(ValuesOf("a,b\rc"), QByteArrayList({"a", "b"}));
}

TEST(CsvFieldReader, QuotesHoldCommasAndLineEnds) {
    EXPECT_EQ(ValuesOf("\"a,b\",\"c\r\nd\"\r\n"), QByteArrayList({"a,b", "c\r\nd"}));
}

TEST(CsvFieldReader, ADoubledQuoteIsOneQuote) {
    EXPECT_EQ(ValuesOf("\"say \"\"hi\"\"\",x"), QByteArrayList({"say \"hi\"", "x"}));
    EXPECT_EQ(ValuesOf("\"\"\"\""), QByteArrayList({"\""}));
}

TEST(CsvFieldReader, AStrayQuoteInAnUnquotedValueIsACharacter) {
    EXPECT_EQ(ValuesOf("5\" pipe,a\"b\"c"), QByteArrayList({"5\" pipe", "a\"b\"c"}));
    EXPECT_EQ(ValuesOf(" \"a\",b"), QByteArrayList({" \"a\"", "b"}));
}

TEST(CsvFieldReader, TextBehindAClosingQuoteBelongsToTheValue) {
    EXPECT_EQ(ValuesOf("\"a,\"b\"c,d"), QByteArrayList({"a,b\"c", "d"}));
    EXPECT_EQ(ValuesOf("\"a\" ,d"), QByteArrayList({"a ", "d"}));
}

TEST(CsvFieldReader, AValueThatIsNotClosedRunsToTheEndOfTheFile) {
    EXPECT_EQ(ValuesOf("a,\"b,c\r\nd"), QByteArrayList({"a", "b,c\r\nd"}));
    EXPECT_EQ(ValuesOf("a,\""), QByteArrayList({"a", ""}));
    EXPECT_EQ(ValuesOf("\"a\"\""), QByteArrayList({"a\""}));
}

TEST(CsvFieldReader, LongValuesAreCutAtTheSamePlacesAsShortOnes) {
    for (int length = 0; length < 40; ++length) {
        const QByteArray value(length, 'x');
        EXPECT_EQ(ValuesOf(value + ',' + value + "\r\n"), QByteArrayList({value, value}));
        EXPECT_EQ(ValuesOf('"' + value + ",\"\"\"," + value), QByteArrayList({value + ",\"", value}));
    }
}

TEST(CsvFieldReader, BytesNearTheSpecialOnesAreOrdinary) {
    const QByteArray bytes("\x21\x23\x0B\x0C\x0E\x2B\x2D\xA2\x8A\x8D\xAC\x00\xFF", 13);
    EXPECT_EQ(ValuesOf(bytes), QByteArrayList({bytes}));
}

TEST(FindCsvRecordEnd, LineEndsInQuotesDoNotEndARecord) {
    EXPECT_EQ(FirstRecordOf("a,\"b\nc\",d\nrest"), "a,\"b\nc\",d");
    EXPECT_EQ(FirstRecordOf("\"b\"\"\nc\",d\r\nrest"), "\"b\"\"\nc\",d");
}

TEST(FindCsvRecordEnd, AStrayQuoteDoesNotSwallowTheNextLine) {
    EXPECT_EQ(FirstRecordOf("5\" pipe,x\nrest"), "5\" pipe,x");
    EXPECT_EQ(FirstRecordOf("\"a\"b\"c,x\nrest\""), "\"a\"b\"c,x");
}

TEST(FindCsvRecordEnd, TellsThatTheFileEndedInsideQuotes) {
    const QByteArray bytes("a,\"b\nc");
    const char* const end = bytes.constData() + bytes.size();
    const CsvRecordEnd found = FindCsvRecordEnd(bytes.constData(), end);
    EXPECT_EQ(found.at, end);
    EXPECT_TRUE(found.isInsideQuotes);
}

TEST(NeedsCsvQuotes, CommasQuotesAndLineEndsNeedThem) {
    for (const char16_t* value : {u"a,b", u"a\"b", u"a\rb", u"a\nb"})
        EXPECT_TRUE(NeedsCsvQuotes(value));
    for (const char16_t* value : {u"", u"a", u"a b", u"007", u"\u00E4;|"})
        EXPECT_FALSE(NeedsCsvQuotes(value));
}

TEST(NeedsCsvQuotes, BlanksAtEitherEndNeedThem) {
    for (const char16_t* value : {u" a", u"a ", u" ", u"\ta", u"a\t"})
        EXPECT_TRUE(NeedsCsvQuotes(value));
}

}  // namespace
}  // namespace sheetwright
