#pragma once

namespace sheetwright {

class frmSheetwright;

// Rewrites each picture record reserved for "companylogo.bmp" to the logo that the user configured in the
// design tool, and copies that file into the document's temporary directory. Without a configured logo, or in
// a template that reserves no place, nothing happens. Raises 53 when the configured logo file is missing.
void SubstituteCompanyLogo(frmSheetwright& document);

}  // namespace sheetwright
