#pragma once

// Builds the bytes of a table file in one encoding.

#include "import/csv_codec.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

#include <optional>

namespace sheetwright {

class CsvWriter {
  public:
    // `source` is the encoding that bytes handed to AppendRaw are in.
    CsvWriter(const CsvCodec& source, CsvEncoding target) : m_source(source), m_target(target) {}

    void AppendLead(QByteArrayView lead);  // what stands before the first record and is none
    void AppendRaw(QByteArrayView bytes);  // what is already in the syntax of the file
    void AppendValue(QStringView value);
    void AppendComma() { m_bytes.append(','); }
    // Ends the record that began where the last one ended. One that would be an empty line, which reads as no
    // record, becomes a pair of quotes.
    void EndRecord(QByteArrayView lineEnd);

    // None when a character did not fit the encoding, or the bytes would not be read back in it.
    [[nodiscard]] std::optional<QByteArray> Take();

  private:
    void AppendEncoded(QStringView text);

    const CsvCodec& m_source;
    CsvCodec m_target;
    QByteArray m_bytes;
    qsizetype m_recordStart = 0;
    bool m_fits = true;
};

}  // namespace sheetwright
