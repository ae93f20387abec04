#include "apps/wmf/metafile_canvas.h"

#include "apps/wmf/metafile_text.h"

#include <QPainterPath>

#include <libwmf/defs.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

constexpr double kThinnestPerSide = 1.0 / 600;  // hairlines in proportion to the picture,
constexpr double kThinnest = 1;                 // but never thinner
constexpr double kThickest = 4;                 // nor thicker than that, in pixels
constexpr int kSixteenthsPerTurn = 360 * 16;

QColor ColourOf(const wmfRGB& colour) {
    return {colour.r, colour.g, colour.b};
}

constexpr std::array kPenStyles{Qt::SolidLine,      Qt::DashLine, Qt::DotLine,  Qt::DashDotLine,
                                Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine};
constexpr std::array kHatches{Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                              Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};

Qt::PenStyle StyleOf(const wmfPen& pen) {
    const std::size_t style = pen.lopnStyle & PS_STYLE_MASK;
    return style < kPenStyles.size() ? kPenStyles[style] : Qt::SolidLine;
}

int Sixteenths(double radians) {
    return static_cast<int>(std::lround(radians * kSixteenthsPerTurn / (2 * std::acos(-1.0))));
}

// Where a ray meets the ellipse of an arc, counterclockwise, as on the circle that it would be unsqueezed.
double AngleOf(const wmfD_Coord& ray, const wmfDrawArc_t& arc) {
    return std::atan2(-double{ray.y} / std::abs(arc.BR.y - arc.TL.y),
                      double{ray.x} / std::abs(arc.BR.x - arc.TL.x));
}

}  // namespace

