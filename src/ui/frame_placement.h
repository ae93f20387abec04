#pragma once

// Where the frame stood when it was closed last, and its ticked options: settings of the person.

#include <QLatin1String>

#include <array>

class QWidget;

namespace sheetwright {

class Application;

// Puts the frame where it stood, as far as that is on a screen; at first most of the screen is its own.
void RestorePlacement(QWidget& frame, const Application& application);

// A minimised frame keeps what is stored.
void StorePlacement(const QWidget& frame, Application& application);

// An entry of the Options menu with a tick, and the setting in which that is kept.
struct FrameOption {
    QLatin1String entry;
    QLatin1String key;
};
inline constexpr std::array kFrameOptions{
    FrameOption{QLatin1String("mnuOptionsSelected"), QLatin1String("HighlightSelected")},
    FrameOption{QLatin1String("mnuOptionsBlank"), QLatin1String("BlankSelected")}};

[[nodiscard]] bool StoredTick(const Application& application, const FrameOption& option);
void StoreTick(Application& application, const FrameOption& option, bool isTicked);

}  // namespace sheetwright
