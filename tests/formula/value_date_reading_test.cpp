#include "formula/value_date_reading.h"

#include "formula/value_conversion.h"
#include "formula/value_test_conventions.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

namespace sheetwright {
namespace {

TEST(StrictDate, TakesTheOrderOfTheLocale) {
    EXPECT_EQ(StrictDate(u"5/6/2003", English()), QDate(2003, 6, 5));
    EXPECT_EQ(StrictDate(u"5/6/2003", ConventionsNamed("en_US")), QDate(2003, 5, 6));
    EXPECT_EQ(StrictDate(u"03/6/5", ConventionsNamed("ja_JP")), QDate(2003, 6, 5));
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
    EXPECT_EQ(StrictDate(u"1999/12/31", ConventionsNamed("en_US")), QDate(1999, 12, 31));
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

TEST(StrictDate, TakesBothShortFormsOfSeptemberInEveryLocale) {
    for (const char* name : {"C", "en_GB", "en_US", "sv_SE"}) {
        EXPECT_EQ(StrictDate(u"3 Sep 2001", ConventionsNamed(name)), QDate(2001, 9, 3)) << name;
        EXPECT_EQ(StrictDate(u"3 Sept. 2001", ConventionsNamed(name)), QDate(2001, 9, 3)) << name;
    }
}

struct LocalDate {
    const char* locale;
    QString text;
    std::optional<QDate> date;
};

void PrintTo(const LocalDate& item, std::ostream* out) {
    *out << item.locale << " \"" << item.text.toStdString() << '"';
}

class StrictDateIn : public ::testing::TestWithParam<LocalDate> {};

TEST_P(StrictDateIn, FollowsTheLocale) {
    const LocalDate& item = GetParam();
    EXPECT_EQ(StrictDate(item.text, ConventionsNamed(item.locale)), item.date);
}

INSTANTIATE_TEST_SUITE_P(Orders, StrictDateIn,
                         ::testing::Values(LocalDate{"C", QStringLiteral("5/6/2003"), QDate(2003, 6, 5)},
                                           LocalDate{"en_GB", QStringLiteral("05-06-03"), QDate(2003, 6, 5)},
                                           LocalDate{"en_US", QStringLiteral("05.06.03"), QDate(2003, 5, 6)},
                                           LocalDate{"de_DE", QStringLiteral("5.6.2003"), QDate(2003, 6, 5)},
                                           LocalDate{"de_DE", QStringLiteral("5. 6. 03"), QDate(2003, 6, 5)},
                                           LocalDate{"fr_FR", QStringLiteral("5 6 2003"), QDate(2003, 6, 5)},
                                           LocalDate{"sv_SE", QStringLiteral("03-06-05"), QDate(2003, 6, 5)},
                                           LocalDate{"sv_SE", QStringLiteral("31/12/99"), std::nullopt},
                                           LocalDate{"de_CH", QStringLiteral("5.6.03"), QDate(2003, 6, 5)}));

INSTANTIATE_TEST_SUITE_P(
    OtherWayRound, StrictDateIn,
    ::testing::Values(LocalDate{"C", QStringLiteral("12/31/99"), QDate(1999, 12, 31)},
                      LocalDate{"en_US", QStringLiteral("31/12/99"), QDate(1999, 12, 31)},
                      LocalDate{"de_DE", QStringLiteral("12.31.1999"), QDate(1999, 12, 31)},
                      LocalDate{"sv_SE", QStringLiteral("1999-31-12"), QDate(1999, 12, 31)},
                      LocalDate{"fr_FR", QStringLiteral("32/12/1999"), std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Names, StrictDateIn,
    ::testing::Values(LocalDate{"C", QStringLiteral("December 31, 1999"), QDate(1999, 12, 31)},
                      LocalDate{"de_DE", QStringLiteral("31. Dez. 1999"), QDate(1999, 12, 31)},
                      LocalDate{"de_CH", QStringLiteral("31. dezember 99"), QDate(1999, 12, 31)},
                      LocalDate{"fr_FR", QStringLiteral("31 d\u00e9c. 1999"), QDate(1999, 12, 31)},
                      LocalDate{"fr_FR", QStringLiteral("31-D\u00c9CEMBRE-1999"), QDate(1999, 12, 31)},
                      LocalDate{"sv_SE", QStringLiteral("fredag 31 december 1999"), QDate(1999, 12, 31)},
                      LocalDate{"sv_SE", QStringLiteral("1 mars 2000"), QDate(2000, 3, 1)},
                      LocalDate{"sv_SE", QStringLiteral("1 March 2000"), QDate(2000, 3, 1)},
                      LocalDate{"en_US", QStringLiteral("1 mars 2000"), std::nullopt}));

TEST(StrictDate, IsoDatesAreTakenInEveryLocale) {
    for (const char* name : {"C", "en_GB", "en_US", "de_DE", "fr_FR", "sv_SE", "de_CH"})
        EXPECT_EQ(StrictDate(u" 1999-12-31 ", ConventionsNamed(name)), QDate(1999, 12, 31)) << name;
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
    EXPECT_EQ(StrictDate(u"31/12/1999", ConventionsNamed("en_US")), QDate(1999, 12, 31));
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

// --- ReadMoment

TEST(ReadMoment, TakesADateATimeOrBoth) {
    EXPECT_EQ(ReadMoment(u"31/12/1999", English()), (Moment{QDate(1999, 12, 31), QTime(0, 0)}));
    EXPECT_EQ(ReadMoment(u" 10:30 ", English()), (Moment{EmptyDate(), QTime(10, 30)}));
    EXPECT_EQ(ReadMoment(u"31/12/1999 10:30:15 pm", English()),
              (Moment{QDate(1999, 12, 31), QTime(22, 30, 15)}));
    EXPECT_EQ(ReadMoment(u"12:05 AM", English()), (Moment{EmptyDate(), QTime(0, 5)}));
}

TEST(ReadMoment, RefusesHalvesOfEither) {
    for (const QStringView text :
         {QStringView(u""), QStringView(u" "), QStringView(u":"), QStringView(u"10:"), QStringView(u":30"),
          QStringView(u"31/12 10:30"), QStringView(u"13:00 PM"), QStringView(u"10:60"),
          QStringView(u"10:30:15:20"), QStringView(u"T10:30")})
        EXPECT_EQ(ReadMoment(text, English()), std::nullopt) << text.toString().toStdString();
}

}  // namespace
}  // namespace sheetwright
