#include "formula/value_conversion.h"

#include "import/csv_table.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

Conventions English() {
    return ConventionsOf(QLocale(QStringLiteral("en_GB")));
}

// German with four-digit years, as most systems there are set up.
Conventions German() {
    Conventions conventions = ConventionsOf(QLocale(QStringLiteral("de_DE")));
    conventions.SystemDateMask = QStringLiteral("D.M.C");
    conventions.DateMask = conventions.SystemDateMask;
    return conventions;
}

Conventions French() {
    return ConventionsOf(QLocale(QStringLiteral("fr_FR")));
}

Conventions WithDateMask(const QString& mask, const QString& separator) {
    Conventions conventions = English();
    conventions.DateMask = mask;
    conventions.DateSeparator = separator;
    return conventions;
}

Conventions WithSystemMask(const QString& mask) {
    Conventions conventions = English();
    conventions.SystemDateMask = mask;
    return conventions;
}

QString Typed(QString text, const Conventions& conventions) {
    NormaliseDateTyped(text, conventions);
    return text;
}

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
    const Conventions indian = ConventionsOf(QLocale(QStringLiteral("en_IN")));
    EXPECT_EQ(StrictNumber(u"12,34,567", indian), 1234567);
    EXPECT_EQ(StrictNumber(u"1,234,567", indian), 1234567);
    EXPECT_EQ(StrictNumber(u"12,34,567", English()), std::nullopt);
}

TEST(StrictNumber, ABlankMayStandForANoBreakSpaceBetweenThrees) {
    EXPECT_EQ(StrictNumber(u"1\u202f234,5", French()), 1234.5);
    EXPECT_EQ(StrictNumber(u"1\u00a0234,5", French()), 1234.5);
    EXPECT_EQ(StrictNumber(u"1 234 567,5", French()), 1234567.5);
    EXPECT_EQ(StrictNumber(u"1 2", French()), std::nullopt);
    EXPECT_EQ(StrictNumber(u"1 234", English()), std::nullopt);
}

TEST(StrictNumber, TakesEitherApostrophe) {
    const Conventions swiss = ConventionsOf(QLocale(QStringLiteral("de_CH")));
    EXPECT_EQ(StrictNumber(u"1'234'567.5", swiss), 1234567.5);
    EXPECT_EQ(StrictNumber(u"1\u2019234", swiss), 1234);
}

TEST(StrictNumber, TakesTheMinusSignAndDigitsOfTheLocale) {
    EXPECT_EQ(StrictNumber(u"\u22125", ConventionsOf(QLocale(QStringLiteral("sv_SE")))), -5);
    EXPECT_EQ(StrictNumber(u"\u0661\u0662\u066b\u0665", ConventionsOf(QLocale(QStringLiteral("ar_EG")))),
              12.5);
}

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

// --- StrictDate

TEST(StrictDate, TakesTheOrderOfTheLocale) {
    EXPECT_EQ(StrictDate(u"5/6/2003", English()), QDate(2003, 6, 5));
    EXPECT_EQ(StrictDate(u"5/6/2003", ConventionsOf(QLocale(QStringLiteral("en_US")))), QDate(2003, 5, 6));
    EXPECT_EQ(StrictDate(u"03/6/5", ConventionsOf(QLocale(QStringLiteral("ja_JP")))), QDate(2003, 6, 5));
}

TEST(StrictDate, TakesSlashesHyphensPointsAndBlanks) {
    for (const QStringView text :
         {QStringView(u"31/12/1999"), QStringView(u"31-12-1999"), QStringView(u"31.12.1999"),
          QStringView(u"31 12 1999"), QStringView(u" 31. 12. 1999 "), QStringView(u"31.12.1999.")})
        EXPECT_EQ(StrictDate(text, English()), QDate(1999, 12, 31)) << text.toString().toStdString();
}

TEST(StrictDate, RefusesMixedSeparatorsAndCommas) {
    EXPECT_EQ(StrictDate(u"31/12-1999", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"31,12,1999", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"31//12//1999", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"-31-12-1999", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"31/12/1999/", English()), std::nullopt);
}

TEST(StrictDate, TakesIsoDates) {
    EXPECT_EQ(StrictDate(u"1999-12-31", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"1999/12/31", ConventionsOf(QLocale(QStringLiteral("en_US")))),
              QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"1999-12-31T23:59:59.125", English()), QDate(1999, 12, 31));
}

