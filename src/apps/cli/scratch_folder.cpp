#include "apps/cli/scratch_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <system_error>
#include <thread>

namespace sheetwright::cli {

namespace {

constexpr QLatin1String kTemplate("sheetwright-XXXXXX");
constexpr QLatin1String kPattern("sheetwright-??????");
constexpr int kSweepLimit = 100;

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

// A handle that holds a folder of this user's against other processes; -1 when another process holds it.
int TryHold(const QString& folder) {
    const int handle = ::open(QFile::encodeName(folder).constData(),
                              O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat status {};
    if (handle >= 0 && ::fstat(handle, &status) == 0 && status.st_uid == ::geteuid() &&
        ::flock(handle, LOCK_EX | LOCK_NB) == 0)
        return handle;
    if (handle >= 0) ::close(handle);
    return -1;
}

// Folders that no process holds are those of killed ones.
void SweepAbandoned() {
    const QDir root(QDir::tempPath());
    int count = 0;
    for (const QString& name : root.entryList({kPattern}, QDir::Dirs | QDir::NoSymLinks)) {
        if (++count > kSweepLimit) return;
        const int hold = TryHold(root.filePath(name));
        if (hold < 0) continue;
        QDir(root.filePath(name)).removeRecursively();
        ::close(hold);
    }
}

QString TemplateInTemp() {
    SweepAbandoned();
    return QDir::tempPath() + QLatin1Char('/') + kTemplate;
}

}  // namespace

ScratchFolder::ScratchFolder()
    : m_ending(BlockEndingSignals()), m_folder(TemplateInTemp()), m_hold(TryHold(m_folder.path())) {
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
