#include "print/device.h"

#include "core/failure.h"
#include "print/print_state.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr double kLargestFont = 2160;  // points

}  // namespace

void Measurer::SetFontName(const QString& family) {
    m_font.family = family;
}

void Measurer::SetFontSize(double points) {
    if (!(points > 0 && points <= kLargestFont)) throw Failure(failure::kInvalidProperty);
    m_font.size = points;
}

double Measurer::TextHeight(QStringView text) const {
    return m_metrics.LineHeight(m_font) * static_cast<double>(text.count(u"\r\n") + 1);
}

void Device::SetFontName(const QString& family) {
    if (family == Font().family) return;
    if (!Metrics().HasFamily(family)) throw Failure(failure::kInvalidProperty);
    Measurer::SetFontName(family);
}

void Device::SetWidth(double) {
    throw Failure(failure::kInvalidProperty);
}

void Device::SetHeight(double) {
    throw Failure(failure::kInvalidProperty);
}

int Device::GetDeviceCaps(int) const {
    return 0;
}

QString Device::DriverName() const {
    throw Failure(failure::kNoSuchProperty);
}

void Device::SetDrawWidth(double pixels) {
    const std::int16_t width = ToInt16(pixels);
    if (width < 1) throw Failure(failure::kInvalidProperty);
    m_drawWidth = width;
}

void Device::SetDrawStyle(std::int16_t style) {
    if (style < 0 || style > draw_style::kInsideSolid) throw Failure(failure::kInvalidProperty);
    m_drawStyle = style;
}

Pen Device::PenIn(Colour colour) const {
    return {colour, m_drawWidth * TwipsPerPixelX(), m_drawStyle};
}

void Device::Print(const QString& text) {
    Touch();
    if (!text.isEmpty()) Draw(DrawnText{CurrentX, CurrentY, text, Font(), m_foreColor});
    CurrentX = 0;
    CurrentY += TextHeight(text);
}

void Device::Line(double x1, double y1, double x2, double y2, Colour colour, QStringView mode) {
    Touch();
    if (mode == u"B") {
        Draw(DrawnBox{x1, y1, x2, y2, PenIn(colour), m_fill});
    } else if (mode == u"BF") {
        Draw(DrawnBox{x1, y1, x2, y2, PenIn(colour), Fill{colour, fill_style::kSolid}});
    } else {
        Draw(DrawnLine{x1, y1, x2, y2, PenIn(colour)});
    }
}

void Device::Circle(double cx, double cy, double radius, Colour colour, double aspect) {
    if (!(radius >= 0 && aspect >= 0)) throw Failure(failure::kInvalidCall);
    Touch();
    const double rx = aspect > 1 ? radius / aspect : radius;
    const double ry = aspect < 1 ? radius * aspect : radius;
    Draw(DrawnEllipse{cx, cy, rx, ry, PenIn(colour), m_fill});
}

void Device::PaintPicture(const Picture& picture, double x, double y, double w, double h, double sx,
                          double sy, double sw, double sh) {
    Touch();
    if (!picture.IsEmpty()) Draw(DrawnPicture{picture, QRectF(x, y, w, h), QRectF(sx, sy, sw, sh)});
}

Printer* InstalledPrinter(const PrintState& state) {
    return state.printers != nullptr && state.printers->Count() > 0 ? &state.printers->Printer() : nullptr;
}

bool IsPrinter(const PrintState& state, const Device& device) {
    const Printer* const printer = InstalledPrinter(state);
    return printer != nullptr && printer->hdc() == device.hdc();
}

}  // namespace sheetwright
