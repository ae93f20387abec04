#include "formula/value.h"

#include "formula/value_conversion.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <limits>

namespace sheetwright {
namespace {

QString EnglishText(double number) {
    return DoubleText(number, ConventionsOf(QLocale(QStringLiteral("en_GB"))));
}

TEST(KindOf, NamesEachKind) {
    EXPECT_EQ(KindOf(Empty()), QStringLiteral("Empty"));
    EXPECT_EQ(KindOf(true), QStringLiteral("Boolean"));
    EXPECT_EQ(KindOf(std::int16_t{1}), QStringLiteral("Integer"));
    EXPECT_EQ(KindOf(std::int32_t{1}), QStringLiteral("Long"));
    EXPECT_EQ(KindOf(1.0), QStringLiteral("Double"));
    EXPECT_EQ(KindOf(QStringLiteral("1")), QStringLiteral("String"));
}

TEST(TextOf, EmptyIsTheEmptyText) {
    EXPECT_EQ(TextOf(Empty(), Conventions()), QStringLiteral(""));
}

TEST(TextOf, BooleansAreEnglishWordsInEveryLocale) {
    const Conventions german = ConventionsOf(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(TextOf(true, german), QStringLiteral("True"));
    EXPECT_EQ(TextOf(false, german), QStringLiteral("False"));
}

TEST(TextOf, WholeNumbersKeepTheirRange) {
    EXPECT_EQ(TextOf(std::numeric_limits<std::int16_t>::min(), Conventions()), QStringLiteral("-32768"));
    EXPECT_EQ(TextOf(std::numeric_limits<std::int32_t>::max(), Conventions()), QStringLiteral("2147483647"));
}

TEST(TextOf, StringsStayAsTheyAre) {
    EXPECT_EQ(TextOf(QStringLiteral(" 007 "), Conventions()), QStringLiteral(" 007 "));
}

TEST(DoubleText, WholeNumbersHaveNoDecimals) {
    EXPECT_EQ(EnglishText(0), QStringLiteral("0"));
    EXPECT_EQ(EnglishText(7), QStringLiteral("7"));
    EXPECT_EQ(EnglishText(-19991231), QStringLiteral("-19991231"));
    EXPECT_EQ(EnglishText(999999999999999), QStringLiteral("999999999999999"));
}

TEST(DoubleText, MinusZeroIsZero) {
    EXPECT_EQ(EnglishText(-0.0), QStringLiteral("0"));
}

TEST(DoubleText, HasAtMostFifteenSignificantDigits) {
    EXPECT_EQ(EnglishText(0.1 + 0.2), QStringLiteral("0.3"));
    EXPECT_EQ(EnglishText(1.0 / 3), QStringLiteral("0.333333333333333"));
    EXPECT_EQ(EnglishText(123456789.123456789), QStringLiteral("123456789.123457"));
    EXPECT_EQ(EnglishText(-2.50), QStringLiteral("-2.5"));
}

TEST(DoubleText, AnExponentStandsOnlyForVeryLargeAndVerySmall) {
    EXPECT_EQ(EnglishText(0.0001), QStringLiteral("0.0001"));
    EXPECT_EQ(EnglishText(0.00001), QStringLiteral("1E-05"));
    EXPECT_EQ(EnglishText(1e15), QStringLiteral("1E+15"));
    EXPECT_EQ(EnglishText(-1.5e-7), QStringLiteral("-1.5E-07"));
    EXPECT_EQ(EnglishText(1.79769313486232e307), QStringLiteral("1.79769313486232E+307"));
}

TEST(DoubleText, RoundingDecidesAboutTheExponent) {
    EXPECT_EQ(EnglishText(0.00009999999999999999), QStringLiteral("0.0001"));
    EXPECT_EQ(EnglishText(0.0000999999999999999), QStringLiteral("9.99999999999999E-05"));
    EXPECT_EQ(EnglishText(999999999999999.4), QStringLiteral("999999999999999"));
    EXPECT_EQ(EnglishText(-1e15), QStringLiteral("-1E+15"));
}

TEST(DoubleText, RoundingUpToAPowerOfTenMayNeedTheExponent) {
    EXPECT_EQ(EnglishText(999999999999999.9), QStringLiteral("1E+15"));
}

TEST(DoubleText, UsesTheDecimalSeparatorOfTheSystem) {
    const Conventions german = ConventionsOf(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(DoubleText(1234.5, german), QStringLiteral("1234,5"));
    EXPECT_EQ(DoubleText(1.5e20, german), QStringLiteral("1,5E+20"));
}

TEST(DoubleText, IsReadBackInEveryLocale) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        const Conventions conventions = ConventionsOf(locale);
        for (const double number :
             {0.0, -2.25, 1234567.891, 1e-7, -1.5e20, 0.0001, 999999999999999.0, 1e15}) {
            const QString text = DoubleText(number, conventions);
            SCOPED_TRACE(locale.name().toStdString() + ' ' + text.toStdString());
            EXPECT_EQ(StrictNumber(text, conventions), number);
            EXPECT_EQ(ToNumber(text, conventions), number);
        }
    }
}

}  // namespace
}  // namespace sheetwright
