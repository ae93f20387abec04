#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class ArithmeticTest : public FormulaTest {};

TEST_F(ArithmeticTest, AddSumsAllItemsAndBlanksCountNothing) {
    EXPECT_EQ(Told("ADD(1,2,3.5)"), "Double 6.5");
    EXPECT_EQ(Told("ADD()"), "Double 0");
    EXPECT_EQ(Told("ADD(1,,\"\",NOWORD,\"12abc\")"), "Double 13");
    EXPECT_EQ(Told("ADD(EQUAL(1,1),5)"), "Double 4") << "true counts as -1";
}

TEST_F(ArithmeticTest, SubtractIgnoresAThirdArgument) {
    EXPECT_EQ(Told("SUBTRACT(5,2)"), "Double 3");
    EXPECT_EQ(Told("SUBTRACT(5,2,1)"), "Double 3");
    EXPECT_EQ(Told("SUBTRACT(5)"), "Double 5");
}

TEST_F(ArithmeticTest, MultiplyIsZeroWithABlankAnywhere) {
    EXPECT_EQ(Told("MULTIPLY(2,3,4)"), "Double 24");
    EXPECT_EQ(Told("MULTIPLY(2,\"\",4)"), "Double 0");
    EXPECT_EQ(Told("MULTIPLY()"), "Double 0");
    EXPECT_EQ(Told("MULTIPLY(-1,0)"), "Double 0");
}

TEST_F(ArithmeticTest, DivideByZeroIsEmpty) {
    EXPECT_EQ(Told("DIVIDE(1,4)"), "Double 0.25");
    EXPECT_EQ(Told("DIVIDE(1,0)"), "Empty");
    EXPECT_EQ(Told("DIVIDE(0,0)"), "Empty");
    EXPECT_EQ(Told("DIVIDE(1)"), "Empty");
}

TEST_F(ArithmeticTest, NoQuotientLeavesTheFieldBlank) {
    for (const char* formula : {"SETME(DIVIDE(1,0))", "SETME(REMAINDER(7,0))"}) {
        m_me = QStringLiteral("old");
        EXPECT_EQ(Run(formula), "Empty") << formula;
        EXPECT_EQ(TextOf(m_me, m_application->conventions), QStringLiteral("")) << formula;
    }
}

TEST_F(ArithmeticTest, DivideSuppressesEveryFailureOfItsArguments) {
    EXPECT_EQ(Told("DIVIDE(\"1E300\",\"1E-300\")"), "Empty");
    EXPECT_EQ(Told("DIVIDE({FIELDS},1)"), "Empty");
}

TEST_F(ArithmeticTest, RemainderRoundsHalvesToEvenAndHasTheDividendsSign) {
    EXPECT_EQ(Told("REMAINDER(7,3)"), "Long 1");
    EXPECT_EQ(Told("REMAINDER(-7,3)"), "Long -1");
    EXPECT_EQ(Told("REMAINDER(7,-3)"), "Long 1");
    EXPECT_EQ(Told("REMAINDER(7.5,3)"), "Long 2");
    EXPECT_EQ(Told("REMAINDER(6.5,4)"), "Long 2");
}

TEST_F(ArithmeticTest, RemainderIsEmptyForAZeroDivisorAndBeyondThirtyTwoBits) {
    EXPECT_EQ(Told("REMAINDER(7,0)"), "Empty");
    EXPECT_EQ(Told("REMAINDER(7,0.4)"), "Empty");
    EXPECT_EQ(Told("REMAINDER(3000000000,7)"), "Empty");
    EXPECT_EQ(Told("REMAINDER(-2147483648,-1)"), "Long 0");
}

TEST_F(ArithmeticTest, NegateTakesAllItsTextAsOneExpression) {
    EXPECT_EQ(Told("NEGATE(5)"), "Double -5");
    EXPECT_EQ(Told("NEGATE(ADD(1,2))"), "Double -3");
    EXPECT_EQ(Told("NEGATE(0)"), "Double 0");
    EXPECT_EQ(Told("NEGATE(1,2)"), Told("NEGATE(\"1,2\")"));
}

TEST_F(ArithmeticTest, RoundTakesHalvesToEven) {
    EXPECT_EQ(Told("ROUND(2.5)"), "Long 2");
    EXPECT_EQ(Told("ROUND(3.5)"), "Long 4");
    EXPECT_EQ(Told("ROUND(-2.5)"), "Long -2");
    EXPECT_EQ(Told("ROUND(2147483647)"), "Long 2147483647");
    EXPECT_EQ(Told("ROUND(2147483648)"), "failure 6");
}

TEST_F(ArithmeticTest, TruncateCutsTheTextAtItsSeparator) {
    EXPECT_EQ(Told("TRUNCATE(2.9)"), "Double 2");
    EXPECT_EQ(Told("TRUNCATE(-2.9)"), "Double -2");
    EXPECT_EQ(Told("TRUNCATE(-0.5)"), "Double 0");
    EXPECT_EQ(Told("TRUNCATE(7)"), "Long 7");
    EXPECT_EQ(Told("TRUNCATE(\"abc\")"), "Long 0");
    EXPECT_EQ(Told("TRUNCATE(3000000000)"), "failure 6");
    EXPECT_EQ(Told("TRUNCATE(0.000015)"), "Double 1") << "the text is 1.5E-05";
    EXPECT_EQ(Told("TRUNCATE(0.00001)"), "Long 0") << "the text is 1E-05";
}

