#include "document/page_moves.h"

#include "core/application.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "fields/dragging.h"
#include "fields/navigation.h"
#include "formula/recalculation.h"

namespace sheetwright {

namespace {

void StorePage(frmSheetwright& document) {
    if (document.PageChanged) {
        ÜberupdateFormulas(document, false);
    } else {
        SavePage(document);
    }
}

void ShowPage(frmSheetwright& document, std::int16_t number) {
    document.DataPageNum = number;
    LoadPage(document);
    document.PageChanged = false;
}

}  // namespace

void MoveToPage(frmSheetwright& document, std::int16_t number) {
    if (number < 1 || number > document.Pages) return;
    const Application& application = document.application;
    const BusyDocument busy(document.Busy);
    CancelDrag(document);
    application.mainWindow->SetEnabled(false);
    try {
        StorePage(document);
        ShowPage(document, number);
    } catch (...) {
        RecoverFromFailedPass(document);
        application.mainWindow->SetEnabled(true);
        throw;
    }
    if (application.ReportMode) application.ui.TellHost(QStringLiteral("EVENT: PAGECHANGE"));
    GPFFix(document);
}

void ChangePage(frmSheetwright& document, QStringView direction) {
    if (direction == u"down" && document.DataPageNum < document.Pages)
        MoveToPage(document, static_cast<std::int16_t>(document.DataPageNum + 1));
    if (direction == u"up" && document.DataPageNum > 1)
        MoveToPage(document, static_cast<std::int16_t>(document.DataPageNum - 1));
}

}  // namespace sheetwright
