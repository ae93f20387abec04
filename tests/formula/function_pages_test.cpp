#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class PageFunctionTest : public FormulaTest {
  protected:
    PageFunctionTest() {
        AddDesign(QStringLiteral("Cover"));
        AddDesign(QStringLiteral("Result"));
        AddDesign(QStringLiteral("Unused"));
        AddDesign(QStringLiteral("RESULT"));
        AddPage(1, {QStringLiteral("Name=cover"), QStringLiteral("n=100")});
        AddPage(2, {QStringLiteral("n=1"), QStringLiteral("n=2"), QStringLiteral("t=first")});
        AddPage(1, {});
        AddPage(2, {QStringLiteral("n=3.5")});
        AddPage(2, {QStringLiteral("n=abc"), QStringLiteral("t=")});
        m_me = QStringLiteral("mine");
    }
};

TEST_F(PageFunctionTest, SumAddsAllItemsOfANameOnAllPagesOfTheDesign) {
    EXPECT_EQ(Told("SUM({FIELDS\\Result,n})"), "Double 6.5");
    m_mePage = 4;
    EXPECT_EQ(Told("SUM({fields\\Result,n})"), "Double 6.5") << "the page in hand makes no difference";
}

TEST_F(PageFunctionTest, SumOfNothingIsZero) {
    EXPECT_EQ(Told("SUM({FIELDS\\Result,missing})"), "Double 0");
    EXPECT_EQ(Told("SUM({FIELDS\\Unused,n})"), "Double 0");
}

TEST_F(PageFunctionTest, SumOfAnythingElseIsEmpty) {
    EXPECT_EQ(Told("SUM(1,2)"), "Empty");
    EXPECT_EQ(Told("SUM()"), "Empty");
    EXPECT_EQ(Told("SUM( {FIELDS\\Result,n})"), "Empty");
    EXPECT_EQ(Told("SUM({DRIVERS\\Result,n})"), "Empty");
    EXPECT_EQ(Told("SUM({FIELDS\\result,n})"), "Empty");
    EXPECT_EQ(Told("SUM({FIELDS})"), "failure 5");
}

TEST_F(PageFunctionTest, SumOverflows) {
    AddPage(2, {QStringLiteral("n=1.7E308"), QStringLiteral("n=1.7E308")});
    EXPECT_EQ(Told("SUM({FIELDS\\Result,n})"), "failure 6");
}

TEST_F(PageFunctionTest, SummingLongPagesOverAndOverIsCutShort) {
    AddPage(3, QStringList(20'000, QStringLiteral("long=1")) << QStringLiteral("one=1"));
    const auto sums = [](const QString& field, int count) {
        const QString sum = QStringLiteral("SUM({FIELDS\\Unused,%1})").arg(field);
        return QStringLiteral("ADD(%1)").arg(QStringList(count, sum).join(u','));
    };
    EXPECT_EQ(Told(sums(QStringLiteral("long"), 100)), "Double 2000000");
    EXPECT_EQ(Told(sums(QStringLiteral("long"), 1100)), "failure 28");
    EXPECT_EQ(Told(sums(QStringLiteral("one"), 1100)), "Double 1100");
}

TEST_F(PageFunctionTest, PreviousValueReadsTheNearestEarlierPage) {
    m_dataPageNum = 5;
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Result,n})"), "String 3.5");
    m_dataPageNum = 4;
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Result,n})"), "String 1") << "the first item of the name";
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Cover,BEGIN PAGE 3 DESIGN})"), "String 1");
}

TEST_F(PageFunctionTest, PreviousValueKeepsTheFieldWhereThereIsNone) {
    m_dataPageNum = 2;
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Result,n})"), "String mine");
    m_dataPageNum = 5;
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Result,t})"), "String mine") << "only the nearest page is asked";
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS\\Nowhere,n})"), "String mine");
    EXPECT_EQ(Told("PREVIOUSVALUE({LISTS\\Result,n})"), "String mine");
    EXPECT_EQ(Told("PREVIOUSVALUE(5)"), "String mine");
    m_me = 7.0;
    EXPECT_EQ(Told("PREVIOUSVALUE()"), "Double 7");
    EXPECT_EQ(Told("PREVIOUSVALUE({FIELDS})"), "failure 5");
}

TEST_F(PageFunctionTest, CountDesignPagesIgnoresCase) {
    EXPECT_EQ(Told("COUNTDESIGNPAGES(\"Result\")"), "Integer 3");
    EXPECT_EQ(Told("COUNTDESIGNPAGES(\"result\")"), "Integer 3");
    EXPECT_EQ(Told("COUNTDESIGNPAGES(\"RESULT\")"), "Integer 3") << "the first that fits";
    EXPECT_EQ(Told("COUNTDESIGNPAGES(\"Unused\")"), "Integer 0");
    EXPECT_EQ(Told("COUNTDESIGNPAGES(\"Nowhere\")"), "Integer 0");
}

TEST_F(PageFunctionTest, DesignPageNumbersAscendWithBlanksBetween) {
    EXPECT_EQ(Told("DESIGNPAGENUMBERS(\"result\")"), "String 2 4 5");
    EXPECT_EQ(Told("DESIGNPAGENUMBERS(\"Cover\")"), "String 1 3");
    EXPECT_EQ(Told("DESIGNPAGENUMBERS(\"Unused\")"), "String ");
    EXPECT_EQ(Told("DESIGNPAGENUMBERS(\"Nowhere\")"), "Empty");
}

TEST_F(PageFunctionTest, SetmeWritesAnyKindOfValue) {
    EXPECT_EQ(Told("SETME(EQUAL(1,1))"), "Empty");
    EXPECT_EQ(Told(m_me), QStringLiteral("Boolean True"));
    EXPECT_EQ(Told("SETME()"), "Empty");
    EXPECT_EQ(Told(m_me), QStringLiteral("Empty"));
}

}  // namespace
}  // namespace sheetwright
