#pragma once

// The system's account of this process's memory, for benchmarks that report a peak.

#include <QByteArray>
#include <QFile>

namespace sheetwright {

// Bytes of a line such as "VmHWM:   1234 kB" of the system's account of this process; 0 where there is none.
inline double MemoryOf(const QByteArray& name) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(name)) return line.sliced(name.size()).chopped(3).trimmed().toDouble() * 1024;
    return 0;
}

// Starts the peak afresh, where the system can do that.
inline void ResetPeakMemory() {
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly)) clear.write("5");
}

}  // namespace sheetwright
