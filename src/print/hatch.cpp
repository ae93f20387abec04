#include "print/hatch.h"

#include <array>
#include <cmath>

namespace sheetwright {

namespace {

constexpr std::int16_t kFirstHatch = 2;

struct Directions {
    bool level, upright, rising, falling;
};

constexpr std::array kDirections = std::to_array<Directions>({
    {true, false, false, false},
    {false, true, false, false},
    {false, false, true, false},
    {false, false, false, true},
    {true, true, false, false},
    {false, false, true, true},
});

// Calls `add` with each multiple of `spacing` strictly between `from` and `to`.
template <typename Add>
void ForMultiples(double from, double to, double spacing, const Add& add) {
    const double last = std::ceil(to / spacing) - 1;
    for (double i = std::floor(from / spacing) + 1; i <= last; i += 1)
        add(i * spacing);
}

}  // namespace

bool IsHatch(std::int16_t style) {
    return style >= kFirstHatch && style < kFirstHatch + static_cast<int>(kDirections.size());
}

QList<QLineF> HatchLines(std::int16_t style, const QRectF& area, double spacing) {
    QList<QLineF> lines;
    if (!IsHatch(style) || !(spacing > 0) || area.isEmpty()) return lines;
    if (!((area.width() + area.height()) / spacing * 2 <= kMostHatchLines)) return lines;

    const Directions& directions = kDirections[static_cast<std::size_t>(style - kFirstHatch)];
    const double left = area.left();
    const double right = area.right();
    const double top = area.top();
    const double bottom = area.bottom();
    if (directions.level) {
        ForMultiples(top, bottom, spacing, [&](double y) { lines.append({left, y, right, y}); });
    }
    if (directions.upright) {
        ForMultiples(left, right, spacing, [&](double x) { lines.append({x, top, x, bottom}); });
    }
    if (directions.rising) {
        ForMultiples(left + top, right + bottom, spacing, [&](double sum) {
            lines.append({sum - bottom, bottom, sum - top, top});
        });
    }
    if (directions.falling) {
        ForMultiples(left - bottom, right - top, spacing, [&](double difference) {
            lines.append({difference + top, top, difference + bottom, bottom});
        });
    }
    return lines;
}

}  // namespace sheetwright
