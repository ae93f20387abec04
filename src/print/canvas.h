#pragma once

// A QPainter with what drawing items on it needs: the scale, the pixel grid, what can be seen, and a memory
// of pen, brush and font, since setting them costs more than most items.

#include "print/recording.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QRectF>

#include <optional>

namespace sheetwright {

// The whole pixels of a surface, in the painter's coordinates.
struct PixelGrid {
    double perUnit = 1;
    double originX = 0;
    double originY = 0;

    [[nodiscard]] double Pixel() const { return 1 / perUnit; }
    // The pixel edge at or before a place.
    [[nodiscard]] double FloorX(double x) const;
    [[nodiscard]] double FloorY(double y) const;
    // The nearest one.
    [[nodiscard]] double RoundX(double x) const { return FloorX(x + Pixel() / 2); }
    [[nodiscard]] double RoundY(double y) const { return FloorY(y + Pixel() / 2); }
    [[nodiscard]] QRectF Rounded(const QRectF& rect) const;
};

class Canvas {
  public:
    Canvas(QPainter& painter, double scale, bool onPixels);

    [[nodiscard]] QPainter& Painter() const { return m_painter; }
    [[nodiscard]] double Scale() const { return m_scale; }  // the painter's units to the twip
    [[nodiscard]] bool OnPixels() const { return m_onPixels; }
    [[nodiscard]] PixelGrid Grid() const;
    // What can be seen, or a little more.
    [[nodiscard]] QRectF Visible() const;

    void SetPen(const QPen& pen);
    void SetTextColour(const QColor& colour);
    void SetBrush(const QBrush& brush);
    void SetFont(const QFont& font);
    void SetAntialiasing(bool on);
    // To be called when the painter's state came to be another.
    void Forget();

  private:
    QPainter& m_painter;
    double m_scale;
    bool m_onPixels;
    std::optional<QPen> m_pen;
    std::optional<QBrush> m_brush;
    std::optional<QFont> m_font;
    std::optional<bool> m_antialiasing;
};

[[nodiscard]] QColor ColourOf(Colour colour);

}  // namespace sheetwright
