#include "entry_editor_test.h"

namespace sheetwright {
namespace {

class TheListEditor : public EntryEditorTest {
  protected:
    void OpenList(const QString& value = {}) {
        Field(S("list"), {S("List=Apple,Banana,apple,Cherry")}).Field(S("other"));
        Open({S("list=") + value});
        ASSERT_EQ(ThePage().Entry.FieldType(), field_type::kCombo);
        ThePage().Entry.Click = [this] { m_picked << ThePage().Entry.Value(); };
    }
    [[nodiscard]] QComboBox& Box() { return Shown<QComboBox>(); }
    [[nodiscard]] bool IsOpen() { return Box().view()->isVisible(); }
    void ClickItem(int row) {
        QAbstractItemView& view = *Box().view();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(row, 0)).center());
    }

    QStringList m_picked;
};

TEST_F(TheListEditor, ShowsTheItemsOfTheModel) {
    OpenList(S("Banana"));
    EXPECT_EQ(Box().count(), 4);
    EXPECT_EQ(Box().currentText(), S("Banana"));
    EXPECT_EQ(Box().currentIndex(), 1);
    EXPECT_EQ(Line().selectedText(), S("Banana"));
    EXPECT_TRUE(m_picked.isEmpty());
}

TEST_F(TheListEditor, ArrowKeysMoveTheSelection) {
    OpenList(S("Banana"));
    Key(Qt::Key_Down);
    EXPECT_EQ(ThePage().Entry.Value(), S("apple"));
    EXPECT_EQ(ThePage().Entry.ListIndex(), 2);
    Key(Qt::Key_Up);
    Key(Qt::Key_Up);
    EXPECT_EQ(ThePage().Entry.Value(), S("Apple"));
    Key(Qt::Key_Up);
    EXPECT_EQ(m_picked, (QStringList{S("apple"), S("Banana"), S("Apple")}));
    Tab();
    EXPECT_EQ(Text(1), S("Apple"));
}

TEST_F(TheListEditor, TypedTextStaysAsItIs) {
    OpenList();
    Type(S("APPLE"));
    EXPECT_EQ(Line().text(), S("APPLE"));
    EXPECT_EQ(ThePage().Entry.ListIndex(), -1);
    Tab();
    EXPECT_EQ(Text(1), S("APPLE"));
    EXPECT_TRUE(m_picked.isEmpty());
}

TEST_F(TheListEditor, TypedItemIsNoChoice) {
    OpenList();
    Type(S("Cherry"));
    m_window->View().setFocus();
    EXPECT_TRUE(m_picked.isEmpty());
    EXPECT_EQ(ThePage().Entry.Value(), S("Cherry"));
}

TEST_F(TheListEditor, ArrowKeyFindsTheItemThatATypedTextBegins) {
    OpenList(S("Apple"));
    Type(S("ch"));
    Key(Qt::Key_Down);
    EXPECT_EQ(ThePage().Entry.Value(), S("Cherry"));
}

TEST_F(TheListEditor, AltDownAndF4OpenIt) {
    OpenList();
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(IsOpen());
    QTest::keyClick(Box().view(), Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Editor().IsShown());
    Key(Qt::Key_F4);
    EXPECT_TRUE(IsOpen());
}

TEST_F(TheListEditor, MousePicksAnItem) {
    OpenList();
    Key(Qt::Key_F4);
    QTest::qWait(0);
    ClickItem(3);
    EXPECT_EQ(ThePage().Entry.Value(), S("Cherry"));
    EXPECT_EQ(ThePage().Entry.ListIndex(), 3);
    EXPECT_EQ(m_picked, QStringList{S("Cherry")});
    EXPECT_TRUE(Editor().IsShown());
}

TEST_F(TheListEditor, EnterInTheListPicksAndStays) {
    OpenList(S("Apple"));
    Key(Qt::Key_F4);
    QTest::keyClick(Box().view(), Qt::Key_Down);
    QTest::keyClick(Box().view(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(ThePage().Entry.Value(), S("Banana"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
}

TEST_F(TheListEditor, TabInTheListPicksAndGoesOn) {
    OpenList(S("Apple"));
    Key(Qt::Key_F4);
    QTest::keyClick(Box().view(), Qt::Key_Down);
    QTest::keyClick(Box().view(), Qt::Key_Tab);
    EXPECT_EQ(Text(1), S("Banana"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
}

TEST_F(TheListEditor, PageDownTurnsThePageAndNotTheList) {
    Field(S("list"), {S("List=A,B,C")});
    m_form.Data(1, {S("list=A")});
    Open({S("list=C")});
    ASSERT_EQ(ThePage().Entry.Value(), S("A"));
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Document().DataPageNum, 2);
    EXPECT_EQ(Text(1), S("C"));
    Key(Qt::Key_F4);
    QTest::keyClick(Shown<QComboBox>().view(), Qt::Key_PageUp);
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(Text(1), S("A"));
    EXPECT_FALSE(Document().Changed);
}

TEST_F(TheListEditor, EscapeDropsTheChoice) {
    OpenList(S("Apple"));
    Key(Qt::Key_Down);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Text(1), S("Apple"));
    EXPECT_FALSE(Editor().IsShown());
}

TEST_F(TheListEditor, IsBroadEnoughForItsArrow) {
    m_form.Field(S("list"), At(100, 100, 10, 20) + QStringList{S("List=A,B")});
    Open();
    EXPECT_EQ(Box().width(), qRound(500 * View().PixelsPerTwip()));
}

TEST_F(TheListEditor, TextStandsStillWhenAnItemIsChosen) {
    OpenList(S("Apple"));
    const QRect place = Line().geometry();
    Key(Qt::Key_F4);
    QTest::keyClick(Box().view(), Qt::Key_Down);
    QTest::keyClick(Box().view(), Qt::Key_Return);
    EXPECT_EQ(ThePage().Entry.Value(), S("Banana"));
    EXPECT_EQ(Line().geometry(), place);
    Key(Qt::Key_Down);
    EXPECT_EQ(Line().geometry(), place);
}

TEST_F(TheListEditor, ArrowStandsBesideATextThatDoesNotStandOnTheLeft) {
    Field(S("left"), {S("List=A,B")}).Field(S("centred"), {S("List=A,B"), S("Alignment=2")});
    Open();
    const int fieldWidth = View().OnScreen(ThePage().entryPlace).toRect().width();
    EXPECT_EQ(Box().width(), fieldWidth);
    EXPECT_LT(Line().width(), fieldWidth);
    Tab();
    EXPECT_EQ(Box().width(), fieldWidth + 14);
    EXPECT_EQ(Line().width(), fieldWidth);
}

TEST_F(TheListEditor, ArrowStaysInTheFieldWhereThereIsNoRoomBesideIt) {
    Field(S("centred"), {S("List=A,B"), S("Alignment=2")});
    Open();
    const QRect field = View().OnScreen(ThePage().entryPlace).toRect();
    m_window->resize(field.right() + 10, m_window->height());
    Editor().Move(View().OnScreen(ThePage().entryPlace), View().PixelsPerTwip());
    ASSERT_LT(View().width(), View().OnScreen(ThePage().entryPlace).right() + 14);
    EXPECT_EQ(Box().width(), field.width());
}

TEST_F(TheListEditor, CompositionReachesTheValue) {
    OpenList();
    CommitComposed(S("日本"));
    EXPECT_EQ(ThePage().Entry.Value(), S("日本"));
}

}  // namespace
}  // namespace sheetwright
