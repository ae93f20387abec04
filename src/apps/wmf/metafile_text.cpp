#include "apps/wmf/metafile_text.h"

#include <QByteArrayView>
#include <QFontMetricsF>
#include <QStringDecoder>

#include <libwmf/defs.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

constexpr int kLargestPixels = 20'000;
constexpr double kNarrowest = 0.05;
constexpr double kWidest = 20;

struct Charset {
    U8 number;
    const char* name;
};
constexpr std::array kCharsets{
    Charset{128, "Shift-JIS"},    Charset{129, "EUC-KR"},       Charset{134, "GBK"},
    Charset{136, "Big5"},         Charset{161, "windows-1253"}, Charset{162, "windows-1254"},
    Charset{177, "windows-1255"}, Charset{178, "windows-1256"}, Charset{186, "windows-1257"},
    Charset{204, "windows-1251"}, Charset{222, "TIS-620"},      Charset{238, "windows-1250"},
};

const char* CharsetName(U8 number) {
    const auto* found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                     [number](const Charset& charset) { return charset.number == number; });
    return found == kCharsets.end() ? "windows-1252" : found->name;
}

QString Decoded(const wmfFont& font, const char* text) {
    QStringDecoder decoder(CharsetName(font.lfCharSet));
    return decoder.isValid() ? decoder.decode(QByteArrayView(text)) : QString::fromLatin1(text);
}

QFont FontOf(const wmfFont& font, int pixels) {
    QFont result(QString::fromLatin1(font.lfFaceName));
    result.setPixelSize(std::clamp(pixels, 1, kLargestPixels));
    result.setWeight(font.lfWeight >= 600 ? QFont::Bold : QFont::Normal);
    result.setItalic(font.lfItalic != 0);
    result.setUnderline(font.lfUnderline != 0);
    result.setStrikeOut(font.lfStrikeOut != 0);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

double DegreesOf(const wmfFont& font) {
    return font.lfEscapement / 10.0;
}

// The player moves the point by the height of the font, down along the text, unless it is on the base line or
// at the bottom.
wmfD_Coord ReferenceOf(const wmfDrawText_t& text) {
    if ((text.dc->textalign & TA_BOTTOM) != 0) return text.pt;
    const double radians = DegreesOf(*text.dc->font) * std::acos(-1.0) / 180;
    return {static_cast<float>(text.pt.x - std::sin(radians) * text.font_height),
            static_cast<float>(text.pt.y - std::cos(radians) * text.font_height)};
}

// A font may tell the average width of its characters; otherwise the player takes the height for it.
double StretchOf(const wmfDrawText_t& text, const QFontMetricsF& metrics, double scaleX) {
    const wmfFont& font = *text.dc->font;
    if (font.lfWidth == 0 || font.lfWidth == font.lfHeight || metrics.averageCharWidth() <= 0) return 1;
    const double wanted = font.lfWidth * std::abs(text.dc->pixel_width) * scaleX;
    return std::clamp(wanted / metrics.averageCharWidth(), kNarrowest, kWidest);
}

double AcrossFor(U16 align, double width) {
    if ((align & TA_CENTER) == TA_CENTER) return -width / 2;
    return (align & TA_RIGHT) != 0 ? -width : 0;
}

double DownFor(U16 align, const QFontMetricsF& metrics) {
    if ((align & TA_BASELINE) == TA_BASELINE) return 0;
    return (align & TA_BOTTOM) != 0 ? -metrics.descent() : metrics.ascent();
}

}  // namespace

TextLine TextLineOf(const wmfDrawText_t& text, double scaleX, double scaleY) {
    const wmfFont& font = *text.dc->font;
    const U16 align = text.dc->textalign;
    TextLine line;
    line.reference = ReferenceOf(text);
    line.text = Decoded(font, text.str);
    line.font = FontOf(font, static_cast<int>(std::lround(std::abs(text.font_height) * scaleY)));
    line.degrees = -DegreesOf(font);
    const QFontMetricsF metrics(line.font);
    const double width = metrics.horizontalAdvance(line.text);
    line.stretch = StretchOf(text, metrics, scaleX);
    line.baseline = {AcrossFor(align, width), DownFor(align, metrics)};
    line.box = QRectF(line.baseline.x(), line.baseline.y() - metrics.ascent(), width, metrics.height());
    return line;
}

}  // namespace sheetwright
