// Rows, columns and cells as a person works them.

#include "ui/list_table_window.h"

#include "list_table_window_test.h"

namespace sheetwright {

namespace {

TEST_F(ListTableWindowTest, BeginsWithANewListToTypeInto) {
    EXPECT_EQ(m_window->windowTitle(), S("New List[*] - Lists"));
    EXPECT_FALSE(IsChanged());
    Type(S("Bolt"));
    Press(Qt::Key_Return);
    Type(S("Nut"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "Name\r\nBolt\r\nNut\r\n\"\"\r\n");
    EXPECT_TRUE(IsChanged());
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    EXPECT_EQ(m_window->Model().rowCount(), 3) << "one blank row at the end is enough";
}

TEST_F(ListTableWindowTest, TypedTextReplacesTheCellAndEnterGoesDown) {
    Open("A,B\n1,x\n2,y\n");
    GoTo(0, 1);
    Type(S("new"));
    EXPECT_EQ(Bytes(), "A,B\n1,x\n2,y\n") << "not before the cell is left";
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "A,B\n1,new\n2,y\n");
    EXPECT_EQ(Row(), 1);
    Type(S("dropped"));
    Press(Qt::Key_Escape);
    EXPECT_EQ(Bytes(), "A,B\n1,new\n2,y\n");
}

TEST_F(ListTableWindowTest, AltAndEnterBreaksTheLine) {
    Open("A\n\"1\r\n2\"\n3\nlast\n");
    Press(Qt::Key_F2);
    Press(Qt::Key_End, Qt::ControlModifier);
    Press(Qt::Key_Return, Qt::AltModifier);
    Type(S("x"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "A\n\"1\r\n2\r\nx\"\n3\nlast\n") << "as the value's other line breaks";
    Press(Qt::Key_F2);
    Press(Qt::Key_End);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "A\n\"1\r\n2\r\nx\"\n\"3\n\"\nlast\n") << "as the file's line ends";
}

TEST_F(ListTableWindowTest, LookingIntoACellChangesNothing) {
    const QByteArray bytes = "A\n\"1\r2\r\n\xC2\xA0 x\xE2\x80\xA9y\"\nlast\n";
    Open(bytes);
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), bytes);
    EXPECT_FALSE(IsChanged());
}

TEST_F(ListTableWindowTest, KeysThatEditTheTypedTextLeaveTheRows) {
    Open("A\none two\n2\n");
    Press(Qt::Key_F2);
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete, Qt::ControlModifier);
    Press(Qt::Key_Insert);
    Press(Qt::Key_Return);
    EXPECT_EQ(Bytes(), "A\ntwo\n2\n");
}

TEST_F(ListTableWindowTest, CommandTakesOverWhatIsBeingTyped) {
    Open("A\n1\n2\n");
    Type(S("typed"));
    Do("mnuRowAddRow");
    EXPECT_EQ(Bytes(), "A\ntyped\n\"\"\n2\n");
}

TEST_F(ListTableWindowTest, RowsAreAddedDuplicatedMovedAndDeleted) {
    Open("A\n1\n2\n3\n");
    SelectRows(0, 2);
    Do("mnuRowDuplicateRows");
    EXPECT_EQ(Bytes(), "A\n1\n2\n1\n2\n3\n");
    EXPECT_EQ(Row(), 2);
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Bytes(), "A\n1\n2\n3\n1\n2\n");
    EXPECT_EQ(View().SelectedRows(), (std::vector<int>{3, 4}));
    Press(Qt::Key_Up, Qt::AltModifier);
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A\n1\n2\n3\n");
    EXPECT_EQ(Row(), 2);
    GoTo(0, 0);
    Press(Qt::Key_Insert);
    EXPECT_EQ(Bytes(), "A\n1\n\"\"\n2\n3\n");
    EXPECT_EQ(Row(), 1);
    for (int step = 0; step < 5; ++step)
        Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A\n1\n2\n3\n");
    EXPECT_FALSE(IsChanged());
    EXPECT_FALSE(Action("mnuEditUndo").isEnabled());
    EXPECT_TRUE(Action("mnuEditRedo").isEnabled());
}

TEST_F(ListTableWindowTest, SortsByTheColumnOfTheCurrentCell) {
    Write(S("list.inf"), "[N]\nDataType=NUMBER\n");
    Open("N,T\n10,a\n9,b\n,c\n");
    GoTo(1, 0);
    Do("mnuColumnSortAscending");
    EXPECT_EQ(Bytes(), "N,T\n,c\n9,b\n10,a\n");
    EXPECT_EQ(Row(), 1) << "the cell goes with its row";
    Do("mnuColumnSortDescending");
    EXPECT_EQ(Bytes(), "N,T\n10,a\n9,b\n,c\n");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "N,T\n,c\n9,b\n10,a\n");
    Do("mnuColumnSortAscending");
    Do("mnuEditUndo");
    EXPECT_FALSE(IsChanged()) << "sorting what is sorted is no change";
}

