#include "fields/edit_text.h"

#include "core/failure.h"

#include <algorithm>

namespace sheetwright {

bool EditText::SetText(const QString& text) {
    if (text == m_text) return false;
    m_text = text;
    m_start = 0;
    m_length = 0;
    return true;
}

void EditText::SetSelStart(qsizetype start) {
    if (start < 0) throw Failure(failure::kInvalidProperty);
    m_start = std::min(start, m_text.size());
    m_length = 0;
}

void EditText::SetSelLength(qsizetype length) {
    if (length < 0) throw Failure(failure::kInvalidProperty);
    m_length = std::min(length, m_text.size() - m_start);
}

bool EditText::SetSelText(const QString& text) {
    const bool isOther = SelText() != text;
    m_text.replace(m_start, m_length, text);
    m_start += text.size();
    m_length = 0;
    return isOther;
}

}  // namespace sheetwright
