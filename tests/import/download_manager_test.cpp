#include "import/download_manager.h"

#include "import/csv_types.h"
#include "import/driver_fixture.h"
#include "import/import_files.h"

#include <QFileInfo>
#include <QImage>
#include <QPixmap>

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace sheetwright {

namespace {

using ::testing::MatchesRegex;

class DownloadManagerTest : public DriverTest {
  protected:
    // Of the first driver, whose icon file it is.
    QIcon IconFrom(const QString& name, const QByteArray& bytes) {
        WriteInDriver(QStringLiteral("A/") + name, bytes);
        WriteInDriver(QStringLiteral("A/DRIVER.INF"), "[Driver]\nIcon=" + name.toUtf8());
        m_manager.Rescan();
        m_manager.SetIndex(0);
        return m_manager.Icon();
    }
};

TEST_F(DownloadManagerTest, IsNotSetUpWithoutTheFolder) {
    EXPECT_EQ(m_manager.Directory(), QString());
    EXPECT_EQ(m_manager.Count(), 0);
    Write(QStringLiteral("DRIVERS"), "a file");
    EXPECT_EQ(m_manager.Directory(), QString());
}

TEST_F(DownloadManagerTest, FindsTheFolderInAnyCase) {
    Write(QStringLiteral("Drivers/AT310/DRIVER.INF"), {});
    EXPECT_EQ(m_manager.Directory(), m_folder.path() + QStringLiteral("/Drivers/"));
    EXPECT_EQ(m_manager.DriverName(0), QStringLiteral("AT310"));
}

TEST_F(DownloadManagerTest, TakesTheFolderOfTheSettings) {
    Write(QStringLiteral("manager/DRIVERS/PC50/DRIVER.INF"), {});
    m_application->settings.Write(QStringLiteral("Download Manager"), QStringLiteral("Settings"),
                                  QStringLiteral("Directory"),
                                  m_folder.path() + QStringLiteral("\\manager\\"));
    EXPECT_EQ(m_manager.Directory(), m_folder.path() + QStringLiteral("/manager/DRIVERS/"));
    EXPECT_EQ(m_manager.DriverName(0), QStringLiteral("PC50"));
}

TEST_F(DownloadManagerTest, KnowsNewDriversAfterARescan) {
    WriteDriver(QStringLiteral("B"), {});
    EXPECT_EQ(m_manager.Count(), 1);
    WriteDriver(QStringLiteral("A"), {});
    EXPECT_EQ(m_manager.Count(), 1);
    m_manager.SetIndex(0);
    m_manager.Rescan();
    EXPECT_EQ(m_manager.Count(), 2);
    EXPECT_EQ(m_manager.DriverName(0), QStringLiteral("A"));
    EXPECT_FALSE(m_manager.Available());
}

TEST_F(DownloadManagerTest, RaisesNineForADriverThatIsNotThere) {
    WriteDriver(QStringLiteral("A"), {});
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{1}}) {
        EXPECT_EQ(FailureOf([&] { std::ignore = m_manager.DriverName(index); }), 9);
        EXPECT_EQ(FailureOf([&] { m_manager.SetIndex(index); }), 9);
    }
}

TEST_F(DownloadManagerTest, DriversAreAvailableWithAProgramThatCanBeStarted) {
    WriteDriver(QStringLiteral("A"), {});
    WriteInDriver(QStringLiteral("B/DRIVER.INF"), "[Driver]\nName=B\n");
    EXPECT_FALSE(m_manager.Available());
    m_manager.SetIndex(0);
    EXPECT_TRUE(m_manager.Available());
    m_manager.SetIndex(1);
    EXPECT_FALSE(m_manager.Available());
}

TEST_F(DownloadManagerTest, GivesTheIconOfADriver) {
    EXPECT_TRUE(m_manager.Icon().isNull());
    EXPECT_FALSE(
        IconFrom(QStringLiteral("a.svg"),
                 "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'><path d='M0 0h8v8z'/></svg>")
            .isNull());
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const QString& name : {QStringLiteral("b.png"), QStringLiteral("c.BMP")}) {
        const QString path = Path(QStringLiteral("picture.") + QFileInfo(name).suffix());
        ASSERT_TRUE(image.save(path));
        EXPECT_FALSE(IconFrom(name, ReadWholeFile(path)).isNull()) << name.toStdString();
    }
}

TEST_F(DownloadManagerTest, GivesNoIconOfAFileThatIsNone) {
    EXPECT_TRUE(IconFrom(QStringLiteral("a.svg"), "no drawing").isNull());
    EXPECT_TRUE(IconFrom(QStringLiteral("a.png"), {}).isNull());
    EXPECT_TRUE(IconFrom(QStringLiteral("a.txt"), "text").isNull());
}

TEST_F(DownloadManagerTest, DeliversIntoTheDataFolder) {
    WriteDriver(QStringLiteral("AT310"), kDeliver);
    const QString path = Downloaded();
    EXPECT_EQ(GetFolder(path), m_folder.path() + QStringLiteral("/DRIVERS/AT310/Data/"));
    EXPECT_THAT(GetFileName(path).toStdString(), MatchesRegex("AT310_[0-9]{8}_[0-9]{6}\\.csv"));
    EXPECT_EQ(ReadWholeFile(path), "A,B\n1,2\n");
    EXPECT_EQ(GetRelativePath(path), QStringLiteral("DRIVERS/AT310"));
    EXPECT_EQ(DataOf(QStringLiteral("AT310")).size(), 1);
    EXPECT_EQ(FilesIn(QStringLiteral("TEMP")), QStringList());
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(m_progress.begun, QStringList(QStringLiteral("AT310")));
    EXPECT_EQ(m_progress.ends, 1);
}

