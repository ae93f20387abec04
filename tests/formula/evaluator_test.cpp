#include "formula/evaluator.h"

#include "core/failure.h"
#include "formula/formula_test_base.h"
#include "formula/functions.h"

#include <QSet>

namespace sheetwright {
namespace {

TEST(FindMyClosing, FindsTheParenthesisOfTheSameDepth) {
    EXPECT_EQ(FindMyClosing(u"ADD(1,ADD(2,3)),4)", 4), 15);
    EXPECT_EQ(FindMyClosing(u"ADD(1,ADD(2,3)),4)", 10), 14);
    EXPECT_EQ(FindMyClosing(u"()", 1), 2);
}

TEST(FindMyClosing, GivesZeroWhenNothingCloses) {
    EXPECT_EQ(FindMyClosing(u"ADD(1,(2)", 4), 0);
    EXPECT_EQ(FindMyClosing(u"ADD(", 4), 0);
    EXPECT_EQ(FindMyClosing(u"", 1), 0);
}

TEST(FindMyClosing, CountsParenthesesInsideStrings) {
    EXPECT_EQ(FindMyClosing(u"A(\")\")", 2), 4);
    EXPECT_EQ(FindMyClosing(u"A(\"(\")", 2), 0);
}

TEST(FindMyClosing, RefusesPositionsBelowTheTextAndBeyondSixteenBits) {
    EXPECT_EQ(FailureOf([] { (void)FindMyClosing(u"()", -1); }), 5);
    const QString late = QString(40'000, u'x') + u')';
    EXPECT_EQ(FailureOf([&] { (void)FindMyClosing(late, 1); }), 6);
}

TEST(FSplitComma, CutsAtCommasOutsideQuotesParenthesesAndBraces) {
    const QStringView arguments = u"1,ADD(2,3),{FIELDS\\a,b},\"x,y\", z ";
    EXPECT_EQ(FSplitComma(arguments, 1), u"1");
    EXPECT_EQ(FSplitComma(arguments, 2), u"ADD(2,3)");
    EXPECT_EQ(FSplitComma(arguments, 3), u"{FIELDS\\a,b}");
    EXPECT_EQ(FSplitComma(arguments, 4), u"\"x,y\"");
    EXPECT_EQ(FSplitComma(arguments, 5), u" z ");
    EXPECT_EQ(FSplitComma(arguments, 6), u",");
}

TEST(FSplitComma, AnEmptyTextHasOneEmptyArgument) {
    EXPECT_EQ(FSplitComma(u"", 1), u"");
    EXPECT_EQ(FSplitComma(u"", 2), u",");
}

TEST(FSplitComma, EmptyArgumentsCountAlsoAtTheEnd) {
    EXPECT_EQ(FSplitComma(u"1,,", 2), u"");
    EXPECT_EQ(FSplitComma(u"1,,", 3), u"");
    EXPECT_EQ(FSplitComma(u"1,,", 4), u",");
}

TEST(FSplitComma, ThereIsNoArgumentBeforeTheFirst) {
    EXPECT_EQ(FSplitComma(u"1,2", 0), u",");
    EXPECT_EQ(FSplitComma(u"1,2", -3), u",");
}

TEST(FSplitComma, AParenthesisInsideQuotesDoesNotCount) {
    EXPECT_EQ(FSplitComma(u"\"(\",2", 2), u"2");
    EXPECT_EQ(FSplitComma(u"\"}\",2", 2), u"2");
}

TEST(FSplitComma, AnUnbalancedDepthOrQuoteHidesAllFurtherCommas) {
    EXPECT_EQ(FSplitComma(u"),1", 1), u"),1");
    EXPECT_EQ(FSplitComma(u"\"a,1", 1), u"\"a,1");
    EXPECT_EQ(FSplitComma(u"},{,2", 2), u"2");
}

class EvaluatorTest : public FormulaTest {
  protected:
    EvaluatorTest() {
        AddDesign(QStringLiteral("Cover"));
        AddDesign(QStringLiteral("A"));
        AddDesign(QStringLiteral("Unused"));
        AddPage(1, {QStringLiteral("Name=first"), QStringLiteral("Blank=")});
        AddPage(2, {QStringLiteral("b=x"), QStringLiteral("x,y=comma"), QStringLiteral("7=seven")});
        AddPage(2, {QStringLiteral("b=y")});
        AddPage(1, {QStringLiteral("Name=fourth")});
        AddPage(1, {QStringLiteral("Name=fifth"), QStringLiteral("Name=again"), QStringLiteral("eq=a=b")});
        AddPage(2, {QStringLiteral("b=last"), QStringLiteral("no equals sign")});
    }
};

TEST_F(EvaluatorTest, NumbersAreDoubles) {
    EXPECT_EQ(Told("12"), "Double 12");
    EXPECT_EQ(Told("-1.5"), "Double -1.5");
    EXPECT_EQ(Told(".5"), "Double 0.5");
    EXPECT_EQ(Told("-"), "Double 0");
    EXPECT_EQ(Told("."), "Double 0");
    EXPECT_EQ(Told("1abc"), "Double 1");
}

TEST_F(EvaluatorTest, ADateWithoutQuotesIsReadAsItsStamp) {
    EXPECT_EQ(Told("12/10/2003"), "Double 20031012");
}

TEST_F(EvaluatorTest, ANegatedCallIsANumberAndNoCall) {
    EXPECT_EQ(Told("-ADD(1,2)"), "Double 0");
}

TEST_F(EvaluatorTest, PointFiveIsAHalfWhateverTheDecimalSeparator) {
    UseLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Told(".5"), "Double 0,5");
    EXPECT_EQ(Told("ADD(1.25,0.5)"), "Double 1,75");
}

TEST_F(EvaluatorTest, TheFirstPointOfANumberIsRewrittenInTheCallersText) {
    UseLocale(QLocale(QLocale::German, QLocale::Germany));
    EvaluationContext context = Context();
    Evaluator evaluator(context);
    QString number = QStringLiteral("1.5.2");
    (void)evaluator.Evaluate(number);
    EXPECT_EQ(number, QStringLiteral("1,5.2"));

    QString text = QStringLiteral("\"1.5\"");
    (void)evaluator.Evaluate(text);
    EXPECT_EQ(text, QStringLiteral("\"1.5\""));
}

TEST_F(EvaluatorTest, APointStaysWhereItIsTheDecimalSeparator) {
    EvaluationContext context = Context();
    QString number = QStringLiteral("1.5");
    EXPECT_EQ(Evaluator(context).Evaluate(number), Value(1.5));
    EXPECT_EQ(number, QStringLiteral("1.5"));
}

TEST_F(EvaluatorTest, QuotedTextIsAStringUnlessItIsANumber) {
    EXPECT_EQ(Told("\"\""), "String ");
    EXPECT_EQ(Told("\"0\""), "Double 0");
    EXPECT_EQ(Told("\"12\""), "Double 12");
    EXPECT_EQ(Told("\"1a\""), "String 1a");
    EXPECT_EQ(Told("\"-\""), "String -");
    EXPECT_EQ(Told("\"31/12/1999\""), "String 31/12/1999");
}

TEST_F(EvaluatorTest, TheLastCharacterOfAStringIsDroppedUnseen) {
    EXPECT_EQ(Told("\"abcd"), "String abc");
}

TEST_F(EvaluatorTest, ALoneQuoteFails) {
    EXPECT_EQ(Told("\""), "failure 5");
}

TEST_F(EvaluatorTest, KeywordsIgnoreCase) {
    m_dataPageNum = 3;
    m_me = QStringLiteral("mine");
    EXPECT_EQ(Told("PAGENUMBER"), "Integer 3");
    EXPECT_EQ(Told("pageCount"), "Integer 6");
    EXPECT_EQ(Told("ME"), "String mine");
    EXPECT_EQ(Told("me"), "String mine");
}

TEST_F(EvaluatorTest, OtherWordsAreEmpty) {
    EXPECT_EQ(Told(""), "Empty");
    EXPECT_EQ(Told("TODAY"), "Empty");
    EXPECT_EQ(Told("M\xC4\x93"), "Empty");
    EXPECT_EQ(Told(" 2"), "Empty");
    EXPECT_EQ(Told("A KEYWORD LONGER THAN ANY NAME"), "Empty");
}

TEST_F(EvaluatorTest, BooleansPrintInEnglishAndCountAsMinusOneAndZero) {
    m_words = {QStringLiteral("Wahr"), QStringLiteral("Falsch")};
    EXPECT_EQ(Told("CONCATENATE(EQUAL(1,1),EQUAL(1,2))"), "String TrueFalse");
    EXPECT_EQ(Told("ADD(EQUAL(1,1))"), "Double -1");
    EXPECT_EQ(Told("ADD(EQUAL(1,2))"), "Double 0");
}

TEST_F(EvaluatorTest, EmptyIsNoTextZeroAndFalse) {
    EXPECT_EQ(Told("CONCATENATE(NOPE)"), "String ");
    EXPECT_EQ(Told("ADD(NOPE)"), "Double 0");
    EXPECT_EQ(Told("IF(NOPE,1,2)"), "Double 2");
}

TEST_F(EvaluatorTest, FunctionNamesIgnoreCase) {
    EXPECT_EQ(Told("ADD(1,2)"), "Double 3");
    EXPECT_EQ(Told("add(1,2)"), "Double 3");
}

TEST_F(EvaluatorTest, UnknownFunctionsAreEmptyAndSayNothing) {
    EXPECT_EQ(Told("FOO(1)"), "Empty");
    EXPECT_EQ(Told("AFUNCTIONNAMEOFANYLENGTHATALL(1)"), "Empty");
    EXPECT_EQ(Told("(1)"), "Empty");
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(EvaluatorTest, BlanksOutsideStringsBelongToNamesAndArguments) {
    EXPECT_EQ(Told("ADD (1)"), "Empty");
    EXPECT_EQ(Told("ADD(1, 2)"), "Double 1");
}

TEST_F(EvaluatorTest, TextBehindACallIsIgnored) {
    EXPECT_EQ(Told("ADD(1,2)+ADD(3,4)"), "Double 3");
}

TEST_F(EvaluatorTest, AParenthesisThatDoesNotCloseFails) {
    EXPECT_EQ(Told("ADD(1,2"), "failure 5");
    EXPECT_EQ(Told("FOO("), "failure 5");
}

TEST_F(EvaluatorTest, AParenthesisInAStringSpoilsTheCall) {
    EXPECT_EQ(Told("CONCATENATE(\"(\",{FIELDS\\A,b})"), "failure 5");
    EXPECT_EQ(Told("CONCATENATE(\"()\",{FIELDS\\A,b})"), "String ()last");
}

TEST_F(EvaluatorTest, EveryNamedFunctionIsFound) {
    for (const QString& name : FunctionNames())
        EXPECT_NE(FindFunction(name), nullptr) << name.toStdString();
    EXPECT_EQ(FunctionNames().size(), 43);
    EXPECT_EQ(FindFunction(u"ADDS"), nullptr);
    EXPECT_EQ(FindFunction(u""), nullptr);
    EXPECT_EQ(FindFunction(u"ME"), nullptr);
}

TEST_F(EvaluatorTest, AFailingArgumentFailsTheFunctionUnlessItSuppressesFailuresOrReadsNone) {
    const QSet<QString> spared{
        QStringLiteral("AND"),       QStringLiteral("OR"),     QStringLiteral("DIVIDE"),
        QStringLiteral("REMAINDER"), QStringLiteral("INYEAR"), QStringLiteral("INMONTH"),
        QStringLiteral("DAYOFWEEK"), QStringLiteral("TODAY"),  QStringLiteral("VALIDATIONPASSED"),
        QStringLiteral("VALIDATE"),
    };
    for (const QString& name : FunctionNames()) {
        const bool fails = Told(name + QStringLiteral("({FIELDS})")) == "failure 5";
        EXPECT_NE(fails, spared.contains(name)) << name.toStdString();
    }
}

TEST_F(EvaluatorTest, EveryKeywordHasAValue) {
    m_me = true;
    for (const QString& name : KeywordNames())
        EXPECT_NE(Told(name), "Empty") << name.toStdString();
}

TEST_F(EvaluatorTest, AReferenceReadsTheLastPageOfTheDesign) {
    EXPECT_EQ(Told("{FIELDS\\Cover,Name}"), "String fifth");
    EXPECT_EQ(Told("{fields\\A,b}"), "String last");
}

TEST_F(EvaluatorTest, AReferencePrefersMePageWhenItHasTheDesign) {
    m_mePage = 4;
    EXPECT_EQ(Told("{FIELDS\\Cover,Name}"), "String fourth");
    m_mePage = 2;
    EXPECT_EQ(Told("{FIELDS\\Cover,Name}"), "String fifth");
    EXPECT_EQ(Told("{FIELDS\\A,b}"), "String x");
}

TEST_F(EvaluatorTest, AMePageThatIsNoPageIsNoPreference) {
    for (const int page : {-1, 7, 32767}) {
        m_mePage = static_cast<std::int16_t>(page);
        EXPECT_EQ(Told("{FIELDS\\Cover,Name}"), "String fifth");
    }
}

TEST_F(EvaluatorTest, AnEmptyFieldIsAStringAndAMissingOneEmpty) {
    m_mePage = 1;
    EXPECT_EQ(Told("{FIELDS\\Cover,Blank}"), "String ");
    EXPECT_EQ(Told("{FIELDS\\Cover,Missing}"), "Empty");
    EXPECT_EQ(Told("ADD({FIELDS\\Cover,Blank},{FIELDS\\Cover,Missing})"), "Double 0");
    EXPECT_EQ(Told("CONCATENATE({FIELDS\\Cover,Blank},{FIELDS\\Cover,Missing})"), "String ");
}

TEST_F(EvaluatorTest, DesignsAndFieldsAreComparedWithCase) {
    EXPECT_EQ(Told("{FIELDS\\cover,Name}"), "Empty");
    EXPECT_EQ(Told("{FIELDS\\Cover,name}"), "Empty");
}

TEST_F(EvaluatorTest, ADesignWithoutPagesOrOfNoNameIsEmpty) {
    EXPECT_EQ(Told("{FIELDS\\Unused,Name}"), "Empty");
    EXPECT_EQ(Told("{FIELDS\\Nowhere,Name}"), "Empty");
}

TEST_F(EvaluatorTest, TheFirstItemOfANameCountsWithAllBehindItsFirstEqualsSign) {
    EXPECT_EQ(Told("{FIELDS\\Cover,Name}"), "String fifth");
    EXPECT_EQ(Told("{FIELDS\\Cover,eq}"), "String a=b");
}

TEST_F(EvaluatorTest, ThePageHeaderIsAnItem) {
    EXPECT_EQ(Told("{FIELDS\\A,BEGIN PAGE 6 DESIGN}"), "String 2");
}

TEST_F(EvaluatorTest, AnItemWithoutEqualsSignHasTheEmptyName) {
    EXPECT_EQ(Told("{FIELDS\\A,\"\"}"), "String ");
    EXPECT_EQ(Told("{FIELDS\\A}"), "String ");
}

TEST_F(EvaluatorTest, AQuotedFieldNameMayHoldACommaAndANumericOneIsNormalised) {
    m_mePage = 2;
    EXPECT_EQ(Told("{FIELDS\\A,\"x,y\"}"), "String comma");
    EXPECT_EQ(Told("{FIELDS\\A,007}"), "String seven");
}

TEST_F(EvaluatorTest, WhatFollowsTheFieldNameOfAReferenceIsIgnored) {
    EXPECT_EQ(Told("{FIELDS\\A,b,c}"), "String last");
    EXPECT_EQ(Told("{FIELDS\\A,b,}"), "String last");
    EXPECT_EQ(Told("{\"FIELDS\\A\",\"b\",c}"), "String last");
    EXPECT_EQ(Told("{FIELDS\\A,}"), "Empty") << "an empty name reads as 0";
}

TEST_F(EvaluatorTest, OfSeveralDesignsOfOneTitleTheFirstIsRead) {
    AddDesign(QStringLiteral("A"));
    AddPage(4, {QStringLiteral("b=of the namesake")});
    EXPECT_EQ(Told("{FIELDS\\A,b}"), "String last");
    m_mePage = 7;
    EXPECT_EQ(Told("{FIELDS\\A,b}"), "String last");
}

TEST_F(EvaluatorTest, ATitleMayHoldABackslashAndInQuotesAComma) {
    AddDesign(QStringLiteral("A\\B"));
    AddDesign(QStringLiteral("c,d"));
    AddPage(4, {QStringLiteral("b=behind the first backslash")});
    AddPage(5, {QStringLiteral("b=quoted")});
    EXPECT_EQ(Told("{FIELDS\\A\\B,b}"), "String behind the first backslash");
    EXPECT_EQ(Told("{\"FIELDS\\c,d\",b}"), "String quoted");
    EXPECT_EQ(Told("{FIELDS\\c,d,b}"), "Empty");
}

TEST_F(EvaluatorTest, AReferenceNeedsABackslash) {
    EXPECT_EQ(Told("{FIELDS,b}"), "failure 5");
    EXPECT_EQ(Told("{FIELDS}"), "failure 5");
    EXPECT_EQ(Told("{12,x}"), "failure 5");
    EXPECT_EQ(Told("{}"), "failure 5");
    EXPECT_EQ(Told("{"), "failure 5");
}

TEST_F(EvaluatorTest, OtherGroupsAreEmpty) {
    EXPECT_EQ(Told("{BOOLEAN\\a,b}"), "Empty");
    EXPECT_EQ(Told("{DATE\\a,b}"), "Empty");
    EXPECT_EQ(Told("{\\a,b}"), "Empty");
}

TEST_F(EvaluatorTest, TheLastCharacterOfAReferenceIsDroppedUnseen) {
    EXPECT_EQ(Told("{FIELDS\\A,b)"), "String last");
}

class TableReferenceTest : public FormulaTest {
  protected:
    TableReferenceTest() {
        Write(QStringLiteral("orders.inf"),
              "[Due]\r\nDataType=DATE\r\n[Paid]\r\nDataType=BOOLEAN\r\n"
              "[Open]\r\nDataType=BOOLEAN\r\n[Sum]\r\nDataType=NUMBER\r\n");
        const QString path =
            Write(QStringLiteral("orders.csv"),
                  "Name,Due,Paid,Open,Sum\r\nAda,19991231,-1,0,1.50\r\nBob,20000101,0,-1,2\r\n");
        m_table.SetFileName(path);
        m_words = {QStringLiteral("Wahr"), QStringLiteral("Falsch")};
    }
    CsvTable m_table;
};

TEST_F(TableReferenceTest, DriversReadTheCurrentRecord) {
    m_driver = &m_table;
    EXPECT_EQ(Told("{DRIVERS\\whatever,Name}"), "String Ada");
    m_table.MoveNext();
    EXPECT_EQ(Told("{drivers\\,Name}"), "String Bob");
}

TEST_F(TableReferenceTest, DatesAppearUnderTheMaskAndBooleansAsTheDocumentsWords) {
    m_driver = &m_table;
    EXPECT_EQ(Told("{DRIVERS\\x,Due}"), "String 31/12/1999");
    EXPECT_EQ(Told("{DRIVERS\\x,Paid}"), "String Wahr");
    EXPECT_EQ(Told("{DRIVERS\\x,Open}"), "String Falsch");
    EXPECT_EQ(Told("{DRIVERS\\x,Sum}"), "String 1.50");
}

TEST_F(TableReferenceTest, AMissingColumnOrDriverIsEmpty) {
    EXPECT_EQ(Told("{DRIVERS\\x,Name}"), "Empty");
    CsvTable fresh;
    m_driver = &fresh;
    EXPECT_EQ(Told("{DRIVERS\\x,Name}"), "Empty");
    m_driver = &m_table;
    EXPECT_EQ(Told("{DRIVERS\\x,Nothing}"), "Empty");
}

TEST_F(TableReferenceTest, OnlyMinusOneIsTrueAndABlankDateHasNoText) {
    m_driver = &m_table;
    const std::pair<const char*, const char*> cases[] = {{"-1.0", "String Wahr"},
                                                         {"1", "String Falsch"},
                                                         {"-2", "String Falsch"},
                                                         {"", "String Falsch"},
                                                         {"True", "String Falsch"}};
    for (const auto& [stored, told] : cases) {
        m_table.Columns().At(QStringLiteral("Paid")).SetValue(QString::fromLatin1(stored));
        EXPECT_EQ(Told("{DRIVERS\\x,Paid}"), told) << stored;
    }
    m_table.Columns().At(QStringLiteral("Due")).SetValue(QString());
    EXPECT_EQ(Told("{DRIVERS\\x,Due}"), "String ");
}

TEST_F(TableReferenceTest, ADriverNeedsAFileNameAndAListNone) {
    CsvTable fresh;
    fresh.Columns().Add(QStringLiteral("Name"));
    fresh.AddRecord();
    fresh.Columns().At(QStringLiteral("Name")).SetValue(QStringLiteral("Cy"));
    m_driver = &fresh;
    m_list = &fresh;
    EXPECT_EQ(Told("{DRIVERS\\x,Name}"), "Empty");
    EXPECT_EQ(Told("{LISTS\\x,Name}"), "String Cy");
}

TEST_F(TableReferenceTest, ListsReadTheSelectedRowOfTheAttachedList) {
    EXPECT_EQ(Told("{LISTS\\x,Name}"), "Empty");
    m_list = &m_table;
    m_table.SetPosition(2);
    EXPECT_EQ(Told("{LISTS\\x,Name}"), "String Bob");
    EXPECT_EQ(Told("{LISTS\\x,Due}"), "String 01/01/2000");
    EXPECT_EQ(Told("{LISTS\\x,Nothing}"), "Empty");
}

class StatementsTest : public FormulaTest {
  protected:
    StatementsTest() { m_me = QStringLiteral("before"); }
};

TEST_F(StatementsTest, AFormulaWithoutSetmeLeavesTheField) {
    EXPECT_EQ(Run("ADD(1,2)"), "String before");
    EXPECT_EQ(Run(""), "String before");
    EXPECT_EQ(Run(";"), "String before");
}

TEST_F(StatementsTest, AnEmptyRemainderIsNotEvaluated) {
    EXPECT_EQ(Run("SETME(1);"), "Double 1");
}

TEST_F(StatementsTest, LaterStatementsReadWhatEarlierOnesWrote) {
    EXPECT_EQ(Run("IF(\"True\",SETME(1),SETME(2));SETME(ADD(ME,1))"), "Double 2");
}

TEST_F(StatementsTest, SemicolonsInQuotesAndParenthesesDoNotSeparate) {
    EXPECT_EQ(Run("SETME(CONCATENATE(\"a;b\",\";\"))"), "String a;b;");
}

TEST_F(StatementsTest, TheFirstCharacterOfALaterStatementIsNotScanned) {
    EXPECT_EQ(Run("1;(1);SETME(4)"), "String before") << "the opening goes unseen, so the depth is -1";
    EXPECT_EQ(Run("SETME(1);;SETME(2)"), "Double 1") << "the second separator goes unseen";
    EXPECT_EQ(Run("1;\"a;SETME(3)"), "Double 3") << "the quote goes unseen, so the separator counts";
}

TEST_F(StatementsTest, AFailureEndsTheFormula) {
    EXPECT_EQ(FailureOf([&] { Run("SETME(1);SETME(IF(\"x\",1,2));SETME(9)"); }), 13);
    EXPECT_EQ(Told(m_me), QStringLiteral("Double 1"));
}

}  // namespace
}  // namespace sheetwright