TEST_F(ListTableWindowTest, CellsAreCutCopiedPastedAndCleared) {
    Open("A,B\n1,x\n2,\"y\tz\"\n");
    View().selectAll();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), S("1\tx\n2\t\"y\tz\"\n"));
    GoTo(1, 0);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A,B\n1,x\n1,x\n2,y\tz\n");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A,B\n1,x\n2,\"y\tz\"\n") << "in one step";
    View().SelectBlock({0, 1, 2, 1});
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A,B\n1,\n2,\n");
    View().SelectBlock({0, 0, 2, 1});
    Press(Qt::Key_Delete);
    EXPECT_EQ(Bytes(), "A,B\n,\n,\n");
    QApplication::clipboard()->setText(S("same"));
    View().selectAll();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Bytes(), "A,B\nsame,same\nsame,same\n");
}

TEST_F(ListTableWindowTest, PastedColumnsWithoutRoomAreTold) {
    Open("A,B\n1,2\n");
    GoTo(0, 1);
    QApplication::clipboard()->setText(S("x\ty\tz"));
    Do("mnuEditPaste");
    EXPECT_EQ(Bytes(), "A,B\n1,x\n");
    EXPECT_EQ(m_window->findChild<QStatusBar*>()->currentMessage(), S("Columns that found no room: 2"));
}

TEST_F(ListTableWindowTest, ColumnIsAddedBehindTheCurrentOne) {
    Open("A,B\n1,2\n");
    InColumnDialog(S(" When "), S("DATE"));
    Do("mnuColumnAddColumn");
    EXPECT_EQ(Bytes(), "A,When,B\n1,,2\n");
    EXPECT_EQ(m_window->Model().Table().Column(1).type, S("DATE"));
    EXPECT_EQ(Column(), 1);
    Do("mnuEditUndo");
    EXPECT_EQ(Bytes(), "A,B\n1,2\n");
}

TEST_F(ListTableWindowTest, BlankAndTakenNamesAreRefused) {
    Open("A,B\n1,2\n");
    for (const char* name : {"", "  ", "b"}) {
        InColumnDialog(S(name), S("TEXT"));
        Do("mnuColumnAddColumn");
    }
    EXPECT_EQ(m_ui.MessageTexts(), QStringList({S("A column needs a name."), S("A column needs a name."),
                                                S("There is a column of that name already.")}));
    EXPECT_FALSE(IsChanged());
}

TEST_F(ListTableWindowTest, RenamingAsksBecauseFormsKnowTheName) {
    Open("A,B\n1,2\n");
    m_ui.answers = {MessageAnswer::No};
    InColumnDialog(S("C"), S("TEXT"));
    Do("mnuColumnChangeColumn");
    EXPECT_EQ(m_ui.MessageTexts(),
              QStringList(S("Forms that take the column \"A\" of this list no longer find it. Rename it?")));
    EXPECT_FALSE(IsChanged());
    InColumnDialog(S("a"), S("NUMBER"));
    Do("mnuColumnChangeColumn");
    EXPECT_EQ(Bytes(), "a,B\n1,2\n");
    InColumnDialog(S("a"), S("DATE"));
    Do("mnuColumnChangeColumn");
    EXPECT_EQ(m_ui.messages.size(), 2U) << "another type needs no question";
    EXPECT_EQ(m_window->Model().Table().Column(0).type, S("DATE"));
}

TEST_F(ListTableWindowTest, DeletingAColumnAsksAndTheLastOneStays) {
    Open("A,B\n1,2\n");
    m_ui.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Do("mnuColumnDeleteColumn");
    EXPECT_FALSE(IsChanged());
    Do("mnuColumnDeleteColumn");
    EXPECT_EQ(Bytes(), "B\n2\n");
    Do("mnuColumnDeleteColumn");
    EXPECT_EQ(m_ui.messages.back().text, S("A list has at least one column."));
    Do("mnuEditUndo");
    EXPECT_EQ(Bytes(), "A,B\n1,2\n");
}

TEST_F(ListTableWindowTest, StatusBarTellsSizePlaceAndEncoding) {
    Open("A,B\nN\xE9,2\n3,4\n");
    GoTo(1, 1);
    EXPECT_EQ(Shown("lblPosition"), S("Row 2, column 2"));
    EXPECT_EQ(Shown("lblSize"), S("Rows: 2, columns: 2"));
    EXPECT_EQ(Shown("lblEncoding"), S("Windows-1252"));
    Do("mnuRowAddRow");
    EXPECT_EQ(Shown("lblSize"), S("Rows: 3, columns: 2"));
}

TEST_F(ListTableWindowTest, FileWithoutColumnsCanGetSome) {
    Open("");
    EXPECT_FALSE(Action("mnuRowAddRow").isEnabled());
    EXPECT_TRUE(Action("mnuColumnAddColumn").isEnabled());
    InColumnDialog(S("A"), S("TEXT"));
    Do("mnuColumnAddColumn");
    Do("mnuRowAddRow");
    EXPECT_EQ(Bytes(), "A\r\n\"\"\r\n");
}

TEST_F(ListTableWindowTest, EveryCommandHasItsOwnKeysAndEveryIconItsDrawing) {
    QStringList keys;
    for (const QAction* const action : m_window->findChildren<QAction*>())
        for (const QKeySequence& key : action->shortcuts())
            keys << key.toString();
    QStringList once = keys;
    once.removeDuplicates();
    EXPECT_EQ(keys, once);
    for (const ListTableMenu& menu : ListTableMenus(*m_application))
        for (const ListTableAction& row : menu.actions)
            EXPECT_EQ(m_window->findChild<QAction*>(row.name)->icon().isNull(), row.icon.isEmpty())
                << row.icon.toStdString();
}

}  // namespace

}  // namespace sheetwright
