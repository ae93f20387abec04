#include "document/pages.h"

#include "document/document.h"
#include "document/headless_page.h"
#include "support/page_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QStringList>

namespace sheetwright {
namespace {

class AddingPages : public ApplicationTest {
  protected:
    AddingPages() : m_document(*m_application) {
        for (const std::int16_t design : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
            m_document.memory.AppendFormDesign(design, QStringLiteral("BEGIN PAGE %1").arg(design));
            m_document.memory.AppendFormDesign(design, u"BEGIN FIELD");
            m_document.memory.AppendFormDesign(design, u"FieldType=0");
            m_document.memory.AppendFormDesign(design, QStringLiteral("Name=f%1").arg(design));
            m_document.memory.AppendFormDesign(design, u"END FIELD");
            m_document.memory.AppendFormDesign(design, u"END PAGE");
        }
        for (const int design : {1, 2, 3})
            FillPage(design);
        m_document.Pages = 3;
        m_document.SavePageHook = [this] { m_calls << QStringLiteral("save"); };
        m_document.LoadPageHook = [this] {
            m_calls << QStringLiteral("load %1 of %2").arg(m_document.DataPageNum).arg(m_document.Pages);
        };
    }

    // A data page of `design` at the end, with one value that tells which page it is.
    void FillPage(int design) {
        const auto number = static_cast<std::int16_t>(m_document.memory.DataPageCount() + 1);
        m_document.memory.AppendFormData(number,
                                         QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        m_document.memory.AppendFormData(number, QStringLiteral("f%1=%2").arg(design).arg(number));
        m_document.memory.AppendFormData(number, u"END PAGE");
    }
    [[nodiscard]] QStringList Lines(int page) const { return TextsOf(m_document.memory.DataPage(page)); }
    [[nodiscard]] QString Headers() const {
        QStringList headers;
        for (int page = 1; page <= m_document.memory.DataPageCount(); ++page)
            headers << m_document.memory.DataPage(page).Line(1).toString().remove(
                QStringLiteral("BEGIN PAGE "));
        return headers.join(QStringLiteral(", "));
    }

    frmSheetwright m_document;
    QStringList m_calls;
};

struct Placed {
    Placement mode;
    std::int16_t position;
    int number;
};

class PlacingAPage : public AddingPages, public ::testing::WithParamInterface<Placed> {};

TEST_P(PlacingAPage, PutsItWhereTheModeSays) {
    const Placed& placed = GetParam();
    AddPage(m_document, 2, placed.mode, placed.position);
    EXPECT_EQ(m_document.memory.DataPageCount(), 4);
    EXPECT_EQ(m_document.Pages, 4);
    EXPECT_EQ(m_document.DataPageNum, placed.number);
    EXPECT_TRUE(m_document.Changed);
    EXPECT_EQ(Lines(placed.number), (QStringList{QStringLiteral("BEGIN PAGE %1 DESIGN=2").arg(placed.number),
                                                 QStringLiteral("END PAGE")}));
    for (int old = 1; old <= 3; ++old) {
        const int now = old < placed.number ? old : old + 1;
        EXPECT_EQ(Lines(now), (QStringList{QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(now).arg(old),
                                           QStringLiteral("f%1=%1").arg(old), QStringLiteral("END PAGE")}));
    }
}

INSTANTIATE_TEST_SUITE_P(AllModes, PlacingAPage,
                         ::testing::Values(Placed{Placement::AtStart, 1, 1}, Placed{Placement::AtStart, 3, 3},
                                           Placed{Placement::AtStart, 4, 4}, Placed{Placement::AtEnd, 3, 4},
                                           Placed{Placement::AtEnd, 0, 1}, Placed{Placement::AtEnd, 1, 2},
                                           Placed{Placement::Before, 1, 1}, Placed{Placement::Before, 2, 2},
                                           Placed{Placement::After, 1, 2}, Placed{Placement::After, 3, 4}));

TEST_F(AddingPages, InTheMiddleRenumbersTheLaterPagesAndKeepsTheirDesigns) {
    AddPage(m_document, 1, Placement::After, 1);
    EXPECT_EQ(Headers(), QStringLiteral("1 DESIGN=1, 2 DESIGN=1, 3 DESIGN=2, 4 DESIGN=3"));
}

TEST_F(AddingPages, NineBecomesTen) {
    for (int page = 4; page <= 9; ++page)
        FillPage(3);
    AddPage(m_document, 1, Placement::Before, 9);
    EXPECT_EQ(m_document.memory.DataPage(10).Line(1), u"BEGIN PAGE 10 DESIGN=3");
    AddPage(m_document, 1, Placement::Before, 1);
    EXPECT_EQ(m_document.memory.DataPage(11).Line(1), u"BEGIN PAGE 11 DESIGN=3");
}

TEST_F(AddingPages, BeforePageOneIsTheSameAsAtTheStart) {
    AddPage(m_document, 3, Placement::Before, 1);
    const QString before = Headers();
    AddPage(m_document, 3, Placement::AtStart, 1);
    EXPECT_EQ(before, QStringLiteral("1 DESIGN=3, 2 DESIGN=1, 3 DESIGN=2, 4 DESIGN=3"));
    EXPECT_EQ(Headers(), QStringLiteral("1 DESIGN=3, 2 DESIGN=3, 3 DESIGN=1, 4 DESIGN=2, 5 DESIGN=3"));
}

TEST_F(AddingPages, ShowsTheNewPageAndThenRecalculates) {
    AddPage(m_document, 2, Placement::AtEnd, 3);
    EXPECT_EQ(m_calls, (QStringList{QStringLiteral("load 4 of 4"), QStringLiteral("save"),
                                    QStringLiteral("load 4 of 4")}))
        << "the page that was on screen is not saved, the new one is";
    EXPECT_EQ(m_ui.statuses, QStringList{QStringLiteral("Updating formulae...")});
}

TEST_F(AddingPages, AnImportRecalculatesLater) {
    m_document.Importing = true;
    m_document.memory.AppendFormulas(1, QStringLiteral("SETME(\"new\")"), QStringLiteral("f1"));
    AddPage(m_document, 1, Placement::AtEnd, 3);
    EXPECT_EQ(m_calls, QStringList{QStringLiteral("load 4 of 4")});
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_EQ(Lines(1).value(1), QStringLiteral("f1=1"));
    EXPECT_TRUE(m_document.Changed);
}

TEST_F(AddingPages, FormulasSeeTheNewPage) {
    UseHeadlessPage(m_document);
    m_document.memory.PageProps.Add(QStringLiteral("A"), QStringLiteral("1"));
    m_document.memory.AppendFormulas(
        1, QStringLiteral("SETME(CONCATENATE(PAGENUMBER,\"/\",PAGECOUNT,\"/\",COUNTDESIGNPAGES(\"A\")))"),
        QStringLiteral("f1"));
    AddPage(m_document, 1, Placement::Before, 1);
    EXPECT_EQ(Lines(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("f1=1/4/2"),
                                     QStringLiteral("END PAGE")}))
        << "the page on screen gives the new page its lines";
    EXPECT_EQ(Lines(2).value(1), QStringLiteral("f1=2/4/2"));
}

TEST_F(AddingPages, AFormulaThatFailsLeavesThePageInTheDocument) {
    m_document.memory.AppendFormulas(2, QStringLiteral("SETME(IF(\"x\",1,2))"), QStringLiteral("f2"));
    EXPECT_EQ(FailureOf([&] { AddPage(m_document, 1, Placement::AtEnd, 3); }), 13);
    EXPECT_EQ(m_document.Pages, 4);
    EXPECT_TRUE(m_document.Changed) << "closing asks whether to save";
    RecoverFromFailedPass(m_document);
    EXPECT_EQ(m_document.DataPageNum, 4);
}

TEST_F(AddingPages, TheFirstPageOfADocumentWithoutPages) {
    frmSheetwright empty(*m_application);
    empty.memory.AppendFormDesign(1, u"BEGIN PAGE 1");
    AddPage(empty, 1, Placement::AtEnd, 0);
    EXPECT_EQ(empty.Pages, 1);
    EXPECT_EQ(empty.DataPageNum, 1);
    EXPECT_EQ(empty.memory.DataPage(1).Line(1), u"BEGIN PAGE 1 DESIGN=1");
}

TEST_F(AddingPages, OutsideTheDocumentNothingIsChanged) {
    const auto failureOf = [this](std::int16_t design, Placement mode, std::int16_t position) {
        return FailureOf([&] { AddPage(m_document, design, mode, position); });
    };
    EXPECT_EQ(failureOf(1, Placement::AtStart, 0), 9);
    EXPECT_EQ(failureOf(1, Placement::Before, 5), 9);
    EXPECT_EQ(failureOf(1, Placement::After, 4), 9);
    EXPECT_EQ(failureOf(1, Placement::After, -32768), 9);
    EXPECT_EQ(failureOf(1, Placement::After, 32767), 6);
    EXPECT_EQ(failureOf(0, Placement::AtEnd, 3), 9) << "no such design";
    EXPECT_EQ(failureOf(4, Placement::AtEnd, 3), 9);
    EXPECT_EQ(Headers(), QStringLiteral("1 DESIGN=1, 2 DESIGN=2, 3 DESIGN=3"));
    EXPECT_EQ(m_document.DataPageNum, 1);
    EXPECT_EQ(m_document.Pages, 3);
    EXPECT_FALSE(m_document.Changed);
    EXPECT_TRUE(m_calls.isEmpty());
}

TEST_F(AddingPages, AFullDocumentTakesNoMore) {
    m_document.memory.AppendFormData(32767, u"BEGIN PAGE 32767 DESIGN=1");
    m_document.Pages = 32767;
    EXPECT_EQ(FailureOf([&] { AddPage(m_document, 1, Placement::AtEnd, 32766); }), 6);
    EXPECT_EQ(m_document.memory.DataPageCount(), 32767);
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(AddingPages, TheViewerLeavesFormulasAlone) {
    Restart(QStringLiteral("Tolvane Ketterlin Professional Viewer"));
    frmSheetwright document(*m_application);
    document.memory.AppendFormDesign(1, u"BEGIN PAGE 1");
    AddPage(document, 1, Placement::AtEnd, 0);
    EXPECT_EQ(document.Pages, 1);
    EXPECT_TRUE(m_ui.statuses.isEmpty());
}

TEST_F(AddingPages, ThePageControlIsRefreshedAfterTheRecalculation) {
    RecordingMainWindow mainWindow;
    m_application->mainWindow = &mainWindow;
    AddPage(m_document, 1, Placement::AtEnd, 3);
    EXPECT_EQ(mainWindow.calls, QStringList{S("RefreshPageList")});
    m_document.Importing = true;
    AddPage(m_document, 1, Placement::AtEnd, 4);
    EXPECT_EQ(mainWindow.calls, QStringList{S("RefreshPageList")}) << "an import does so at its end";
}

TEST_F(AddingPages, ADialogStoresThePageOnScreenFirst) {
    EXPECT_TRUE(AddChosenPage(m_document, 2, Placement::Before, std::int16_t{2}));
    EXPECT_EQ(m_calls.value(0), S("save"));
    EXPECT_EQ(m_calls.value(1), S("load 2 of 4"));
    EXPECT_EQ(Headers(), S("1 DESIGN=1, 2 DESIGN=2, 3 DESIGN=2, 4 DESIGN=3"));
}

TEST_F(AddingPages, BesideAPageTheDialogNeedsItsNumber) {
    const ShownMessage required{S("Page number required"), S("Add Page"), MessageIcon::Exclamation};
    for (const Placement mode : {Placement::Before, Placement::After}) {
        m_ui.messages.clear();
        EXPECT_FALSE(AddChosenPage(m_document, 1, mode, std::nullopt));
        EXPECT_EQ(m_ui.messages, std::vector{required});
    }
    EXPECT_EQ(m_ui.beeps, 2);
    EXPECT_TRUE(m_calls.isEmpty());
    EXPECT_EQ(m_document.Pages, 3);
}

TEST_F(AddingPages, TheEndsOfTheFormNeedNoNumber) {
    EXPECT_TRUE(AddChosenPage(m_document, 3, Placement::AtEnd, std::nullopt));
    EXPECT_TRUE(AddChosenPage(m_document, 2, Placement::AtStart, std::nullopt));
    EXPECT_EQ(Headers(), S("1 DESIGN=2, 2 DESIGN=1, 3 DESIGN=2, 4 DESIGN=3, 5 DESIGN=3"));
    EXPECT_EQ(m_ui.beeps, 0);
}

class RemovingPages : public AddingPages {
  protected:
    RemovingPages() { m_application->mainWindow = &m_mainWindow; }

    void Remove(std::int16_t number) {
        m_document.DataPageNum = number;
        RemovePage(m_document);
    }

    RecordingMainWindow m_mainWindow;
};

TEST_F(RemovingPages, AsksFirst) {
    Remove(2);
    EXPECT_EQ(m_ui.messages, (std::vector{ShownMessage{S("Are you sure?"), S("Remove Page"),
                                                       MessageIcon::Question, MessageButtons::YesNo}}));
    EXPECT_EQ(m_document.Pages, 2);
}

TEST_F(RemovingPages, NoKeepsThePage) {
    m_ui.answers = {MessageAnswer::No};
    Remove(2);
    EXPECT_EQ(Headers(), S("1 DESIGN=1, 2 DESIGN=2, 3 DESIGN=3"));
    EXPECT_FALSE(m_document.Changed);
    EXPECT_TRUE(m_calls.isEmpty());
}

TEST_F(RemovingPages, TheOnlyPageStaysWithoutAQuestion) {
    Remove(1);
    Remove(1);
    m_ui.messages.clear();
    Remove(1);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(m_document.Pages, 1);
    EXPECT_EQ(Lines(1), (QStringList{S("BEGIN PAGE 1 DESIGN=3"), S("f3=3"), S("END PAGE")}));
}

TEST_F(RemovingPages, TheNumberStaysAndShowsTheNextPagesContent) {
    Remove(2);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(Lines(2), (QStringList{S("BEGIN PAGE 2 DESIGN=3"), S("f3=3"), S("END PAGE")}));
    EXPECT_EQ(m_calls, QStringList{S("load 2 of 2")}) << "what was on screen is not saved";
    EXPECT_TRUE(m_document.Changed);
    EXPECT_EQ(m_mainWindow.calls, QStringList{S("RefreshPageList")});
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(RemovingPages, AfterTheLastPageTheNewLastOneShows) {
    Remove(3);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(m_calls, QStringList{S("load 2 of 2")});
    EXPECT_EQ(Headers(), S("1 DESIGN=1, 2 DESIGN=2"));
}

TEST_F(RemovingPages, TenBecomesNine) {
    for (int page = 4; page <= 12; ++page)
        FillPage(3);
    Remove(1);
    EXPECT_EQ(m_document.memory.DataPage(9).Line(1), u"BEGIN PAGE 9 DESIGN=3");
    EXPECT_EQ(m_document.memory.DataPage(9).Line(2), u"f3=10");
    EXPECT_EQ(m_document.Pages, 11);
}

TEST_F(RemovingPages, OnlyTheFirstLineOfAPageIsRenumbered) {
    m_document.memory.AppendFormData(3, u"BEGIN PAGE 3 DESIGN=3");
    Remove(1);
    EXPECT_EQ(Lines(2), (QStringList{S("BEGIN PAGE 2 DESIGN=3"), S("f3=3"), S("END PAGE"),
                                     S("BEGIN PAGE 3 DESIGN=3")}));
}

TEST_F(RemovingPages, WhatStandsBehindTheNumberIsKept) {
    m_document.memory.ReplaceDataLine(3, 1, S("BEGIN PAGE 3 AND MORE DESIGN=3"));
    Remove(1);
    EXPECT_EQ(Lines(2).value(0), S("BEGIN PAGE 2 AND MORE DESIGN=3"));
}

TEST_F(RemovingPages, PagesWithoutLinesAreNoObstacle) {
    m_document.memory.ClearDataPage(3);
    Remove(1);
    EXPECT_TRUE(m_document.memory.DataPage(2).IsEmpty());
    EXPECT_EQ(m_document.Pages, 2);
}

TEST_F(RemovingPages, TheUndoSnapshotStays) {
    m_document.memory.AppendFormData(0, u"BEGIN PAGE 0 DESIGN=2");
    m_document.memory.AppendFormData(0, u"f2=kept");
    Remove(1);
    Remove(2);
    EXPECT_EQ(Lines(0), (QStringList{S("BEGIN PAGE 0 DESIGN=2"), S("f2=kept")}));
}

TEST_F(RemovingPages, PagesOfADesignAreCountedAnew) {
    EXPECT_EQ(m_document.memory.PagesOf(3), std::vector<std::int16_t>{3});
    Remove(1);
    EXPECT_EQ(m_document.memory.PagesOf(3), std::vector<std::int16_t>{2});
    EXPECT_TRUE(m_document.memory.PagesOf(1).empty());
    EXPECT_EQ(m_document.memory.WhichDesign(1), 2);
}

TEST_F(RemovingPages, FormulasSeeTheRemoval) {
    UseHeadlessPage(m_document);
    m_document.memory.AppendFormulas(3, S("SETME(CONCATENATE(PAGENUMBER,\"/\",PAGECOUNT))"), S("f3"));
    m_document.DataPageNum = 1;
    LoadPage(m_document);
    RemovePage(m_document);
    EXPECT_EQ(Lines(2).value(1), S("f3=2/2"));
}

TEST_F(RemovingPages, AFormulaThatFailsShowsThePageThatHasTheNumberNow) {
    m_document.memory.AppendFormulas(2, S("SETME(IF(\"x\",1,2))"), S("f2"));
    EXPECT_EQ(FailureOf([&] { Remove(3); }), 13);
    EXPECT_EQ(m_document.Pages, 2);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(m_calls, QStringList{S("load 2 of 2")}) << "the page that is gone can't be saved as another";
    EXPECT_TRUE(m_document.Changed);
    EXPECT_EQ(m_document.Busy, 0);
    EXPECT_EQ(m_mainWindow.calls, QStringList{S("RefreshPageList")});
}

TEST_F(RemovingPages, DuringAnImportThePageStillShows) {
    m_document.Importing = true;
    Remove(1);
    EXPECT_EQ(m_calls, QStringList{S("load 1 of 2")});
    EXPECT_TRUE(m_ui.statuses.isEmpty());
}

TEST_F(RemovingPages, OutsideTheDocumentNothingIsRemoved) {
    for (const std::int16_t number : {std::int16_t{0}, std::int16_t{4}, std::int16_t{-1}})
        EXPECT_EQ(FailureOf([&] { Remove(number); }), 9) << number;
    EXPECT_EQ(Headers(), S("1 DESIGN=1, 2 DESIGN=2, 3 DESIGN=3"));
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(RemovingPages, OnlyAReportHostIsToldAndOnlyWhenTheNumberChanged) {
    m_document.DataPageNum = 3;
    mnuPageRemove_Click(m_document);
    EXPECT_TRUE(m_ui.hostLines.isEmpty());

    m_application->ReportMode = true;
    m_document.DataPageNum = 1;
    mnuPageRemove_Click(m_document);
    EXPECT_TRUE(m_ui.hostLines.isEmpty()) << "page 1 shows another content under the same number";
    FillPage(1);
    m_document.Pages = 2;
    m_document.DataPageNum = 2;
    mnuPageRemove_Click(m_document);
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
}

TEST_F(RemovingPages, TheHostIsToldOfAPageThatWentBeforeAFormulaFailed) {
    m_document.memory.AppendFormulas(2, S("SETME(IF(\"x\",1,2))"), S("f2"));
    m_application->ReportMode = true;
    m_document.DataPageNum = 3;
    EXPECT_EQ(FailureOf([&] { mnuPageRemove_Click(m_document); }), 13);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
}

class ListingPages : public AddingPages {};

TEST_F(ListingPages, RowsTellNumberAndTitleOfTheDesign) {
    for (const int design : {1, 2, 3})
        m_document.memory.PageProps.Add(S("Title %1").arg(design), QString::number(design));
    FillPage(2);
    EXPECT_EQ(PageListTexts(m_document),
              (QStringList{S("1 - Title 1"), S("2 - Title 2"), S("3 - Title 3"), S("4 - Title 2")}));
    EXPECT_EQ(TitleOfPage(m_document, 4), S("Title 2"));
}

TEST_F(ListingPages, DesignsWithoutATitleShiftTheOthers) {
    m_document.memory.PageProps.Add(S("Of two"), S("2"));
    m_document.memory.PageProps.Add(S("Of three"), S("3"));
    EXPECT_EQ(PageListTexts(m_document), (QStringList{S("1 - Of two"), S("2 - Of three"), S("3 - ")}));
}

TEST_F(ListingPages, ABrokenHeaderHasNoTitle) {
    m_document.memory.PageProps.Add(S("One"), S("1"));
    m_document.memory.ReplaceDataLine(2, 1, S("BEGIN PAGE 2 DESIGN=x"));
    m_document.memory.ReplaceDataLine(3, 1, S("BEGIN PAGE 3 DESIGN=-7"));
    EXPECT_EQ(PageListTexts(m_document), (QStringList{S("1 - One"), S("2 - "), S("3 - ")}));
    EXPECT_EQ(TitleOfPage(m_document, 99), QString());
}

TEST_F(ListingPages, WithoutPagesTheListIsEmpty) {
    frmSheetwright empty(*m_application);
    EXPECT_TRUE(PageListTexts(empty).isEmpty());
}

}  // namespace
}  // namespace sheetwright
