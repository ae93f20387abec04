#pragma once

// A list with a text: the editable combo box, the drop-down from which one can only choose, and the entry
// part of a date, whose list stays empty. Indexes count from 0; -1 is none.

#include "fields/edit_text.h"
#include "fields/field_child.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace sheetwright {

class ListChild : public FieldChild {
  public:
    enum class Kind { Editable, ListOnly };
    ListChild(int tabIndex, Kind kind) : FieldChild(tabIndex), m_kind(kind) {}

    // Adds behind the others, or in the alphabet when sorted, or at `index`: raises 5 when that is outside.
    void AddItem(const QString& text, std::optional<int> index = std::nullopt);
    void RemoveItem(int index);  // raises 5 for an index outside
    void Clear();                // the text goes, too; nothing is told of it

    [[nodiscard]] int ListCount() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QString List(int index) const;  // "" outside
    [[nodiscard]] int ListIndex() const { return m_index; }
    // Selects an item, which becomes the text; that is a click whatever was selected before. Raises 380
    // outside -1 to the last.
    void SetListIndex(int index);
    void Pick(int index);  // the same of a person, who can't select none: raises 380 for -1
    // A number of the caller's own with each item. Raise 380 for an index outside.
    [[nodiscard]] std::int32_t ItemData(int index) const { return m_items[Checked(index)].data; }
    void SetItemData(int index, std::int32_t data) { m_items[Checked(index)].data = data; }
    [[nodiscard]] int NewIndex() const { return m_newIndex; }  // where the last item was added
    [[nodiscard]] bool Sorted() const { return m_isSorted; }
    void SetSorted(bool isSorted);
    [[nodiscard]] int TopIndex() const { return m_topIndex; }  // the first item in view
    void SetTopIndex(int index);                               // raises 380 outside

    [[nodiscard]] QString Text() const;
    // Editable ones only; the selected item stays. A typed text belongs to no item.
    void SetText(const QString& text);
    void TypeText(const QString& text);
    [[nodiscard]] const EditText& Edit() const { return m_edit; }
    void SetSelStart(qsizetype start) { m_edit.SetSelStart(start); }
    void SetSelLength(qsizetype length) { m_edit.SetSelLength(length); }
    void SetSelText(const QString& text);

    double MinimalHeight = 315;  // twips; a view sets what its desktop gives

    std::function<void()> Change;  // the text is another, other than by an item
    std::function<void()> Click;   // an item was selected

  private:
    struct Item {
        QString text;
        std::int32_t data = 0;
    };
    [[nodiscard]] std::size_t Checked(int index) const;
    [[nodiscard]] int SortedPlace(const QString& text) const;

    const Kind m_kind;
    EditText m_edit;
    std::vector<Item> m_items;
    int m_index = -1;
    int m_newIndex = -1;
    int m_topIndex = 0;
    bool m_isSorted = false;
};

}  // namespace sheetwright
