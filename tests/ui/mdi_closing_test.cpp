// Closing a form, several forms, and the frame with them.

#include "mdi_sheetwright_test.h"

#include <QDir>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MdiClosingTest : public MdiSheetwrightTest {
  protected:
    // Two changed forms, the second one in front.
    void OpenTwoChanged() {
        Type(*Open(S("first.aff")), S("Finch"));
        Type(*Open(S("second.aff")), S("Finch"));
        m_ui.messages.clear();
    }

    // As the system does.
    static void AskToEnd() {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    }

    // Until the program ends.
    static int Loop() {
        constexpr int kPatience = 30'000;  // milliseconds
        QTimer patience;
        patience.callOnTimeout([] { QCoreApplication::exit(EXIT_FAILURE); });
        patience.start(kPatience);
        return QApplication::exec();
    }
};

TEST_F(MdiClosingTest, UnchangedFormClosesWithoutAQuestion) {
    Open(S("form.aff"));
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages, IsEmpty());
    EXPECT_EQ(m_frame->PagePanel(), S(""));
    EXPECT_FALSE(Action("mnuFileClose")->isEnabled());
}

TEST_F(MdiClosingTest, ClosedFormTakesItsTemporaryDirectoryAlong) {
    const QString folder = Open(S("form.aff"))->Document().MyTempDir;
    ASSERT_TRUE(QDir(folder).exists());
    Do("mnuFileClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(MdiClosingTest, ChangedFormAsksBeforeItCloses) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    Do("mnuFileClose");
    EXPECT_NE(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{S("Save any changes?"), m_application->Title,
                                                        MessageIcon::Question, MessageButtons::YesNoCancel}));
}

TEST_F(MdiClosingTest, AnswerNoClosesAndSavesNothing) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::No};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
}

TEST_F(MdiClosingTest, AnswerYesSavesAndCloses) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_TRUE(Read(S("form.aff")).startsWith("PK"));
}

