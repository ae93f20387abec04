#include "fields/list_child.h"

#include "core/failure.h"

#include <algorithm>

namespace sheetwright {

namespace {

bool ComesBefore(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) < 0;
}

}  // namespace

std::size_t ListChild::Checked(int index) const {
    if (index < 0 || index >= ListCount()) throw Failure(failure::kInvalidProperty);
    return static_cast<std::size_t>(index);
}

int ListChild::SortedPlace(const QString& text) const {
    const auto place = std::upper_bound(
        m_items.begin(), m_items.end(), text,
        [](const QString& added, const Item& item) { return ComesBefore(added, item.text); });
    return static_cast<int>(place - m_items.begin());
}

void ListChild::AddItem(const QString& text, std::optional<int> index) {
    const int place = index ? *index : m_isSorted ? SortedPlace(text) : ListCount();
    if (place < 0 || place > ListCount()) throw Failure(failure::kInvalidCall);
    m_items.insert(m_items.begin() + place, Item{text});
    m_newIndex = place;
    if (m_index >= place) ++m_index;
}

void ListChild::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) throw Failure(failure::kInvalidCall);
    m_items.erase(m_items.begin() + index);
    m_newIndex = -1;
    if (m_index == index) {
        m_index = -1;
    } else if (m_index > index) {
        --m_index;
    }
    m_topIndex = std::clamp(m_topIndex, 0, std::max(0, ListCount() - 1));
}

void ListChild::Clear() {
    m_items.clear();
    m_edit.SetText({});
    m_index = -1;
    m_newIndex = -1;
    m_topIndex = 0;
}

QString ListChild::List(int index) const {
    return index < 0 || index >= ListCount() ? QString() : m_items[static_cast<std::size_t>(index)].text;
}

void ListChild::SetListIndex(int index) {
    if (index != -1) (void)Checked(index);
    m_index = index;
    if (m_kind == Kind::Editable) m_edit.SetText(List(index));
    if (index >= 0 && Click) Click();
}

void ListChild::Pick(int index) {
    SetListIndex(static_cast<int>(Checked(index)));
}

void ListChild::SetSorted(bool isSorted) {
    m_isSorted = isSorted;
    if (!isSorted) return;
    const QString selected = List(m_index);
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const Item& one, const Item& other) { return ComesBefore(one.text, other.text); });
    if (m_index < 0) return;
    const auto found =
        std::find_if(m_items.begin(), m_items.end(), [&](const Item& item) { return item.text == selected; });
    m_index = static_cast<int>(found - m_items.begin());
}

void ListChild::SetTopIndex(int index) {
    m_topIndex = static_cast<int>(Checked(index));
}

QString ListChild::Text() const {
    return m_kind == Kind::Editable ? m_edit.Text() : List(m_index);
}

void ListChild::SetText(const QString& text) {
    if (m_edit.SetText(text) && Change) Change();
}

void ListChild::TypeText(const QString& text) {
    m_index = -1;
    SetText(text);
}

void ListChild::SetSelText(const QString& text) {
    if (m_edit.SetSelText(text) && Change) Change();
}

}  // namespace sheetwright
