#pragma once

// Adding, removing and listing data pages.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace sheetwright {

class frmSheetwright;

// Where a page goes relative to a position; the numbers are those of the command language and the dialog.
enum class Placement : std::int16_t { AtStart = 0, AtEnd = 1, Before = 2, After = 3 };

// Inserts an empty page of `design` and shows it: at `position` for AtStart and Before, behind it for AtEnd
// and After. The page on screen is not saved first: callers do that. Recalculates and refreshes the page
// panel unless an import is running. Raises 9 for a position outside the document or a design that it doesn't
// have, and 6 past 32,767 pages; nothing is changed then. What a formula raises leaves the page in the
// document.
void AddPage(frmSheetwright& document, std::int16_t design, Placement mode, std::int16_t position);

// Whether a page can be placed: beside a page only when one is chosen. Tells a person when it can't.
[[nodiscard]] bool HasPlace(frmSheetwright& document, Placement mode, std::optional<std::int16_t> position);

// What the Add Page dialog does with the design chosen in it: stores the page on screen and adds the new one.
// False when there is no place for it: the dialog stays.
[[nodiscard]] bool AddChosenPage(frmSheetwright& document, std::int16_t design, Placement mode,
                                 std::optional<std::int16_t> position);

// Asks, and removes the page on screen; the next one takes its number and shows, after the last one the one
// before. The only page stays without a question. What a formula raises leaves the page removed, and the one
// of its number on screen.
void RemovePage(frmSheetwright& document);
// The same as a command, which tells the host in report mode when the number on screen has become another.
void mnuPageRemove_Click(frmSheetwright& document);

// The title of the design of data page `number`; "" when it has none.
[[nodiscard]] QString TitleOfPage(const frmSheetwright& document, int number);
// The rows of the list of pages, `lstPages`: "3 - Title". Page n is row n - 1.
[[nodiscard]] QStringList PageListTexts(const frmSheetwright& document);

}  // namespace sheetwright
