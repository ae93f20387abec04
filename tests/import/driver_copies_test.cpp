#include "import/driver_copies.h"

#include "import/driver_fixture.h"

#include <QFileInfo>

namespace sheetwright {

namespace {

// The program's folder is that of the test; a person writes below "own".
class ShippedDrivers : public DriverTest {
  protected:
    ShippedDrivers() {
        m_application->WritableFolder = WithTrailingSeparator(Path(QStringLiteral("own/x")).chopped(2));
        Ship(QStringLiteral("DRIVER.INF"), Inf("1"));
        Ship(QStringLiteral("icon.svg"), "icon");
        Ship(QStringLiteral("types.inf"), "types");
        Ship(QStringLiteral("settings.ini"), "settings");
        Ship(QStringLiteral("Data/sample.csv"), "A\n1\n");
    }
    static QByteArray Inf(const QByteArray& version) {
        return "[Driver]\nIcon=icon.svg\nVersion=" + version + "\n[Delivered]\nTypes=types.inf\n";
    }
    void Ship(const QString& name, const QByteArray& bytes) const {
        Write(QStringLiteral("drivers/AT310/") + name, bytes);
    }
    QByteArray Own(const QString& name) const { return Read(QStringLiteral("own/DRIVERS/AT310/") + name); }
    void WriteOwn(const QString& name, const QByteArray& bytes) const {
        Write(QStringLiteral("own/DRIVERS/AT310/") + name, bytes);
    }
};

TEST_F(ShippedDrivers, AreCopiedWhole) {
    WriteProgram(QStringLiteral("drivers/AT310/fetch"), {});
    EXPECT_EQ(m_manager.Directory(), m_folder.path() + QStringLiteral("/own/DRIVERS/"));
    EXPECT_EQ(m_manager.Count(), 1);
    EXPECT_EQ(Own(QStringLiteral("DRIVER.INF")), Inf("1"));
    EXPECT_EQ(Own(QStringLiteral("Data/sample.csv")), "A\n1\n");
    EXPECT_TRUE(QFileInfo(Path(QStringLiteral("own/DRIVERS/AT310/fetch"))).isExecutable());
    EXPECT_EQ(QDir(m_manager.Directory()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("AT310")));
}

TEST_F(ShippedDrivers, OfAHigherVersionReplaceWhatIsNoPersons) {
    BringShippedDrivers(*m_application);
    WriteOwn(QStringLiteral("settings.ini"), "mine");
    WriteOwn(QStringLiteral("Data/today.csv"), "mine");
    Ship(QStringLiteral("DRIVER.INF"), Inf("2"));
    for (const QString& name :
         {QStringLiteral("icon.svg"), QStringLiteral("types.inf"), QStringLiteral("settings.ini")})
        Ship(name, "newer");
    BringShippedDrivers(*m_application);
    EXPECT_EQ(Own(QStringLiteral("DRIVER.INF")), Inf("2"));
    EXPECT_EQ(Own(QStringLiteral("icon.svg")), "newer");
    EXPECT_EQ(Own(QStringLiteral("types.inf")), "newer");
    EXPECT_EQ(Own(QStringLiteral("settings.ini")), "mine");
    EXPECT_EQ(Own(QStringLiteral("Data/today.csv")), "mine");
}

TEST_F(ShippedDrivers, OfTheSameVersionLeaveAllAsItIs) {
    BringShippedDrivers(*m_application);
    WriteOwn(QStringLiteral("DRIVER.INF"), Inf("1") + "TimeLimit=9\n");
    Ship(QStringLiteral("icon.svg"), "newer");
    BringShippedDrivers(*m_application);
    EXPECT_EQ(Own(QStringLiteral("DRIVER.INF")), Inf("1") + "TimeLimit=9\n");
    EXPECT_EQ(Own(QStringLiteral("icon.svg")), "icon");
}

TEST_F(ShippedDrivers, StayAwayWhereTheSettingsNameAnotherFolder) {
    m_application->settings.Write(QStringLiteral("Download Manager"), QStringLiteral("Settings"),
                                  QStringLiteral("Directory"), m_folder.path() + QStringLiteral("/else"));
    BringShippedDrivers(*m_application);
    EXPECT_EQ(FilesIn(QStringLiteral("own")), QStringList());
    EXPECT_EQ(m_manager.Directory(), QString());
    EXPECT_EQ(m_manager.Count(), 0);
}

TEST_F(ShippedDrivers, AreNotCopiedOntoThemselves) {
    m_application->WritableFolder = m_application->InstallFolder;
    const QStringList before = FilesIn(QString());
    BringShippedDrivers(*m_application);
    EXPECT_EQ(FilesIn(QString()), before);
}

TEST_F(ShippedDrivers, ThatCannotBeBroughtAreNotThere) {
    Write(QStringLiteral("own/DRIVERS"), "a file");
    BringShippedDrivers(*m_application);
    EXPECT_EQ(m_manager.Directory(), QString());
    EXPECT_EQ(Read(QStringLiteral("own/DRIVERS")), "a file");
}

}  // namespace

}  // namespace sheetwright
