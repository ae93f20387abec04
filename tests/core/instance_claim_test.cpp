#include "core/instance_claim.h"

#include "support/test_application.h"

#include <QDir>
#include <QFile>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace sheetwright {

namespace {

class Claim : public ApplicationTest {
  protected:
    Claim() : m_oldFolder(qgetenv("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
        qunsetenv("SHEETWRIGHT_CHANNEL");
    }
    ~Claim() override {
        qunsetenv("SHEETWRIGHT_CHANNEL");
        if (m_oldFolder.isNull()) {
            qunsetenv("XDG_RUNTIME_DIR");
        } else {
            qputenv("XDG_RUNTIME_DIR", m_oldFolder);
        }
    }
    [[nodiscard]] QStringList Locks() const {
        return QDir(m_folder.path()).entryList({QStringLiteral("*.lock")}, QDir::Files);
    }

    QByteArray m_oldFolder;
    const QString m_program = QStringLiteral("Tolvane Quillon Sheetwright");
};

TEST_F(Claim, IsHeldByOneAtATime) {
    InstanceClaim second;
    {
        InstanceClaim first;
        EXPECT_TRUE(first.Take(m_program));
        EXPECT_FALSE(second.Take(m_program));
    }
    EXPECT_TRUE(second.Take(m_program));
}

TEST_F(Claim, OtherProgramsAndChannelsDoNotCount) {
    InstanceClaim first;
    InstanceClaim viewer;
    InstanceClaim channel;
    EXPECT_TRUE(first.Take(m_program));
    EXPECT_TRUE(viewer.Take(QStringLiteral("Tolvane Ketterlin Professional Viewer")));
    qputenv("SHEETWRIGHT_CHANNEL", "second");
    EXPECT_TRUE(channel.Take(m_program));
}

TEST_F(Claim, OfACrashedProcessDoesNotBlock) {
    QString lock;
    QByteArray content;
    {
        InstanceClaim claim;
        EXPECT_TRUE(claim.Take(m_program));
        lock = Locks().value(0);
        content = Read(lock);
    }
    Write(lock, "999999999" + content.mid(content.indexOf('\n')));
    InstanceClaim next;
    EXPECT_TRUE(next.Take(m_program));
}

TEST_F(Claim, NamingAProcessThatNeverHeldItDoesNotBlock) {
    QString lock;
    QList<QByteArray> lines;
    {
        InstanceClaim claim;
        EXPECT_TRUE(claim.Take(m_program));
        lock = Locks().value(0);
        lines = Read(lock).split('\n');
    }
    Write(lock, lines.join('\n'));
    EXPECT_TRUE(InstanceClaim().Take(m_program)) << "its number given anew";
    lines[2] = "the-old-name-of-this-host";
    Write(lock, lines.join('\n'));
    EXPECT_TRUE(InstanceClaim().Take(m_program)) << "its host renamed";
}

TEST_F(Claim, OfAnotherProcessBlocksUntilThatIsKilled) {
    std::array<int, 2> taken{};
    ASSERT_EQ(::pipe(taken.data()), 0);
    const pid_t other = ::fork();
    if (other == 0) {
        ::alarm(60);  // should this test end before it can kill it
        InstanceClaim claim;
        const char answer = claim.Take(m_program) ? 'y' : 'n';
        if (::write(taken[1], &answer, 1) == 1) ::pause();
        ::_exit(0);
    }
    char answer = 0;
    EXPECT_EQ(::read(taken[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_FALSE(InstanceClaim().Take(m_program));
    EXPECT_FALSE(InstanceClaim().Take(m_program));
    ::kill(other, SIGKILL);
    EXPECT_EQ(::waitpid(other, nullptr, 0), other);
    EXPECT_TRUE(InstanceClaim().Take(m_program));
    ::close(taken[0]);
    ::close(taken[1]);
}

TEST_F(Claim, LeavesNothingBehind) {
    {
        InstanceClaim first;
        InstanceClaim second;
        EXPECT_TRUE(first.Take(m_program));
        EXPECT_FALSE(second.Take(m_program));
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
    EXPECT_TRUE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(Claim, OfAProcessThatCrashedWhileTakingItDoesNotBlock) {
    QString lock;
    {
        InstanceClaim claim;
        EXPECT_TRUE(claim.Take(m_program));
        lock = Locks().value(0);
    }
    Write(lock, "");
    InstanceClaim next;
    EXPECT_TRUE(next.Take(m_program));
}

TEST_F(Claim, ThatCannotBeWrittenDownIsGranted) {
    qputenv("SHEETWRIGHT_CHANNEL", "x");
    QString lock;
    {
        InstanceClaim claim;
        EXPECT_TRUE(claim.Take(m_program));
        lock = Locks().value(0);
    }
    QDir(m_folder.path()).mkdir(lock);
    InstanceClaim claim;
    EXPECT_TRUE(claim.Take(m_program));
}

}  // namespace

}  // namespace sheetwright
