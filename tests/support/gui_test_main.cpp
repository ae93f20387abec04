// Starts tests that need fonts or windows: on the offscreen platform, under the C locale unless LC_ALL says
// otherwise, with no settings of the person who runs them.

#include <QStandardPaths>

#ifdef SHEETWRIGHT_WIDGET_TESTS
#include <QApplication>
using TestApplication = QApplication;
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
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