TEST(StrictDate, TakesMonthNamesOfTheLocaleAndEnglish) {
    EXPECT_EQ(StrictDate(u"31 December 1999", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"31-dec-99", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"December 31, 1999", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"1999 DEC 31", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"Friday, 31 December 1999", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"31. Dezember 1999", German()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"1. M\u00e4rz 2003", German()), QDate(2003, 3, 1));
    EXPECT_EQ(StrictDate(u"1 March 2003", German()), QDate(2003, 3, 1));
    EXPECT_EQ(StrictDate(u"31 Dezember 1999", English()), std::nullopt);
}

TEST(StrictDate, TakesTheLongFormOfTheLocale) {
    for (const char* name : {"en_GB", "de_DE", "fr_FR", "es_ES", "pt_BR", "zh_CN", "fi_FI", "pl_PL"}) {
        const QLocale locale{QLatin1StringView(name)};
        const QString text = locale.toString(QDate(2003, 6, 5), QLocale::LongFormat);
        EXPECT_EQ(StrictDate(text, ConventionsOf(locale)), QDate(2003, 6, 5)) << text.toStdString();
    }
}

TEST(StrictDate, ADayAndMonthThatOnlyFitTheOtherWayAreTakenSo) {
    EXPECT_EQ(StrictDate(u"12/31/1999", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"31/12/1999", ConventionsOf(QLocale(QStringLiteral("en_US")))),
              QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"13/13/1999", English()), std::nullopt);
}

TEST(StrictDate, TwoDigitYearsLieFrom1930To2029) {
    EXPECT_EQ(StrictDate(u"1/2/29", English()), QDate(2029, 2, 1));
    EXPECT_EQ(StrictDate(u"1/2/30", English()), QDate(1930, 2, 1));
    EXPECT_EQ(StrictDate(u"1/2/00", English()), QDate(2000, 2, 1));
    EXPECT_EQ(StrictDate(u"1/2/3", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"1/2/203", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"1/2/0099", English()), std::nullopt);
}

TEST(StrictDate, RefusesWhatIsNotInTheCalendar) {
    EXPECT_EQ(StrictDate(u"30/2/2003", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"29/2/2003", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"29/2/2004", English()), QDate(2004, 2, 29));
    EXPECT_EQ(StrictDate(u"0/1/2003", English()), std::nullopt);
}

TEST(StrictDate, ATimeOfDayMayFollow) {
    EXPECT_EQ(StrictDate(u"31/12/1999 10:30", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"31/12/1999 10:30:15 PM", English()), QDate(1999, 12, 31));
    EXPECT_EQ(StrictDate(u"31/12/1999 25:30", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"31/12/1999 10:30 o'clock", English()), std::nullopt);
    EXPECT_EQ(StrictDate(u"10:30", English()), std::nullopt);
}

