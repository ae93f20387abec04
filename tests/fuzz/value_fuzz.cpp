// Texts and masks from outside through every conversion. The first byte chooses the locale; then come a text,
// a display mask, a date mask and a date separator, one to a line.

#include "core/failure.h"
#include "core/text.h"
#include "formula/display_mask.h"
#include "formula/value_conversion.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace sheetwright;

void Require(bool holds) {
    if (!holds) std::abort();
}

Conventions ConventionsBy(std::uint8_t choice) {
    static constexpr std::array kLocales{"C",     "en_GB", "en_US", "de_DE", "fr_FR", "sv_SE",
                                         "ar_EG", "en_IN", "hu_HU", "zh_CN", "de_CH", "ccp_BD"};
    return ConventionsOf(QLocale(QLatin1StringView(kLocales.at(choice % kLocales.size()))));
}

void ConvertNumbers(const QString& text, const Conventions& conventions) {
    const double number = ToNumber(text, conventions);
    Require(std::isfinite(number));
    Require(std::isfinite(NumericPrefix(text, conventions.DecimalSeparator)));
    const std::optional<double> strict = StrictNumber(text, conventions);
    if (strict) Require(std::isfinite(*strict) && IsNumberText(text, conventions));
    const QString printed = DoubleText(number, conventions);
    Require(StrictNumber(printed, conventions).has_value());
    Require(DoubleText(ToNumber(printed, conventions), conventions) == printed);
    Ignoring([&] { (void)ToBoolean(text, conventions); });
    Require(std::abs(ClampValue(text, -10.0, 10.0, QStringLiteral("INTEGER"), conventions, {})) <= 10);
}

void ConvertDates(QString text, const Conventions& conventions) {
    Require(!IsDateText(text, conventions) || StrictDate(text, conventions).has_value());
    (void)StampToDate(DateToStamp(text, conventions), conventions);
    Require(ParseDate(text, conventions).isValid());
    NormaliseDateTyped(text, conventions);
}

void ReadFields(QStringView line, const Conventions& conventions) {
    int number = 1;
    while (number < 100 && GetCsvField(line, number, conventions) != Value(Empty()))
        ++number;
    Require(number > line.count(u',') + 1 || number <= 100);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QString input =
        QString::fromUtf8(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    QStringView rest = input;
    const QString text = TakeLine(rest).toString();
    const QString mask = TakeLine(rest).toString();
    Conventions conventions = ConventionsBy(data[0]);
    for (int round = 0; round < 2; ++round) {
        ConvertNumbers(text, conventions);
        ConvertDates(text, conventions);
        ReadFields(text, conventions);
        (void)FormatValue(text, mask, conventions);
        (void)FormatValue(QStringLiteral("1234.5"), mask, conventions);
        (void)FormatValue(QStringLiteral("19991231"), mask, conventions);
        conventions.DateMask = TakeLine(rest).toString();
        conventions.DateSeparator = TakeLine(rest).toString();
        conventions.SystemDateMask = conventions.DateMask;
    }
    return 0;
}
