#include "import/csv_syntax.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace sheetwright {

namespace {

constexpr std::uint64_t kLowBits = 0x0101010101010101U;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;

constexpr std::uint64_t Repeated(char byte) {
    return kLowBits * static_cast<unsigned char>(byte);
}

// Not zero exactly when one of the eight bytes of `word` is zero.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
    return (word - kLowBits) & ~word & kHighBits;
}

// The first of three bytes, or `end`. Eight bytes at a time as long as none of them is wanted.
template <char First, char Second, char Third>
const char* FindAny(const char* at, const char* end) {
    for (; end - at >= 8; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, at, sizeof word);
        const std::uint64_t hits = ZeroBytes(word ^ Repeated(First)) | ZeroBytes(word ^ Repeated(Second)) |
                                   ZeroBytes(word ^ Repeated(Third));
        if (hits != 0) break;
    }
    return std::find_if(at, end, [](char byte) { return byte == First || byte == Second || byte == Third; });
}

constexpr bool EndsField(char byte) {
    return byte == ',' || byte == '\r' || byte == '\n';
}

struct QuotedEnd {
    const char* behind = nullptr;  // behind the closing quote; none when the file ends before it
    bool hasDoubled = false;
};

// `at` stands behind the opening quote.
QuotedEnd FindClosingQuote(const char* at, const char* end) {
    QuotedEnd found;
    while (at != end) {
        const auto* quote =
            static_cast<const char*>(std::memchr(at, '"', static_cast<std::size_t>(end - at)));
        if (quote == nullptr) break;
        at = quote + 1;
        if (at == end || *at != '"') {
            found.behind = at;
            break;
        }
        found.hasDoubled = true;
        ++at;
    }
    return found;
}

}  // namespace

QByteArray UnquotedCsv(QByteArrayView field) {
    if (!field.startsWith('"')) return field.toByteArray();
    QByteArray value;
    value.reserve(field.size());
    const char* at = field.begin() + 1;
    while (at != field.end()) {
        const char* const quote = std::find(at, field.end(), '"');
        value.append(at, quote - at);
        if (quote == field.end()) break;
        at = quote + 1;
        if (at == field.end() || *at != '"') return value.append(at, field.end() - at);
        value.append('"');
        ++at;
    }
    return value;
}

CsvRecordEnd FindCsvRecordEnd(const char* at, const char* end) {
    const char* const start = at;
    for (;;) {
        at = FindAny<'"', '\r', '\n'>(at, end);
        if (at == end || *at != '"') return {at, false};
        const bool opensValue = at == start || at[-1] == ',';
        ++at;
        if (!opensValue) continue;
        at = FindClosingQuote(at, end).behind;
        if (at == nullptr) return {end, true};
    }
}

const char* SkipCsvLineEnds(const char* at, const char* end) {
    return std::find_if(at, end, [](char byte) { return byte != '\r' && byte != '\n'; });
}

void CsvFieldReader::MoveTo(const char* behindField) {
    m_hasNext = behindField != m_end && *behindField == ',';
    m_at = behindField + (m_hasNext ? 1 : 0);
}

CsvField CsvFieldReader::Next() {
    if (m_at != m_end && *m_at == '"') return NextQuoted();
    const char* const start = m_at;
    const char* const stop = FindAny<',', '\r', '\n'>(m_at, m_end);
    MoveTo(stop);
    return {QByteArrayView(start, stop), false};
}

CsvField CsvFieldReader::NextQuoted() {
    const char* const start = m_at;
    const QuotedEnd found = FindClosingQuote(start + 1, m_end);
    const char* const closed = found.behind == nullptr ? m_end : found.behind;
    const char* const stop =
        closed == m_end || EndsField(*closed) ? closed : FindAny<',', '\r', '\n'>(closed, m_end);
    MoveTo(stop);
    if (found.behind == nullptr || found.hasDoubled || stop != closed)
        return {QByteArrayView(start, stop), true};
    return {QByteArrayView(start + 1, closed - 1), false};
}

bool NeedsCsvQuotes(QStringView value) {
    if (value.isEmpty()) return false;
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    const auto needsQuotes = [](QChar character) {
        return character == u',' || character == u'"' || character == u'\r' || character == u'\n';
    };
    return isBlank(value.front()) || isBlank(value.back()) || value.front() == QChar::ByteOrderMark ||
           std::any_of(value.begin(), value.end(), needsQuotes);
}

}  // namespace sheetwright
