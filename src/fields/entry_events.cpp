// What a view reports of the visible child of a field control. Nobody can reach one that is disabled.

#include "fields/usr_entry.h"

namespace sheetwright {

namespace {

constexpr std::int16_t kSpace = 32;

void Pass(const usrEntry::MouseEvent& event, std::int16_t button, std::int16_t shift, float x, float y) {
    if (event) event(button, shift, x, y);
}

}  // namespace

std::int16_t usrEntry::ReportKeyDown(std::int16_t keyCode, std::int16_t shift) const {
    if (TakesInput() && KeyDown) KeyDown(keyCode, shift);
    return keyCode;
}

std::int16_t usrEntry::ReportKeyPress(std::int16_t keyAscii) {
    if (!TakesInput()) return keyAscii;
    if (KeyPress) KeyPress(keyAscii);
    if (IsStyle(field_type::kCheckBox)) m_chkBox.PressKey(keyAscii);
    if (IsStyle(field_type::kPicture) && keyAscii == kSpace) ChoosePicture();
    return keyAscii;
}

std::int16_t usrEntry::ReportKeyUp(std::int16_t keyCode, std::int16_t shift) const {
    if (TakesInput() && KeyUp) KeyUp(keyCode, shift);
    return keyCode;
}

void usrEntry::ReportMouseDown(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (TakesInput()) Pass(MouseDown, button, shift, x, y);
}

void usrEntry::ReportMouseMove(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (TakesInput()) Pass(MouseMove, button, shift, x, y);
}

void usrEntry::ReportMouseUp(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (TakesInput()) Pass(MouseUp, button, shift, x, y);
}

void usrEntry::ReportText(const QString& text) {
    if (!TakesInput()) return;
    if (IsStyle(field_type::kText)) m_txtText.SetText(text);
    if (IsStyle(field_type::kCombo)) m_cboCombo.TypeText(text);
    if (m_cbo_date.Visible) m_cbo_date.SetText(text);
}

void usrEntry::ReportPick(int index) {
    if (TakesInput() && IsList()) ListInForce().Pick(index);
}

void usrEntry::ReportClick() {
    if (!TakesInput()) return;
    if (IsStyle(field_type::kCheckBox)) return m_chkBox.ClickLabel();
    const bool isTold = IsStyle(field_type::kText) || IsStyle(field_type::kPicture);
    if (isTold && Click) Click();
}

void usrEntry::ReportDoubleClick() {
    if (!TakesInput()) return;
    const bool isTold = IsStyle(field_type::kText) || IsStyle(field_type::kCombo);
    if (isTold && DblClick) DblClick();
    if (IsStyle(field_type::kPicture)) ChoosePicture();
}

}  // namespace sheetwright
