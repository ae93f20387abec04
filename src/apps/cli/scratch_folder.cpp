#include "apps/cli/scratch_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <csignal>
#include <system_error>
#include <thread>

namespace sheetwright::cli {

namespace {

constexpr QLatin1String kName("sheetwright-");
constexpr QLatin1String kMark("/in-use");

// Blocks the signals that end a process, without those that whoever started this one has it ignore.
sigset_t BlockEndingSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler != SIG_IGN) sigaddset(&ending, number);
    }
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    return ending;
}

// Waits for an ending signal, removes the folder, and lets the signal have its way. Work may still go on in
// the folder meanwhile.
[[noreturn]] void AwaitEnd(const sigset_t& ending, const QString& folder) {
    constexpr int kAttempts = 100;
    int number = SIGTERM;
    sigwait(&ending, &number);
    // An empty name would be the current folder.
    for (int attempt = 0; attempt < kAttempts && !folder.isEmpty() && QFileInfo::exists(folder); ++attempt)
        QDir(folder).removeRecursively();
    std::signal(number, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
    kill(getpid(), number);
    _exit(128 + number);
}

// Locks a file for as long as the handle is open; -1 when there is none or another process has it locked.
int TryHold(const QString& path, int flags) {
    const int handle = ::open(QFile::encodeName(path).constData(),
                              flags | O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    if (handle < 0 || ::flock(handle, LOCK_EX | LOCK_NB) == 0) return handle;
    ::close(handle);
    return -1;
}

// The mark is locked before it bears its name, so that one without a lock is always that of a dead process.
int TakeInUse(const QString& folder) {
    if (folder.isEmpty()) return -1;
    const QString unnamed = folder + QStringLiteral("/new-mark");
    const int hold = TryHold(unnamed, O_CREAT | O_EXCL);
    if (hold >= 0) QFile::rename(unnamed, folder + kMark);
    return hold;
}

// Where a new folder goes. Those of this user that lie there with the mark of a dead process are cleared
// away.
QString RoomForFolder() {
    const QDir root(QDir::tempPath());
    const QStringList names{kName + QStringLiteral("??????")};
    for (const QFileInfo& folder : root.entryInfoList(names, QDir::Dirs | QDir::NoSymLinks)) {
        if (folder.ownerId() != ::geteuid()) continue;
        const int hold = TryHold(folder.filePath() + kMark, 0);
        if (hold < 0) continue;
        QDir(folder.filePath()).removeRecursively();
        ::close(hold);
    }
    return root.filePath(kName + QStringLiteral("XXXXXX"));
}

}  // namespace

ScratchFolder::ScratchFolder()
    : m_ending(BlockEndingSignals()), m_folder(RoomForFolder()), m_hold(TakeInUse(m_folder.path())) {
    // A pipe that nobody reads and a file beyond its limit are failures of the write, not the process's end.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        std::thread([ending = m_ending, folder = m_folder.path()] { AwaitEnd(ending, folder); }).detach();
    } catch (const std::system_error&) {  // no room for a thread: better leave a folder than be deaf
        pthread_sigmask(SIG_UNBLOCK, &m_ending, nullptr);
    }
}

ScratchFolder::~ScratchFolder() {
    if (m_hold >= 0) ::close(m_hold);
}

}  // namespace sheetwright::cli
