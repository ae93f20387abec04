#include "formula/value_date_reading.h"

#include "formula/value_conversion.h"
#include "formula/value_numbers.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

// No date that a person or a locale writes is longer; what is, need not be looked at.
constexpr qsizetype kLongestDate = 80;

struct DatePart {
    QStringView word;  // a name, or empty for a number
    int number = 0;
    qsizetype digits = 0;
    QChar separator;  // what stands before the part: "/", "-", ".", "," or a blank
};

using DateParts = QVarLengthArray<DatePart, 4>;

// Cuts a text into numbers, names and the separators between them.
class DateScanner {
  public:
    explicit DateScanner(QStringView text) : m_text(text) {}

    // None when the text cannot be a date, whatever its order.
    std::optional<DateParts> Parts() {
        DateParts parts;
        QChar separator;
        while (m_at < m_text.size()) {
            if (parts.size() == 4) return std::nullopt;
            const std::optional<DatePart> part = TakePart(separator);
            if (!part) return std::nullopt;
            parts.append(*part);
            separator = TakeSeparator();
            if (separator.isNull() && m_at < m_text.size()) return std::nullopt;
        }
        const bool endsOpen = !separator.isNull() && separator != u'.' && separator != u' ';
        return endsOpen ? std::nullopt : std::optional(parts);
    }

  private:
    std::optional<DatePart> TakePart(QChar separator) {
        const qsizetype start = m_at;
        DatePart part;
        part.separator = separator;
        for (int digit = DigitAtHere(); digit >= 0; digit = DigitAtHere()) {
            part.number = part.number * 10 + digit;
            ++m_at;
            if (++part.digits > 4) return std::nullopt;
        }
        if (m_at > start) return part;
        while (m_at < m_text.size() && (m_text[m_at].isLetter() || m_text[m_at].isMark()))
            ++m_at;
        part.word = m_text.sliced(start, m_at - start);
        return m_at > start ? std::optional(part) : std::nullopt;
    }

    // Blanks around one mark count with it; null when there is nothing.
    QChar TakeSeparator() {
        QChar separator;
        for (; m_at < m_text.size(); ++m_at) {
            const QChar here = m_text[m_at];
            if (here.isSpace()) {
                if (separator.isNull()) separator = u' ';
            } else if (here == u'/' || here == u'-' || here == u'.' || here == u',') {
                if (!separator.isNull() && separator != u' ' && separator != u'.') return {};
                separator = here;
            } else {
                break;
            }
        }
        return separator;
    }

    [[nodiscard]] int DigitAtHere() const { return m_at < m_text.size() ? DigitOf(m_text[m_at]) : -1; }

    QStringView m_text;
    qsizetype m_at = 0;
};

bool IsName(QStringView word, const QString& name) {
    QStringView bare = name;
    if (bare.endsWith(u'.')) bare.chop(1);
    return !bare.isEmpty() && word.compare(bare, Qt::CaseInsensitive) == 0;
}

constexpr std::array kNameForms{QLocale::LongFormat, QLocale::ShortFormat};

// The month of that name in the locale's language or English, 0 when it is none. "Sep" is American and "Sept"
// British.
int MonthOf(QStringView word, const Conventions& conventions) {
    for (const QLocale& locale :
         {conventions.locale, QLocale(QLocale::English), QLocale(QLocale::English, QLocale::UnitedKingdom)}) {
        for (int month = 1; month <= 12; ++month) {
            const bool isNamed =
                std::any_of(kNameForms.begin(), kNameForms.end(), [&](QLocale::FormatType form) {
                    return IsName(word, locale.monthName(month, form)) ||
                           IsName(word, locale.standaloneMonthName(month, form));
                });
            if (isNamed) return month;
        }
    }
    return 0;
}

bool IsDayName(QStringView word, const Conventions& conventions) {
    for (const QLocale& locale : {conventions.locale, QLocale(QLocale::English)}) {
        for (int day = 1; day <= 7; ++day) {
            if (IsName(word, locale.dayName(day)) || IsName(word, locale.dayName(day, QLocale::ShortFormat)))
                return true;
        }
    }
    return false;
}

