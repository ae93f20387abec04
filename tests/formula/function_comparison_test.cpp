#include "formula/formula_test_base.h"
#include "formula/function_text_search.h"

namespace sheetwright {
namespace {

class ComparisonTest : public FormulaTest {};

TEST_F(ComparisonTest, EqualComparesNumbersAsNumbers) {
    EXPECT_EQ(Told("EQUAL(1,1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(1,\"1.0\",1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(1,1,2)"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL()"), "Boolean True");
}

TEST_F(ComparisonTest, EqualOfANumberAndAnotherTextFails) {
    EXPECT_EQ(Told("EQUAL(1,\"abc\")"), "failure 13");
    EXPECT_EQ(Told("EQUAL(1,\"\")"), "failure 13");
    EXPECT_EQ(Told("EQUAL(1,2,\"abc\")"), "failure 13") << "all items are compared";
}

TEST_F(ComparisonTest, EqualOfAQuotedNumberAndAnotherTextIsFalse) {
    EXPECT_EQ(Told("EQUAL(\"1\",\"abc\")"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(\"1\",1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(\"1\",\"1.0\")"), "Boolean True");
}

TEST_F(ComparisonTest, EqualComparesTextsWithCaseAndBlanks) {
    EXPECT_EQ(Told("EQUAL(\"a\",\"a\")"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(\"a\",\"A\")"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(\"a\",\"a \")"), "Boolean False");
}

TEST_F(ComparisonTest, EqualOfEmptyIsEqualOfNoText) {
    EXPECT_EQ(Told("EQUAL(NOWORD,\"\")"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(NOWORD,0)"), "Boolean False");
}

TEST_F(ComparisonTest, EqualKnowsTheWordsForTrueAndFalse) {
    EXPECT_EQ(Told("EQUAL(\"True\",-1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(\"False\",0)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(-1,\"True\")"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(EQUAL(1,1),EQUAL(2,2))"), "Boolean True");
    m_words = {QStringLiteral("Wahr"), QStringLiteral("Falsch")};
    EXPECT_EQ(Told("EQUAL(\"Wahr\",-1)"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(\"True\",-1)"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(EQUAL(1,1),EQUAL(2,2))"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(EQUAL(1,1),\"Falsch\")"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(EQUAL(1,1),\"x\")"), "failure 13");
}

TEST_F(ComparisonTest, EqualReadsItemsByTheirTextOfFifteenDigits) {
    EXPECT_EQ(Told("EQUAL(0.25,DIVIDE(1,4))"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(0.3,ADD(0.1,0.2))"), "Boolean True");
    EXPECT_EQ(Told("EQUAL(DIVIDE(1,3),DIVIDE(1,3))"), "Boolean False") << "the reference keeps all digits";
}

TEST_F(ComparisonTest, EqualOfDatesIsAlwaysFalse) {
    EXPECT_EQ(Told("EQUAL(\"31/12/1999\",\"31/12/1999\")"), "Boolean False");
    EXPECT_EQ(Told("EQUAL(19991231,\"31/12/1999\")"), "Boolean True") << "a stamp equals a date";
}

TEST_F(ComparisonTest, EqualReadsAFirstArgumentWithSideEffectsTwice) {
    m_me = 0.0;
    EXPECT_EQ(Told("EQUAL(CONCATENATE(\"n\",SETME(ADD(ME,1)),ME),\"n2\")"), "Boolean False");
    EXPECT_EQ(Told(m_me), QStringLiteral("Double 2"));
}

TEST_F(ComparisonTest, NotEqualWantsAllItemsToDiffer) {
    EXPECT_EQ(Told("NOTEQUAL(1,2,3)"), "Boolean True");
    EXPECT_EQ(Told("NOTEQUAL(1,2,1)"), "Boolean False");
    EXPECT_EQ(Told("NOTEQUAL(\"a\",\"A\")"), "Boolean True");
    EXPECT_EQ(Told("NOTEQUAL(\"a\",\" a \")"), "Boolean False") << "blanks around do not count";
    EXPECT_EQ(Told("NOTEQUAL(\"True\",-1)"), "Boolean False");
    EXPECT_EQ(Told("NOTEQUAL(5)"), "Boolean True");
    EXPECT_EQ(Told("NOTEQUAL(NOWORD,\"\")"), "Boolean False");
}

TEST_F(ComparisonTest, GreaterThanIsAChain) {
    EXPECT_EQ(Told("GREATERTHAN(3,2,1)"), "Boolean True");
    EXPECT_EQ(Told("GREATERTHAN(3,2,2)"), "Boolean False");
    EXPECT_EQ(Told("GREATERTHAN(3)"), "Boolean True");
    EXPECT_EQ(Told("GREATERTHAN(10,\"9\")"), "Boolean True");
    EXPECT_EQ(Told("GREATERTHAN(1,2,{FIELDS})"), "Boolean False") << "stops at the first that fails";
}

TEST_F(ComparisonTest, ChainsReadDatesAsStamps) {
    EXPECT_EQ(Told("GREATERTHAN(\"01/01/2000\",\"31/12/1999\")"), "Boolean True");
    EXPECT_EQ(Told("LESSTHAN(\"31/12/1999\",\"01/01/2000\",20000102)"), "Boolean True");
}

TEST_F(ComparisonTest, LessThanIsAChain) {
    EXPECT_EQ(Told("LESSTHAN(1,2,3)"), "Boolean True");
    EXPECT_EQ(Told("LESSTHAN(1,3,2)"), "Boolean False");
    EXPECT_EQ(Told("LESSTHAN(1,1)"), "Boolean False");
}

TEST_F(ComparisonTest, InRangeComparesTextsByCharacterCode) {
    EXPECT_EQ(Told("INRANGE(10,9,11)"), "Boolean False");
    EXPECT_EQ(Told("INRANGE(10,10,11)"), "Boolean True");
    EXPECT_EQ(Told("INRANGE(\"b\",\"a\",\"c\")"), "Boolean True");
    EXPECT_EQ(Told("INRANGE(\"b\",\"B\",\"C\")"), "Boolean False");
    EXPECT_EQ(Told("INRANGE(\"\xC3\xA4\",\"a\",\"z\")"), "Boolean False") << "no locale's order";
}

TEST_F(ComparisonTest, InRangeOrdersDates) {
    EXPECT_EQ(Told("INRANGE(\"15/01/2000\",\"31/12/1999\",\"01/02/2000\")"), "Boolean True");
    EXPECT_EQ(Told("INRANGE(\"15/03/2000\",\"31/12/1999\",\"01/02/2000\")"), "Boolean False");
}

TEST_F(ComparisonTest, InStringComparesWithCase) {
    EXPECT_EQ(Told("INSTRING(\"workshop\",\"shop\")"), "Boolean True");
    EXPECT_EQ(Told("INSTRING(\"workshop\",\"Shop\")"), "Boolean False");
    EXPECT_EQ(Told("INSTRING(\"workshop\",\"\")"), "Boolean True");
    EXPECT_EQ(Told("INSTRING(\"workshop\")"), "Boolean True");
    EXPECT_EQ(Told("INSTRING(\"\",\"\")"), "Boolean True");
    EXPECT_EQ(Told("INSTRING(123,2)"), "Boolean True");
}

TEST_F(ComparisonTest, IsEmptyAsksForNoText) {
    EXPECT_EQ(Told("ISEMPTY(\"\")"), "Boolean True");
    EXPECT_EQ(Told("ISEMPTY(NOWORD)"), "Boolean True");
    EXPECT_EQ(Told("ISEMPTY()"), "Boolean True");
    EXPECT_EQ(Told("ISEMPTY(0)"), "Boolean False");
    EXPECT_EQ(Told("ISEMPTY(\" \")"), "Boolean False");
}

TEST(Occurs, FindsShortAndLongParts) {
    const QString text = QString(300, u'a') + QStringLiteral("bab") + QString(200, u'a') + u'c';
    EXPECT_TRUE(Occurs(u"bab", text));
    EXPECT_FALSE(Occurs(u"bb", text));
    for (const qsizetype length : {63, 64, 65, 200, 300}) {
        EXPECT_TRUE(Occurs(QString(length, u'a') + u'b', text)) << length;
        EXPECT_FALSE(Occurs(QString(length, u'a') + u'd', text)) << length;
    }
    EXPECT_TRUE(Occurs(QString(200, u'a') + u'c', text));
    EXPECT_FALSE(Occurs(QString(201, u'a') + u'c', text));
    EXPECT_TRUE(Occurs(text, text));
    EXPECT_FALSE(Occurs(text + u'x', text));
}

TEST(Occurs, GrowsWithTheLengthsWhateverTheTextsHold) {
    const QString text(2'000'000, u'a');
    EXPECT_FALSE(Occurs(QString(u'b') + QString(1'000'000, u'a'), text));
    EXPECT_FALSE(Occurs(QString(1'000'000, u'a') + u'b', text));
}

}  // namespace
}  // namespace sheetwright
