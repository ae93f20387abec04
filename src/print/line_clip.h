#pragma once

// Shapes cut to what can be seen, before anything is spent on the rest: coordinates of a form may lie a
// thousand metres off the page.

#include <QLineF>
#include <QPolygonF>
#include <QRectF>

#include <optional>

namespace sheetwright {

// The part of `line` inside `area`, in the direction of the line; none when it passes by.
[[nodiscard]] std::optional<QLineF> ClippedLine(const QLineF& line, const QRectF& area);

// The part of `line` inside an ellipse that fills `bounds`.
[[nodiscard]] std::optional<QLineF> ClippedToEllipse(const QLineF& line, const QRectF& bounds);

// The part of a convex polygon inside `area`.
[[nodiscard]] QPolygonF ClippedPolygon(const QPolygonF& convex, const QRectF& area);

}  // namespace sheetwright
