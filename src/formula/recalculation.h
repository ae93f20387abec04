#pragma once

// The full recalculation: every formula of the document once, over the saved lines, without showing a page.

namespace sheetwright {

class frmSheetwright;

// Visits pages and items in ascending order: a later page sees an earlier page's new values, an earlier one
// the later's old values. Does nothing while importing or in the viewer. With `noSave` the page on screen is
// not saved first. Raises what a formula raises, and 7 when the form grows beyond all measure; the pages
// before are then already rewritten.
void ÜberupdateFormulas(frmSheetwright& document, bool noSave);

}  // namespace sheetwright
