// Starts the tests under the C locale unless LC_ALL says otherwise, with no settings of the person who runs
// them.

#include <QCoreApplication>
#include <QStandardPaths>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
