#include "core/failure.h"
#include "formula/value_conversion.h"
#include "formula/value_date_reading.h"
#include "formula/value_numbers.h"

#include <QStringList>

namespace sheetwright {

namespace {

struct DateTexts {
    QString year;
    QString month;
    QString day;
};

bool IsSeparator(QChar character, const QString& separator) {
    return separator.size() == 1 && character == separator.at(0);
}

// A two-digit year, of exactly two characters, with its century.
void WidenYear(QString& year) {
    if (year.size() != 2) return;
    const int tens = DigitOf(year[0]);
    const int ones = DigitOf(year[1]);
    if (tens >= 0 && ones >= 0) year = QString::number(YearInWindow(tens * 10 + ones));
}

QString* PartFor(DateTexts& parts, QChar maskLetter) {
    switch (maskLetter.unicode()) {
        case u'D':
            return &parts.day;
        case u'M':
            return &parts.month;
        case u'C':
        case u'Y':
            return &parts.year;
        default:
            return nullptr;
    }
}

// Cuts a date along the mask in force. Only the separator in force moves from letter to letter; whatever else
// stands in the text belongs to the part in hand.
DateTexts CutDate(QStringView text, const Conventions& conventions) {
    const QString& mask = conventions.DateMask;
    const QString& separator = conventions.DateSeparator;
    DateTexts parts;
    qsizetype at = 0;
    for (const QChar character : text) {
        if (IsSeparator(character, separator)) {
            if (at < mask.size()) ++at;
            if (at < mask.size() && IsSeparator(mask[at], separator)) ++at;
        } else if (QString* part = at < mask.size() ? PartFor(parts, mask[at]) : nullptr) {
            part->append(character);
        }
    }
    WidenYear(parts.year);
    return parts;
}

// Position, from 1, of the second `separator`; 0 when there are fewer.
qsizetype SecondSeparator(QStringView text, QStringView separator) {
    if (separator.isEmpty()) return 0;
    const qsizetype first = text.indexOf(separator);
    return first < 0 ? 0 : text.indexOf(separator, first + 1) + 1;
}

QString AlongMask(const QString& mask, QStringView year, QStringView month, QStringView day) {
    QString result;
    for (const QChar letter : mask) {
        if (letter == u'D') {
            result += day;
        } else if (letter == u'M') {
            result += month;
        } else if (letter == u'C') {
            result += year;
        } else if (letter == u'Y') {
            result += year.last(std::min<qsizetype>(year.size(), 2));
        } else {
            result += letter;
        }
    }
    return result;
}

// A whole number from the front of a text, -1 when it lies outside what a date can hold.
int DateNumber(QStringView text) {
    const double number = NumericPrefix(text);
    return number >= 0 && number <= kLastYear ? static_cast<int>(number) : -1;
}

// A run of digits without leading zeros, but with at least two digits.
QString AtLeastTwoDigits(QStringView run) {
    while (run.size() > 2 && run.startsWith(u'0'))
        run = run.sliced(1);
    return run.size() == 1 ? u'0' + run.toString() : run.toString();
}

QString DigitsOfDate(QStringView text) {
    QString digits;
    QString run;
    for (const QChar character : text) {
        const int digit = DigitOf(character);
        if (digit >= 0) {
            run += QChar(u'0' + digit);
        } else {
            digits += AtLeastTwoDigits(run);
            run.clear();
        }
    }
    digits += AtLeastTwoDigits(run);
    return digits.size() == 5 || digits.size() == 7 ? u'0' + digits : digits;
}

QString Joined(QStringView digits, qsizetype first, qsizetype second, const QString& separator) {
    return QStringList{digits.first(first).toString(), digits.sliced(first, second).toString(),
                       digits.sliced(first + second).toString()}
        .join(separator);
}

}  // namespace

bool IsDateText(const Value& value, const Conventions& conventions) {
    const auto* text = std::get_if<QString>(&value);
    return text && IsDateText(QStringView(*text), conventions);
}

bool IsDateText(QStringView text, const Conventions& conventions) {
    const QStringView slash = u"/";
    qsizetype second = SecondSeparator(text, conventions.DateSeparator);
    if (second == 0 && conventions.DateSeparator != slash) second = SecondSeparator(text, slash);
    return second > 3 && StrictDate(text, conventions).has_value();
}

QString DateToStamp(const Value& value, const Conventions& conventions) {
    const auto* text = std::get_if<QString>(&value);
    if (!text) throw Failure(failure::kTypeMismatch);
    return DateToStamp(QStringView(*text), conventions);
}

QString DateToStamp(QStringView text, const Conventions& conventions) {
    const DateTexts parts = CutDate(text, conventions);
    return parts.year + parts.month + parts.day;
}

QString StampToDate(QStringView stamp, const Conventions& conventions) {
    if (ToNumber(stamp, conventions) == 0) return {};
    const auto slice = [stamp](qsizetype from, qsizetype length) { return stamp.mid(from, length); };
    const QStringView day = stamp.last(std::min<qsizetype>(stamp.size(), 2));
    QString date = AlongMask(conventions.DateMask, slice(0, 4), slice(4, 2), day);
    return date == QStringLiteral("//") ? QString() : date;
}

QDate ParseDate(QStringView text, const Conventions& conventions) {
    const DateTexts parts = CutDate(text, conventions);
    const int year = DateNumber(parts.year);
    const int month = DateNumber(parts.month);
    const int day = DateNumber(parts.day);
    if (year < 0 || parts.year.isEmpty()) return EmptyDate();
    const QDate date(year < kFirstYear ? YearInWindow(year) : year, month, day);
    return date.isValid() ? date : EmptyDate();
}

void NormaliseDateTyped(QString& text, const Conventions& conventions) {
    const QString digits = DigitsOfDate(text);
    const bool isZero = std::all_of(digits.begin(), digits.end(), [](QChar digit) { return digit == u'0'; });
    if (isZero || (digits.size() != 6 && digits.size() != 8)) {
        text = QString(QLatin1StringView(""));
        return;
    }
    const QString& mask = conventions.SystemDateMask;
    const QString& separator = conventions.SystemDateSeparator;
    const qsizetype year = mask.contains(u'Y') ? mask.indexOf(u'Y') : mask.indexOf(u'C');
    if (digits.size() == 6 || year == 4) {
        text = Joined(digits, 2, 2, separator);
    } else if (year == 0) {
        text = Joined(digits, 4, 2, separator);
    } else if (year == 2) {
        text = Joined(digits, 2, 4, separator);
    }
}

QString ShortDate(QDate date, const Conventions& conventions) {
    if (!date.isValid()) return {};
    const QString stamp = date.toString(QStringLiteral("yyyyMMdd"));
    const QStringView view(stamp);
    return AlongMask(conventions.SystemDateMask, view.first(4), view.sliced(4, 2), view.last(2));
}

}  // namespace sheetwright
