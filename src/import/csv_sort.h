#pragma once

// The keys of one column, record by record in their present order, and the order they put the records in. All
// texts stand in one block and are compared a machine word at a time, so that a big table sorts without a
// string object per record.

#include <QList>
#include <QString>
#include <QStringView>

#include <cstddef>
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
    struct Key {
        std::uint64_t lead;  // the number, or three characters of the text
        std::uint32_t place;
        bool operator<(const Key& other) const {
            return lead != other.lead ? lead < other.lead : place < other.place;
        }
    };
    // Keys from `first` up to `end` whose texts are the same up to `offset`.
    struct Run {
        std::size_t first;
        std::size_t end;
        qsizetype offset;
    };

    [[nodiscard]] QStringView TextAt(std::uint32_t place) const;
    [[nodiscard]] qsizetype CommonOffset(const Run& run) const;  // up to which the texts are in fact the same
    void Sort(const Run& run);
    void SortTexts();
    void SplitRun(const Run& run, std::vector<Run>& runs) const;

    bool m_byNumber;
    std::vector<Key> m_keys;
    QString m_texts;
    QList<qsizetype> m_ends;  // of each text in m_texts
};

// The number at the front of a value, behind blanks, with "." for the decimal point; 0 where there is none.
// Any text has one, so any column can be sorted by number.
[[nodiscard]] double LeadingNumber(QStringView value);

}  // namespace sheetwright
