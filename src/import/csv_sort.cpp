#include "import/csv_sort.h"

#include <QByteArrayView>
#include <QVarLengthArray>

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>

namespace sheetwright {

namespace {

constexpr qsizetype kLeadLength = 4;  // UTF-16 units in a machine word

std::uint64_t TextLead(QStringView text) {
    std::uint64_t lead = 0;
    for (qsizetype index = 0; index < kLeadLength; ++index)
        lead = lead << 16U | (index < text.size() ? text[index].unicode() : 0U);
    return lead;
}

// Orders like the number itself; never 0, which is for blanks.
std::uint64_t NumberLead(double number) {
    constexpr std::uint64_t kSign = 1ULL << 63U;
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// The part of `value` that can belong to a number, without a leading "+".
QVarLengthArray<char, 64> NumberCharacters(QStringView value) {
    constexpr QStringView kOthers = u"+-.eE";
    QVarLengthArray<char, 64> characters;
    for (const QChar character : value) {
        const char16_t unit = character.unicode();
        if (!(unit >= u'0' && unit <= u'9') && !kOthers.contains(character)) break;
        characters.append(static_cast<char>(unit));
    }
    if (!characters.isEmpty() && characters.front() == '+') characters.erase(characters.begin());
    return characters;
}

// What stands for a number too far from 0, or too near to it, to be told exactly.
double BeyondRange(QByteArrayView digits) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const bool isNegative = digits.startsWith('-');
    const QByteArrayView magnitude = digits.sliced(isNegative ? 1 : 0);
    const bool isTiny = magnitude.startsWith('0') || magnitude.startsWith('.') || magnitude.contains("e-") ||
                        magnitude.contains("E-");
    if (isTiny) return 0;
    return isNegative ? -kInfinity : kInfinity;
}

}  // namespace

double LeadingNumber(QStringView value) {
    const auto characters = NumberCharacters(value.trimmed());
    const char* const end = characters.end();
    double number = 0;
    const std::from_chars_result result = std::from_chars(characters.begin(), end, number);
    if (result.ec != std::errc::result_out_of_range) return number;
    return BeyondRange(QByteArrayView(characters.begin(), result.ptr));
}

CsvSortKeys::CsvSortKeys(bool byNumber, std::int32_t expectedCount) : m_byNumber(byNumber) {
    m_keys.reserve(static_cast<std::size_t>(expectedCount));
    if (!byNumber) m_ends.reserve(expectedCount);
}

void CsvSortKeys::Add(QStringView value) {
    const auto place = static_cast<std::uint32_t>(m_keys.size());
    if (m_byNumber) {
        m_keys.push_back({value.trimmed().isEmpty() ? 0 : NumberLead(LeadingNumber(value)), place});
        return;
    }
    m_keys.push_back({TextLead(value), place});
    m_texts.append(value);
    m_ends.append(m_texts.size());
}

QStringView CsvSortKeys::TextAt(std::uint32_t place) const {
    const qsizetype start = place == 0 ? 0 : m_ends[place - 1];
    return QStringView(m_texts).sliced(start, m_ends[place] - start);
}

bool CsvSortKeys::IsLess(const Key& left, const Key& right) const {
    if (left.lead != right.lead) return left.lead < right.lead;
    if (!m_byNumber) {
        const int order = TextAt(left.place).compare(TextAt(right.place));
        if (order != 0) return order < 0;
    }
    return left.place < right.place;
}

std::vector<std::uint32_t> CsvSortKeys::Order() {
    std::sort(m_keys.begin(), m_keys.end(),
              [this](const Key& left, const Key& right) { return IsLess(left, right); });
    std::vector<std::uint32_t> order;
    order.reserve(m_keys.size());
    for (const Key& key : m_keys)
        order.push_back(key.place);
    return order;
}

}  // namespace sheetwright
