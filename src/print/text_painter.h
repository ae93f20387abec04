#pragma once

// Draws lines of text, exactly as wide as they were measured.

#include "print/canvas.h"
#include "print/recording.h"

namespace sheetwright {

class Fonts;

// `stretch` is how much wider than usual the characters are.
void PaintText(Canvas& canvas, const Fonts& fonts, const DrawnText& text, double stretch = 1);

}  // namespace sheetwright
