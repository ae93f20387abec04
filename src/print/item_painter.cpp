#include "print/item_painter.h"

#include "print/canvas.h"
#include "print/fonts.h"
#include "print/frame_finder.h"
#include "print/image_painter.h"
#include "print/shape_painter.h"
#include "print/text_painter.h"

#include <QPainter>

#include <cmath>
#include <variant>

namespace sheetwright {

namespace {

constexpr int kDeepestPicture = 4;

// Where the twips of a recorded picture lie on the page.
struct Placement {
    double scaleX = 1;
    double scaleY = 1;
    double left = 0;
    double top = 0;

    [[nodiscard]] double X(double x) const { return left + x * scaleX; }
    [[nodiscard]] double Y(double y) const { return top + y * scaleY; }
    [[nodiscard]] QRectF Rect(const QRectF& rect) const {
        return {X(rect.x()), Y(rect.y()), rect.width() * scaleX, rect.height() * scaleY};
    }
    [[nodiscard]] Pen PenIn(Pen pen) const {
        pen.width *= std::sqrt(scaleX * scaleY);
        return pen;
    }
    // `source` of a picture comes to lie at `target`.
    static Placement Of(const QRectF& source, const QRectF& target) {
        const double sx = target.width() / source.width();
        const double sy = target.height() / source.height();
        return {sx, sy, target.x() - source.x() * sx, target.y() - source.y() * sy};
    }
};

bool IsUnscaled(double scale) {
    return std::abs(scale - 1) < 1e-9;
}

}  // namespace

struct ItemPainter::State {
    State(QPainter& painter, const Fonts& theFonts, double pixelsPerTwip, Surface surface)
        : canvas(painter, pixelsPerTwip, surface == Surface::Pixels), fonts(theFonts) {}

    void Take(const DrawnItem& item);
    void Flush();
    void operator()(const DrawnLine& line);
    void operator()(const DrawnBox& box);
    void operator()(const DrawnEllipse& ellipse);
    void operator()(const DrawnText& text);
    void operator()(const DrawnPicture& drawn);
    void PaintAll(const Recording& recording);
    void PaintRecorded(const Recording& recording, const PicturePart& part);

    Canvas canvas;
    const Fonts& fonts;
    FrameFinder frames;
    Placement placement;
    int depth = 0;
};

// On paper the four lines of a frame become one box, which is smaller and quicker to draw.
void ItemPainter::State::Take(const DrawnItem& item) {
    const DrawnLine* const line = canvas.OnPixels() ? nullptr : std::get_if<DrawnLine>(&item);
    if (line == nullptr) {
        Flush();
        return std::visit(*this, item);
    }
    if (!frames.Continues(*line)) Flush();
    frames.Add(*line);
    if (const auto frame = frames.TakeFrame()) (*this)(*frame);
}

void ItemPainter::State::Flush() {
    for (const DrawnLine& line : frames.Lines())
        (*this)(line);
    frames.Clear();
}

void ItemPainter::State::operator()(const DrawnLine& line) {
    const Placement& at = placement;
    PaintLine(canvas, {at.X(line.x1), at.Y(line.y1), at.X(line.x2), at.Y(line.y2), at.PenIn(line.pen)});
}

void ItemPainter::State::operator()(const DrawnBox& box) {
    const Placement& at = placement;
    PaintBox(canvas, {at.X(box.x1), at.Y(box.y1), at.X(box.x2), at.Y(box.y2), at.PenIn(box.pen), box.fill});
}

void ItemPainter::State::operator()(const DrawnEllipse& ellipse) {
    const Placement& at = placement;
    PaintEllipse(canvas, {at.X(ellipse.cx), at.Y(ellipse.cy), ellipse.rx * at.scaleX, ellipse.ry * at.scaleY,
                          at.PenIn(ellipse.pen), ellipse.fill});
}

void ItemPainter::State::operator()(const DrawnText& text) {
    if (depth == 0) return PaintText(canvas, fonts, text);
    DrawnText placed = text;
    placed.x = placement.X(text.x);
    placed.y = placement.Y(text.y);
    if (!IsUnscaled(placement.scaleY)) placed.font.size *= placement.scaleY;
    const double stretch = placement.scaleX / placement.scaleY;
    PaintText(canvas, fonts, placed, IsUnscaled(stretch) ? 1 : stretch);
}

void ItemPainter::State::operator()(const DrawnPicture& drawn) {
    PicturePart part = PartOf(drawn.picture, drawn.target, drawn.source);
    if (part.target.isEmpty()) return;
    part.target = placement.Rect(part.target);
    if (drawn.picture.recording == nullptr) {
        PaintImage(canvas, drawn.picture, part.target, part.source);
    } else if (depth < kDeepestPicture) {
        PaintRecorded(*drawn.picture.recording, part);
    }
}

void ItemPainter::State::PaintRecorded(const Recording& recording, const PicturePart& part) {
    const double scale = canvas.Scale();
    QRectF clip(part.target.x() * scale, part.target.y() * scale, part.target.width() * scale,
                part.target.height() * scale);
    if (canvas.OnPixels()) clip = canvas.Grid().Rounded(clip);
    clip &= canvas.Visible();
    if (clip.isEmpty()) return;

    const Placement outer = placement;
    placement = Placement::Of(part.source, part.target);
    ++depth;
    canvas.Painter().save();
    canvas.SetAntialiasing(false);
    canvas.Painter().setClipRect(clip, Qt::IntersectClip);
    PaintAll(recording);
    canvas.Painter().restore();
    canvas.Forget();
    --depth;
    placement = outer;
}

void ItemPainter::State::PaintAll(const Recording& recording) {
    for (const DrawnItem& item : recording.Items())
        Take(item);
    Flush();
}

ItemPainter::ItemPainter(QPainter& painter, const Fonts& fonts, double pixelsPerTwip, Surface surface)
    : m_state(std::make_unique<State>(painter, fonts, pixelsPerTwip, surface)) {}

ItemPainter::~ItemPainter() = default;

void ItemPainter::Paint(const DrawnItem& item) {
    m_state->Take(item);
}

void ItemPainter::Flush() {
    m_state->Flush();
}

void ItemPainter::Paint(const Recording& recording) {
    m_state->PaintAll(recording);
}

}  // namespace sheetwright
