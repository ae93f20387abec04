#include "import/drivers.h"

#include "import/import_fixture.h"
#include "support/fake_dock.h"

#include <QDir>
#include <QPixmap>

#include <gmock/gmock.h>

namespace sheetwright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DriverButtonsTest : public ApplicationTest {
  protected:
    DriverButtonsTest() { m_dock.drivers = {{S("MF720")}, {S("AT310")}, {S("Off"), false}, {S("data")}}; }

    std::vector<DriverButton> Buttons(const QString& drivers) {
        std::vector<DriverButton> buttons;
        MakeDriverButtons(*m_application, m_dock, drivers, buttons);
        return buttons;
    }
    [[nodiscard]] QStringList Keys(const QString& drivers) {
        QStringList keys;
        for (const DriverButton& button : Buttons(drivers))
            keys << button.key;
        return keys;
    }
    [[nodiscard]] QString DataFolder(const QString& item) { return Buttons(item).at(0).description; }

    FakeDock m_dock;
};

TEST_F(DriverButtonsTest, HaveWhatTheClickNeeds) {
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    m_dock.drivers[1].icon = QIcon(pixmap);
    const std::vector<DriverButton> buttons = Buttons(S("AT310"));
    ASSERT_EQ(buttons.size(), 1U);
    EXPECT_EQ(buttons[0].key, S("DLAT310"));
    EXPECT_EQ(buttons[0].index, 1);
    EXPECT_EQ(buttons[0].toolTip, S("Download AT310"));
    EXPECT_EQ(buttons[0].description, S("C:\\Manager\\DRIVERS\\AT310\\Data\\"));
    EXPECT_EQ(buttons[0].icon.cacheKey(), m_dock.drivers[1].icon.cacheKey());
}

TEST_F(DriverButtonsTest, StandInTheOrderOfThePage) {
    EXPECT_EQ(Keys(S("AT310;MF720")), QStringList({S("DLAT310"), S("DLMF720")}));
}

TEST_F(DriverButtonsTest, EmptyItemsArePassedOver) {
    EXPECT_EQ(Keys(S(";;AT310;;MF720;")), QStringList({S("DLAT310"), S("DLMF720")}));
}

TEST_F(DriverButtonsTest, PageWithoutDriversOnlyReadsTheListAgain) {
    EXPECT_THAT(Buttons(QString()), IsEmpty());
    EXPECT_EQ(m_dock.calls, QStringList({S("Rescan")}));
}

TEST_F(DriverButtonsTest, ListIsReadAgainOnceBeforeItIsSearched) {
    Buttons(S("MF720;AT310"));
    EXPECT_EQ(m_dock.calls, QStringList({S("Rescan"), S("Index 0"), S("Index 1")}));
}

TEST_F(DriverButtonsTest, DriverIsFoundIgnoringCaseAndKeepsTheSpellingOfThePage) {
    EXPECT_EQ(Keys(S("mf720")), QStringList({S("DLmf720")}));
    EXPECT_EQ(Buttons(S("mf720"))[0].index, 0);
    EXPECT_EQ(Buttons(S("mf720"))[0].toolTip, S("Download mf720"));
}

TEST_F(DriverButtonsTest, FirstOfTwoDriversOfOneNameIsTaken) {
    m_dock.drivers = {{S("Meter")}, {S("METER")}};
    EXPECT_EQ(Buttons(S("METER"))[0].index, 0);
}

TEST_F(DriverButtonsTest, UnknownAndUnavailableDriversHaveNone) {
    EXPECT_EQ(Keys(S("Nothing;Off;MF720")), QStringList({S("DLMF720")}));
    EXPECT_EQ(Keys(S(" MF720")), QStringList()) << "a name is taken as it stands";
}

TEST_F(DriverButtonsTest, NameIsTheFirstPartOfThePath) {
    EXPECT_EQ(Keys(S("MF720\\Data")), QStringList({S("DLMF720")}));
    EXPECT_EQ(Keys(S("MF720/Data")), QStringList({S("DLMF720")}));
    EXPECT_EQ(Keys(S("\\MF720")), QStringList());
}

TEST_F(DriverButtonsTest, DataFolderIsAppendedUnlessTheItemNamesIt) {
    const QString root = S("C:\\Manager\\DRIVERS\\");
    EXPECT_EQ(DataFolder(S("MF720")), root + S("MF720\\Data\\"));
    EXPECT_EQ(DataFolder(S("MF720\\")), root + S("MF720\\Data\\"));
    EXPECT_EQ(DataFolder(S("MF720/")), root + S("MF720/Data\\"));
    EXPECT_EQ(DataFolder(S("MF720\\Data")), root + S("MF720\\Data\\"));
    EXPECT_EQ(DataFolder(S("MF720\\dATA\\")), root + S("MF720\\dATA\\"));
    EXPECT_EQ(DataFolder(S("MF720/data/")), root + S("MF720/data/"));
    EXPECT_EQ(DataFolder(S("MF720\\Data\\2004")), root + S("MF720\\Data\\2004\\"));
    EXPECT_EQ(DataFolder(S("MF720\\Database")), root + S("MF720\\Database\\Data\\"));
    EXPECT_EQ(DataFolder(S("data")), root + S("data\\Data\\")) << "here it is the driver's name";
}

