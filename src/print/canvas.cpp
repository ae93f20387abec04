#include "print/canvas.h"

#include <QPaintDevice>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

// So that what should lie on a pixel edge isn't put before it by a rounding error.
constexpr double kEdgeTolerance = 1e-4;
constexpr double kUnknownExtent = 100'000;

}  // namespace

double PixelGrid::FloorX(double x) const {
    return (std::floor(x * perUnit + originX + kEdgeTolerance) - originX) / perUnit;
}

double PixelGrid::FloorY(double y) const {
    return (std::floor(y * perUnit + originY + kEdgeTolerance) - originY) / perUnit;
}

QRectF PixelGrid::Rounded(const QRectF& rect) const {
    const double left = RoundX(rect.left());
    const double top = RoundY(rect.top());
    return {left, top, std::max(RoundX(rect.right()) - left, Pixel()),
            std::max(RoundY(rect.bottom()) - top, Pixel())};
}

Canvas::Canvas(QPainter& painter, double scale, bool onPixels)
    : m_painter(painter), m_scale(scale), m_onPixels(onPixels) {
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter.setRenderHint(QPainter::TextAntialiasing);
}

PixelGrid Canvas::Grid() const {
    const QTransform& transform = m_painter.deviceTransform();
    if (!(transform.m11() > 0)) return {};
    return {transform.m11(), transform.dx(), transform.dy()};
}

// The painter's own viewport isn't asked, since it stays that of the first page of a document.
QRectF Canvas::Visible() const {
    const QPaintDevice* const device = m_painter.device();
    QRectF area(0, 0, device->width(), device->height());
    if (area.isEmpty())
        area = QRectF(-kUnknownExtent, -kUnknownExtent, 2 * kUnknownExtent, 2 * kUnknownExtent);
    if (!m_onPixels) area.adjust(-area.width(), -area.height(), area.width(), area.height());
    const QTransform& world = m_painter.worldTransform();
    area.translate(-world.dx(), -world.dy());
    return m_painter.hasClipping() ? area & m_painter.clipBoundingRect() : area;
}

void Canvas::SetPen(const QPen& pen) {
    if (m_pen == pen) return;
    m_pen = pen;
    m_painter.setPen(pen);
}

void Canvas::SetTextColour(const QColor& colour) {
    if (m_pen && m_pen->style() != Qt::NoPen && m_pen->color() == colour) return;
    SetPen(QPen(colour));
}

void Canvas::SetBrush(const QBrush& brush) {
    if (m_brush == brush) return;
    m_brush = brush;
    m_painter.setBrush(brush);
}

void Canvas::SetFont(const QFont& font) {
    if (m_font && m_font->isCopyOf(font)) return;
    m_font = font;
    m_painter.setFont(font);
}

void Canvas::SetAntialiasing(bool on) {
    if (m_antialiasing == on) return;
    m_antialiasing = on;
    m_painter.setRenderHint(QPainter::Antialiasing, on);
}

void Canvas::Forget() {
    m_pen.reset();
    m_brush.reset();
    m_font.reset();
    m_antialiasing.reset();
}

QColor ColourOf(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
                  static_cast<int>(colour >> 16U & 0xFFU));
}

}  // namespace sheetwright
