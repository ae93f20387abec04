#include "formula/recalculation.h"

#include "core/application.h"
#include "document/document.h"
#include "document/form_reader.h"
#include "document/form_writer.h"
#include "document/headless_page.h"
#include "document/page.h"
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
        m_document->memory.AppendFormData(number,
                                          QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        for (const QString& item : items)
            m_document->memory.AppendFormData(number, item);
        m_document->memory.AppendFormData(number, QStringLiteral("END PAGE"));
        m_document->Pages = number;
    }
    void SetFormula(std::int16_t design, const QString& name, const QString& formula) {
        m_document->memory.AppendFormulas(design, formula, name);
    }
    [[nodiscard]] QString Line(int page, int position) const {
        return m_document->memory.DataPage(page).Line(position).toString();
    }
    [[nodiscard]] QStringList Lines(int page) const {
        QStringList lines;
        for (int position = 1; position <= m_document->memory.DataPage(page).Count(); ++position)
            lines << Line(page, position);
        return lines;
    }
    void AddFieldOnScreen(const QString& name, const QString& format) {
        KeyedCollection<QString> field;
        field.Add(name, QStringLiteral("Name"));
        field.Add(format, QStringLiteral("Format"));
        m_document->page->FieldProperties.push_back(std::make_shared<PropertyBag>(std::move(field)));
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
    for (int page = 0; page < 4; ++page)
        AddPage(1, {QStringLiteral("x=10"), QStringLiteral("out=")});
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
    m_document->MyTempDir = Path(QStringLiteral("TEMP/00000001/"));
    Write(QStringLiteral("TEMP/00000001/FormVars.txt"), "Job=A17\r\n");
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=A17"));
    Write(QStringLiteral("TEMP/00000001/FormVars.txt"), "Job=B2\r\n");
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=B2"));
}

TEST_F(Recalculation, AValueWithALineBreakStaysOneItem) {
    AddPage(1, {QStringLiteral("x=a\x7f"
                               "b"),
                QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\A,x})"));
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=a\r\nb"));
}

TEST_F(Recalculation, TheViewerSavesADocumentAsItIs) {
    Restart(QStringLiteral("Tolvane Ketterlin Professional Viewer"));
    Open();
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    m_document->MyTempDir = Path(QStringLiteral("TEMP/00000001/"));
    m_document->Tag = Path(QStringLiteral("form.aff"));
    WriteFormFile(*m_document);
    EXPECT_TRUE(Read(QStringLiteral("TEMP/00000001/form.aff")).contains("out=old"));
    EXPECT_FALSE(m_ui.statuses.contains(QStringLiteral("Updating formulae...")));
}

TEST_F(Recalculation, EverySaveRecalculatesFirst) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    m_document->MyTempDir = Path(QStringLiteral("TEMP/00000001/"));
    m_document->Tag = Path(QStringLiteral("form.aff"));
    WriteFormFile(*m_document);
    EXPECT_TRUE(Read(QStringLiteral("TEMP/00000001/form.aff")).contains("out=1"));
    EXPECT_EQ(m_ui.statuses.value(0), QStringLiteral("Updating formulae..."));
}

TEST_F(Recalculation, WhatHoldsItBackLeavesEverythingAlone) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    m_application->FormVars.Add(QStringLiteral("A17"), QStringLiteral("Job"));
    bool isCalled = false;
    m_document->SavePageHook = [&] { isCalled = true; };
    m_document->LoadPageHook = [&] { isCalled = true; };
    m_document->Importing = true;
    Run();
    EXPECT_FALSE(isCalled);
    EXPECT_TRUE(m_application->FormVars.Contains(u"job"));
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(Recalculation, TheRecordOfAMultiRecordImportDoesNotMatter) {
    AddPage(1, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    AddFieldOnScreen(QStringLiteral("out"), QString());
    m_document->page->FieldProperties.back()->Add(QStringLiteral("3"), QStringLiteral("MultiRecordIndex"));
    m_document->CurrentRecord = 2;
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=1"));
}

TEST_F(Recalculation, ItemsRunInTheOrderOfThePageAndKeepIt) {
    AddPage(1, {QStringLiteral("z=old"), QStringLiteral("x=1"), QStringLiteral("note"), QStringLiteral("y="),
                QStringLiteral("plain=7")});
    SetFormula(1, QStringLiteral("y"), QStringLiteral("SETME(ADD({FIELDS\\A,x},1))"));
    SetFormula(1, QStringLiteral("x"), QStringLiteral("SETME(ADD(ME,4))"));
    SetFormula(1, QStringLiteral("z"), QStringLiteral("SETME({FIELDS\\A,y})"));
    Run();
    EXPECT_EQ(Lines(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("z="),
                                     QStringLiteral("x=5"), QStringLiteral("note"), QStringLiteral("y=6"),
                                     QStringLiteral("plain=7"), QStringLiteral("END PAGE")}));
}

