#include "core/conventions.h"

#include <QDate>

#include <algorithm>

namespace sheetwright {

namespace {

bool IsNumericDate(const QString& text) {
    return std::none_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

}  // namespace

void InitDateMask(Conventions& conventions) {
    const QString sample = conventions.locale.toString(QDate(1999, 12, 31), QLocale::ShortFormat);
    const qsizetype day = sample.indexOf(QStringLiteral("31"));
    const qsizetype month = sample.indexOf(QStringLiteral("12"));
    const bool hasCentury = sample.contains(QStringLiteral("1999"));
    const qsizetype year = sample.indexOf(hasCentury ? QStringLiteral("1999") : QStringLiteral("99"));
    const auto separator =
        std::find_if(sample.begin(), sample.end(), [](QChar character) { return !character.isDigit(); });

    conventions.SystemDateMask = QStringLiteral("D/M/C");
    conventions.SystemDateSeparator = QStringLiteral("/");
    if (IsNumericDate(sample) && day >= 0 && month >= 0 && year >= 0 && separator != sample.end()) {
        const QChar yearLetter = hasCentury ? u'C' : u'Y';
        const QString monthAndYear = month < year ? QString(u'M') + yearLetter : QString(yearLetter) + u'M';
        QString letters = monthAndYear;
        letters.insert(day == 0 ? 0 : day == sample.size() - 2 ? 2 : 1, u'D');
        conventions.SystemDateSeparator = QString(*separator);
        conventions.SystemDateMask = QString(letters[0]) + *separator + letters[1] + *separator + letters[2];
    }
    conventions.DateMask = conventions.SystemDateMask;
    conventions.DateSeparator = conventions.SystemDateSeparator;
}

void InitDecimalSeparator(Conventions& conventions) {
    conventions.DecimalSeparator = conventions.locale.toString(1.2, 'f', 1).at(1);
}

Conventions ConventionsOf(const QLocale& locale) {
    Conventions conventions;
    conventions.locale = locale;
    InitDateMask(conventions);
    InitDecimalSeparator(conventions);
    return conventions;
}

}  // namespace sheetwright
