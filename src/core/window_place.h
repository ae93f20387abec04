#pragma once

// Where the main window stood when it was closed last, in twips: a setting of the person.

#include <vector>

namespace sheetwright {

class Application;

// A window, or a screen on which windows are. Twips.
struct WindowPlace {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    bool operator==(const WindowPlace&) const = default;
};

// The place that is stored for the main window, changed as far as is needed so that a person can reach it on
// one of the screens, of which the first is the main one. What was never stored, or makes no sense, is at the
// origin and as large as most of the main screen.
[[nodiscard]] WindowPlace StoredWindowPlace(const Application& application,
                                            const std::vector<WindowPlace>& screens);

// Nothing for a minimised window: what is stored stays.
void StoreWindowPlace(Application& application, const WindowPlace& place, bool isMinimised);

}  // namespace sheetwright
