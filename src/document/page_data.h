#pragma once

// The page on screen goes into the lines and back.

namespace sheetwright {

class frmSheetwright;

// From now on `SavePage` and `LoadPage` of the document work on real elements; nothing is built yet.
// `LoadPage` shows data page `DataPageNum`, rebuilding the page if it needs another design; `SavePage`
// rewrites that data page from the elements, in the order of the design: lines of elements that the design
// doesn't have go.
void UsePageOnScreen(frmSheetwright& document);

}  // namespace sheetwright
