#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class TextFunctionTest : public FormulaTest {};

TEST_F(TextFunctionTest, ConcatenateJoinsTexts) {
    EXPECT_EQ(Told("CONCATENATE(\"a\",1.5,EQUAL(1,1),NOWORD,\" b\")"), "String a1.5True b");
    EXPECT_EQ(Told("CONCATENATE()"), "String ");
}

TEST_F(TextFunctionTest, LengthCountsTheCharactersOfTheText) {
    EXPECT_EQ(Told("LENGTH(\"four\")"), "Long 4");
    EXPECT_EQ(Told("LENGTH(12.5)"), "Long 4");
    EXPECT_EQ(Told("LENGTH()"), "Long 0");
}

TEST_F(TextFunctionTest, MidCutsFromAPositionCountedFromOne) {
    EXPECT_EQ(Told("MID(\"abcdef\",2,3)"), "String bcd");
    EXPECT_EQ(Told("MID(\"abcdef\",5,9)"), "String ef");
    EXPECT_EQ(Told("MID(\"abcdef\",6,1)"), "String f");
    EXPECT_EQ(Told("MID(\"abcdef\",1.5,1)"), "String b") << "halves go to even";
}

TEST_F(TextFunctionTest, MidBehindTheEndIsEmptyAndWithoutLengthNoText) {
    EXPECT_EQ(Told("MID(\"abc\",4,1)"), "Empty");
    EXPECT_EQ(Told("MID(\"\",1,1)"), "Empty");
    EXPECT_EQ(Told("MID(\"abc\",1)"), "String ");
}

TEST_F(TextFunctionTest, MidFailsBelowOneAndForTexts) {
    EXPECT_EQ(Told("MID(\"abc\",0,1)"), "failure 5");
    EXPECT_EQ(Told("MID(\"abc\",-1,1)"), "failure 5");
    EXPECT_EQ(Told("MID(\"abc\")"), "failure 5") << "a missing start is 0";
    EXPECT_EQ(Told("MID(\"abc\",1,-1)"), "failure 5");
    EXPECT_EQ(Told("MID(\"abc\",\"x\",1)"), "failure 13");
    EXPECT_EQ(Told("MID(\"abc\",3000000000,1)"), "failure 6");
}

TEST_F(TextFunctionTest, StripNonAlphaKeepsLettersAndDigitsInCapitals) {
    EXPECT_EQ(Told("STRIPNONALPHA(\"a-b_c 1/2!\")"), "String ABC12");
    EXPECT_EQ(Told("STRIPNONALPHA(\"\xC3\xA4 \xC3\xA9, \xF0\x9D\x94\xB8 \xF0\x9F\x98\x80\")"),
              "String \xC3\x84\xC3\x89\xF0\x9D\x94\xB8");
    EXPECT_EQ(Told("STRIPNONALPHA()"), "String ");
}

TEST_F(TextFunctionTest, ValidateDoesNothingNotEvenEvaluate) {
    EXPECT_EQ(Told("VALIDATE(SETME(1),{FIELDS})"), "Empty");
    EXPECT_EQ(Told(m_me), QStringLiteral("Empty"));
}

}  // namespace
}  // namespace sheetwright
