// Which drivers the frame has buttons for.

#include "mdi_drivers_test.h"

#include "ui/form_area.h"

#include <QFile>
#include <QPixmap>

namespace sheetwright {

namespace {

using ::testing::IsEmpty;

TEST_F(MdiDriversTest, PageHasAButtonForEachDriverThatItNames) {
    EXPECT_THAT(Buttons(), IsEmpty());
    Open(S("form.aff"), Form());
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    Click("cmd_nextpage");
    EXPECT_EQ(Buttons(), QStringList({S("DLscale"), S("DLmeter")}));
}

TEST_F(MdiDriversTest, LeavingAPageRemovesItsButtons) {
    Open(S("form.aff"), Form());
    Click("cmd_lastpage");
    EXPECT_THAT(Buttons(), IsEmpty());
    EXPECT_EQ(Button("DLmeter"), nullptr);
    EXPECT_EQ(Action("DLmeter"), nullptr);
    Click("cmd_firstpage");
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
}

TEST_F(MdiDriversTest, ButtonsStandBetweenAddPageAndThePagePanel) {
    Open(S("form.aff"), Form());
    QStringList shown;
    for (const QAction* const action : m_frame->findChild<QToolBar*>(S("tbToolBar"))->actions())
        if (action->isVisible()) shown << (action->isSeparator() ? S("|") : action->objectName());
    EXPECT_EQ(shown, QStringList({S("New"), S("Open"), S("Save"), S("|"), S("Print"), S("|"), S("Formulas"),
                                  S("AddPage"), S("|"), S("DLmeter"), S("|"), QString()}));
    Click("cmd_lastpage");
    EXPECT_FALSE(m_frame->findChild<QToolBar*>(S("tbToolBar"))->actions().isEmpty());
}

TEST_F(MdiDriversTest, NoDividerStandsWithoutButtons) {
    Open(S("form.aff"), Form());
    Click("cmd_lastpage");
    QString before;
    for (const QAction* const action : m_frame->findChild<QToolBar*>(S("tbToolBar"))->actions()) {
        if (!action->isVisible()) continue;
        const QString shown = action->isSeparator() ? S("|") : action->objectName();
        EXPECT_FALSE(shown == S("|") && before == S("|"));
        before = shown;
    }
}

TEST_F(MdiDriversTest, ButtonTellsWhatItDoes) {
    Open(S("form.aff"), Form());
    EXPECT_EQ(Action("DLmeter")->toolTip(), S("Download meter"));
    EXPECT_EQ(Button("DLmeter")->accessibleName(), S("Download meter"));
}

TEST_F(MdiDriversTest, DriverWithoutAnIconIsToldByItsName) {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::red);
    m_dock->drivers[1].icon = QIcon(pixmap);
    Open(S("form.aff"), Form());
    Click("cmd_nextpage");
    EXPECT_EQ(Button("DLscale")->toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_EQ(Action("DLscale")->icon().cacheKey(), m_dock->drivers[1].icon.cacheKey());
    EXPECT_EQ(Button("DLmeter")->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    EXPECT_EQ(Button("DLmeter")->text(), S("meter"));
    EXPECT_FALSE(Action("DLmeter")->icon().isNull());
}

TEST_F(MdiDriversTest, DriverThatCantBeUsedHasNoButton) {
    m_dock->drivers[0].isAvailable = false;
    Open(S("form.aff"), Form());
    EXPECT_THAT(Buttons(), IsEmpty());
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiDriversTest, EachWindowShowsItsOwn) {
    FormWindow* const first = Open(S("first.aff"), Form());
    FormWindow* const second = Open(S("second.aff"));
    EXPECT_THAT(Buttons(), IsEmpty());
    m_frame->Area().BringToFront(*first);
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    m_frame->Area().BringToFront(*second);
    EXPECT_THAT(Buttons(), IsEmpty());
}

TEST_F(MdiDriversTest, ClosingAFormShowsThoseOfTheNext) {
    Open(S("first.aff"), Form());
    Open(S("second.aff"), Form());
    Click("cmd_nextpage");
    Do("mnuFileClose");
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_THAT(Buttons(), IsEmpty());
}

TEST_F(MdiDriversTest, ReadOnlyFormHasNone) {
    QFile::setPermissions(Write(S("form.aff"), Form()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("form.aff"));
    const int before = m_dock->rescans;
    m_frame->OpenFromDialogSlot();
    ASSERT_TRUE(m_frame->Active()->Document().MyReadonly);
    EXPECT_THAT(Buttons(), IsEmpty());
    EXPECT_EQ(m_dock->rescans, before);
}

TEST_F(MdiDriversTest, ReadOnlyFormTakesTheButtonsOfTheFormBehindAway) {
    Open(S("first.aff"), Form());
    QFile::setPermissions(Write(S("second.aff"), Form()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("second.aff"));
    m_frame->OpenFromDialogSlot();
    EXPECT_THAT(Buttons(), IsEmpty());
}

TEST_F(MdiDriversTest, FormOpenedOverAReadOnlyOneHasItsOwn) {
    QFile::setPermissions(Write(S("first.aff"), Form()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("first.aff"));
    m_frame->OpenFromDialogSlot();
    FormWindow* const first = m_frame->Active();
    Open(S("second.aff"), Form());
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    m_frame->Area().BringToFront(*first);
    EXPECT_THAT(Buttons(), IsEmpty());
    Do("mnuFileClose");
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
}

TEST_F(MdiDriversTest, ManagerThatIsNotSetUpIsLeftAlone) {
    m_dock->directory.clear();
    const int before = m_dock->rescans;
    Open(S("form.aff"), Form());
    Click("cmd_nextpage");
    EXPECT_THAT(Buttons(), IsEmpty());
    EXPECT_EQ(m_dock->rescans, before);
}

TEST_F(MdiDriversTest, IndexOfAButtonIsThatOfTheListAsItIsNow) {
    Open(S("form.aff"), Form());
    Click("DLmeter");
    EXPECT_TRUE(m_dock->calls.contains(S("Index 0")));
    m_dock->drivers.insert(m_dock->drivers.begin(), {S("added")});
    Click("cmd_nextpage");
    m_dock->calls.clear();
    Click("DLmeter");
    EXPECT_EQ(m_dock->calls.value(0), S("Index 1"));
}

// Building a page passes over it, the refresh of its controls doesn't.
TEST_F(MdiDriversTest, DriverNamedTwiceFailsTheRefreshBehindItsFirstButton) {
    FormWindow* const twice = Open(S("twice.aff"), NamedTwice());
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    EXPECT_THAT(m_ui.messages, IsEmpty());
    Open(S("other.aff"));
    m_frame->Area().BringToFront(*twice);
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_TRUE(m_ui.messages[0].text.startsWith(S("Error 457: ")));
}

TEST_F(MdiDriversTest, CommandThatRefreshesAPageWithADriverNamedTwiceIsDone) {
    FormText form;
    form.Page(S("Twice"), Naming(S("meter;meter"))).Field(S("v")).Data(1, {}).Data(1, {});
    Open(S("twice.aff"), form.Bytes());
    Do("mnuPageRemove");
    EXPECT_EQ(m_frame->Active()->Document().Pages, 1);
    ASSERT_EQ(m_ui.messages.size(), 2U);
    EXPECT_TRUE(m_ui.messages[1].text.startsWith(S("Error 457: ")));
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
}

TEST_F(MdiDriversTest, IconOfAnyDriverIsLegibleOnDarkToo) {
    Open(S("form.aff"), Form());
    const auto picture = [this] { return Action("DLmeter")->icon().pixmap(24, 24).toImage(); };
    const QImage onLight = picture();
    QPalette dark = m_frame->palette();
    dark.setColor(QPalette::ButtonText, Qt::white);
    m_frame->setPalette(dark);
    EXPECT_NE(picture(), onLight);
}

TEST_F(MdiDriversTest, DownloadRootIsThatOfTheStart) {
    m_application->settings.Write(S("Download Manager"), S("Settings"), S("Directory"), S("C:\\First"));
    Restart();
    m_application->settings.Write(S("Download Manager"), S("Settings"), S("Directory"), S("C:\\Second"));
    EXPECT_EQ(m_frame->DownloadRoot, S("C:\\First"));
}

TEST_F(MdiDriversTest, FrameThatIsUpToDateChangesNothing) {
    Open(S("form.aff"), Form());
    EXPECT_THAT(ChangedByRefresh(), IsEmpty());
}

class MdiDriversViewerTest : public MdiDriversTest {
  protected:
    MdiDriversViewerTest() : MdiDriversTest(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(MdiDriversViewerTest, HasNone) {
    Open(S("form.aff"), Form());
    Click("cmd_nextpage");
    EXPECT_THAT(Buttons(), IsEmpty());
    EXPECT_FALSE(m_dock->calls.contains(S("Index 0")));
}

}  // namespace

}  // namespace sheetwright
