#pragma once

// Printing a form from its stored lines, with no page on screen: to a printer, or to a picture surface for
// the preview.

#include <cstdint>

namespace sheetwright {

class Device;
class frmSheetwright;

// The Print command. In report mode nothing is printed: the host is told, and decides.
void mnuFilePrint_Click(frmSheetwright& document);

// Recalculates the form, asks for the pages, prints them. Cancelling the dialog prints nothing, silently.
// Raises what recalculating and PrintPages raise, and 482 when there is no printer to print on.
void DoRealPrint(frmSheetwright& document);

// Draws data pages, both ends included, in rising order. Each page goes to the spooler as a document of its
// own, so that orientation and paper can change from page to page. Until the first value has been looked up
// failures are logged and the job goes on; from then on a failure inside a field or check box travels. What
// was drawn by then stays in the printer's open document.
void PrintPages(frmSheetwright& document, Device& device, std::int16_t firstPage, std::int16_t lastPage);

// Draws the fixed elements of a design and fills `PrintElements` with its fields and check boxes.
void PrintDesignPage(frmSheetwright& document, Device& device, std::int16_t designNumber);

}  // namespace sheetwright
