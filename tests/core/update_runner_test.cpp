#include "core/update_runner.h"

#include "support/test_application.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

namespace sheetwright {

namespace {

TEST(WaitForRunner, WaitsASecondBeforeItAsks) {
    int waits = 0;
    WaitForRunner([] { return false; }, [&] { ++waits; });
    EXPECT_EQ(waits, 1);
}

TEST(WaitForRunner, AsksUntilTheRunnerHasEnded) {
    int waits = 0;
    WaitForRunner([&] { return waits < 7; }, [&] { ++waits; });
    EXPECT_EQ(waits, 7);
}

TEST(WaitForRunner, GivesUpAfterSixtySeconds) {
    int waits = 0;
    WaitForRunner([] { return true; }, [&] { ++waits; });
    EXPECT_EQ(waits, 60);
}

class UpdateRunner : public ApplicationTest {
  protected:
    void WriteRunner(const QString& name, const QByteArray& script) {
        const QString path = Write(name, script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // Waits given, each of which lasts until the runner has left its mark.
    int Waits() {
        int waits = 0;
        RunUpdateRunner(*m_application, [&] {
            ++waits;
            const QDeadlineTimer limit(30'000);
            while (!QFile::exists(m_folder.filePath(QStringLiteral("mark"))) && !limit.hasExpired())
                QThread::yieldCurrentThread();
        });
        return waits;
    }
};

TEST_F(UpdateRunner, NoneIsStartedWhereNoneIs) {
    EXPECT_EQ(Waits(), 0);
}

TEST_F(UpdateRunner, IsStartedInTheInstallFolder) {
    for (const QString& name : {QStringLiteral("RunOnce.exe"), QStringLiteral("RunOnce")}) {
        WriteRunner(name, "#!/bin/sh\necho x > mark\n");
        EXPECT_GE(Waits(), 1) << name.toStdString();
        EXPECT_TRUE(QFile::remove(m_folder.filePath(QStringLiteral("mark")))) << name.toStdString();
        QFile::remove(m_folder.filePath(name));
    }
}

TEST_F(UpdateRunner, IsWaitedForWhileItRuns) {
    // Runs for as long as its own file is there, so that it can't outlive the folder of the test.
    WriteRunner(QStringLiteral("RunOnce.exe"), "#!/bin/sh\nwhile [ -e RunOnce.exe ]; do :; done\n");
    int waits = 0;
    RunUpdateRunner(*m_application, [&] {
        if (++waits == 3) QFile::remove(m_folder.filePath(QStringLiteral("RunOnce.exe")));
    });
    EXPECT_GE(waits, 3);
    EXPECT_LE(waits, 60);
}

TEST_F(UpdateRunner, FolderOfItsNameIsNone) {
    QDir(m_folder.path()).mkdir(QStringLiteral("RunOnce.exe"));
    EXPECT_EQ(Waits(), 0);
}

TEST_F(UpdateRunner, RunnerThatCannotBeStartedIsIgnored) {
    Write(QStringLiteral("RunOnce.exe"), "no program");
    QFile::setPermissions(m_folder.filePath(QStringLiteral("RunOnce.exe")), QFile::ReadOwner);
    EXPECT_EQ(Waits(), 0);
    EXPECT_TRUE(m_ui.messages.empty());
}

}  // namespace

}  // namespace sheetwright
