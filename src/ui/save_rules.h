#pragma once

// Which way a form can be saved.

namespace sheetwright {

class frmSheetwright;

// Under its own name: a form does, unless its file was opened read-only; one made of a template has no name
// yet.
[[nodiscard]] bool CanSave(const frmSheetwright& document);

// Under a new name: always, except in the viewer.
[[nodiscard]] bool CanSaveAs(const frmSheetwright& document);

}  // namespace sheetwright
