#pragma once

// What a metafile draws on: an image that is transparent where nothing was drawn. Receives the calls of the
// player, whose coordinates span 0 to `kSpan` in both directions whatever the picture's proportion.

#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <libwmf/ipa.h>

namespace sheetwright {

class MetafileCanvas {
  public:
    static constexpr double kSpan = 1024;

    explicit MetafileCanvas(QSize pixels);

    // What was drawn, in `Format_ARGB32_Premultiplied`. Nothing can be drawn afterwards.
    [[nodiscard]] QImage Finish();

    void Pixel(const wmfDrawPixel_t& pixel);
    enum class ArcKind { Open, Pie, Chord };
    void Arc(const wmfDrawArc_t& arc, ArcKind kind);
    void Ellipse(const wmfDrawArc_t& ellipse);
    void Line(const wmfDrawLine_t& line);
    void PolyLine(const wmfPolyLine_t& line);
    void Polygon(const wmfPolyLine_t& polygon);
    void PolyPolygon(const wmfPolyPoly_t& polygons);
    void Rectangle(const wmfDrawRectangle_t& rectangle);
    void FillRectangle(const wmfROP_Draw_t& rectangle);
    void Image(const wmfBMP_Draw_t& drawn, const QImage& image);
    void Text(const wmfDrawText_t& text);
    void PaintRegion(const wmfPolyRectangle_t& region);
    void FrameRegion(const wmfPolyRectangle_t& region);
    // No rectangle at all: everything shows again.
    void Clip(const wmfPolyRectangle_t& region);

  private:
    [[nodiscard]] QPointF At(const wmfD_Coord& point) const;
    [[nodiscard]] QRectF Box(const wmfD_Coord& topLeft, const wmfD_Coord& bottomRight) const;
    [[nodiscard]] QPolygonF Points(const wmfD_Coord* points, int count) const;
    [[nodiscard]] QPen PenOf(const wmfDC& dc) const;
    [[nodiscard]] static QBrush BrushOf(const wmfDC& dc);
    // Sets pen and brush; false where the drawing mode leaves everything as it is.
    bool Prepare(const wmfDC& dc, bool isFilled);

    QImage m_image;
    QPainter m_painter;
    double m_scaleX;
    double m_scaleY;
};

}  // namespace sheetwright
