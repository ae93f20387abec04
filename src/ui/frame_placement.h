#pragma once

// Where the frame stood when it was closed last, and its ticked options: settings of the person.

class QWidget;

namespace sheetwright {

class Application;

// Puts the frame where it stood, as far as that is on a screen; at first most of the screen is its own.
void RestorePlacement(QWidget& frame, const Application& application);

// A minimised frame keeps what is stored.
void StorePlacement(const QWidget& frame, Application& application);

// `mnuOptionsBlank`.
[[nodiscard]] bool StoredBlankTick(const Application& application);
void StoreBlankTick(Application& application, bool isTicked);

}  // namespace sheetwright
