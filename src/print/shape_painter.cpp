#include "print/shape_painter.h"

#include "print/hatch.h"
#include "print/line_clip.h"
#include "print/stroke.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sheetwright {

namespace {

constexpr double kHatchSpacing = 8 * kTwipsPerScreenPixel;
constexpr double kClosestHatch = 2;  // pixels; what is closer becomes a tint
constexpr int kTintAlpha = 48;       // of 255: about what the lines would cover
constexpr double kLargestCurve = 8;  // in extents of what can be seen; larger ones are drawn as polygons
constexpr int kPolygonCorners = 4096;

using ClipToShape = std::optional<QLineF> (*)(const QLineF&, const QRectF&);

template <typename... Numbers>
bool AreFinite(Numbers... numbers) {
    return (std::isfinite(numbers) && ...);
}

QRectF RectBetween(double x1, double y1, double x2, double y2) {
    const auto [left, right] = std::minmax({x1, x2});
    const auto [top, bottom] = std::minmax({y1, y2});
    return {QPointF(left, top), QPointF(right, bottom)};
}

// The hatch stands in lines of one screen pixel. On a page shown very small it is a tint.
bool IsTint(const Canvas& canvas, const QRectF& seen) {
    const double spacing = kHatchSpacing * canvas.Scale();
    return (canvas.OnPixels() && spacing < kClosestHatch * canvas.Grid().Pixel()) ||
           !((seen.width() + seen.height()) / spacing * 2 <= kMostHatchLines);
}

void PaintHatch(Canvas& canvas, const Fill& fill, const QRectF& bounds, const QRectF& seen,
                ClipToShape clip) {
    const Stroke stroke(canvas, Pen{fill.colour});
    const double half = stroke.width / 2;
    const QRectF ends = bounds.adjusted(half, half, -half, -half);
    for (const QLineF& line : HatchLines(fill.style, seen, kHatchSpacing * canvas.Scale())) {
        const QRectF onGrid = StrokedRect(canvas, stroke, QRectF(line.p1(), line.p2()));
        const bool isStraight = line.x1() == line.x2() || line.y1() == line.y2();
        const QLineF placed = isStraight ? QLineF(onGrid.topLeft(), onGrid.bottomRight()) : line;
        if (const auto inside = clip(placed, ends)) StrokeLine(canvas, stroke, *inside);
    }
}

QColor TintOf(Colour colour) {
    QColor tint = ColourOf(colour);
    tint.setAlpha(kTintAlpha);
    return tint;
}

void FillRect(Canvas& canvas, const Fill& fill, const QRectF& rect) {
    const bool isHatch = IsHatch(fill.style);
    if (fill.style != fill_style::kSolid && !isHatch) return;
    const QRectF seen = rect & canvas.Visible();
    if (seen.isEmpty()) return;
    canvas.SetAntialiasing(false);
    if (!isHatch) {
        canvas.Painter().fillRect(seen, ColourOf(fill.colour));
    } else if (IsTint(canvas, seen)) {
        canvas.Painter().fillRect(seen, TintOf(fill.colour));
    } else {
        PaintHatch(canvas, fill, rect, seen, ClippedLine);
    }
}

// The area that belongs to a box: on pixels up to the outer edges of its lines.
QRectF FilledArea(const Canvas& canvas, const Stroke& stroke, const QRectF& rect) {
    if (!stroke.isVisible) {
        const PixelGrid grid = canvas.Grid();
        return canvas.OnPixels() ? QRectF(QPointF(grid.RoundX(rect.left()), grid.RoundY(rect.top())),
                                          QPointF(grid.RoundX(rect.right()), grid.RoundY(rect.bottom())))
                                 : rect;
    }
    const double half = canvas.OnPixels() ? stroke.width / 2 : 0;
    return rect.adjusted(-half, -half, half, half);
}

// Where the middle of the outline lies, for outlines that stay inside the bounds of their shape.
QRectF OutlineOf(const Stroke& stroke, const QRectF& rect) {
    if (!stroke.isInside) return rect;
    const double inset = stroke.width / 2;
    const double insetX = std::min(inset, rect.width() / 2);
    const double insetY = std::min(inset, rect.height() / 2);
    return rect.adjusted(insetX, insetY, -insetX, -insetY);
}

QPolygonF PolygonOf(const QRectF& bounds) {
    QPolygonF polygon;
    polygon.reserve(kPolygonCorners);
    for (int i = 0; i < kPolygonCorners; ++i) {
        const double angle = 2 * std::numbers::pi * i / kPolygonCorners;
        polygon.append(bounds.center() +
                       QPointF(std::cos(angle) * bounds.width() / 2, std::sin(angle) * bounds.height() / 2));
    }
    return polygon;
}

void FillEllipse(Canvas& canvas, const QColor& colour, const QRectF& bounds, bool isLarge) {
    canvas.SetAntialiasing(true);
    canvas.SetPen(Qt::NoPen);
    canvas.SetBrush(colour);
    if (isLarge) {
        canvas.Painter().drawPolygon(ClippedPolygon(PolygonOf(bounds), canvas.Visible()));
    } else {
        canvas.Painter().drawEllipse(bounds);
    }
}

void HatchEllipse(Canvas& canvas, const Fill& fill, const QRectF& bounds, bool isLarge) {
    const QRectF seen = bounds & canvas.Visible();
    if (seen.isEmpty()) return;
    if (IsTint(canvas, seen)) {
        FillEllipse(canvas, TintOf(fill.colour), bounds, isLarge);
    } else {
        PaintHatch(canvas, fill, bounds, seen, ClippedToEllipse);
    }
}

void StrokeEllipse(Canvas& canvas, const Stroke& stroke, const QRectF& bounds, bool isLarge) {
    if (!stroke.isVisible) return;
    if (!isLarge) {
        canvas.SetAntialiasing(true);
        canvas.SetPen(stroke.ToPen());
        canvas.SetBrush(Qt::NoBrush);
        canvas.Painter().drawEllipse(bounds);
        return;
    }
    const QPolygonF polygon = PolygonOf(bounds);
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        StrokeLine(canvas, stroke, {polygon[i], polygon[(i + 1) % polygon.size()]});
    }
}

}  // namespace

