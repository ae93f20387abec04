#pragma once

// The page for screen readers and other helpers: elements have no widgets, so the page tells of them itself.
// Its children are the elements in tab order, then those without a place in it, then the editor while it is
// shown.

#include "document/element_array.h"

#include <QAccessible>

namespace sheetwright {

class PageView;

// Once for each process, before the first page is shown; more often does no harm.
void RegisterPageAccessibility();

// Hands an event on to those who listen.
using AccessibilityTeller = void (*)(QAccessibleEvent*);

// To be called when the focus goes to an element (none: to the page), and when the value or state of one has
// changed. Cheap while nobody listens.
void AccessibilityFocusChanged(PageView& view, ElementRef element,
                               AccessibilityTeller tell = &QAccessible::updateAccessibility);
void AccessibilityValueChanged(PageView& view, ElementRef element,
                               AccessibilityTeller tell = &QAccessible::updateAccessibility);
// The elements are others.
void AccessibilityPageChanged(PageView& view, AccessibilityTeller tell = &QAccessible::updateAccessibility);

}  // namespace sheetwright
