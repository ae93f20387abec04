#pragma once

// File names of numbered images from one pattern.

#include <QString>

namespace sheetwright::cli {

// A name with at most one "%d" (the number) or "%0Nd" (the number with at least N digits, N from 1 to 9). Any
// other "%" stands for itself.
class ImageNames {
  public:
    // Raises UsageError for a second number and for a name that doesn't end in ".png".
    explicit ImageNames(const QString& pattern);

    [[nodiscard]] bool IsNumbered() const { return m_isNumbered; }
    [[nodiscard]] QString Of(int page) const;

  private:
    QString m_before;
    QString m_behind;
    int m_digits = 1;
    bool m_isNumbered = false;
};

}  // namespace sheetwright::cli
