#pragma once

// What a view asks of the elements of a page, whatever their kind.

#include "document/element_array.h"
#include "document/page.h"

#include <QPointF>
#include <QRectF>

namespace sheetwright {

// Elements that aren't there are hidden and have no place: a view may ask for one that has just gone.
[[nodiscard]] bool IsOnPage(const Page& page, ElementRef element);
[[nodiscard]] Extent PlaceOf(const Page& page, ElementRef element);
[[nodiscard]] bool IsVisible(const Page& page, ElementRef element);

// In the order in which elements are painted; the later one of two lies on top.
inline constexpr ElementKind kPaintOrder[] = {ElementKind::Entry, ElementKind::Bitmap, ElementKind::Check};
[[nodiscard]] int CountOf(const Page& page, ElementKind kind);

// The topmost visible element at a position in twips on the page.
[[nodiscard]] ElementRef TopmostAt(const Page& page, QPointF position);

[[nodiscard]] QRectF RectOf(const Extent& place);

}  // namespace sheetwright
