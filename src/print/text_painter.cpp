#include "print/text_painter.h"

#include "print/font_face.h"
#include "print/fonts.h"
#include "print/units.h"

#include <QPaintDevice>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr double kSmallestPixels = 0.1;  // characters below can't be seen
constexpr double kLargestGlyphs = 200;   // pixels; larger characters are drawn as outlines
constexpr double kExactEnough = 0.0005;  // of a font's size
constexpr qsizetype kLongText = 200;     // units; longer texts are cut to what can be seen

// One line about to be drawn. Everything is in the painter's units.
struct Line {
    QString text;
    QPointF baseline;
    double pixels;   // size of the font
    double width;    // for its underline
    double stretch;  // how much wider than usual
};

// Drops what lies off both ends of the visible area.
QString SeenPart(const Fonts& fonts, const FontSpec& font, const QString& text, double fromTwips,
                 double toTwips, double& skippedTwips) {
    skippedTwips = 0;
    if (text.size() <= kLongText) return text;
    const qsizetype first = fonts.Fitting(font, text, fromTwips);
    const QStringView rest = QStringView(text).sliced(first);
    skippedTwips = fonts.Width(font, QStringView(text).first(first));
    const qsizetype count = fonts.Fitting(font, rest, toTwips - skippedTwips);
    return text.sliced(first, std::min(count + 2, rest.size()));
}

void PaintDecoration(const Canvas& canvas, const FontFace& face, const Line& line, double position,
                     const QColor& colour) {
    const double scale = line.pixels / FontFace::kReferencePixels;
    const double thickness = face.LineThickness() * scale;
    QRectF rect(line.baseline.x(), line.baseline.y() + position * scale - thickness / 2, line.width,
                thickness);
    if (canvas.OnPixels()) rect = canvas.Grid().Rounded(rect);
    canvas.Painter().fillRect(rect, colour);
}

void PaintDecorations(const Canvas& canvas, const FontFace& face, const Line& line, const DrawnText& item) {
    const QColor colour = ColourOf(item.colour);
    if (item.font.underline) PaintDecoration(canvas, face, line, face.UnderlinePosition(), colour);
    if (item.font.strikethru) PaintDecoration(canvas, face, line, face.StrikethruPosition(), colour);
}

bool PaintGlyphs(Canvas& canvas, const FontFace& face, const Line& line) {
    if (!canvas.OnPixels() || line.stretch != 1 || line.pixels > kLargestGlyphs) return false;
    const auto glyphs = face.Glyphs(line.text, line.pixels);
    if (glyphs) canvas.Painter().drawGlyphRun(line.baseline, *glyphs);
    return glyphs.has_value();
}

// Qt has fonts of whole pixels only; on a surface of high resolution that is exact enough.
bool PaintPlainly(Canvas& canvas, const Fonts& fonts, const DrawnText& item, const Line& line) {
    if (canvas.OnPixels() || line.stretch != 1 || line.pixels < 1) return false;
    if (std::abs(std::round(line.pixels) / line.pixels - 1) > kExactEnough) return false;
    const double dotsPerInch = std::max(1, canvas.Painter().device()->logicalDpiY());
    canvas.SetFont(fonts.Drawn(item.font, canvas.Scale(), dotsPerInch));
    canvas.Painter().drawText(line.baseline, line.text);
    return true;
}

// Draws at the size at which the text was measured, scaled by the painter.
void PaintScaled(Canvas& canvas, const FontFace& face, const Line& line) {
    QPainter& painter = canvas.Painter();
    const QTransform before = painter.worldTransform();
    const double scale = line.pixels / FontFace::kReferencePixels;
    painter.translate(line.baseline);
    painter.scale(scale * line.stretch, scale);
    canvas.SetFont(face.Reference());
    painter.drawText(QPointF(0, 0), line.text);
    painter.setWorldTransform(before);
}

bool IsVisible(const Canvas& canvas, const DrawnText& item, double lineHeight, double pixels) {
    if (!(pixels >= kSmallestPixels) || !std::isfinite(item.x) || !std::isfinite(item.y)) return false;
    const QRectF visible = canvas.Visible();
    const double top = item.y * canvas.Scale();
    return top - lineHeight <= visible.bottom() && top + 2 * lineHeight >= visible.top() &&
           item.x * canvas.Scale() - pixels <= visible.right();
}

}  // namespace

void PaintText(Canvas& canvas, const Fonts& fonts, const DrawnText& item, double stretch) {
    const double scale = canvas.Scale();
    const double pixels = item.font.size * kTwipsPerPoint * scale;
    if (!IsVisible(canvas, item, fonts.LineHeight(item.font) * scale, pixels)) return;

    const FontFace& face = fonts.FaceOf(item.font);
    const QRectF visible = canvas.Visible();
    const double toTwips = 1 / (scale * stretch);
    double skipped = 0;
    const QString seen =
        SeenPart(fonts, item.font, item.text, (visible.left() - item.x * scale - 2 * pixels) * toTwips,
                 (visible.right() - item.x * scale + 2 * pixels) * toTwips, skipped);
    Line line{face.Shown(seen),
              QPointF((item.x + skipped * stretch) * scale, (item.y + fonts.Ascent(item.font)) * scale),
              pixels, 0, stretch};
    if (canvas.OnPixels()) line.baseline.setY(canvas.Grid().RoundY(line.baseline.y()));

    canvas.SetTextColour(ColourOf(item.colour));
    if (PaintPlainly(canvas, fonts, item, line)) return;
    if (!PaintGlyphs(canvas, face, line)) PaintScaled(canvas, face, line);
    if (!item.font.underline && !item.font.strikethru) return;
    line.width = fonts.Width(item.font, seen) * scale * stretch;
    PaintDecorations(canvas, face, line, item);
}

}  // namespace sheetwright
