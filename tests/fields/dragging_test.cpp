#include "fields/dragging.h"

#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

constexpr std::int16_t kLeft = 1;
constexpr std::int16_t kRight = 2;

class Dragging : public PageOfElements {
  protected:
    Dragging() {
        m_document.SavePageHook = [this] { m_saved.push_back(m_document.DataPageNum); };
        AddField(S("from"));
        AddField(S("to"));
    }

    void Move(double dx, double dy, std::int16_t button = kLeft, std::int16_t shift = 0) {
        Entries_MouseDown(m_document, 1, kLeft, 1000, 1000);
        Entries_MouseMove(m_document, button, shift, 1000 + dx, 1000 + dy);
    }
    void Drag(int source, int target, std::int16_t shift = 0) {
        Entries_MouseDown(m_document, source, kLeft, 0, 0);
        Entries_MouseMove(m_document, kLeft, shift, 500, 0);
        Entries_DragDrop(m_document, target);
    }

    std::vector<std::int16_t> m_saved;  // data pages that were stored
};

TEST_F(Dragging, AMoveOf119TwipsIsNoDrag) {
    Move(119, -119);
    EXPECT_EQ(m_page.drag.mode, 0);
    EXPECT_EQ(m_window.dragMode, 0);
}

TEST_F(Dragging, AMoveOf120TwipsInEitherDirectionIsADrag) {
    for (const auto& [dx, dy] : {std::pair{120, 0}, {-120, 0}, {0, 120}, {0, -120}}) {
        Move(dx, dy);
        EXPECT_EQ(m_window.dragMode, 1) << dx << ' ' << dy;
        CancelDrag(m_document);
    }
}

TEST_F(Dragging, OnlyTheLeftButtonDrags) {
    Move(500, 500, kRight);
    Move(500, 500, 0);
    EXPECT_EQ(m_window.dragMode, 0);
    Move(500, 500, kLeft | kRight);
    EXPECT_EQ(m_window.dragMode, 1);
}

TEST_F(Dragging, CtrlCopies) {
    Move(500, 0, kLeft, key::kCtrlMask);
    EXPECT_EQ(m_window.dragMode, 2);
    EXPECT_EQ(m_page.drag.mode, 2);
}

TEST_F(Dragging, ADragBeginsOnce) {
    Move(500, 0);
    Entries_MouseMove(m_document, kLeft, key::kCtrlMask, 3000, 3000);
    EXPECT_EQ(m_window.Count(S("BeginDrag 1")), 1);
    EXPECT_EQ(m_window.Count(S("BeginDrag 2")), 0);
}

TEST_F(Dragging, TheFieldThatIsEditedIsLeftFirst) {
    Enter(1);
    m_page.Entry.ReportText(S("typed"));
    m_window.calls.clear();
    Move(500, 0);
    EXPECT_EQ(TextOf(1), S("typed"));
    EXPECT_EQ(Current(), S(""));
    EXPECT_EQ(m_window.calls, (QStringList{S("ElementChanged 1"), S("HideEntry"), S("BeginDrag 1")}));
    Enter(2);
    EXPECT_EQ(Current(), S("")) << "no field is entered during a drag";
}

