#pragma once

// Draws recorded items with a QPainter. On pixels, level and upright lines fall on whole pixels and are at
// least one pixel wide, so that boxes are crisp at every size; on vector surfaces (PDF, paper) everything
// stays exactly where it was put.

#include "print/recording.h"

#include <memory>

class QPainter;

namespace sheetwright {

class Fonts;

class ItemPainter {
  public:
    enum class Surface { Pixels, Vector };

    // `pixelsPerTwip`: how many units of the painter's own coordinates a twip has. The painter must not be
    // scaled itself; it may be translated, but nobody else sets its pen, brush or font meanwhile. Painter,
    // fonts and device live longer than this object.
    ItemPainter(QPainter& painter, const Fonts& fonts, double pixelsPerTwip, Surface surface);
    ItemPainter(const ItemPainter&) = delete;
    ItemPainter& operator=(const ItemPainter&) = delete;
    ~ItemPainter();

    // Numbers that are not finite draw nothing. Pictures within pictures are drawn four deep. A line may be
    // held back until it is known whether it begins a frame.
    void Paint(const DrawnItem& item);
    void Paint(const Recording& recording);
    // Draws what is held back: to be called at the end of each page.
    void Flush();

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace sheetwright
