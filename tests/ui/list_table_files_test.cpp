// The list editor's files: opened, saved, left.

#include "ui/list_table_files.h"

#include "core/folders.h"
#include "list_table_window_test.h"

#include <QDir>

namespace sheetwright {

namespace {

class ListTableFilesTest : public ListTableWindowTest {
  protected:
    void Change(const char* text = "changed") {
        GoTo(0, 0);
        Type(S(text));
        View().setFocus();
        ASSERT_TRUE(IsChanged());
    }
    // As another program does, later.
    void ChangeBehindItsBack(const QByteArray& bytes) const {
        QFile file(Write(S("list.csv"), bytes));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFile::FileModificationTime));
    }
};

TEST_F(ListTableFilesTest, TitleTellsTheNameAndTheChange) {
    Open("A\n1\n", S("odd[*]name.csv"));
    EXPECT_EQ(m_window->windowTitle(), S("odd[*][*]name.csv[*] - Lists"));
    EXPECT_FALSE(IsChanged());
    Change();
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsChanged());
    EXPECT_EQ(Read(S("odd[*]name.csv")), "A\nchanged\n");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(IsChanged()) << "what is undone differs from the file";
}

TEST_F(ListTableFilesTest, OpenStartsInTheFolderOfLists) {
    SetListFolder(*m_application, m_folder.path());
    Choose(Write(S("LISTS/a.csv"), "A\n1\n"));
    Press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_ui.fileDialogs.front().initialFolder, m_folder.filePath(S("LISTS")));
    EXPECT_EQ(m_ui.fileDialogs.front().filter, S("Lists (*.csv)|*.csv"));
    EXPECT_EQ(Bytes(), "A\n1\n");
}

TEST_F(ListTableFilesTest, WhatCannotBeOpenedLeavesTheListThatIsShown) {
    Open("A\n1\n");
    m_window->OpenFile(Path(S("none.csv")));
    QDir(m_folder.path()).mkdir(S("folder.csv"));
    m_window->OpenFile(m_folder.filePath(S("folder.csv")));
    m_window->OpenFile(Write(S("form.aff"), "x"));
    EXPECT_EQ(m_ui.MessageTexts(),
              QStringList({S("Error 53: File not found"), S("Error 75: Path/File access error"),
                           S("Only lists (.csv) can be opened here.")}));
    EXPECT_EQ(m_window->windowTitle(), S("list.csv[*] - Lists"));
    EXPECT_EQ(Bytes(), "A\n1\n");
}

TEST_F(ListTableFilesTest, AnotherListAsksAboutChanges) {
    Open("A\n1\n");
    Change();
    m_ui.answers = {MessageAnswer::Cancel};
    Open("B\n2\n", S("other.csv"));
    EXPECT_EQ(Bytes(), "A\nchanged\n");
    EXPECT_EQ(m_ui.messages.back(), (ShownMessage{S("Save any changes?"), S("list.csv"),
                                                  MessageIcon::Question, MessageButtons::YesNoCancel}));
    m_ui.answers = {MessageAnswer::Yes};
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Read(S("list.csv")), "A\nchanged\n");
    EXPECT_EQ(m_window->windowTitle(), S("New List[*] - Lists"));
    EXPECT_FALSE(Action("mnuEditUndo").isEnabled());
}

TEST_F(ListTableFilesTest, ClosingAsksAboutChanges) {
    Open("A\n1\n");
    Change();
    m_ui.answers = {MessageAnswer::Cancel, MessageAnswer::No};
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(Read(S("list.csv")), "A\n1\n");
}

TEST_F(ListTableFilesTest, ClosingCountsWhatIsStillBeingTyped) {
    Open("A\n1\n");
    Type(S("half"));
    m_ui.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(Read(S("list.csv")), "A\nhalf\n");
}

TEST_F(ListTableFilesTest, NewListAsksForItsFile) {
    Change("Bolt");
    Choose(Path(S("new")));
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.saveDialogs, 1);
    EXPECT_EQ(Read(S("new.csv")), "Name\r\nBolt\r\n");
    EXPECT_EQ(m_window->windowTitle(), S("new.csv[*] - Lists"));
    Change("Nut");
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.saveDialogs, 1);
}

TEST_F(ListTableFilesTest, NameWithoutItsEndingReplacesNothingUnasked) {
    Write(S("new.csv"), "kept\n");
    Change();
    Choose(Path(S("new")));
    m_ui.answers = {MessageAnswer::No};
    Do("mnuFileSaveAs");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("There is a list of that name already. Replace it?")));
    EXPECT_EQ(Read(S("new.csv")), "kept\n");
    EXPECT_TRUE(IsChanged());
}

TEST_F(ListTableFilesTest, FileThatAnotherProgramChangedIsAskedAbout) {
    Open("A\n1\n");
    Change();
    ChangeBehindItsBack("theirs\n");
    m_ui.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Do("mnuFileSave");
    EXPECT_EQ(Read(S("list.csv")), "theirs\n");
    EXPECT_TRUE(IsChanged());
    Do("mnuFileSave");
    EXPECT_EQ(Read(S("list.csv")), "A\nchanged\n");
    EXPECT_EQ(m_ui.MessageTexts().front(), S("The file has been changed since it was opened. Replace it?"));
    EXPECT_FALSE(IsChanged());
}

TEST_F(ListTableFilesTest, FileThatMustNotBeWrittenOffersAnotherName) {
    Open("A\n1\n");
    Change();
    QFile::setPermissions(Path(S("list.csv")), QFile::ReadOwner);
    m_ui.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Do("mnuFileSave");
    EXPECT_TRUE(IsChanged());
    EXPECT_EQ(m_ui.saveDialogs, 0);
    Choose(Path(S("mine.csv")));
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.MessageTexts().back(), S("The file can't be written. Save the list under another name?"));
    EXPECT_EQ(Read(S("list.csv")), "A\n1\n");
    EXPECT_EQ(Read(S("mine.csv")), "A\nchanged\n");
    EXPECT_FALSE(IsChanged());
}

TEST_F(ListTableFilesTest, OtherFailuresAreToldAndTheListStaysChanged) {
    Change();
    Choose(m_folder.filePath(S("no folder/a.csv")));
    Do("mnuFileSaveAs");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error 76: Path not found")));
    EXPECT_TRUE(IsChanged());
    EXPECT_EQ(m_window->windowTitle(), S("New List[*] - Lists"));
}

TEST_F(ListTableFilesTest, WindowRemembersItsSize) {
    m_window->resize(701, 433);
    EXPECT_TRUE(m_window->close());
    Start();
    EXPECT_EQ(m_window->size(), QSize(701, 433));
}

}  // namespace

}  // namespace sheetwright
