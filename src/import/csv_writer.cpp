#include "import/csv_writer.h"

#include "import/csv_syntax.h"

#include <QString>

#include <utility>

namespace sheetwright {

void CsvWriter::AppendLead(QByteArrayView lead) {
    m_bytes.append(lead);
    m_recordStart = m_bytes.size();
}

void CsvWriter::AppendRaw(QByteArrayView bytes) {
    const bool needsRecoding =
        m_source.Encoding() == CsvEncoding::CodePage && m_target.Encoding() == CsvEncoding::Utf8;
    if (needsRecoding) {
        AppendEncoded(m_source.Decode(bytes));
    } else {
        m_bytes.append(bytes);
    }
}

void CsvWriter::AppendEncoded(QStringView text) {
    const std::optional<QByteArray> encoded = m_target.Encode(text);
    if (encoded) m_bytes.append(*encoded);
    m_fits = m_fits && encoded;
}

void CsvWriter::AppendValue(QStringView value) {
    if (!NeedsCsvQuotes(value)) {
        AppendEncoded(value);
        return;
    }
    QString doubled = value.toString();
    doubled.replace(u'"', QStringLiteral("\"\""));
    m_bytes.append('"');
    AppendEncoded(doubled);
    m_bytes.append('"');
}

void CsvWriter::EndRecord(QByteArrayView lineEnd) {
    if (m_bytes.size() == m_recordStart) m_bytes.append("\"\"");
    m_bytes.append(lineEnd);
    m_recordStart = m_bytes.size();
}

std::optional<QByteArray> CsvWriter::Take() {
    if (!m_fits) return std::nullopt;
    const bool isOneBytePerCharacter = m_target.Encoding() != CsvEncoding::Utf8;
    if (isOneBytePerCharacter && CsvCodec::EncodingOf(m_bytes) == CsvEncoding::Utf8) return std::nullopt;
    return std::move(m_bytes);
}

}  // namespace sheetwright
