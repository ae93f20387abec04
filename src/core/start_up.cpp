#include "core/start_up.h"

#include "core/application.h"
#include "core/folders.h"
#include "core/paths.h"
#include "core/pause.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QProcess>

#include <signal.h>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

constexpr int kRunnerSeconds = 60;
constexpr int kPollMilliseconds = 1000;
constexpr int kShortestFileName = 5;

// A claimed lock is stale only when its process is gone, however old it is.
constexpr int kNeverStaleByAge = 0;

void PublishInstallLocation(Application& application) {
    const auto publish = [&application](const QString& section, const QString& name) {
        const QString updater = QStringLiteral("AutoUpdater");
        application.settings.Write(updater, section, QStringLiteral("Path"), application.InstallFolder);
        application.settings.Write(updater, section, QStringLiteral("Name"), name);
    };
    if (application.ViewerMode) {
        publish(QStringLiteral("Dunmorrow"), QStringLiteral("Tolvane Quillon Viewer"));
    } else if (application.ReportMode) {
        publish(QStringLiteral("Tolvane Reports"), QStringLiteral("Tolvane Reports"));
    } else {
        publish(QStringLiteral("Tolvane Quillon"), QStringLiteral("Tolvane Quillon"));
    }
}

bool HasSplash(const Application& application) {
    return application.ViewerMode || !application.ReportMode;
}

void ShowSplash(Application& application, StartUpActions& actions) {
    if (application.ViewerMode) actions.SetSplashProductLine(application.Translate(QStringLiteral("Viewer")));
    if (HasSplash(application)) actions.ShowSplash();
    application.ui.PumpMessages();
}

void BringUpMainWindow(Application& application, StartUpActions& actions) {
    actions.LoadMainWindow();
    if (application.ReportMode) {
        actions.SetMainWindowCaption(application.Title);
    } else {
        actions.ShowMainWindow();
    }
    actions.CloseSplash();
}

bool IsSettingTrue(const Application& application, const QString& section, const QString& key) {
    return application.Str2Boolean(
        application.settings.Read(application.Title, section, key, QStringLiteral("True")));
}

// The name as the dialog left it: upper-case endings are not taken, unlike those on the command line.
void OpenWhatTheDialogNames(Application& application, StartUpActions& actions) {
    const QString path = actions.DialogFileName();
    if (path.size() < kShortestFileName || path.startsWith(QStringLiteral("*."))) return;
    if (path.endsWith(QStringLiteral(".aft"))) {
        SetTemplateFolder(application, GetFolder(path));
        actions.OpenTemplate(path);
    } else if (path.endsWith(QStringLiteral(".aff"))) {
        SetFormFolder(application, GetFolder(path));
        actions.OpenForm();
    }
}

void Welcome(Application& application, StartUpActions& actions) {
    if (IsSettingTrue(application, QStringLiteral("Settings"), QStringLiteral("Tipsyn")))
        actions.ShowTipOfTheDay();
    const bool wantsWelcome =
        IsSettingTrue(application, QStringLiteral("frmWelcome"), QStringLiteral("ShowOnStartup"));
    if (!application.ViewerMode && wantsWelcome) actions.ShowWelcome();
    OpenWhatTheDialogNames(application, actions);
}

void RunToken(StartUpActions& actions, const QString& token) {
    if (token.endsWith(QStringLiteral(".aft"), Qt::CaseInsensitive)) {
        actions.OpenTemplate(token);
    } else if (token.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive)) {
        actions.SetDialogFileName(token);
        actions.OpenForm();
    } else if (token.compare(QStringLiteral("/IPC"), Qt::CaseInsensitive) == 0) {
        actions.SetPollInterval(kPollMilliseconds);
    }
}

// Files named on the command line don't change the user's default folders.
void RunCommandLine(Application& application, StartUpActions& actions, const QString& commandLine) {
    const RememberedFolders folders(application);
    for (const QString& token : CommandLineTokens(commandLine))
        RunToken(actions, token);
}

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

QString ClaimPath(const QString& program) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& part : {program, qEnvironmentVariable("SHEETWRIGHT_CHANNEL"), QDir::homePath()}) {
        hash.addData(part.toUtf8());
        hash.addData(QByteArrayView("\0", 1));
    }
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString folder = !runtime.isEmpty() && QDir(runtime).exists() ? runtime : QDir::tempPath();
    return folder + QStringLiteral("/sheetwright-") + QString::fromLatin1(hash.result().toHex().first(32)) +
           QStringLiteral(".lock");
}

// A lock whose holder crashed before it had written its name.
bool IsNobodysLock(const QLockFile& lock) {
    qint64 process = 0;
    QString host;
    QString program;
    return lock.error() == QLockFile::LockFailedError && !lock.getLockInfo(&process, &host, &program);
}

}  // namespace

bool Main(Application& application, StartUpActions& actions, const QString& commandLine) {
    if (!actions.ClaimInstance()) return false;
    RunUpdateRunner(application);
    PublishInstallLocation(application);
    application.LoadLanguage();
    application.LoadPaperTable();
    ShowSplash(application, actions);
    SweepTempDirectories(application);
    BringUpMainWindow(application, actions);
    if (commandLine.isEmpty()) {
        Welcome(application, actions);
    } else {
        RunCommandLine(application, actions, commandLine);
    }
    return true;
}

QStringList CommandLineTokens(const QString& commandLine) {
    QStringList tokens;
    QString token;
    bool isQuoted = false;
    for (const QChar character : commandLine + u' ') {
        if (character == u'"') {
            isQuoted = !isQuoted;
        } else if (character == u' ' && !isQuoted) {
            tokens << token;
            token.clear();
        } else {
            token += character;
        }
    }
    return tokens;
}

QString CommandLineOf(const QStringList& arguments) {
    QStringList tokens;
    for (QString token : arguments) {
        token.remove(u'"');
        const bool needsQuotes = token.isEmpty() || token.contains(u' ');
        tokens << (needsQuotes ? u'"' + token + u'"' : token);
    }
    return tokens.join(u' ');
}

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
    for (int seconds = 0; seconds < kRunnerSeconds; ++seconds) {
        waitOneSecond();
        if (!isRunning()) return;
    }
}

InstanceClaim::InstanceClaim() = default;
InstanceClaim::~InstanceClaim() = default;

bool InstanceClaim::Take(const QString& program) {
    m_lock = std::make_unique<QLockFile>(ClaimPath(program));
    m_lock->setStaleLockTime(kNeverStaleByAge);
    if (!m_lock->tryLock() && IsNobodysLock(*m_lock)) {
        m_lock->removeStaleLockFile();
        m_lock->tryLock();
    }
    return m_lock->isLocked() || m_lock->error() != QLockFile::LockFailedError;
}

}  // namespace sheetwright
