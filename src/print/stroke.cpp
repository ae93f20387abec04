#include "print/stroke.h"

#include "print/line_clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace sheetwright {

namespace {

// In screen pixels, or in pen widths where the pen is thicker than a screen pixel.
struct DashPattern {
    std::array<double, 6> lengths;
    std::size_t count;
};
constexpr std::array kDashPatterns = std::to_array<DashPattern>(
    {{{}, 0}, {{18, 6}, 2}, {{3, 3}, 2}, {{9, 6, 3, 6}, 4}, {{9, 3, 3, 3, 3, 3}, 6}});

constexpr double kMarginUnits = 64;
constexpr double kShortestDashUnit = 0.1;

QList<double> DashesOf(const Canvas& canvas, const Pen& pen) {
    if (pen.style < 0 || static_cast<std::size_t>(pen.style) >= kDashPatterns.size()) return {};
    const double shortest = canvas.OnPixels() ? canvas.Grid().Pixel() : kShortestDashUnit;
    const double unit = std::max(std::max(kTwipsPerScreenPixel, pen.width) * canvas.Scale(), shortest);
    const DashPattern& pattern = kDashPatterns[static_cast<std::size_t>(pen.style)];
    QList<double> dashes;
    for (std::size_t i = 0; i < pattern.count; ++i)
        dashes.append(pattern.lengths[i] * unit);
    return dashes;
}

double WidthOn(const Canvas& canvas, double twips) {
    const double width = twips * canvas.Scale();
    if (!canvas.OnPixels()) return width;
    const double pixel = canvas.Grid().Pixel();
    return std::max(1.0, std::round(width / pixel)) * pixel;
}

QRectF SeenWith(const Canvas& canvas, const Stroke& stroke) {
    const double margin = stroke.width + kMarginUnits;
    return canvas.Visible().adjusted(-margin, -margin, margin, margin);
}

// A level or upright line on pixels, as spans along it.
class PixelLine {
  public:
    PixelLine(Canvas& canvas, const Stroke& stroke, const QLineF& line)
        : m_canvas(canvas), m_stroke(stroke), m_grid(canvas.Grid()), m_isUpright(line.x1() == line.x2()) {
        const double half = stroke.width / 2;
        m_across = (m_isUpright ? line.x1() : line.y1()) - half;
        const auto ends =
            m_isUpright ? std::minmax({line.y1(), line.y2()}) : std::minmax({line.x1(), line.x2()});
        m_first = ends.first - half;
        m_last = ends.second + half;
        const QRectF seen = SeenWith(canvas, stroke);
        m_firstSeen = std::max(m_first, m_isUpright ? seen.top() : seen.left());
        m_lastSeen = std::min(m_last, m_isUpright ? seen.bottom() : seen.right());
    }

    void Paint() const {
        if (m_stroke.dashes.isEmpty()) {
            Span(m_firstSeen, m_lastSeen);
        } else {
            PaintDashes();
        }
    }

  private:
    void PaintDashes() const {
        const double cycle = std::accumulate(m_stroke.dashes.begin(), m_stroke.dashes.end(), 0.0);
        double from = m_first + std::floor((m_firstSeen - m_first) / cycle) * cycle;
        for (qsizetype i = 0; from < m_lastSeen; i = (i + 1) % m_stroke.dashes.size()) {
            const double to = from + m_stroke.dashes[i];
            if (i % 2 == 0) Span(Rounded(from), Rounded(std::min(to, m_last)));
            from = to;
        }
    }

    void Span(double from, double to) const {
        if (to <= from) return;
        const QRectF rect = m_isUpright ? QRectF(m_across, from, m_stroke.width, to - from)
                                        : QRectF(from, m_across, to - from, m_stroke.width);
        m_canvas.Painter().fillRect(rect, m_stroke.colour);
    }

    [[nodiscard]] double Rounded(double place) const {
        return m_isUpright ? m_grid.RoundY(place) : m_grid.RoundX(place);
    }