void PaintLine(Canvas& canvas, const DrawnLine& line) {
    if (!AreFinite(line.x1, line.y1, line.x2, line.y2)) return;
    const double scale = canvas.Scale();
    const Stroke stroke(canvas, line.pen);
    const QPointF from(line.x1 * scale, line.y1 * scale);
    const QPointF to(line.x2 * scale, line.y2 * scale);
    const QRectF placed = StrokedRect(canvas, stroke, QRectF(from, to));
    StrokeLine(canvas, stroke, QLineF(placed.topLeft(), placed.bottomRight()));
}

void PaintBox(Canvas& canvas, const DrawnBox& box) {
    if (!AreFinite(box.x1, box.y1, box.x2, box.y2)) return;
    if (box.x1 == box.x2 || box.y1 == box.y2) {
        return PaintLine(canvas, {box.x1, box.y1, box.x2, box.y2, box.pen});
    }
    const double scale = canvas.Scale();
    const Stroke stroke(canvas, box.pen);
    const QRectF bounds = RectBetween(box.x1 * scale, box.y1 * scale, box.x2 * scale, box.y2 * scale);
    const QRectF outline = stroke.isVisible ? StrokedRect(canvas, stroke, OutlineOf(stroke, bounds)) : bounds;
    FillRect(canvas, box.fill, FilledArea(canvas, stroke, outline));
    StrokeRect(canvas, stroke, outline);
}

void PaintEllipse(Canvas& canvas, const DrawnEllipse& ellipse) {
    const auto& [cx, cy, rx, ry, pen, fill] = ellipse;
    if (!AreFinite(cx, cy, rx, ry)) return;
    if (rx == 0 || ry == 0) return PaintLine(canvas, {cx - rx, cy - ry, cx + rx, cy + ry, pen});
    const double scale = canvas.Scale();
    const Stroke stroke(canvas, pen);
    const QRectF bounds =
        RectBetween((cx - rx) * scale, (cy - ry) * scale, (cx + rx) * scale, (cy + ry) * scale);
    const QRectF visible = canvas.Visible();
    if (!bounds.adjusted(-stroke.width, -stroke.width, stroke.width, stroke.width).intersects(visible))
        return;

    const QRectF outline = StrokedRect(canvas, stroke, OutlineOf(stroke, bounds));
    const double largest = kLargestCurve * (visible.width() + visible.height());
    const bool isLarge = outline.width() > largest || outline.height() > largest;
    if (fill.style == fill_style::kSolid) FillEllipse(canvas, ColourOf(fill.colour), outline, isLarge);
    if (IsHatch(fill.style)) HatchEllipse(canvas, fill, outline, isLarge);
    StrokeEllipse(canvas, stroke, outline, isLarge);
}

}  // namespace sheetwright
