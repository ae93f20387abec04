#include "document/page_moves.h"

#include "document/document.h"
#include "document/page.h"
#include "document/page_on_screen_test.h"
#include "document/pages.h"
#include "document/undo.h"
#include "fields/dragging.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "support/page_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

class PageMoves : public ApplicationTest {
  protected:
    PageMoves() : m_document(*m_application) {
        m_application->mainWindow = &m_frame;
        m_document.window = &m_window;
        for (const char* line : {"BEGIN PAGE 1", "BEGIN FIELD", "Name=sum", "END FIELD", "END PAGE"})
            m_document.memory.AppendFormDesign(1, S(line));
        for (std::int16_t page = 1; page <= 3; ++page) {
            m_document.memory.AppendFormData(page, S("BEGIN PAGE %1 DESIGN=1").arg(page));
            m_document.memory.AppendFormData(page, S("sum=old"));
            m_document.memory.AppendFormData(page, S("END PAGE"));
        }
        m_document.Pages = 3;
        m_document.DataPageNum = 2;
        m_document.SavePageHook = [this] { Note("save %1"); };
        m_document.LoadPageHook = [this] { Note("load %1"); };
    }

    void Note(const char* step) {
        m_steps << S(step).arg(m_document.DataPageNum) + (m_frame.enabled ? S(" enabled") : S(""));
        EXPECT_GT(m_document.Busy, 0);
    }
    void SetFormula(const char* formula) {
        m_document.memory.AppendFormulas(1, S(formula), S("sum"));
        m_document.PageChanged = true;
    }
    [[nodiscard]] QString LineOf(int page) const { return TextsOf(m_document.memory.DataPage(page))[1]; }

    RecordingMainWindow m_frame;
    RecordingWindow m_window;
    frmSheetwright m_document;
    QStringList m_steps;
};

