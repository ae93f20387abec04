#pragma once

// The keys of one column, record by record in their present order, and the order they put the records in. All
// texts stand in one block and most comparisons look at one machine word, so that a big table sorts without a
// string object per record.

#include <QList>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <vector>

namespace sheetwright {

class CsvSortKeys {
  public:
    // By number, blanks first, or by character code (UTF-16, case counts).
    CsvSortKeys(bool byNumber, std::int32_t expectedCount);

    void Add(QStringView value);

    // Present places (from 0) of the records in the order of their keys; equal keys keep their order.
    [[nodiscard]] std::vector<std::uint32_t> Order();

  private:
    // `lead` is the number, or the first characters of the text: then equal ones leave it to the whole text.
    struct Key {
        std::uint64_t lead;
        std::uint32_t place;
    };

    [[nodiscard]] QStringView TextAt(std::uint32_t place) const;
    [[nodiscard]] bool IsLess(const Key& left, const Key& right) const;

    bool m_byNumber;
    std::vector<Key> m_keys;
    QString m_texts;
    QList<qsizetype> m_ends;  // of each text in m_texts
};

// The number at the front of a value, behind blanks, with "." for the decimal point; 0 where there is none.
// Any text has one, so any column can be sorted by number.
[[nodiscard]] double LeadingNumber(QStringView value);

}  // namespace sheetwright
