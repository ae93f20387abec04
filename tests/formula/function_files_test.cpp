#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class WorkingFolderTest : public FormulaTest {
  protected:
    void WriteStatus(const QByteArray& bytes) { Write(QStringLiteral("work/Validation.Status"), bytes); }
    void WriteVariables(const QByteArray& bytes) { Write(QStringLiteral("work/FormVars.txt"), bytes); }
};

TEST_F(WorkingFolderTest, ValidationPassedReadsTheFirstLineWithoutRegardToCase) {
    WriteStatus("passed\r\nanything");
    EXPECT_EQ(Told("VALIDATIONPASSED()"), "Boolean True");
    WriteStatus("PaSSed");
    EXPECT_EQ(Told("VALIDATIONPASSED({FIELDS})"), "Boolean True") << "arguments are not evaluated";
}

TEST_F(WorkingFolderTest, AnyOtherVerdictIsFalse) {
    EXPECT_EQ(Told("VALIDATIONPASSED()"), "Boolean False");
    for (const char* status : {"", "\npassed", "passed ", "failed", "\0passed"}) {
        WriteStatus(status);
        EXPECT_EQ(Told("VALIDATIONPASSED()"), "Boolean False") << status;
    }
}

TEST_F(WorkingFolderTest, TheFileNameIsAppendedAsItStands) {
    m_tempDir.chop(1);
    Write(QStringLiteral("workValidation.Status"), "passed");
    EXPECT_EQ(Told("VALIDATIONPASSED()"), "Boolean True");
    Write(QStringLiteral("workFormVars.txt"), "a=1");
    EXPECT_EQ(Told("VAR(\"a\")"), "String 1");
}

TEST_F(WorkingFolderTest, VarReadsTheSecondFieldOfALine) {
    WriteVariables("Site=North\r\neq=a=b\r\nnone\r\nblank=\r\n");
    EXPECT_EQ(Told("VAR(\"site\")"), "String North");
    EXPECT_EQ(Told("VAR(\"EQ\")"), "String a") << "a value ends at an equals sign";
    EXPECT_EQ(Told("VAR(\"none\")"), "String ");
    EXPECT_EQ(Told("VAR(\"blank\")"), "String ");
}

TEST_F(WorkingFolderTest, ALaterLineReplacesAnEarlierOne) {
    WriteVariables("a=1\nA=2\n");
    EXPECT_EQ(Told("VAR(\"a\")"), "String 2");
}

TEST_F(WorkingFolderTest, AMissingVariableIsEmpty) {
    EXPECT_EQ(Told("VAR(\"a\")"), "Empty");
    WriteVariables("b=1\n");
    EXPECT_EQ(Told("VAR(\"a\")"), "Empty");
    EXPECT_EQ(Told("VAR()"), "Empty");
}

TEST_F(WorkingFolderTest, TheFileIsReadWhileThereAreNoVariables) {
    EXPECT_EQ(Told("VAR(\"a\")"), "Empty");
    WriteVariables("");
    EXPECT_EQ(Told("VAR(\"a\")"), "Empty");
    WriteVariables("a=1\n");
    EXPECT_EQ(Told("VAR(\"a\")"), "String 1");
    WriteVariables("a=2\n");
    EXPECT_EQ(Told("VAR(\"a\")"), "String 1");
    m_application->FormVars.Clear();
    EXPECT_EQ(Told("VAR(\"a\")"), "String 2");
}

}  // namespace
}  // namespace sheetwright
