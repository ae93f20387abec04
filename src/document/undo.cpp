#include "document/undo.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page_panel.h"
#include "fields/editing.h"
#include "fields/navigation.h"

#include <QScopeGuard>

#include <utility>

namespace sheetwright {

namespace {

constexpr std::int16_t kSnapshot = 0;  // the data page that holds it

template <typename Step>
void AsSnapshot(frmSheetwright& document, Step&& step) {
    const std::int16_t shown = std::exchange(document.DataPageNum, kSnapshot);
    const auto showAgain = qScopeGuard([&document, shown] { document.DataPageNum = shown; });
    std::forward<Step>(step)();
}

// Apart from the header, which tells the number.
bool HasOtherValues(const PageLines& page, const PageLines& snapshot) {
    if (page.Count() != snapshot.Count()) return true;
    for (int position = 2; position <= page.Count(); ++position)
        if (page.Line(position) != snapshot.Line(position)) return true;
    return false;
}

}  // namespace

void SetUndo(frmSheetwright& document) {
    AsSnapshot(document, [&] { SavePage(document); });
    document.application.mainWindow->SetUndoEnabled(true);
}

void mnuEditUndo_Click(frmSheetwright& document) {
    if (document.memory.DataPage(kSnapshot).Count() == 0) return;
    SavePage(document);
    if (HasOtherValues(document.memory.DataPage(document.DataPageNum), document.memory.DataPage(kSnapshot)))
        document.Changed = document.PageChanged = true;
    AsSnapshot(document, [&] {
        LoadPage(document);
        SimulateTab(document);
    });
    // Loading told of page 0, and a page of another number can't be undone.
    ShowPageOnPanel(document);
    document.application.mainWindow->SetUndoEnabled(true);
}

void mnuEditRevert_Click(frmSheetwright& document) {
    Unselect(document);
    LoadPage(document);
    SimulateTab(document);
}

}  // namespace sheetwright
