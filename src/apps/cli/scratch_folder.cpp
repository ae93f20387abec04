#include "apps/cli/scratch_folder.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

#include <csignal>
#include <thread>

namespace sheetwright::cli {

namespace {

// Blocks the signals that end a process, without those that whoever started this one has it ignore.
sigset_t BlockEndingSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
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

}  // namespace

ScratchFolder::ScratchFolder()
    : m_ending(BlockEndingSignals()), m_folder(QDir::tempPath() + QStringLiteral("/sheetwright-XXXXXX")) {
    std::signal(SIGPIPE, SIG_IGN);
    std::thread([ending = m_ending, folder = m_folder.path()] { AwaitEnd(ending, folder); }).detach();
}

}  // namespace sheetwright::cli
