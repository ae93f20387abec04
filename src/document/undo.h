#pragma once

// Undo is one level deep and works on a page: its values are kept as data page 0.

namespace sheetwright {

class frmSheetwright;

// Keeps the values of the page on screen and enables the Undo command.
void SetUndo(frmSheetwright& document);

// The command Undo: the kept values come back into the page on screen, its first field is entered. They stay
// kept: undone twice is the same as once. Without kept values nothing happens. Raises what storing and
// loading a page raise.
void mnuEditUndo_Click(frmSheetwright& document);
// The command Revert: the page on screen shows its stored values again.
void mnuEditRevert_Click(frmSheetwright& document);

}  // namespace sheetwright
