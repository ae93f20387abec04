#include "core/application.h"
#include "core/paths.h"
#include "formula/value_conversion.h"
#include "print/element_pens.h"
#include "print/element_rendering.h"
#include "print/form_surfaces.h"
#include "print/picture_fit.h"
#include "print/primitives.h"

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

// Reads a record when it is asked, so that each value fails where its bad key stands in the order of drawing.
class LazyLook {
  public:
    explicit LazyLook(const FieldRecord& field) : m_field(field) {}
    [[nodiscard]] double BorderStyle() const { return m_field.BorderStyle(); }
    [[nodiscard]] Extent Place() const { return m_field.Place(); }
    [[nodiscard]] std::int16_t Alignment() const { return m_field.Alignment(); }
    [[nodiscard]] FontSpec Font() const { return PaintedFont(m_field); }
    [[nodiscard]] Colour ForeColor() const { return m_field.ForeColor(); }
    [[nodiscard]] TextBox Box() const { return TextBoxOf(m_field); }

  private:
    const FieldRecord& m_field;
};

class KnownLook {
  public:
    explicit KnownLook(const FieldLook& look) : m_look(look) {}
    [[nodiscard]] double BorderStyle() const { return m_look.borderStyle; }
    [[nodiscard]] const Extent& Place() const { return m_look.place; }
    [[nodiscard]] std::int16_t Alignment() const { return m_look.alignment; }
    [[nodiscard]] const FontSpec& Font() const { return m_look.font; }
    [[nodiscard]] Colour ForeColor() const { return m_look.colour; }
    [[nodiscard]] TextBox Box() const { return m_look.box; }

  private:
    const FieldLook& m_look;
};

template <typename Look>
void DrawBorder(const PrintState& state, Device& device, const Look& field) {
    const double style = field.BorderStyle();
    if (style != 1 && style != 2) return;
    DrawFieldBorder(state, device, style, field.Place());
}

template <typename Look>
void DrawText(FormDrawing& form, Device& device, const Look& field, const QString& value) {
    form.application.printing.AlignmentMode = field.Alignment();
    const FontSpec& font = field.Font();
    const Colour colour = field.ForeColor();
    DrawTextBox(form.application, device, form.surfaces.picContainer, value, font, colour, field.Box());
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

// Also reads a record when it is asked.
class LazyCheck {
  public:
    explicit LazyCheck(const CheckRecord& check) : m_check(check) {}
    [[nodiscard]] Extent Place() const { return m_check.Place(); }
    [[nodiscard]] bool IsBoxOnTheRight() const { return m_check.IsBoxOnTheRight(); }
    [[nodiscard]] const QString& Caption() const { return m_check.Caption(); }
    [[nodiscard]] FontSpec Font() const { return PaintedFont(m_check); }
    [[nodiscard]] Colour ForeColor() const { return m_check.ForeColor(); }

  private:
    const CheckRecord& m_check;
};

class KnownCheck {
  public:
    explicit KnownCheck(const CheckLook& look) : m_look(look) {}
    [[nodiscard]] const Extent& Place() const { return m_look.place; }
    [[nodiscard]] bool IsBoxOnTheRight() const { return m_look.isBoxOnTheRight; }
    [[nodiscard]] const QString& Caption() const { return m_look.caption; }
    [[nodiscard]] const FontSpec& Font() const { return m_look.font; }
    [[nodiscard]] Colour ForeColor() const { return m_look.colour; }

  private:
    const CheckLook& m_look;
};

// Where a check box is drawn, and how its texts are.
struct CheckCanvas {
    Application& application;
    Device& device;
    Measurer& measurer;
    void (*drawText)(Application&, Device&, Measurer&, const QString&, const FontSpec&, Colour, TextBox);

    void Text(const QString& text, const FontSpec& font, Colour colour, TextBox box) const {
        drawText(application, device, measurer, text, font, colour, box);
    }
};

// `x` and `y`: where the mark's box would stand if it had no shift of its own.
template <typename Check>
void DrawMark(const CheckCanvas& canvas, const Check& check, double value, double x, double y) {
    for (const Mark& mark : kMarks) {
        if (mark.state != value) continue;
        FontSpec font;
        font.family = mark.family.toString();
        font.size = kMarkFontSize;
        font.bold = true;
        const std::int16_t top = ToInt16(y + mark.shiftY);
        const TextBox box{top, ToInt16(x + mark.shiftX), kMarkSize, kMarkSize};
        canvas.Text(mark.sign.toString(), font, check.ForeColor(), box);
    }
}

template <typename Check>
void DrawCaption(const CheckCanvas& canvas, const Check& check, double value, double offset) {
    FontSpec font = check.Font();
    font.strikethru = font.strikethru || value == kCrossedOut;
    const Extent place = check.Place();
    const TextBox box{ToInt16(place.top), ToInt16(place.left + offset), ToInt16(place.height),
                      ToInt16(place.width - kCaptionOffset)};
    canvas.Text(check.Caption(), font, check.ForeColor(), box);
}

template <typename Check>
void DrawCheckBoxOn(const CheckCanvas& canvas, const Check& check, double value) {
    PrintState& state = canvas.application.printing;
    state.AlignmentMode = 0;
    SetFramePen(state, canvas.device, Unguarded());

    const Extent place = check.Place();
    const bool isBoxOnTheRight = check.IsBoxOnTheRight();
    const double x = isBoxOnTheRight ? place.left + place.width - kBoxSize : place.left;
    const double y = place.top + (place.height - kBoxSize) / 2;
    DrawLine(state, canvas.device, x, y, x + kBoxSize, y + kBoxSize, check.ForeColor(), u"B");

    DrawMark(canvas, check, value, x + kMarkOffsetX, y + kMarkOffsetY);
    DrawCaption(canvas, check, value, isBoxOnTheRight ? 0 : kCaptionOffset);
}

}  // namespace

