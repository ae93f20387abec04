// Finding and replacing in the list editor.

#include "ui/list_table_search.h"

#include "list_table_window_test.h"

#include <QCheckBox>
#include <QToolButton>

namespace sheetwright {

namespace {

class ListTableSearchTest : public ListTableWindowTest {
  protected:
    ListTableSearchTest() { Open("A,B\nred,Blue\nblue,green\nx,BLUE\n"); }

    void Look(const QString& text) {
        Press(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&Part<QLineEdit>("txtFind"), text);
    }
    [[nodiscard]] bool Tells(const QString& text) const {
        return QTest::qWaitFor([&] { return Shown("lblFind") == text; });
    }
};

TEST_F(ListTableSearchTest, CountsWhileTyping) {
    Look(S("bl"));
    EXPECT_TRUE(Tells(S("Cells found: 3")));
    Type(S("x"));
    EXPECT_TRUE(Tells(S("Not found")));
}

TEST_F(ListTableSearchTest, GoesToTheFirstCellWhileTyping) {
    Open("A\nax\nay\nb\naz\n");
    GoTo(1, 0);
    Press(Qt::Key_F, Qt::ControlModifier);
    Part<QLineEdit>("txtFind").clear();
    Type(S("a"));
    EXPECT_EQ(Row(), 1) << "the cell where it begins is the first";
    Type(S("z"));
    EXPECT_EQ(Row(), 3);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Row(), 1) << "from where the typing began";
    Type(S("x"));
    EXPECT_EQ(Row(), 0) << "behind the last cell comes the first";
    Type(S("q"));
    EXPECT_EQ(Row(), 0);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Row(), 0) << "the bar alone moves nothing";
}

TEST_F(ListTableSearchTest, StartsWithTheCurrentCell) {
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Part<QLineEdit>("txtFind").text(), S("red"));
    EXPECT_TRUE(Part<QLineEdit>("txtFind").hasFocus());
    EXPECT_FALSE(Part<QLineEdit>("txtReplace").isVisible());
}

TEST_F(ListTableSearchTest, EnterGoesOnAndShiftBack) {
    Look(S("blue"));
    Press(Qt::Key_Return);
    EXPECT_EQ(std::pair(Row(), Column()), std::pair(1, 0));
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(std::pair(Row(), Column()), std::pair(2, 1));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(View().hasFocus());
    EXPECT_FALSE(Part<QLineEdit>("txtFind").isVisible());
    Press(Qt::Key_F3);
    EXPECT_EQ(std::pair(Row(), Column()), std::pair(0, 1));
}

TEST_F(ListTableSearchTest, MayLookAtCase) {
    Look(S("blue"));
    Part<QCheckBox>("chkCase").click();
    EXPECT_TRUE(Tells(S("Cells found: 1")));
    EXPECT_EQ(Row(), 1);
    QTest::mouseClick(&Part<QToolButton>("cmdFindNext"), Qt::LeftButton);
    EXPECT_EQ(Row(), 1);
}

TEST_F(ListTableSearchTest, ReplacesOneAfterTheOther) {
    Press(Qt::Key_H, Qt::ControlModifier);
    Part<QLineEdit>("txtFind").setText(S("blue"));
    Part<QLineEdit>("txtReplace").setText(S("teal"));
    Part<QLineEdit>("txtReplace").setFocus();
    EXPECT_EQ(std::pair(Row(), Column()), std::pair(0, 1)) << "what is replaced first shows";
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "A,B\nred,teal\nblue,green\nx,BLUE\n");
    EXPECT_EQ(Row(), 1);
}

TEST_F(ListTableSearchTest, ReplacesInTheTextThatIsBeingTypedAsWell) {
    Press(Qt::Key_H, Qt::ControlModifier);
    Part<QLineEdit>("txtFind").setText(S("blue"));
    Part<QLineEdit>("txtReplace").setText(S("teal"));
    View().setFocus();
    GoTo(2, 0);
    Type(S("typed blue"));
    QTest::mouseClick(&Part<QToolButton>("cmdReplaceAll"), Qt::LeftButton);
    EXPECT_EQ(Bytes(), "A,B\nred,teal\nteal,green\ntyped teal,teal\n");
}

TEST_F(ListTableSearchTest, KeysThatEditTheTextLeaveTheRows) {
    Look(S("red blue"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Part<QLineEdit>("txtFind").text(), S("blue"));
    Press(Qt::Key_Insert);
    EXPECT_FALSE(IsChanged());
}

TEST_F(ListTableSearchTest, ReplacesAllInOneStep) {
    Press(Qt::Key_H, Qt::ControlModifier);
    Part<QLineEdit>("txtFind").setText(S("bl"));
    Part<QLineEdit>("txtReplace").setText(S("gl"));
    QTest::mouseClick(&Part<QToolButton>("cmdReplaceAll"), Qt::LeftButton);
    EXPECT_EQ(Bytes(), "A,B\nred,glue\nglue,green\nx,glUE\n");
    EXPECT_EQ(Shown("lblFind"), S("Cells replaced: 3"));
    Do("mnuEditUndo");
    EXPECT_EQ(Bytes(), "A,B\nred,Blue\nblue,green\nx,BLUE\n");
    EXPECT_FALSE(IsChanged());
}

}  // namespace

}  // namespace sheetwright
