#include "document/page_panel.h"

#include "core/application.h"
#include "document/document.h"
#include "document/pages.h"

namespace sheetwright {

namespace {

QString PageOfPages(const frmSheetwright& document) {
    return QStringLiteral("%1/%2").arg(document.DataPageNum).arg(document.Pages);
}

}  // namespace

void ShowPagePanel(const frmSheetwright& document, const QString& title) {
    document.application.mainWindow->SetPagePanel(PageOfPages(document) + QStringLiteral(" - ") + title +
                                                  u' ');
}

void ShowPageBox(const frmSheetwright& document) {
    document.application.mainWindow->SetPageBox(PageOfPages(document));
}

void ShowPageOnPanel(const frmSheetwright& document) {
    const QString title = TitleOfPage(document, document.DataPageNum);
    ShowPagePanel(document, title.isEmpty() ? PageWithoutTitle(document) : title);
    ShowPageBox(document);
}

QString PageWithoutTitle(const frmSheetwright& document) {
    return document.application.Translate(QStringLiteral("Page")) + u' ' + QString::number(document.PageNum);
}

void ReportStatus(const frmSheetwright& document, const QString& text) {
    if (!document.Quiet) document.application.ui.SetStatus(text);
}

void ReportStatusAgain(const frmSheetwright& document) {
    ReportStatus(document, document.application.ui.Status());
}

void TellOfFailures(const frmSheetwright& document, const QString& hostLine, const QString& text) {
    const Application& application = document.application;
    if (application.ReportMode) {
        application.ui.TellHost(hostLine);
    } else {
        application.ui.ShowMessage(text, application.Title, MessageIcon::Exclamation);
    }
}

}  // namespace sheetwright
