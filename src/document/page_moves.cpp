#include "document/page_moves.h"

#include "core/application.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "fields/dragging.h"
#include "fields/navigation.h"
#include "formula/recalculation.h"

#include <QScopedValueRollback>

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

std::int16_t Beside(const frmSheetwright& document, int step) {
    return static_cast<std::int16_t>(document.DataPageNum + step);
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

void FirstPage(frmSheetwright& document) {
    MoveToPage(document, 1);
}

void LastPage(frmSheetwright& document) {
    MoveToPage(document, document.Pages);
}

void NextPage(frmSheetwright& document) {
    if (document.DataPageNum < document.Pages) MoveToPage(document, Beside(document, 1));
}

void PrevPage(frmSheetwright& document) {
    if (document.DataPageNum > 1) MoveToPage(document, Beside(document, -1));
}

void ChangePage(frmSheetwright& document, QStringView direction) {
    if (direction == u"down") NextPage(document);
    if (direction == u"up") PrevPage(document);
}

void mnuPageGoto_Click(frmSheetwright* document, bool& gotoOpen,
                       const std::function<void(frmSheetwright&)>& showGoto) {
    if (gotoOpen || document == nullptr) return;
    const QScopedValueRollback<bool> open(gotoOpen, true);
    const std::int16_t before = document->DataPageNum;
    showGoto(*document);
    if (document->DataPageNum != before) SimulateTab(*document);
}

void mnuPageAdd_Click(frmSheetwright& document) {
    const Application& application = document.application;
    const std::int16_t before = document.DataPageNum;
    application.mainWindow->ShowAddPage(document);
    if (document.DataPageNum == before) return;
    SimulateTab(document);
    if (application.ReportMode) application.ui.TellHost(QStringLiteral("EVENT: PAGECHANGE"));
}

}  // namespace sheetwright
