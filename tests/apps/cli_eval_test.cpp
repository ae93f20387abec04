#include "apps/cli_test.h"
#include "support/form_text.h"
#include "support/short_text.h"

namespace sheetwright {

class CliEval : public CliTest {
  protected:
    void SetUp() override {
        FormText form;
        form.Page(S("A")).Field(S("x")).Page(S("B")).Field(S("y"));
        form.Data(1, {S("x=first")})
            .Data(1, {S("x=second")})
            .Data(2, {S("y=a\x7F"
                        "b")});
        Write(S("a.aff"), form.Bytes());
    }

    [[nodiscard]] CliResult Eval(const QStringList& rest, const char* locale = "C.UTF-8") const {
        return Run(QStringList{S("eval"), S("a.aff")} + rest, S(locale));
    }
};

TEST_F(CliEval, PrintsKindAndTextForEachExpression) {
    const CliResult result = Eval(
        {S("ADD(1,2)"), S("NOPE"), S("EQUAL(1,1)"), S("PAGECOUNT"), S("ROUND(2.5)"), S("\"a b\""), S("")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "Double\t3\nEmpty\t\nBoolean\tTrue\nInteger\t3\nLong\t2\nString\ta b\nEmpty\t\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliEval, AFailurePrintsItsNumberAndTheOthersAreStillEvaluated) {
    const CliResult result = Eval({S("EQUAL(1,\"abc\")"), S("ADD(1,2)")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "Failure\t13\tType mismatch\nDouble\t3\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliEval, AParenthesisInAStringCanNotBeEvaluated) {
    const CliResult result = Eval({S("CONCATENATE(\"(\",{FIELDS\\A,x})")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, ::testing::StartsWith("Failure\t5\t"));
}

TEST_F(CliEval, WithoutPageReferencesReadTheLastPageOfADesign) {
    EXPECT_EQ(Eval({S("{FIELDS\\A,x}"), S("PAGENUMBER")}).out, "String\tsecond\nInteger\t1\n");
}

TEST_F(CliEval, WithPageReferencesPreferIt) {
    EXPECT_EQ(Eval({S("--page"), S("1"), S("{FIELDS\\A,x}"), S("PAGENUMBER")}).out,
              "String\tfirst\nInteger\t1\n");
    EXPECT_EQ(Eval({S("--page=3"), S("{FIELDS\\A,x}"), S("PAGENUMBER")}).out, "String\tsecond\nInteger\t3\n");
}

TEST_F(CliEval, APageThatIsNotThereIsAnError) {
    const CliResult result = Eval({S("--page"), S("4"), S("1")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: there is no page 4: the form has 3\n");
}

TEST_F(CliEval, MeIsEmptyUnlessGiven) {
    EXPECT_EQ(Eval({S("ME")}).out, "Empty\t\n");
    EXPECT_EQ(Eval({S("--me"), S("12"), S("ME"), S("ADD(ME,1)")}).out, "String\t12\nDouble\t13\n");
}

TEST_F(CliEval, EachExpressionStartsWithTheSameMe) {
    EXPECT_EQ(Eval({S("SETME(5)"), S("ME")}).out, "Empty\t\nEmpty\t\n");
}

TEST_F(CliEval, ExpressionsMayBeginWithADash) {
    EXPECT_EQ(Eval({S("-5"), S("-.5"), S("-")}).out, "Double\t-5\nDouble\t-0.5\nDouble\t0\n");
    EXPECT_EQ(Eval({S("--"), S("-5"), S("--page")}).out, "Double\t-5\nDouble\t0\n");
}

TEST_F(CliEval, ALineBreakInAValueStaysOnTheLine) {
    EXPECT_EQ(Eval({S("{FIELDS\\B,y}")}).out, "String\ta\\nb\n");
}

TEST_F(CliEval, TheLocaleDecidesHowNumbersAreWritten) {
    EXPECT_EQ(Eval({S("1.5")}, "de_DE.UTF-8").out, "Double\t1,5\n");
    EXPECT_EQ(Eval({S("1.5")}).out, "Double\t1.5\n");
}

TEST_F(CliEval, ArgumentsAreUtf8) {
    EXPECT_EQ(Eval({S("\"größer Ω\"")}).out, "String\tgrößer Ω\n");
}

TEST_F(CliEval, NestingBeyondAnyStackIsAFailure) {
    const CliResult result = Eval({S("NOT(").repeated(5000) + S("1") + S(")").repeated(5000)});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, ::testing::StartsWith("Failure\t28\t"));
}

}  // namespace sheetwright
