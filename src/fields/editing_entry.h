#pragma once

// The one editor of a page: what it takes over from the field that it stands for, and how it goes away.

namespace sheetwright {

class frmSheetwright;

// Dresses the editor up as text element `number`, which must be there, and shows it with its text selected.
// A key that is absent from the field's record, or can't be read, leaves its property at the default.
void OpenEntry(frmSheetwright& document, int number);

// Resets and hides the editor; the blank fields are marked.
void CloseEntry(frmSheetwright& document);

}  // namespace sheetwright
