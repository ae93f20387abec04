#include "formula/formula_check.h"

#include "formula/evaluator.h"
#include "formula/formula_scan.h"
#include "support/test_application.h"

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ReferenceTargets SampleTargets() {
    ReferenceTargets targets;
    targets.AddTitle(QStringLiteral("Cover Page"));
    targets.AddTitle(QStringLiteral("Results"));
    for (const char* name : {"Asset 1", "x,y", "7"})
        targets.AddName(1, QString::fromUtf8(name));
    targets.AddName(2, QStringLiteral("Value"));
    return targets;
}

std::vector<std::string> Check(const QString& formula) {
    std::vector<std::string> findings;
    const Conventions conventions = ConventionsOf(QLocale(QLocale::English, QLocale::UnitedKingdom));
    for (const QString& finding : CheckFormula(formula, SampleTargets(), conventions))
        findings.push_back(finding.toStdString());
    return findings;
}

std::vector<std::string> Check(const char* formula) {
    return Check(QString::fromUtf8(formula));
}

QString Nested(int depth) {
    return QStringLiteral("NEGATE(").repeated(depth - 1) + u'1' + QStringLiteral(")").repeated(depth - 1);
}

}  // namespace

TEST(CheckFormula, CorrectFormulasHaveNoFinding) {
    for (const char* formula : {"",
                                ";",
                                "SETME(1);",
                                "ME",
                                "me",
                                "pagenumber",
                                "add(1,2)",
                                "SETME(ADD(ME,1))",
                                "TODAY()",
                                "IF(ISEMPTY({FIELDS\\Cover Page,Asset 1}),\"\",SETME(\"a, b\"))",
                                "IF(1,SETME(1),);SETME(ADD(ME,1))",
                                "SUM({FIELDS\\Results,Value})",
                                "PREVIOUSVALUE({fields\\Results,Value})",
                                "{FIELDS\\Cover Page,\"x,y\"}",
                                "{FIELDS\\Cover Page,007}",
                                "{DRIVERS\\any thing,A field}",
                                "{LISTS\\Sites,Name}",
                                "COUNTDESIGNPAGES(\"RESULTS\")",
                                "COUNTDESIGNPAGES(ME)",
                                "VALIDATE(FOO(1))",
                                "VALIDATIONPASSED()",
                                "-5",
                                "-",
                                ".5",
                                "12/10/2003",
                                "1E-05",
                                "CONCATENATE(\"(x)\",ME)",
                                "\"a;b\"",
                                "VAR(\"n\")"})
        EXPECT_THAT(Check(formula), IsEmpty()) << formula;
}

TEST(CheckFormula, AnUnknownFunctionIsFound) {
    EXPECT_THAT(Check("FOO(1)"), ElementsAre("unknown function \"FOO\""));
    EXPECT_THAT(Check("SETME(IF(1,Foo(2),BAR(3)))"),
                ElementsAre("unknown function \"Foo\"", "unknown function \"BAR\""));
}

TEST(CheckFormula, AnUnknownKeywordIsFound) {
    EXPECT_THAT(Check("SETME(PAGENUMBERS)"), ElementsAre("unknown keyword \"PAGENUMBERS\""));
    EXPECT_THAT(Check("SETME(TODAY)"), ElementsAre("function TODAY without parentheses"));
}

TEST(CheckFormula, ABlankOutsideStringsIsFound) {
    EXPECT_THAT(Check("ADD(1, 2)"), ElementsAre("blank outside a string at character 7"));
    EXPECT_THAT(Check("ADD (1)"), ElementsAre("blank outside a string at character 4"));
    EXPECT_THAT(Check("CONCATENATE(\"a b\",{FIELDS\\Cover Page,Asset 1})"), IsEmpty());
}

TEST(CheckFormula, UnbalancedParenthesesAreFound) {
    EXPECT_THAT(Check("ADD(1,2"), ElementsAre("parentheses don't balance: \"ADD(1,2\""));
    EXPECT_THAT(Check("ADD(1,2))"), ElementsAre("parentheses don't balance behind ADD(): \")\""));
    EXPECT_THAT(Check("ME)"), ElementsAre("parentheses don't balance: \"ME)\""));
}

TEST(CheckFormula, UnbalancedQuotesAreFound) {
    EXPECT_THAT(Check("\""), ElementsAre("quotes don't balance"));
    EXPECT_THAT(Check("SETME(\"abc)"), ElementsAre("quotes don't balance"));
}

TEST(CheckFormula, TextBehindAStringIsFound) {
    EXPECT_THAT(Check("SETME(\"a\"b)"), ElementsAre("text behind the end of a string: \"\"a\"b\""));
    EXPECT_THAT(Check("SETME(\"say \"\"hi\"\"\")"),
                ElementsAre("text behind the end of a string: \"\"say \"\"hi\"\"\"\""));
}

TEST(CheckFormula, AParenthesisInsideAStringThatSpoilsTheClosingSearchIsFound) {
    EXPECT_THAT(Check("CONCATENATE(\"(\",{FIELDS\\Results,Value})"),
                ElementsAre("a parenthesis inside a string spoils the closing search of CONCATENATE("));
    EXPECT_THAT(Check("SETME(CONCATENATE(\"a)\",ME))"),
                ElementsAre("a parenthesis inside a string spoils the closing search of SETME("));
}

