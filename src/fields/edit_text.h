#pragma once

// A text with a selection, as an edit box holds it.

#include <QString>

namespace sheetwright {

class EditText {
  public:
    [[nodiscard]] const QString& Text() const { return m_text; }
    // Returns whether the text is another; then the selection goes back to the start.
    bool SetText(const QString& text);

    [[nodiscard]] qsizetype SelStart() const { return m_start; }
    [[nodiscard]] qsizetype SelLength() const { return m_length; }
    [[nodiscard]] QString SelText() const { return m_text.sliced(m_start, m_length); }
    // Past the end of the text they stop there. Raise 380 below 0.
    void SetSelStart(qsizetype start);
    void SetSelLength(qsizetype length);
    // Replaces the selection; what comes next goes behind it. Returns whether the text differs.
    bool SetSelText(const QString& text);

  private:
    QString m_text;
    qsizetype m_start = 0;
    qsizetype m_length = 0;
};

}  // namespace sheetwright
