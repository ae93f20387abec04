#pragma once

// A pen made ready for one surface, and straight lines drawn with it.

#include "print/canvas.h"
#include "print/recording.h"
#include "print/units.h"

#include <QLineF>
#include <QList>
#include <QPen>

namespace sheetwright {

struct Stroke {
    Stroke(const Canvas& canvas, const Pen& pen);

    QColor colour;
    double width;          // in the painter's units; on pixels whole pixels
    QList<double> dashes;  // lengths of dashes and gaps in the painter's units; none for a solid line
    bool isVisible;
    bool isInside;  // lies inside the bounds of its shape

    // The same as a pen of Qt whose dashes begin `offset` units into the pattern.
    [[nodiscard]] QPen ToPen(double offset = 0) const;
};

// Where a stroke along `rect`, given by its corners, comes to lie: on pixels the middles of its lines are
// moved so that they cover whole pixels. The result may be without extent.
[[nodiscard]] QRectF StrokedRect(const Canvas& canvas, const Stroke& stroke, const QRectF& rect);

// Only what can be seen is drawn, and dashes keep their places.
void StrokeLine(Canvas& canvas, const Stroke& stroke, const QLineF& line);

// The lines around `rect` as `StrokedRect` gave it.
void StrokeRect(Canvas& canvas, const Stroke& stroke, const QRectF& rect);

}  // namespace sheetwright
