#pragma once

// What stands behind an element of the page, and whether a person can enter it.

#include "document/design_records.h"
#include "document/element_array.h"

#include <memory>

namespace sheetwright {

class frmSheetwright;
struct FieldElement;
struct Page;

// Forms that are only viewed and documents that are read-only: nothing in them is entered, dragged or worked.
[[nodiscard]] bool IsLocked(const frmSheetwright& document);

// The element that a record's added key "Key" names.
[[nodiscard]] ElementRef ElementOf(const PropertyBag& record);

// None for an element that isn't there.
[[nodiscard]] std::shared_ptr<const PropertyBag> RecordOf(const Page& page, ElementRef element);
[[nodiscard]] FieldElement* FieldOf(Page& page, ElementRef element);

// Whether the element is there, shows, and isn't read-only. A record's key that is absent or no Boolean says
// nothing.
[[nodiscard]] bool CanBeEntered(const frmSheetwright& document, ElementRef element);

void MarkChanged(frmSheetwright& document);

}  // namespace sheetwright