TEST(StrictDate, RefusesNumbersAndOtherTexts) {
    for (const QStringView text :
         {QStringView(u""), QStringView(u"12.5"), QStringView(u"12,5"), QStringView(u"1/2"),
          QStringView(u"19991231"), QStringView(u"abc"), QStringView(u"1 234 567"), QStringView(u"1.234.567"),
          QStringView(u"192.168.1.10"), QStringView(u"Friday")}) {
        EXPECT_EQ(StrictDate(text, English()), std::nullopt) << text.toString().toStdString();
        EXPECT_EQ(StrictDate(text, German()), std::nullopt) << text.toString().toStdString();
    }
    EXPECT_EQ(StrictDate(QString(100000, u'1'), English()), std::nullopt);
    EXPECT_EQ(StrictDate(QStringLiteral("1/").repeated(50000), English()), std::nullopt);
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

// --- IsNumberText

TEST(IsNumberText, TakesWhatTheStrictTestTakes) {
    EXPECT_TRUE(IsNumberText(u" 1.5E3 ", English()));
    EXPECT_TRUE(IsNumberText(u"1,234", English()));
}

TEST(IsNumberText, IsLaxForInstrumentFiles) {
    EXPECT_TRUE(IsNumberText(u"", English()));
    EXPECT_TRUE(IsNumberText(u"1,2.3", English()));
    EXPECT_TRUE(IsNumberText(u".", English()));
    EXPECT_TRUE(IsNumberText(u"1-", English()));
    EXPECT_TRUE(IsNumberText(u"--", English()));
    EXPECT_TRUE(IsNumberText(u"31.12.1999", German()));
}

TEST(IsNumberText, AMinusAloneOrInsideIsNone) {
    EXPECT_FALSE(IsNumberText(u"-", English()));
    EXPECT_FALSE(IsNumberText(u"12-3", English()));
    EXPECT_FALSE(IsNumberText(u"1--", English()));
    EXPECT_TRUE(IsNumberText(u"-1,2,3", English()));
}

TEST(IsNumberText, OtherCharactersMakeItNone) {
    EXPECT_FALSE(IsNumberText(u"12abc", English()));
    EXPECT_FALSE(IsNumberText(u" ", English()));
    EXPECT_FALSE(IsNumberText(u"31/12/1999", English()));
    EXPECT_FALSE(IsNumberText(u"True", English()));
}

TEST(IsNumberText, EveryOtherKindIsANumber) {
    EXPECT_TRUE(IsNumberText(Value(Empty()), English()));
    EXPECT_TRUE(IsNumberText(Value(true), English()));
    EXPECT_TRUE(IsNumberText(Value(1.5), English()));
    EXPECT_FALSE(IsNumberText(Value(QStringLiteral("x")), English()));
}

// --- IsDateText

TEST(IsDateText, NeedsTwoSeparators) {
    EXPECT_TRUE(IsDateText(u"31/12/1999", English()));
    EXPECT_TRUE(IsDateText(u"1/2/99", English()));
    EXPECT_FALSE(IsDateText(u"1/2", English()));
    EXPECT_FALSE(IsDateText(u"31 December 1999", English()));
}

TEST(IsDateText, NeedsADate) {
    EXPECT_FALSE(IsDateText(u"31/13/1999", English()));
    EXPECT_FALSE(IsDateText(u"a/b/c", English()));
    EXPECT_FALSE(IsDateText(u"", English()));
    EXPECT_FALSE(IsDateText(Value(19991231.0), English()));
    EXPECT_FALSE(IsDateText(Value(Empty()), English()));
}

TEST(IsDateText, UnderASlashMaskOtherSeparatorsDoNotCount) {
    EXPECT_FALSE(IsDateText(u"31-12-1999", WithDateMask(QStringLiteral("D/M/C"), QStringLiteral("/"))));
}

TEST(IsDateText, UnderAnotherMaskSlashesCountAsWell) {
    const Conventions hyphens = WithDateMask(QStringLiteral("D-M-C"), QStringLiteral("-"));
    EXPECT_TRUE(IsDateText(u"31-12-1999", hyphens));
    EXPECT_TRUE(IsDateText(u"31/12/1999", hyphens));
    EXPECT_FALSE(IsDateText(u"31.12.1999", hyphens));
}

TEST(IsDateText, SurvivesASeparatorThatIsMissingOrLong) {
    EXPECT_TRUE(IsDateText(u"31/12/1999", WithDateMask(QStringLiteral("DMC"), QString())));
    EXPECT_TRUE(IsDateText(u"31. 12. 1999", WithDateMask(QStringLiteral("D. M. C"), QStringLiteral(". "))));
}

// --- ToNumber

TEST(ToNumber, ADateIsANumberOfItsStamp) {
    EXPECT_EQ(ToNumber(u"31/12/1999", WithDateMask(QStringLiteral("D/M/C"), QStringLiteral("/"))), 19991231);
    EXPECT_EQ(ToNumber(u"31.12.1999", German()), 19991231);
    EXPECT_EQ(ToNumber(u"31/12/99", English()), 19991231);
}

TEST(ToNumber, AnUnpaddedDateGivesAShortStamp) {
    EXPECT_EQ(ToNumber(u"1/2/2003", English()), 200321);
}

TEST(ToNumber, ADateWhoseSeparatorIsNotInForceGivesItsFirstNumber) {
    EXPECT_EQ(ToNumber(u"31/12/1999", WithDateMask(QStringLiteral("D-M-C"), QStringLiteral("-"))), 31);
    EXPECT_EQ(ToNumber(u"31-12-1999", English()), 31);
}

TEST(ToNumber, ReadsTheLongestPrefix) {
    EXPECT_EQ(ToNumber(u"12abc", English()), 12);
    EXPECT_EQ(ToNumber(u"abc", English()), 0);
    EXPECT_EQ(ToNumber(u"", English()), 0);
    EXPECT_EQ(ToNumber(u"True", English()), 0);
    EXPECT_EQ(ToNumber(u"-", English()), 0);
    EXPECT_EQ(ToNumber(u"1,2.3", English()), 1);
    EXPECT_EQ(ToNumber(u"1E999", English()), 1);
    EXPECT_EQ(ToNumber(QString(400, u'9'), English()), 0);
}

TEST(ToNumber, ReadsWhatTheStrictConversionReads) {
    EXPECT_EQ(ToNumber(u"17", English()), 17);
    EXPECT_EQ(ToNumber(u" 1,234.5 ", English()), 1234.5);
    EXPECT_EQ(ToNumber(u"1.5E3", English()), 1500);
}

TEST(ToNumber, APointIsADecimalSeparatorEverywhere) {
    EXPECT_EQ(ToNumber(u"12.5", German()), 12.5);
    EXPECT_EQ(ToNumber(u"12,5", German()), 12.5);
    EXPECT_EQ(ToNumber(u"1.234", German()), 1.234);
    EXPECT_EQ(ToNumber(u"1.5E3", German()), 1500);
    EXPECT_EQ(ToNumber(u"1.234,5", German()), 1.234);
    EXPECT_EQ(ToNumber(u"12,5abc", German()), 12.5);
    EXPECT_EQ(ToNumber(u"12,5abc", English()), 12);
    EXPECT_EQ(ToNumber(u"12.5abc", German()), 12.5);
}

TEST(ToNumber, OtherKindsAreTheirNumbers) {
    EXPECT_EQ(ToNumber(Value(Empty()), English()), 0);
    EXPECT_EQ(ToNumber(Value(true), English()), -1);
    EXPECT_EQ(ToNumber(Value(false), English()), 0);
    EXPECT_EQ(ToNumber(Value(std::int16_t{-7}), English()), -7);
    EXPECT_EQ(ToNumber(Value(std::int32_t{70000}), English()), 70000);
    EXPECT_EQ(ToNumber(Value(2.5), English()), 2.5);
    EXPECT_EQ(ToNumber(Value(QStringLiteral("2.5")), English()), 2.5);
}

// --- ToBoolean and StrictNumberOf

TEST(ToBoolean, TakesTheWordsInAnyCaseAndNumbers) {
    EXPECT_TRUE(ToBoolean(QStringLiteral("True"), English()));
    EXPECT_TRUE(ToBoolean(QStringLiteral("tRUE"), English()));
    EXPECT_FALSE(ToBoolean(QStringLiteral("FALSE"), English()));
    EXPECT_TRUE(ToBoolean(QStringLiteral("0.5"), English()));
    EXPECT_FALSE(ToBoolean(QStringLiteral(" 0 "), English()));
}

TEST(ToBoolean, OtherTextsAreATypeMismatch) {
    for (const QString& text : {QStringLiteral(""), QStringLiteral("Yes"), QStringLiteral("12abc"),
                                QStringLiteral("31/12/1999"), QStringLiteral("1E999")})
        EXPECT_EQ(FailureOf([&] { (void)ToBoolean(text, English()); }), failure::kTypeMismatch)
            << text.toStdString();
}

TEST(ToBoolean, OtherKindsAreTrueUnlessZero) {
    EXPECT_FALSE(ToBoolean(Empty(), English()));
    EXPECT_TRUE(ToBoolean(true, English()));
    EXPECT_FALSE(ToBoolean(0.0, English()));
    EXPECT_TRUE(ToBoolean(0.1, English()));
    EXPECT_TRUE(ToBoolean(std::int16_t{2}, English()));
}

TEST(StrictNumberOf, GivesNumbersAndRefusesTexts) {
    EXPECT_EQ(StrictNumberOf(Empty(), English()), 0);
    EXPECT_EQ(StrictNumberOf(true, English()), -1);
    EXPECT_EQ(StrictNumberOf(QStringLiteral("1,234.5"), English()), 1234.5);
    for (const QString& text : {QStringLiteral(""), QStringLiteral("True"), QStringLiteral("abc")})
        EXPECT_EQ(FailureOf([&] { (void)StrictNumberOf(text, English()); }), failure::kTypeMismatch);
}

// --- DateToStamp and StampToDate

TEST(DateToStamp, PutsYearMonthAndDayTogether) {
    EXPECT_EQ(DateToStamp(u"31/12/1999", English()), QStringLiteral("19991231"));
    EXPECT_EQ(DateToStamp(u"12-31-1999", WithDateMask(QStringLiteral("M-D-C"), QStringLiteral("-"))),
              QStringLiteral("19991231"));
    EXPECT_EQ(DateToStamp(u"1999.12.31", WithDateMask(QStringLiteral("C.M.D"), QStringLiteral("."))),
              QStringLiteral("19991231"));
}

TEST(DateToStamp, DoesNotPad) {
    EXPECT_EQ(DateToStamp(u"1/2/2003", English()), QStringLiteral("200321"));
}

TEST(DateToStamp, WidensAYearOfTwoCharacters) {
    EXPECT_EQ(DateToStamp(u"31/12/29", English()), QStringLiteral("20291231"));
    EXPECT_EQ(DateToStamp(u"31/12/30", English()), QStringLiteral("19301231"));
    EXPECT_EQ(DateToStamp(u"31/12/3", English()), QStringLiteral("31231"));
    EXPECT_EQ(DateToStamp(u"31/12/xy", English()), QStringLiteral("xy1231"));
    EXPECT_EQ(DateToStamp(u"31/12/99", WithDateMask(QStringLiteral("D/M/Y"), QStringLiteral("/"))),
              QStringLiteral("19991231"));
}

TEST(DateToStamp, KeepsWhateverIsNoSeparatorAndDropsWhatIsTooMuch) {
    EXPECT_EQ(DateToStamp(u"31-12-1999", English()), QStringLiteral("31-12-1999"));
    EXPECT_EQ(DateToStamp(u"1/2/2003/99", English()), QStringLiteral("200321"));
    EXPECT_EQ(DateToStamp(u"1Q2x", WithDateMask(QStringLiteral("DQM"), QStringLiteral("Q"))),
              QStringLiteral("2x1"));
    EXPECT_EQ(DateToStamp(u"1/2", WithDateMask(QStringLiteral("DX"), QStringLiteral("/"))),
              QStringLiteral("1"));
    EXPECT_EQ(DateToStamp(u"1/2/2003", WithDateMask(QString(), QStringLiteral("/"))), QStringLiteral(""));
    EXPECT_EQ(DateToStamp(u"", English()), QStringLiteral(""));
}

TEST(DateToStamp, RefusesWhatIsNoText) {
    EXPECT_EQ(FailureOf([] { (void)DateToStamp(Value(1.0), English()); }), failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([] { (void)DateToStamp(Value(Empty()), English()); }), failure::kTypeMismatch);
    EXPECT_EQ(DateToStamp(Value(QStringLiteral("31/12/1999")), English()), QStringLiteral("19991231"));
}

TEST(StampToDate, FollowsTheMask) {
    EXPECT_EQ(StampToDate(u"19991231", English()), QStringLiteral("31/12/1999"));
    EXPECT_EQ(StampToDate(u"19991231", WithDateMask(QStringLiteral("M-D-Y"), QStringLiteral("-"))),
              QStringLiteral("12-31-99"));
    EXPECT_EQ(StampToDate(u"20030105", WithDateMask(QStringLiteral("C. M. D."), QStringLiteral("."))),
              QStringLiteral("2003. 01. 05."));
}

TEST(StampToDate, NothingGivesNothing) {
    EXPECT_EQ(StampToDate(u"", English()), QStringLiteral(""));
    EXPECT_EQ(StampToDate(u"0", English()), QStringLiteral(""));
    EXPECT_EQ(StampToDate(u"00000000", English()), QStringLiteral(""));
    EXPECT_EQ(StampToDate(u"abc", English()), QStringLiteral(""));
}

TEST(StampToDate, AShortStampGivesWhatIsThere) {
    EXPECT_EQ(StampToDate(u"1", English()), QStringLiteral("1//1"));
    EXPECT_EQ(StampToDate(u"200321", English()), QStringLiteral("21/21/2003"));
}

// --- ParseDate

TEST(ParseDate, ReadsAlongTheMask) {
    EXPECT_EQ(ParseDate(u"31/12/1999", English()), QDate(1999, 12, 31));
    EXPECT_EQ(ParseDate(u"1/2/03", English()), QDate(2003, 2, 1));
    EXPECT_EQ(ParseDate(u"1/2/3", English()), QDate(2003, 2, 1));
    EXPECT_EQ(ParseDate(u"12-31-1999", WithDateMask(QStringLiteral("M-D-C"), QStringLiteral("-"))),
              QDate(1999, 12, 31));
    EXPECT_EQ(ParseDate(u"31. 12. 1999", German()), QDate(1999, 12, 31));
    EXPECT_EQ(ParseDate(u"31/12/1999 10:30", English()), QDate(1999, 12, 31));
}

TEST(ParseDate, AFailureGivesTheEmptyDate) {
    const QDate empty(1899, 12, 30);
    for (const QStringView text :
         {QStringView(u""), QStringView(u"abc"), QStringView(u"30/2/2003"), QStringView(u"31-12-1999"),
          QStringView(u"1/1"), QStringView(u"1/1/99999"), QStringView(u"1/1/-5"),
          QStringView(u"99999999999/1/2003"), QStringView(u"//")})
        EXPECT_EQ(ParseDate(text, English()), empty) << text.toString().toStdString();
}

// --- NormaliseDateTyped

TEST(NormaliseDateTyped, PadsTheRunsOfDigits) {
    EXPECT_EQ(Typed(QStringLiteral("1/2/03"), English()), QStringLiteral("01/02/03"));
    EXPECT_EQ(Typed(QStringLiteral("1.2.3"), English()), QStringLiteral("01/02/03"));
    EXPECT_EQ(Typed(QStringLiteral("1 - 2 - 2003"), English()), QStringLiteral("01/02/2003"));
    EXPECT_EQ(Typed(QStringLiteral("001/2/2003"), English()), QStringLiteral("01/02/2003"));
    EXPECT_EQ(Typed(QStringLiteral("1/2/2003/"), English()), QStringLiteral("01/02/2003"));
}

TEST(NormaliseDateTyped, FiveAndSevenDigitsGetAZeroInFront) {
    EXPECT_EQ(Typed(QStringLiteral("10203"), English()), QStringLiteral("01/02/03"));
    EXPECT_EQ(Typed(QStringLiteral("1022003"), English()), QStringLiteral("01/02/2003"));
    EXPECT_EQ(Typed(QStringLiteral("01022003"), English()), QStringLiteral("01/02/2003"));
}

TEST(NormaliseDateTyped, OtherLengthsAndZeroGiveNothing) {
    for (const QString& text :
         {QStringLiteral(""), QStringLiteral("abc"), QStringLiteral("0/0/0"), QStringLiteral("00000000"),
          QStringLiteral("12"), QStringLiteral("1/2"), QStringLiteral("123456789"), QString(1000, u'7')})
        EXPECT_EQ(Typed(text, English()), QStringLiteral("")) << text.toStdString();
}

TEST(NormaliseDateTyped, TheSystemMaskPlacesAFourDigitYear) {
    EXPECT_EQ(Typed(QStringLiteral("20030102"), WithSystemMask(QStringLiteral("C/M/D"))),
              QStringLiteral("2003/01/02"));
    EXPECT_EQ(Typed(QStringLiteral("01200302"), WithSystemMask(QStringLiteral("M/C/D"))),
              QStringLiteral("01/2003/02"));
    EXPECT_EQ(Typed(QStringLiteral("01022003"), WithSystemMask(QStringLiteral("D/M/Y"))),
              QStringLiteral("01/02/2003"));
}

TEST(NormaliseDateTyped, AMaskWithTheYearElsewhereLeavesTheText) {
    EXPECT_EQ(Typed(QStringLiteral("1 2 2003"), WithSystemMask(QStringLiteral("D. M. C"))),
              QStringLiteral("1 2 2003"));
    EXPECT_EQ(Typed(QStringLiteral("1 2 2003"), WithSystemMask(QString())), QStringLiteral("1 2 2003"));
}

// --- ShortDate

TEST(ShortDate, FollowsTheSystemMask) {
    EXPECT_EQ(ShortDate(QDate(2003, 1, 5), English()), QStringLiteral("05/01/2003"));
    EXPECT_EQ(ShortDate(QDate(2003, 1, 5), ConventionsOf(QLocale(QStringLiteral("sv_SE")))),
              QStringLiteral("2003-01-05"));
    EXPECT_EQ(ShortDate(QDate(), English()), QStringLiteral(""));
}

TEST(ShortDate, IsReadBackAsTheSameStamp) {
    EXPECT_EQ(ToNumber(ShortDate(QDate(2003, 1, 5), German()), German()), 20030105);
}

// --- GetCsvField

TEST(GetCsvField, QuotedFieldsKeepTheirCommas) {
    EXPECT_EQ(GetCsvField(u"a,\"b,c\",d", 2, English()), Value(QStringLiteral("b,c")));
    EXPECT_EQ(GetCsvField(u"a,\"b,c\",d", 3, English()), Value(QStringLiteral("d")));
    EXPECT_EQ(GetCsvField(u"\"a,b,c\"", 1, English()), Value(QStringLiteral("a,b,c")));
    EXPECT_EQ(GetCsvField(u"x\"a,b\"y,z", 1, English()), Value(QStringLiteral("x\"a,b\"y")));
}

TEST(GetCsvField, EmptyFieldReadsAsTheNumberZero) {
    EXPECT_EQ(GetCsvField(u"a,,c", 2, English()), Value(0.0));
    EXPECT_EQ(GetCsvField(u"a,", 2, English()), Value(0.0));
    EXPECT_EQ(GetCsvField(u",", 1, English()), Value(0.0));
}

TEST(GetCsvField, NumbersAreDoubles) {
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 1, English()), Value(7.0));
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 2, English()), Value(1.5));
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 3, English()), Value(QStringLiteral("x")));
    EXPECT_EQ(GetCsvField(u"31.12.1999", 1, German()), Value(19991231.0));
}

