#pragma once

// The syntax of comma-separated files at the level of bytes: where a record ends, what its values are, how a
// value is written. Commas, quotes and line ends are the same bytes in every encoding that tables come in, so
// nothing is decoded here. One pass, and nothing that a hostile file could make recurse or grow.

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

namespace sheetwright {

// One value. `bytes` is the value itself or, where `isMixed`, the value as the file writes it with quotes
// that are still to be resolved by UnquotedCsv.
struct CsvField {
    QByteArrayView bytes;
    bool isMixed = false;
};

[[nodiscard]] QByteArray UnquotedCsv(QByteArrayView field);

struct CsvRecordEnd {
    const char* at = nullptr;     // the line end, or the end of the file
    bool isInsideQuotes = false;  // the file ended before the closing quote
};

// The end of the record that starts at `at`, which may also be the start of any of its values.
[[nodiscard]] CsvRecordEnd FindCsvRecordEnd(const char* at, const char* end);

// Behind all line ends at `at`: the start of the next record or `end`.
[[nodiscard]] const char* SkipCsvLineEnds(const char* at, const char* end);

// Takes the values of one record one after the other.
class CsvFieldReader {
  public:
    CsvFieldReader() = default;
    // From the record's first byte to the end of the file; the record is not empty.
    CsvFieldReader(const char* at, const char* end) : m_at(at), m_end(end), m_hasNext(true) {}

    [[nodiscard]] bool HasNext() const { return m_hasNext; }
    [[nodiscard]] CsvField Next();
    // Behind the values taken so far: the comma before the next one, or the end of the record.
    [[nodiscard]] const char* At() const { return m_hasNext ? m_at - 1 : m_at; }

  private:
    [[nodiscard]] CsvField NextQuoted();
    void MoveTo(const char* behindField);

    const char* m_at = nullptr;
    const char* m_end = nullptr;
    bool m_hasNext = false;
};

// Whether a value has to stand in quotes to be read back as it is.
[[nodiscard]] bool NeedsCsvQuotes(QStringView value);

}  // namespace sheetwright
