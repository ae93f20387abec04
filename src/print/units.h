#pragma once

// What a twip is to the units that others measure in.

namespace sheetwright {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;
// Of the virtual screen, on which pictures have their natural size and dashes and hatches are measured.
inline constexpr double kTwipsPerScreenPixel = 15;

}  // namespace sheetwright