TEST_F(DriverButtonsTest, NothingIsPutOutsideTheDriversFolder) {
    EXPECT_EQ(Keys(S("MF720\\..\\AT310;MF720/../../etc/data/;MF720\\..")), QStringList());
    EXPECT_EQ(Keys(S("MF720\\a..b")), QStringList({S("DLMF720")}));
}

TEST_F(DriverButtonsTest, DriverNamedTwiceFailsBehindItsFirstButton) {
    std::vector<DriverButton> buttons;
    EXPECT_EQ(FailureOf([&] {
                  MakeDriverButtons(*m_application, m_dock, S("AT310;MF720;at310\\Data;data"), buttons);
              }),
              457);
    ASSERT_EQ(buttons.size(), 2U);
    EXPECT_EQ(buttons[1].key, S("DLMF720"));
}

TEST_F(DriverButtonsTest, TwiceNamedDriverThatHasNoButtonIsNoFailure) {
    EXPECT_EQ(Keys(S("Off;Off;Nothing;Nothing")), QStringList());
}

TEST_F(DriverButtonsTest, ManagerWithoutDriversMakesNone) {
    NoFetchDock none;
    std::vector<DriverButton> buttons;
    MakeDriverButtons(*m_application, none, S("MF720"), buttons);
    EXPECT_THAT(buttons, IsEmpty());
    EXPECT_EQ(DriverNames(none), QStringList());
}

TEST_F(DriverButtonsTest, EditMenuListsAllDrivers) {
    EXPECT_EQ(DriverNames(m_dock), QStringList({S("MF720"), S("AT310"), S("Off"), S("data")}));
}

// A form with one field that takes the column V of the meter.
class DriverCommandsTest : public ImportTest {
  protected:
    DriverCommandsTest() {
        m_dock.drivers = {{S("meter")}};
        FormText form;
        form.Page(S("A")).Field(S("v"), Takes(S("V"))).Data(1, {});
        Show(form);
        m_button.key = S("DLmeter");
        m_button.description = Path(S("DRIVERS")) + S("\\meter\\Data\\");
    }

    [[nodiscard]] std::function<void()> Front() {
        return [this] { m_dock.calls << S("front"); };
    }
    void Choose(const QString& path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = path; };
    }
    void Deliver() {
        m_dock.onDownload = [this] { return WriteTable("V\r\n230\r\n"); };
    }
    [[nodiscard]] QString ImportStart(const QString& root, const QString& driver) {
        m_ui.fileDialogs.clear();
        SelectImport(*m_application, root, driver, nullptr);
        return m_ui.fileDialogs.at(0).initialFolder;
    }

    FakeDock m_dock;
    DriverButton m_button;
};

TEST_F(DriverCommandsTest, DownloadIsPreparedStepByStep) {
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    EXPECT_EQ(m_dock.calls, QStringList({S("Index 0"), S("DataFolder ") + m_button.description, S("front"),
                                         S("ShowProgress 1"), S("front"), S("Download")}));
}

TEST_F(DriverCommandsTest, WhatIsDeliveredIsImported) {
    Deliver();
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    EXPECT_EQ(TextAt(1), S("230"));
}

TEST_F(DriverCommandsTest, FormStaysOpenDuringTheDownload) {
    int busy = 0;
    m_dock.onDownload = [&] {
        busy = m_document->Busy;
        return QString();
    };
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    EXPECT_EQ(busy, 1);
    EXPECT_EQ(m_document->Busy, 0);
}

TEST_F(DriverCommandsTest, NothingDeliveredImportsNothing) {
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    EXPECT_EQ(TextAt(1), QString());
    EXPECT_FALSE(m_document->Changed);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(DriverCommandsTest, WithoutAFormTheDownloadIsNotImported) {
    Deliver();
    DownloadAndImport(m_dock, m_button, nullptr, Front());
    EXPECT_TRUE(m_dock.calls.contains(S("Download")));
}

TEST_F(DriverCommandsTest, FormThatMustNotChangeTakesNothing) {
    Deliver();
    Choose(WriteTable("V\r\n230\r\n"));
    m_document->MyReadonly = true;
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    SelectImport(*m_application, m_folder.path(), S("meter"), m_document.get());
    m_document->MyReadonly = false;
    m_application->ViewerMode = true;
    DownloadAndImport(m_dock, m_button, m_document.get(), Front());
    SelectImport(*m_application, m_folder.path(), S("meter"), m_document.get());
    EXPECT_EQ(TextAt(1), QString());
    EXPECT_FALSE(m_document->Changed);
}

TEST_F(DriverCommandsTest, DriverThatIsGoneFails) {
    m_button.index = 5;
    EXPECT_EQ(FailureOf([&] { DownloadAndImport(m_dock, m_button, m_document.get(), Front()); }), 9);
    EXPECT_EQ(m_document->Busy, 0);
    EXPECT_THAT(m_dock.calls, IsEmpty());
}

TEST_F(DriverCommandsTest, FailureOfTheImportIsRaised) {
    m_dock.onDownload = [this] { return Path(S("DRIVERS/meter/Data/missing.csv")); };
    EXPECT_EQ(FailureOf([&] { DownloadAndImport(m_dock, m_button, m_document.get(), Front()); }), 53);
    EXPECT_EQ(m_document->Busy, 0);
}

TEST_F(DriverCommandsTest, DownloadOnlyTellsTheNameAndImportsNothing) {
    Deliver();
    DownloadOnly(*m_application, m_dock, m_button, Front());
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{S("table.csv downloaded."), m_application->Title,
                                                        MessageIcon::Information}));
    EXPECT_EQ(TextAt(1), QString());
}

