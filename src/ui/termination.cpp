#include "ui/termination.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <QWidget>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#endif

namespace sheetwright {

#ifdef Q_OS_UNIX

namespace {

// A signal handler can reach nothing but what lives for ever.
int wakeUp[2] = {-1, -1};

constexpr int kUntilStarted = 20;  // milliseconds

void OnSignal(int /*number*/) {
    const int errorBefore = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeUp[1], &byte, 1);
    errno = errorBefore;
}

// What is ignored stays so, such as the end of the terminal that a program was started to outlive.
void Catch(int number) {
    if (std::signal(number, OnSignal) == SIG_IGN) std::signal(number, SIG_IGN);
}

// Messages are pumped and boxes are shown at the start too, where there is no loop yet that could be quit:
// that of a box is not the program's.
void QuitWhenStarted() {
    QWidget* const box = QApplication::activeModalWidget();
    if (QThread::currentThread()->loopLevel() > (box == nullptr ? 0 : 1)) return QCoreApplication::quit();
    if (box != nullptr) box->close();
    QTimer::singleShot(kUntilStarted, qApp, QuitWhenStarted);
}

}  // namespace

void CloseOnTermination() {
    if (wakeUp[0] >= 0 || pipe(wakeUp) != 0) return;
    for (const int end : wakeUp)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    auto* const notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [] {
        char byte = 0;
        if (read(wakeUp[0], &byte, 1) == 1) QuitWhenStarted();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        Catch(number);
}

#else

void CloseOnTermination() {}

#endif

}  // namespace sheetwright
