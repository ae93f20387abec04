#pragma once

// Draws pictures made of pixels.

#include "print/canvas.h"
#include "print/picture.h"

#include <QRectF>

namespace sheetwright {

// `target` in twips, `source` in twips of the picture's natural size.
void PaintImage(Canvas& canvas, const Picture& picture, const QRectF& target, const QRectF& source);

// What of `source` there is in `picture`, with the part of `target` that belongs to it. Both are empty when
// there is nothing.
struct PicturePart {
    QRectF target;
    QRectF source;
};
[[nodiscard]] PicturePart PartOf(const Picture& picture, const QRectF& target, const QRectF& source);

}  // namespace sheetwright
