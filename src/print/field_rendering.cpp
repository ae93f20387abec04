#include "core/application.h"
#include "core/paths.h"
#include "formula/value_conversion.h"
#include "print/element_pens.h"
#include "print/element_rendering.h"
#include "print/form_surfaces.h"
#include "print/primitives.h"

#include <cmath>

namespace sheetwright {

namespace {

// Of a check box, in twips.
constexpr double kBoxSize = 180;
constexpr double kCaptionOffset = 260;
constexpr double kMarkOffsetX = 28.4;
constexpr double kMarkOffsetY = 56.7;
constexpr std::int16_t kMarkSize = 200;
constexpr double kMarkFontSize = 8;  // points

constexpr double kCrossedOut = 2;  // the state that strikes its caption through

struct Mark {
    double state;
    QStringView sign;
    QStringView family;
    double shiftX;
    double shiftY;
};

// In a symbol font "ü" is a tick.
constexpr Mark kMarks[] = {
    {1, u"\u00FC", u"WingDings", -30, -60},
    {2, u"-", u"Courier New", -15, -90},
    {3, u"?", u"Courier New", -15, -90},
};

void DrawBorder(const PrintState& state, Device& device, const FieldRecord& field) {
    const double style = field.BorderStyle();
    if (style != 1 && style != 2) return;
    SetFramePen(state, device, Unguarded());
    const Extent place = field.Place();
    if (style == 1) return DrawFrame(state, device, place);
    const double y = place.top + place.height - kRuleHeight;
    DrawLine(state, device, place.left, y, place.left + place.width - state.ScreenTwipsPerPixelX, y,
             Colour{0}, u"B");
}

void DrawText(FormDrawing& form, Device& device, const FieldRecord& field, const QString& value) {
    form.application.printing.AlignmentMode = field.Alignment();
    const FontSpec font = PaintedFont(field);
    DrawTextBox(form.application, device, form.surfaces.picContainer, value, font, field.ForeColor(),
                TextBoxOf(field));
}

struct Size {
    double width = 0;
    double height = 0;
};

double Divided(double number, double by) {
    if (by == 0) throw Failure(failure::kDivisionByZero);
    return number / by;
}

// The largest size of the picture's shape that fits the box, in whole twips.
Size Fitted(const Size& box, const Size& picture) {
    const bool isWide = static_cast<float>(Divided(box.width, box.height)) <
                        static_cast<float>(Divided(picture.width, picture.height));
    const double scale = isWide ? box.width / picture.width : Divided(box.height, picture.height);
    const auto cut = [](double twips) { return static_cast<double>(ToInt16(std::trunc(twips))); };
    return isWide ? Size{cut(box.width), cut(scale * picture.height)}
                  : Size{cut(scale * picture.width), cut(box.height)};
}

// In screen pixels, which keeps large photographs within 16 bits.
Size NaturalSize(const PrintState& state, const Picture& picture) {
    return {static_cast<double>(ToInt16(picture.width / state.ScreenTwipsPerPixelX)),
            static_cast<double>(ToInt16(picture.height / state.ScreenTwipsPerPixelY))};
}

// Scaled to fit, centred.
void Compose(PictureSurface& surface, const PrintState& state, const Picture& picture) {
    const Size box{surface.Width(), surface.Height()};
    const Size size = Fitted(box, NaturalSize(state, picture));
    surface.PaintPicture(picture, (box.width - size.width) / 2, (box.height - size.height) / 2, size.width,
                         size.height, 0, 0, picture.width, picture.height);
}

void DrawPicture(FormDrawing& form, Device& device, const FieldRecord& field, const QString& value) {
    const QString file = form.MyTempDir + value;
    if (value.isEmpty() || !FileExists(file)) return;
    form.surfaces.imgPicture = form.surfaces.pictures.Load(file);
    PictureSurface& surface = form.surfaces.picPicture;
    const Extent place = field.Place();
    surface.Left = place.left;
    surface.Top = place.top;
    surface.SetWidth(place.width);
    surface.SetHeight(place.height);
    surface.Cls();
    Compose(surface, form.application.printing, form.surfaces.imgPicture);
    DrawBitmap(form.application, device, surface, surface.Width(), surface.Height());
}

// `x` and `y`: where the mark's box would stand if it had no shift of its own.
void DrawMark(FormDrawing& form, Device& device, const CheckRecord& check, double value, double x, double y) {
    for (const Mark& mark : kMarks) {
        if (mark.state != value) continue;
        FontSpec font;
        font.family = mark.family.toString();
        font.size = kMarkFontSize;
        font.bold = true;
        const std::int16_t top = ToInt16(y + mark.shiftY);
        DrawTextBox(form.application, device, form.surfaces.picContainer, mark.sign.toString(), font,
                    check.ForeColor(), {top, ToInt16(x + mark.shiftX), kMarkSize, kMarkSize});
    }
}

void DrawCaption(FormDrawing& form, Device& device, const CheckRecord& check, double value, double offset) {
    FontSpec font = PaintedFont(check);
    font.strikethru = font.strikethru || value == kCrossedOut;
    const Extent place = check.Place();
    const TextBox box{ToInt16(place.top), ToInt16(place.left + offset), ToInt16(place.height),
                      ToInt16(place.width - kCaptionOffset)};
    DrawTextBox(form.application, device, form.surfaces.picContainer, check.Caption(), font,
                check.ForeColor(), box);
}

}  // namespace

void DrawField(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value) {
    const FieldRecord field(form.application, bag);
    device.SetDrawWidth(1);
    DrawBorder(form.application.printing, device, field);
    if (field.PrintsAsText()) {
        DrawText(form, device, field, value);
    } else {
        DrawPicture(form, device, field, value);
    }
    form.application.printing.AlignmentMode = 0;
}

void DrawCheckBox(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value) {
    const CheckRecord check(form.application, bag);
    PrintState& state = form.application.printing;
    state.AlignmentMode = 0;
    SetFramePen(state, device, Unguarded());

    const Extent place = check.Place();
    const bool isBoxOnTheRight = check.IsBoxOnTheRight();
    const double x = isBoxOnTheRight ? place.left + place.width - kBoxSize : place.left;
    const double y = place.top + (place.height - kBoxSize) / 2;
    DrawLine(state, device, x, y, x + kBoxSize, y + kBoxSize, check.ForeColor(), u"B");

    const double number = ToNumber(value, form.application.conventions);
    DrawMark(form, device, check, number, x + kMarkOffsetX, y + kMarkOffsetY);
    DrawCaption(form, device, check, number, isBoxOnTheRight ? 0 : kCaptionOffset);
}

}  // namespace sheetwright
