#include "import/download_delivery.h"

#include "import/driver_fixture.h"

namespace sheetwright {

namespace {

class DownloadDelivery : public DriverTest {
  protected:
    // Told of a driver that delivers what the script writes.
    void ExpectRefused(const QByteArray& script, const QByteArray& keys, const QString& message) {
        WriteDriver(QStringLiteral("A"), script, "[Delivered]\n" + keys);
        ExpectNothing({message});
    }
};

const QString kNoTable = QStringLiteral("What A has delivered is no table.");

TEST_F(DownloadDelivery, RefusesNothing) {
    ExpectRefused("exit 0", {}, QStringLiteral("A has delivered nothing."));
}

TEST_F(DownloadDelivery, RefusesAFolder) {
    ExpectRefused("mkdir \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesAnEmptyFile) {
    ExpectRefused(": > \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesALink) {
    ExpectRefused("ln -s /etc/passwd \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesALinkToNothing) {
    ExpectRefused("ln -s nowhere \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesAPipe) {
    ExpectRefused("mkfifo \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesBytesThatAreNoText) {
    ExpectRefused("printf 'A\\000,B\\n1,2\\n' > \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesATableWithoutNames) {
    ExpectRefused("printf ' ,\\n1,2\\n' > \"$1\"", {}, kNoTable);
}

TEST_F(DownloadDelivery, RefusesATableWithoutAWantedColumn) {
    ExpectRefused(kDeliver, "Columns=b,Reading",
                  QStringLiteral("The table from A has no column \"Reading\"."));
}

TEST_F(DownloadDelivery, RefusesATableOfTooFewRecords) {
    ExpectRefused(kDeliver, "MinimumRecords=2",
                  QStringLiteral("The table from A holds too few records: 1 instead of 2."));
}

TEST_F(DownloadDelivery, RefusesATableWithoutRecordsUnlessNoneIsFine) {
    const QByteArray script = "printf 'A,B\\n' > \"$1\"";
    ExpectRefused(script, {}, QStringLiteral("The table from A holds too few records: 0 instead of 1."));
    WriteDriver(QStringLiteral("A"), script, "[Delivered]\nMinimumRecords=0\n");
    EXPECT_NE(Downloaded(), QString());
}

TEST_F(DownloadDelivery, NeedsTheFileOfTypesOfTheDriver) {
    ExpectRefused(kDeliver, "Types=types.inf", QStringLiteral("The driver A lacks its file \"types.inf\"."));
    m_ui.messages.clear();
    ExpectRefused(kDeliver, "Types=../../x", QStringLiteral("The driver A lacks its file \"../../x\"."));
    EXPECT_EQ(m_progress.begun, QStringList());
}

TEST_F(DownloadDelivery, TellsWordsWithASeparatorInThemAsTheyAre) {
    ExpectRefused(kDeliver, "Columns=a|b", QStringLiteral("The table from A has no column \"a|b\"."));
    m_ui.messages.clear();
    ExpectRefused(kDeliver,
                  "Columns=a\xC2\xA6"
                  "b",
                  QStringLiteral("The table from A has no column \"a|b\"."));
}

class PutIntoFolderTest : public DriverTest {
  protected:
    QString Put(const std::optional<QByteArray>& types) const {
        return QDir(m_folder.path())
            .relativeFilePath(
                PutIntoFolder("A\n", types, Path(QStringLiteral("Data/x")).chopped(1), QStringLiteral("t")));
    }
};

TEST_F(PutIntoFolderTest, TakesTheNextNameWhenOneIsTaken) {
    Write(QStringLiteral("Data/t.csv"), "old");
    Write(QStringLiteral("Data/t_2.inf"), "old");
    EXPECT_EQ(Put("types"), QStringLiteral("Data/t_3.csv"));
    EXPECT_EQ(Put({}), QStringLiteral("Data/t_4.csv"));
    EXPECT_EQ(FilesIn(QStringLiteral("Data")),
              QStringList({QStringLiteral("Data/t.csv"), QStringLiteral("Data/t_2.inf"),
                           QStringLiteral("Data/t_3.csv"), QStringLiteral("Data/t_3.inf"),
                           QStringLiteral("Data/t_4.csv")}));
    EXPECT_EQ(Read(QStringLiteral("Data/t.csv")), "old");
}

TEST_F(PutIntoFolderTest, LeavesNothingBehindWhenItFails) {
    ASSERT_TRUE(QDir().mkpath(Path(QStringLiteral("Data/t.inf/x"))));
    const QStringList before = FilesIn(QStringLiteral("Data"));
    EXPECT_EQ(Put("types"), QStringLiteral("Data/t_2.csv"));
    EXPECT_EQ(FilesIn(QStringLiteral("Data")).size(), before.size() + 2);
    const QString file = Write(QStringLiteral("file"), "x");
    EXPECT_EQ(FailureOf([&] { std::ignore = PutIntoFolder("A\n", {}, file + u'/', QStringLiteral("t")); }),
              75);
    EXPECT_EQ(Read(QStringLiteral("file")), "x");
}

}  // namespace

}  // namespace sheetwright
