#pragma once

// Finds the four lines of a frame in a row of lines: along the top, down, back and up again.

#include "print/recording.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace sheetwright {

class FrameFinder {
  public:
    // Whether the line is the next one of a frame that may have begun.
    [[nodiscard]] bool Continues(const DrawnLine& line) const;
    // Holds back a line that continues, or the first one.
    void Add(const DrawnLine& line) { m_lines[m_count++] = line; }
    // The frame, once all four lines are there; then none is held back any more.
    [[nodiscard]] std::optional<DrawnBox> TakeFrame();

    [[nodiscard]] std::span<const DrawnLine> Lines() const { return {m_lines.data(), m_count}; }
    void Clear() { m_count = 0; }

  private:
    std::array<DrawnLine, 4> m_lines{};
    std::size_t m_count = 0;
};

}  // namespace sheetwright
