#include "import/download_run.h"

#include "import/driver_fixture.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QTimer>

#include <gmock/gmock.h>
#include <signal.h>

namespace sheetwright {

namespace {

using ::testing::HasSubstr;

// What has ended, and only waits for its parent to look, counts as ended.
bool IsRunning(qint64 process) {
    if (::kill(static_cast<pid_t>(process), 0) != 0) return false;
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    return !status.open(QIODevice::ReadOnly) || !status.readAll().contains(") Z ");
}

class DownloadRunTest : public DriverTest {
  protected:
    // The scripts leave the numbers of their processes here.
    std::vector<qint64> Processes() const {
        std::vector<qint64> processes;
        for (const QByteArray& line : Read(QStringLiteral("DRIVERS/A/processes")).split('\n'))
            if (!line.isEmpty()) processes.push_back(line.toLongLong());
        return processes;
    }
    void ExpectAllEnded(std::size_t count) const {
        const std::vector<qint64> processes = Processes();
        EXPECT_EQ(processes.size(), count);
        for (const qint64 process : processes)
            EXPECT_FALSE(IsRunning(process)) << process;
    }
    // A program that says "ready" and goes on for ever, with another one that it has started.
    void WriteHanging(const QByteArray& before, const QByteArray& keys = {}) const {
        WriteDriver(QStringLiteral("A"),
                    before +
                        "sleep 1000 & echo $! >> \"$2/processes\"; echo $$ >> \"$2/processes\"\n"
                        "printf 'A,' > \"$1\"; echo ready; wait; wait\n",
                    keys);
    }
    void CancelWhenReady() {
        m_progress.When(QStringLiteral("ready"), [this] { m_progress.cancel(); });
    }
};

TEST_F(DownloadRunTest, TellsTheCodeAndTheLastWordsOfAProgramThatFails) {
    WriteDriver(QStringLiteral("A"), kDeliver + "echo 'no answer'; echo 'at COM1' >&2; exit 3");
    ExpectNothing({QStringLiteral("The program of A has failed (code 3).\n\nno answer\nat COM1")});
    EXPECT_EQ(m_progress.output, QStringLiteral("no answer\nat COM1\n"));
    EXPECT_EQ(m_progress.ends, 1);
}

TEST_F(DownloadRunTest, DeliversNoHalfTableOfAProgramThatFails) {
    WriteDriver(QStringLiteral("A"), "printf 'A,B\\n1,' > \"$1\"; mkdir sub; : > sub/.x; exit 1");
    ExpectNothing({QStringLiteral("The program of A has failed (code 1).")});
}

TEST_F(DownloadRunTest, TellsOfAProgramThatCrashes) {
    WriteDriver(QStringLiteral("A"), kDeliver + "kill -SEGV $$");
    ExpectNothing({QStringLiteral("The program of A has crashed.")});
}

TEST_F(DownloadRunTest, TellsOfAProgramThatCannotBeStarted) {
    WriteDriver(QStringLiteral("A"), {});
    WriteProgram(QStringLiteral("DRIVERS/A/fetch"), {});
    QFile file(Path(QStringLiteral("DRIVERS/A/fetch")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/no/such/interpreter\n");
    file.close();
    ExpectNothing({QStringLiteral("The program of A cannot be started.")});
    EXPECT_EQ(m_progress.ends, 1);
}

TEST_F(DownloadRunTest, IsQuietlyCancelled) {
    WriteHanging({});
    CancelWhenReady();
    ExpectNothing({});
    ExpectAllEnded(2);
    EXPECT_EQ(m_progress.ends, 1);
    m_progress.cancel();
}

TEST_F(DownloadRunTest, KillsWhatDoesNotEndWhenCancelled) {
    WriteHanging("trap '' TERM\n");
    CancelWhenReady();
    ExpectNothing({});
    ExpectAllEnded(2);
}

TEST_F(DownloadRunTest, StartsNothingWhenItIsCancelledAtOnce) {
    WriteDriver(QStringLiteral("A"), "echo $$ > \"$2/processes\"\n" + kDeliver);
    m_progress.onBegin = [&] { m_progress.cancel(); };
    ExpectNothing({});
    EXPECT_FALSE(FileExists(m_folder.filePath(QStringLiteral("DRIVERS/A/processes"))));
    EXPECT_EQ(m_progress.ends, 1);
}

TEST_F(DownloadRunTest, EndsAtItsTimeLimit) {
    WriteHanging({}, "TimeLimit=1\n");
    ExpectNothing({QStringLiteral("The program of A took longer than 1 seconds and was stopped.\n\nready")});
    ExpectAllEnded(2);
}

TEST_F(DownloadRunTest, EndsWhatTheProgramLeavesRunning) {
    WriteDriver(QStringLiteral("A"), "sleep 1000 & echo $! > \"$2/processes\"\n" + kDeliver);
    EXPECT_NE(Downloaded(), QString());
    ExpectAllEnded(1);
}

TEST_F(DownloadRunTest, EndsWithTheApplication) {
    WriteHanging({});
    m_progress.When(QStringLiteral("ready"), [] { QCoreApplication::exit(); });
    QTimer::singleShot(0, qApp, [&] { ExpectNothing({}); });
    QCoreApplication::exec();
    ExpectAllEnded(2);
    EXPECT_EQ(m_progress.ends, 1);
}

TEST_F(DownloadRunTest, TakesMuchOutputInSmallPieces) {
    WriteDriver(QStringLiteral("A"), "head -c 50000000 /dev/zero | tr '\\0' 'x'\necho done\n" + kDeliver);
    EXPECT_NE(Downloaded(), QString());
    EXPECT_LE(m_progress.longest, 65'540);
    EXPECT_TRUE(m_progress.output.endsWith(QStringLiteral("xdone\n")));
}

TEST_F(DownloadRunTest, StopsEndlessOutput) {
    WriteDriver(QStringLiteral("A"), "echo $$ > \"$2/processes\"\nexec yes");
    ExpectNothing(
        {QStringLiteral("The program of A wrote too much and was stopped.\n\ny\ny\ny\ny\ny\ny\ny\ny\ny\ny")});
    ExpectAllEnded(1);
}

TEST_F(DownloadRunTest, StopsAnEndlessTable) {
    WriteDriver(QStringLiteral("A"), "truncate -s 101M \"$1\"; echo $$ > \"$2/processes\"; exec sleep 1000");
    ExpectNothing({QStringLiteral("The program of A wrote too much and was stopped.")});
    ExpectAllEnded(1);
}

TEST_F(DownloadRunTest, HasNothingToRead) {
    WriteDriver(QStringLiteral("A"), "read line && exit 1\n" + kDeliver);
    EXPECT_NE(Downloaded(), QString());
}

TEST_F(DownloadRunTest, RunsInAPrivateFolder) {
    WriteDriver(QStringLiteral("A"), "pwd; stat -c %a .; dirname \"$1\"; echo x > left\n" + kDeliver);
    EXPECT_NE(Downloaded(), QString());
    const QStringList lines = m_progress.output.split(u'\n');
    EXPECT_THAT(lines[0].toStdString(), HasSubstr("/TEMP/download-"));
    EXPECT_EQ(lines[1], QStringLiteral("700"));
    EXPECT_EQ(lines[2], lines[0]);
    EXPECT_EQ(FilesIn(QStringLiteral("TEMP")), QStringList());
}

TEST_F(DownloadRunTest, KeepsPathsWithBlanksAndQuotesInOneArgument) {
    const QString name = QStringLiteral("My 5\" tester's");
    WriteDriver(name, "printf '%s|' \"$@\"\n" + kDeliver, {});
    const QString path = Downloaded();
    const QString folder = m_folder.path() + QStringLiteral("/DRIVERS/") + name;
    EXPECT_EQ(GetFolder(path), folder + QStringLiteral("/Data/"));
    const QStringList arguments = m_progress.output.split(u'|');
    EXPECT_EQ(arguments.size(), 4);
    EXPECT_EQ(GetFileName(arguments[0]), GetFileName(path));
    EXPECT_EQ(arguments[1], folder);
    EXPECT_EQ(arguments[2], folder + QStringLiteral("/Data"));
}

TEST_F(DownloadRunTest, PutsValuesInOnceAndRunsNoArgument) {
    WriteInDriver(QStringLiteral("{data}/DRIVER.INF"),
                  "[Download]\nProgram=fetch\nArguments={output} $(touch${IFS}x) `id` ;touch y "
                  "--at={driver}! {else} {{output}\n");
    WriteProgram(QStringLiteral("DRIVERS/{data}/fetch"), "printf '%s|' \"$@\"; ls\n" + kDeliver);
    EXPECT_NE(Downloaded(), QString());
    const QStringList arguments = m_progress.output.split(u'|');
    EXPECT_EQ(
        arguments.mid(1, 6),
        QStringList({QStringLiteral("$(touch${IFS}x)"), QStringLiteral("`id`"), QStringLiteral(";touch"),
                     QStringLiteral("y"), QStringLiteral("--at=%1/DRIVERS/{data}!").arg(m_folder.path()),
                     QStringLiteral("{else}")}));
    EXPECT_EQ(arguments.value(7), u'{' + arguments.value(0));
    EXPECT_EQ(arguments.value(8), QString());
}

}  // namespace

}  // namespace sheetwright
