#pragma once

// What the main window tells of the page on screen: its number and title, and what is being done with it.

#include <QString>
#include <QStringView>

namespace sheetwright {

class frmSheetwright;

// "2/5 - Title ".
void ShowPagePanel(const frmSheetwright& document, const QString& title);
// "2/5".
void ShowPageBox(const frmSheetwright& document);
// Both, for the page on screen with the title of its design.
void ShowPageOnPanel(const frmSheetwright& document);
// What stands for the title of a page that has none, such as "Page 1".
[[nodiscard]] QString PageWithoutTitle(const frmSheetwright& document);

// A status word, already translated; none while the document works quietly.
void ReportStatus(const frmSheetwright& document, const QString& text);
// The status word that shows, once more.
void ReportStatusAgain(const frmSheetwright& document);

// Tells of failures that were logged: the host in report mode, else the person. `text` is translated.
void TellOfFailures(const frmSheetwright& document, const QString& hostLine, const QString& text);

}  // namespace sheetwright
