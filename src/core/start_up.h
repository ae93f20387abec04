#pragma once

// The order in which the program starts. Windows are behind `StartUpActions`, so that the order itself, the
// command line and everything that is decided without a window can be tested without one.

#include <QString>
#include <QStringList>

#include <memory>

namespace sheetwright {

class Application;

// What `Main` asks of the deployment.
class StartUpActions {
  public:
    StartUpActions() = default;
    StartUpActions(const StartUpActions&) = delete;
    StartUpActions& operator=(const StartUpActions&) = delete;
    virtual ~StartUpActions() = default;

    // Whether the same program runs already for this user on this channel; keeps the claim when it doesn't.
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

// Runs the whole start-up. Returns false when a previous instance is running: end at once, nothing was shown or
// written. `commandLine` is the text behind the program's name, as typed.
bool Main(Application& application, StartUpActions& actions, const QString& commandLine);

// The tokens of a command line: blanks separate outside double quotes, which are dropped. An unbalanced quote
// loses the last token.
[[nodiscard]] QStringList CommandLineTokens(const QString& commandLine);

// The command line that `arguments` were cut from, quoted so that `CommandLineTokens` gives them back.
[[nodiscard]] QString CommandLineOf(const QStringList& arguments);

// Starts the update runner "RunOnce" (with or without ".exe") of the install folder, if there is one, and waits
// until it has ended, 60 seconds at most, pumping messages. Failures are not reported.
void RunUpdateRunner(Application& application);

// A claim on being the only instance of `title` for this user on the channel named by SHEETWRIGHT_CHANNEL.
class InstanceClaim {
  public:
    InstanceClaim();
    InstanceClaim(const InstanceClaim&) = delete;
    InstanceClaim& operator=(const InstanceClaim&) = delete;
    ~InstanceClaim();
    [[nodiscard]] bool Take(const QString& program);

  private:
    struct Lock;
    std::unique_ptr<Lock> m_lock;
};

}  // namespace sheetwright
