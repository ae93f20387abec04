#pragma once

// Editing the fields of a page: the one editor is dressed up as the text field that is entered and hands its
// text back when it is left; check boxes and pictures are worked where they stand.

#include "document/element_array.h"

#include <cstdint>

namespace sheetwright {

class frmSheetwright;

// Connects the editor's events (page keys, Escape, Backspace in a date, the choice of an item). Once for each
// document, with its page.
void ConnectEntry(frmSheetwright& document);

// A text element gets the focus: what is edited is left, and the editor takes its place, unless forms are
// only viewed, the document is read-only or a value is being dragged. An element that is read-only or hidden
// passes the focus on to the next that can be changed. One that is being edited stays as it is.
void Entries_GotFocus(frmSheetwright& document, int number);
// A check box or picture field gets the focus from the keyboard.
void FocusField(frmSheetwright& document, ElementRef element);

// Ends editing and writes the result back: through the field's mask, dates by the rules of dates. A mask that
// fails leaves the text as it was typed. `argument` none gives the page the focus when a check box or picture
// field is left.
void Unselect(frmSheetwright& document, ElementRef argument = {});

// A text as a field with that mask takes it: what `Unselect` and a drop do with `element`. Sets `Changed` and
// `PageChanged` when the field's text becomes another.
void TakeText(frmSheetwright& document, ElementRef element, const QString& text, const QString& mask);

// A click on a check box: it goes to its next state and is the current element.
void Checks_Click(frmSheetwright& document, int number);
// Keys of a check box or picture field with the focus; the space works it.
void Fields_KeyPress(frmSheetwright& document, ElementRef element, std::int16_t KeyAscii);
// A click and a double click on a picture field; the latter chooses a picture.
void Bitmaps_Click(frmSheetwright& document, int number);
void Bitmaps_DblClick(frmSheetwright& document, int number);

// The colours of the selected field, by the settings of the user; then the blank ones.
void UpdateColors(frmSheetwright& document);
// Text fields without a text take the colour for blanks, if that is wanted and no import is running; all
// others are white.
void HighlightBlanks(frmSheetwright& document);

}  // namespace sheetwright