    Canvas& m_canvas;
    const Stroke& m_stroke;
    PixelGrid m_grid;
    bool m_isUpright;
    double m_across;
    double m_first;
    double m_last;
    double m_firstSeen;
    double m_lastSeen;
};

void PaintDot(Canvas& canvas, const Stroke& stroke, const QPointF& place) {
    const double half = stroke.width / 2;
    canvas.Painter().fillRect(QRectF(place.x() - half, place.y() - half, stroke.width, stroke.width),
                              stroke.colour);
}

void PaintFreeLine(Canvas& canvas, const Stroke& stroke, const QLineF& line, bool isStraight) {
    const auto seen = ClippedLine(line, SeenWith(canvas, stroke));
    if (!seen) return;
    QPen pen = stroke.ToPen(stroke.dashes.isEmpty() ? 0 : QLineF(line.p1(), seen->p1()).length());
    if (isStraight && stroke.dashes.isEmpty()) pen.setCapStyle(Qt::SquareCap);
    canvas.SetPen(pen);
    canvas.SetAntialiasing(true);
    canvas.Painter().drawLine(*seen);
}

}  // namespace

Stroke::Stroke(const Canvas& canvas, const Pen& pen)
    : colour(ColourOf(pen.colour)),
      width(WidthOn(canvas, pen.width)),
      dashes(DashesOf(canvas, pen)),
      isVisible(pen.style != draw_style::kTransparent && std::isfinite(pen.width)),
      isInside(pen.style == draw_style::kInsideSolid) {}

QPen Stroke::ToPen(double offset) const {
    QPen pen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (dashes.isEmpty() || !(width > 0)) return pen;
    QList<double> pattern = dashes;
    for (double& length : pattern)
        length /= width;
    const double cycle = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    pen.setDashPattern(pattern);
    pen.setDashOffset(std::fmod(offset, cycle) / width);
    return pen;
}

QRectF StrokedRect(const Canvas& canvas, const Stroke& stroke, const QRectF& rect) {
    if (!canvas.OnPixels()) return rect;
    const PixelGrid grid = canvas.Grid();
    const double half = stroke.width / 2;
    const QPointF topLeft(grid.RoundX(rect.left() - half) + half, grid.RoundY(rect.top() - half) + half);
    const QPointF bottomRight(grid.RoundX(rect.right() - half) + half,
                              grid.RoundY(rect.bottom() - half) + half);
    return {topLeft, bottomRight};
}

void StrokeLine(Canvas& canvas, const Stroke& stroke, const QLineF& line) {
    if (!stroke.isVisible) return;
    const bool isUpright = line.x1() == line.x2();
    const bool isLevel = line.y1() == line.y2();
    if (isUpright && isLevel) {
        PaintDot(canvas, stroke, line.p1());
    } else if (canvas.OnPixels() && (isUpright || isLevel)) {
        canvas.SetAntialiasing(false);
        PixelLine(canvas, stroke, line).Paint();
    } else {
        PaintFreeLine(canvas, stroke, line, isUpright || isLevel);
    }
}

void StrokeRect(Canvas& canvas, const Stroke& stroke, const QRectF& rect) {
    if (!stroke.isVisible) return;
    if (!canvas.OnPixels() && SeenWith(canvas, stroke).contains(rect)) {
        canvas.SetPen(stroke.ToPen());
        canvas.SetBrush(Qt::NoBrush);
        canvas.Painter().drawRect(rect);
        return;
    }
    StrokeLine(canvas, stroke, {rect.topLeft(), rect.topRight()});
    StrokeLine(canvas, stroke, {rect.topRight(), rect.bottomRight()});
    StrokeLine(canvas, stroke, {rect.bottomRight(), rect.bottomLeft()});
    StrokeLine(canvas, stroke, {rect.bottomLeft(), rect.topLeft()});
}

}  // namespace sheetwright
