#include "print/fixed_elements.h"

#include "print/element_pens.h"
#include "print/form_surfaces.h"
#include "print/paper_table.h"
#include "print/primitives.h"

#include <cmath>

namespace sheetwright {

namespace {

constexpr double kNearlyStraight = 60;  // twips

// In pixels of the device. A thin or patterned line keeps a pen of one pixel: a thicker one would turn its
// pattern solid.
double OutlinePen(const ElementDrawing& element, std::int16_t borderWidth) {
    const bool isWide = borderWidth > 1 || (borderWidth == 1 && element.device.DrawStyle() == 0);
    return isWide ? ToInt16(std::trunc(borderWidth * ScreenPixelPen(element.State(), element.device))) : 1;
}

void SetLinePen(const ElementDrawing& element, const OutlineRecord& record) {
    constexpr std::int16_t kLastPattern = 5;
    std::int16_t type = 0;
    element.Step([&] { type = record.BorderType(); });
    const bool isLeftAlone = element.isOnScreen && type < 1;  // on paper the device refuses it
    if (type <= kLastPattern && !isLeftAlone) {
        element.Step([&] { element.device.SetDrawStyle(ToInt16(type - 1.0)); });
    } else if (type == draw_style::kInsideSolid) {
        element.device.SetDrawStyle(draw_style::kInsideSolid);
    }
    std::int16_t width = 0;
    element.Step([&] { width = record.BorderWidth(); });
    double pen = 0;
    element.Step([&] { pen = OutlinePen(element, width); });
    element.Step([&] { element.device.SetDrawWidth(pen); });
}

struct Corners {
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

// The right and the bottom edge lie one screen pixel inside.
Corners CornersOf(const PrintState& state, const RecordView& record) {
    const Extent place = record.Place();
    return {place.left, place.top, place.left + place.width - state.ScreenTwipsPerPixelX,
            place.top + place.height - state.ScreenTwipsPerPixelY};
}

// Each coordinate is a statement of its own: one that fails is 0.
Corners EndsOf(const ElementDrawing& element, const LineRecord& record) {
    const PrintState& state = element.State();
    Corners line;
    element.Step([&] { line.x1 = record.AbsLeft(); });
    element.Step([&] { line.x2 = record.AbsLeft() + record.Width() - state.ScreenTwipsPerPixelX; });
    element.Step([&] { line.y1 = record.AbsTop(); });
    element.Step([&] { line.y2 = record.AbsTop() + record.Height() - state.ScreenTwipsPerPixelY; });
    return line;
}

Corners Straightened(Corners line) {
    if (std::abs(line.x2 - line.x1) <= kNearlyStraight) line.x2 = line.x1;
    if (std::abs(line.y2 - line.y1) <= kNearlyStraight) line.y2 = line.y1;
    return line;
}

template <typename Record>
double BorderStyleOf(const ElementDrawing& element, const Record& record) {
    double style = 0;
    element.Step([&] { style = record.BorderStyle(); });
    return style;
}

}  // namespace

void SetFramePen(const ElementDrawing& element) {
    SetFramePen(element.State(), element.device,
                [&](auto&& statement) { element.Step(std::forward<decltype(statement)>(statement)); });
}

void ApplyPage(const ElementDrawing& element) {
    Application& application = element.form.application;
    const auto page = element.As<PageRecord>();
    element.Step([&] { application.CurrentOrientation = page.Orientation(); });
    element.Step([&] { application.CurrentPaperSize = page.PaperSize(); });
    if (Printer* const printer = InstalledPrinter(application.printing)) {
        element.Step([&] { printer->EndDoc(); });
        element.Step([&] { printer->SetOrientation(application.CurrentOrientation); });
        element.Step([&] { printer->SetPaperSize(application.CurrentPaperSize); });
        printer->SetBkMode(1);
    }
    if (IsPrinter(application.printing, element.device)) return;
    element.Step([&] { element.device.SetWidth(PageWidthTwips(application)); });
    element.Step([&] { element.device.SetHeight(PageHeightTwips(application)); });
}

void DrawFrameElement(const ElementDrawing& element) {
    const auto frame = element.As<FrameRecord>();
    if (BorderStyleOf(element, frame) != 1) return;
    SetFramePen(element);
    element.Step([&] { DrawFrame(element.State(), element.device, frame.Place()); });
}

void DrawLineElement(const ElementDrawing& element) {
    const PrintState& state = element.State();
    const auto record = element.As<LineRecord>();
    SetLinePen(element, record);
    const Corners line = Straightened(EndsOf(element, record));
    QString direction;
    element.Step([&] { direction = record.Direction(); });
    if (direction == u"0") {
        element.Step([&] {
            DrawLine(state, element.device, line.x1, line.y1, line.x2, line.y2, record.BorderColor());
        });
    } else if (direction == u"1") {
        element.Step([&] {
            DrawLine(state, element.device, line.x1, line.y2, line.x2, line.y1, record.BorderColor());
        });
    }
    if (Printer* const printer = InstalledPrinter(state)) printer->SetBkMode(1);
}

void DrawShapeElement(const ElementDrawing& element) {
    const auto record = element.As<ShapeRecord>();
    SetLinePen(element, record);
    element.Step([&] { element.device.SetFillColor(record.FillColor()); });
    element.Step([&] { element.device.SetFillStyle(record.FillStyle()); });
    QString name;
    element.Step([&] { name = record.Shape(); });
    if (name.isEmpty()) return;
    element.Step([&] {
        const Corners box = CornersOf(element.State(), record);
        DrawShape(element.State(), element.device, name, box.x1, box.y1, box.x2, box.y2,
                  record.BorderColor());
    });
}

void DrawLabelElement(const ElementDrawing& element) {
    PrintState& state = element.State();
    Device& device = element.device;
    const auto label = element.As<LabelRecord>();
    element.Step([&] { device.SetDrawWidth(1); });
    const double borderStyle = BorderStyleOf(element, label);
    if (borderStyle == 1 || borderStyle == 2) SetFramePen(element);
    if (borderStyle == 1) element.Step([&] { DrawFrame(state, device, label.Place()); });
    if (borderStyle == 2) element.Step([&] { DrawRule(state, device, label.Place()); });
    element.Step([&] { state.AlignmentMode = label.Alignment(); });
    element.Step([&] {
        const QString& caption = label.Caption();
        const FontSpec font = PaintedFont(label);
        DrawTextBox(element.form.application, device, element.form.surfaces.picContainer, caption, font,
                    label.ForeColor(), TextBoxOf(label));
    });
}

}  // namespace sheetwright
