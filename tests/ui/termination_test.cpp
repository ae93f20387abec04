#include "ui/termination.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

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

TEST(CloseOnTermination, ClosesABoxThatIsShownWhileTheProgramStarts) {
    CloseOnTermination();
    QDialog box;
    QTimer::singleShot(0, &box, [] { std::raise(SIGTERM); });
    EXPECT_EQ(box.exec(), QDialog::Rejected);
    EXPECT_EQ(ExitCodeOfTheLoop(), EXIT_SUCCESS);
}

// In a process of its own, where nothing is caught yet.
TEST(CloseOnTerminationDeathTest, RequestThatIsIgnoredStaysIgnored) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            CloseOnTermination();
            const bool isIgnored = std::signal(SIGHUP, SIG_DFL) == SIG_IGN;
            const bool isCaught = std::signal(SIGTERM, SIG_DFL) != SIG_DFL;
            std::_Exit(isIgnored && isCaught ? EXIT_SUCCESS : EXIT_FAILURE);
        },
        ::testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace

}  // namespace sheetwright
