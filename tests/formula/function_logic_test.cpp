#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class LogicTest : public FormulaTest {};

TEST_F(LogicTest, AndWantsAllItemsTrue) {
    EXPECT_EQ(Told("AND(EQUAL(1,1),\"true\",5)"), "Boolean True");
    EXPECT_EQ(Told("AND(\"True\",0)"), "Boolean False");
    EXPECT_EQ(Told("AND()"), "Boolean False");
    EXPECT_EQ(Told("AND(2,1)"), "Boolean True") << "Booleans are combined, not the numbers' bits";
}

TEST_F(LogicTest, OrWantsOneItemTrue) {
    EXPECT_EQ(Told("OR(0,\"True\")"), "Boolean True");
    EXPECT_EQ(Told("OR(0,\"FALSE\")"), "Boolean False");
    EXPECT_EQ(Told("OR()"), "Boolean False");
}

TEST_F(LogicTest, AnItemThatIsNoBooleanCountsAsTheOneBefore) {
    EXPECT_EQ(Told("AND(\"True\",\"Yes\")"), "Boolean True");
    EXPECT_EQ(Told("AND(\"Yes\",\"True\")"), "Boolean False") << "the first counts as False";
    EXPECT_EQ(Told("OR(\"Yes\")"), "Boolean False");
    EXPECT_EQ(Told("OR(\"True\",\"\")"), "Boolean True");
    EXPECT_EQ(Told("AND(1,{FIELDS})"), "Boolean True");
}

TEST_F(LogicTest, AndAndOrEvaluateAllItems) {
    EXPECT_EQ(Told("AND(0,SETME(7))"), "Boolean False");
    EXPECT_EQ(Told(m_me), QStringLiteral("Double 7"));
    EXPECT_EQ(Told("OR(1,SETME(8))"), "Boolean True");
    EXPECT_EQ(Told(m_me), QStringLiteral("Double 8"));
}

TEST_F(LogicTest, NotIsFalseOnlyForMinusOne) {
    EXPECT_EQ(Told("NOT(EQUAL(1,1))"), "Boolean False");
    EXPECT_EQ(Told("NOT(EQUAL(1,2))"), "Boolean True");
    EXPECT_EQ(Told("NOT(NOWORD)"), "Boolean True");
    EXPECT_EQ(Told("NOT()"), "Boolean True");
    EXPECT_EQ(Told("NOT(0)"), "Boolean True");
    EXPECT_EQ(Told("NOT(-1)"), "Boolean False");
    EXPECT_EQ(Told("NOT(2)"), "Boolean True");
    EXPECT_EQ(Told("NOT(70000)"), "Boolean True");
}

TEST_F(LogicTest, NotOfATextFails) {
    EXPECT_EQ(Told("NOT(\"abc\")"), "failure 13");
    EXPECT_EQ(Told("NOT(\"\")"), "failure 13");
    EXPECT_EQ(Told("NOT(3000000000)"), "failure 6");
}

TEST_F(LogicTest, IfEvaluatesTheChosenBranchOnly) {
    EXPECT_EQ(Told("IF(EQUAL(1,1),\"yes\",{FIELDS})"), "String yes");
    EXPECT_EQ(Told("IF(EQUAL(1,2),{FIELDS},\"no\")"), "String no");
    EXPECT_EQ(Told("IF(\"TRUE\",1,2)"), "Double 1");
    EXPECT_EQ(Told("IF(3,1,2)"), "Double 1");
    EXPECT_EQ(Told("IF(NOWORD,1,2)"), "Double 2");
    EXPECT_EQ(Told("IF(0,1)"), "Empty");
    EXPECT_EQ(Told("IF(1)"), "Empty");
}

TEST_F(LogicTest, IfOnATextThatIsNoBooleanFails) {
    EXPECT_EQ(Told("IF(\"Yes\",1,2)"), "failure 13");
    EXPECT_EQ(Told("IF(\"\",1,2)"), "failure 13");
}

TEST_F(LogicTest, InterpretMapsCodesToWords) {
    const auto interpreted = [this](const QString& code) {
        return Told(QStringLiteral("INTERPRET(%1,\"A\",\"Alpha\",\"B\",\"Beta\")").arg(code));
    };
    EXPECT_EQ(interpreted(QStringLiteral("\"A\"")), "String Alpha");
    EXPECT_EQ(interpreted(QStringLiteral("\" B \"")), "String Beta");
    EXPECT_EQ(interpreted(QStringLiteral("\"a\"")), "String a");
    EXPECT_EQ(interpreted(QStringLiteral("\" C \"")), "String  C ") << "passed through untrimmed";
    EXPECT_EQ(interpreted(QStringLiteral("5")), "Double 5") << "with its own kind";
}

TEST_F(LogicTest, InterpretNeverComparesATrailingKey) {
    EXPECT_EQ(Told("INTERPRET(\"A\",\"A\")"), "String A");
    EXPECT_EQ(Told("INTERPRET(\"B\",\"A\",\"Alpha\",\"B\")"), "String B");
    EXPECT_EQ(Told("INTERPRET(5)"), "Double 5");
}

TEST_F(LogicTest, InterpretGivesTextsOnly) {
    EXPECT_EQ(Told("INTERPRET(1,1,2)"), "String 2");
    EXPECT_EQ(Told("INTERPRET(1,1,\"True\")"), "String -1");
    EXPECT_EQ(Told("INTERPRET(\"True\",-1,\" on \")"), "String on");
}

TEST_F(LogicTest, InterpretReadsAnUnmatchedKeyAfresh) {
    m_me = QStringLiteral("old");
    EXPECT_EQ(Told("INTERPRET(ME,\"x\",SETME(\"new\"))"), "String new");
}

TEST_F(LogicTest, OverallFailsAfterAFirstPass) {
    EXPECT_EQ(Told("OVERALL(\"PASS\",\"FAIL\",\"FAIL\",\"PASS\")"), "String PASS");
    EXPECT_EQ(Told("OVERALL(\"PASS\",\"FAIL\",\"PASS\",\"FAIL\")"), "String FAIL");
    EXPECT_EQ(Told("OVERALL(\"PASS\",\"FAIL\",\"x\")"), "String PASS");
    EXPECT_EQ(Told("OVERALL(\"PASS\",\"FAIL\")"), "String PASS");
    EXPECT_EQ(Told("OVERALL(\"P\",\"P\",\"P\")"), "String P");
}

TEST_F(LogicTest, OverallWithoutPassWordFailsAtAnyFail) {
    EXPECT_EQ(Told("OVERALL(\"\",\"FAIL\",\"x\")"), "String ");
    EXPECT_EQ(Told("OVERALL(\"\",\"FAIL\",\"x\",\"FAIL\")"), "String FAIL");
    EXPECT_EQ(Told("OVERALL()"), "String ");
}

TEST_F(LogicTest, OverallTrimsAndNormalises) {
    EXPECT_EQ(Told("OVERALL(\"True\",\"False\",-1,0)"), "String 0");
    EXPECT_EQ(Told("OVERALL(\"PASS\",\"FAIL\",\" PASS \",\"FAIL \")"), "String FAIL");
}

}  // namespace
}  // namespace sheetwright
