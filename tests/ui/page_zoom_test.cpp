#include "ui/page_zoom.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

ZoomKey KeyWith(int key, Qt::KeyboardModifiers modifiers) {
    return ZoomKeyOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

TEST(PageZoom, StaysBetweenAQuarterAndEight) {
    EXPECT_DOUBLE_EQ(NearestZoom(0), 0.25);
    EXPECT_DOUBLE_EQ(NearestZoom(1.37), 1.37);
    EXPECT_DOUBLE_EQ(NearestZoom(std::numeric_limits<double>::infinity()), 8);
    EXPECT_DOUBLE_EQ(NearestZoom(std::nan("")), 1);
}

TEST(PageZoom, StepsGoThroughTheRangeAndBack) {
    double zoom = 0.25;
    int steps = 0;
    for (; zoom < 8; ++steps)
        zoom = NextZoom(zoom);
    for (; zoom > 0.25; --steps)
        zoom = PreviousZoom(zoom);
    EXPECT_EQ(steps, 0);
    EXPECT_DOUBLE_EQ(NextZoom(8), 8);
    EXPECT_DOUBLE_EQ(PreviousZoom(0.25), 0.25);
}

TEST(PageZoom, StepFromBetweenGoesToTheNextRoundOne) {
    EXPECT_DOUBLE_EQ(NextZoom(1.02), 1.1);
    EXPECT_DOUBLE_EQ(PreviousZoom(1.02), 1);
    EXPECT_DOUBLE_EQ(NextZoom(0.9999), 1.1);
    EXPECT_DOUBLE_EQ(PreviousZoom(1.0001), 0.9);
}

TEST(PageZoom, KeysNeedCtrlAndNothingElse) {
    EXPECT_EQ(KeyWith(Qt::Key_Plus, Qt::ControlModifier), ZoomKey::In);
    EXPECT_EQ(KeyWith(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier), ZoomKey::In);
    EXPECT_EQ(KeyWith(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier), ZoomKey::In);
    EXPECT_EQ(KeyWith(Qt::Key_Plus, {}), ZoomKey::None);
    EXPECT_EQ(KeyWith(Qt::Key_Plus, Qt::ControlModifier | Qt::AltModifier), ZoomKey::None);
    EXPECT_EQ(KeyWith(Qt::Key_Minus, Qt::ControlModifier), ZoomKey::Out);
    EXPECT_EQ(KeyWith(Qt::Key_0, Qt::ControlModifier), ZoomKey::Reset);
    EXPECT_EQ(KeyWith(Qt::Key_5, Qt::ControlModifier), ZoomKey::None);
}

TEST(PageZoom, ShiftAndZeroFitsTheWidthOnEveryKeyboard) {
    for (const int key : {Qt::Key_0, Qt::Key_ParenRight, Qt::Key_Equal})
        EXPECT_EQ(KeyWith(key, Qt::ControlModifier | Qt::ShiftModifier), ZoomKey::FitWidth);
}

}  // namespace
}  // namespace sheetwright
