#pragma once

// What the records of a design become on the page on screen, one function for each kind. Each raises what its
// keys raise; what was made by then stays.

#include "document/design_records.h"

#include <memory>

namespace sheetwright {

class frmSheetwright;

// Background, drivers, stationery, paper, size and title of the page. The page is sized even when a printer
// refuses its paper; that failure is raised at the end.
void MakePage(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);

// Painted into `picForm`.
void MakeFrame(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);
void MakeLine(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);
void MakeShape(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);
void MakeLabel(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);
void MakePicture(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);

// Elements of their own. Raise 457 for a name or tab index that an element of the page has already (it then
// stays out of the index) and for a collection that is an element already, 6 for a place that can't be, and
// 380 for such a font size.
void MakeField(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);
void MakeCheckBox(frmSheetwright& document, const std::shared_ptr<PropertyBag>& bag);

}  // namespace sheetwright
