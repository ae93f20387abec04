#pragma once

// How a text gets into a text element.

#include <QString>

namespace sheetwright {

class frmSheetwright;

// As it is, without mask. Sets `Changed` and `PageChanged` when the element's text becomes another; an
// element that isn't there takes none.
void PutText(frmSheetwright& document, int number, const QString& text);

}  // namespace sheetwright
