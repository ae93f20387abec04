#include "ui/page_zoom.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

constexpr std::array kSteps{kSmallestZoom, 1.0 / 3, 0.5, 2.0 / 3, 0.75, 0.9, 1.0, 1.1,         1.25,
                            1.5,           1.75,    2.0, 2.5,     3.0,  4.0, 5.0, kLargestZoom};
// A zoom that is fitted to the window may lie a hair beside a step.
constexpr double kSameZoom = 0.005;

struct ZoomKeyEntry {
    int key;
    bool isShifted;
    ZoomKey meaning;
};

// Shift and 0 gives ")" on one keyboard and "=" on another; "=" without Shift lies under "+".
constexpr std::array kZoomKeys{ZoomKeyEntry{Qt::Key_Plus, false, ZoomKey::In},
                               ZoomKeyEntry{Qt::Key_Plus, true, ZoomKey::In},
                               ZoomKeyEntry{Qt::Key_Equal, false, ZoomKey::In},
                               ZoomKeyEntry{Qt::Key_Minus, false, ZoomKey::Out},
                               ZoomKeyEntry{Qt::Key_Minus, true, ZoomKey::Out},
                               ZoomKeyEntry{Qt::Key_Underscore, true, ZoomKey::Out},
                               ZoomKeyEntry{Qt::Key_0, false, ZoomKey::Reset},
                               ZoomKeyEntry{Qt::Key_0, true, ZoomKey::FitWidth},
                               ZoomKeyEntry{Qt::Key_Equal, true, ZoomKey::FitWidth},
                               ZoomKeyEntry{Qt::Key_ParenRight, true, ZoomKey::FitWidth}};

}  // namespace

double NearestZoom(double zoom) {
    return std::isnan(zoom) ? 1 : std::clamp(zoom, kSmallestZoom, kLargestZoom);
}

double NextZoom(double zoom) {
    const auto* const next = std::upper_bound(kSteps.begin(), kSteps.end(), zoom * (1 + kSameZoom));
    return next == kSteps.end() ? kLargestZoom : *next;
}

double PreviousZoom(double zoom) {
    const auto* const step = std::lower_bound(kSteps.begin(), kSteps.end(), zoom * (1 - kSameZoom));
    return step == kSteps.begin() ? kSmallestZoom : *std::prev(step);
}

ZoomKey ZoomKeyOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isShifted = modifiers.testFlag(Qt::ShiftModifier);
    if ((modifiers & ~Qt::ShiftModifier) != Qt::ControlModifier) return ZoomKey::None;
    const auto* const entry = std::find_if(
        kZoomKeys.begin(), kZoomKeys.end(),
        [&](const ZoomKeyEntry& known) { return known.key == event.key() && known.isShifted == isShifted; });
    return entry == kZoomKeys.end() ? ZoomKey::None : entry->meaning;
}

}  // namespace sheetwright
