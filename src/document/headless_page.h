#pragma once

// The page on screen of a document that no window shows: the records of its fields, without any element. It
// keeps what formulas need to know of that page, the display masks, and gives a new page its lines.

namespace sheetwright {

class frmSheetwright;

// Sets the document's hooks to the headless page.
void UseHeadlessPage(frmSheetwright& document);

}  // namespace sheetwright
