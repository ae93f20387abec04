#include "core/pause.h"

#include "core/user_interface.h"

#include <QThread>
#include <QTime>

namespace sheetwright {

namespace {

// The seconds since midnight, read after a short rest so that waiting leaves the processor to others.
double RestedClock() {
    QThread::msleep(1);
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

}  // namespace

void Pause(double seconds, UserInterface& ui, const std::function<double()>& timer) {
    const std::function<double()> clock = timer ? timer : RestedClock;
    const double start = clock();
    const auto isWaiting = [&](double now) { return now >= start && now <= start + seconds; };
    do {
        ui.PumpMessages();
    } while (isWaiting(clock()));
}

}  // namespace sheetwright
