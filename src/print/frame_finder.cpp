#include "print/frame_finder.h"

namespace sheetwright {

bool FrameFinder::Continues(const DrawnLine& line) const {
    if (m_count == 0) return true;
    const DrawnLine& first = m_lines[0];
    const DrawnLine& last = m_lines[m_count - 1];
    const bool isNext = line.x1 == last.x2 && line.y1 == last.y2 && line.pen == first.pen &&
                        first.pen.style == 0 && first.y1 == first.y2 && first.x1 != first.x2;
    if (!isNext) return false;
    if (m_count == 1) return line.x2 == line.x1 && line.y2 != line.y1;
    if (m_count == 2) return line.y2 == line.y1 && line.x2 == first.x1;
    return line.x2 == first.x1 && line.y2 == first.y1;
}

std::optional<DrawnBox> FrameFinder::TakeFrame() {
    if (m_count < m_lines.size()) return std::nullopt;
    m_count = 0;
    const DrawnLine& top = m_lines[0];
    const DrawnLine& right = m_lines[1];
    return DrawnBox{top.x1, top.y1, right.x2, right.y2, top.pen, Fill{}};
}

}  // namespace sheetwright
