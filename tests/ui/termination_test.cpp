#include "ui/termination.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace sheetwright {

namespace {

constexpr int kPatience = 30'000;  // milliseconds

int ExitCodeOfTheLoop() {
    QTimer::singleShot(kPatience, qApp, [] { QCoreApplication::exit(EXIT_FAILURE); });
    return QApplication::exec();
}

TEST(CloseOnTermination, EndsTheLoopThatRuns) {
    CloseOnTermination();
    QTimer::singleShot(0, qApp, [] { std::raise(SIGTERM); });
    EXPECT_EQ(ExitCodeOfTheLoop(), EXIT_SUCCESS);
}

TEST(CloseOnTermination, EndsAProgramThatIsAskedWhileItStarts) {
    CloseOnTermination();
    std::raise(SIGTERM);
    QApplication::processEvents();
    EXPECT_EQ(ExitCodeOfTheLoop(), EXIT_SUCCESS);
}

}  // namespace

}  // namespace sheetwright