MetafileCanvas::MetafileCanvas(QSize pixels)
    : m_image(pixels, QImage::Format_ARGB32_Premultiplied),
      m_scaleX(pixels.width() / kSpan),
      m_scaleY(pixels.height() / kSpan) {
    m_image.fill(Qt::transparent);
    m_painter.begin(&m_image);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

QImage MetafileCanvas::Finish() {
    m_painter.end();
    return m_image;
}

QPointF MetafileCanvas::At(const wmfD_Coord& point) const {
    return {double{point.x} * m_scaleX, double{point.y} * m_scaleY};
}

QRectF MetafileCanvas::Box(const wmfD_Coord& topLeft, const wmfD_Coord& bottomRight) const {
    return QRectF(At(topLeft), At(bottomRight)).normalized();
}

QPolygonF MetafileCanvas::Points(const wmfD_Coord* points, int count) const {
    QPolygonF polygon;
    std::transform(points, points + count, std::back_inserter(polygon),
                   [this](const wmfD_Coord& point) { return At(point); });
    return polygon;
}

QPen MetafileCanvas::PenOf(const wmfDC& dc) const {
    const wmfPen& pen = *dc.pen;
    const double side = std::max(m_image.width(), m_image.height());
    const double thinnest = std::clamp(side * kThinnestPerSide, kThinnest, kThickest);
    const double width = std::max(std::abs(pen.width) * m_scaleX, std::abs(pen.height) * m_scaleY);
    QPen result(ColourOf(pen.lopnColor), std::max(width, thinnest), StyleOf(pen));
    const bool isFlat = (pen.lopnStyle & PS_ENDCAP_MASK) == PS_ENDCAP_FLAT;
    const bool isMitred = (pen.lopnStyle & PS_JOIN_MASK) == PS_JOIN_MITER;
    result.setCapStyle(isFlat ? Qt::FlatCap : Qt::RoundCap);
    result.setJoinStyle(isMitred ? Qt::MiterJoin : Qt::RoundJoin);
    return result;
}

QBrush MetafileCanvas::BrushOf(const wmfDC& dc) {
    const wmfBrush& brush = *dc.brush;
    const QColor colour = ColourOf(brush.lbColor);
    if (brush.lbStyle == BS_NULL) return Qt::NoBrush;
    if (brush.lbStyle == BS_HATCHED)
        return {colour, brush.lbHatch < kHatches.size() ? kHatches[brush.lbHatch] : Qt::SolidPattern};
    if (brush.bmp.data != nullptr) return QBrush(*static_cast<const QImage*>(brush.bmp.data));
    return colour;
}

bool MetafileCanvas::Prepare(const wmfDC& dc, bool isFilled) {
    if (dc.ROPmode == R2_NOP) return false;
    m_painter.setPen(PenOf(dc));
    m_painter.setBrush(isFilled ? BrushOf(dc) : Qt::NoBrush);
    return true;
}

void MetafileCanvas::Pixel(const wmfDrawPixel_t& pixel) {
    const QSizeF size(std::abs(pixel.pixel_width) * m_scaleX, std::abs(pixel.pixel_height) * m_scaleY);
    m_painter.fillRect(QRectF(At(pixel.pt), size), ColourOf(pixel.color));
}

void MetafileCanvas::Arc(const wmfDrawArc_t& arc, ArcKind kind) {
    const QRectF box = Box(arc.TL, arc.BR);
    if (box.isEmpty() || !Prepare(*arc.dc, kind != ArcKind::Open)) return;
    // The player gives the rays to both ends as seen from the centre, and the arc runs clockwise.
    const int start = Sixteenths(AngleOf(arc.end, arc));
    int span = Sixteenths(AngleOf(arc.start, arc)) - start;
    if (span <= 0) span += kSixteenthsPerTurn;
    if (kind == ArcKind::Pie) m_painter.drawPie(box, start, span);
    if (kind == ArcKind::Chord) m_painter.drawChord(box, start, span);
    if (kind == ArcKind::Open) m_painter.drawArc(box, start, span);
}

void MetafileCanvas::Ellipse(const wmfDrawArc_t& ellipse) {
    if (Prepare(*ellipse.dc, true)) m_painter.drawEllipse(Box(ellipse.TL, ellipse.BR));
}

void MetafileCanvas::Line(const wmfDrawLine_t& line) {
    if (Prepare(*line.dc, false)) m_painter.drawLine(At(line.from), At(line.to));
}

void MetafileCanvas::PolyLine(const wmfPolyLine_t& line) {
    if (Prepare(*line.dc, false)) m_painter.drawPolyline(Points(line.pt, line.count));
}

void MetafileCanvas::Polygon(const wmfPolyLine_t& polygon) {
    if (!Prepare(*polygon.dc, true)) return;
    const auto rule = polygon.dc->polyfillmode == WINDING ? Qt::WindingFill : Qt::OddEvenFill;
    m_painter.drawPolygon(Points(polygon.pt, polygon.count), rule);
}

void MetafileCanvas::PolyPolygon(const wmfPolyPoly_t& polygons) {
    if (!Prepare(*polygons.dc, true)) return;
    QPainterPath path;
    path.setFillRule(polygons.dc->polyfillmode == WINDING ? Qt::WindingFill : Qt::OddEvenFill);
    for (int index = 0; index < polygons.npoly; ++index) {
        path.addPolygon(Points(polygons.pt[index], polygons.count[index]));
        path.closeSubpath();
    }
    m_painter.drawPath(path);
}

void MetafileCanvas::Rectangle(const wmfDrawRectangle_t& rectangle) {
    if (!Prepare(*rectangle.dc, true)) return;
    const double radiusX = std::abs(double{rectangle.width}) * m_scaleX / 2;
    const double radiusY = std::abs(double{rectangle.height}) * m_scaleY / 2;
    m_painter.drawRoundedRect(Box(rectangle.TL, rectangle.BR), radiusX, radiusY);
}

void MetafileCanvas::FillRectangle(const wmfROP_Draw_t& rectangle) {
    const QRectF box = Box(rectangle.TL, rectangle.BR);
    if (rectangle.ROP == PATCOPY) m_painter.fillRect(box, BrushOf(*rectangle.dc));
    if (rectangle.ROP == BLACKNESS) m_painter.fillRect(box, Qt::black);
    if (rectangle.ROP == WHITENESS) m_painter.fillRect(box, Qt::white);
}

void MetafileCanvas::Image(const wmfBMP_Draw_t& drawn, const QImage& image) {
    const QRectF crop(drawn.crop.x, drawn.crop.y, drawn.crop.w, drawn.crop.h);
    const QSizeF size(crop.width() * std::abs(drawn.pixel_width) * m_scaleX,
                      crop.height() * std::abs(drawn.pixel_height) * m_scaleY);
    m_painter.drawImage(QRectF(At(drawn.pt), size), image, crop);
}

void MetafileCanvas::Text(const wmfDrawText_t& text) {
    const TextLine line = TextLineOf(text, m_scaleX, m_scaleY);
    m_painter.save();
    if ((text.flags & ETO_CLIPPED) != 0) m_painter.setClipRect(Box(text.TL, text.BR), Qt::IntersectClip);
    if ((text.flags & ETO_OPAQUE) != 0) m_painter.fillRect(Box(text.TL, text.BR), ColourOf(text.dc->bgcolor));
    m_painter.translate(At(line.reference));
    m_painter.rotate(line.degrees);
    m_painter.scale(line.stretch, 1);
    if (text.dc->bgmode == OPAQUE) m_painter.fillRect(line.box, ColourOf(text.dc->bgcolor));
    m_painter.setPen(ColourOf(text.dc->textcolor));
    m_painter.setFont(line.font);
    m_painter.drawText(line.baseline, line.text);
    m_painter.restore();
}

void MetafileCanvas::PaintRegion(const wmfPolyRectangle_t& region) {
    for (unsigned index = 0; index < region.count; ++index)
        m_painter.fillRect(Box(region.TL[index], region.BR[index]), BrushOf(*region.dc));
}

void MetafileCanvas::FrameRegion(const wmfPolyRectangle_t& region) {
    QPainterPath frame;
    const double width = std::abs(double{region.width}) * m_scaleX;
    const double height = std::abs(double{region.height}) * m_scaleY;
    for (unsigned index = 0; index < region.count; ++index) {
        const QRectF box = Box(region.TL[index], region.BR[index]);
        frame.addRect(box);
        frame.addRect(box.adjusted(width, height, -width, -height));
    }
    m_painter.fillPath(frame, BrushOf(*region.dc));
}

void MetafileCanvas::Clip(const wmfPolyRectangle_t& region) {
    if (region.count == 0) {
        m_painter.setClipping(false);
        return;
    }
    QPainterPath shown;
    shown.setFillRule(Qt::WindingFill);
    for (unsigned index = 0; index < region.count; ++index)
        shown.addRect(Box(region.TL[index], region.BR[index]));
    m_painter.setClipPath(shown);
}

}  // namespace sheetwright
