#pragma once

// The colours of the element that is being edited.

#include "document/element_array.h"

namespace sheetwright {

class frmSheetwright;

// The editor takes the person's colour for selected fields; its text keeps the field's colour unless the
// person chose one.
void ColourEntry(frmSheetwright& document);

// A check box takes the colours of selected fields, and its own again. Other elements keep theirs.
void ColourSelected(frmSheetwright& document, ElementRef element);
void RestoreColours(frmSheetwright& document, ElementRef element);

}  // namespace sheetwright
