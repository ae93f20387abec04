#pragma once

// Dates as instruments write them.

#include <QDate>
#include <QStringView>

#include <optional>

namespace sheetwright {

// Whether a format names day, month and year once each, by "d" or "dd", "M", "MM" or "MMM" (the first three
// letters of the English name), "yy" or "yyyy". A "*" at the end stands for whatever follows; any other
// character stands for itself.
[[nodiscard]] bool IsDateFormat(QStringView format);

// None when the text is not of that format, or no day of the calendar. "yy" means 2000 to 2099.
[[nodiscard]] std::optional<QDate> DateOfFormat(QStringView text, QStringView format);

}  // namespace sheetwright
