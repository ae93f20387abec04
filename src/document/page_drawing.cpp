#include "document/page_drawing.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/field_child.h"
#include "print/element_pens.h"
#include "print/element_rendering.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/primitives.h"
#include "print/screen_drawing.h"

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

// On screen only, so that people see where to type: the edge of a field that has no border on paper.
constexpr Colour kTypeHereEdge = 0xE6DCD3;
constexpr Colour kInstructionText = 0x707070;
constexpr double kInstructionMargin = 45;  // twips

constexpr std::int16_t kRightAligned = 1;

constexpr Colour kRgb = 0xFFFFFF;
constexpr Colour kSystemColour = 0x80000000;
constexpr Colour kBlack = 0;
constexpr Colour kWhite = 0xFFFFFF;

Colour OnScreen(Colour colour, Colour systemColour) {
    return (colour & kSystemColour) != 0 ? systemColour : colour & kRgb;
}

TextBox BoxOf(const Extent& place) {
    return {ToInt16(place.top), ToInt16(place.left), ToInt16(place.height), ToInt16(place.width)};
}

void FillBox(const PrintState& state, PictureSurface& surface, const Extent& place, Colour colour) {
    surface.SetDrawWidth(1);
    surface.SetDrawStyle(draw_style::kTransparent);
    DrawLine(state, surface, place.left, place.top, place.left + place.width, place.top + place.height,
             colour, u"BF");
}

void DrawEdge(const PrintState& state, PictureSurface& surface, const Extent& place) {
    SetFramePen(state, surface, Unguarded());
    DrawBox(state, surface, place.left, place.top, place.left + place.width - state.ScreenTwipsPerPixelX,
            place.top + place.height - state.ScreenTwipsPerPixelY, kTypeHereEdge);
}

// A text element is one pixel smaller than the field on paper.
Extent PlaceOnPaper(const PrintState& state, const TextElement& entry) {
    Extent place = entry.place;
    place.width += state.ScreenTwipsPerPixelX;
    place.height += state.ScreenTwipsPerPixelY;
    return place;
}

void DrawAround(const PrintState& state, PictureSurface& surface, const TextElement& entry) {
    constexpr double kBoxBorder = 1;
    const Extent place = PlaceOnPaper(state, entry);
    if (!entry.isTransparent) FillBox(state, surface, entry.place, entry.backColor);
    if (entry.hasBorder) return DrawFieldBorder(state, surface, kBoxBorder, place);
    if (entry.isTransparent) return;
    Extent edge = place;
    // Texts stand one pixel to the right in their box, which takes right-aligned ones out of it.
    if (entry.alignment == kRightAligned) edge.width += 2 * state.ScreenTwipsPerPixelX;
    DrawEdge(state, surface, edge);
}

CheckLook LookOf(const FieldElement& check) {
    const usrEntry& control = *check.control;
    return {check.place, control.Style() == 1, control.Caption(), control.Font(),
            OnScreen(control.ForeColor(), kBlack)};
}

void DrawPicture(PictureSurface& surface, const PictureChild& child, const Extent& place) {
    const Picture& picture = child.Image();
    const Extent& shown = child.Shown();
    surface.PaintPicture(picture, std::trunc(place.left) + shown.left, std::trunc(place.top) + shown.top,
                         shown.width, shown.height, 0, 0, picture.width, picture.height);
}

Extent Inside(const Extent& place, double margin) {
    return {place.left + margin, place.top + margin, std::max(0.0, place.width - 2 * margin),
            std::max(0.0, place.height - 2 * margin)};
}

void DrawInstruction(frmSheetwright& document, PictureSurface& surface, const Extent& place) {
    const Application& application = document.application;
    DrawEdge(application.printing, surface, place);
    const QString text =
        application.Translate(QStringLiteral("Press SPACE or Double-Click to select picture..."));
    const FontSpec font{QStringLiteral("Arial")};
    DrawTextInBox(application, surface, document.surfaces->picContainer, text, font, kInstructionText,
                  BoxOf(Inside(place, kInstructionMargin)), LineBreaks::Wrapped);
}

// The border that a picture field has on paper.
void DrawBitmapBorder(const frmSheetwright& document, int number, PictureSurface& surface,
                      const Extent& place) {
    const ElementBags& records = document.page->BitmapProperties;
    const auto index = static_cast<std::size_t>(number - 1);
    if (index >= records.size() || !records[index]->Contains(u"BorderStyle")) return;
    const double style = FieldRecord(document.application, *records[index]).BorderStyle();
    DrawFieldBorder(document.application.printing, surface, style, place);
}

using DrawElement = void (*)(frmSheetwright&, int, PictureSurface&);

void DrawAll(frmSheetwright& document, int count, DrawElement draw, PictureSurface& surface) {
    for (int number = 1; number <= count; ++number)
        Catching([&] { draw(document, number, surface); });
}

}  // namespace

void DrawEntry(frmSheetwright& document, int number, PictureSurface& surface) {
    const TextElement& entry = document.page->Entries.At(number);
    if (!entry.isVisible) return;
    PrintState& state = document.application.printing;
    const ScreenDrawing drawing(state);
    DrawAround(state, surface, entry);
    if (entry.text.isEmpty()) return;
    state.AlignmentMode = entry.alignment;
    DrawTextInBox(document.application, surface, document.surfaces->picContainer, entry.text, entry.font,
                  entry.foreColor, BoxOf(PlaceOnPaper(state, entry)),
                  entry.wraps ? LineBreaks::Wrapped : LineBreaks::AsTyped);
}

void DrawCheck(frmSheetwright& document, int number, PictureSurface& surface) {
    const FieldElement& check = document.page->Checks.At(number);
    if (!check.isVisible) return;
    PrintState& state = document.application.printing;
    const ScreenDrawing drawing(state);
    const Colour canvasColour = document.surfaces->picForm.BackColor & kRgb;
    const Colour colour = OnScreen(check.control->BackColor(), kWhite);
    if (colour != canvasColour) FillBox(state, surface, check.place, colour);
    DrawCheckBox(document.application, surface, document.surfaces->picContainer, LookOf(check),
                 check.control->chkBox().Value());
}

void DrawBitmap(frmSheetwright& document, int number, PictureSurface& surface) {
    const FieldElement& bitmap = document.page->Bitmaps.At(number);
    if (!bitmap.isVisible) return;
    const ScreenDrawing drawing(document.application.printing);
    const usrEntry& control = *bitmap.control;
    const bool isEmpty = control.picPicture().Image().IsEmpty();
    if (isEmpty && control.Enabled()) DrawInstruction(document, surface, bitmap.place);
    DrawBitmapBorder(document, number, surface, bitmap.place);
    if (!isEmpty) DrawPicture(surface, control.picPicture(), bitmap.place);
}

QImage RenderPageOnScreen(frmSheetwright& document, double dotsPerInch) {
    const PictureSurface& form = document.surfaces->picForm;
    PictureSurface surface(FontsOf(document.application), form.Width(), form.Height());
    surface.BackColor = OnScreen(form.BackColor, kWhite);
    surface.PaintPicture(form.Image(), 0, 0, form.Width(), form.Height(), 0, 0, form.Width(), form.Height());
    DrawAll(document, document.page->Entries.Count(), DrawEntry, surface);
    DrawAll(document, document.page->Checks.Count(), DrawCheck, surface);
    DrawAll(document, document.page->Bitmaps.Count(), DrawBitmap, surface);
    return surface.Render(dotsPerInch);
}

}  // namespace sheetwright
