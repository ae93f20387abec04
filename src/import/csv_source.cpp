#include "import/csv_source.h"

#include "core/failure.h"

#include <limits>
#include <utility>

namespace sheetwright {

namespace {

constexpr QByteArrayView kMark("\xEF\xBB\xBF");
constexpr qsizetype kRecordLimit = std::numeric_limits<std::int32_t>::max();

}  // namespace

CsvSource::CsvSource(QByteArray bytes) : m_bytes(std::move(bytes)), m_codec(CsvCodec::EncodingOf(m_bytes)) {
    const char* const begin = m_bytes.constData();
    const char* const end = End();
    const char* at = SkipCsvLineEnds(begin + (HasByteOrderMark() ? kMark.size() : 0), end);
    m_header = at - begin;
    if (at == end) return;
    ReadNames();
    at = SkipCsvLineEnds(FindCsvRecordEnd(at, end).at, end);
    while (at != end) {
        if (m_starts.size() == kRecordLimit) throw Failure(failure::kOverflow);
        m_starts.append(at - begin);
        at = SkipCsvLineEnds(FindCsvRecordEnd(at, end).at, end);
    }
}

void CsvSource::ReadNames() {
    CsvFieldReader reader(Header(), End());
    while (reader.HasNext() && Width() < kColumnLimit)
        m_names.push_back(Text(reader.Next()));
}

bool CsvSource::HasByteOrderMark() const {
    return m_codec.Encoding() == CsvEncoding::Utf8 && m_bytes.startsWith(kMark);
}

QByteArrayView CsvSource::LineEnd() const {
    const char* const at = FindCsvRecordEnd(Header(), End()).at;
    if (at == End() || (*at == '\r' && at + 1 != End() && at[1] == '\n')) return "\r\n";
    return {at, 1};
}

CsvFieldReader CsvSource::Record(std::uint32_t record) const {
    return {Start(record), End()};
}

QString CsvSource::Text(const CsvField& field) const {
    return field.isMixed ? m_codec.Decode(UnquotedCsv(field.bytes)) : m_codec.Decode(field.bytes);
}

QString CsvSource::Text(std::uint32_t record, int column) const {
    if (column >= Width()) return {};
    CsvFieldReader reader = Record(record);
    CsvField field = reader.Next();
    for (; column > 0; --column) {
        if (!reader.HasNext()) return {};
        field = reader.Next();
    }
    return Text(field);
}

QByteArray CsvSource::Closed(const char* at) const {
    const CsvRecordEnd end = FindCsvRecordEnd(at, End());
    QByteArray bytes(at, end.at - at);
    if (end.isInsideQuotes) bytes.append('"');
    return bytes;
}

QByteArray CsvSource::WholeHeader() const {
    return Closed(Header());
}

QByteArray CsvSource::WholeRecord(std::uint32_t record) const {
    return Closed(Start(record));
}

CsvFieldReader CsvSource::BehindKnownPart(std::uint32_t record) const {
    CsvFieldReader reader = Record(record);
    for (int column = 0; column < Width() && reader.HasNext(); ++column)
        static_cast<void>(reader.Next());
    return reader;
}

QByteArrayView CsvSource::KnownPart(std::uint32_t record) const {
    return {Start(record), BehindKnownPart(record).At()};
}

QByteArray CsvSource::Rest(std::uint32_t record) const {
    const CsvFieldReader reader = BehindKnownPart(record);
    return reader.HasNext() ? ',' + Closed(reader.At() + 1) : QByteArray();
}

}  // namespace sheetwright
