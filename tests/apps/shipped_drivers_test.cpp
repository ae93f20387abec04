// The drivers that come with the program, run by its download manager as they are shipped.

#include "core/paths.h"
#include "import/csv_table.h"
#include "import/download_manager.h"
#include "import/download_progress.h"
#include "import/import_files.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>

namespace sheetwright {

namespace {

// An installation with the drivers and their programs.
class ShippedDriversTest : public ApplicationTest {
  protected:
    ShippedDriversTest() {
        for (const QString& program :
             {QStringLiteral("sheetwright-simulated-tester"), QStringLiteral("sheetwright-line-reader")})
            QFile::link(QStringLiteral(SHEETWRIGHT_BIN_DIR "/") + program, Path(program));
        for (const QString& driver :
             {QStringLiteral("AT310"), QStringLiteral("MF720"), QStringLiteral("PC50")})
            Install(driver);
    }
    void Install(const QString& driver) {
        const QDir shipped(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/drivers/") + driver);
        for (const QString& name : shipped.entryList(QDir::Files))
            Write(QStringLiteral("drivers/%1/%2").arg(driver, name), ReadWholeFile(shipped.filePath(name)));
    }
    void Select(const QString& driver) {
        for (std::int16_t index = 0; index < m_manager.Count(); ++index)
            if (m_manager.DriverName(index) == driver) m_manager.SetIndex(index);
    }
    bool IsAvailable(const QString& driver) {
        Select(driver);
        return m_manager.Available();
    }

    NoDownloadProgress m_progress;
    DownloadManager m_manager{*m_application, m_progress};
};

TEST_F(ShippedDriversTest, AreAvailableWhereTheyHaveAProgram) {
    EXPECT_EQ(m_manager.Count(), 3);
    EXPECT_TRUE(IsAvailable(QStringLiteral("AT310")));
    EXPECT_FALSE(IsAvailable(QStringLiteral("MF720")));
    EXPECT_TRUE(IsAvailable(QStringLiteral("PC50")));
}

TEST_F(ShippedDriversTest, SimulatedTesterDeliversATableWithTypes) {
    Select(QStringLiteral("AT310"));
    m_manager.Download();
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    const QString path = m_manager.DownloadedFile();
    ASSERT_TRUE(FileExists(path));
    EXPECT_EQ(GetFolder(path), m_folder.path() + QStringLiteral("/drivers/AT310/Data/"));
    EXPECT_EQ(GetRelativePath(path), QStringLiteral("drivers/AT310"));
    CsvTable table;
    table.SetFileName(path);
    EXPECT_GT(table.RecordCount(), 0);
    EXPECT_EQ(table.Columns().At(QStringLiteral("Test Date")).DataType(), QStringLiteral("DATE"));
}

}  // namespace

}  // namespace sheetwright
