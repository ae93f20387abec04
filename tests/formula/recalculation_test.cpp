#include "formula/recalculation.h"

#include "core/application.h"
#include "document/document.h"
#include "document/headless_page.h"
#include "support/test_application.h"

#include <QStringList>

namespace sheetwright {
namespace {

class Recalculation : public ApplicationTest {
  protected:
    Recalculation() { Open(); }

    // A document with design pages "A" (fields x, y and out) and "B" (field z).
    void Open() {
        m_document = std::make_unique<frmSheetwright>(*m_application);
        AddDesign(1, QStringLiteral("A"));
        AddDesign(2, QStringLiteral("B"));
    }
    void AddDesign(std::int16_t number, const QString& title) {
        m_document->memory.AppendFormDesign(number, QStringLiteral("BEGIN PAGE %1").arg(number));
        m_document->memory.AppendFormDesign(number, QStringLiteral("END PAGE"));
        m_document->memory.PageProps.Add(title, QString::number(number));
    }
    void AddPage(std::int16_t design, const QStringList& items) {
        const auto number = static_cast<std::int16_t>(m_document->memory.DataPageCount() + 1);
        m_document->memory.AppendFormData(number, QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        for (const QString& item : items) m_document->memory.AppendFormData(number, item);
        m_document->memory.AppendFormData(number, QStringLiteral("END PAGE"));
        m_document->Pages = number;
    }
    void SetFormula(std::int16_t design, const QString& name, const QString& formula) {
        m_document->memory.AppendFormulas(design, formula, name);
    }
    [[nodiscard]] QString Line(int page, int position) const {
        return m_document->memory.DataPage(page).Line(position).toString();
    }
    void AddFieldOnScreen(const QString& name, const QString& format) {
        KeyedCollection<QString> field;
        field.Add(name, QStringLiteral("Name"));
        field.Add(format, QStringLiteral("Format"));
        m_document->FieldProperties.push_back(std::move(field));
    }
    void Run() { ÜberupdateFormulas(*m_document, false); }

    std::unique_ptr<frmSheetwright> m_document;
};

TEST_F(Recalculation, SetmeWritesTheFieldOfEachPage) {
    AddPage(1, {QStringLiteral("x=2"), QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("x=5"), QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(ADD({FIELDS\\A,x},1))"));
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=3"));
    EXPECT_EQ(Line(2, 3), QStringLiteral("out=6"));
}

TEST_F(Recalculation, ViewerModeIsNeverRecalculated) {
    Restart(QStringLiteral("Tolvane Ketterlin Professional Viewer"));
    Open();
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=old"));
}

TEST_F(Recalculation, AnImportHoldsItBack) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    m_document->Importing = true;
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=old"));
}

TEST_F(Recalculation, AFormulaOfOnlyASemicolonLeavesTheField) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral(";"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=old"));
}

TEST_F(Recalculation, AnEmptyRemainderBehindASemicolonIsNotEvaluated) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1);"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=1"));
}

TEST_F(Recalculation, ALaterStatementReadsWhatAnEarlierOneSet) {
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("IF(0,SETME(1),SETME(2));SETME(ADD(ME,1))"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=3"));
}

TEST_F(Recalculation, AFormulaWithoutSetmeLeavesTheField) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("ADD(1,2)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=old"));
}

TEST_F(Recalculation, EachPageReadsItsOwnFieldOfItsOwnDesign) {
    AddPage(1, {QStringLiteral("x=first"), QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("x=second"), QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\A,x})"));
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=first"));
    EXPECT_EQ(Line(2, 3), QStringLiteral("out=second"));
}

TEST_F(Recalculation, AnotherDesignIsReadFromItsLastPage) {
    AddPage(2, {QStringLiteral("z=1")});
    AddPage(2, {QStringLiteral("z=2")});
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\B,z})"));
    Run();
    EXPECT_EQ(Line(3, 2), QStringLiteral("out=2"));
}

