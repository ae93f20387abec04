#include "document/pages.h"

#include "core/application.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page_view_layout.h"
#include "fields/editing.h"
#include "formula/recalculation.h"

#include <QScopeGuard>

#include <algorithm>

namespace sheetwright {

namespace {

bool IsRemovalWanted(const Application& application) {
    return application.ui.ShowMessage(application.Translate(QStringLiteral("Are you sure?")),
                                      application.Translate(QStringLiteral("Remove Page")),
                                      MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes;
}

void TakeOut(frmSheetwright& document) {
    document.memory.RemoveDataPage(document.DataPageNum);
    document.Pages = document.memory.DataPageCount();
    document.DataPageNum = std::min(document.DataPageNum, document.Pages);
    document.Changed = true;  // from here on, whatever a formula raises
}

// The elements still hold the page that is gone: they must not be saved as the one that has its number now.
void ShowPageOfNumber(frmSheetwright& document) {
    RecoverFromFailedPass(document);
    LoadPage(document);
    RefreshPageControl(document);
}

}  // namespace

void AddPage(frmSheetwright& document, std::int16_t design, Placement mode, std::int16_t position) {
    if (design < 1 || design > document.memory.DesignPageCount()) throw Failure(failure::kSubscript);
    const bool isBehind = mode == Placement::AtEnd || mode == Placement::After;
    const std::int16_t number = ToInt16(isBehind ? position + 1 : position);
    const BusyDocument busy(document.Busy);

    document.memory.InsertDataPage(number, design);
    document.DataPageNum = number;
    document.Pages = document.memory.DataPageCount();
    document.Changed = true;  // from here on, whatever a formula raises below
    LoadPage(document);
    if (document.Importing) return;
    ÜberupdateFormulas(document, false);
    RefreshPageControl(document);
}

bool HasPlace(frmSheetwright& document, Placement mode, std::optional<std::int16_t> position) {
    if (position || mode == Placement::AtStart || mode == Placement::AtEnd) return true;
    const Application& application = document.application;
    application.ui.Beep();
    application.ui.ShowMessage(application.Translate(QStringLiteral("Page number required")),
                               application.Translate(QStringLiteral("Add Page")), MessageIcon::Exclamation);
    return false;
}

bool AddChosenPage(frmSheetwright& document, std::int16_t design, Placement mode,
                   std::optional<std::int16_t> position) {
    if (!HasPlace(document, mode, position)) return false;
    SavePage(document);
    const std::int16_t end = mode == Placement::AtEnd ? document.Pages : std::int16_t{1};
    AddPage(document, design, mode, position.value_or(end));
    return true;
}

void RemovePage(frmSheetwright& document) {
    if (document.Pages <= 1 || !IsRemovalWanted(document.application)) return;
    const BusyDocument busy(document.Busy);
    Unselect(document);
    TakeOut(document);
    const bool recalculates = !document.Importing && !document.application.ViewerMode;
    if (!recalculates) return ShowPageOfNumber(document);
    try {
        ÜberupdateFormulas(document, true);
    } catch (...) {
        ShowPageOfNumber(document);
        throw;
    }
    RefreshPageControl(document);
}

void mnuPageRemove_Click(frmSheetwright& document) {
    const Application& application = document.application;
    // Also when a formula fails: the page is gone all the same.
    const auto tellHost = qScopeGuard([&application, &document, before = document.DataPageNum] {
        if (application.ReportMode && document.DataPageNum != before)
            application.ui.TellHost(QStringLiteral("EVENT: PAGECHANGE"));
    });
    RemovePage(document);
}

QString TitleOfPage(const frmSheetwright& document, int number) {
    const MemoryBlock& memory = document.memory;
    QString title;
    Ignoring([&] { title = memory.PageProps.At(int{memory.WhichDesign(number)}); });
    return title;
}

QStringList PageListTexts(const frmSheetwright& document) {
    QStringList texts;
    texts.reserve(document.memory.DataPageCount());
    for (int number = 1; number <= document.memory.DataPageCount(); ++number)
        texts << QString::number(number) + QStringLiteral(" - ") + TitleOfPage(document, number);
    return texts;
}

}  // namespace sheetwright
