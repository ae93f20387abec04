#pragma once

// How digits and digit groups of a locale look, for those that read numbers and those that show them.

#include "core/conventions.h"

#include <QChar>
#include <QStringView>

#include <optional>

namespace sheetwright {

// The value of a decimal digit of any script, -1 for anything else.
[[nodiscard]] inline int DigitOf(QChar character) {
    if (character >= u'0' && character <= u'9') return character.unicode() - u'0';
    return character.unicode() < 0x80 ? -1 : character.isDigit() ? character.digitValue() : -1;
}

// The character between digit groups; never the decimal separator in force.
[[nodiscard]] QChar GroupSeparatorOf(const Conventions& conventions);

// The quick way for the most common texts: an optional sign, at most 15 ASCII digits and one decimal point,
// which may be either of two characters. None for anything else; otherwise exactly what the full conversion
// gives.
[[nodiscard]] std::optional<double> PlainNumber(QStringView text, QChar point, QChar otherPoint);

}  // namespace sheetwright
