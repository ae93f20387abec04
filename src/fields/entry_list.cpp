// The lists of a field control, and the text that can be selected in it.

#include "core/application.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "fields/list_source.h"
#include "fields/usr_entry.h"
#include "formula/value_conversion.h"
#include "import/csv_table.h"

namespace sheetwright {

void usrEntry::SetAttachedList(const QString& text) {
    m_attachedList = text;
    MarkChanged(u"AttachedList");
    if (text.startsWith(u'@')) return AddListFile(QStringView(text).sliced(1));
    for (const sheetwright::Value& item : CsvFieldsOf(text, m_application.conventions))
        AddItem(TextOf(item, m_application.conventions));
}

void usrEntry::AddListFile(QStringView list) {
    const Conventions& conventions = m_application.conventions;
    const QString path = ListPathOf(ListFolder(m_application), list, conventions);
    if (!FileExists(path)) return;
    m_list = std::make_unique<CsvTable>();
    Ignoring([&] { m_list->SetFileName(path); });
    const CsvColumn* column = nullptr;
    Ignoring([&] { column = &ListColumnOf(*m_list, list, conventions); });
    for (; !m_list->AtEnd(); m_list->MoveNext())
        if (column != nullptr) AddItem(column->Value());
}

void usrEntry::ReleaseList() {
    m_list.reset();
}

void usrEntry::AddItem(const QString& text, std::optional<int> index) {
    m_cboCombo.AddItem(text, index);
    m_cboDropdown.AddItem(text, index);
}

void usrEntry::RemoveItem(int index) {
    m_cboCombo.RemoveItem(index);
    m_cboDropdown.RemoveItem(index);
}

void usrEntry::Clear() {
    m_cboCombo.Clear();
    m_cboDropdown.Clear();
}

void usrEntry::SetItemData(int index, std::int32_t data) {
    m_cboCombo.SetItemData(index, data);
    m_cboDropdown.SetItemData(index, data);
}

void usrEntry::SetSorted(bool isSorted) {
    m_cboCombo.SetSorted(isSorted);
    m_cboDropdown.SetSorted(isSorted);
}

const ListChild& usrEntry::ListInForce() const {
    return IsStyle(field_type::kDropdown) ? m_cboDropdown : m_cboCombo;
}

ListChild& usrEntry::ListInForce() {
    return IsStyle(field_type::kDropdown) ? m_cboDropdown : m_cboCombo;
}

const EditText& usrEntry::EditInForce() const {
    if (IsStyle(field_type::kCombo)) return m_cboCombo.Edit();
    return IsStyle(field_type::kDate) ? m_cbo_date.Edit() : m_txtText.Edit();
}

template <typename Step>
void usrEntry::WithTextInForce(Step step) {
    if (IsStyle(field_type::kCombo)) return step(m_cboCombo);
    if (IsStyle(field_type::kDate)) return step(m_cbo_date);
    step(m_txtText);
}

void usrEntry::SetSelStart(qsizetype start) {
    WithTextInForce([start](auto& child) { child.SetSelStart(start); });
}

void usrEntry::SetSelLength(qsizetype length) {
    WithTextInForce([length](auto& child) { child.SetSelLength(length); });
}

void usrEntry::SetSelText(const QString& text) {
    WithTextInForce([&text](auto& child) { child.SetSelText(text); });
}

void usrEntry::ReportSelection(qsizetype start, qsizetype length) {
    SetSelStart(start);
    SetSelLength(length);
}

}  // namespace sheetwright
