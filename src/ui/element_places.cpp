#include "ui/element_places.h"

#include <algorithm>
#include <iterator>

namespace sheetwright {

namespace {

const ElementArray<FieldElement>& FieldsOf(const Page& page, ElementKind kind) {
    return kind == ElementKind::Check ? page.Checks : page.Bitmaps;
}

// From the last one down, since later elements lie on top.
int TopmostOf(const Page& page, ElementKind kind, QPointF position) {
    int number = CountOf(page, kind);
    const auto isHit = [&](ElementRef element) {
        return IsVisible(page, element) && RectOf(PlaceOf(page, element)).contains(position);
    };
    while (number > 0 && !isHit({kind, number}))
        --number;
    return number;
}

}  // namespace

int CountOf(const Page& page, ElementKind kind) {
    if (kind == ElementKind::None) return 0;
    return kind == ElementKind::Entry ? page.Entries.Count() : FieldsOf(page, kind).Count();
}

bool IsOnPage(const Page& page, ElementRef element) {
    return element.number >= 1 && element.number <= CountOf(page, element.kind);
}

Extent PlaceOf(const Page& page, ElementRef element) {
    if (!IsOnPage(page, element)) return {};
    return element.kind == ElementKind::Entry ? page.Entries.At(element.number).place
                                              : FieldsOf(page, element.kind).At(element.number).place;
}

bool IsVisible(const Page& page, ElementRef element) {
    if (!IsOnPage(page, element)) return false;
    return element.kind == ElementKind::Entry ? page.Entries.At(element.number).isVisible
                                              : FieldsOf(page, element.kind).At(element.number).isVisible;
}

ElementRef TopmostAt(const Page& page, QPointF position) {
    for (auto kind = std::rbegin(kPaintOrder); kind != std::rend(kPaintOrder); ++kind)
        if (const int number = TopmostOf(page, *kind, position); number > 0) return {*kind, number};
    return {};
}

QRectF RectOf(const Extent& place) {
    return {place.left, place.top, place.width, place.height};
}

}  // namespace sheetwright
