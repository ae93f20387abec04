#pragma once

// The boundary around each event of a form's window: no failure gets into the event loop.

#include <QString>

#include <functional>

namespace sheetwright {

class frmSheetwright;

// Runs what an event does to the document. A failure is logged under `name` and told to the person; the
// document then shows its current page again. True when nothing failed.
bool Guarded(frmSheetwright& document, const QString& name, const std::function<void()>& step);

}  // namespace sheetwright
