#pragma once

// How `fill` takes the table of an instrument: as a window does, with a page on screen that nobody sees.

#include "import/import.h"

#include <QString>

namespace sheetwright::cli {

struct ImportTable {
    QString path;
    int page = 1;
};

// Shows the page, imports the table into it, stores it, and goes back to the headless page. Raises
// CommandError for a page or table that isn't there and for a table of which nothing comes into the form, and
// what `Import` raises; the document is of no use then.
ImportResult TakeTable(frmSheetwright& document, const ImportTable& table);

// "imported 12 records, 1 page added"
[[nodiscard]] QString ToldOf(const ImportResult& result);

}  // namespace sheetwright::cli
