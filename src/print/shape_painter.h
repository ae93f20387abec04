#pragma once

// Draws lines, boxes and ellipses. On pixels a pen covers whole pixels, at least one; level and upright
// edges lie on them, so that boxes are crisp and an ellipse touches the edges of its box.

#include "print/canvas.h"
#include "print/recording.h"

namespace sheetwright {

void PaintLine(Canvas& canvas, const DrawnLine& line);
void PaintBox(Canvas& canvas, const DrawnBox& box);
void PaintEllipse(Canvas& canvas, const DrawnEllipse& ellipse);

}  // namespace sheetwright
