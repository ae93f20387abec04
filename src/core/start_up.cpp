#include "core/start_up.h"

#include "core/application.h"
#include "core/folders.h"
#include "core/paths.h"
#include "core/update_runner.h"

namespace sheetwright {

namespace {

constexpr int kPollMilliseconds = 1000;
constexpr int kShortestFileName = 5;

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

}  // namespace sheetwright
