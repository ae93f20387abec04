#pragma once

// Filling the memory block from the text member of a document.

#include <QString>
#include <QStringView>

namespace sheetwright {

class frmSheetwright;

// Reads `MyTempDir` + the file name of the document's tag. A document that already has pages is merged with:
// the designs are numbered on behind its own and no data page is added. Shows "Error: File Missing" and
// leaves the document empty when there is no such file. Raises 62 for an empty file; 457 for a second "Title"
// of a page; 5 or 13 for a data header without its number and design; 6 for page numbers past 32,767. A
// document that a failure left half-read must be closed.
void ReadFormFile(frmSheetwright& document);

// The six-digit string to which versions are reduced for comparison: major and minor with three digits each.
[[nodiscard]] QString ComparableVersion(QStringView text);

}  // namespace sheetwright
