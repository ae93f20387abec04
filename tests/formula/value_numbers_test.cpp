#include "formula/value_conversion.h"
#include "formula/value_test_conventions.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <ostream>

namespace sheetwright {
namespace {

// --- StrictNumber

TEST(StrictNumber, TakesPlainNumbers) {
    EXPECT_EQ(StrictNumber(u"17", English()), 17);
    EXPECT_EQ(StrictNumber(u"-123.45", English()), -123.45);
    EXPECT_EQ(StrictNumber(u"+3", English()), 3);
    EXPECT_EQ(StrictNumber(u".5", English()), 0.5);
    EXPECT_EQ(StrictNumber(u"5.", English()), 5);
    EXPECT_EQ(StrictNumber(u"007", English()), 7);
}

TEST(StrictNumber, TakesBlanksAround) {
    EXPECT_EQ(StrictNumber(u"  12 ", English()), 12);
    EXPECT_EQ(StrictNumber(u"\t12\u00a0", English()), 12);
}

TEST(StrictNumber, TakesExponents) {
    EXPECT_EQ(StrictNumber(u"1.5E3", English()), 1500);
    EXPECT_EQ(StrictNumber(u"2e-2", English()), 0.02);
    EXPECT_EQ(StrictNumber(u"1E+05", English()), 100000);
    EXPECT_EQ(StrictNumber(u"1E", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"E5", English()), std::nullopt);
}

TEST(StrictNumber, TakesThousandsSeparatorsBetweenThrees) {
    EXPECT_EQ(StrictNumber(u"1,234", English()), 1234);
    EXPECT_EQ(StrictNumber(u"-12,345,678.9", English()), -12345678.9);
    EXPECT_EQ(StrictNumber(u"1.234,5", German()), 1234.5);
}

TEST(StrictNumber, RefusesGroupsOfAnotherSize) {
    EXPECT_EQ(StrictNumber(u"1,2,3", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1,2.3", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1234,567", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1,234,", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u",123", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1,,234", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"12.5", German()), std::nullopt);
}

TEST(StrictNumber, TakesLakhsWhereTheyAreCounted) {
    const Conventions indian = ConventionsNamed("en_IN");
    EXPECT_EQ(StrictNumber(u"12,34,567", indian), 1234567);
    EXPECT_EQ(StrictNumber(u"1,234,567", indian), 1234567);
    EXPECT_EQ(StrictNumber(u"12,34,567", English()), std::nullopt);
}

TEST(StrictNumber, ABlankMayStandForANoBreakSpaceBetweenThrees) {
    EXPECT_EQ(StrictNumber(u"1\u202f234,5", ConventionsNamed("fr_FR")), 1234.5);
    EXPECT_EQ(StrictNumber(u"1\u00a0234,5", ConventionsNamed("fr_FR")), 1234.5);
    EXPECT_EQ(StrictNumber(u"1 234 567,5", ConventionsNamed("fr_FR")), 1234567.5);
    EXPECT_EQ(StrictNumber(u"1 2", ConventionsNamed("fr_FR")), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1 234", English()), std::nullopt);
}

TEST(StrictNumber, TakesEitherApostrophe) {
    const Conventions swiss = ConventionsNamed("de_CH");
    EXPECT_EQ(StrictNumber(u"1'234'567.5", swiss), 1234567.5);
    EXPECT_EQ(StrictNumber(u"1\u2019234", swiss), 1234);
}

TEST(StrictNumber, TakesTheMinusSignAndDigitsOfTheLocale) {
    EXPECT_EQ(StrictNumber(u"\u22125", ConventionsNamed("sv_SE")), -5);
    EXPECT_EQ(StrictNumber(u"\u0661\u0662\u066b\u0665", ConventionsNamed("ar_EG")), 12.5);
}

TEST(StrictNumber, TakesTheMarkOfDirectionBeforeAMinus) {
    const Conventions egyptian = ConventionsNamed("ar_EG");
    EXPECT_EQ(StrictNumber(egyptian.locale.toString(-2.25, 'f', 2), egyptian), -2.25);
    EXPECT_EQ(StrictNumber(u"\u200e-5", ConventionsNamed("he_IL")), -5);
    EXPECT_EQ(StrictNumber(u"\u200e", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"5\u200e", English()), std::nullopt);
}

struct LocalNumber {
    const char* locale;
    QString text;
    std::optional<double> number;
};

void PrintTo(const LocalNumber& item, std::ostream* out) {
    *out << item.locale << " \"" << item.text.toStdString() << '"';
}

class StrictNumberIn : public ::testing::TestWithParam<LocalNumber> {};

TEST_P(StrictNumberIn, FollowsTheLocale) {
    const LocalNumber& item = GetParam();
    EXPECT_EQ(StrictNumber(item.text, ConventionsNamed(item.locale)), item.number);
}

INSTANTIATE_TEST_SUITE_P(Points, StrictNumberIn,
                         ::testing::Values(LocalNumber{"C", QStringLiteral(" 1.5 "), 1.5},
                                           LocalNumber{"C", QStringLiteral("1,5"), std::nullopt},
                                           LocalNumber{"en_US", QStringLiteral("-.5E2"), -50},
                                           LocalNumber{"en_US", QStringLiteral("1,5"), std::nullopt},
                                           LocalNumber{"de_DE", QStringLiteral(" 1,5 "), 1.5},
                                           LocalNumber{"de_DE", QStringLiteral("1,5E3"), 1500},
                                           LocalNumber{"de_DE", QStringLiteral("1.5"), std::nullopt},
                                           LocalNumber{"fr_FR", QStringLiteral("+1,5"), 1.5},
                                           LocalNumber{"fr_FR", QStringLiteral("1.5"), std::nullopt},
                                           LocalNumber{"sv_SE", QStringLiteral("1,5e-1"), 0.15},
                                           LocalNumber{"sv_SE", QStringLiteral("1.5"), std::nullopt},
                                           LocalNumber{"de_CH", QStringLiteral("1.5"), 1.5},
                                           LocalNumber{"de_CH", QStringLiteral("1,5"), std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Thousands, StrictNumberIn,
                         ::testing::Values(LocalNumber{"C", QStringLiteral("1,234.5"), 1234.5},
                                           LocalNumber{"C", QStringLiteral("1.234,5"), std::nullopt},
                                           LocalNumber{"en_US", QStringLiteral("1,234,567"), 1234567},
                                           LocalNumber{"de_DE", QStringLiteral("1.234"), 1234},
                                           LocalNumber{"de_DE", QStringLiteral("1.234.567,5"), 1234567.5},
                                           LocalNumber{"de_DE", QStringLiteral("1 234"), std::nullopt},
                                           LocalNumber{"fr_FR", QStringLiteral("1 234,5"), 1234.5},
                                           LocalNumber{"fr_FR", QStringLiteral("1.234,5"), std::nullopt},
                                           LocalNumber{"sv_SE", QStringLiteral("1\u00a0234\u00a0567"),
                                                       1234567},
                                           LocalNumber{"sv_SE", QStringLiteral("12 34"), std::nullopt},
                                           LocalNumber{"de_CH", QStringLiteral("1'234.5"), 1234.5},
                                           LocalNumber{"de_CH", QStringLiteral("1,234.5"), std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Currencies, StrictNumberIn,
                         ::testing::Values(LocalNumber{"en_GB", QStringLiteral("\u00a35"), std::nullopt},
                                           LocalNumber{"en_US", QStringLiteral("$5"), std::nullopt},
                                           LocalNumber{"de_DE", QStringLiteral("5 \u20ac"), std::nullopt},
                                           LocalNumber{"fr_FR", QStringLiteral("5\u00a0\u20ac"),
                                                       std::nullopt},
                                           LocalNumber{"sv_SE", QStringLiteral("5 kr"), std::nullopt},
                                           LocalNumber{"de_CH", QStringLiteral("CHF 5"), std::nullopt}));

TEST(StrictNumber, RefusesWhatIsNoNumberAsAWhole) {
    for (const QStringView text :
         {QStringView(u""), QStringView(u"  "), QStringView(u"-"), QStringView(u"."), QStringView(u"12abc"),
          QStringView(u"12-"), QStringView(u"1.2.3"), QStringView(u"--1"), QStringView(u"- 1"),
          QStringView(u"True"), QStringView(u"\u00a35"), QStringView(u"$5"), QStringView(u"5%"),
          QStringView(u"inf"), QStringView(u"nan"), QStringView(u"0x10"), QStringView(u"e")})
        EXPECT_EQ(StrictNumber(text, English()), std::nullopt) << text.toString().toStdString();
}

TEST(StrictNumber, RefusesWhatIsBeyondADouble) {
    EXPECT_EQ(StrictNumber(u"1E999", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"-1E309", English()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1.7976931348623157E308", English()), std::numeric_limits<double>::max());
}

TEST(StrictNumber, WhatIsTooSmallForADoubleIsZero) {
    EXPECT_EQ(StrictNumber(u"1E-999", English()), 0);
    EXPECT_EQ(StrictNumber(u"1E-99999999999999999999", English()), 0);
    EXPECT_EQ(StrictNumber(QStringLiteral("0.") + QString(400, u'0') + u'1', English()), 0);
    EXPECT_EQ(StrictNumber(u"0E999999999999", English()), 0);
    EXPECT_EQ(StrictNumber(QStringLiteral("0.") + QString(400, u'0') + QStringLiteral("1E401"), English()),
              1);
    EXPECT_EQ(StrictNumber(u"1E99999999999999999999", English()), std::nullopt);
}

TEST(StrictNumber, TheQuickWayAgreesWithTheFullConversion) {
    for (const char* text : {"0", "-0", "0.1", "123.45", "999999999999999", "0.000000000000001",
                             "9.99999999999999", "-2.675", "99999999999999.9", ".123456789012345", "5."}) {
        const QString plain = QLatin1StringView(text);
        const QString withBlank = plain + u' ';  // which the quick way leaves to the full conversion
        EXPECT_EQ(StrictNumber(plain, English()), StrictNumber(withBlank, English())) << text;
        EXPECT_EQ(StrictNumber(plain, English()), QByteArray(text).toDouble()) << text;
    }
}

TEST(StrictNumber, LongTextsKeepTheirPrecision) {
    EXPECT_EQ(StrictNumber(u"3.14159265358979323846", English()), 3.14159265358979323846);
    EXPECT_EQ(StrictNumber(QString(400, u'9'), English()), std::nullopt);
    EXPECT_EQ(StrictNumber(QStringLiteral("0.") + QString(100000, u'3'), English()), 1.0 / 3);
}

TEST(StrictNumber, AnInstalledSeparatorNeverCountsAsGroupSeparatorToo) {
    Conventions conventions;
    conventions.DecimalSeparator = u',';
    EXPECT_EQ(StrictNumber(u"1,5", conventions), 1.5);
    EXPECT_EQ(StrictNumber(u"1.234,5", conventions), 1234.5);
}

// --- NumericPrefix

TEST(NumericPrefix, ReadsAsFarAsItIsANumber) {
    EXPECT_EQ(NumericPrefix(u"12abc"), 12);
    EXPECT_EQ(NumericPrefix(u"  -3.5.6"), -3.5);
    EXPECT_EQ(NumericPrefix(u"+7 8"), 7);
    EXPECT_EQ(NumericPrefix(u"1E5"), 1);
    EXPECT_EQ(NumericPrefix(u".5x"), 0.5);
    EXPECT_EQ(NumericPrefix(u"5."), 5);
}

TEST(NumericPrefix, NoDigitsGiveZero) {
    EXPECT_EQ(NumericPrefix(u""), 0);
    EXPECT_EQ(NumericPrefix(u"abc"), 0);
    EXPECT_EQ(NumericPrefix(u"-"), 0);
    EXPECT_EQ(NumericPrefix(u"- 5"), 0);
    EXPECT_EQ(NumericPrefix(u"."), 0);
}

TEST(NumericPrefix, DigitsBeyondADoubleGiveZero) {
    EXPECT_EQ(NumericPrefix(QString(400, u'9') + u'x'), 0);
}

TEST(NumericPrefix, TakesAnotherPointWhenAsked) {
    EXPECT_EQ(NumericPrefix(u"12,5abc", u','), 12.5);
    EXPECT_EQ(NumericPrefix(u"12,5abc"), 12);
}

}  // namespace
}  // namespace sheetwright
