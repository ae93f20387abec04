#include "fields/navigation.h"

#include "document/undo.h"
#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

class Navigation : public PageOfElements {
  protected:
    [[nodiscard]] QStringList TabIndexes() const {
        QStringList keys;
        for (const auto& stop : m_page.TabOrders.Entries())
            keys << stop.key;
        return keys;
    }
    void AddFields(int count) {
        for (int field = 0; field < count; ++field)
            AddField();
    }
};

TEST_F(Navigation, TabStopsAreSortedByTheirNumbers) {
    for (const char* place : {"TabIdx=10", "TabIdx=9", "TabIdx=100", "TabIdx=-1", "TabIdx=2"})
        AddField({}, {S(place)});
    SortTabOrders(m_page, m_application->conventions);
    EXPECT_EQ(TabIndexes(), (QStringList{S("-1"), S("2"), S("9"), S("10"), S("100")}));
    EXPECT_EQ(*m_page.TabOrders.At(u"9")->Find(u"Key"), S("2")) << "found under its key as before";
}

TEST_F(Navigation, EqualTabStopsKeepTheirOrder) {
    for (const char* place : {"TabIdx=3", "TabIdx=x", "TabIdx=03", "TabIdx=y", "TabIdx=3.0", "TabIdx=1"})
        AddField({}, {S(place)});
    SortTabOrders(m_page, m_application->conventions);
    EXPECT_EQ(TabIndexes(), (QStringList{S("x"), S("y"), S("1"), S("3"), S("03"), S("3.0")}));
}

TEST_F(Navigation, ThousandsOfTabStopsAreSorted) {
    constexpr int kStops = 5000;
    for (int stop = 0; stop < kStops; ++stop)
        AddField({}, {S("TabIdx=%1").arg(kStops - stop)});
    SortTabOrders(m_page, m_application->conventions);
    EXPECT_EQ(TabIndexes().first(), S("1"));
    EXPECT_EQ(TabIndexes().last(), S("5000"));
    EXPECT_EQ(Tab(), S("5000")) << "the last one that was built";
    EXPECT_EQ(ShiftTab(), S("1"));
}

TEST_F(Navigation, TabGoesFromFieldToFieldAndWraps) {
    AddFields(3);
    EXPECT_EQ(Tab(), S("1")) << "nothing had the focus";
    EXPECT_EQ(Tab(), S("2"));
    EXPECT_EQ(Tab(), S("3"));
    EXPECT_EQ(Tab(), S("1")) << "from the last to the first";
}

TEST_F(Navigation, ShiftTabGoesBackAndWraps) {
    AddFields(3);
    EXPECT_EQ(ShiftTab(), S("3")) << "nothing had the focus";
    EXPECT_EQ(ShiftTab(), S("2"));
    EXPECT_EQ(ShiftTab(), S("1"));
    EXPECT_EQ(ShiftTab(), S("3")) << "from the first to the last";
}

TEST_F(Navigation, EnterMovesLikeTab) {
    AddFields(3);
    Press(key::kEnter);
    EXPECT_EQ(Current(), S("1"));
    Press(key::kEnter);
    EXPECT_EQ(Current(), S("2"));
    Press(key::kEnter, key::kShiftMask);
    EXPECT_EQ(Current(), S("1"));
}

TEST_F(Navigation, TheKeyIsSwallowed) {
    AddFields(1);
    EXPECT_EQ(Press(key::kTab), 0);
    EXPECT_EQ(Press(key::kEnter), 0);
    EXPECT_EQ(Press(key::kSpace), key::kSpace);
    EXPECT_EQ(Press(key::kEscape), key::kEscape);
    EXPECT_EQ(Press(key::kPageDown), key::kPageDown);
}

TEST_F(Navigation, CtrlTabIsLeftAlone) {
    AddFields(2);
    Tab();
    EXPECT_EQ(Press(key::kTab, key::kCtrlMask), key::kTab);
    EXPECT_EQ(Press(key::kTab, key::kCtrlMask | key::kShiftMask), key::kTab);
    EXPECT_EQ(Press(key::kEnter, key::kCtrlMask), key::kEnter);
    EXPECT_EQ(Current(), S("1"));
}

TEST_F(Navigation, APageWithoutFieldsLeavesTheKeyAlone) {
    EXPECT_EQ(Press(key::kTab), key::kTab);
    EXPECT_EQ(Current(), S(""));
}

TEST_F(Navigation, ReadOnlyFieldsAreSkippedBothWays) {
    AddField();
    AddField({}, {S("ReadOnly=True")});
    AddField({}, {S("ReadOnly=-1")});
    AddField();
    AddField({}, {S("ReadOnly=True")});
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(Tab(), S("4"));
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(ShiftTab(), S("4"));
    EXPECT_EQ(ShiftTab(), S("1"));
}

