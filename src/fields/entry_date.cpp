// The date of a field control: its text entry, and the picker that takes its place while a date is chosen.

#include "fields/usr_entry.h"

namespace sheetwright {

void usrEntry::ConnectDate() {
    m_cbo_date.Change = [this] {
        if (m_isCopyingDate) return;
        m_isDatePending = true;
        if (IsStyle(field_type::kDate)) PassDate();
    };
    m_dtpDate.Change = [this] {
        if (m_dtpDate.Visible) ShowEntryOfDate(m_dtpDate.Text());
        Tell(Change, field_type::kDate);
    };
}

void usrEntry::PassDate() {
    if (!m_isDatePending) return;
    m_isDatePending = false;
    if (const std::optional<QDate> date = m_dtpDate.DateOf(m_cbo_date.Text())) m_dtpDate.SetValue(*date);
}

void usrEntry::ShowEntryOfDate(const QString& text) {
    m_isCopyingDate = true;
    m_cbo_date.SetText(text);
    m_isCopyingDate = false;
}

void usrEntry::ReportDropDown() {
    if (!TakesInput() || !m_cbo_date.Visible) return;
    m_dtpDate.SetValue(m_dtpDate.DateOf(m_cbo_date.Text()).value_or(Today()));
    m_dtpDate.Place.width = m_width;
    m_dtpDate.Visible = true;
    m_cbo_date.Visible = false;
    if (OpenCalendar) OpenCalendar();
}

void usrEntry::ReportDate(QDate date) {
    if (m_dtpDate.Visible) m_dtpDate.SetValue(date);
}

void usrEntry::ReportCalendarClosed() {
    if (!m_dtpDate.Visible) return;
    ShowEntryOfDate(m_dtpDate.Text());
    m_cbo_date.Visible = true;
    m_dtpDate.Visible = false;
}

}  // namespace sheetwright
