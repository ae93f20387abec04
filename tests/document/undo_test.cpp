#include "document/undo.h"

#include "document/document.h"
#include "document/page.h"
#include "document/page_data.h"
#include "document/page_moves.h"
#include "fields/editing.h"
#include "support/form_text.h"
#include "support/page_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

class Undo : public ApplicationTest {
  protected:
    Undo() : m_document(*m_application) {
        m_application->mainWindow = &m_frame;
        m_document.DataPageNum = 7;
    }

    RecordingMainWindow m_frame;
    frmSheetwright m_document;
};

TEST_F(Undo, ThePageIsStoredAsPage0) {
    std::vector<std::int16_t> stored;
    m_document.SavePageHook = [&] {
        stored.push_back(m_document.DataPageNum);
        EXPECT_FALSE(m_frame.undoEnabled) << "not before there is something to undo";
    };
    SetUndo(m_document);
    EXPECT_EQ(stored, std::vector<std::int16_t>{0});
    EXPECT_EQ(m_document.DataPageNum, 7);
    EXPECT_TRUE(m_frame.undoEnabled);
}

TEST_F(Undo, WhenStoringFailsThePageIsTheSameAndNothingCanBeUndone) {
    m_document.SavePageHook = [] { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { SetUndo(m_document); }), failure::kOutOfMemory);
    EXPECT_EQ(m_document.DataPageNum, 7);
    EXPECT_FALSE(m_frame.undoEnabled);
}

// A form of one page with one field, on screen and without a window.
class UndoOnScreen : public ApplicationTest {
  protected:
    UndoOnScreen() : m_document(*m_application) {
        m_application->mainWindow = &m_frame;
        FormText form;
        form.Page(S("Cover")).Field(S("Client"));
        form.Page(S("Results")).Field(S("Client"));
        form.Data(1, {S("Client=Marlow")}).Data(2, {S("Client=Heron")});
        m_document.Tag = Write(S("form.aff"), form.Bytes());
        UnpackAndRead(m_document);
        UsePageOnScreen(m_document);
        ConnectEntry(m_document);
        LoadPage(m_document);
    }

    [[nodiscard]] QString& Text() { return m_document.page->Entries.At(1).text; }

    RecordingMainWindow m_frame;
    frmSheetwright m_document;
};

TEST_F(UndoOnScreen, BringsTheKeptValuesBackAndStoresThemWithTheNextSave) {
    SetUndo(m_document);
    Text() = S("Finch");
    mnuEditUndo_Click(m_document);
    EXPECT_EQ(Text(), S("Marlow"));
    EXPECT_EQ(m_document.DataPageNum, 1);
    EXPECT_EQ(TextsOf(m_document.memory.DataPage(1)).at(1), S("Client=Finch"));
    SavePage(m_document);
    EXPECT_EQ(TextsOf(m_document.memory.DataPage(1)),
              QStringList({S("BEGIN PAGE 1 DESIGN=1"), S("Client=Marlow"), S("END PAGE")}));
}

TEST_F(UndoOnScreen, TwiceIsTheSameAsOnce) {
    SetUndo(m_document);
    Text() = S("Finch");
    mnuEditUndo_Click(m_document);
    EXPECT_TRUE(m_frame.undoEnabled);
    Text() = S("Plover");
    mnuEditUndo_Click(m_document);
    EXPECT_EQ(Text(), S("Marlow"));
}

TEST_F(UndoOnScreen, TheFormDiffersFromItsFileOnlyWhenAValueDoes) {
    SetUndo(m_document);
    mnuEditUndo_Click(m_document);
    EXPECT_FALSE(m_document.Changed);
    Text() = S("Finch");
    mnuEditUndo_Click(m_document);
    EXPECT_TRUE(m_document.Changed);
    EXPECT_TRUE(m_document.PageChanged);
}

TEST_F(UndoOnScreen, TellsThePageOnScreenAndNotThatOfTheKeptValues) {
    SetUndo(m_document);
    Text() = S("Finch");
    mnuEditUndo_Click(m_document);
    EXPECT_EQ(m_frame.panel, S("1/2 - Cover "));
    EXPECT_EQ(m_frame.box, S("1/2"));
}

TEST_F(UndoOnScreen, WithoutKeptValuesThePageStaysAsItIs) {
    Text() = S("Finch");
    mnuEditUndo_Click(m_document);
    EXPECT_EQ(Text(), S("Finch"));
    EXPECT_FALSE(m_frame.undoEnabled);
}

TEST_F(UndoOnScreen, OnAnotherPageTheValuesOfTheEarlierOneCome) {
    SetUndo(m_document);
    MoveToPage(m_document, 2);
    EXPECT_FALSE(m_frame.undoEnabled);
    mnuEditUndo_Click(m_document);
    EXPECT_EQ(Text(), S("Marlow"));
    EXPECT_EQ(m_document.DataPageNum, 2);
}

TEST_F(UndoOnScreen, RevertShowsTheStoredValues) {
    Text() = S("Finch");
    mnuEditRevert_Click(m_document);
    EXPECT_EQ(Text(), S("Marlow"));
    EXPECT_EQ(m_document.page->CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
}

}  // namespace
}  // namespace sheetwright
