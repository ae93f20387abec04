// What the buttons and menus of the drivers do.

#include "mdi_drivers_test.h"
#include "ui/form_area.h"
#include "ui/frame_menus.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QMenuBar>

namespace sheetwright {

namespace {

using ::testing::IsEmpty;

using DriverCommandsTest = MdiDriversTest;

TEST_F(DriverCommandsTest, ClickDownloadsAndImports) {
    Open(S("form.aff"), Form());
    Deliver();
    m_dock->calls.clear();
    Click("DLmeter");
    EXPECT_EQ(FirstField(), S("230"));
    EXPECT_EQ(m_dock->calls.first(4),
              QStringList({S("Index 0"), S("DataFolder ") + Path(S("DRIVERS/")) + S("meter\\Data\\"),
                           S("ShowProgress 1"), S("Download")}));
    EXPECT_EQ(Buttons(), QStringList({S("DLmeter")}));
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(DriverCommandsTest, ImportMayTurnThePageWhoseButtonWasClicked) {
    FormText form;
    form.Page(S("Meter"), Naming(S("meter")))
        .Field(S("v"),
               {S("DataSource=V,DRIVERS\\meter"), S("MultiRecordIndex=0"), S("NewPageOnReoccur=True")})
        .Data(1, {});
    Open(S("form.aff"), form.Bytes());
    Write(S("DRIVERS/meter/Data/long.csv"), "V\r\n1\r\n2\r\n3\r\n");
    Deliver(S("DRIVERS/meter/Data/long.csv"));
    Click("DLmeter");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_frame->Active()->Document().Pages, 3);
    EXPECT_EQ(m_frame->findChildren<QToolButton*>(S("DLmeter")).size(), 1);
    Click("DLmeter");
    EXPECT_EQ(m_frame->Active()->Document().Pages, 6);
}

TEST_F(DriverCommandsTest, DownloadThatDeliversNothingImportsNothing) {
    Open(S("form.aff"), Form());
    Click("DLmeter");
    EXPECT_EQ(FirstField(), QString());
    EXPECT_FALSE(m_frame->Active()->Document().Changed);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(DriverCommandsTest, NoCommandStartsDuringADownload) {
    Open(S("form.aff"), Form());
    m_dock->onDownload = [this] {
        Click("DLmeter");
        Do("mnuFileClose");
        m_frame->close();
        return QString();
    };
    m_dock->calls.clear();
    Click("DLmeter");
    EXPECT_EQ(m_dock->calls.count(S("Download")), 1);
    EXPECT_NE(m_frame->Active(), nullptr);
    EXPECT_TRUE(m_frame->isVisible());
}

TEST_F(DriverCommandsTest, FormCantBeClosedUnderADownload) {
    FormWindow* const form = Open(S("form.aff"), Form());
    m_dock->onDownload = [form] {
        FormArea::FrameOf(*form).close();
        return QString();
    };
    Click("DLmeter");
    EXPECT_EQ(m_frame->Active(), form);
}

TEST_F(DriverCommandsTest, FailureIsToldOnceAndTheFormLivesOn) {
    Open(S("form.aff"), Form());
    Deliver(S("DRIVERS/meter/Data/missing.csv"));
    Click("DLmeter");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList({S("Error 53: File not found")}));
    EXPECT_FALSE(m_frame->Active()->Document().Importing);
    Deliver();
    Click("DLmeter");
    EXPECT_EQ(FirstField(), S("230"));
}

TEST_F(DriverCommandsTest, RightClickOpensTheMenuOfTheButton) {
    Open(S("form.aff"), Form());
    Click("cmd_nextpage");
    RightClick("DLmeter");
    EXPECT_EQ(m_frame->PopupTarget, 8) << "six commands, then scale and meter";
    QMenu& menu = Menu("mnuDriverPopup");
    ASSERT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos().x(), Button("DLmeter")->mapToGlobal(QPoint(0, 0)).x());
    for (const char* name : {"mnuDriverDownload", "mnuDriverImport", "mnuDriverEdit"})
        EXPECT_TRUE(Action(name)->isEnabled()) << name;
    menu.close();
    EXPECT_FALSE(m_dock->calls.contains(S("Download")));
}

TEST_F(DriverCommandsTest, MenuOpensByTheKeyboardToo) {
    Open(S("form.aff"), Form());
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_frame.get()));
    QTest::keyClick(m_frame->windowHandle(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), Button("DLmeter"));
    QToolButton* const button = Button("DLmeter");
    QContextMenuEvent wish(QContextMenuEvent::Keyboard, QPoint(1, 1), button->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(button, &wish);
    EXPECT_TRUE(Menu("mnuDriverPopup").isVisible());
    EXPECT_EQ(m_frame->PopupTarget, 7);
    Menu("mnuDriverPopup").close();
}

TEST_F(DriverCommandsTest, ButtonIsWorkedByTheKeyboard) {
    FormWindow* const form = Open(S("form.aff"), Form());
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_frame.get()));
    Deliver();
    Press(Qt::Key_F6);
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(Menu("mnuDriverPopup").isVisible());
    Menu("mnuDriverPopup").close();
    Press(Qt::Key_Escape);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(form->isAncestorOf(QApplication::focusWidget()));
    Press(Qt::Key_F6);
    Press(Qt::Key_Space);
    EXPECT_EQ(FirstField(), S("230"));
    Click("cmd_lastpage");
    Press(Qt::Key_F6);
    EXPECT_TRUE(form->isAncestorOf(QApplication::focusWidget())) << "no button is there";
}

