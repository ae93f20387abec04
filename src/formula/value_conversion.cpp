#include "formula/value_conversion.h"

#include "core/failure.h"
#include "formula/value_numbers.h"

#include <limits>

namespace sheetwright {

namespace {

bool IsLaxNumberCharacter(QChar character) {
    return (character >= u'0' && character <= u'9') || character == u'-' || character == u'.' ||
           character == u',';
}

double NumberOfTruth(bool truth) {
    return truth ? -1 : 0;
}

double StrictNumberOrPrefix(QStringView text, const Conventions& conventions) {
    const std::optional<double> number = StrictNumber(text, conventions);
    return number ? *number : NumericPrefix(text, conventions.DecimalSeparator);
}

// A number from a text that counts as no date.
double NumberOfDateless(QStringView text, const Conventions& conventions) {
    const qsizetype point = conventions.DecimalSeparator == u'.' ? -1 : text.indexOf(u'.');
    if (point < 0) return StrictNumberOrPrefix(text, conventions);
    QString localised = text.toString();
    localised[point] = conventions.DecimalSeparator;
    return StrictNumberOrPrefix(localised, conventions);
}

// Calls `convert` with the text of a String and gives the plain numbers of all other kinds.
template <typename ConvertText>
double NumberOf(const Value& value, ConvertText&& convert) {
    struct Number {
        ConvertText& convert;
        double operator()(Empty) const { return 0; }
        double operator()(bool truth) const { return NumberOfTruth(truth); }
        double operator()(std::int16_t number) const { return number; }
        double operator()(std::int32_t number) const { return number; }
        double operator()(double number) const { return number; }
        double operator()(const QString& text) const { return convert(text); }
    };
    return std::visit(Number{convert}, value);
}

double StrictNumberOfText(const QString& text, const Conventions& conventions) {
    const std::optional<double> number = StrictNumber(text, conventions);
    if (!number) throw Failure(failure::kTypeMismatch);
    return *number;
}

double ClampedTruth(const Value& value, const Conventions& conventions, const TruthWords& words) {
    if (const auto* text = std::get_if<QString>(&value); text && *text == words.TrueWord)
        return NumberOfTruth(true);
    bool truth = false;
    Ignoring([&] { truth = ToBoolean(value, conventions); });
    return NumberOfTruth(truth);
}

template <typename Integer>
double InRangeOf(double number) {
    using Limits = std::numeric_limits<Integer>;
    return std::clamp<double>(number, Limits::min(), Limits::max());
}

double OfType(const Value& value, const QString& type, const Conventions& conventions,
              const TruthWords& words) {
    const QString name = type.toUpper();
    if (name == QStringLiteral("BOOLEAN")) return ClampedTruth(value, conventions, words);
    const double number = ToNumber(value, conventions);
    if (name == QStringLiteral("INTEGER")) return ToInt16(InRangeOf<std::int16_t>(number));
    if (name == QStringLiteral("LONG")) return ToInt32(InRangeOf<std::int32_t>(number));
    return number;
}

}  // namespace

bool IsNumberText(const Value& value, const Conventions& conventions) {
    const auto* text = std::get_if<QString>(&value);
    return !text || IsNumberText(QStringView(*text), conventions);
}

bool IsNumberText(QStringView text, const Conventions& conventions) {
    if (StrictNumber(text, conventions)) return true;
    if (!std::all_of(text.begin(), text.end(), IsLaxNumberCharacter)) return false;
    if (text == u"-") return false;
    return text.size() <= 2 || text.indexOf(u'-', 1) < 0;
}

double ToNumber(const Value& value, const Conventions& conventions) {
    return NumberOf(value, [&](const QString& text) { return ToNumber(QStringView(text), conventions); });
}

double ToNumber(QStringView text, const Conventions& conventions) {
    if (const auto plain = PlainNumber(text, u'.', conventions.DecimalSeparator)) return *plain;
    // A stamp is never looked at as a date again: where its separator is not the one in force it still holds
    // one.
    if (IsDateText(text, conventions)) return NumberOfDateless(DateToStamp(text, conventions), conventions);
    return NumberOfDateless(text, conventions);
}

bool ToBoolean(const Value& value, const Conventions& conventions) {
    if (const auto* text = std::get_if<QString>(&value)) {
        if (text->compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0) return true;
        if (text->compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0) return false;
    }
    return StrictNumberOf(value, conventions) != 0;
}

double StrictNumberOf(const Value& value, const Conventions& conventions) {
    return NumberOf(value, [&](const QString& text) { return StrictNumberOfText(text, conventions); });
}

double ClampValue(const Value& value, const Value& low, const Value& high, const QString& type,
                  const Conventions& conventions, const TruthWords& words) {
    double number = OfType(value, type, conventions, words);
    const auto isGiven = [](const Value& limit) { return !std::holds_alternative<Empty>(limit); };
    Ignoring([&] {
        if (isGiven(low)) number = std::max(number, StrictNumberOf(low, conventions));
    });
    Ignoring([&] {
        if (isGiven(high)) number = std::min(number, StrictNumberOf(high, conventions));
    });
    return number;
}

QString SpaceOutPunctuation(QString text) {
    const QStringView punctuation = u",.- ()";
    for (QChar& character : text) {
        if (punctuation.contains(character)) character = u' ';
    }
    return text;
}

}  // namespace sheetwright
