#include "print/primitives.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/value_conversion.h"
#include "print/device.h"
#include "print/picture_surface.h"
#include "print/print_state.h"

#include <QString>

#include <cmath>
#include <cstdlib>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kLeftMargin = 112;
constexpr int kTopMargin = 113;

// The corners of a shape on the page, and its extent.
struct ShapeFrame {
    std::int32_t x1, y1, x2, y2;
    std::int32_t width;
    std::int32_t height;
};

// The place itself is whole twips, too, before it is moved.
std::int32_t Adjusted(double twips, float adjust) {
    return ToInt32(ToInt32(twips) + static_cast<double>(adjust));
}

std::int32_t Distance(std::int32_t from, std::int32_t to) {
    return ToInt32(std::abs(static_cast<double>(to) - from));
}

ShapeFrame FrameOnPage(const PrintState& state, double x1, double y1, double x2, double y2) {
    ShapeFrame frame{ToInt32(x1 + state.PrintXAdjust),
                     ToInt32(y1 + state.PrintYAdjust),
                     ToInt32(x2 + state.PrintXAdjust),
                     ToInt32(y2 + state.PrintYAdjust),
                     0,
                     0};
    frame.width = Distance(frame.x1, frame.x2);
    frame.height = Distance(frame.y1, frame.y2);
    return frame;
}

// Moves the first corner so that a square of the shorter side stands in the middle of the frame.
void CentreSquare(ShapeFrame& frame) {
    const auto halfOf = [](std::int32_t longer, std::int32_t shorter) {
        return (static_cast<double>(longer) - shorter) / 2;
    };
    if (frame.width > frame.height) frame.x1 = ToInt32(frame.x1 + halfOf(frame.width, frame.height));
    if (frame.width < frame.height) frame.y1 = ToInt32(frame.y1 + halfOf(frame.height, frame.width));
}

void DrawRect(Device& device, ShapeFrame frame, Colour colour) {
    device.Line(frame.x1, frame.y1, frame.x2, frame.y2, colour, u"B");
}

void DrawSquare(Device& device, ShapeFrame frame, Colour colour) {
    CentreSquare(frame);
    if (frame.width > frame.height) frame.x2 = ToInt32(static_cast<double>(frame.x1) + frame.height);
    if (frame.width < frame.height) frame.y2 = ToInt32(static_cast<double>(frame.y1) + frame.width);
    DrawRect(device, frame, colour);
}

void DrawOval(Device& device, ShapeFrame frame, Colour colour) {
    if (frame.width == 0) throw Failure(failure::kDivisionByZero);
    const double halfWidth = frame.width / 2.0;
    device.Circle(frame.x1 + halfWidth, frame.y1 + frame.height / 2.0, halfWidth, colour,
                  static_cast<double>(frame.height) / frame.width);
}

void DrawCircle(Device& device, ShapeFrame frame, Colour colour) {
    CentreSquare(frame);
    const double radius = std::min(frame.width, frame.height) / 2.0;
    device.Circle(frame.x1 + radius, frame.y1 + radius, radius, colour, 1);
}

struct NamedShape {
    QStringView name;
    void (*draw)(Device&, ShapeFrame, Colour);
};

constexpr NamedShape kShapes[] = {
    {u"rect", DrawRect}, {u"square", DrawSquare}, {u"oval", DrawOval}, {u"circle", DrawCircle}};

float DriverAdjust(const Application& application, const Device& device, const QString& key) {
    const QString text = application.settings.Read(QStringLiteral("Tolvane Printer"), device.DriverName(),
                                                   key, QStringLiteral("0"));
    return ToSingle(ToNumber(text, application.conventions));
}

}  // namespace

void DrawLine(const PrintState& state, Device& device, double x1, double y1, double x2, double y2,
              std::optional<Colour> colour, QStringView mode) {
    device.Line(Adjusted(x1, state.PrintXAdjust), Adjusted(y1, state.PrintYAdjust),
                Adjusted(x2, state.PrintXAdjust), Adjusted(y2, state.PrintYAdjust),
                colour.value_or(device.ForeColor()), mode);
}

void DrawBox(const PrintState& state, Device& device, double x1, double y1, double x2, double y2,
             std::optional<Colour> colour) {
    DrawLine(state, device, x1, y1, x2, y1, colour);
    DrawLine(state, device, x2, y1, x2, y2, colour);
    DrawLine(state, device, x2, y2, x1, y2, colour);
    DrawLine(state, device, x1, y2, x1, y1, colour);
}

void DrawShape(const PrintState& state, Device& device, QStringView name, double x1, double y1, double x2,
               double y2, std::optional<Colour> colour) {
    const ShapeFrame frame = FrameOnPage(state, x1, y1, x2, y2);
    for (const NamedShape& shape : kShapes)
        if (shape.name == name) shape.draw(device, frame, colour.value_or(device.ForeColor()));
}

void DrawBitmap(Application& application, Device& device, PictureSurface& picture, double destWidth,
                double destHeight) {
    const PrintState& state = application.printing;
    device.Print(QString());  // a printer's document has begun now
    const bool wasVisible = std::exchange(picture.Visible, false);
    const std::optional<Failure> failed = Catching([&] {
        device.PaintPicture(picture.Image(), std::trunc(picture.Left) + state.PrintXAdjust,
                            std::trunc(picture.Top) + state.PrintYAdjust, destWidth, destHeight, 0, 0,
                            picture.Width(), picture.Height());
    });
    picture.Visible = wasVisible;
    if (!failed) return;
    application.ui.Beep();
    // The failure counts as dealt with before it is told, so that the number in the text is always 0.
    application.ui.ShowMessage(
        application.Translate(QStringLiteral("Error:%1 Printing Bitmap"), QStringLiteral("0")),
        application.Title, MessageIcon::Exclamation);
}

void LoadPrinterAdjust(Application& application, Device& device, double extraX, double extraY) {
    PrintState& state = application.printing;
    state.PrintXAdjust = DriverAdjust(application, device, QStringLiteral("XAdjust"));
    state.PrintYAdjust = DriverAdjust(application, device, QStringLiteral("YAdjust"));
    state.PrintXAdjust =
        ToSingle(state.PrintXAdjust - device.GetDeviceCaps(kLeftMargin) * device.TwipsPerPixelX());
    state.PrintYAdjust =
        ToSingle(state.PrintYAdjust - device.GetDeviceCaps(kTopMargin) * device.TwipsPerPixelY());
    state.PrintXAdjust = ToSingle(state.PrintXAdjust + extraX);
    state.PrintYAdjust = ToSingle(state.PrintYAdjust + extraY);
}

}  // namespace sheetwright
