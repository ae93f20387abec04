#include "apps/cli/scratch_folder.h"

#include <QDir>

#include <unistd.h>

#include <csignal>
#include <thread>

namespace sheetwright::cli {

namespace {

// The ending signals, without those that whoever started this process has it ignore.
sigset_t EndingSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler != SIG_IGN) sigaddset(&ending, number);
    }
    return ending;
}

// Waits for an ending signal, removes the folder, and lets the signal have its way.
[[noreturn]] void AwaitEnd(const sigset_t& ending, const QString& folder) {
    int number = SIGTERM;
    sigwait(&ending, &number);
    QDir(folder).removeRecursively();
    std::signal(number, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
    kill(getpid(), number);
    _exit(128 + number);
}

}  // namespace

ScratchFolder::ScratchFolder() : m_folder(QDir::tempPath() + QStringLiteral("/sheetwright-XXXXXX")) {
    std::signal(SIGPIPE, SIG_IGN);
    const sigset_t ending = EndingSignals();
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    std::thread([ending, folder = m_folder.path()] { AwaitEnd(ending, folder); }).detach();
}

}  // namespace sheetwright::cli
