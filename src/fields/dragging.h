#pragma once

// A value is dragged with the mouse from one text field to another: it moves, or with Ctrl it is copied.

#include <cstdint>

namespace sheetwright {

class frmSheetwright;

// Positions in twips on the page; `Button` 1 is the left one; `Shift` has the bits of key events.
void Entries_MouseDown(frmSheetwright& document, int number, std::int16_t Button, double x, double y);
// A move of at least 120 twips in either direction with the left button begins the drag.
void Entries_MouseMove(frmSheetwright& document, std::int16_t Button, std::int16_t Shift, double x, double y);
// The button is released over text element `target`, or over none (0): the drag ends.
void Entries_DragDrop(frmSheetwright& document, int target);
// The drag ends and nothing is dropped.
void CancelDrag(frmSheetwright& document);

}  // namespace sheetwright
