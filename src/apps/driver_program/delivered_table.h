#pragma once

// The table that a driver's program hands over. It comes into being in memory and reaches the disk whole, by
// one rename: a program that fails or is stopped before leaves nothing.

#include "import/csv_codec.h"
#include "import/csv_writer.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace sheetwright {

class DeliveredTable {
  public:
    explicit DeliveredTable(const QStringList& columns);
    DeliveredTable(const DeliveredTable&) = delete;
    DeliveredTable& operator=(const DeliveredTable&) = delete;

    // Raises 7 when the table would grow beyond 100 MB.
    void AddRecord(const QStringList& values);
    [[nodiscard]] int RecordCount() const { return m_recordCount; }

    // Once. Raises what `WriteFileAtomically` raises, with the file's name in the text. The system's request
    // to end the program waits until the file is there or was given up.
    void WriteTo(const QString& path);

  private:
    void Append(const QStringList& values);

    CsvCodec m_codec{CsvEncoding::Utf8};
    CsvWriter m_writer{m_codec, CsvEncoding::Utf8};
    std::int64_t m_characters = 0;
    int m_recordCount = 0;
};

}  // namespace sheetwright
