#include "formula/value.h"

#include <QLatin1StringView>

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace sheetwright {

namespace {

constexpr int kSignificantDigits = 15;
constexpr double kFirstWithExponent = 1e15;

// The text of std::to_chars in the general form, turned into ours: "1.5e-05" becomes "1,5E-05".
QString LocalText(std::string_view text, QChar decimalSeparator) {
    QString result = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& character : result) {
        if (character == u'.') {
            character = decimalSeparator;
        } else if (character == u'e') {
            character = u'E';
        }
    }
    return result;
}

}  // namespace

QString KindOf(const Value& value) {
    static constexpr std::array kKinds{"Empty", "Boolean", "Integer", "Long", "Double", "String"};
    return QLatin1StringView(kKinds.at(value.index()));
}

QString DoubleText(double number, const Conventions& conventions) {
    if (std::abs(number) < kFirstWithExponent && number == std::trunc(number))
        return QString::number(static_cast<qint64>(number));
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::general, kSignificantDigits);
    return LocalText({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())},
                     conventions.DecimalSeparator);
}

QString TextOf(const Value& value, const Conventions& conventions) {
    struct Text {
        const Conventions& conventions;
        QString operator()(Empty) const { return QString(QLatin1StringView("")); }
        QString operator()(bool truth) const {
            return truth ? QStringLiteral("True") : QStringLiteral("False");
        }
        QString operator()(std::int16_t number) const { return QString::number(number); }
        QString operator()(std::int32_t number) const { return QString::number(number); }
        QString operator()(double number) const { return DoubleText(number, conventions); }
        QString operator()(const QString& text) const { return text; }
    };
    return std::visit(Text{conventions}, value);
}

}  // namespace sheetwright
