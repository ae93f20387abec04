#pragma once

// Hatched fills, drawn as lines, so that they look alike on every surface.

#include <QLineF>
#include <QList>
#include <QRectF>

#include <cstdint>

namespace sheetwright {

// Whether a fill style is a hatch: 2 level, 3 upright, 4 rising, 5 falling, 6 level and upright, 7 rising and
// falling.
[[nodiscard]] bool IsHatch(std::int16_t style);

// The lines that cross `area`, `spacing` apart along both axes. They hang together across shapes: each
// belongs to one grid that starts at the origin. None when they would be more than kMostHatchLines.
[[nodiscard]] QList<QLineF> HatchLines(std::int16_t style, const QRectF& area, double spacing);

inline constexpr double kMostHatchLines = 20'000;

}  // namespace sheetwright
