#pragma once

// Reading of dates and times of day as people type them, and the limits of the calendar that go with it.

#include "core/conventions.h"

#include <QDate>
#include <QStringView>
#include <QTime>

#include <optional>

namespace sheetwright {

inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

// 30 December 1899, day 0 of the count of days.
[[nodiscard]] inline QDate EmptyDate() {
    return {1899, 12, 30};
}

// A date with a time of day; a time without a date lies on the empty date.
struct Moment {
    QDate date = EmptyDate();
    QTime time = QTime(0, 0);
    bool operator==(const Moment&) const = default;
};

// The year from 1930 to 2029 that ends in these two digits (0 to 99).
[[nodiscard]] constexpr int YearInWindow(int twoDigits) {
    return twoDigits < 30 ? 2000 + twoDigits : 1900 + twoDigits;
}

// A date as `StrictDate` takes it with an optional time behind it, or a time of day alone.
[[nodiscard]] std::optional<Moment> ReadMoment(QStringView text, const Conventions& conventions);

}  // namespace sheetwright
