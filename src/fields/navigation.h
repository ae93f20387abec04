#pragma once

// How a person moves between the fields of a page with the keyboard.

#include "core/conventions.h"
#include "document/element_array.h"

#include <cstdint>

namespace sheetwright {

class frmSheetwright;
struct Page;

// Key codes and the bits of `Shift` in key events.
namespace key {
inline constexpr std::int16_t kBackspace = 8;
inline constexpr std::int16_t kTab = 9;
inline constexpr std::int16_t kEnter = 13;
inline constexpr std::int16_t kEscape = 27;
inline constexpr std::int16_t kSpace = 32;
inline constexpr std::int16_t kPageUp = 33;
inline constexpr std::int16_t kPageDown = 34;
inline constexpr std::int16_t kShiftMask = 1;
inline constexpr std::int16_t kCtrlMask = 2;
inline constexpr std::int16_t kAltMask = 4;
}  // namespace key

// Brings `TabOrders` into the order of `TabIdx`, read as numbers; equal ones keep theirs.
void SortTabOrders(Page& page, const Conventions& conventions);

// Tab and Enter, without Ctrl, go to the next field that can be changed, with Shift to the one before; past
// the last the first follows. Sees every key before the element that has the focus. Such a key becomes 0.
void Form_KeyDown(frmSheetwright& document, std::int16_t& KeyCode, std::int16_t Shift);
// Page Up and Page Down, while the main window is enabled: the page before or behind; behind the last one a
// new page is offered.
void Form_KeyUp(frmSheetwright& document, std::int16_t KeyCode, std::int16_t Shift);

enum class TabDirection { Forward, Backward };

// From that element, which need not have the focus, to the next that can be changed; none of the page's
// elements means from before the first or behind the last. After one circle nothing happens.
void MoveFocus(frmSheetwright& document, ElementRef from, TabDirection direction);

// As if Tab had been pressed.
void SimulateTab(frmSheetwright& document);

// Enables the main window and takes the focus from the page before pumping messages once, so that no element
// that is gone keeps the focus while a page is rebuilt.
void GPFFix(frmSheetwright& document);

}  // namespace sheetwright
