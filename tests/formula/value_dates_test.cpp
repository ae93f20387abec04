#include "formula/value_conversion.h"
#include "formula/value_test_conventions.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

Conventions WithSystemMask(const QString& mask) {
    Conventions conventions = English();
    conventions.SystemDateMask = mask;
    return conventions;
}

QString Typed(QString text, const Conventions& conventions) {
    NormaliseDateTyped(text, conventions);
    return text;
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

TEST(IsDateText, FollowsTheLocale) {
    EXPECT_TRUE(IsDateText(u"31.12.1999", ConventionsNamed("de_DE")));
    EXPECT_TRUE(IsDateText(u"31/12/1999", ConventionsNamed("de_CH")));
    EXPECT_FALSE(IsDateText(u"31-12-1999", ConventionsNamed("de_DE")));
    EXPECT_TRUE(IsDateText(u"1999-12-31", ConventionsNamed("sv_SE")));
    EXPECT_FALSE(IsDateText(u"1999-12-31", ConventionsNamed("en_US")));
    EXPECT_FALSE(IsDateText(u"12-3", ConventionsNamed("sv_SE")));
}

TEST(IsDateText, SurvivesASeparatorThatIsMissingOrLong) {
    EXPECT_TRUE(IsDateText(u"31/12/1999", WithDateMask(QStringLiteral("DMC"), QString())));
    EXPECT_TRUE(IsDateText(u"31. 12. 1999", WithDateMask(QStringLiteral("D. M. C"), QStringLiteral(". "))));
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

TEST(StampToDate, AMaskWithoutLettersGivesItsSeparatorsOrNothing) {
    EXPECT_EQ(StampToDate(u"19991231", WithDateMask(QStringLiteral("//"), QStringLiteral("/"))),
              QStringLiteral(""));
    EXPECT_EQ(StampToDate(u"19991231", WithDateMask(QStringLiteral("--"), QStringLiteral("-"))),
              QStringLiteral("--"));
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

TEST(NormaliseDateTyped, ARunIsANumberAndLosesItsZeros) {
    EXPECT_EQ(Typed(QStringLiteral("000102"), English()), QStringLiteral(""));
    EXPECT_EQ(Typed(QStringLiteral("0001/0002/0003"), English()), QStringLiteral("01/02/03"));
    EXPECT_EQ(Typed(QStringLiteral("1/2/0"), English()), QStringLiteral("01/02/00"));
}

TEST(NormaliseDateTyped, DigitsOfAnotherScriptAreDigits) {
    EXPECT_EQ(Typed(QStringLiteral("\u0661/\u0662/\u0662\u0660\u0660\u0663"), English()),
              QStringLiteral("01/02/2003"));
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
    EXPECT_EQ(ShortDate(QDate(2003, 1, 5), ConventionsNamed("sv_SE")), QStringLiteral("2003-01-05"));
    EXPECT_EQ(ShortDate(QDate(), English()), QStringLiteral(""));
}

TEST(ShortDate, IsReadBackInEveryLocale) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        const Conventions conventions = ConventionsOf(locale);
        const QDate date(2003, 1, 5);
        const QString text = ShortDate(date, conventions);
        SCOPED_TRACE(locale.name().toStdString() + ' ' + text.toStdString());
        EXPECT_EQ(ToNumber(text, conventions), 20030105);
        EXPECT_EQ(StrictDate(text, conventions), date);
        EXPECT_EQ(ParseDate(text, conventions), date);
        EXPECT_EQ(StampToDate(u"20030105", conventions), text);
        QString typed = text;
        NormaliseDateTyped(typed, conventions);
        EXPECT_EQ(typed, text);
    }
}

}  // namespace
}  // namespace sheetwright
