#include "formula/value_numbers.h"

#include "formula/value_conversion.h"

#include <QVarLengthArray>

#include <array>
#include <charconv>
#include <string_view>

namespace sheetwright {

namespace {

constexpr QChar kNoBreakSpace = u'\u00a0';
constexpr QChar kNarrowNoBreakSpace = u'\u202f';
constexpr QChar kTypographicApostrophe = u'\u2019';
constexpr QChar kMinusSign = u'\u2212';

using NumberText = QVarLengthArray<char, 64>;

// Whether a number, known to lie outside the range of a Double, is too small for it rather than too large.
bool IsTiny(std::string_view text) {
    const std::size_t mark = std::min(text.find('e'), text.size());
    const std::string_view mantissa = text.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (mark == text.size()) return first > point;
    const std::string_view exponentText = text.substr(mark + 1);
    const bool isNegative = exponentText.starts_with('-');
    qint64 exponent = 0;
    const auto result =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (result.ec != std::errc()) return isNegative;
    return exponent < static_cast<qint64>(first) - static_cast<qint64>(point);
}

// What `std::from_chars` makes of a text that is known to have the form of a number; none beyond the range of
// a Double. A number too small for one is 0.
std::optional<double> Decoded(const NumberText& text) {
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc()) return number;
    return IsTiny({text.data(), static_cast<std::size_t>(text.size())}) ? std::optional(0.0) : std::nullopt;
}

// A run of digit groups is as the locale writes it: threes, or pairs above the lowest three where the locale
// counts in lakhs.
bool HasPairs(const QLocale& locale) {
    constexpr qlonglong kSample = 10'000'000;
    return locale.toString(kSample).count(locale.groupSeparator()) == 3;
}

bool IsGroupedBy(const QVarLengthArray<qsizetype, 16>& groups, qsizetype size) {
    if (groups.first() < 1 || groups.first() > size || groups.last() != 3) return false;
    return std::all_of(groups.begin() + 1, groups.end() - 1,
                       [size](qsizetype group) { return group == size; });
}

// Reads a number as people type it and keeps it in the form that the library's conversion takes.
class NumberScanner {
  public:
    NumberScanner(QStringView text, const Conventions& conventions)
        : m_text(text.trimmed()), m_conventions(conventions) {}

    std::optional<double> Number() {
        TakeSign();
        const bool hasInteger = TakeInteger();
        if (!m_isGrouped) return std::nullopt;
        const bool hasFraction = TakeFraction();
        if (!hasInteger && !hasFraction) return std::nullopt;
        if (!TakeExponent() || m_at != m_text.size()) return std::nullopt;
        return Decoded(m_ascii);
    }

  private:
    [[nodiscard]] QChar Here() const { return m_at < m_text.size() ? m_text[m_at] : QChar(); }

    // Where writing runs to the left, an invisible mark that directs it stands before the sign.
    void TakeSign() {
        if (Here().category() == QChar::Other_Format) ++m_at;
        const QChar here = Here();
        if (here == u'-' || here == kMinusSign) {
            m_ascii.append('-');
            ++m_at;
        } else if (here == u'+') {
            ++m_at;
        }
    }

    qsizetype TakeDigits() {
        const qsizetype start = m_at;
        for (int digit = DigitOf(Here()); digit >= 0; digit = DigitOf(Here())) {
            m_ascii.append(static_cast<char>('0' + digit));
            ++m_at;
        }
        return m_at - start;
    }

    bool TakeInteger() {
        QVarLengthArray<qsizetype, 16> groups{TakeDigits()};
        if (groups.first() > 0 && m_at < m_text.size() && Here() != m_conventions.DecimalSeparator) {
            const QChar separator = GroupSeparatorOf(m_conventions);
            while (IsSeparator(Here(), separator)) {
                ++m_at;
                groups.append(TakeDigits());
            }
        }
        m_isGrouped = groups.size() == 1 || IsGroupedBy(groups, 3) ||
                      (IsGroupedBy(groups, 2) && HasPairs(m_conventions.locale));
        return groups.first() > 0;
    }

    static bool IsSeparator(QChar character, QChar separator) {
        if (character.isNull()) return false;
        if (separator == kNoBreakSpace || separator == kNarrowNoBreakSpace)
            return character == u' ' || character == kNoBreakSpace || character == kNarrowNoBreakSpace;
        if (separator == kTypographicApostrophe || separator == u'\'')
            return character == u'\'' || character == kTypographicApostrophe;
        return character == separator;
    }

    bool TakeFraction() {
        if (m_at == m_text.size() || Here() != m_conventions.DecimalSeparator) return false;
        ++m_at;
        m_ascii.append('.');
        return TakeDigits() > 0;
    }

    // True when there is none, too.
    bool TakeExponent() {
        if (Here() != u'e' && Here() != u'E') return true;
        ++m_at;
        m_ascii.append('e');
        TakeSign();
        return TakeDigits() > 0;
    }

    QStringView m_text;
    const Conventions& m_conventions;
    qsizetype m_at = 0;
    bool m_isGrouped = true;
    NumberText m_ascii;
};

}  // namespace

QChar GroupSeparatorOf(const Conventions& conventions) {
    const QString separator = conventions.locale.groupSeparator();
    if (!separator.isEmpty() && separator.at(0) != conventions.DecimalSeparator) return separator.at(0);
    return conventions.DecimalSeparator == u',' ? u'.' : u',';
}

std::optional<double> PlainNumber(QStringView text, QChar point, QChar otherPoint) {
    // Both the digits as a whole number and the power of ten are exact, so their quotient is rounded just
    // once.
    static constexpr std::array kPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr qsizetype kMostDigits = 15;
    const bool isNegative = text.startsWith(u'-');
    const QStringView body = isNegative || text.startsWith(u'+') ? text.sliced(1) : text;
    if (body.isEmpty() || body.size() > kMostDigits + 1) return std::nullopt;

    qint64 digits = 0;
    qsizetype count = 0;
    qsizetype decimals = -1;
    for (const QChar character : body) {
        if (character >= u'0' && character <= u'9') {
            digits = digits * 10 + (character.unicode() - u'0');
            ++count;
            if (decimals >= 0) ++decimals;
        } else if (decimals < 0 && (character == point || character == otherPoint)) {
            decimals = 0;
        } else {
            return std::nullopt;
        }
    }
    if (count == 0 || count > kMostDigits) return std::nullopt;
    const double magnitude = static_cast<double>(digits) /
                             kPowersOfTen.at(static_cast<std::size_t>(std::max<qsizetype>(decimals, 0)));
    return isNegative ? -magnitude : magnitude;
}

std::optional<double> StrictNumber(QStringView text, const Conventions& conventions) {
    if (const auto plain = PlainNumber(text, conventions.DecimalSeparator, conventions.DecimalSeparator))
        return plain;
    return NumberScanner(text, conventions).Number();
}

double NumericPrefix(QStringView text, QChar point) {
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    NumberText prefix;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        if (text[at] == u'-') prefix.append('-');
        ++at;
    }
    bool hasPoint = false;
    bool hasDigit = false;
    for (; at < text.size(); ++at) {
        const int digit = DigitOf(text[at]);
        if (digit >= 0) {
            prefix.append(static_cast<char>('0' + digit));
            hasDigit = true;
        } else if (!hasPoint && (text[at] == u'.' || text[at] == point)) {
            prefix.append('.');
            hasPoint = true;
        } else {
            break;
        }
    }
    return hasDigit ? Decoded(prefix).value_or(0) : 0;
}

}  // namespace sheetwright
