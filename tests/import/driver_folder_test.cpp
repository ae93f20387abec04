#include "import/driver_folder.h"

#include "import/driver_fixture.h"

namespace sheetwright {

namespace {

class ReadDriversTest : public DriverTest {
  protected:
    QStringList Names() const {
        QStringList names;
        for (const DriverFile& driver : ReadDrivers(m_folder.path() + QStringLiteral("/DRIVERS/")))
            names << driver.name;
        return names;
    }
};

TEST_F(ReadDriversTest, AreTheFoldersWithTheFileByName) {
    for (const QString& name : {QStringLiteral("b"), QStringLiteral("C"), QStringLiteral("A")})
        WriteInDriver(name + QStringLiteral("/DRIVER.INF"), {});
    WriteInDriver(QStringLiteral("lower/driver.inf"), {});
    WriteInDriver(QStringLiteral("none/other.inf"), {});
    WriteInDriver(QStringLiteral("DRIVER.INF"), {});
    EXPECT_EQ(Names(), QStringList({QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("C"),
                                    QStringLiteral("lower")}));
}

TEST_F(ReadDriversTest, PassOverHiddenFoldersAndNamesThatNoPageCouldWrite) {
    for (const QString& name : {QStringLiteral(".hidden"), QStringLiteral("a;b"), QStringLiteral("a\\b"),
                                QStringLiteral("a\nb"), QStringLiteral("...")})
        WriteInDriver(name + QStringLiteral("/DRIVER.INF"), {});
    EXPECT_EQ(Names(), QStringList());
}

TEST_F(ReadDriversTest, PassOverLinksThatLeadOut) {
    Write(QStringLiteral("outside/DRIVER.INF"), {});
    WriteInDriver(QStringLiteral("A/DRIVER.INF"), {});
    const QString inside = Path(QStringLiteral("DRIVERS/B"));
    ASSERT_TRUE(QFile::link(QStringLiteral("../outside"), Path(QStringLiteral("DRIVERS/out"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("A"), inside));
    EXPECT_EQ(Names(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
}

TEST_F(ReadDriversTest, AreNoneWithoutTheDirectory) {
    EXPECT_EQ(Names(), QStringList());
    EXPECT_TRUE(ReadDrivers(QString()).empty());
}

TEST_F(ReadDriversTest, FilesAreFoundInTheFolderOnly) {
    const QString path = WriteInDriver(QStringLiteral("A/sub/types.inf"), {});
    Write(QStringLiteral("types.inf"), {});
    const QString folder = m_folder.path() + QStringLiteral("/DRIVERS/A/");
    EXPECT_EQ(FileInFolder(folder, QStringLiteral("SUB\\types.inf")), path);
    EXPECT_EQ(FileInFolder(folder, QStringLiteral("sub")), QString());
    EXPECT_EQ(FileInFolder(folder, QStringLiteral("../../types.inf")), QString());
    EXPECT_EQ(FileInFolder(folder, QString()), QString());
    EXPECT_EQ(FileInFolder(folder, path), QString());
}

}  // namespace

}  // namespace sheetwright
