#include "document/pages.h"

#include "core/failure.h"
#include "document/document.h"
#include "formula/recalculation.h"

namespace sheetwright {

void AddPage(frmSheetwright& document, std::int16_t design, Placement mode, std::int16_t position) {
    if (design < 1 || design > document.memory.DesignPageCount()) throw Failure(failure::kSubscript);
    const bool isBehind = mode == Placement::AtEnd || mode == Placement::After;
    const std::int16_t number = ToInt16(isBehind ? position + 1 : position);

    document.memory.InsertDataPage(number, design);
    document.DataPageNum = number;
    document.Pages = document.memory.DataPageCount();
    document.Changed = true;  // from here on, whatever a formula raises below
    LoadPage(document);
    if (!document.Importing) ÜberupdateFormulas(document, false);
}

}  // namespace sheetwright