TEST_F(Recalculation, ARunningTotalIsRightAfterOnePass) {
    for (int page = 0; page < 4; ++page) AddPage(1, {QStringLiteral("x=10"), QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"),
               QStringLiteral("SETME(0);SETME(ADD({FIELDS\\A,x},PREVIOUSVALUE({FIELDS\\A,out})))"));
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=10"));
    EXPECT_EQ(Line(4, 3), QStringLiteral("out=40"));
}

TEST_F(Recalculation, AFieldThatReadsALaterPageIsOnePassBehind) {
    AddPage(2, {QStringLiteral("z=")});
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(2, QStringLiteral("z"), QStringLiteral("SETME({FIELDS\\A,out})"));
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(\"new\")"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("z=old"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("z=new"));
}

TEST_F(Recalculation, PagenumberIsThePageInHandAndIsRestored) {
    AddPage(1, {QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(CONCATENATE(PAGENUMBER,\"/\",PAGECOUNT))"));
    m_document->DataPageNum = 2;
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=1/2"));
    EXPECT_EQ(Line(2, 2), QStringLiteral("out=2/2"));
    EXPECT_EQ(m_document->DataPageNum, 2);
    EXPECT_EQ(m_document->MePage, 2) << "keeps its last value between passes";
}

TEST_F(Recalculation, OnlyAFieldWithAnItemOnThePageRuns) {
    AddPage(1, {QStringLiteral("x=1")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(m_document->memory.DataPage(1).Count(), 3);
}

TEST_F(Recalculation, AnItemWithoutEqualsIsPassedOver) {
    AddPage(1, {QStringLiteral("stray"), QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("stray"));
    EXPECT_EQ(Line(1, 4), QStringLiteral("END PAGE"));
}

TEST_F(Recalculation, AnItemWithoutEqualsRunsAFormulaWithoutAName) {
    AddPage(1, {QStringLiteral("stray")});
    SetFormula(1, QStringLiteral(""), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("=1"));
    EXPECT_EQ(Line(1, 3), QStringLiteral("END PAGE"));
}

TEST_F(Recalculation, TheFieldNameOfAFormulaIgnoresCase) {
    AddPage(1, {QStringLiteral("OUT=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("OUT=1"));
}

TEST_F(Recalculation, AFieldOnScreenGetsItsFormat) {
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(DIVIDE(1,3))"));
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=0.33"));
}

TEST_F(Recalculation, WithNoPageOnScreenThereIsNoFormat) {
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(DIVIDE(1,3))"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=0.333333333333333"));
}

TEST_F(Recalculation, AFieldOfAnotherDesignTakesTheFormatOfItsNamesakeOnScreen) {
    AddPage(2, {QStringLiteral("z=")});
    SetFormula(2, QStringLiteral("z"), QStringLiteral("SETME(DIVIDE(1,3))"));
    AddFieldOnScreen(QStringLiteral("z"), QStringLiteral("0.0"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("z=0.3"));
}

TEST_F(Recalculation, TheSearchForFormatsIsSparedOnLaterPagesOfARun) {
    AddPage(1, {QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("out=")});
    AddPage(2, {QStringLiteral("z=")});
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(DIVIDE(1,3))"));
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=0.33"));
    EXPECT_EQ(Line(2, 2), QStringLiteral("out=0.333333333333333"));
    EXPECT_EQ(Line(4, 2), QStringLiteral("out=0.33"));
}

TEST_F(Recalculation, AFailureEndsThePassWhereItStands) {
    AddPage(1, {QStringLiteral("x=1"), QStringLiteral("out=old")});
    AddPage(1, {QStringLiteral("x=abc"), QStringLiteral("out=old")});
    AddPage(1, {QStringLiteral("x=3"), QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(EQUAL(1,{FIELDS\\A,x}))"));
    m_document->DataPageNum = 3;
    EXPECT_EQ(FailureOf([&] { Run(); }), 13);
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=True"));
    EXPECT_EQ(Line(2, 3), QStringLiteral("out=old"));
    EXPECT_EQ(Line(3, 3), QStringLiteral("out=old"));
    EXPECT_EQ(m_document->DataPageNum, 2) << "not restored";
    EXPECT_TRUE(m_ui.progressShown);

    RecoverFromFailedPass(*m_document);
    EXPECT_EQ(m_document->DataPageNum, 3);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(Recalculation, ReportsStatusProgressAndPointer) {
    AddPage(1, {QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("out=")});
    Run();
    EXPECT_EQ(m_ui.statuses, QStringList{QStringLiteral("Updating formulae...")});
    EXPECT_EQ(m_ui.progress, (std::vector<int>{50, 100}));
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_EQ(m_ui.pointer, Pointer::Hourglass) << "left to the calling command";
}

TEST_F(Recalculation, SavesThePageOnScreenFirstUnlessTold) {
    AddPage(1, {QStringLiteral("out=")});
    QStringList calls;
    m_document->SavePageHook = [&] { calls << QStringLiteral("save"); };
    m_document->LoadPageHook = [&] { calls << QStringLiteral("load"); };
    ÜberupdateFormulas(*m_document, false);
    ÜberupdateFormulas(*m_document, true);
    EXPECT_EQ(calls, (QStringList{QStringLiteral("save"), QStringLiteral("load"), QStringLiteral("load")}));
}

TEST_F(Recalculation, FormVarsAreReadAgainOnEachPass) {
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(VAR(\"job\"))"));
    m_document->MyTempDir = Path(QStringLiteral("TEMP/00000001/")) ;
    Write(QStringLiteral("TEMP/00000001/FormVars.txt"), "Job=A17\r\n");
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=A17"));
    Write(QStringLiteral("TEMP/00000001/FormVars.txt"), "Job=B2\r\n");
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=B2"));
}

TEST_F(Recalculation, AValueWithALineBreakStaysOneItem) {
    AddPage(1, {QStringLiteral("x=a\x7f" "b"), QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\A,x})"));
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=a\r\nb"));
}

}  // namespace
}  // namespace sheetwright
