#include "ui/event_boundary.h"

#include "core/run_command.h"
#include "document/document.h"

namespace sheetwright {

bool Guarded(frmSheetwright& document, const QString& name, const std::function<void()>& step) {
    if (!RunCommand(document.application, name, step)) return true;
    RecoverFromFailedPass(document);
    return false;
}

}  // namespace sheetwright
