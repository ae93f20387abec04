#include "print/line_clip.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

// A half plane: nx * x + ny * y <= limit.
struct Edge {
    double nx, ny, limit;
    [[nodiscard]] double Outside(const QPointF& point) const {
        return nx * point.x() + ny * point.y() - limit;
    }
};

std::array<Edge, 4> EdgesOf(const QRectF& area) {
    return {{{-1, 0, -area.left()}, {1, 0, area.right()}, {0, -1, -area.top()}, {0, 1, area.bottom()}}};
}

QPointF Between(const QPointF& from, const QPointF& to, double part) {
    return from + (to - from) * part;
}

QPolygonF ClippedByEdge(const QPolygonF& polygon, const Edge& edge) {
    QPolygonF inside;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF& here = polygon[i];
        const QPointF& next = polygon[(i + 1) % polygon.size()];
        const double a = edge.Outside(here);
        const double b = edge.Outside(next);
        if (a <= 0) inside.append(here);
        if ((a < 0 && b > 0) || (a > 0 && b < 0)) inside.append(Between(here, next, a / (a - b)));
    }
    return inside;
}

}  // namespace

std::optional<QLineF> ClippedLine(const QLineF& line, const QRectF& area) {
    double first = 0;
    double last = 1;
    for (const Edge& edge : EdgesOf(area)) {
        const double a = edge.Outside(line.p1());
        const double b = edge.Outside(line.p2());
        if (a > 0 && b > 0) return std::nullopt;
        if (a > 0) first = std::max(first, a / (a - b));
        if (b > 0) last = std::min(last, a / (a - b));
    }
    if (first > last) return std::nullopt;
    return QLineF(first > 0 ? Between(line.p1(), line.p2(), first) : line.p1(),
                  last < 1 ? Between(line.p1(), line.p2(), last) : line.p2());
}

std::optional<QLineF> ClippedToEllipse(const QLineF& line, const QRectF& bounds) {
    const double rx = bounds.width() / 2;
    const double ry = bounds.height() / 2;
    if (!(rx > 0 && ry > 0)) return std::nullopt;
    const double px = (line.x1() - bounds.center().x()) / rx;
    const double py = (line.y1() - bounds.center().y()) / ry;
    const double vx = line.dx() / rx;
    const double vy = line.dy() / ry;
    const double a = vx * vx + vy * vy;
    const double b = px * vx + py * vy;
    const double discriminant = b * b - a * (px * px + py * py - 1);
    if (!(a > 0 && discriminant > 0)) return std::nullopt;
    const double root = std::sqrt(discriminant);
    const double first = std::max(0.0, (-b - root) / a);
    const double last = std::min(1.0, (-b + root) / a);
    if (first >= last) return std::nullopt;
    return QLineF(Between(line.p1(), line.p2(), first), Between(line.p1(), line.p2(), last));
}

QPolygonF ClippedPolygon(const QPolygonF& convex, const QRectF& area) {
    QPolygonF polygon = convex;
    for (const Edge& edge : EdgesOf(area))
        polygon = ClippedByEdge(polygon, edge);
    return polygon;
}

}  // namespace sheetwright
