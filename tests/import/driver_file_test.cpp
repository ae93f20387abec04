#include "import/driver_file.h"

#include "import/driver_fixture.h"

namespace sheetwright {

namespace {

class ReadDriverFileTest : public ApplicationTest {
  protected:
    DriverFile FileOf(const QByteArray& inf) const {
        Write(QStringLiteral("AT310/DRIVER.INF"), inf);
        return ReadDriverFile(m_folder.filePath(QStringLiteral("AT310")));
    }
};

TEST_F(ReadDriverFileTest, TakesAllKeys) {
    Write(QStringLiteral("AT310/icon.svg"), "<svg/>");
    const DriverFile driver = FileOf(
        "[Driver]\r\nName=Tester 310\r\nMaker=Orvane\r\nIcon=icon.svg\r\nVersion=4\r\n"
        "[Download]\r\nProgram=fetch\r\nArguments=--to {output} \"a b\"\r\nTimeLimit=20\r\n"
        "[Delivered]\r\nColumns=Asset,\"Name, long\"\r\nMinimumRecords=3\r\nTypes=types.inf\r\n");
    EXPECT_EQ(driver.folder, m_folder.path() + QStringLiteral("/AT310/"));
    EXPECT_EQ(driver.name, QStringLiteral("AT310"));
    EXPECT_EQ(driver.caption, QStringLiteral("Tester 310"));
    EXPECT_EQ(driver.icon, m_folder.path() + QStringLiteral("/AT310/icon.svg"));
    EXPECT_EQ(driver.version, 4);
    EXPECT_EQ(driver.program, QStringLiteral("fetch"));
    EXPECT_EQ(driver.arguments,
              QStringList({QStringLiteral("--to"), QStringLiteral("{output}"), QStringLiteral("a b")}));
    EXPECT_EQ(driver.timeLimit, 20);
    EXPECT_EQ(driver.columns, QStringList({QStringLiteral("Asset"), QStringLiteral("Name, long")}));
    EXPECT_EQ(driver.minimumRecords, 3);
    EXPECT_EQ(driver.types, QStringLiteral("types.inf"));
}

TEST_F(ReadDriverFileTest, HasDefaultsForWhatIsMissing) {
    for (const QByteArray& inf :
         {QByteArray(), QByteArray("nothing\n\n="), QByteArray("[Driver]\nName=\n")}) {
        const DriverFile driver = FileOf(inf);
        EXPECT_EQ(driver.name, QStringLiteral("AT310"));
        EXPECT_EQ(driver.caption, QStringLiteral("AT310"));
        EXPECT_EQ(driver.icon, QString());
        EXPECT_EQ(driver.version, 0);
        EXPECT_EQ(driver.program, QString());
        EXPECT_EQ(driver.arguments, QStringList());
        EXPECT_EQ(driver.timeLimit, 300);
        EXPECT_EQ(driver.columns, QStringList());
        EXPECT_EQ(driver.minimumRecords, 1);
        EXPECT_EQ(driver.types, QString());
    }
}

TEST_F(ReadDriverFileTest, OfAFolderWithoutOneHasDefaults) {
    const DriverFile driver = ReadDriverFile(Path(QStringLiteral("PC50/x")) + QStringLiteral("//"));
    EXPECT_EQ(driver.name, QStringLiteral("x"));
    EXPECT_EQ(driver.program, QString());
}

TEST_F(ReadDriverFileTest, IgnoresCaseBlanksCommentsAndUnknownKeys) {
    const DriverFile driver = FileOf(
        "\xEF\xBB\xBF; first\n  [ DOWNLOAD ]  \n# second\n  program =  fetch  "
        "\nColour=red\n[Else]\nProgram=other\n");
    EXPECT_EQ(driver.program, QStringLiteral("fetch"));
}

TEST_F(ReadDriverFileTest, TakesTheFirstOfEqualKeys) {
    EXPECT_EQ(FileOf("[Download]\nProgram=a\nProgram=b\n[Download]\nProgram=c\n").program,
              QStringLiteral("a"));
}

TEST_F(ReadDriverFileTest, ReadsTextInQuotesButLeavesThoseOfArguments) {
    const DriverFile driver = FileOf("[Download]\nProgram=\" my fetch \"\nArguments=\"a b\" \"c d\"\n");
    EXPECT_EQ(driver.program, QStringLiteral("my fetch"));
    EXPECT_EQ(driver.arguments, QStringList({QStringLiteral("a b"), QStringLiteral("c d")}));
}

TEST_F(ReadDriverFileTest, ReadsTheCodePageToo) {
    EXPECT_EQ(FileOf("[Driver]\nName=Pr\xFC"
                     "fer\n")
                  .caption,
              QStringLiteral(u"Pr\u00FCfer"));
}

TEST_F(ReadDriverFileTest, NumbersOutOfRangeHaveTheirDefaults) {
    for (const QByteArray limit : {"0", "86401", "-1", "1.5", "99999999999", "ten"})
        EXPECT_EQ(FileOf("[Download]\nTimeLimit=" + limit).timeLimit, 300) << limit.toStdString();
    EXPECT_EQ(FileOf("[Download]\nTimeLimit=1").timeLimit, 1);
    EXPECT_EQ(FileOf("[Download]\nTimeLimit=86400").timeLimit, 86400);
    EXPECT_EQ(FileOf("[Delivered]\nMinimumRecords=-1").minimumRecords, 1);
    EXPECT_EQ(FileOf("[Delivered]\nMinimumRecords=0").minimumRecords, 0);
    EXPECT_EQ(FileOf("[Driver]\nVersion=-3").version, 0);
}

TEST_F(ReadDriverFileTest, PassesOverLinesWithZeroBytes) {
    const DriverFile driver = FileOf(QByteArray("[Download]\nProgram=a\0b\nProgram=c\n", 33));
    EXPECT_EQ(driver.program, QStringLiteral("c"));
}

TEST_F(ReadDriverFileTest, ReadsNothingOfAnEndlessFile) {
    EXPECT_EQ(FileOf("[Download]\nProgram=a\n" + QByteArray(2 << 20, 'x')).program, QString());
}

TEST_F(ReadDriverFileTest, TakesNoIconFromElsewhere) {
    Write(QStringLiteral("icon.svg"), "<svg/>");
    const QString link = Path(QStringLiteral("AT310/link.svg"));
    ASSERT_TRUE(QFile::link(QStringLiteral("../icon.svg"), link));
    for (const QByteArray& icon :
         {QByteArray("../icon.svg"), QByteArray("..\\icon.svg"), QByteArray("link.svg"),
          QByteArray("none.svg"), Path(QStringLiteral("icon.svg")).toUtf8()})
        EXPECT_EQ(FileOf("[Driver]\nIcon=" + icon).icon, QString()) << icon.toStdString();
}

TEST_F(ReadDriverFileTest, BlankColumnsAreNone) {
    EXPECT_EQ(FileOf("[Delivered]\nColumns= A , ,B,\"\",\"C").columns,
              QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
}

}  // namespace

}  // namespace sheetwright
