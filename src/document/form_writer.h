#pragma once

// Turning the memory block back into text, and the sequence of a save.

#include <QString>

namespace sheetwright {

class frmSheetwright;

enum class Recalculate { Yes, No };

// Recalculates the document and writes its text into `MyTempDir` under the file name of the tag, after
// deleting every "*.af?" there. Clears `Changed`, `PageChanged` and `DoSaveAsOnly`. Raises what a formula
// raises, and 75, 61 or 57 when the text can't be written in full: a text cut short must never be packed over
// a good form.
void WriteFormFile(frmSheetwright& document, Recalculate recalculate = Recalculate::Yes);

// The whole save under the document's tag: page on screen into memory, text, archive. A failure is shown
// under the title "Unable to save file", the old file stays whole and `Changed` stays set. Returns whether it
// is saved.
bool SaveForm(frmSheetwright& document, Recalculate recalculate = Recalculate::Yes);

}  // namespace sheetwright
