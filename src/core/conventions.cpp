#include "core/conventions.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <utility>

namespace sheetwright {

namespace {

// A date as the locale prints it, with the digits of its script as ASCII ones and without the invisible marks
// that direct the writing.
QString PlainDate(const QString& printed) {
    QString plain;
    for (const QChar character : printed) {
        if (character.isDigit()) {
            plain += QChar(u'0' + character.digitValue());
        } else if (character.category() != QChar::Other_Format) {
            plain += character;
        }
    }
    return plain;
}

struct DateForm {
    QString mask;
    QString separator;
};

// The form that shows in a print of 31 December 1999; "D/M/C" when it is not numeric.
DateForm FormOf(const QString& sample) {
    const bool hasCentury = sample.contains(QStringLiteral("1999"));
    const qsizetype year = sample.indexOf(hasCentury ? QStringLiteral("1999") : QStringLiteral("99"));
    std::array parts{std::pair{sample.indexOf(QStringLiteral("31")), u'D'},
                     std::pair{sample.indexOf(QStringLiteral("12")), u'M'},
                     std::pair{year, hasCentury ? u'C' : u'Y'}};
    std::sort(parts.begin(), parts.end());
    const auto* separator =
        std::find_if(sample.begin(), sample.end(), [](QChar here) { return !here.isDigit(); });
    if (parts.front().first < 0 || separator == sample.end() || separator->isLetter())
        return {QStringLiteral("D/M/C"), QStringLiteral("/")};
    return {QString(QChar(parts[0].second)) + *separator + QChar(parts[1].second) + *separator +
                QChar(parts[2].second),
            QString(*separator)};
}

}  // namespace

void InitDateMask(Conventions& conventions) {
    const DateForm form =
        FormOf(PlainDate(conventions.locale.toString(QDate(1999, 12, 31), QLocale::ShortFormat)));
    conventions.SystemDateMask = form.mask;
    conventions.SystemDateSeparator = form.separator;
    conventions.DateMask = form.mask;
    conventions.DateSeparator = form.separator;
}

void InitDecimalSeparator(Conventions& conventions) {
    const QString separator = conventions.locale.decimalPoint();
    conventions.DecimalSeparator = separator.isEmpty() ? u'.' : separator.at(0);
}

Conventions ConventionsOf(const QLocale& locale) {
    Conventions conventions;
    conventions.locale = locale;
    InitDateMask(conventions);
    InitDecimalSeparator(conventions);
    return conventions;
}

}  // namespace sheetwright
