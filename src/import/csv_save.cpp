// How a table becomes a file again.

#include "core/failure.h"
#include "core/paths.h"
#include "import/csv_table.h"
#include "import/csv_writer.h"

namespace sheetwright {

void CsvTable::Save() {
    if (m_fileName.isEmpty()) throw Failure(failure::kBadFileName);
    if (!m_isRead) throw Failure(failure::kPathAccess);
    if (!m_isChanged) {
        WriteFileAtomically(m_fileName, m_source.Bytes());
        return;
    }
    const bool wasUtf8 = m_source.Codec().Encoding() == CsvEncoding::Utf8;
    std::optional<QByteArray> bytes = Written(wasUtf8 ? CsvEncoding::Utf8 : CsvEncoding::CodePage);
    if (!bytes) bytes = Written(CsvEncoding::Utf8);
    WriteFileAtomically(m_fileName, *bytes);
}

std::optional<QByteArray> CsvTable::Written(CsvEncoding encoding) const {
    CsvWriter writer(m_source.Codec(), encoding);
    if (m_columns.empty()) return writer.Take();
    const QByteArrayView lineEnd = m_source.LineEnd();
    WriteHeader(writer);
    writer.EndRecord(lineEnd);
    for (std::int64_t position = 1; position <= RecordCount(); ++position) {
        WriteRecord(writer, RecordAt(position));
        writer.EndRecord(lineEnd);
    }
    return writer.Take();
}

void CsvTable::WriteHeader(CsvWriter& writer) const {
    writer.AppendLead(m_source.Lead());
    if (m_columns.size() == m_source.Names().size()) {
        writer.AppendRaw(m_source.WholeHeader());
        return;
    }
    for (const std::unique_ptr<CsvColumn>& column : m_columns) {
        if (column->m_index > 0) writer.AppendComma();
        writer.AppendValue(column->Name());
    }
}

// Values beyond the header stay behind those of the columns, also of columns added since.
void CsvTable::WriteRecord(CsvWriter& writer, std::uint32_t record) const {
    const bool isWritten = !IsFromFile(record) || WrittenValues(record) != nullptr;
    const int newColumns = static_cast<int>(m_columns.size()) - m_source.Width();
    if (!isWritten && newColumns == 0) {
        writer.AppendRaw(m_source.WholeRecord(record));
        return;
    }
    const QByteArray rest = IsFromFile(record) ? m_source.Rest(record) : QByteArray();
    if (isWritten) {
        WriteValues(writer, record);
    } else if (rest.isEmpty()) {
        writer.AppendRaw(m_source.WholeRecord(record));
    } else {
        writer.AppendRaw(m_source.KnownPart(record));
        writer.AppendRaw(QByteArray(newColumns, ','));
    }
    writer.AppendRaw(rest);
}

void CsvTable::WriteValues(CsvWriter& writer, std::uint32_t record) const {
    for (const std::unique_ptr<CsvColumn>& column : m_columns) {
        if (column->m_index > 0) writer.AppendComma();
        writer.AppendValue(Text(record, column->m_index));
    }
}

}  // namespace sheetwright