std::optional<FieldLook> LookOf(const Application& application, const PropertyBag& bag) {
    const FieldRecord field(application, bag);
    std::optional<FieldLook> look;
    Ignoring([&] {
        if (field.PrintsAsText())
            look = FieldLook{field.BorderStyle(), field.Place(),     field.Alignment(),
                             PaintedFont(field),  field.ForeColor(), TextBoxOf(field)};
    });
    return look;
}

void DrawField(FormDrawing& form, Device& device, const FieldLook& look, const QString& value) {
    const KnownLook known(look);
    device.SetDrawWidth(1);
    DrawBorder(form.application.printing, device, known);
    DrawText(form, device, known, value);
    form.application.printing.AlignmentMode = 0;
}

void DrawField(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value) {
    const FieldRecord field(form.application, bag);
    const LazyLook look(field);
    device.SetDrawWidth(1);
    DrawBorder(form.application.printing, device, look);
    if (field.PrintsAsText()) {
        DrawText(form, device, look, value);
    } else {
        DrawPicture(form, device, field, value);
    }
    form.application.printing.AlignmentMode = 0;
}

void DrawCheckBox(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value) {
    const CheckRecord check(form.application, bag);
    const CheckCanvas canvas{form.application, device, form.surfaces.picContainer, DrawTextBox};
    DrawCheckBoxOn(canvas, LazyCheck(check), ToNumber(value, form.application.conventions));
}

void DrawCheckBox(Application& application, Device& device, Measurer& measurer, const CheckLook& look,
                  double value) {
    const auto draw = [](Application& owner, Device& on, Measurer& metrics, const QString& text,
                         const FontSpec& font, Colour colour, TextBox box) {
        DrawTextInBox(owner, on, metrics, text, font, colour, box, LineBreaks::Wrapped);
    };
    DrawCheckBoxOn(CheckCanvas{application, device, measurer, draw}, KnownCheck(look), value);
}

void DrawFieldBorder(const PrintState& state, Device& device, double style, const Extent& place) {
    if (style != 1 && style != 2) return;
    SetFramePen(state, device, Unguarded());
    if (style == 1) return DrawFrame(state, device, place);
    DrawRule(state, device, place, u"B");
}

}  // namespace sheetwright