TEST_F(ArithmeticTest, TruncateKnowsTheSystemsSeparator) {
    UseLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Told("TRUNCATE(-12.75)"), "Double -12");
}

TEST_F(ArithmeticTest, AverageCountsBlanks) {
    EXPECT_EQ(Told("AVERAGE(1,2,3)"), "Double 2");
    EXPECT_EQ(Told("AVERAGE(3,\"\",\"\")"), "Double 1");
    EXPECT_EQ(Told("AVERAGE()"), "Double 0");
}

TEST_F(ArithmeticTest, PercentagesOfNothingAreBlank) {
    EXPECT_EQ(Told("PERCENTAGE(1,4)"), "Double 25");
    EXPECT_EQ(Told("PERCENTAGE(1,0)"), "String ");
    EXPECT_EQ(Told("PERCENTAGE(1)"), "String ");
    EXPECT_EQ(Told("PERCENTAGEOF(20,50)"), "Double 10");
    EXPECT_EQ(Told("PERCENTAGEOF(20,0)"), "String ");
}

TEST_F(ArithmeticTest, ResultsBeyondADoubleOverflow) {
    EXPECT_EQ(Told("ADD(\"1.7E308\",\"1.7E308\")"), "failure 6");
    EXPECT_EQ(Told("SUBTRACT(\"-1.7E308\",\"1.7E308\")"), "failure 6");
    EXPECT_EQ(Told("AVERAGE(\"1.7E308\",\"1.7E308\")"), "failure 6");
    EXPECT_EQ(Told("PERCENTAGE(\"1E308\",1)"), "failure 6");
    EXPECT_EQ(Told("PERCENTAGEOF(\"1E308\",\"1E10\")"), "failure 6");
}

class ExtremesTest : public FormulaTest {};

TEST_F(ExtremesTest, MaximumIsTheGreatestNumberAboveZero) {
    EXPECT_EQ(Told("MAXIMUM(1,5,3)"), "Double 5");
    EXPECT_EQ(Told("MAXIMUM(-1,\"\",2)"), "Double 2");
    EXPECT_EQ(Told("MAXIMUM(-1,-2)"), "Empty");
    EXPECT_EQ(Told("MAXIMUM(0)"), "Empty");
    EXPECT_EQ(Told("MAXIMUM()"), "Empty");
}

TEST_F(ExtremesTest, AReadingOverRangeIsTheMaximumAtOnce) {
    EXPECT_EQ(Told("MAXIMUM(\">100\",5)"), "String >100");
    EXPECT_EQ(Told("MAXIMUM(5,\">100\")"), "String >100");
    EXPECT_EQ(Told("MAXIMUM(\">100\",{FIELDS})"), "String >100") << "later items are not looked at";
}

TEST_F(ExtremesTest, MaximumReadsAnItemWithSideEffectsTwice) {
    m_me = 0.0;
    EXPECT_EQ(Told("MAXIMUM(CONCATENATE(SETME(ADD(ME,1)),ME))"), "Double 2");
}

TEST_F(ExtremesTest, MinimumIsTheLeastNumber) {
    EXPECT_EQ(Told("MINIMUM(4,2,3)"), "Double 2");
    EXPECT_EQ(Told("MINIMUM(\"\",-1,0)"), "Double -1");
    EXPECT_EQ(Told("MINIMUM(\"\")"), "Empty");
    EXPECT_EQ(Told("MINIMUM()"), "Empty");
    EXPECT_EQ(Told("MINIMUM(\"1.7E308\")"), "Empty") << "above where the search starts";
}

TEST_F(ExtremesTest, AReadingUnderRangeIsTheMinimumAtOnce) {
    EXPECT_EQ(Told("MINIMUM(\"<1\",\">5\")"), "String <1");
    EXPECT_EQ(Told("MINIMUM(-3,\"<1\",{FIELDS})"), "String <1");
}

TEST_F(ExtremesTest, AReadingOverRangeIsTheMinimumOnlyWithNothingLess) {
    EXPECT_EQ(Told("MINIMUM(\">5\")"), "String >5");
    EXPECT_EQ(Told("MINIMUM(\">5\",3)"), "Double 3");
    EXPECT_EQ(Told("MINIMUM(\">5\",7)"), "String >5");
    EXPECT_EQ(Told("MINIMUM(7,\">5\")"), "Double 7");
    EXPECT_EQ(Told("MINIMUM(\">5\",\">3\")"), "String >5");
    EXPECT_EQ(Told("MINIMUM(\">0\")"), "Double 0") << "a text that is no number reads as 0 too";
}

}  // namespace
}  // namespace sheetwright
