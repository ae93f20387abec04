#include "import/download_group.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>

namespace sheetwright {

namespace {

// A group of 0 or 1 would mean this program's own, or everybody.
bool Signal(qint64 group, int signal) {
    return group > 1 && (::kill(static_cast<pid_t>(-group), signal) == 0 || errno == EPERM);
}

}  // namespace

void LeadOwnGroup(QProcess& process) {
    process.setChildProcessModifier([] { ::setsid(); });
}

void TerminateGroup(qint64 group) {
    Signal(group, SIGTERM);
}

void KillGroup(qint64 group) {
    Signal(group, SIGKILL);
}

bool IsGroupThere(qint64 group) {
    return Signal(group, 0);
}

}  // namespace sheetwright
