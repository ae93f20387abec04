// The command line beside files of an installation: dictionary and error log. The executable is copied, so
// that each test has an installation of its own.

#include "apps/cli_test.h"

#include <memory>
#include <vector>

namespace sheetwright {

namespace {

using ::testing::StartsWith;

class CliInstallation : public CliTest {
  protected:
    CliInstallation() {
        EXPECT_TRUE(QFile::copy(QStringLiteral(SHEETWRIGHT_BIN_DIR "/sheetwright-cli"),
                                Path(QStringLiteral("sheetwright-cli"))));
        Write(QStringLiteral("bad.aff"), "PK\x03\x04 and nothing more");
    }

    void Start(QProcess& process, const QString& form) const {
        Prepare(process, {QStringLiteral("info"), form}, QStringLiteral("C.UTF-8"));
        process.setProgram(Path(QStringLiteral("sheetwright-cli")));
        process.start();
    }
    [[nodiscard]] CliResult RunHere() const {
        QProcess process;
        Start(process, QStringLiteral("bad.aff"));
        return ResultOf(process);
    }
    void RunSeveralAtOnce(const QString& form) const {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int number = 0; number < kCalls; ++number) {
            processes.push_back(std::make_unique<QProcess>());
            Start(*processes.back(), form);
        }
        for (const auto& process : processes)
            EXPECT_EQ(ResultOf(*process).status, 1);
    }

    static constexpr int kCalls = 16;
};

TEST_F(CliInstallation, DictionaryBesideTheProgramTranslates) {
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH,TRANSLATION\r\nError code %1,Fehlercode %1\r\n");
    EXPECT_THAT(RunHere().err, StartsWith("error: Fehlercode 321\n"));
}

TEST_F(CliInstallation, DictionaryOfOneColumnIsAFailure) {
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH\r\nTolvane Quillon Sheetwright\r\n");
    const CliResult result = RunHere();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 9: Subscript out of range\n");
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliInstallation, TablesThatEndInsideQuotesAreReadAsFarAsTheyGo) {
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH,TRANSLATION\r\nError code %1,\"Fehlercode %1");
    Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,\"11906");
    EXPECT_THAT(RunHere().err, StartsWith("error: Fehlercode 321\n"));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliInstallation, EachOfSeveralCallsAtOnceLogsItsError) {
    RunSeveralAtOnce(QStringLiteral("bad.aff"));
    const QByteArray log = Read(QStringLiteral("errors.csv"));
    EXPECT_EQ(log.count("\r\n"), kCalls + 1) << log.toStdString();
    EXPECT_EQ(log.count(",UnZipForm,321: Invalid file format,"), kCalls) << log.toStdString();
}

TEST_F(CliInstallation, EachOfSeveralCallsAtOnceLogsANameOfAnyLanguage) {
    Write(QStringLiteral("errors.csv"), "Date,Time,Application,Sub,Error,Additional\r\n");
    const QString name = QStringLiteral("\u03A9\u00FC.aff");
    ASSERT_TRUE(QFile::rename(Path(QStringLiteral("bad.aff")), Path(name)));
    RunSeveralAtOnce(name);
    EXPECT_EQ(Read(QStringLiteral("errors.csv")).count(name.toUtf8()), kCalls);
}

}  // namespace

}  // namespace sheetwright