TEST(CheckFormula, TextBehindACallIsFound) {
    EXPECT_THAT(Check("ADD(1,2)+3"), ElementsAre("text behind ADD() is ignored: \"+3\""));
}

TEST(CheckFormula, WhatBeginsAsANumberAndIsNoneIsFound) {
    EXPECT_THAT(Check("1abc"), ElementsAre("\"1abc\" is no number"));
    EXPECT_THAT(Check("SETME(-ADD(1,2))"), ElementsAre("\"-ADD(1,2)\" is no number"));
}

TEST(CheckFormula, ReferencesToNothingAreFound) {
    EXPECT_THAT(Check("{FIELDS\\Cover,Asset 1}"), ElementsAre("no design page \"Cover\""));
    EXPECT_THAT(Check("{FIELDS\\cover page,Asset 1}"), ElementsAre("no design page \"cover page\""));
    EXPECT_THAT(Check("{FIELDS\\Cover Page,asset 1}"),
                ElementsAre("no field \"asset 1\" on design page \"Cover Page\""));
    EXPECT_THAT(Check("SUM({FIELDS\\Results,Values})"),
                ElementsAre("no field \"Values\" on design page \"Results\""));
    EXPECT_THAT(Check("COUNTDESIGNPAGES(\"Result\")"), ElementsAre("no design page \"Result\""));
}

TEST(CheckFormula, MalformedReferencesAreFound) {
    EXPECT_THAT(Check("{FIELDS,Value}"), ElementsAre("reference without backslash: \"{FIELDS,Value}\""));
    EXPECT_THAT(Check("{}"), ElementsAre("reference without backslash: \"{}\""));
    EXPECT_THAT(Check("{FIELD\\Results,Value}"), ElementsAre("unknown reference group \"FIELD\""));
    EXPECT_THAT(Check("{FIELDS\\Results,Value"),
                ElementsAre("reference without closing brace: \"{FIELDS\\Results,Value\""));
    EXPECT_THAT(Check("{FIELDS\\Results,Value}*2"),
                ElementsAre("text behind a reference: \"{FIELDS\\Results,Value}*2\""));
}

TEST(CheckFormula, SumAndPreviousValueTakeAReferenceToAField) {
    EXPECT_THAT(Check("SUM(ADD(1,2))"), ElementsAre("SUM takes one reference {FIELDS\\page,field}"));
    EXPECT_THAT(Check("PREVIOUSVALUE({LISTS\\a,b})"),
                ElementsAre("PREVIOUSVALUE takes one reference {FIELDS\\page,field}"));
}

TEST(CheckFormula, AFunctionOfOneExpressionWithMoreIsFound) {
    EXPECT_THAT(Check("ROUND(2.5,1)"), ElementsAre("ROUND takes one argument"));
}

TEST(CheckFormula, EachFindingIsToldOnce) {
    EXPECT_THAT(Check("ADD(FOO(1),FOO(2))"), ElementsAre("unknown function \"FOO\""));
}

TEST(CheckFormula, AStatementThatBeginsWithAQuoteRunsOn) {
    EXPECT_THAT(Check("ME;\"a\";ME"), ElementsAre("text behind the end of a string: \"\"a\";ME\""));
}

TEST(CheckFormula, AFormulaBeyondTheLengthOfAnExpressionIsFound) {
    EXPECT_THAT(Check(QString(32'767, u'1')), IsEmpty());
    EXPECT_THAT(Check(QString(32'768, u'1')), ElementsAre("longer than 32,767 characters"));
}

TEST(CheckFormula, NestingOfAnyDepthIsNoHarm) {
    EXPECT_THAT(Check(QStringLiteral("NOT(").repeated(6000) + u'1' + QStringLiteral(")").repeated(6000)),
                ElementsAre("nested more than 399 deep"));
    EXPECT_THAT(Check(QString(32'767, u'(')),
                ElementsAre("unknown function \"\"", ::testing::HasSubstr("parentheses don't balance")));
}

class CheckFormulaInAForm : public ApplicationTest {
  protected:
    std::optional<int> FailureOfStatement(const QString& formula) {
        EvaluationContext context{
            *m_application, m_memory, m_application->FormVars, m_words, m_folder, m_dataPage, m_mePage, m_me};
        return FailureOf([&] { Evaluator(context).RunStatements(formula); });
    }

  private:
    MemoryBlock m_memory;
    TruthWords m_words;
    QString m_folder;
    std::int16_t m_dataPage = 1;
    std::int16_t m_mePage = 0;
    Value m_me;
};

TEST_F(CheckFormulaInAForm, TheDepthAllowedIsTheEvaluatorsOwn) {
    EXPECT_THAT(Check(Nested(399)), IsEmpty());
    EXPECT_EQ(FailureOfStatement(Nested(399)), std::nullopt);
    EXPECT_THAT(Check(Nested(400)), ElementsAre("nested more than 399 deep"));
    EXPECT_EQ(FailureOfStatement(Nested(400)), failure::kOutOfStack);
}

TEST(StatementsOf, AreCutAtSemicolonsOutsideQuotesAndParentheses) {
    const QString formula = QStringLiteral("SETME(\";\");IF(a;b);ME");
    EXPECT_THAT(StatementsOf(formula),
                ElementsAre(QStringView(u"SETME(\";\")"), QStringView(u"IF(a;b)"), QStringView(u"ME")));
}

}  // namespace sheetwright
