#pragma once

// Keys as a form hears them: the form first, then the element that has the focus.

#include "document/element_array.h"

#include <Qt>

#include <cstdint>

class QKeyEvent;

namespace sheetwright {

class frmSheetwright;

// The code of a key, whatever character it makes; 0 for one without a code.
[[nodiscard]] std::int16_t KeyCodeOf(const QKeyEvent& event);
// The bits `key::kShiftMask` and its siblings; a key may stand for one itself.
[[nodiscard]] std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers);
[[nodiscard]] std::int16_t ShiftOf(const QKeyEvent& event);
// The code of the character that a key makes; 0 for none, 63 for one that has no code in 16 bits. Keys with
// Ctrl make none: they are commands.
[[nodiscard]] std::int16_t KeyAsciiOf(const QKeyEvent& event);

// Form_KeyDown, then the keys of `current`. True when the key was taken: nobody else is to work with it.
// Raises what the form's events raise.
bool SendKeyPress(frmSheetwright& document, const QKeyEvent& event, ElementRef current);
// Form_KeyUp. A key that is held down is released once. True for the keys that turn pages.
bool SendKeyRelease(frmSheetwright& document, const QKeyEvent& event);

}  // namespace sheetwright
