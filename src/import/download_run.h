#pragma once

// One run of a driver's program: started in a group of its own in a private folder, shown while it goes on,
// stopped when it is cancelled or goes too far. Afterwards nothing of its group is left.

#include "import/download_output.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>

namespace sheetwright {

class DownloadProgress;

struct RunOrder {
    QString caption;  // of the driver
    QString program;  // full path
    QStringList arguments;
    QString folder;     // the private one, where the program runs
    int timeLimit = 0;  // seconds
    bool isShown = false;
};

enum class RunEnd { Exited, Crashed, NotStarted, Cancelled, TimeUp, TooMuch };

class DownloadRun {
  public:
    // What a program may write into its folder, and what it may print.
    static constexpr qint64 kMostBytes = qint64{100} << 20;

    // `progress` lives longer.
    DownloadRun(RunOrder order, DownloadProgress& progress);
    DownloadRun(const DownloadRun&) = delete;
    DownloadRun& operator=(const DownloadRun&) = delete;
    ~DownloadRun();

    // Returns when the program has ended. Events go on being handled; without a window to cancel it, what a
    // person does waits. Ends as cancelled when the application quits.
    [[nodiscard]] RunEnd Run();

    [[nodiscard]] int ExitCode() const { return m_process.exitCode(); }
    [[nodiscard]] QString LastLines() const { return m_output.LastLines(); }

  private:
    [[nodiscard]] std::function<void()> Canceller();
    void PrepareProcess();
    void PrepareTimers();
    void Start();
    void Wait();
    void EndGroup();
    void WaitForGroup(int milliseconds);
    void HandleEvents();
    void Stop(RunEnd end);
    void Settle(RunEnd end);
    void TakeOutput();
    void ShowOutput();

    RunOrder m_order;
    DownloadProgress& m_progress;
    DownloadOutput m_output;
    QObject m_context;  // what outlives the run finds it gone
    QEventLoop m_loop;
    QTimer m_show;
    QTimer m_watch;
    QTimer m_limit;
    QTimer m_kill;
    QProcess m_process;
    qint64 m_group = 0;
    std::optional<RunEnd> m_end;  // settled by the first that ends it
    bool m_isOver = false;        // the program has ended, or never began
};

}  // namespace sheetwright