TEST_F(DownloadManagerTest, DeliversTheColumnTypes) {
    WriteDriver(QStringLiteral("A"), kDeliver, "[Delivered]\nTypes=types.inf\n");
    WriteInDriver(QStringLiteral("A/types.inf"), "[B]\nDataType=NUMBER\n");
    const CsvTypes types = LoadCsvTypes(Downloaded());
    EXPECT_EQ(types.at(QStringLiteral("b")), QStringLiteral("NUMBER"));
    EXPECT_EQ(DataOf(QStringLiteral("A")).size(), 2);
}

TEST_F(DownloadManagerTest, KeepsWhatWasDeliveredBefore) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    const QString first = Downloaded();
    const QString second = Downloaded();
    EXPECT_NE(first, second);
    EXPECT_TRUE(FileExists(first));
    EXPECT_TRUE(FileExists(second));
}

TEST_F(DownloadManagerTest, DeliversIntoAnotherFolderOfTheDriver) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    m_manager.SetDataFolder(m_folder.path() + QStringLiteral("\\drivers\\a\\Yard\\Data\\"));
    EXPECT_EQ(GetFolder(Downloaded()), m_folder.path() + QStringLiteral("/DRIVERS/A/Yard/Data/"));
}

TEST_F(DownloadManagerTest, DeliversNothingOutsideTheDriversFolder) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    for (const QString& folder :
         {QStringLiteral("/DRIVERS/A/../B/Data/"), QStringLiteral("\\DRIVERS\\A\\..\\..\\x"),
          QStringLiteral("/else"), QStringLiteral("/DRIVERS/AB/Data/")}) {
        m_ui.messages.clear();
        m_manager.SetDataFolder(m_folder.path() + folder);
        ExpectNothing({QStringLiteral("The data folder of A is not in the driver's folder.")});
    }
    EXPECT_EQ(m_progress.begun, QStringList());
}

TEST_F(DownloadManagerTest, TellsWhenADriverHasNoProgram) {
    WriteInDriver(QStringLiteral("A/DRIVER.INF"), "[Driver]\nName=Tester\n");
    ExpectNothing({QStringLiteral("The program of Tester cannot be started.")});
    EXPECT_EQ(m_ui.messages[0].title, m_application->Title);
    EXPECT_EQ(m_ui.messages[0].icon, MessageIcon::Exclamation);
}

TEST_F(DownloadManagerTest, DoesNothingWithoutADriver) {
    m_manager.Download();
    EXPECT_EQ(m_manager.DownloadedFile(), QString());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(DownloadManagerTest, ForgetsTheLastFileWhenTheNextDownloadFails) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    EXPECT_NE(Downloaded(), QString());
    WriteDriver(QStringLiteral("A"), "exit 1");
    EXPECT_EQ(Downloaded(), QString());
}

TEST_F(DownloadManagerTest, TellsWhenTheDataFolderCannotBeMade) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    WriteInDriver(QStringLiteral("A/Data"), "a file");
    ExpectNothing({QStringLiteral("The table from A cannot be saved: Path/File access error")});
    EXPECT_EQ(Read(QStringLiteral("DRIVERS/A/Data")), "a file");
}

TEST_F(DownloadManagerTest, TellsWhenThereIsNoPlaceForTheProgram) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    Write(QStringLiteral("TEMP"), "a file");
    EXPECT_EQ(Downloaded(), QString());
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Cannot write to Temporary Directory")));
}

TEST_F(DownloadManagerTest, SweepsWhatACrashHasLeftLongAgo) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    Write(QStringLiteral("TEMP/download-AbCdEf/half.csv"), "A\n");
    Write(QStringLiteral("TEMP/download-GhIjKl/half.csv"), "A\n");
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(72);
    std::filesystem::last_write_time(Path(QStringLiteral("TEMP/download-AbCdEf")).toStdString(), longAgo);
    EXPECT_NE(Downloaded(), QString());
    EXPECT_EQ(FilesIn(QStringLiteral("TEMP")),
              (QStringList{QStringLiteral("TEMP/download-GhIjKl"),
                           QStringLiteral("TEMP/download-GhIjKl/half.csv")}));
}

TEST_F(DownloadManagerTest, ShowsOnlyTheDownloadThatIsToBeShown) {
    WriteDriver(QStringLiteral("A"), kDeliver);
    EXPECT_NE(Downloaded(), QString());
    m_manager.Download();
    EXPECT_NE(m_manager.DownloadedFile(), QString());
    EXPECT_EQ(m_progress.begun.size(), 1);
}

TEST_F(DownloadManagerTest, StartsNoSecondDownloadMeanwhile) {
    WriteDriver(QStringLiteral("A"), "echo ready\n" + kDeliver);
    m_progress.onBegin = [&] { m_manager.Download(); };
    m_progress.When(QStringLiteral("ready"), [&] {
        m_manager.Rescan();
        m_manager.Download();
    });
    EXPECT_NE(Downloaded(), QString());
    EXPECT_EQ(m_progress.begun.size(), 1);
}

}  // namespace

}  // namespace sheetwright
