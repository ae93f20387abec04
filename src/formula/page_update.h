#pragma once

// The recalculation of the page on screen, over its live elements.

namespace sheetwright {

class CsvCache;
class frmSheetwright;

// Runs the formula of each text field once, in record order: with `CurrentRecord` -1 all but those that read
// driver data, otherwise those whose `MultiRecordIndex` it is (0 when they have none). Raises what a formula
// raises; fields before it then have their new values.
// `lists`, when given, keeps the lists that formulas look up from one call to the next.
void UpdateFormulas(frmSheetwright& document, CsvCache* lists = nullptr);

}  // namespace sheetwright
