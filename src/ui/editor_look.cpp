#include "ui/editor_look.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "print/fonts.h"
#include "print/units.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QWidget>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace sheetwright {

namespace {

constexpr double kTwipsBefore = kTwipsPerScreenPixel;
constexpr double kTwipsAbove = 3 * kTwipsPerScreenPixel;
constexpr Colour kSystemBit = 0x80000000;
constexpr double kLeastContrast = 0.35;  // of the lightness, between a text and what lies behind it
constexpr double kMiddle = 0.5;

constexpr int kNarrowestArrow = 12;  // pixels
constexpr int kWidestArrow = 24;

constexpr std::int16_t kRight = 1;
constexpr std::int16_t kCentre = 2;

struct SystemColour {
    Colour colour;
    QPalette::ColorRole role;
};

constexpr SystemColour kSystemColours[] = {
    {system_colour::kWindow, QPalette::Base},
    {system_colour::kWindowText, QPalette::Text},
    {system_colour::kButtonFace, QPalette::Button},
    {system_colour::kButtonText, QPalette::ButtonText},
    {0x8000000D, QPalette::Highlight},
    {0x8000000E, QPalette::HighlightedText},
    {0x80000017, QPalette::ToolTipText},
    {0x80000018, QPalette::ToolTipBase},
};

Qt::Alignment AlignmentOf(std::int16_t alignment) {
    if (alignment == kRight) return Qt::AlignRight;
    return alignment == kCentre ? Qt::AlignHCenter : Qt::AlignLeft;
}

// A field's own colour beside one of a dark desktop may be nearly the same.
QColor Readable(const QColor& text, const QColor& base) {
    const double lightness = base.lightnessF();
    if (std::abs(text.lightnessF() - lightness) >= kLeastContrast) return text;
    return lightness > kMiddle ? QColor(Qt::black) : QColor(Qt::white);
}

// The font has a size in whole pixels: its characters are moved apart, or together, until they take the
// width that they have on the page.
QFont AsWideAsOnPage(QFont font, double pixels) {
    constexpr double kPercent = 100;
    const double stretch = std::clamp(pixels / std::max(1, QFontInfo(font).pixelSize()), 0.5, 2.0);
    font.setLetterSpacing(QFont::PercentageSpacing, kPercent * stretch);
    return font;
}

}  // namespace

QColor ScreenColour(Colour colour, const QPalette& palette) {
    const auto* const found =
        std::find_if(std::begin(kSystemColours), std::end(kSystemColours),
                     [colour](const SystemColour& known) { return known.colour == colour; });
    if (found != std::end(kSystemColours)) return palette.color(QPalette::Active, found->role);
    if ((colour & kSystemBit) != 0) return palette.color(QPalette::Active, QPalette::Base);
    const auto part = [colour](unsigned shift) { return static_cast<int>(colour >> shift & 0xFFU); };
    return {part(0), part(8), part(16)};
}

int ArrowWidth(const QSize& field) {
    return std::min(std::clamp(field.height(), kNarrowestArrow, kWidestArrow), field.width() / 2);
}

EditorLook LookOfEntry(frmSheetwright& document, const QWidget& screen, double pixelsPerTwip) {
    const usrEntry& entry = document.page->Entry;
    const Fonts& fonts = FontsOf(document.application);
    EditorLook look;
    look.font = AsWideAsOnPage(fonts.Drawn(entry.Font(), pixelsPerTwip, screen.logicalDpiY()),
                               entry.Font().size * kTwipsPerPoint * pixelsPerTwip);
    look.base = ScreenColour(entry.BackColor(), screen.palette());
    look.text = Readable(ScreenColour(entry.ForeColor(), screen.palette()), look.base);
    look.alignment = AlignmentOf(entry.Alignment());
    look.left = qRound(kTwipsBefore * pixelsPerTwip);
    if (look.alignment == Qt::AlignRight) look.overhang = look.left + kCursorWidth;
    const double above = kTwipsAbove * pixelsPerTwip;
    look.baseline = qRound(above + fonts.Ascent(entry.Font()) * pixelsPerTwip);
    look.height = qCeil(above) + QFontMetrics(look.font).height();
    return look;
}

QPalette PaletteOf(const EditorLook& look, QPalette palette) {
    palette.setColor(QPalette::Text, look.text);
    palette.setColor(QPalette::WindowText, look.text);
    palette.setColor(QPalette::Base, look.base);
    palette.setColor(QPalette::Window, look.base);
    return palette;
}

}  // namespace sheetwright
