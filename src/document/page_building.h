#pragma once

// Builds the page on screen from a design page: fixed elements are painted into `picForm`, each field, check
// box and picture field becomes a light element.

#include "document/design_records.h"

#include <QStringView>

#include <memory>

namespace sheetwright {

class frmSheetwright;

// Builds the page from design `PageNum`. Whatever fails is logged with its line and the walk goes on; at the
// end one message tells of it (in report mode the host is told).
void LoadDesignPage(frmSheetwright& document);

// Removes everything of the design on screen. Fails quietly.
void ClearPage(frmSheetwright& document);

// Builds one element of `kind` (four letters). Raises what its keys or pictures raise; what was built by then
// stays. Raises 7 for a check box while the platform has less than 15 percent of its resources free.
void MakeForm(frmSheetwright& document, QStringView kind, const std::shared_ptr<PropertyBag>& bag);

}  // namespace sheetwright