TEST_F(DriverCommandsTest, PopupDownloadTellsTheFileAndImportsNothing) {
    Open(S("form.aff"), Form());
    Deliver();
    RightClick("DLmeter");
    ChooseInPopup("mnuDriverDownload");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList({S("table.csv downloaded.")}));
    EXPECT_EQ(FirstField(), QString());
}

TEST_F(DriverCommandsTest, PopupImportChoosesAmongTheTablesOfTheDriver) {
    m_application->settings.Write(S("Download Manager"), S("Settings"), S("Directory"), Path(S("elsewhere")));
    Restart();
    Open(S("form.aff"), Form());
    Choose(Path(S("DRIVERS/meter/Data/table.csv")));
    RightClick("DLmeter");
    ChooseInPopup("mnuDriverImport");
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_ui.fileDialogs[0].initialFolder, Path(S("elsewhere")) + S("\\DRIVERS\\meter"));
    EXPECT_EQ(FirstField(), S("230"));
    EXPECT_FALSE(m_dock->calls.contains(S("Download")));
}

TEST_F(DriverCommandsTest, PopupEditStartsInTheFolderOfTheButton) {
    Open(S("form.aff"), Form());
    RightClick("DLmeter");
    ChooseInPopup("mnuDriverEdit");
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_ui.fileDialogs[0].initialFolder, Path(S("DRIVERS/")) + S("meter\\Data\\"));
    EXPECT_THAT(m_ui.messages, IsEmpty()) << "cancelled";
}

TEST_F(DriverCommandsTest, ViewerOfTablesThatCantBeStartedIsTold) {
    m_application->settings.Write(S("CSV Viewer"), S("Settings"), S("Path"), Path(S("no such program")));
    Open(S("form.aff"), Form());
    Choose(Path(S("DRIVERS/meter/Data/table.csv")));
    RightClick("DLmeter");
    ChooseInPopup("mnuDriverEdit");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList({S("Error 53: File not found")}));
}

TEST_F(DriverCommandsTest, PopupOfAButtonThatIsGoneDoesNothing) {
    Open(S("form.aff"), Form());
    RightClick("DLmeter");
    Menu("mnuDriverPopup").close();
    Click("cmd_lastpage");
    for (const char* name : {"mnuDriverDownload", "mnuDriverImport", "mnuDriverEdit"})
        Do(name);
    m_frame->PopupTarget = -1;
    Do("mnuDriverDownload");
    EXPECT_THAT(m_ui.fileDialogs, IsEmpty());
    EXPECT_FALSE(m_dock->calls.contains(S("Download")));
}

TEST_F(DriverCommandsTest, EditMenuImportsFromADriver) {
    Open(S("form.aff"), Form());
    EXPECT_TRUE(Action("mnuEditImport")->isVisible());
    EXPECT_TRUE(Action("mnuEditImport")->isEnabled());
    EXPECT_EQ(Action("mnuEditDrivers0")->text(), S("meter"));
    EXPECT_EQ(Action("mnuEditDrivers1")->text(), S("scale"));
    Choose(Path(S("DRIVERS/meter/Data/table.csv")));
    Do("mnuEditDrivers0");
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_ui.fileDialogs[0].initialFolder, m_frame->DownloadRoot + S("\\DRIVERS\\meter\\Data"));
    EXPECT_EQ(FirstField(), S("230"));
}

TEST_F(DriverCommandsTest, CancelledDialogEndsQuietly) {
    Open(S("form.aff"), Form());
    Do("mnuEditDrivers1");
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_THAT(m_ui.messages, IsEmpty());
    EXPECT_FALSE(m_frame->Active()->Document().Changed);
}

TEST_F(DriverCommandsTest, EditMenuImportsNothingIntoAReadOnlyForm) {
    QFile::setPermissions(Write(S("form.aff"), Form()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("form.aff"));
    m_frame->OpenFromDialogSlot();
    EXPECT_FALSE(Action("mnuEditImport")->isEnabled());
}

TEST_F(DriverCommandsTest, WithoutDriversTheEditMenuHasNoImport) {
    Unload();
    Load();
    Open(S("form.aff"), Form());
    EXPECT_FALSE(Action("mnuEditImport")->isVisible());
    EXPECT_EQ(Action("mnuEditDrivers0"), nullptr);
}

TEST_F(DriverCommandsTest, EntriesOfDriversGrowAndShrink) {
    QMenuBar bar;
    FrameMenus menus(*m_application, bar, [](const QString&, const FrameCommand&) {});
    const auto captions = [&] {
        QStringList texts;
        for (const QAction* const action : menus.Menu(S("mnuEditImport")).actions())
            texts << action->objectName() + u' ' + action->text();
        return texts;
    };
    menus.ShowDrivers({S("a"), S("b & c"), S("d")});
    EXPECT_EQ(captions(),
              QStringList({S("mnuEditDrivers0 a"), S("mnuEditDrivers1 b && c"), S("mnuEditDrivers2 d")}));
    menus.ShowDrivers({S("x")});
    EXPECT_EQ(captions(), QStringList({S("mnuEditDrivers0 x")}));
    EXPECT_TRUE(menus.Entry(S("mnuEditImport")).isVisible());
    menus.ShowDrivers({});
    EXPECT_FALSE(menus.Entry(S("mnuEditImport")).isVisible());
}

}  // namespace

}  // namespace sheetwright
