#pragma once

// A number as its decimal digits, for rounding the way people expect of a display: halves away from zero, on
// the 15 digits that a Double holds for sure, so that 2.675 becomes 2.68.

#include <QChar>

#include <string>

namespace sheetwright {

class DecimalDigits {
  public:
    explicit DecimalDigits(double number);  // finite

    [[nodiscard]] bool IsNegative() const { return m_isNegative && !IsZero(); }
    [[nodiscard]] bool IsZero() const { return m_digits.empty(); }
    // Digits before the decimal point; 0 or less for a number below 1.
    [[nodiscard]] int Point() const { return m_point; }
    // Decimals up to the last that is not 0.
    [[nodiscard]] int Decimals() const;

    // Moves the decimal point to the right.
    void Shift(int places);
    void Round(int decimals);

    // The digit worth 10 to the power of `power`, "0" outside the significant ones.
    [[nodiscard]] QChar DigitWorth(int power) const;

  private:
    void RoundUp();
    void DropZeros();

    bool m_isNegative;
    std::string m_digits;  // neither begins nor ends with "0"
    int m_point = 0;
};

}  // namespace sheetwright
