// The frame when a host drives the program: hidden, and with lines for the host.

#include "mdi_sheetwright_test.h"
#include "ui/desktop_start_up.h"
#include "ui/desktop_user_interface.h"

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MdiReportTest : public MdiSheetwrightTest {
  protected:
    MdiReportTest() : MdiSheetwrightTest(S("Tolvane Reports")) {
        // Every wait is over when it has been looked at twice.
        m_frame->Timer = [this] { return m_seconds += 2; };
        m_frame->hide();
    }

    double m_seconds = 0;
};

TEST_F(MdiReportTest, PrintingIsLeftToTheHost) {
    FormWindow* const form = Open(S("form.aff"));
    Do("mnuFilePrint");
    form->Document().Changed = true;
    Do("Print");
    EXPECT_EQ(m_ui.hostLines, QStringList({S("EVENT: PRINT"), S("EVENT: PRINT CHANGED")}));
    EXPECT_THAT(m_ui.printerDialogs, IsEmpty());
}

TEST_F(MdiReportTest, SaveButtonIsTheHostsWhenItsDescriptionSaysSo) {
    FormWindow* const form = Open(S("form.aff"));
    form->Document().Changed = true;
    m_frame->SaveButtonDescription = S("ReportSave");
    Do("Save");
    EXPECT_EQ(m_ui.hostLines, QStringList(S("EVENT: SAVECLICK")));
    EXPECT_TRUE(form->Document().Changed);
    Do("mnuFileSave");
    EXPECT_FALSE(form->Document().Changed);
}

TEST_F(MdiReportTest, SaveButtonOfTheHostCanBeClickedWithoutAForm) {
    m_frame->SaveButtonDescription = S("ReportSave");
    m_frame->Refresh();
    EXPECT_TRUE(Action("Save")->isEnabled());
    Do("Save");
    EXPECT_EQ(m_ui.hostLines, QStringList(S("EVENT: SAVECLICK")));
}

TEST_F(MdiReportTest, HostHearsOfPagesThatTurn) {
    Open(S("form.aff"));
    Do("mnuPageRemove");
    EXPECT_THAT(m_ui.hostLines, IsEmpty()) << "the page's number is the same";
    Open(S("second.aff"));
    const auto next = m_frame->findChild<QToolButton*>(S("cmd_nextpage"));
    next->click();
    EXPECT_EQ(m_ui.hostLines, QStringList(S("EVENT: PAGECHANGE")));
    Do("mnuPageRemove");
    EXPECT_EQ(m_ui.hostLines.size(), 2);
}

TEST_F(MdiReportTest, HostHearsOfAFormThatWasClosedWhenItIsGone) {
    const QString folder = Open(S("form.aff"))->Document().MyTempDir;
    m_ui.onPump = [&] { EXPECT_FALSE(QFile::exists(folder)); };
    Do("mnuFileClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_ui.hostLines, QStringList(S("EVENT: FORMCLOSE")));
    EXPECT_GT(m_ui.pumps, 0);
}

TEST_F(MdiReportTest, FormThatCantBeReadIsNoneThatWasClosed) {
    Open(S("empty.aff"), QByteArray());
    EXPECT_THAT(m_ui.hostLines, IsEmpty());
}

TEST_F(MdiReportTest, HostHearsOfTheEndBeforeTheFormsGo) {
    Open(S("form.aff"));
    EXPECT_TRUE(m_frame->close());
    EXPECT_EQ(m_ui.hostLines, QStringList({S("EVENT: TERMINATE"), S("EVENT: FORMCLOSE")}));
}

TEST_F(MdiReportTest, CancelledEndIsNone) {
    Open(S("form.aff"))->Document().Changed = true;
    m_ui.answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(m_frame->close());
    EXPECT_THAT(m_ui.hostLines, IsEmpty());
}

TEST_F(MdiReportTest, CloseBoxThatOnlyMinimisesEndsNothing) {
    m_frame->show();
    m_frame->NoClose = true;
    EXPECT_FALSE(ClickCloseBox());
    EXPECT_TRUE(m_frame->isMinimized());
    EXPECT_THAT(m_ui.hostLines, IsEmpty());
    m_frame->Exit();
    EXPECT_EQ(m_ui.hostLines, QStringList(S("EVENT: TERMINATE")));
}

TEST_F(MdiReportTest, StartLeavesTheFrameHiddenUnderTheProgramsTitle) {
    Unload();
    DesktopUserInterface ui;
    DesktopStartUp start(*m_application, ui);
    EXPECT_TRUE(Main(*m_application, start, S("/IPC")));
    EXPECT_FALSE(start.Frame()->isVisible());
    EXPECT_EQ(start.Frame()->windowTitle(), S("Tolvane Reports"));
}

}  // namespace

}  // namespace sheetwright
