#pragma once

// Dates and times of day through display masks.

#include "core/conventions.h"
#include "formula/display_mask_lexer.h"
#include "formula/value_date_reading.h"

#include <QString>

namespace sheetwright {

// True when the section shows at least one part of a date or a time.
[[nodiscard]] bool HasDateParts(MaskSection section);

[[nodiscard]] QString FormatMoment(const Moment& moment, MaskSection section, const Conventions& conventions);

// True for masks in the letters of the date conventions: "D", "M" and "C" or "Y", each once, and separators.
[[nodiscard]] bool IsConventionMask(QStringView mask);
[[nodiscard]] QString FormatByConventionMask(QDate date, const QString& mask);

// Date and time as they stand in a text, each only where it says something.
[[nodiscard]] QString GeneralDate(const Moment& moment, const Conventions& conventions);
[[nodiscard]] QString LongTime(QTime time, const Conventions& conventions);

}  // namespace sheetwright
