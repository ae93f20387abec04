// Starts tests that need fonts or windows: on the offscreen platform, under the C locale unless LC_ALL says
// otherwise, with no settings of the person who runs them.

#include <QStandardPaths>

#ifdef SHEETWRIGHT_WIDGET_TESTS
#include "ui/guarded_application.h"
using TestApplication = sheetwright::GuardedApplication;
#else
#include <QGuiApplication>
using TestApplication = QGuiApplication;
#endif

#include <gmock/gmock.h>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    TestApplication application(argc, argv);
#ifdef SHEETWRIGHT_WIDGET_TESTS
    application.Escaped = [] { throw; };
#endif
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
