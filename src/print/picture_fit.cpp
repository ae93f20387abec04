#include "print/picture_fit.h"

#include "core/failure.h"
#include "print/print_state.h"

#include <cmath>

namespace sheetwright {

Size Fitted(const Size& box, const Size& picture) {
    const bool isWide =
        ToSingle(Quotient(box.width, box.height)) < ToSingle(Quotient(picture.width, picture.height));
    const double scale = isWide ? box.width / picture.width : Quotient(box.height, picture.height);
    const auto cut = [](double twips) { return static_cast<double>(ToInt16(std::trunc(twips))); };
    return isWide ? Size{cut(box.width), cut(scale * picture.height)}
                  : Size{cut(scale * picture.width), cut(box.height)};
}

Size NaturalSize(const PrintState& state, const Picture& picture) {
    return {static_cast<double>(ToInt16(picture.width / state.ScreenTwipsPerPixelX)),
            static_cast<double>(ToInt16(picture.height / state.ScreenTwipsPerPixelY))};
}

}  // namespace sheetwright
