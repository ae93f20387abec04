#pragma once

// How large a picture is drawn in a field's box: it keeps its shape.

#include "print/picture.h"

namespace sheetwright {

struct PrintState;

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

// The largest size of the picture's shape that fits the box, in whole twips. Raises 11 for a box or picture
// without height and 6 for a size past 16 bits.
[[nodiscard]] Size Fitted(const Size& box, const Size& picture);

// In screen pixels, which keeps large photographs within 16 bits. Raises 6 beyond.
[[nodiscard]] Size NaturalSize(const PrintState& state, const Picture& picture);

}  // namespace sheetwright
