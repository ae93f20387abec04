#pragma once

// Drawing on the page on screen, for as long as it goes on.

#include "print/print_state.h"

#include <utility>

namespace sheetwright {

// The values of the drawing layer while an element is drawn: what a print job has left in them must not move
// anything on screen.
class ScreenDrawing {
  public:
    explicit ScreenDrawing(PrintState& state)
        : m_state(state),
          m_alignment(std::exchange(state.AlignmentMode, std::int16_t{0})),
          m_xAdjust(std::exchange(state.PrintXAdjust, 0.0F)),
          m_yAdjust(std::exchange(state.PrintYAdjust, 0.0F)) {}
    ScreenDrawing(const ScreenDrawing&) = delete;
    ScreenDrawing& operator=(const ScreenDrawing&) = delete;
    ~ScreenDrawing() {
        m_state.AlignmentMode = m_alignment;
        m_state.PrintXAdjust = m_xAdjust;
        m_state.PrintYAdjust = m_yAdjust;
    }

  private:
    PrintState& m_state;
    std::int16_t m_alignment;
    float m_xAdjust;
    float m_yAdjust;
};

}  // namespace sheetwright
