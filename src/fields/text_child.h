#pragma once

// The text box of a field control.

#include "fields/edit_text.h"
#include "fields/field_child.h"

#include <functional>

namespace sheetwright {

class TextChild : public FieldChild {
  public:
    using FieldChild::FieldChild;

    [[nodiscard]] const EditText& Edit() const { return m_edit; }
    [[nodiscard]] const QString& Text() const { return m_edit.Text(); }
    void SetText(const QString& text) { Tell(m_edit.SetText(text)); }
    void SetSelStart(qsizetype start) { m_edit.SetSelStart(start); }
    void SetSelLength(qsizetype length) { m_edit.SetSelLength(length); }
    void SetSelText(const QString& text) { Tell(m_edit.SetSelText(text)); }

    bool MultiLine = false;
    std::int16_t Alignment = 0;  // 1 right, 2 centre, anything else left

    std::function<void()> Change;  // the text is another

  private:
    void Tell(bool isOther) const {
        if (isOther && Change) Change();
    }

    EditText m_edit;
};

}  // namespace sheetwright
