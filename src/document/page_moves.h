#pragma once

// From one data page to another. The page that is left is stored first, and recalculated with the whole form
// when it was changed.

#include <QStringView>

#include <cstdint>
#include <functional>

namespace sheetwright {

class frmSheetwright;

// Shows data page `number` (1 to `Pages`, others do nothing), tells the host in report mode. Raises what a
// formula raises; the page on screen is then as it was.
void MoveToPage(frmSheetwright& document, std::int16_t number);

// What the arrow buttons do. The first and the last page are shown anew when they are on screen already;
// behind the last one and before the first there is nothing to go to. Raise what `MoveToPage` raises.
void FirstPage(frmSheetwright& document);
void LastPage(frmSheetwright& document);
void NextPage(frmSheetwright& document);
void PrevPage(frmSheetwright& document);

// "down" to the next page, "up" to the one before; at the end and for any other text nothing happens.
void ChangePage(frmSheetwright& document, QStringView direction);

// The command Goto Page for the document in front; none does nothing. `showGoto` is its dialog, modally, and
// `gotoOpen` is true as long as that is open: it is not opened twice. On another page the first field is
// entered afterwards.
void mnuPageGoto_Click(frmSheetwright* document, bool& gotoOpen,
                       const std::function<void(frmSheetwright&)>& showGoto);

// The command Add Page: shows the main window's dialog. When the number of the page on screen has become
// another, the first field is entered and the host told in report mode.
void mnuPageAdd_Click(frmSheetwright& document);

}  // namespace sheetwright
