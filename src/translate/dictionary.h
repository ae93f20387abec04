#pragma once

// Translation at run time. The English text itself is the key, so a program without a dictionary, or a text
// that the dictionary lacks, simply shows its English.

#include "import/csv_table.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace sheetwright {

// One file of texts in English and in the language of the installation, by the columns "ENGLISH" and
// "TRANSLATION". The translation is taken from the second column.
class Dictionary {
  public:
    Dictionary();

    // Opens a dictionary in the place of the one that is open, if any, which stays when there is no such
    // file. Raises 75 for a file that can't be read; then too the old one stays.
    void Load(const QString& path);
    [[nodiscard]] bool IsOpen() const;

    // `text` in the language of the dictionary, or as it is when the dictionary lacks it or has blanks for
    // it. A result that holds "%1" gets all its markers, "%" and a digit, replaced by the values of
    // `parameters`, also without a dictionary. Moves the current record of the table, so it must not be
    // entered twice at a time. Raises 9 when the dictionary has no second column.
    [[nodiscard]] QString Translate(const QString& text, const QString& parameters = QString()) const;

  private:
    // The number of the first record whose text starts with a character. Each case has its own entry, as the
    // records are sorted by character code and "A" and "a" stand apart.
    using FirstRecords = std::unordered_map<char16_t, std::int32_t>;

    [[nodiscard]] static FirstRecords Index(CsvTable& table, const QString& column);
    [[nodiscard]] QString Lookup(const QString& text) const;

    std::unique_ptr<CsvTable> m_dictTable;
    FirstRecords m_dictIndex;
};

// The N-th value (from 1) of a parameter string whose values are separated by "¦"; the last one when fewer
// exist, so that a single value fills every marker. 0 is taken as 1.
[[nodiscard]] QString GetParam(const QString& parameters, int n);

}  // namespace sheetwright
