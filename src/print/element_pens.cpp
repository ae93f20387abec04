#include "print/element_pens.h"

#include "print/primitives.h"

namespace sheetwright {

double ScreenPixelPen(const PrintState& state, const Device& device) {
    return IsPrinter(state, device) ? state.ScreenTwipsPerPixelX / device.TwipsPerPixelX() : 1;
}

void DrawFrame(const PrintState& state, Device& device, const Extent& place) {
    DrawBox(state, device, place.left, place.top, place.left + place.width - state.ScreenTwipsPerPixelX,
            place.top + place.height - state.ScreenTwipsPerPixelY, Colour{0});
}

void DrawRule(const PrintState& state, Device& device, const Extent& place, QStringView mode) {
    constexpr double kRuleHeight = 30;
    const double y = place.top + place.height - kRuleHeight;
    DrawLine(state, device, place.left, y, place.left + place.width - state.ScreenTwipsPerPixelX, y,
             Colour{0}, mode);
}

FontSpec PaintedFont(const TextRecord& record) {
    FontSpec font;
    font.family = record.FontName();
    font.size = record.FontSize();
    const FontStyles styles = record.PaintedStyles();
    font.bold = styles.bold;
    font.italic = styles.italic;
    font.underline = styles.underline;
    font.strikethru = styles.strikethru;
    return font;
}

TextBox TextBoxOf(const RecordView& record) {
    const std::int16_t top = ToInt16(record.AbsTop());
    const std::int16_t left = ToInt16(record.AbsLeft());
    const std::int16_t height = ToInt16(record.Height());
    return {top, left, height, ToInt16(record.Width())};
}

}  // namespace sheetwright
