#pragma once

// A table file as it was read: its bytes and where each record starts. Values are cut out and decoded when
// they are asked for, so that opening a table costs one pass over the bytes and little more memory than they
// need.

#include "import/csv_codec.h"
#include "import/csv_syntax.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <cstdint>
#include <vector>

namespace sheetwright {

class CsvSource {
  public:
    // Values of a record that belong to columns; what a file has beyond them is kept and has no name.
    static constexpr int kColumnLimit = 32767;

    CsvSource() = default;
    // Raises 6 for more than 2147483647 records.
    explicit CsvSource(QByteArray bytes);

    [[nodiscard]] const QByteArray& Bytes() const { return m_bytes; }
    [[nodiscard]] const CsvCodec& Codec() const { return m_codec; }
    [[nodiscard]] const std::vector<QString>& Names() const { return m_names; }
    [[nodiscard]] int Width() const { return static_cast<int>(m_names.size()); }
    [[nodiscard]] std::int32_t RecordCount() const { return static_cast<std::int32_t>(m_starts.size()); }
    // What stands before the header: a byte-order mark, empty lines.
    [[nodiscard]] QByteArrayView Lead() const { return {m_bytes.constData(), m_header}; }
    [[nodiscard]] QByteArrayView LineEnd() const;  // of the header; CR LF when it has none

    // Records count from 0 here, columns too.
    [[nodiscard]] CsvFieldReader Record(std::uint32_t record) const;
    [[nodiscard]] QString Text(const CsvField& field) const;
    [[nodiscard]] QString Text(std::uint32_t record, int column) const;  // "" where the record is shorter

    // As the file has it, without the line end. A missing closing quote at the end of the file is added, so
    // that other records can follow.
    [[nodiscard]] QByteArray WholeHeader() const;
    [[nodiscard]] QByteArray WholeRecord(std::uint32_t record) const;
    // Its two parts: the values that belong to columns, and what follows them, from its comma on.
    [[nodiscard]] QByteArrayView KnownPart(std::uint32_t record) const;
    [[nodiscard]] QByteArray Rest(std::uint32_t record) const;

  private:
    [[nodiscard]] const char* End() const { return m_bytes.constData() + m_bytes.size(); }
    [[nodiscard]] const char* Header() const { return m_bytes.constData() + m_header; }
    [[nodiscard]] const char* Start(std::uint32_t record) const {
        return m_bytes.constData() + m_starts[record];
    }
    [[nodiscard]] CsvFieldReader BehindKnownPart(std::uint32_t record) const;
    [[nodiscard]] QByteArray Closed(const char* at) const;
    [[nodiscard]] bool HasByteOrderMark() const;
    void ReadNames();

    QByteArray m_bytes;
    CsvCodec m_codec;
    std::vector<QString> m_names;
    qsizetype m_header = 0;
    QList<qsizetype> m_starts;
};

}  // namespace sheetwright
