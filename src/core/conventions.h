#pragma once

// Date and number conventions of the system the program runs on, settled once at start-up and handed down to
// everything that turns text into values or values into text.

#include <QLocale>
#include <QString>

namespace sheetwright {

// Mask letters: "D" day, "M" month, "C" four-digit year, "Y" two-digit year; anything else stands for itself.
struct Conventions {
    QLocale locale = QLocale::c();
    QString SystemDateMask = QStringLiteral("D/M/C");
    QString SystemDateSeparator = QStringLiteral("/");
    QString DateMask = QStringLiteral("D/M/C");
    QString DateSeparator = QStringLiteral("/");
    QChar DecimalSeparator = u'.';

    bool operator==(const Conventions&) const = default;
};

// The words that stand for true and false in the language of the installation. A document takes its copy
// once, when it is created.
struct TruthWords {
    QString TrueWord = QStringLiteral("True");
    QString FalseWord = QStringLiteral("False");

    bool operator==(const TruthWords&) const = default;
};

// Work out the short date order and the decimal separator of `conventions.locale`. A locale whose short date
// is not numeric (the C locale has month names) gets the mask "D/M/C". Digits of any script count; what
// stands behind the last part, and all but the first character of a separator, does not.
void InitDateMask(Conventions& conventions);
void InitDecimalSeparator(Conventions& conventions);

// The conventions of `locale`, both steps done.
[[nodiscard]] Conventions ConventionsOf(const QLocale& locale);

}  // namespace sheetwright
