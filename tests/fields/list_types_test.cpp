#include "fields/list_types.h"

#include "import/csv_types.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

TEST(FitsType, NumberHasADecimalPointAndNoGroups) {
    for (const char* value : {"", " ", "0", "-1.5", "+3", "1e3", " 12 "})
        EXPECT_TRUE(FitsType(S(value), S("NUMBER"))) << value;
    for (const char* value : {"a", "1,5", "1,000", "12 V", "inf", "nan", "1.2.3"})
        EXPECT_FALSE(FitsType(S(value), S("NUMBER"))) << value;
}

TEST(FitsType, DateIsOneOfTheCalendarInEightDigits) {
    for (const char* value : {"", "20260131", "20240229"})
        EXPECT_TRUE(FitsType(S(value), S("DATE"))) << value;
    for (const char* value : {"20260231", "31/01/2026", "2026013", "202601311", "+2026013", "00000101"})
        EXPECT_FALSE(FitsType(S(value), S("DATE"))) << value;
}

TEST(FitsType, BooleanIsMinusOneOrZeroAndEverythingIsText) {
    for (const char* value : {"", "-1", "0"})
        EXPECT_TRUE(FitsType(S(value), S("BOOLEAN"))) << value;
    for (const char* value : {"1", "Yes", "True"})
        EXPECT_FALSE(FitsType(S(value), S("BOOLEAN"))) << value;
    EXPECT_TRUE(FitsType(u"anything", S("TEXT")));
}

TEST(WithColumnTypes, NewFileTellsAllTypesButText) {
    EXPECT_EQ(WithColumnTypes({}, {}, {{S("A"), S("TEXT")}, {S("B"), S("DATE")}, {S("c]"), S("NUMBER")}}),
              S("[B]\r\nDataType=DATE\r\n[c]]\r\nDataType=NUMBER\r\n"));
    EXPECT_EQ(WithColumnTypes({}, {}, {{S("A"), S("TEXT")}}), QString());
}

TEST(WithColumnTypes, OtherKeysSectionsAndCommentsStay) {
    const QString inf = S("; mine\n[B]\nWidth=3\nDataType=NUMBER\n\n[Other]\nDataType=DATE\n");
    EXPECT_EQ(WithColumnTypes(inf, {}, {{S("b"), S("DATE")}}),
              S("; mine\n[B]\nWidth=3\nDataType=DATE\n\n[Other]\nDataType=DATE\n"));
    EXPECT_EQ(WithColumnTypes(inf, {}, {{S("B"), S("NUMBER")}}), inf);
    EXPECT_EQ(WithColumnTypes(inf, {}, {{S("B"), S("TEXT")}}),
              S("; mine\n[B]\nWidth=3\nDataType=TEXT\n\n[Other]\nDataType=DATE\n"));
}

TEST(WithColumnTypes, LineThatMeansTheTypeAlreadyIsLeftAlone) {
    const QString inf = S("[B]\r\n datatype = \"Number\"\r\n");
    EXPECT_EQ(WithColumnTypes(inf, {}, {{S("B"), S("NUMBER")}}), inf);
}

TEST(WithColumnTypes, SectionWithoutATypeGetsOne) {
    EXPECT_EQ(WithColumnTypes(S("[B]\r\nWidth=3\r\n"), {}, {{S("B"), S("DATE")}}),
              S("[B]\r\nDataType=DATE\r\nWidth=3\r\n"));
}

TEST(WithColumnTypes, RenamedColumnTakesItsSectionAlong) {
    EXPECT_EQ(
        WithColumnTypes(S("[A]\r\nWidth=3\r\nDataType=DATE\r\n"), {{S("a"), S("B")}}, {{S("B"), S("DATE")}}),
        S("[B]\r\nWidth=3\r\nDataType=DATE\r\n"));
}

TEST(WithColumnTypes, ColumnThatIsGoneLosesItsTypeOnly) {
    EXPECT_EQ(WithColumnTypes(S("[A]\r\nWidth=3\r\nDataType=DATE\r\n"), {{S("A"), std::nullopt}}, {}),
              S("[A]\r\nWidth=3\r\n"));
    EXPECT_EQ(WithColumnTypes(S("[A]\r\nDataType=DATE\r\n\r\n[B]\r\nDataType=NUMBER\r\n"),
                              {{S("A"), std::nullopt}, {S("B"), S("B")}}, {{S("B"), S("NUMBER")}}),
              S("[B]\r\nDataType=NUMBER\r\n"));
}

TEST(WithColumnTypes, ColumnsThatExchangeNamesExchangeTypes) {
    const QString inf =
        WithColumnTypes(S("[A]\r\nDataType=DATE\r\n[B]\r\nDataType=NUMBER\r\n"),
                        {{S("A"), S("B")}, {S("B"), S("A")}}, {{S("B"), S("DATE")}, {S("A"), S("NUMBER")}});
    const CsvTypes types = ParseCsvTypes(inf);
    EXPECT_EQ(types.at(S("A")), S("NUMBER"));
    EXPECT_EQ(types.at(S("B")), S("DATE"));
}

TEST(WithColumnTypes, NameOfADeletedColumnIsFreeForAnother) {
    const QString inf = WithColumnTypes(S("[A]\r\nWidth=3\r\nDataType=DATE\r\n"),
                                        {{S("A"), std::nullopt}, {S("B"), S("A")}}, {{S("A"), S("TEXT")}});
    EXPECT_EQ(inf, S("[A]\r\nWidth=3\r\n"));
}

TEST(WithColumnTypes, NameWithALineBreakHasNoPlaceThere) {
    EXPECT_EQ(WithColumnTypes({}, {}, {{S("a\nb"), S("DATE")}}), QString());
}

}  // namespace

}  // namespace sheetwright
