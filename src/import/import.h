#pragma once

// Pours a table that an instrument has left into a form: its records fill the page on screen line by line,
// further pages are added as the design's fields ask for them.

#include <QString>

#include <cstdint>

namespace sheetwright {

class frmSheetwright;

// What an import has done.
struct ImportResult {
    bool isStopped = false;    // by the person: the form is as it was before
    std::int32_t columns = 0;  // of the table that fill something
    std::int64_t records = 0;  // read; of two pages that are filled from one file those of both
    std::int32_t pagesAdded = 0;
};

// Reads all records of the CSV file at `path`, ordered by the key columns of the design, into the page on
// screen. In a form that carries "linkedpages.txt" the file is read twice, into a page that is named there
// and into its companion; on any other page nothing happens. The last page stays on screen with its first
// field entered.
//
// After every 20 records, and at each page that is added, the person is asked for (`IsStopWanted`): stopped,
// the import leaves no trace.
//
// Raises 53, 75 and others of the file system when the file can't be taken, 6 when a page is to be added
// beyond 32,767, and what formulas raise. The records before are then in the form, and the document is still
// importing, its progress bar visible: whoever catches that calls `RecoverFromFailedPass`.
ImportResult Import(frmSheetwright& document, const QString& path);

}  // namespace sheetwright
