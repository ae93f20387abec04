#include "core/window_place.h"

#include "core/application.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace sheetwright {

namespace {

constexpr double kPartOfScreen = 0.9;
constexpr double kFarthest = 15e6;      // a million pixels; farther off nobody has a screen
constexpr double kSmallestSide = 4500;  // 300 pixels
constexpr double kTitleHeight = 450;    // of the bar by which a window is moved
constexpr double kTitleToReach = 1500;  // of its length
constexpr WindowPlace kUnknownScreen{0, 0, 15360, 11520};  // 1024 by 768 pixels

struct PlaceKey {
    const char* key;
    double WindowPlace::*member;
};

constexpr std::array kKeys{PlaceKey{"MainLeft", &WindowPlace::left}, PlaceKey{"MainTop", &WindowPlace::top},
                           PlaceKey{"MainWidth", &WindowPlace::width},
                           PlaceKey{"MainHeight", &WindowPlace::height}};

QString Section() {
    return QStringLiteral("mdiSheetwright");
}

WindowPlace Read(const Application& application, WindowPlace place) {
    for (const auto& [key, member] : kKeys) {
        bool isNumber = false;
        const double stored =
            application.settings.Read(application.Title, Section(), QLatin1String(key)).toDouble(&isNumber);
        const bool isSize = member == &WindowPlace::width || member == &WindowPlace::height;
        if (isNumber && std::abs(stored) < kFarthest && (!isSize || stored > 0)) place.*member = stored;
    }
    return place;
}

// A window's size is that of its inside; its place is that of the whole.
double WholeHeight(const WindowPlace& window) {
    return window.height + kTitleHeight;
}

// How much of two stretches is common; below 0 the distance between them.
double Common(double start, double length, double otherStart, double otherLength) {
    return std::min(start + length, otherStart + otherLength) - std::max(start, otherStart);
}

// Whether enough of the window's title bar is on the screen to take hold of.
bool IsReachable(const WindowPlace& window, const WindowPlace& screen) {
    const double across = Common(window.left, window.width, screen.left, screen.width);
    return across >= std::min(kTitleToReach, screen.width) && window.top >= screen.top &&
           window.top + kTitleHeight <= screen.top + screen.height;
}

double Nearness(const WindowPlace& window, const WindowPlace& screen) {
    const double across = Common(window.left, window.width, screen.left, screen.width);
    const double down = Common(window.top, WholeHeight(window), screen.top, screen.height);
    return across > 0 && down > 0 ? across * down : std::min(across, 0.0) + std::min(down, 0.0);
}

double Inside(double start, double length, double screenStart, double screenLength) {
    return std::clamp(start, screenStart, screenStart + std::max(screenLength - length, 0.0));
}

// The greatest that leaves the title bar on the screen too.
double HeightIn(const WindowPlace& screen) {
    return std::max(screen.height - kTitleHeight, kTitleHeight);
}

// No larger than all screens together, no smaller than can be worked with.
WindowPlace WithUsableSize(WindowPlace window, const std::vector<WindowPlace>& screens) {
    const WindowPlace& main = screens.front();
    WindowPlace all = main;
    for (const WindowPlace& screen : screens) {
        const double left = std::min(all.left, screen.left);
        const double top = std::min(all.top, screen.top);
        all.width = std::max(all.left + all.width, screen.left + screen.width) - left;
        all.height = std::max(all.top + all.height, screen.top + screen.height) - top;
        all.left = left;
        all.top = top;
    }
    window.width = std::clamp(window.width, std::min(kSmallestSide, main.width), all.width);
    window.height = std::clamp(window.height, std::min(kSmallestSide, HeightIn(main)), HeightIn(all));
    return window;
}

WindowPlace MovedInto(WindowPlace window, const WindowPlace& screen) {
    window.width = std::min(window.width, screen.width);
    window.height = std::min(window.height, HeightIn(screen));
    window.left = Inside(window.left, window.width, screen.left, screen.width);
    window.top = Inside(window.top, WholeHeight(window), screen.top, screen.height);
    return window;
}

WindowPlace Reachable(const WindowPlace& wanted, const std::vector<WindowPlace>& screens) {
    const WindowPlace window = WithUsableSize(wanted, screens);
    const auto canReach = [&](const WindowPlace& screen) { return IsReachable(window, screen); };
    if (std::ranges::any_of(screens, canReach)) return window;
    return MovedInto(window, *std::ranges::max_element(screens, {}, [&](const WindowPlace& screen) {
                         return Nearness(window, screen);
                     }));
}

}  // namespace

WindowPlace StoredWindowPlace(const Application& application, const std::vector<WindowPlace>& screens) {
    std::vector<WindowPlace> usable;
    std::ranges::copy_if(screens, std::back_inserter(usable),
                         [](const WindowPlace& screen) { return screen.width > 0 && screen.height > 0; });
    if (usable.empty()) usable.push_back(kUnknownScreen);
    const WindowPlace& main = usable.front();
    return Reachable(Read(application, {0, 0, main.width * kPartOfScreen, main.height * kPartOfScreen}),
                     usable);
}

void StoreWindowPlace(Application& application, const WindowPlace& place, bool isMinimised) {
    if (isMinimised) return;
    for (const auto& [key, member] : kKeys)
        application.settings.Write(application.Title, Section(), QLatin1String(key),
                                   QString::number(place.*member, 'f', 0));
}

}  // namespace sheetwright
