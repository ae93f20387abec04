#pragma once

// Display masks, the `Format` of a field: how a stored value is shown. Digits 0 and #, thousands, percent,
// exponent, fixed literals, sections for positive, negative and zero, date and time masks, text masks (@ & <
// > !) and the named ones: General Number, Currency, Fixed, Standard, Percent, Scientific, Yes/No,
// True/False, On/Off, General/Long/Medium/Short Date and Time.

#include "core/conventions.h"
#include "formula/value.h"

#include <QDate>
#include <QString>

namespace sheetwright {

// `text` through the mask. A text that is neither number nor date under a mask for such comes back unchanged;
// an empty mask changes nothing. Yes/No, True/False and On/Off take `words` for True/False.
[[nodiscard]] QString FormatValue(const QString& text, const QString& mask, const Conventions& conventions,
                                  const TruthWords& words = {});

// A date through the mask, in the short date form when the mask is empty.
[[nodiscard]] QString FormatDate(QDate date, const QString& mask, const Conventions& conventions);

}  // namespace sheetwright
