#pragma once

// Merging the designs of a template into an open form.

#include "document/pages.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace sheetwright {

class frmSheetwright;

struct MergeResult {
    int added = 0;            // designs
    std::int16_t design = 0;  // the number of the first of them
};

// Adds the design pages of the template at `path`, numbered on behind the form's own, and its pictures,
// in the archive or beside it; no data page. A picture whose name stands for another picture of the form gets a new name, in the merged
// designs too. Nothing is added, and a person has been told, when the archive can't be unpacked or holds no
// text. Raises 62 for a template without designs, 67 or 6 for more files or bytes than a form may have, and
// what unpacking and reading raise. Whatever fails, the form is exactly as it was, its files too.
[[nodiscard]] MergeResult MergeTemplate(frmSheetwright& document, const QString& path);

// Merges, and places a page at once when the template brought exactly one design and the place is known. True
// when it did: the dialog closes. Otherwise the person goes on in it, with the merged designs to choose from.
[[nodiscard]] bool GetPages(frmSheetwright& document, const QString& path, Placement mode,
                            std::optional<std::int16_t> position);

}  // namespace sheetwright