TEST_F(DriverCommandsTest, DownloadOnlyIsQuietWhenNothingCame) {
    DownloadOnly(*m_application, m_dock, m_button, Front());
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(DriverCommandsTest, DialogOfSelectImport) {
    SelectImport(*m_application, m_folder.path(), S("meter"), m_document.get());
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    const FileDialog& dialog = m_ui.fileDialogs[0];
    EXPECT_EQ(dialog.title, S("Import"));
    EXPECT_EQ(dialog.fileName, S("*.csv"));
    EXPECT_EQ(dialog.defaultExtension, S("csv"));
    EXPECT_EQ(dialog.filter, S("Comma-sep. Database (*.csv)|*.csv"));
    EXPECT_EQ(dialog.flags, 4096 | 2048 | 4 | 2097152);
    EXPECT_EQ(m_ui.saveDialogs, 0);
}

TEST_F(DriverCommandsTest, SelectImportStartsInTheDataFolderOfTheDriver) {
    const QString root = m_folder.path();
    WriteTable("V\r\n");
    Write(S("DRIVERS/bare/DRIVER.INF"), "");
    EXPECT_EQ(ImportStart(root, QString()), root + S("\\DRIVERS"));
    EXPECT_EQ(ImportStart(root, S("meter")), root + S("\\DRIVERS\\meter\\Data"));
    EXPECT_EQ(ImportStart(root, S("METER")), root + S("\\DRIVERS\\METER\\Data"));
    EXPECT_EQ(ImportStart(root, S("bare")), root + S("\\DRIVERS\\bare"));
    EXPECT_EQ(ImportStart(root, S("unknown")), root + S("\\DRIVERS\\unknown"));
    EXPECT_EQ(ImportStart(QString(), QString()), S("\\DRIVERS"));
}

TEST_F(DriverCommandsTest, FileOfThatNameIsNoDataFolder) {
    const QString root = m_folder.path();
    Write(S("DRIVERS/bare/Data"), "");
    EXPECT_EQ(ImportStart(root, S("bare")), root + S("\\DRIVERS\\bare"));
}

TEST_F(DriverCommandsTest, ChosenTableIsImported) {
    Choose(WriteTable("V\r\n12\r\n"));
    SelectImport(*m_application, m_folder.path(), S("meter"), m_document.get());
    EXPECT_EQ(TextAt(1), S("12"));
}

TEST_F(DriverCommandsTest, CancelledDialogEndsQuietly) {
    SelectImport(*m_application, m_folder.path(), S("meter"), m_document.get());
    EditDriverTable(*m_application, m_button, [](const QString&, const QString&) { FAIL(); });
    EXPECT_FALSE(m_document->Changed);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(DriverCommandsTest, DialogThatFailsOtherwiseIsAFailure) {
    m_ui.onFileDialog = [](FileDialog&) { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { SelectImport(*m_application, QString(), QString(), m_document.get()); }), 7);
}

TEST_F(DriverCommandsTest, ChosenTableOpensInTheViewerOfTheSettings) {
    m_application->settings = Settings(Path(S("settings")));
    m_application->settings.Write(S("CSV Viewer"), S("Settings"), S("Path"), S("C:\\Tools\\View it.exe"));
    Choose(S("/data/a b.csv"));
    QStringList started;
    EditDriverTable(*m_application, m_button,
                    [&](const QString& program, const QString& argument) { started << program << argument; });
    EXPECT_EQ(started, QStringList({S("C:\\Tools\\View it.exe"), S("/data/a b.csv")}));
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_ui.fileDialogs[0].title, S("Edit"));
    EXPECT_EQ(m_ui.fileDialogs[0].filter, S("Comma-sep. Database (*.csv)|*.csv"));
    EXPECT_EQ(m_ui.fileDialogs[0].initialFolder, m_button.description);
}

TEST_F(DriverCommandsTest, WithoutAViewerNothingOpens) {
    m_application->settings = Settings(Path(S("settings")));
    Choose(S("/data/a.csv"));
    EditDriverTable(*m_application, m_button, [](const QString&, const QString&) { FAIL(); });
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
}

}  // namespace
}  // namespace sheetwright
