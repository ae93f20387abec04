#include "core/pause.h"

#include "support/test_application.h"

#include <gtest/gtest.h>

#include <limits>

namespace sheetwright {
namespace {

// A timer that gives the listed readings, then stays at the last.
class Timer {
  public:
    explicit Timer(std::vector<double> readings) : m_readings(std::move(readings)) {}
    double operator()() { return m_next + 1 < m_readings.size() ? m_readings[m_next++] : m_readings.back(); }

  private:
    std::vector<double> m_readings;
    std::size_t m_next = 0;
};

int PumpsDuring(double seconds, std::vector<double> readings) {
    RecordingUserInterface ui;
    Pause(seconds, ui, Timer(std::move(readings)));
    return ui.pumps;
}

TEST(Pause, PumpsMessagesUntilTheTimeHasPassed) {
    EXPECT_EQ(PumpsDuring(2, {100, 101, 102, 102.5}), 3);
}

TEST(Pause, PumpsAtLeastOnce) {
    EXPECT_EQ(PumpsDuring(0, {100, 100.5}), 1);
    EXPECT_EQ(PumpsDuring(-5, {100, 100}), 1);
}

TEST(Pause, EndsWhenTheTimerRunsBackwardPastMidnight) {
    EXPECT_EQ(PumpsDuring(10, {86399, 86399.5, 0.5, 1}), 2);
}

TEST(Pause, ATimeThatIsNoNumberDoesNotHang) {
    EXPECT_EQ(PumpsDuring(std::numeric_limits<double>::quiet_NaN(), {100, 100}), 1);
}

TEST(Pause, UsesTheClockOfTheSystemByDefault) {
    RecordingUserInterface ui;
    Pause(0, ui);
    EXPECT_GE(ui.pumps, 1);
}

}  // namespace
}  // namespace sheetwright
