#include "ui/key_events.h"

#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "fields/navigation.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int16_t kNoCharacterCode = 63;
constexpr std::int16_t kF1 = 112;
constexpr int kLargestCode = 0x7FFF;

struct KeyName {
    int name;
    std::int16_t code;
};

constexpr KeyName kKeys[] = {
    {Qt::Key_Backspace, key::kBackspace},
    {Qt::Key_Tab, key::kTab},
    {Qt::Key_Backtab, key::kTab},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, key::kEnter},
    {Qt::Key_Enter, key::kEnter},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, key::kEscape},
    {Qt::Key_Space, key::kSpace},
    {Qt::Key_PageUp, key::kPageUp},
    {Qt::Key_PageDown, key::kPageDown},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
};

bool IsLetterOrDigit(int name) {
    return (name >= Qt::Key_A && name <= Qt::Key_Z) || (name >= Qt::Key_0 && name <= Qt::Key_9);
}

// A key with Ctrl is a command; with Alt as well it is one that makes a character of the third level.
bool IsCommand(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
}

std::int16_t CharacterCodeOf(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return 0;
    const char16_t unit = text.front().unicode();
    return unit > kLargestCode ? kNoCharacterCode : static_cast<std::int16_t>(unit);
}

// Keys whose character doesn't depend on the keyboard's layout.
bool MakesOwnCode(std::int16_t code) {
    return code == key::kBackspace || code == key::kEnter || code == key::kEscape;
}

// They turn pages when they are released. Pressed they are nobody else's: the area around the window would
// scroll.
bool TurnsPages(std::int16_t keyCode) {
    return keyCode == key::kPageUp || keyCode == key::kPageDown;
}

bool SendToEditor(Page& page, const QKeyEvent& event, std::int16_t keyCode) {
    if (keyCode != 0 && page.Entry.ReportKeyDown(keyCode, ShiftOf(event)) == 0) return true;
    const std::int16_t keyAscii = KeyAsciiOf(event);
    return keyAscii != 0 && page.Entry.ReportKeyPress(keyAscii) == 0;
}

}  // namespace

std::int16_t KeyCodeOf(const QKeyEvent& event) {
    const int name = event.key();
    if (IsLetterOrDigit(name)) return static_cast<std::int16_t>(name);
    if (name >= Qt::Key_F1 && name <= Qt::Key_F24) return static_cast<std::int16_t>(kF1 + name - Qt::Key_F1);
    const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                           [name](const KeyName& known) { return known.name == name; });
    return found == std::end(kKeys) ? std::int16_t{0} : found->code;
}

std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) shift |= key::kShiftMask;
    if (modifiers.testFlag(Qt::ControlModifier)) shift |= key::kCtrlMask;
    if (modifiers.testFlag(Qt::AltModifier)) shift |= key::kAltMask;
    return static_cast<std::int16_t>(shift);
}

std::int16_t ShiftOf(const QKeyEvent& event) {
    const bool isBacktab = event.key() == Qt::Key_Backtab;
    return ShiftOf(event.modifiers() | (isBacktab ? Qt::ShiftModifier : Qt::NoModifier));
}

std::int16_t KeyAsciiOf(const QKeyEvent& event) {
    if (IsCommand(event)) return 0;
    const std::int16_t keyCode = KeyCodeOf(event);
    return MakesOwnCode(keyCode) ? keyCode : CharacterCodeOf(event);
}

bool SendKeyPress(frmSheetwright& document, const QKeyEvent& event, ElementRef current) {
    const std::int16_t pressed = KeyCodeOf(event);
    std::int16_t keyCode = pressed;
    if (keyCode != 0) Form_KeyDown(document, keyCode, ShiftOf(event));
    if (keyCode != pressed) return true;
    if (current.kind == ElementKind::Entry) return SendToEditor(*document.page, event, keyCode);
    if (TurnsPages(keyCode)) return true;
    const std::int16_t keyAscii = KeyAsciiOf(event);
    if (current.IsNone() || keyAscii == 0) return false;
    Fields_KeyPress(document, current, keyAscii);
    return keyAscii == key::kSpace;
}

bool SendKeyRelease(frmSheetwright& document, const QKeyEvent& event) {
    if (event.isAutoRepeat()) return false;
    const std::int16_t keyCode = KeyCodeOf(event);
    if (keyCode != 0) Form_KeyUp(document, keyCode, ShiftOf(event));
    return TurnsPages(keyCode);
}

}  // namespace sheetwright
