#include "print/frame_finder.h"

#include <gtest/gtest.h>

#include <vector>

namespace sheetwright {

namespace {

const Pen kPen{0, 15, 0};

std::vector<DrawnLine> FrameLines() {
    return {{100, 200, 700, 200, kPen},
            {700, 200, 700, 500, kPen},
            {700, 500, 100, 500, kPen},
            {100, 500, 100, 200, kPen}};
}

// The frame that the lines give when each of them continues the ones before.
std::optional<DrawnBox> FrameOf(const std::vector<DrawnLine>& lines) {
    FrameFinder finder;
    std::optional<DrawnBox> frame;
    for (const DrawnLine& line : lines) {
        if (!finder.Continues(line)) return std::nullopt;
        finder.Add(line);
        frame = finder.TakeFrame();
    }
    return frame;
}

TEST(FrameFinder, FourLinesRoundAnAreaAreOneBoxWithoutFill) {
    EXPECT_EQ(FrameOf(FrameLines()), (DrawnBox{100, 200, 700, 500, kPen, Fill{}}));
}

TEST(FrameFinder, ThreeLinesAreHeldBack) {
    FrameFinder finder;
    for (int i = 0; i < 3; ++i)
        finder.Add(FrameLines()[static_cast<std::size_t>(i)]);
    EXPECT_FALSE(finder.TakeFrame().has_value());
    EXPECT_EQ(finder.Lines().size(), 3U);
}

TEST(FrameFinder, LineOfAnotherPenDoesNotContinue) {
    for (std::size_t i = 1; i < 4; ++i) {
        std::vector<DrawnLine> lines = FrameLines();
        lines[i].pen.colour = 255;
        EXPECT_FALSE(FrameOf(lines).has_value()) << i;
    }
}

TEST(FrameFinder, DashedLinesStayLines) {
    std::vector<DrawnLine> lines = FrameLines();
    for (DrawnLine& line : lines)
        line.pen.style = 1;
    EXPECT_FALSE(FrameOf(lines).has_value());
}

TEST(FrameFinder, LinesThatMissTheCornerStayLines) {
    for (std::size_t i = 0; i < 4; ++i) {
        std::vector<DrawnLine> lines = FrameLines();
        lines[i].x2 += 15;
        EXPECT_FALSE(FrameOf(lines).has_value()) << i;
    }
}

TEST(FrameFinder, FlatFrameStaysLines) {
    std::vector<DrawnLine> lines = FrameLines();
    for (DrawnLine& line : lines)
        line.y1 = line.y2 = 200;
    EXPECT_FALSE(FrameOf(lines).has_value());
}

}  // namespace

}  // namespace sheetwright
