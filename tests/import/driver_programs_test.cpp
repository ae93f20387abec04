#include "import/driver_programs.h"

#include "import/driver_fixture.h"

#include <QFileInfo>

namespace sheetwright {

namespace {

class DriverPrograms : public DriverTest {
  protected:
    QString Program(const QString& written) const {
        DriverFile driver;
        driver.folder = Path(QStringLiteral("DRIVERS/A/x")).chopped(1);
        driver.program = written;
        return ProgramOf(*m_application, driver);
    }
    void Allow(const QString& programs) {
        m_application->settings.Write(QStringLiteral("Download Manager"), QStringLiteral("Settings"),
                                      QStringLiteral("Programs"), programs);
    }
    // Links in the path of the test's folder are followed.
    static QString Followed(const QString& path) { return QFileInfo(path).canonicalFilePath(); }
};

TEST_F(DriverPrograms, AreThoseOfTheFolder) {
    const QString fetch = Followed(WriteProgram(QStringLiteral("DRIVERS/A/bin/fetch"), {}));
    EXPECT_EQ(Program(QStringLiteral("bin/fetch")), fetch);
    EXPECT_EQ(Program(QStringLiteral("BIN\\fetch.exe")), fetch);
    EXPECT_EQ(Program(QStringLiteral("..\\A\\bin\\fetch")), fetch);
    EXPECT_EQ(Program(fetch), fetch);
}

TEST_F(DriverPrograms, AreNoneThatCannotBeStarted) {
    Write(QStringLiteral("DRIVERS/A/text"), "x");
    Write(QStringLiteral("DRIVERS/A/folder/x"), {});
    for (const QString& written :
         {QString(), QStringLiteral("text"), QStringLiteral("folder"), QStringLiteral("none"),
          QStringLiteral("."), QStringLiteral("sh"), QStringLiteral("ls")})
        EXPECT_EQ(Program(written), QString()) << written.toStdString();
}

TEST_F(DriverPrograms, AreNoneFromElsewhere) {
    WriteProgram(QStringLiteral("DRIVERS/B/fetch"), {});
    Write(QStringLiteral("DRIVERS/A/x"), {});
    ASSERT_TRUE(QFile::link(QStringLiteral("/bin/sh"), Path(QStringLiteral("DRIVERS/A/link"))));
    for (const QString& written : {QStringLiteral("../B/fetch"), QStringLiteral("link"),
                                   QStringLiteral("/bin/sh"), QStringLiteral("\\bin\\sh")})
        EXPECT_EQ(Program(written), QString()) << written.toStdString();
}

TEST_F(DriverPrograms, ShippedOnesAreFoundByTheirBareName) {
    const QString reader = Followed(WriteProgram(QStringLiteral("sheetwright-line-reader"), {}));
    WriteProgram(QStringLiteral("sheetwright"), {});
    EXPECT_EQ(Program(QStringLiteral("sheetwright-line-reader")), reader);
    EXPECT_EQ(Program(QStringLiteral("sheetwright-line-reader.exe")), reader);
    EXPECT_EQ(Program(QStringLiteral("../../sheetwright-line-reader")), reader);
    EXPECT_EQ(Program(QStringLiteral("sheetwright")), QString());
    EXPECT_EQ(Program(QStringLiteral("../../sheetwright")), QString());
}

TEST_F(DriverPrograms, OfTheSettingsAreAllowed) {
    const QString tool = Followed(WriteProgram(QStringLiteral("tools/my tool"), {}));
    const QString other = Followed(WriteProgram(QStringLiteral("tools/other"), {}));
    Allow(QStringLiteral(" ;tools/other; ") + tool);
    EXPECT_EQ(Program(tool), tool);
    EXPECT_EQ(Program(QStringLiteral("..\\..\\tools\\MY TOOL")), tool);
    EXPECT_EQ(Program(other), QString());
    Allow(tool + QStringLiteral(".exe;") + other);
    EXPECT_EQ(Program(tool), tool);
    EXPECT_EQ(Program(other), other);
}

}  // namespace

}  // namespace sheetwright
