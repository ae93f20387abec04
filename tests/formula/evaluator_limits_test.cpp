// What no formula may do to the program, whatever it holds: run away with the stack, the memory or the time.

#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class EvaluatorLimitsTest : public FormulaTest {};

TEST_F(EvaluatorLimitsTest, AnExpressionBeyondSixteenBitsOverflows) {
    EXPECT_EQ(Told(QString(32'767, u'x')), "Empty");
    EXPECT_EQ(Told(QString(32'768, u'x')), "failure 6");
    EXPECT_EQ(Told(QString(32'768, u'1')), "failure 6");
    EXPECT_EQ(Told(QString(100'000, u'(')), "failure 6");
}

TEST_F(EvaluatorLimitsTest, ANumberBeyondADoubleIsNoCrash) {
    EXPECT_NE(Told(QString(400, u'9')), "Double inf");
    EXPECT_EQ(Told("MULTIPLY(\"1E300\",\"1E300\")"), "failure 6");
}

TEST_F(EvaluatorLimitsTest, NestingHasALimit) {
    const auto nested = [](int depth) {
        return QStringLiteral("ADD(1,").repeated(depth) + u'1' + QString(depth, u')');
    };
    EXPECT_EQ(Told(nested(300)), "Double 301");
    EXPECT_EQ(Told(nested(4000)), "failure 28");
    EXPECT_EQ(Told(QStringLiteral("AND(").repeated(6000) + QString(6000, u')')), "failure 28");
}

TEST_F(EvaluatorLimitsTest, AFailureLeavesNoDepthBehind) {
    EvaluationContext context = Context();
    Evaluator evaluator(context);
    for (int round = 0; round < 1000; ++round)
        EXPECT_EQ(FailureOf([&] { (void)evaluator.Evaluate(QStringView(u"ADD(1,ADD(2,\"))")); }), 5);
    EXPECT_EQ(evaluator.Evaluate(QStringView(u"ADD(1,2)")), Value(3.0));
}

TEST_F(EvaluatorLimitsTest, FunctionsThatEvaluateTwiceNestWithoutDoublingTheWork) {
    for (const char* name : {"MAXIMUM(", "MINIMUM(", "EQUAL(", "INTERPRET("}) {
        const QString nested = QString::fromLatin1(name).repeated(300) + u'1' + QString(300, u')');
        EXPECT_EQ(FailureOf([&] { (void)Told(nested); }), std::nullopt);
        EXPECT_NE(Told(nested), "failure 28") << name;
    }
}

TEST_F(EvaluatorLimitsTest, WorkThatWouldNotEndIsCutShort) {
    const QString nested = QStringLiteral("MAXIMUM(").repeated(100) +
                           QStringLiteral("CONCATENATE(SETME(1),5)") + QString(100, u')');
    EXPECT_EQ(Told(nested), "failure 28");
    EXPECT_EQ(Told(QStringLiteral("AND(%1,1)").arg(nested)), "failure 28") << "no function hides it";
}

TEST_F(EvaluatorLimitsTest, ATextThatDoublesItselfEnds) {
    const QByteArray formula = "SETME(\"x\");" + QByteArray("SETME(CONCATENATE(ME,ME));").repeated(60);
    EXPECT_EQ(FailureOf([&] { Run(formula.constData()); }), 7);
}

TEST_F(EvaluatorLimitsTest, ListsOfAnyLengthAreWalkedOnce) {
    QString list = QStringLiteral("ADD(0");
    for (int item = 0; item < 16'000; ++item)
        list += QStringLiteral(",1");
    EXPECT_EQ(Told(list + u')'), "Double 16000");
}

TEST_F(EvaluatorLimitsTest, AThousandStatementsShareNoDepth) {
    const QByteArray formula = QByteArray("SETME(ADD(ME,1));").repeated(5000);
    EXPECT_EQ(Run(formula.constData()), "Double 5000");
}

}  // namespace
}  // namespace sheetwright