TEST_F(MdiClosingTest, WhatIsBeingTypedCountsAsAChange) {
    Open(S("form.aff"));
    QTest::keyClicks(QApplication::focusWidget(), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    Do("mnuFileClose");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Save any changes?")));
}

TEST_F(MdiClosingTest, UntitledFormIsSavedUnderANewName) {
    Type(*OpenTemplate(S("form.aft")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Choose(Path(S("new.aff")));
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_TRUE(Read(S("new.aff")).startsWith("PK"));
    EXPECT_EQ(m_ui.fileDialogs.back().title, S("Save As"));
    EXPECT_EQ(m_ui.fileDialogs.back().flags & dialogs::kOverwritePrompt, dialogs::kOverwritePrompt);
}

TEST_F(MdiClosingTest, CancelledSaveAsKeepsTheFormOpen) {
    FormWindow* const form = OpenTemplate(S("form.aft"));
    Type(*form, S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), form);
    EXPECT_TRUE(form->Document().Tag.endsWith(S("form.aft")));
}

TEST_F(MdiClosingTest, FormThatCantBeSavedStaysOpen) {
    Type(*OpenTemplate(S("form.aft")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Choose(Path(S("no")) + S("/folder/new.aff"));
    Do("mnuFileClose");
    EXPECT_NE(m_frame->Active(), nullptr);
}

TEST_F(MdiClosingTest, BusyFormCantBeClosed) {
    FormWindow* const form = Open(S("form.aff"));
    form->Document().Busy = 1;
    EXPECT_FALSE(m_frame->close());
    EXPECT_TRUE(m_frame->isVisible());
    form->Document().Busy = 0;
    EXPECT_TRUE(m_frame->close());
}

TEST_F(MdiClosingTest, FrameStaysOpenWithAFormThatDoes) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(m_frame->close());
    EXPECT_EQ(m_frame->Forms().size(), 1U);
}

TEST_F(MdiClosingTest, EachChangedFormIsAskedAboutAndComesToTheFront) {
    OpenTwoChanged();
    m_ui.answers = {MessageAnswer::Yes, MessageAnswer::No};
    EXPECT_TRUE(m_frame->close());
    EXPECT_EQ(m_ui.messages.size(), 2U);
    EXPECT_TRUE(Read(S("first.aff")).startsWith("PK"));
    EXPECT_EQ(Read(S("second.aff")), TwoPages());
    EXPECT_THAT(m_frame->Forms(), IsEmpty());
}

TEST_F(MdiClosingTest, WhoCancelsAtTheLastFormKeepsAll) {
    OpenTwoChanged();
    m_ui.answers = {MessageAnswer::No, MessageAnswer::Cancel};
    EXPECT_FALSE(m_frame->close());
    ASSERT_EQ(m_frame->Forms().size(), 2U);
    EXPECT_TRUE(m_frame->Forms().front()->Document().Changed);
    EXPECT_TRUE(m_frame->isVisible());
}

TEST_F(MdiClosingTest, FormLeftOutOfACancelledCloseIsAskedAboutAgain) {
    OpenTwoChanged();
    m_ui.answers = {MessageAnswer::No, MessageAnswer::Cancel, MessageAnswer::No, MessageAnswer::No};
    m_frame->close();
    EXPECT_TRUE(m_frame->close());
    EXPECT_EQ(m_ui.messages.size(), 4U);
}

TEST_F(MdiClosingTest, FormThatCantBeSavedKeepsTheFrameOpen) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_frame->Forms().front()->Document().Tag = Path(S("no")) + S("/folder/form.aff");
    m_ui.answers = {MessageAnswer::Yes};
    EXPECT_FALSE(m_frame->close());
    EXPECT_TRUE(m_ui.messages.back().text.startsWith(S("Error code")));
}

TEST_F(MdiClosingTest, ExitCommandClosesTheFrame) {
    Open(S("form.aff"));
    Do("mnuFileExit");
    EXPECT_FALSE(m_frame->isVisible());
    EXPECT_THAT(m_frame->Forms(), IsEmpty());
    EXPECT_THAT(m_ui.hostLines, IsEmpty());
}

TEST_F(MdiClosingTest, ExitCommandIsStoppedByAFormThatStays) {
    OpenTwoChanged();
    m_ui.answers = {MessageAnswer::Cancel};
    Do("mnuFileExit");
    EXPECT_TRUE(m_frame->isVisible());
    EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(MdiClosingTest, CloseBoxOfAFrameThatMustStayMinimisesIt) {
    m_frame->NoClose = true;
    EXPECT_FALSE(ClickCloseBox());
    EXPECT_TRUE(m_frame->isMinimized());
    Do("mnuFileExit");
    EXPECT_FALSE(m_frame->isVisible());
}

TEST_F(MdiClosingTest, ClosedFrameLeavesNoTemporaryFolders) {
    OpenTwoChanged();
    const QString folder = m_frame->Active()->Document().MyTempDir;
    m_ui.answers = {MessageAnswer::No, MessageAnswer::No};
    m_frame->close();
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(MdiClosingTest, ProgramAskedToEndWithinACommandEndsBehindIt) {
    Open(S("form.aff"));
    m_frame->Run(S("Command"), [this] {
        AskToEnd();
        EXPECT_TRUE(m_frame->isVisible());
    });
    EXPECT_EQ(Loop(), EXIT_SUCCESS);
    EXPECT_FALSE(m_frame->isVisible());
}

TEST_F(MdiClosingTest, ProgramAskedToEndWhileItAsksAboutAFormAsksAgain) {
    Type(*OpenTemplate(S("form.aft")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes, MessageAnswer::No};
    m_ui.onFileDialog = [this](FileDialog&) {
        AskToEnd();
        EXPECT_EQ(m_ui.messages.size(), 1U);
        throw Failure(failure::kCancelled);
    };
    Do("mnuFileExit");
    EXPECT_TRUE(m_frame->isVisible());
    EXPECT_EQ(Loop(), EXIT_SUCCESS);
    EXPECT_FALSE(m_frame->isVisible());
    EXPECT_EQ(m_ui.messages.size(), 2U);
}

TEST_F(MdiClosingTest, WhoCancelsTheEndOfTheProgramIsNotAskedAgain) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel, MessageAnswer::Cancel};
    AskToEnd();
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(EXIT_FAILURE); });
    QApplication::exec();
    EXPECT_TRUE(m_frame->isVisible());
    EXPECT_EQ(m_ui.messages.size(), 1U);
}

TEST_F(MdiClosingTest, EndOfTheProgramIsNoClickOnTheCloseBox) {
    m_frame->NoClose = true;
    QTimer::singleShot(0, qApp, AskToEnd);
    EXPECT_EQ(Loop(), EXIT_SUCCESS);
    EXPECT_FALSE(m_frame->isMinimized());
    EXPECT_FALSE(m_frame->isVisible());
}

TEST_F(MdiClosingTest, NothingOfAClosedFormIsLeftInTheFrame) {
    Open(S("form.aff"));
    Do("mnuFileClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_frame->PagePanel(), S(""));
    EXPECT_EQ(PageBox(), S(""));
    EXPECT_FALSE(Menu("mnuPage").menuAction()->isEnabled());
}

}  // namespace

}  // namespace sheetwright