TEST(GetCsvField, QuotedNumbersAreStrings) {
    EXPECT_EQ(GetCsvField(u"\"007\",x", 1, English()), Value(QStringLiteral("007")));
    EXPECT_EQ(GetCsvField(u"\"\",x", 1, English()), Value(QStringLiteral("")));
    EXPECT_EQ(GetCsvField(u"\"", 1, English()), Value(QStringLiteral("")));
}

TEST(GetCsvField, PastTheLastFieldIsEmpty) {
    EXPECT_EQ(GetCsvField(u"", 1, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", 3, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", 0, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", -1, English()), Value(Empty()));
}

TEST(GetCsvField, AQuoteWithoutItsPartnerHidesNoComma) {
    EXPECT_EQ(GetCsvField(u"a,\"b,c", 2, English()), Value(QStringLiteral("")));
    EXPECT_EQ(GetCsvField(u"a,\"b,c", 3, English()), Value(QStringLiteral("c")));
}

TEST(GetCsvField, OnlyTheFirstTwoQuotesOfAFieldCount) {
    EXPECT_EQ(GetCsvField(u"\"a\"\"b,c\",d", 1, English()), Value(QStringLiteral("a\"\"")));
    EXPECT_EQ(GetCsvField(u"\"a,b\"", 2, English()), Value(Empty()));
}

TEST(GetCsvField, LongLinesCostInProportion) {
    const QString line = QStringLiteral("\"x\",").repeated(200000) + QStringLiteral("end");
    EXPECT_EQ(GetCsvField(line, 200001, English()), Value(QStringLiteral("end")));
}

// --- FieldDisplayText

class FieldDisplay : public ApplicationTest {
  protected:
    void SetUp() override {
        Write(QStringLiteral("table.csv"), "Ok,When,What\r\n-1,19991231,x\r\n1,,007\r\n");
        Write(QStringLiteral("table.inf"), "[Ok]\r\nDataType=BOOLEAN\r\n[When]\r\nDataType=DATE\r\n");
        m_table.SetFileName(Path(QStringLiteral("table.csv")));
    }

    QString Shown(const QString& name) {
        return FieldDisplayText(m_table.Columns().At(name), English(),
                                {QStringLiteral("Wahr"), QStringLiteral("Falsch")});
    }

    CsvTable m_table;
};

TEST_F(FieldDisplay, ShowsTruthWordsDatesAndPlainValues) {
    EXPECT_EQ(Shown(QStringLiteral("Ok")), QStringLiteral("Wahr"));
    EXPECT_EQ(Shown(QStringLiteral("When")), QStringLiteral("31/12/1999"));
    EXPECT_EQ(Shown(QStringLiteral("What")), QStringLiteral("x"));
}

TEST_F(FieldDisplay, OnlyMinusOneIsTrueAndABlankDateShowsNothing) {
    m_table.MoveNext();
    EXPECT_EQ(Shown(QStringLiteral("Ok")), QStringLiteral("Falsch"));
    EXPECT_EQ(Shown(QStringLiteral("When")), QStringLiteral(""));
    EXPECT_EQ(Shown(QStringLiteral("What")), QStringLiteral("007"));
}

// --- ClampValue

double Clamped(const Value& value, const QString& type, const Value& low = Empty(),
               const Value& high = Empty()) {
    const TruthWords words{QStringLiteral("Wahr"), QStringLiteral("Falsch")};
    return ClampValue(value, low, high, type, English(), words);
}

TEST(ClampValue, BooleansComeFromWordsAndNumbers) {
    EXPECT_EQ(Clamped(QStringLiteral("True"), QStringLiteral("boolean")), -1);
    EXPECT_EQ(Clamped(QStringLiteral("Wahr"), QStringLiteral("BOOLEAN")), -1);
    EXPECT_EQ(Clamped(QStringLiteral("Falsch"), QStringLiteral("BOOLEAN")), 0);
    EXPECT_EQ(Clamped(QStringLiteral("7"), QStringLiteral("BOOLEAN")), -1);
    EXPECT_EQ(Clamped(QStringLiteral("maybe"), QStringLiteral("BOOLEAN")), 0);
}

TEST(ClampValue, IntegersStayWithin16Bits) {
    EXPECT_EQ(Clamped(QStringLiteral("40000"), QStringLiteral("Integer")), 32767);
    EXPECT_EQ(Clamped(-40000.0, QStringLiteral("INTEGER")), -32768);
    EXPECT_EQ(Clamped(QStringLiteral("2.5"), QStringLiteral("INTEGER")), 2);
    EXPECT_EQ(Clamped(QStringLiteral("junk"), QStringLiteral("INTEGER")), 0);
}

TEST(ClampValue, LongsStayWithin32Bits) {
    EXPECT_EQ(Clamped(QStringLiteral("3E9"), QStringLiteral("LONG")), 2147483647);
    EXPECT_EQ(Clamped(QStringLiteral("-3E9"), QStringLiteral("LONG")), -2147483648.0);
    EXPECT_EQ(Clamped(QStringLiteral("40000"), QStringLiteral("LONG")), 40000);
}

TEST(ClampValue, LimitsApplyWhenGiven) {
    EXPECT_EQ(Clamped(5.0, QStringLiteral("INTEGER"), 10.0, 20.0), 10);
    EXPECT_EQ(Clamped(25.0, QStringLiteral("INTEGER"), 10.0, 20.0), 20);
    EXPECT_EQ(Clamped(15.0, QStringLiteral("INTEGER"), 10.0, 20.0), 15);
    EXPECT_EQ(Clamped(-5.0, QStringLiteral("LONG"), Empty(), 20.0), -5);
    EXPECT_EQ(Clamped(25.5, QStringLiteral("")), 25.5);
}

TEST(ClampValue, ALimitThatIsNoNumberIsNotApplied) {
    EXPECT_EQ(Clamped(5.0, QStringLiteral("INTEGER"), QStringLiteral("junk"), QStringLiteral("3")), 3);
}

// --- SpaceOutPunctuation

TEST(SpaceOutPunctuation, MakesBlanksOfPunctuation) {
    EXPECT_EQ(SpaceOutPunctuation(QStringLiteral("a,b.c-d e(f)g")), QStringLiteral("a b c d e f g"));
    EXPECT_EQ(SpaceOutPunctuation(QStringLiteral("x/y;z_\u00dc")), QStringLiteral("x/y;z_\u00dc"));
    EXPECT_EQ(SpaceOutPunctuation(QString()), QString());
}

}  // namespace
}  // namespace sheetwright
