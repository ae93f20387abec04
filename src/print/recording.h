#pragma once

// Drawing calls as data: exact positions in twips, with the pen, fill, font and colour that held when they
// were made. A recording can be drawn again at any size, and compared in tests.

#include "print/font_spec.h"
#include "print/picture.h"

#include <QRectF>
#include <QString>

#include <cstdint>
#include <map>
#include <variant>
#include <vector>

namespace sheetwright {

using Colour = std::uint32_t;  // red in the low byte, then green, then blue; the high byte is ignored

namespace draw_style {
inline constexpr std::int16_t kTransparent = 5;
inline constexpr std::int16_t kInsideSolid = 6;
}  // namespace draw_style

namespace fill_style {
inline constexpr std::int16_t kSolid = 0;
}  // namespace fill_style

struct Pen {
    Colour colour = 0;
    double width = 15;       // twips
    std::int16_t style = 0;  // a `DrawStyle`: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5
                             // transparent, 6 inside solid
    bool operator==(const Pen&) const = default;
};

struct Fill {
    Colour colour = 0;
    std::int16_t style = 1;  // a `FillStyle`: 0 solid, 1 transparent, 2 to 7 hatches; others fill nothing
    bool operator==(const Fill&) const = default;
};

struct DrawnLine {
    double x1, y1, x2, y2;
    Pen pen;
    bool operator==(const DrawnLine&) const = default;
};

struct DrawnBox {
    double x1, y1, x2, y2;  // any two opposite corners
    Pen pen;
    Fill fill;
    bool operator==(const DrawnBox&) const = default;
};

struct DrawnEllipse {
    double cx, cy, rx, ry;  // centre and half axes
    Pen pen;
    Fill fill;
    bool operator==(const DrawnEllipse&) const = default;
};

struct DrawnText {
    double x, y;  // left end and top of the line
    QString text;
    FontSpec font;
    Colour colour;
    bool operator==(const DrawnText&) const = default;
};

struct DrawnPicture {
    Picture picture;
    QRectF target;  // twips on the page
    QRectF source;  // the part of the picture that is drawn, in twips of its natural size
};

using DrawnItem = std::variant<DrawnLine, DrawnBox, DrawnEllipse, DrawnText, DrawnPicture>;

class Recording {
  public:
    // Raises 7, and leaves the recording as it is, for a picture with which it would hold more than
    // `kMostPixelBytes`.
    void Add(DrawnItem item);
    void Clear() { *this = Recording(); }
    [[nodiscard]] const std::vector<DrawnItem>& Items() const { return m_items; }
    [[nodiscard]] bool IsEmpty() const { return m_items.empty(); }

    // Of the images of a page, each counted once. They live as long as the recording.
    static constexpr qint64 kMostPixelBytes = 2LL << 30;

  private:
    void HoldPixels(const Picture& picture);

    std::vector<DrawnItem> m_items;
    std::map<qint64, qint64> m_images;  // bytes of each, by cache key
    qint64 m_pixelBytes = 0;
};

}  // namespace sheetwright