TEST_F(Navigation, HiddenFieldsAndPicturesAreSkippedBothWays) {
    AddFields(3);
    AddPicture();
    m_page.Entries.At(2).isVisible = false;
    m_page.Bitmaps.At(1).isVisible = false;
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(Tab(), S("3"));
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(ShiftTab(), S("3"));
    EXPECT_EQ(ShiftTab(), S("1"));
}

TEST_F(Navigation, AReadOnlyKeyThatIsAbsentOrNonsenseSaysNothing) {
    AddField({}, {S("-ReadOnly")});
    AddField({}, {S("ReadOnly=perhaps")});
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(Tab(), S("2"));
}

TEST_F(Navigation, WithAllFieldsReadOnlyACircleEndsWithNoMove) {
    for (int field = 0; field < 3; ++field)
        AddField({}, {S("ReadOnly=True")});
    EXPECT_EQ(Tab(), S(""));
    EXPECT_EQ(ShiftTab(), S(""));
    EXPECT_FALSE(m_page.isEntryVisible);
    EXPECT_EQ(Press(key::kTab), 0) << "swallowed all the same";
}

TEST_F(Navigation, TheOnlyFieldKeepsTheFocusAndItsText) {
    AddField(S("a"));
    AddField({}, {S("ReadOnly=True")});
    Tab();
    m_page.Entry.ReportText(S("b"));
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(TextOf(1), S("b"));
    EXPECT_EQ(m_page.Entry.Value(), S("b"));
    EXPECT_EQ(ShiftTab(), S("1"));
}

TEST_F(Navigation, TheOnlyCheckBoxIsLeftAndEnteredAgain) {
    AddCheck();
    Tab();
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(Tab(), S("C1"));
    EXPECT_EQ(m_window.focused, kCheck1);
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(Check(1).Value(), S("0"));
}

TEST_F(Navigation, TabGoesThroughCheckBoxesAndPictures) {
    AddField();
    AddCheck();
    AddPicture();
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_EQ(Tab(), S("C1"));
    EXPECT_EQ(m_window.focused, kCheck1);
    EXPECT_FALSE(m_page.isEntryVisible);
    EXPECT_EQ(Tab(), S("B1"));
    EXPECT_EQ(m_window.focused, kPicture1);
    EXPECT_EQ(Tab(), S("1"));
    EXPECT_TRUE(m_page.isEntryVisible);
    EXPECT_EQ(ShiftTab(), S("B1"));
}

TEST_F(Navigation, AReadOnlyPictureIsSkipped) {
    AddField();
    AddPicture({S("ReadOnly=True")});
    AddPicture();
    m_page.Bitmaps.At(2).control->SetEnabled(false);
    AddCheck();
    Tab();
    EXPECT_EQ(Tab(), S("C1"));
}

TEST_F(Navigation, AnElementWithoutPlaceInTheOrderCountsAsTheOneThatHasIt) {
    AddFields(2);
    AddField({}, {S("TabIdx=1")});
    AddField({}, {S("-TabIdx")});
    Enter(3);
    EXPECT_EQ(Tab(), S("2")) << "as from the field that has its place";
    Enter(4);
    EXPECT_EQ(Tab(), S("1")) << "as with no field";
}

TEST_F(Navigation, ARecordWhoseElementIsGoneIsPassedOver) {
    AddFields(3);
    m_page.FieldProperties[0]->Remove(u"Key");
    m_page.FieldProperties[0]->Add(S("77"), S("Key"));
    m_page.FieldProperties[1]->Remove(u"Key");
    EXPECT_EQ(Tab(), S("3"));
    EXPECT_EQ(Tab(), S("3"));
}