TEST_F(Dragging, APlainDragMovesTheValue) {
    Drag(1, 2);
    EXPECT_EQ(TextOf(1), S(""));
    EXPECT_EQ(TextOf(2), S("from"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(m_window.dragMode, 0);
    EXPECT_EQ(m_page.drag.mode, 0);
}

TEST_F(Dragging, ADragWithCtrlCopiesTheValue) {
    Drag(1, 2, key::kCtrlMask);
    EXPECT_EQ(TextOf(1), S("from"));
    EXPECT_EQ(TextOf(2), S("from"));
    EXPECT_TRUE(IsMarkedChanged());
}

TEST_F(Dragging, ThePageIsKeptForUndoBefore) {
    m_document.DataPageNum = 4;
    m_document.SavePageHook = [this] {
        m_saved.push_back(m_document.DataPageNum);
        EXPECT_EQ(TextOf(2), S("to")) << "as it was";
    };
    Drag(1, 2);
    EXPECT_EQ(m_saved, std::vector<std::int16_t>{0});
    EXPECT_EQ(m_document.DataPageNum, 4);
    EXPECT_TRUE(m_frame.undoEnabled);
}

TEST_F(Dragging, TheTargetTakesTheValueThroughItsMask) {
    const int source = AddField(S("1234.5"));
    const int target = AddField({}, {S("Format=#,##0.00")});
    Drag(source, target, key::kCtrlMask);
    EXPECT_EQ(TextOf(target), S("1,234.50"));
    EXPECT_EQ(TextOf(source), S("1234.5"));
    Drag(1, target);
    EXPECT_EQ(TextOf(target), S("from")) << "what the mask can't show stays plain";
}

TEST_F(Dragging, ADateTargetTakesTheValueByTheRulesOfDates) {
    const int date = AddDate();
    AddField(S("311203"));
    Drag(4, date);
    EXPECT_EQ(TextOf(date), S("31/12/2003"));
    Drag(2, date);
    EXPECT_EQ(TextOf(date), S("")) << "no digit, no date";
}

TEST_F(Dragging, DroppedOnItselfAValueStays) {
    Drag(1, 1);
    EXPECT_EQ(TextOf(1), S("from"));
    EXPECT_FALSE(m_document.Changed);
    EXPECT_TRUE(m_saved.empty());
    EXPECT_EQ(m_window.dragMode, 0) << "the drag is over";
}

TEST_F(Dragging, DroppedBesideAllFieldsAValueStays) {
    for (const int target : {0, -1, 3}) {
        Drag(1, target);
        EXPECT_EQ(TextOf(1), S("from"));
        EXPECT_FALSE(m_document.Changed);
        EXPECT_EQ(m_window.dragMode, 0);
    }
}

TEST_F(Dragging, AnEqualTextMarksTheDocumentChanged) {
    m_page.Entries.At(2).text = S("from");
    Drag(1, 2, key::kCtrlMask);
    EXPECT_TRUE(IsMarkedChanged());
}

TEST_F(Dragging, AnEmptyValueCanBeMoved) {
    m_page.Entries.At(1).text.clear();
    Drag(1, 2);
    EXPECT_EQ(TextOf(2), S(""));
}

TEST_F(Dragging, AClickIsNoDrag) {
    Entries_MouseDown(m_document, 1, kLeft, 0, 0);
    Entries_DragDrop(m_document, 2);
    EXPECT_EQ(TextOf(2), S("to"));
    EXPECT_EQ(m_window.Count(S("EndDrag")), 0);
    Entries_MouseMove(m_document, kLeft, 0, 5000, 5000);
    EXPECT_EQ(m_window.dragMode, 0) << "the button went up before";
}

TEST_F(Dragging, APressOnAFieldThatIsGoneBeginsNoDrag) {
    Entries_MouseDown(m_document, 9, kLeft, 0, 0);
    Entries_MouseMove(m_document, kLeft, 0, 5000, 5000);
    EXPECT_EQ(m_window.dragMode, 0);
}

TEST_F(Dragging, EscapeCancelsTheDrag) {
    Move(500, 0);
    EXPECT_EQ(Press(key::kEscape), 0);
    EXPECT_EQ(m_window.dragMode, 0);
    Entries_DragDrop(m_document, 2);
    EXPECT_EQ(TextOf(1), S("from"));
    EXPECT_EQ(TextOf(2), S("to"));
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(Dragging, AReadOnlyDocumentHasNoDrag) {
    m_document.MyReadonly = true;
    Drag(1, 2);
    EXPECT_EQ(TextOf(2), S("to"));
    EXPECT_EQ(m_window.calls, QStringList());
    m_document.MyReadonly = false;
    m_application->ViewerMode = true;
    Drag(1, 2);
    EXPECT_EQ(TextOf(2), S("to"));
}

TEST_F(Dragging, ADocumentThatIsLockedMeanwhileTakesNoDrop) {
    Move(500, 0);
    m_document.MyReadonly = true;
    Entries_DragDrop(m_document, 2);
    EXPECT_EQ(TextOf(2), S("to"));
    EXPECT_EQ(m_window.dragMode, 0);
}

TEST_F(Dragging, NothingIsDroppedOnAFieldThatNobodyCanTypeInto) {
    const int verdict = AddField(S("PASS"), {S("ReadOnly=True")});
    Drag(1, verdict);
    EXPECT_EQ(TextOf(verdict), S("PASS"));
    EXPECT_EQ(TextOf(1), S("from"));
    EXPECT_FALSE(IsMarkedChanged());
}

TEST_F(Dragging, AFieldThatNobodyCanTypeIntoGivesItsValueAndKeepsIt) {
    const int verdict = AddField(S("PASS"), {S("ReadOnly=True")});
    Drag(verdict, 2);
    EXPECT_EQ(TextOf(2), S("PASS"));
    EXPECT_EQ(TextOf(verdict), S("PASS"));
}

}  // namespace
}  // namespace sheetwright
