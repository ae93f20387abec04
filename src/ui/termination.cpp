#include "ui/termination.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>

#ifdef Q_OS_UNIX
#include <unistd.h>

#include <csignal>
#endif

namespace sheetwright {

#ifdef Q_OS_UNIX

namespace {

// A signal handler can reach nothing but what lives for ever.
int wakeUp[2] = {-1, -1};

constexpr int kUntilStarted = 20;  // milliseconds

void OnSignal(int /*number*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeUp[1], &byte, 1);
}

// Messages are pumped at the start too, where there is no loop yet that could be quit.
void QuitWhenStarted() {
    if (QThread::currentThread()->loopLevel() > 0) {
        QCoreApplication::quit();
    } else {
        QTimer::singleShot(kUntilStarted, qApp, QuitWhenStarted);
    }
}

}  // namespace

void CloseOnTermination() {
    if (wakeUp[0] >= 0 || pipe(wakeUp) != 0) return;
    auto* const notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [] {
        char byte = 0;
        if (read(wakeUp[0], &byte, 1) == 1) QuitWhenStarted();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, OnSignal);
}

#else

void CloseOnTermination() {}

#endif

}  // namespace sheetwright
