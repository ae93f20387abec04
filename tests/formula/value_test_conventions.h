#pragma once

// The conventions that the tests of the value conversions use.

#include "core/conventions.h"

namespace sheetwright {

inline Conventions ConventionsNamed(const char* locale) {
    return ConventionsOf(QLocale(QLatin1StringView(locale)));
}

inline Conventions English() {
    return ConventionsNamed("en_GB");
}

// German with four-digit years, as most systems there are set up.
inline Conventions German() {
    Conventions conventions = ConventionsNamed("de_DE");
    conventions.SystemDateMask = QStringLiteral("D.M.C");
    conventions.DateMask = conventions.SystemDateMask;
    return conventions;
}

inline Conventions WithDateMask(const QString& mask, const QString& separator) {
    Conventions conventions = English();
    conventions.DateMask = mask;
    conventions.DateSeparator = separator;
    return conventions;
}

}  // namespace sheetwright
