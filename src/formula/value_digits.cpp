#include "formula/value_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace sheetwright {

namespace {
constexpr int kSignificantDigits = 15;
}

DecimalDigits::DecimalDigits(double number) : m_isNegative(std::signbit(number)) {
    if (number == 0) return;
    std::array<char, 32> buffer{};
    char* const start = buffer.data();
    const char* const end = std::to_chars(start, start + buffer.size(), std::abs(number),
                                          std::chars_format::scientific, kSignificantDigits - 1)
                                .ptr;
    const char* const mark = std::find<const char*>(start, end, 'e');
    m_digits.push_back(*start);
    m_digits.append(std::string_view(start + 2, mark));
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    m_point = exponent + 1;
    DropZeros();
}

int DecimalDigits::Decimals() const {
    return std::max(0, static_cast<int>(m_digits.size()) - m_point);
}

void DecimalDigits::Shift(int places) {
    if (!IsZero()) m_point += places;
}

void DecimalDigits::Round(int decimals) {
    const int kept = m_point + decimals;
    if (kept >= static_cast<int>(m_digits.size())) return;
    const bool isUp = kept >= 0 && m_digits[static_cast<std::size_t>(kept)] >= '5';
    m_digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
    if (isUp) RoundUp();
    DropZeros();
}

void DecimalDigits::RoundUp() {
    while (!m_digits.empty() && m_digits.back() == '9')
        m_digits.pop_back();
    if (!m_digits.empty()) {
        ++m_digits.back();
    } else {
        m_digits.assign(1, '1');
        ++m_point;
    }
}

void DecimalDigits::DropZeros() {
    while (!m_digits.empty() && m_digits.back() == '0')
        m_digits.pop_back();
    if (m_digits.empty()) m_point = 0;
}

QChar DecimalDigits::DigitWorth(int power) const {
    const int index = m_point - 1 - power;
    const bool isSignificant = index >= 0 && index < static_cast<int>(m_digits.size());
    return QLatin1Char(isSignificant ? m_digits[static_cast<std::size_t>(index)] : '0');
}

}  // namespace sheetwright