TEST_F(PageMoves, AnUnchangedPageIsStoredAndTheOtherShown) {
    MoveToPage(m_document, 3);
    EXPECT_EQ(m_steps, (QStringList{S("save 2"), S("load 3")}));
    EXPECT_EQ(m_document.DataPageNum, 3);
    EXPECT_EQ(m_frame.calls, (QStringList{S("disabled"), S("enabled")}));
    EXPECT_EQ(m_window.calls, QStringList{S("FocusContainer")});
    EXPECT_EQ(m_ui.pumps, 1);
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(PageMoves, AChangedPageIsStoredAndTheFormRecalculated) {
    SetFormula("SETME(7)");
    MoveToPage(m_document, 1);
    EXPECT_EQ(m_steps, (QStringList{S("save 2"), S("load 2"), S("load 1")}));
    EXPECT_EQ(LineOf(3), S("sum=7"));
    EXPECT_EQ(m_document.DataPageNum, 1);
    EXPECT_FALSE(m_document.PageChanged);
}

TEST_F(PageMoves, ARecalculationThatFailsLeavesThePageOnScreen) {
    SetFormula("SETME(EQUAL(1,\"abc\"))");
    EXPECT_EQ(FailureOf([&] { MoveToPage(m_document, 3); }), failure::kTypeMismatch);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(m_document.InterruptedPage, 0);
    EXPECT_TRUE(m_document.PageChanged);
    EXPECT_TRUE(m_frame.enabled);
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_EQ(m_steps, QStringList{S("save 2")});
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(PageMoves, PagesThatAreNotThereDoNothing) {
    for (const std::int16_t page : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{4}})
        MoveToPage(m_document, page);
    EXPECT_EQ(m_steps, QStringList());
    EXPECT_EQ(m_frame.calls, QStringList());
}

TEST_F(PageMoves, TheSamePageIsShownAnew) {
    MoveToPage(m_document, 2);
    EXPECT_EQ(m_steps, (QStringList{S("save 2"), S("load 2")}));
}

TEST_F(PageMoves, TheHostIsToldInReportModeOnly) {
    MoveToPage(m_document, 3);
    EXPECT_EQ(m_ui.hostLines, QStringList());
    m_application->ReportMode = true;
    m_ui.onPump = [this] { EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")}); };
    MoveToPage(m_document, 1);
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
}

TEST_F(PageMoves, ADragEndsWithItsPage) {
    m_document.page->drag = {.source = 1, .mode = 1};
    MoveToPage(m_document, 3);
    EXPECT_EQ(m_document.page->drag.mode, 0);
    EXPECT_EQ(m_window.calls.first(), S("EndDrag"));
}

TEST_F(PageMoves, DownGoesOnAndUpGoesBack) {
    ChangePage(m_document, u"down");
    EXPECT_EQ(m_document.DataPageNum, 3);
    ChangePage(m_document, u"up");
    ChangePage(m_document, u"up");
    EXPECT_EQ(m_document.DataPageNum, 1);
}

TEST_F(PageMoves, AtTheEndsAndForOtherWordsNothingHappens) {
    m_document.DataPageNum = 3;
    ChangePage(m_document, u"down");
    m_document.DataPageNum = 1;
    ChangePage(m_document, u"up");
    ChangePage(m_document, u"DOWN");
    ChangePage(m_document, u"");
    EXPECT_EQ(m_steps, QStringList());
}

TEST_F(PageMoves, TheEndsAreReachedFromEverywhere) {
    for (std::int16_t page = 1; page <= 3; ++page) {
        m_document.DataPageNum = page;
        m_steps.clear();
        FirstPage(m_document);
        EXPECT_EQ(m_steps, (QStringList{S("save %1").arg(page), S("load 1")}));
        m_document.DataPageNum = page;
        m_steps.clear();
        LastPage(m_document);
        EXPECT_EQ(m_steps, (QStringList{S("save %1").arg(page), S("load 3")}));
    }
}

TEST_F(PageMoves, TheNeighboursEndAtTheEnds) {
    struct Case {
        std::int16_t from, next, previous;
    };
    for (const Case& page : {Case{1, 2, 1}, Case{2, 3, 1}, Case{3, 3, 2}}) {
        m_document.DataPageNum = page.from;
        NextPage(m_document);
        EXPECT_EQ(m_document.DataPageNum, page.next);
        m_document.DataPageNum = page.from;
        PrevPage(m_document);
        EXPECT_EQ(m_document.DataPageNum, page.previous);
    }
    EXPECT_EQ(m_steps.size(), 8) << "nothing is stored and shown at an end";
}

TEST_F(PageMoves, WithoutPagesThereIsNowhereToGo) {
    m_document.Pages = 0;
    m_document.DataPageNum = 0;
    for (const auto move : {FirstPage, LastPage, NextPage, PrevPage})
        move(m_document);
    EXPECT_EQ(m_steps, QStringList());
}

TEST_F(PageMoves, TheGotoDialogIsOpenedOnce) {
    bool isOpen = false;
    int shown = 0;
    const auto show = [&](frmSheetwright& document) {
        ++shown;
        EXPECT_TRUE(isOpen);
        mnuPageGoto_Click(&document, isOpen, [&](frmSheetwright&) { ++shown; });
    };
    mnuPageGoto_Click(&m_document, isOpen, show);
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(isOpen);
    mnuPageGoto_Click(&m_document, isOpen, show);
    EXPECT_EQ(shown, 2);
}

TEST_F(PageMoves, WithoutADocumentNoGotoDialogShows) {
    bool isOpen = false;
    mnuPageGoto_Click(nullptr, isOpen, [](frmSheetwright&) { FAIL(); });
    EXPECT_FALSE(isOpen);
}

TEST_F(PageMoves, TheGotoDialogCanBeOpenedAgainAfterAFailure) {
    bool isOpen = false;
    const auto fail = [](frmSheetwright&) { throw Failure(failure::kTypeMismatch); };
    EXPECT_EQ(FailureOf([&] { mnuPageGoto_Click(&m_document, isOpen, fail); }), failure::kTypeMismatch);
    EXPECT_FALSE(isOpen);
}

// A form of two designs; its pages have the designs 1, 2 and 1.
class TurningPages : public PageOnScreenTest {
  protected:
    TurningPages() {
        FormText form;
        form.Page(S("First"))
            .Field(S("a"))
            .Formula(S("next"), S("SETME(ADD({FIELDS\\First,a},1))"))
            .CheckBox(S("c"));
        form.Page(S("Second")).Field(S("other"));
        form.Data(1, {S("a=1"), S("next=2"), S("c=0")});
        form.Data(2, {S("other=x")});
        form.Data(1, {S("a=3"), S("next=4"), S("c=1")});
        ConnectEntry(Show(form));
        SimulateTab(*m_document);
    }
    void Type(const QString& text) { ThePage().Entry.ReportText(text); }
    void Release(std::int16_t keyCode) { Form_KeyUp(*m_document, keyCode, 0); }
};

TEST_F(TurningPages, WhatIsBeingTypedIsStored) {
    Type(S("7"));
    Release(key::kPageDown);
    EXPECT_EQ(Lines(1).value(1), S("a=7"));
    EXPECT_EQ(TextAt(1), S("x"));
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
    EXPECT_EQ(ThePage().Entry.Value(), S("x"));
    Type(S("y"));
    Release(key::kPageUp);
    EXPECT_EQ(Lines(2).value(1), S("other=y"));
    EXPECT_EQ(TextAt(1), S("7"));
    EXPECT_TRUE(m_mainWindow.enabled);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(TurningPages, WhatWasNotLeftBeforeRecalculatesNothing) {
    Type(S("7"));
    ASSERT_FALSE(m_document->PageChanged);
    MoveToPage(*m_document, 3);
    EXPECT_EQ(Lines(1),
              (QStringList{S("BEGIN PAGE 1 DESIGN=1"), S("a=7"), S("next=2"), S("c=0"), S("END PAGE")}));
    EXPECT_FALSE(m_document->PageChanged);
    EXPECT_TRUE(m_document->Changed);
}

TEST_F(TurningPages, ACheckBoxWithTheFocusIsLeftWithItsPage) {
    Checks_Click(*m_document, 1);
    ASSERT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Check, 1}));
    MoveToPage(*m_document, 3);
    EXPECT_EQ(Lines(1).value(3), S("c=1"));
    EXPECT_EQ(ThePage().Checks.At(1).control->Value(), S("1")) << "of the third page";
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone());
    EXPECT_FALSE(m_document->PageChanged);
    SimulateTab(*m_document);
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
}

