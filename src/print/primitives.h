#pragma once

// The drawing primitives that screen, preview and paper share: that sameness is their point. Coordinates are
// twips on the page; the process-wide adjusts are added to each.

#include "print/recording.h"

#include <QStringView>

#include <optional>

namespace sheetwright {

class Application;
class Device;
class PictureSurface;
struct PrintState;

// `colour` none: the device's `ForeColor`. `mode` exactly "B" a box, "BF" a filled box, any other a line.
// Coordinates are rounded to 32 bits before and after they are adjusted; raises 6 beyond.
void DrawLine(const PrintState& state, Device& device, double x1, double y1, double x2, double y2,
              std::optional<Colour> colour, QStringView mode = {});

// Four lines: top, right, bottom, left.
void DrawBox(const PrintState& state, Device& device, double x1, double y1, double x2, double y2,
             std::optional<Colour> colour);

// `name` is "rect", "square", "oval" or "circle"; any other draws nothing. Squares and circles are fitted
// into the box. A tall oval comes out smaller than its box: its radius is half the width, which the
// platform's rule takes for the vertical half axis. Raises 6, and 11 for an oval without width.
void DrawShape(const PrintState& state, Device& device, QStringView name, double x1, double y1, double x2,
               double y2, std::optional<Colour> colour);

// Draws all of `picture` at its own `Left` and `Top`. What fails is told in one message.
void DrawBitmap(Application& application, Device& device, PictureSurface& picture, double destWidth,
                double destHeight);

// Sets the adjusts from the settings of the printer's driver, less its unprintable margin, plus the page's
// own in twips. Raises 438 on a surface that is no printer.
void LoadPrinterAdjust(Application& application, Device& device, double extraX, double extraY);

}  // namespace sheetwright
