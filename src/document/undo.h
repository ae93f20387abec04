#pragma once

// Undo is one level deep and works on a page: its values are kept as data page 0.

namespace sheetwright {

class frmSheetwright;

// Keeps the values of the page on screen and enables the Undo command.
void SetUndo(frmSheetwright& document);

}  // namespace sheetwright