TEST_F(TurningPages, ATypedTextIsKeptForUndoThroughItsField) {
    Type(S("7"));
    SetUndo(*m_document);
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone()) << "the field was left";
    EXPECT_EQ(TextAt(1), S("7"));
    EXPECT_EQ(m_document->Pages, 3);
    EXPECT_EQ(m_document->memory.DataPageCount(), 3);
}

TEST_F(TurningPages, AChangedPageRecalculatesTheForm) {
    Type(S("7"));
    Unselect(*m_document);
    ASSERT_TRUE(m_document->PageChanged);
    MoveToPage(*m_document, 3);
    EXPECT_EQ(Lines(1).value(2), S("next=8"));
    EXPECT_EQ(Texts(), (QStringList{S("3"), S("4")}));
    EXPECT_FALSE(m_document->PageChanged);
    EXPECT_TRUE(m_document->Changed);
}

TEST_F(TurningPages, UndoKeepsThePagesValuesAsPage0) {
    Type(S("7"));
    SetUndo(*m_document);
    EXPECT_EQ(Lines(0),
              (QStringList{S("BEGIN PAGE 0 DESIGN=1"), S("a=7"), S("next=2"), S("c=0"), S("END PAGE")}));
    EXPECT_EQ(Lines(1).value(1), S("a=1")) << "the page itself is not stored";
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_TRUE(m_mainWindow.undoEnabled);
    MoveToPage(*m_document, 2);
    EXPECT_FALSE(m_mainWindow.undoEnabled) << "another design";
}

TEST_F(TurningPages, GotoEntersTheFirstFieldOfAnotherPageOnly) {
    bool isOpen = false;
    Unselect(*m_document);
    mnuPageGoto_Click(m_document.get(), isOpen, [](frmSheetwright& document) { FirstPage(document); });
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone());
    mnuPageGoto_Click(m_document.get(), isOpen, [](frmSheetwright& document) { LastPage(document); });
    EXPECT_EQ(m_document->DataPageNum, 3);
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
}

TEST_F(TurningPages, AddPageEntersTheFirstFieldAndTellsTheHost) {
    m_mainWindow.onAddPage = [](frmSheetwright& document) {
        AddPage(document, 2, Placement::AtEnd, document.Pages);
    };
    m_application->ReportMode = true;
    mnuPageAdd_Click(*m_document);
    EXPECT_EQ(m_document->DataPageNum, 4);
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
    m_application->ReportMode = false;
    mnuPageAdd_Click(*m_document);
    EXPECT_EQ(m_ui.hostLines.size(), 1) << "only a report has a host";
}

TEST_F(TurningPages, APageAddedUnderTheSameNumberIsNoOtherPage) {
    m_mainWindow.onAddPage = [](frmSheetwright& document) { AddPage(document, 2, Placement::AtStart, 1); };
    m_application->ReportMode = true;
    mnuPageAdd_Click(*m_document);
    EXPECT_EQ(m_document->Pages, 4);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone());
    EXPECT_EQ(m_ui.hostLines, QStringList());
}

TEST_F(TurningPages, ACancelledAddPageChangesNothing) {
    m_application->ReportMode = true;
    mnuPageAdd_Click(*m_document);
    EXPECT_EQ(m_mainWindow.addPageShown, 1);
    EXPECT_EQ(m_document->Pages, 3);
    EXPECT_EQ(m_ui.hostLines, QStringList());
}

TEST_F(TurningPages, ADropCanBeUndone) {
    Entries_MouseDown(*m_document, 1, 1, 0, 0);
    Entries_MouseMove(*m_document, 1, key::kCtrlMask, 200, 0);
    Entries_DragDrop(*m_document, 2);
    EXPECT_EQ(Texts(), (QStringList{S("1"), S("1")}));
    EXPECT_EQ(Lines(0).value(2), S("next=2"));
}

}  // namespace
}  // namespace sheetwright
