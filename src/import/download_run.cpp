#include "import/download_run.h"

#include "import/download_group.h"
#include "import/download_progress.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDirIterator>
#include <QPointer>

#include <chrono>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kShowInterval = 50;  // milliseconds
constexpr int kWatchInterval = 250;
constexpr int kGrace = 2'000;       // between asking a program to end and ending it
constexpr int kDeathWait = 500;     // until what was killed is gone
constexpr int kMostFiles = 10'000;  // that a program may make

bool HoldsTooMuch(const QString& folder) {
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    qint64 bytes = 0;
    for (int count = 0; files.hasNext(); ++count) {
        files.next();
        bytes += files.fileInfo().size();
        if (bytes > DownloadRun::kMostBytes || count >= kMostFiles) return true;
    }
    return false;
}

}  // namespace

DownloadRun::DownloadRun(RunOrder order, DownloadProgress& progress)
    : m_order(std::move(order)), m_progress(progress) {}

DownloadRun::~DownloadRun() = default;

RunEnd DownloadRun::Run() {
    m_progress.Begin(m_order.caption, Canceller());
    if (!m_end) {
        PrepareProcess();
        PrepareTimers();
        Start();
        Wait();
        EndGroup();
        ShowOutput();
    }
    m_progress.End();
    return m_end.value_or(RunEnd::Cancelled);
}

std::function<void()> DownloadRun::Canceller() {
    return [this, context = QPointer<QObject>(&m_context)] {
        if (context) Stop(RunEnd::Cancelled);
    };
}

void DownloadRun::PrepareProcess() {
    m_process.setProgram(m_order.program);
    m_process.setArguments(m_order.arguments);
    m_process.setWorkingDirectory(m_order.folder);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    LeadOwnGroup(m_process);
    QObject::connect(&m_process, &QProcess::readyRead, &m_context, [this] { TakeOutput(); });
    QObject::connect(&m_process, &QProcess::finished, &m_context, [this](int, QProcess::ExitStatus status) {
        TakeOutput();
        Settle(status == QProcess::NormalExit ? RunEnd::Exited : RunEnd::Crashed);
    });
    QObject::connect(&m_process, &QProcess::errorOccurred, &m_context, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Settle(RunEnd::NotStarted);
    });
}

void DownloadRun::PrepareTimers() {
    m_limit.setSingleShot(true);
    m_kill.setSingleShot(true);
    QObject::connect(&m_show, &QTimer::timeout, &m_context, [this] { ShowOutput(); });
    QObject::connect(&m_limit, &QTimer::timeout, &m_context, [this] { Stop(RunEnd::TimeUp); });
    QObject::connect(&m_kill, &QTimer::timeout, &m_context, [this] { KillGroup(m_group); });
    QObject::connect(&m_watch, &QTimer::timeout, &m_context, [this] {
        if (HoldsTooMuch(m_order.folder)) Stop(RunEnd::TooMuch);
    });
    m_show.start(kShowInterval);
    m_watch.start(kWatchInterval);
    m_limit.start(std::chrono::seconds(m_order.timeLimit));
}

void DownloadRun::Start() {
    m_process.start(QProcess::ReadOnly);
    m_group = m_process.processId();
}

// Quitting ends all event loops, and none begins any more.
void DownloadRun::Wait() {
    if (!m_isOver) m_loop.exec(m_order.isShown ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    if (!m_isOver) Stop(RunEnd::Cancelled);
    while (!m_isOver)
        HandleEvents();
    m_limit.stop();
    m_watch.stop();
}

// What the program has started and left running.
void DownloadRun::EndGroup() {
    const int grace = m_kill.isActive() ? m_kill.remainingTime() : kGrace;
    m_kill.stop();
    if (!IsGroupThere(m_group)) return;
    TerminateGroup(m_group);
    WaitForGroup(grace);
    KillGroup(m_group);
    WaitForGroup(kDeathWait);
}

void DownloadRun::WaitForGroup(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (IsGroupThere(m_group) && !deadline.hasExpired())
        HandleEvents();
}

// Returns soon: a timer is running.
void DownloadRun::HandleEvents() {
    const QEventLoop::ProcessEventsFlags kept =
        m_order.isShown ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents;
    QCoreApplication::processEvents(kept | QEventLoop::WaitForMoreEvents);
}

void DownloadRun::Stop(RunEnd end) {
    if (m_end) return;
    m_end = end;
    TerminateGroup(m_group);
    m_kill.start(kGrace);
}

void DownloadRun::Settle(RunEnd end) {
    if (!m_end) m_end = end;
    m_isOver = true;
    m_loop.quit();
}

void DownloadRun::TakeOutput() {
    m_output.Add(m_process.readAllStandardOutput());
    if (m_output.Size() > kMostBytes) Stop(RunEnd::TooMuch);
}

void DownloadRun::ShowOutput() {
    const QString text = m_output.TakeNew();
    if (!text.isEmpty()) m_progress.AddOutput(text);
}

}  // namespace sheetwright
