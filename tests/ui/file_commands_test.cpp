// New, Open, Save As, the recent files, and files dropped on the frame.

#include "core/folders.h"
#include "document/recent_files.h"
#include "mdi_sheetwright_test.h"
#include "ui/file_drop.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QUrl>

namespace sheetwright {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileCommandsTest : public MdiSheetwrightTest {
  protected:
    [[nodiscard]] QStringList Recent() const {
        QStringList captions;
        for (const char* name :
             {"mnuFileRecent0", "mnuFileRecent1", "mnuFileRecent2", "mnuFileRecent3", "mnuFileRecent4"})
            if (Action(name)->isVisible()) captions << Action(name)->text();
        return captions;
    }

    [[nodiscard]] std::size_t Count() const { return m_frame->Forms().size(); }

    // Whether the widget takes it.
    bool Drop(QWidget& target, const QList<QUrl>& urls) const {
        QMimeData data;
        data.setUrls(urls);
        data.setText(S("file:///dropped/as/text"));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
        return drop.isAccepted();
    }
};

TEST_F(FileCommandsTest, NewShowsTemplatesAndOpensOne) {
    Choose(Write(S("templates/form.aft"), TwoPages()));
    Do("mnuFileNew");
    EXPECT_EQ(m_ui.fileDialogs.front().title, S("New"));
    EXPECT_EQ(m_ui.fileDialogs.front().fileName, S("*.aft"));
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(m_frame->Active()->Document().Caption, S("(Untitled)"));
    EXPECT_EQ(TemplateFolder(*m_application), Path(S("templates")) + u'/');
    EXPECT_THAT(Recent(), IsEmpty()) << "a template is no recent form";
    EXPECT_THAT(WelcomeRecentFiles(*m_application), IsEmpty());
}

TEST_F(FileCommandsTest, OtherFilesThanFormsOpenNothing) {
    Choose(Write(S("form.txt"), TwoPages()));
    Do("mnuFileOpen");
    EXPECT_EQ(Count(), 0U);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(FileCommandsTest, ButtonsDoWhatTheMenuDoes) {
    Choose(Write(S("form.aft"), TwoPages()));
    Do("New");
    Choose(Write(S("form.aff"), TwoPages()));
    Do("Open");
    EXPECT_EQ(Count(), 2U);
    EXPECT_EQ(m_ui.fileDialogs.front().title, S("New"));
    EXPECT_EQ(m_ui.fileDialogs.back().title, S("Open"));
}

TEST_F(FileCommandsTest, SaveButtonSavesUnderANewNameWhereThereIsNone) {
    FormWindow* const form = OpenTemplate(S("form.aft"));
    Choose(Path(S("new.aff")));
    Do("Save");
    EXPECT_EQ(form->Document().Tag, Path(S("new.aff")));
    EXPECT_EQ(m_ui.saveDialogs, 1);
    Do("Save");
    EXPECT_EQ(m_ui.saveDialogs, 1);
    EXPECT_EQ(Recent(), QStringList(S("&1 ") + Path(S("new.aff"))));
}

TEST_F(FileCommandsTest, KeysWorkFromWithinAField) {
    Open(S("form.aff"));
    QTest::keyClicks(QApplication::focusWidget(), S("Finch"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Read(S("form.aff")).startsWith("PK"));
    Press(Qt::Key_N, Qt::ControlModifier);
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(m_ui.fileDialogs.size(), 2U);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(Count(), 0U);
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(m_frame->isVisible());
}

TEST_F(FileCommandsTest, CtrlTabGoesFromFormToForm) {
    FormWindow* const first = Open(S("first.aff"));
    FormWindow* const second = Open(S("second.aff"));
    const auto pressTab = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control, Qt::ControlModifier);
        Press(key, modifiers);
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Control);
    };
    pressTab(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(m_frame->Active(), first);
    pressTab(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_frame->Active(), second);
}

TEST_F(FileCommandsTest, FormsComeIntoTheListNewestFirst) {
    Open(S("a.aff"));
    Open(S("b & c.aff"));
    EXPECT_EQ(Recent(), QStringList({S("&1 ") + Path(S("b && c.aff")), S("&2 ") + Path(S("a.aff"))}));
}

TEST_F(FileCommandsTest, RecentEntryOpensItsForm) {
    const QString path = Write(S("elsewhere/b & c.aff"), TwoPages());
    m_frame->DialogFileName = path;
    m_frame->OpenFromDialogSlot();
    Do("mnuFileClose");
    Do("mnuOptionsBlank");
    m_frame->DialogFileName.clear();
    const QString folder = S("/somewhere/else/");
    SetFormFolder(*m_application, folder);
    Do("mnuFileRecent0");
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(m_frame->Active()->Document().Tag, path);
    EXPECT_EQ(m_frame->DialogFileName, path);
    EXPECT_TRUE(m_frame->IsBlankTicked());
    EXPECT_EQ(FormFolder(*m_application), folder);
    EXPECT_EQ(Recent().size(), 2) << "the first entry is not looked for";
}

TEST_F(FileCommandsTest, RecentEntryOfAFileThatIsGoneIsToldAndStays) {
    Open(S("a.aff"));
    Do("mnuFileClose");
    QFile::remove(Path(S("a.aff")));
    m_frame->DialogFileName = S("before.aff");
    Do("mnuFileRecent0");
    EXPECT_EQ(Count(), 0U);
    EXPECT_THAT(m_ui.messages,
                ElementsAre(ShownMessage{S("Please check the path is valid and the file is not in use by any "
                                           "other applications."),
                                         S("Unable to open file"), MessageIcon::Critical}));
    EXPECT_EQ(Recent(), QStringList(S("&1 ") + Path(S("a.aff"))));
    EXPECT_EQ(m_frame->DialogFileName, S("before.aff"));
}

TEST_F(FileCommandsTest, ListIsThereAgainAtTheNextStart) {
    for (const char* name : {"a.aff", "b.aff", "c.aff", "d.aff", "e.aff", "f.aff"})
        Open(S(name));
    const QStringList shown = Recent();
    EXPECT_EQ(shown.size(), 5);
    m_frame->close();
    Unload();
    Load();
    EXPECT_EQ(Recent(), shown);
    EXPECT_TRUE(shown.front().endsWith(S("f.aff")));
}

TEST_F(FileCommandsTest, DroppedFormsAndTemplatesOpen) {
    EXPECT_TRUE(Drop(*m_frame, {QUrl::fromLocalFile(Write(S("a.aff"), TwoPages())),
                                QUrl::fromLocalFile(Write(S("b.AFT"), TwoPages()))}));
    EXPECT_EQ(Count(), 2U);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(FileCommandsTest, DroppedFormThatCantBeReadKeepsNoOtherFromOpening) {
    EXPECT_TRUE(Drop(*m_frame, {QUrl::fromLocalFile(Write(S("a.txt"), "text")),
                                QUrl::fromLocalFile(Write(S("a.aff"), QByteArray())),
                                QUrl::fromLocalFile(Write(S("b.aff"), TwoPages()))}));
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(m_frame->Active()->Document().Caption, S("b.aff"));
    EXPECT_THAT(m_ui.MessageTexts(), Contains(S("Corrupt form file. Cannot continue.")));
    EXPECT_EQ(m_ui.messages.back().text, S("Only forms and templates can be opened here:\na.txt"));
}

TEST_F(FileCommandsTest, FileDroppedOnAFieldIsNoText) {
    const FormWindow* const form = Open(S("a.aff"));
    QWidget* const field = QApplication::focusWidget();
    ASSERT_TRUE(form->isAncestorOf(field));
    EXPECT_TRUE(Drop(*field, {QUrl::fromLocalFile(Write(S("b.aff"), TwoPages()))}));
    EXPECT_EQ(Count(), 2U);
    EXPECT_FALSE(form->isWindowModified());
}

TEST_F(FileCommandsTest, OtherFilesAreRefusedWithOneMessage) {
    EXPECT_TRUE(Drop(*m_frame, {QUrl::fromLocalFile(Write(S("a.txt"), "text")),
                                QUrl::fromLocalFile(Write(S("a.aff"), TwoPages())),
                                QUrl::fromLocalFile(m_folder.path())}));
    EXPECT_EQ(Count(), 1U);
    EXPECT_THAT(m_ui.messages,
                ElementsAre(ShownMessage{S("Only forms and templates can be opened here:\na.txt\n") +
                                             QDir(m_folder.path()).dirName(),
                                         S("Unable to open file"), MessageIcon::Exclamation}));
}

TEST_F(FileCommandsTest, AThousandRefusedFilesMakeAShortMessage) {
    QList<QUrl> urls;
    for (int number = 0; number < 1000; ++number)
        urls << QUrl::fromLocalFile(Path(S("%1.txt").arg(number)));
    Drop(*m_frame, urls);
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(m_ui.messages.front().text.count(u'\n'), 11);
}

TEST_F(FileCommandsTest, WhatLiesOnAnotherMachineIsNotTaken) {
    EXPECT_FALSE(Drop(*m_frame, {QUrl(S("https://example.org/a.aff"))}));
    EXPECT_EQ(Count(), 0U);
}

TEST_F(FileCommandsTest, NothingIsTakenWhileTheFrameIsDisabled) {
    m_frame->SetEnabled(false);
    Drop(*m_frame, {QUrl::fromLocalFile(Write(S("a.aff"), TwoPages()))});
    m_frame->SetEnabled(true);
    EXPECT_EQ(Count(), 0U);
}

TEST(DroppedFiles, AreThoseOfThisMachine) {
    QMimeData data;
    EXPECT_THAT(DroppedFiles(data), IsEmpty());
    data.setUrls({QUrl(S("file:///a%20b.aff")), QUrl(S("https://example.org/c.aff"))});
    EXPECT_EQ(DroppedFiles(data), QStringList(S("/a b.aff")));
}

}  // namespace

}  // namespace sheetwright
