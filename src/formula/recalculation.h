#pragma once

// The full recalculation: every formula of the document once, over the saved lines, without showing a page.

#include "formula/evaluation_context.h"

namespace sheetwright {

class frmSheetwright;

// What a pass over the document sees of it. Good as long as the document lives.
[[nodiscard]] EvaluationContext EvaluationContextOf(frmSheetwright& document);

// Characters by which one pass lengthens a form. A long text that formulas copy to thousands of places would
// take all memory.
class FormGrowth {
  public:
    // Raises 7 beyond all measure.
    void Add(qint64 characters);

  private:
    qint64 m_characters = 0;
};

// Visits pages and items in ascending order: a later page sees an earlier page's new values, an earlier one
// the later's old values. Does nothing while importing or in the viewer. With `noSave` the page on screen is
// not saved first. Raises what a formula raises, and 7 when the form grows beyond all measure; the pages
// before are then already rewritten.
void ÜberupdateFormulas(frmSheetwright& document, bool noSave);

}  // namespace sheetwright
