#pragma once

// How the page lies in its window: the paper's size, the clip window, the scroll bars.

namespace sheetwright {

class frmSheetwright;

// Sizes `picForm` as the paper, fits `picContainer` and the scroll bars to the window, paints the stationery.
// To be called on each resize of a window that isn't minimised, too. What fails is told in one message; the
// rest stands.
void SizeForm(frmSheetwright& document);

// Brings the element with the focus into view.
void AutoScroll(frmSheetwright& document);

// Sets the scroll bars, in screen pixels of the page, within their ranges, and moves `picForm`.
void ScrollTo(frmSheetwright& document, int horizontal, int vertical);

// Shows the main window what pages there are, and makes the page's paper that of the process and, where there
// are printers, of the default printer.
void RefreshPageControl(frmSheetwright& document);

}  // namespace sheetwright
