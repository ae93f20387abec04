#pragma once

// The plain helpers behind all value handling: dates as text under a mask, a sortable date stamp, tolerant
// number reading. All dates that come from drivers and all date comparisons in formulas go through a stamp of
// the form YYYYMMDD. These functions raise nothing unless it is said.

#include "core/conventions.h"
#include "formula/value.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace sheetwright {

class CsvColumn;

// The platform's tests and strict conversions, as the locale has them and as people type: blanks around,
// thousands separators, exponents; no currency sign. `StrictNumber` gives none for a text that is no number
// as a whole ("" and blanks are none) and for one beyond the range of a Double.
[[nodiscard]] std::optional<double> StrictNumber(QStringView text, const Conventions& conventions);

// A date in the locale's order with "/", "-", "." or blanks between its parts, an ISO date, or with a month
// name in the locale's language or English; a two-digit year lies in 1930 to 2029; a day and month that only
// fit the other way round are taken so. A time of day may follow a date and is dropped.
[[nodiscard]] std::optional<QDate> StrictDate(QStringView text, const Conventions& conventions);

// The longest numeric prefix: leading blanks skipped, an optional sign, digits and one "." or `point`; 0
// without digits and for digits beyond the range of a Double.
[[nodiscard]] double NumericPrefix(QStringView text, QChar point = u'.');

[[nodiscard]] bool IsNumberText(const Value& value, const Conventions& conventions);
[[nodiscard]] bool IsNumberText(QStringView text, const Conventions& conventions);
[[nodiscard]] inline bool IsNumberText(const QString& text, const Conventions& conventions) {
    return IsNumberText(QStringView(text), conventions);
}
[[nodiscard]] bool IsDateText(const Value& value, const Conventions& conventions);
[[nodiscard]] bool IsDateText(QStringView text, const Conventions& conventions);
[[nodiscard]] inline bool IsDateText(const QString& text, const Conventions& conventions) {
    return IsDateText(QStringView(text), conventions);
}

// A date is a number of the form YYYYMMDD; "12abc" gives 12, "abc", "" and Empty give 0, True gives -1.
[[nodiscard]] double ToNumber(const Value& value, const Conventions& conventions);
[[nodiscard]] double ToNumber(QStringView text, const Conventions& conventions);
[[nodiscard]] inline double ToNumber(const QString& text, const Conventions& conventions) {
    return ToNumber(QStringView(text), conventions);
}

// A value as a Boolean: "True" and "False" in any case, or any text readable as a number (non-zero is true).
// Raises 13 for any other text, "" included.
[[nodiscard]] bool ToBoolean(const Value& value, const Conventions& conventions);

// Strict reading of a number for the places where a text that is no number is a failure: raises 13. Empty is
// 0 and a Boolean -1 or 0. Texts "True" and "False" are numbers here only through a Boolean, so they
// raise 13.
[[nodiscard]] double StrictNumberOf(const Value& value, const Conventions& conventions);

// "31/12/1999" under "D/M/C" gives "19991231"; day and month are not padded. Raises 13 for a value that is
// no text.
[[nodiscard]] QString DateToStamp(const Value& value, const Conventions& conventions);
[[nodiscard]] QString DateToStamp(QStringView text, const Conventions& conventions);
[[nodiscard]] inline QString DateToStamp(const QString& text, const Conventions& conventions) {
    return DateToStamp(QStringView(text), conventions);
}

// "19991231" along the date mask; "" for a stamp that reads as 0.
[[nodiscard]] QString StampToDate(QStringView stamp, const Conventions& conventions);

// The walk of DateToStamp, then the calendar date; the empty date is 30 December 1899, as "00:00:00" means
// it.
[[nodiscard]] QDate ParseDate(QStringView text, const Conventions& conventions);

// What a date entry does with a freely typed date; the text becomes "" when no date is in it.
void NormaliseDateTyped(QString& text, const Conventions& conventions);

// A date in the system's short date form, as `TODAY()` and the error log show it.
[[nodiscard]] QString ShortDate(QDate date, const Conventions& conventions);

// The n-th field (from 1) of a comma-separated line: Empty past the last, a String when quoted, a Double when
// it reads as a number (an empty field is 0), otherwise a String.
[[nodiscard]] Value GetCsvField(QStringView line, int n, const Conventions& conventions);

// All fields of a line, as GetCsvField gives them one by one; none for an empty line.
[[nodiscard]] std::vector<Value> CsvFieldsOf(QStringView line, const Conventions& conventions);

// A column's current value as people read it: BOOLEAN as the words for true and false, DATE under the mask.
[[nodiscard]] QString FieldDisplayText(const CsvColumn& column, const Conventions& conventions,
                                       const TruthWords& words);

// Brings a setting to a type ("BOOLEAN", "INTEGER" or "LONG", in any case) and a range; limits that are Empty
// are not applied.
[[nodiscard]] double ClampValue(const Value& value, const Value& low, const Value& high, const QString& type,
                                const Conventions& conventions, const TruthWords& words);

// Each of , . - blank ( ) becomes a blank; other characters stay.
[[nodiscard]] QString SpaceOutPunctuation(QString text);

}  // namespace sheetwright
