#include "document/undo.h"

#include "core/application.h"
#include "document/document.h"

#include <QScopeGuard>

#include <utility>

namespace sheetwright {

namespace {

constexpr std::int16_t kSnapshot = 0;  // the data page that holds it

}  // namespace

void SetUndo(frmSheetwright& document) {
    {
        const std::int16_t shown = std::exchange(document.DataPageNum, kSnapshot);
        const auto showAgain = qScopeGuard([&document, shown] { document.DataPageNum = shown; });
        SavePage(document);
    }
    document.application.mainWindow->SetUndoEnabled(true);
}

}  // namespace sheetwright
