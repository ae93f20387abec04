#pragma once

// The order in which the program starts. Windows are behind `StartUpActions`, so that the order itself, the
// command line and everything that is decided without a window can be tested without one.

#include <QString>
#include <QStringList>

namespace sheetwright {

class Application;

// What `Main` asks of the deployment.
class StartUpActions {
  public:
    StartUpActions() = default;
    StartUpActions(const StartUpActions&) = delete;
    StartUpActions& operator=(const StartUpActions&) = delete;
    virtual ~StartUpActions() = default;

    // Claims to be the only instance of this program for this user on this channel, for as long as it runs.
    // False when another one holds the claim.
    virtual bool ClaimInstance() = 0;
    virtual void SetSplashProductLine(const QString& text) = 0;
    virtual void ShowSplash() = 0;
    virtual void CloseSplash() = 0;
    virtual void LoadMainWindow() = 0;
    virtual void ShowMainWindow() = 0;
    virtual void SetMainWindowCaption(const QString& caption) = 0;
    virtual void ShowTipOfTheDay() = 0;
    virtual void ShowWelcome() = 0;
    virtual QString DialogFileName() = 0;  // the file-name slot of the shared file dialog
    virtual void SetDialogFileName(const QString& path) = 0;
    virtual void OpenTemplate(const QString& path) = 0;  // `OpenaftFile`
    virtual void OpenForm() = 0;                         // the form in the dialog's file-name slot
    virtual void SetPollInterval(int milliseconds) = 0;  // of the message channel
};

// Runs the whole start-up. Returns false when a previous instance is running: end at once, nothing was shown
// or written. `commandLine` is the text behind the program's name, as typed.
bool Main(Application& application, StartUpActions& actions, const QString& commandLine);

// The tokens of a command line: each blank outside double quotes ends one, even an empty one; the quotes are
// dropped. An unbalanced quote loses the last token.
[[nodiscard]] QStringList CommandLineTokens(const QString& commandLine);

// A command line from which `CommandLineTokens` gives back `arguments`, without the double quotes in them:
// the command line has no means to say one.
[[nodiscard]] QString CommandLineOf(const QStringList& arguments);

}  // namespace sheetwright