TEST_F(Recalculation, EachItemOfANameRunsWithItsOwnValue) {
    AddPage(1, {QStringLiteral("out=1"), QStringLiteral("out=10")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(ADD(ME,1))"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=2"));
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=11"));
}

TEST_F(Recalculation, TheValueIsWhatStandsBehindTheFirstEquals) {
    AddPage(1, {QStringLiteral("out=a=b")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(CONCATENATE(ME,\"=c\"))"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=a=b=c"));
}

TEST_F(Recalculation, MeKeepsTheLastValueWithoutItsFormat) {
    AddPage(1, {QStringLiteral("out="), QStringLiteral("x=9")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(0.5)"));
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=0.50"));
    EXPECT_EQ(m_document->Me, Value(0.5));
}

TEST_F(Recalculation, AFormulaOfAnotherDesignDoesNotRun) {
    AddPage(2, {QStringLiteral("out=old")});
    AddPage(77, {QStringLiteral("out=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=old"));
    EXPECT_EQ(Line(2, 2), QStringLiteral("out=old"));
}

TEST_F(Recalculation, OnlyTheFirstFieldOfANameGivesTheFormat) {
    AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(0.5)"));
    AddFieldOnScreen(QStringLiteral("out"), QString());
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=0.5"));
}

TEST_F(Recalculation, TheNameOfAFormatDistinguishesCapitals) {
    AddPage(1, {QStringLiteral("OUT=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(0.5)"));
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("OUT=0.5"));
}

TEST_F(Recalculation, AFieldWithoutAFormulaIsNotFormatted) {
    AddPage(1, {QStringLiteral("x=1"), QStringLiteral("out=1")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("ADD(1,1)"));
    AddFieldOnScreen(QStringLiteral("x"), QStringLiteral("0.00"));
    AddFieldOnScreen(QStringLiteral("out"), QStringLiteral("0.00"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("x=1"));
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=1.00")) << "its formula set nothing, its mask applies";
}

TEST_F(Recalculation, APageWithoutAReadableHeaderEndsThePass) {
    AddPage(1, {QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("out=")});
    m_document->memory.ReplaceDataLine(2, 1, QStringLiteral("BEGIN PAGE 2 DESIGN=one"));
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(1)"));
    EXPECT_EQ(FailureOf([&] { Run(); }), 13);
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=1"));
    EXPECT_EQ(Line(2, 2), QStringLiteral("out="));
}

TEST_F(Recalculation, APageWithoutLinesHasNothingToRun) {
    AddPage(1, {QStringLiteral("out=")});
    m_document->memory.AppendFormData(3, u"BEGIN PAGE 3 DESIGN=1");
    m_document->memory.AppendFormData(3, u"out=");
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(PAGENUMBER)"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=1"));
    EXPECT_EQ(m_document->memory.DataPage(2).Count(), 0);
    EXPECT_EQ(Line(3, 2), QStringLiteral("out=3"));
}

TEST_F(Recalculation, TheBarIsSetOnlyWhenThePercentageDiffers) {
    for (int page = 0; page < 300; ++page)
        AddPage(1, {});
    Run();
    ASSERT_EQ(m_ui.progress.size(), 100U);
    EXPECT_EQ(m_ui.progress.front(), 1);
    EXPECT_EQ(m_ui.progress.back(), 100);
}

TEST_F(Recalculation, ThePageOnScreenIsSavedBeforeAndShownAfterThePass) {
    AddPage(1, {QStringLiteral("x=old"), QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("x=old"), QStringLiteral("out=")});
    AddPage(1, {});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\A,x})"));
    m_document->DataPageNum = 2;
    m_document->SavePageHook = [&] {
        m_document->memory.ReplaceDataLine(m_document->DataPageNum, 2, QStringLiteral("x=typed"));
    };
    QString shown;
    m_document->LoadPageHook = [&] {
        shown = Line(m_document->DataPageNum, 3);
        EXPECT_TRUE(m_ui.progressShown) << "hidden last";
    };
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=old"));
    EXPECT_EQ(shown, QStringLiteral("out=typed"));
}

TEST_F(Recalculation, RunsAgainAfterARecoveredFailure) {
    AddPage(1, {QStringLiteral("out=old")});
    AddPage(2, {QStringLiteral("z=old")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME(ADD(ME,1))"));
    SetFormula(2, QStringLiteral("z"), QStringLiteral("SETME(IF({FIELDS\\B,z},1,2))"));
    EXPECT_EQ(FailureOf([&] { Run(); }), 13);
    RecoverFromFailedPass(*m_document);
    m_document->memory.ReplaceDataLine(2, 2, QStringLiteral("z=True"));
    Run();
    EXPECT_EQ(Line(1, 2), QStringLiteral("out=2"));
    EXPECT_EQ(Line(2, 2), QStringLiteral("z=1"));
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(Recalculation, WithoutAFailureThereIsNothingToRecoverFrom) {
    AddPage(1, {QStringLiteral("out=")});
    AddPage(1, {QStringLiteral("out=")});
    m_document->DataPageNum = 2;
    Run();
    RecoverFromFailedPass(*m_document);
    EXPECT_EQ(m_document->DataPageNum, 2);
}

TEST_F(Recalculation, TextsCopiedWithoutEndAreAFailure) {
    AddPage(2, {QStringLiteral("z=") + QString(3'900'000, u'a')});
    for (int page = 0; page < 20; ++page)
        AddPage(1, {QStringLiteral("out=")});
    SetFormula(1, QStringLiteral("out"), QStringLiteral("SETME({FIELDS\\B,z})"));
    EXPECT_EQ(FailureOf([&] { Run(); }), 7);
    EXPECT_EQ(Line(17, 2).size(), 3'900'004);
    EXPECT_EQ(Line(18, 2), QStringLiteral("out="));
}

TEST_F(Recalculation, AFormulaOfAReadFormRunsOnEveryPageThatNamesItsDesign) {
    Write(QStringLiteral("TEMP/00000001/form.aff"),
          "VERSION 1.0.0\r\nBEGIN DESIGN\r\nBEGIN PAGE 1\r\nTitle=A\r\n"
          "BEGIN FIELD\r\nFieldType=0\r\nName=x\r\nEND FIELD\r\n"
          "BEGIN FIELD\r\nFieldType=0\r\nName=out\r\nFormat=0.00\r\n"
          "Formula=SETME(MULTIPLY({FIELDS\\A,x},2))\r\nEND FIELD\r\n"
          "BEGIN FIELD\r\nFieldType=0\r\nName=from\r\nFormula=SETME({DRIVERS\\d,x})\r\nEND FIELD\r\n"
          "END PAGE\r\nEND DESIGN\r\nBEGIN DATA\r\n"
          "BEGIN PAGE 1 DESIGN=1\r\nx=2\r\nout=\r\nfrom=import\r\nEND PAGE\r\n"
          "BEGIN PAGE 2 DESIGN=1\r\nx=5\r\nout=\r\nfrom=import\r\nEND PAGE\r\nEND DATA\r\n");
    m_document = std::make_unique<frmSheetwright>(*m_application);
    UseHeadlessPage(*m_document);
    m_document->MyTempDir = Path(QStringLiteral("TEMP/00000001/"));
    m_document->Tag = Path(QStringLiteral("form.aff"));
    ReadFormFile(*m_document);
    LoadPage(*m_document);
    Run();
    EXPECT_EQ(Line(1, 3), QStringLiteral("out=4.00"));
    EXPECT_EQ(Line(2, 3), QStringLiteral("out=10")) << "the mask is looked up on the first page of a run";
    EXPECT_EQ(Line(2, 4), QStringLiteral("from=import")) << "what an import gave stays";
}

}  // namespace
}  // namespace sheetwright
