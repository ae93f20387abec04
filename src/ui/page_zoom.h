#pragma once

// The zoom of a page: its range, its steps and its keys.

class QKeyEvent;

namespace sheetwright {

inline constexpr double kSmallestZoom = 0.25;
inline constexpr double kLargestZoom = 8;

// The nearest zoom in the range; 1 for what is no number.
[[nodiscard]] double NearestZoom(double zoom);

// The round percentage next above or below; the end of the range beyond it.
[[nodiscard]] double NextZoom(double zoom);
[[nodiscard]] double PreviousZoom(double zoom);

enum class ZoomKey { None, In, Out, Reset, FitWidth };
// Ctrl with plus, minus and 0, and with Shift and 0, wherever the keyboard has them.
[[nodiscard]] ZoomKey ZoomKeyOf(const QKeyEvent& event);

}  // namespace sheetwright
