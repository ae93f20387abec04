#include "import/csv_sort.h"

#include <QLocale>
#include <QVarLengthArray>

#include <algorithm>
#include <bit>
#include <charconv>

namespace sheetwright {

namespace {

constexpr qsizetype kLeadLength = 3;  // UTF-16 units
constexpr std::uint64_t kGoesOn = kLeadLength + 1;

// The first characters of `text`, behind them their number, which is one more for a text that goes on: so a
// text stands before a longer one whatever characters that goes on with.
std::uint64_t TextLead(QStringView text) {
    std::uint64_t lead = 0;
    for (qsizetype index = 0; index < kLeadLength; ++index)
        lead = lead << 16U | (index < text.size() ? text[index].unicode() : 0U);
    return lead << 16U | static_cast<std::uint64_t>(std::min(text.size(), kLeadLength + 1));
}

bool GoesOn(std::uint64_t lead) {
    return (lead & 0xFFFFU) == kGoesOn;
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
    if (value.startsWith(u'+') && !value.startsWith(u"+-")) value = value.sliced(1);
    QVarLengthArray<char, 64> characters;
    for (const QChar character : value) {
        const char16_t unit = character.unicode();
        if (!(unit >= u'0' && unit <= u'9') && !kOthers.contains(character)) break;
        characters.append(static_cast<char>(unit));
    }
    return characters;
}

}  // namespace

double LeadingNumber(QStringView value) {
    const auto characters = NumberCharacters(value.trimmed());
    double number = 0;
    const std::from_chars_result result = std::from_chars(characters.begin(), characters.end(), number);
    if (result.ec != std::errc::result_out_of_range) return number;
    return QLocale::c().toDouble(QString::fromLatin1(characters.begin(), result.ptr - characters.begin()));
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
    m_keys.push_back({0, place});
    m_texts.append(value);
    m_ends.append(m_texts.size());
}

QStringView CsvSortKeys::TextAt(std::uint32_t place) const {
    const qsizetype start = place == 0 ? 0 : m_ends[place - 1];
    return QStringView(m_texts).sliced(start, m_ends[place] - start);
}

void CsvSortKeys::Sort(const Run& run) {
    const auto first = m_keys.begin() + static_cast<std::ptrdiff_t>(run.first);
    const auto end = m_keys.begin() + static_cast<std::ptrdiff_t>(run.end);
    if (!std::is_sorted(first, end)) std::sort(first, end);
}

qsizetype CsvSortKeys::CommonOffset(const Run& run) const {
    QStringView common = TextAt(m_keys[run.first].place).sliced(run.offset);
    for (std::size_t index = run.first + 1; index < run.end && !common.isEmpty(); ++index) {
        const QStringView text = TextAt(m_keys[index].place).sliced(run.offset);
        const auto* const end = std::mismatch(common.begin(), common.end(), text.begin(), text.end()).first;
        common = common.first(end - common.begin());
    }
    return run.offset + common.size();
}

// Only keys that are the same so far are looked at again, further on in their texts.
void CsvSortKeys::SortTexts() {
    std::vector<Run> runs;
    if (!m_keys.empty()) runs.push_back({0, m_keys.size(), 0});
    while (!runs.empty()) {
        Run run = runs.back();
        runs.pop_back();
        run.offset = CommonOffset(run);
        for (std::size_t index = run.first; index < run.end; ++index)
            m_keys[index].lead = TextLead(TextAt(m_keys[index].place).sliced(run.offset));
        Sort(run);
        SplitRun(run, runs);
    }
}

void CsvSortKeys::SplitRun(const Run& run, std::vector<Run>& runs) const {
    for (std::size_t first = run.first; first < run.end;) {
        const std::uint64_t lead = m_keys[first].lead;
        std::size_t end = first + 1;
        while (end < run.end && m_keys[end].lead == lead)
            ++end;
        if (end - first > 1 && GoesOn(lead)) runs.push_back({first, end, run.offset + kLeadLength});
        first = end;
    }
}

std::vector<std::uint32_t> CsvSortKeys::Order() {
    if (m_byNumber) {
        Sort({0, m_keys.size(), 0});
    } else {
        SortTexts();
    }
    std::vector<std::uint32_t> order;
    order.reserve(m_keys.size());
    for (const Key& key : m_keys)
        order.push_back(key.place);
    return order;
}

}  // namespace sheetwright