TEST_F(Navigation, TheFieldIsLeftBeforeTheNextIsEntered) {
    AddField(S("a"));
    AddField(S("b"));
    Tab();
    m_page.Entry.ReportText(S("typed"));
    m_window.calls.clear();
    Tab();
    EXPECT_EQ(TextOf(1), S("typed"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(m_window.calls.first(3), (QStringList{S("ElementChanged 1"), S("HideEntry"), S("ShowEntry")}));
    EXPECT_EQ(m_page.Entry.Value(), S("b"));
}

TEST_F(Navigation, TabMovesNothingIntoEditingInAReadOnlyDocument) {
    AddField();
    AddCheck();
    m_document.MyReadonly = true;
    EXPECT_EQ(Tab(), S(""));
    EXPECT_EQ(ShiftTab(), S(""));
    EXPECT_EQ(m_window.calls, QStringList());
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(Navigation, ADocumentThatBecomesReadOnlyKeepsWhatWasTypedBefore) {
    AddField();
    Tab();
    m_page.Entry.ReportText(S("typed"));
    m_document.MyReadonly = true;
    EXPECT_EQ(Tab(), S("")) << "left, and nothing else entered";
    EXPECT_EQ(TextOf(1), S("typed"));
    EXPECT_FALSE(m_page.isEntryVisible);
}

TEST_F(Navigation, TabDuringADragMovesNothing) {
    AddFields(2);
    m_page.drag = {.source = 1, .mode = 1};
    EXPECT_EQ(Tab(), S(""));
}

TEST_F(Navigation, SimulatedTabsGoForward) {
    AddFields(2);
    SimulateTab(m_document);
    EXPECT_EQ(Current(), S("1"));
    SimulateTab(m_document);
    EXPECT_EQ(Current(), S("2"));
}

TEST_F(Navigation, GpfFixTakesTheFocusFromThePage) {
    m_frame.enabled = false;
    GPFFix(m_document);
    EXPECT_TRUE(m_frame.enabled);
    EXPECT_EQ(m_window.calls, QStringList{S("FocusContainer")});
    EXPECT_EQ(m_ui.pumps, 1);
}

class PageKeys : public Navigation {
  protected:
    PageKeys() {
        AddFields(2);
        m_document.Pages = 3;
        m_document.DataPageNum = 2;
    }
    void Release(std::int16_t keyCode) { Form_KeyUp(m_document, keyCode, 0); }
};

TEST_F(PageKeys, PageUpGoesToThePageBefore) {
    Release(key::kPageUp);
    EXPECT_EQ(m_document.DataPageNum, 1);
    EXPECT_EQ(Current(), S("1")) << "a field of the new page has the focus";
    Tab();
    Release(key::kPageUp);
    EXPECT_EQ(m_document.DataPageNum, 1);
    EXPECT_EQ(Current(), S("2")) << "nothing happens on the first page";
}

TEST_F(PageKeys, PageDownGoesToThePageBehind) {
    Release(key::kPageDown);
    EXPECT_EQ(m_document.DataPageNum, 3);
    EXPECT_EQ(Current(), S("1"));
    EXPECT_EQ(m_frame.addPageShown, 0);
}

TEST_F(PageKeys, PageDownOnTheLastPageOffersANewOne) {
    m_document.DataPageNum = 3;
    Release(key::kPageDown);
    EXPECT_EQ(m_frame.addPageShown, 1);
    EXPECT_EQ(m_document.DataPageNum, 3);
    EXPECT_EQ(Current(), S("")) << "no page was added";
}

TEST_F(PageKeys, PageDownOffersANewPageInADocumentOfOnePage) {
    m_document.Pages = 1;
    m_document.DataPageNum = 1;
    Release(key::kPageDown);
    EXPECT_EQ(m_frame.addPageShown, 1);
}

TEST_F(PageKeys, NoPageIsOfferedWhereNothingCanBeEntered) {
    m_document.DataPageNum = 3;
    m_document.MyReadonly = true;
    Release(key::kPageDown);
    EXPECT_EQ(m_frame.addPageShown, 0);
    Release(key::kPageUp);
    EXPECT_EQ(m_document.DataPageNum, 2) << "pages can be turned";
}

TEST_F(PageKeys, NothingHappensWhileTheMainWindowIsDisabled) {
    m_frame.enabled = false;
    for (const std::int16_t page : {std::int16_t{2}, std::int16_t{3}}) {
        m_document.DataPageNum = page;
        Release(key::kPageUp);
        Release(key::kPageDown);
        EXPECT_EQ(m_document.DataPageNum, page);
    }
    EXPECT_EQ(m_frame.addPageShown, 0);
}

TEST_F(PageKeys, OtherKeysTurnNoPage) {
    Release(key::kTab);
    Release(key::kSpace);
    EXPECT_EQ(m_document.DataPageNum, 2);
}

TEST_F(PageKeys, TheDocumentIsBusyWhileItsPageIsTurned) {
    m_ui.onPump = [this] { EXPECT_GT(m_document.Busy, 0); };
    Release(key::kPageDown);
    EXPECT_EQ(m_ui.pumps, 1);
    EXPECT_EQ(m_document.Busy, 0);
}

class NavigationInTheViewer : public PageOfElements {
  protected:
    NavigationInTheViewer() { m_application->ViewerMode = true; }
};

TEST_F(NavigationInTheViewer, TabMovesNothingIntoEditing) {
    AddField();
    AddCheck();
    AddPicture();
    EXPECT_EQ(Tab(), S(""));
    EXPECT_EQ(m_window.calls, QStringList());
    EXPECT_FALSE(m_document.Changed);
}

}  // namespace
}  // namespace sheetwright
