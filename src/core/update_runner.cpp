#include "core/update_runner.h"

#include "core/application.h"
#include "core/paths.h"
#include "core/pause.h"

#include <QFile>
#include <QProcess>

#include <signal.h>

namespace sheetwright {

namespace {

constexpr int kLongestWait = 60;  // seconds

QString RunnerPath(const Application& application) {
    for (const QString& name : {QStringLiteral("RunOnce.exe"), QStringLiteral("RunOnce")})
        if (FileExists(application.InstallFolder + name)) return OnDisk(application.InstallFolder + name);
    return QString();
}

// A process that has ended and whose parent has not asked for its result yet counts as ended.
bool IsProcessRunning(qint64 process) {
    if (::kill(static_cast<pid_t>(process), 0) != 0) return false;
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    return !status.open(QIODevice::ReadOnly) || !status.readAll().contains(") Z ");
}

}  // namespace

void RunUpdateRunner(Application& application) {
    RunUpdateRunner(application, [&application] { Pause(1, application.ui); });
}

void RunUpdateRunner(Application& application, const std::function<void()>& waitOneSecond) {
    const QString runner = RunnerPath(application);
    qint64 process = 0;
    if (runner.isEmpty() || !QProcess::startDetached(runner, {}, application.InstallFolder, &process)) return;
    WaitForRunner([process] { return IsProcessRunning(process); }, waitOneSecond);
}

void WaitForRunner(const std::function<bool()>& isRunning, const std::function<void()>& waitOneSecond) {
    for (int seconds = 0; seconds < kLongestWait; ++seconds) {
        waitOneSecond();
        if (!isRunning()) return;
    }
}

}  // namespace sheetwright
