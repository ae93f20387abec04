#include "document/closing.h"
#include "document/page.h"
#include "mdi_sheetwright_test.h"
#include "ui/line_icons.h"
#include "ui/page_view.h"

namespace sheetwright {

namespace {

using ::testing::IsEmpty;

class MdiViewerTest : public MdiSheetwrightTest {
  protected:
    MdiViewerTest() : MdiSheetwrightTest(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(MdiViewerTest, HidesWhatChangesForms) {
    EXPECT_EQ(m_frame->windowTitle(), S("Tolvane Ketterlin Professional Viewer"));
    Open(S("form.aff"));
    for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "Save"})
        EXPECT_FALSE(Action(name)->isVisible()) << name;
    for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "MnuEditUpdate", "mnuPageAdd", "mnuPageRemove"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
    EXPECT_FALSE(m_frame->findChild<QMenu*>(S("mnuPage"))->menuAction()->isVisible());
    EXPECT_TRUE(Action("mnuFileOpen")->isVisible());
}

TEST_F(MdiViewerTest, BearsTheEmblemOfTheViewer) {
    constexpr QSize kSize(64, 64);
    EXPECT_EQ(m_frame->windowIcon().pixmap(kSize).toImage(), ProgramIcon(true).pixmap(kSize).toImage());
}

TEST_F(MdiViewerTest, TurnsPages) {
    const auto place = [this] { return m_frame->PagePanel(); };
    Open(S("form.aff"));
    Click("cmd_nextpage");
    EXPECT_EQ(place(), S("2/2 - Results "));
    Do("mnuFileClose");
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiViewerTest, PageKeysTurnPagesAndOfferNone) {
    FormWindow* const form = Open(S("form.aff"));
    ASSERT_EQ(QApplication::focusWidget(), &form->View());
    const auto press = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_PageDown);
    EXPECT_EQ(form->Document().DataPageNum, 2);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageUp);
    EXPECT_EQ(form->Document().DataPageNum, 1);
    EXPECT_TRUE(form->Document().page->CurrentEntry.IsNone());
}

// Names of menus, entries and buttons.
TEST_F(MdiViewerTest, HasNothingOfWhatTheViewerIsWithout) {
    Open(S("form.aff"));
    for (const QStringView name : MenusNotInViewer()) {
        const QMenu* const menu = m_frame->findChild<QMenu*>(name.toString());
        const QAction* const entry =
            menu == nullptr ? m_frame->findChild<QAction*>(name.toString()) : menu->menuAction();
        ASSERT_NE(entry, nullptr) << name.toString().toStdString();
        EXPECT_FALSE(entry->isVisible()) << name.toString().toStdString();
    }
    for (const QStringView key : ButtonsNotInViewer())
        EXPECT_FALSE(m_frame->findChild<QAction*>(key.toString())->isVisible())
            << key.toString().toStdString();
}

TEST_F(MdiViewerTest, OpensPrintsAndHelps) {
    Open(S("form.aff"));
    for (const char* name : {"mnuFileOpen", "mnuFileClose", "mnuFilePrint", "mnuFileExit", "mnuFileRecent0",
                             "mnuHelpContents", "mnuHelpAbout", "Open", "Print", "mnuWindowArrange0"})
        EXPECT_TRUE(Action(name)->isVisible() && Action(name)->isEnabled()) << name;
}

TEST_F(MdiViewerTest, KeysOfRemovedCommandsDoNothing) {
    FormWindow* const form = Open(S("form.aff"));
    form->Document().Changed = true;
    Press(Qt::Key_S, Qt::ControlModifier);
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_N, Qt::ControlModifier);
    Press(Qt::Key_F9);
    EXPECT_THAT(m_ui.fileDialogs, IsEmpty());
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
}

TEST_F(MdiViewerTest, ClosesAChangedFormWithoutAQuestion) {
    Open(S("form.aff"))->Document().Changed = true;
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiViewerTest, PanelPageOpensNoEditMenu) {
    Open(S("form.aff"));
    Click("Page");
    EXPECT_FALSE(Menu("mnuPage").isVisible());
}

}  // namespace

}  // namespace sheetwright
