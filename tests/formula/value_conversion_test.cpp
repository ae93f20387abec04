#include "formula/value_conversion.h"

#include "formula/value_test_conventions.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

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

TEST(ToNumber, ATimeBehindTheYearEndsTheNumber) {
    EXPECT_EQ(ToNumber(u"31/12/1999 10:30", English()), 1999);
}

TEST(ToNumber, FollowsTheWalkAlongTheMaskEvenWhereOnlyTheOtherOrderIsADate) {
    EXPECT_EQ(ToNumber(u"31/12/1999", ConventionsNamed("en_US")), 19993112);
}

TEST(ToNumber, APointStandsForItsDecimalSeparatorInEveryLocale) {
    for (const char* name : {"C", "en_GB", "en_US", "de_DE", "fr_FR", "sv_SE", "de_CH"}) {
        EXPECT_EQ(ToNumber(u"-1234.5", ConventionsNamed(name)), -1234.5) << name;
        EXPECT_EQ(ToNumber(u"12abc", ConventionsNamed(name)), 12) << name;
        EXPECT_EQ(ToNumber(u"", ConventionsNamed(name)), 0) << name;
    }
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

TEST(ClampValue, LimitsApplyToBooleansAsToNumbers) {
    EXPECT_EQ(Clamped(true, QStringLiteral("BOOLEAN"), 0.0), 0);
    EXPECT_EQ(Clamped(QStringLiteral("0"), QStringLiteral("BOOLEAN"), -1.0, 0.0), 0);
    EXPECT_EQ(Clamped(Empty(), QStringLiteral("BOOLEAN")), 0);
}

TEST(ClampValue, ValuesBecomeNumbersOfTheirType) {
    EXPECT_EQ(Clamped(QStringLiteral(""), QStringLiteral("LONG"), 5.0), 5);
    EXPECT_EQ(Clamped(32767.4, QStringLiteral("INTEGER")), 32767);
    EXPECT_EQ(Clamped(-0.5, QStringLiteral("long")), 0);
    EXPECT_EQ(Clamped(QStringLiteral("1E308"), QStringLiteral("INTEGER")), 32767);
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
