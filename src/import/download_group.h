#pragma once

// Processes that end together: a program and whatever it starts. Here the corners of the platform are.

#include <QProcess>

namespace sheetwright {

// The process will lead a group of its own, apart from this program's terminal; its id is that of the group.
void LeadOwnGroup(QProcess& process);

// Asks the group to end, or ends it without asking. An id of 0, of a process that never ran, is no group.
void TerminateGroup(qint64 group);
void KillGroup(qint64 group);
[[nodiscard]] bool IsGroupThere(qint64 group);

}  // namespace sheetwright