std::optional<int> YearOf(const DatePart& part) {
    if (part.digits == 2) return YearInWindow(part.number);
    if (part.digits == 4 && part.number >= kFirstYear) return part.number;
    return std::nullopt;
}

std::optional<QDate> DateOf(const DatePart& year, int month, int day) {
    const std::optional<int> fullYear = YearOf(year);
    if (!fullYear) return std::nullopt;
    const QDate date(*fullYear, month, day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

// The places, from 0, of the three parts of a date.
struct DateOrder {
    qsizetype day = 0;
    qsizetype month = 1;
    qsizetype year = 2;
};

// The order of the system's short date.
DateOrder SystemOrder(const Conventions& conventions) {
    const QString& mask = conventions.SystemDateMask;
    const qsizetype day = mask.indexOf(u'D');
    const qsizetype month = mask.indexOf(u'M');
    const qsizetype year = std::max(mask.indexOf(u'C'), mask.indexOf(u'Y'));
    if (day < 0 || month < 0 || year < 0) return {};
    const auto place = [](bool isBehindOne, bool isBehindOther) {
        return qsizetype{isBehindOne} + isBehindOther;
    };
    return {place(day > month, day > year), place(month > day, month > year),
            place(year > day, year > month)};
}

// A four-digit year shows the order better than the locale does.
DateOrder OrderOf(const DateParts& parts, const Conventions& conventions) {
    if (parts[0].digits == 4) return {2, 1, 0};
    const DateOrder order = SystemOrder(conventions);
    if (parts[2].digits != 4) return order;
    return order.day < order.month ? DateOrder{0, 1, 2} : DateOrder{1, 0, 2};
}

std::optional<QDate> DateOfNumbers(const DateParts& parts, const Conventions& conventions) {
    const QChar separator = parts[1].separator;
    if (separator == u',' || parts[2].separator != separator) return std::nullopt;
    const DateOrder order = OrderOf(parts, conventions);
    const DatePart& year = parts[order.year];
    const DatePart& month = parts[order.month];
    const DatePart& day = parts[order.day];
    if (month.digits > 2 || day.digits > 2) return std::nullopt;
    const std::optional<QDate> date = DateOf(year, month.number, day.number);
    return date ? date : DateOf(year, day.number, month.number);
}

// "31 December 1999", "December 31, 1999", "1999-Dec-31".
std::optional<QDate> DateOfNames(const DateParts& parts, const Conventions& conventions) {
    DatePart name;
    DateParts numbers;
    for (const DatePart& part : parts) {
        if (part.digits > 0) {
            numbers.append(part);
        } else {
            name = part;
        }
    }
    if (numbers.size() != 2) return std::nullopt;
    const int month = MonthOf(name.word, conventions);
    if (month == 0) return std::nullopt;
    const std::optional<QDate> date =
        numbers[0].digits > 2 ? std::nullopt : DateOf(numbers[1], month, numbers[0].number);
    return date || numbers[1].digits > 2 ? date : DateOf(numbers[0], month, numbers[1].number);
}

// Letters and a day and a year in digits, perhaps also a month: worth a look by the locale.
bool MayBeLongForm(QStringView text) {
    const bool hasLetters = std::any_of(text.begin(), text.end(), [](QChar here) { return here.isLetter(); });
    int runs = 0;
    bool isInRun = false;
    for (const QChar character : text) {
        const bool isDigit = DigitOf(character) >= 0;
        if (isDigit && !isInRun) ++runs;
        isInRun = isDigit;
    }
    return hasLetters && (runs == 2 || runs == 3);
}

// The locale's own long form, whose words between the parts are beyond a general reading.
std::optional<QDate> DateInLongForm(QStringView text, const Conventions& conventions) {
    if (!MayBeLongForm(text)) return std::nullopt;
    const QDate date = conventions.locale.toDate(text.toString(), QLocale::LongFormat);
    const bool isInRange = date.isValid() && date.year() >= kFirstYear && date.year() <= kLastYear;
    return isInRange ? std::optional(date) : std::nullopt;
}

std::optional<QDate> DateOfParts(DateParts parts, const Conventions& conventions) {
    if (parts.size() == 4) {
        if (parts[0].digits > 0 || !IsDayName(parts[0].word, conventions)) return std::nullopt;
        parts.erase(parts.begin());
    }
    if (parts.size() != 3) return std::nullopt;
    const bool areNumbers =
        std::all_of(parts.begin(), parts.end(), [](const DatePart& part) { return part.digits > 0; });
    return areNumbers ? DateOfNumbers(parts, conventions) : DateOfNames(parts, conventions);
}

std::optional<QDate> ReadDate(QStringView text, const Conventions& conventions) {
    if (text.isEmpty() || text.size() > kLongestDate) return std::nullopt;
    if (const std::optional<DateParts> parts = DateScanner(text).Parts()) {
        if (const std::optional<QDate> date = DateOfParts(*parts, conventions)) return date;
    }
    return DateInLongForm(text, conventions);
}

// Takes one or two digits and, behind them, `mark` if it is there.
std::optional<int> TakeTimeNumber(QStringView& rest) {
    int number = 0;
    int digits = 0;
    while (!rest.isEmpty() && DigitOf(rest[0]) >= 0) {
        if (++digits > 2) return std::nullopt;
        number = number * 10 + DigitOf(rest[0]);
        rest = rest.sliced(1);
    }
    return digits > 0 ? std::optional(number) : std::nullopt;
}

bool TakeMark(QStringView& rest, QChar mark) {
    if (!rest.startsWith(mark)) return false;
    rest = rest.sliced(1);
    return true;
}

void DropFraction(QStringView& rest) {
    if (!rest.startsWith(u'.') && !rest.startsWith(u',')) return;
    do {
        rest = rest.sliced(1);
    } while (!rest.isEmpty() && DigitOf(rest[0]) >= 0);
}

// The hour on the 24-hour clock, from one with the words for the halves of the day; -1 when it fits neither.
int HourOf(int hour, QStringView half, const QLocale& locale) {
    const bool isMorning = IsName(half, QStringLiteral("AM")) || IsName(half, locale.amText());
    const bool isEvening = IsName(half, QStringLiteral("PM")) || IsName(half, locale.pmText());
    if (!isMorning && !isEvening) return half.isEmpty() ? hour : -1;
    if (hour < 1 || hour > 12) return -1;
    return hour % 12 + (isEvening ? 12 : 0);
}

std::optional<QTime> ReadTime(QStringView text, const Conventions& conventions) {
    QStringView rest = text;
    const std::optional<int> hour = TakeTimeNumber(rest);
    if (!hour || !TakeMark(rest, u':')) return std::nullopt;
    const std::optional<int> minute = TakeTimeNumber(rest);
    std::optional<int> second = 0;
    if (TakeMark(rest, u':')) {
        second = TakeTimeNumber(rest);
        DropFraction(rest);
    }
    if (!minute || !second) return std::nullopt;
    const QTime time(HourOf(*hour, rest.trimmed(), conventions.locale), *minute, *second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

// Where the time of day begins, at the digits before the first colon; the text's length when there is none.
qsizetype TimeStart(QStringView text) {
    qsizetype start = text.indexOf(u':');
    if (start < 0) return text.size();
    while (start > 0 && DigitOf(text[start - 1]) >= 0)
        --start;
    return start;
}

}  // namespace

std::optional<Moment> ReadMoment(QStringView text, const Conventions& conventions) {
    text = text.trimmed();
    if (text.isEmpty() || text.size() > 2 * kLongestDate) return std::nullopt;
    const qsizetype start = TimeStart(text);
    Moment moment;
    if (start < text.size()) {
        const std::optional<QTime> time = ReadTime(text.sliced(start), conventions);
        if (!time) return std::nullopt;
        moment.time = *time;
    }
    if (start == 0) return moment;
    QStringView dateText = text.first(start);
    if (start < text.size() && dateText.endsWith(u'T')) dateText.chop(1);
    const std::optional<QDate> date = ReadDate(dateText.trimmed(), conventions);
    if (!date) return std::nullopt;
    moment.date = *date;
    return moment;
}

std::optional<QDate> StrictDate(QStringView text, const Conventions& conventions) {
    if (TimeStart(text.trimmed()) == 0) return std::nullopt;
    const std::optional<Moment> moment = ReadMoment(text, conventions);
    return moment ? std::optional(moment->date) : std::nullopt;
}

}  // namespace sheetwright
