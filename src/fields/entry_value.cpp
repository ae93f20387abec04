// The value of a field control: one text for all styles.

#include "core/application.h"
#include "core/failure.h"
#include "fields/usr_entry.h"
#include "formula/value_conversion.h"

#include <cmath>

namespace sheetwright {

QString usrEntry::Value() const {
    switch (m_fieldType) {
        case field_type::kText:
        case field_type::kPicture:
            return m_txtText.Text();
        case field_type::kCombo:
            return m_cboCombo.Text();
        case field_type::kDropdown:
            return m_cboDropdown.Text();
        case field_type::kCheckBox:
            return QString::number(m_chkBox.Value());
        case field_type::kDate:
            return m_cbo_date.Visible ? m_cbo_date.Text() : m_dtpDate.Text();
        default:
            return QStringLiteral("0");
    }
}

void usrEntry::SetValue(const QString& text) {
    SetTexts(TakePicture(text));
    MarkChanged(u"Value");
}

void usrEntry::SetTexts(const QString& value) {
    m_txtText.SetText(value);
    m_cboCombo.SetText(value);
    m_cbo_date.SetText(value);
    SelectInLists(value);
    SetState(value);
}

void usrEntry::SelectInLists(const QString& text) {
    m_isMovingSelection = true;
    for (int index = 0; index < m_cboDropdown.ListCount(); ++index) {
        if (m_cboDropdown.List(index) != text) continue;
        m_cboDropdown.SetListIndex(index);
        Ignoring([&] { m_cboCombo.SetListIndex(index); });
    }
    m_isMovingSelection = false;
}

void usrEntry::SetState(const QString& text) {
    std::int16_t state = 0;
    Ignoring([&] { state = ToInt16(std::abs(ToNumber(text, m_application.conventions))); });
    if (state < m_states) m_chkBox.SetValue(state);
}

}  // namespace sheetwright
