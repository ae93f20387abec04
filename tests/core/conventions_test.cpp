#include "core/conventions.h"

#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

struct LocaleForm {
    const char* locale;
    QString mask;
    QString separator;
    QChar decimalSeparator;
};

void PrintTo(const LocaleForm& form, std::ostream* out) {
    *out << form.locale;
}

class ConventionsOfLocale : public ::testing::TestWithParam<LocaleForm> {};

TEST_P(ConventionsOfLocale, FollowTheShortDateAndTheDecimalPoint) {
    const Conventions conventions = ConventionsOf(QLocale(QLatin1StringView(GetParam().locale)));
    EXPECT_EQ(conventions.SystemDateMask, GetParam().mask);
    EXPECT_EQ(conventions.SystemDateSeparator, GetParam().separator);
    EXPECT_EQ(conventions.DecimalSeparator, GetParam().decimalSeparator);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, ConventionsOfLocale,
    ::testing::Values(LocaleForm{"en_GB", QStringLiteral("D/M/C"), QStringLiteral("/"), u'.'},
                      LocaleForm{"en_US", QStringLiteral("M/D/Y"), QStringLiteral("/"), u'.'},
                      LocaleForm{"de_DE", QStringLiteral("D.M.Y"), QStringLiteral("."), u','},
                      LocaleForm{"fr_FR", QStringLiteral("D/M/C"), QStringLiteral("/"), u','},
                      LocaleForm{"nl_NL", QStringLiteral("D-M-C"), QStringLiteral("-"), u','},
                      LocaleForm{"de_CH", QStringLiteral("D.M.Y"), QStringLiteral("."), u'.'},
                      LocaleForm{"C", QStringLiteral("D/M/C"), QStringLiteral("/"), u'.'},
                      LocaleForm{"sv_SE", QStringLiteral("C-M-D"), QStringLiteral("-"), u','},
                      LocaleForm{"ja_JP", QStringLiteral("C/M/D"), QStringLiteral("/"), u'.'}));

TEST(InitDateMask, ASeparatorOfSeveralCharactersCountsByItsFirst) {
    const Conventions conventions = ConventionsOf(QLocale(QStringLiteral("sk_SK")));
    EXPECT_EQ(conventions.SystemDateMask, QStringLiteral("D.M.C"));
    EXPECT_EQ(conventions.SystemDateSeparator, QStringLiteral("."));
}

TEST(InitDateMask, TextBehindTheDateDoesNotDisturbTheOrder) {
    const Conventions hungarian = ConventionsOf(QLocale(QStringLiteral("hu_HU")));
    EXPECT_EQ(hungarian.SystemDateMask, QStringLiteral("C.M.D"));
    EXPECT_EQ(ConventionsOf(QLocale(QStringLiteral("bg_BG"))).SystemDateMask, QStringLiteral("D.M.Y"));
}

TEST(InitDateMask, DigitsOfOtherScriptsAreDigits) {
    const Conventions conventions = ConventionsOf(QLocale(QStringLiteral("ar_EG")));
    EXPECT_EQ(conventions.SystemDateMask, QStringLiteral("D/M/C"));
    EXPECT_EQ(conventions.DecimalSeparator, QChar(u'\u066b'));
}

TEST(InitDateMask, ADateWithMonthNamesGivesDayMonthYear) {
    const Conventions conventions = ConventionsOf(QLocale::c());
    EXPECT_EQ(conventions.SystemDateMask, QStringLiteral("D/M/C"));
    EXPECT_EQ(conventions.SystemDateSeparator, QStringLiteral("/"));
}

TEST(InitDateMask, TheMaskInForceBeginsAsACopy) {
    Conventions conventions = ConventionsOf(QLocale(QStringLiteral("sv_SE")));
    EXPECT_EQ(conventions.DateMask, conventions.SystemDateMask);
    EXPECT_EQ(conventions.DateSeparator, conventions.SystemDateSeparator);
    conventions.DateMask = QStringLiteral("D/M/C");
    InitDateMask(conventions);
    EXPECT_EQ(conventions.DateMask, QStringLiteral("C-M-D"));
}

TEST(ConventionsOf, EveryLocaleHasAMaskOfThreeLetters) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        const Conventions conventions = ConventionsOf(locale);
        const QString& mask = conventions.SystemDateMask;
        SCOPED_TRACE(locale.name().toStdString());
        ASSERT_EQ(mask.size(), 5);
        EXPECT_EQ(mask.count(u'D'), 1);
        EXPECT_EQ(mask.count(u'M'), 1);
        EXPECT_EQ(mask.count(u'C') + mask.count(u'Y'), 1);
        EXPECT_EQ(mask.count(conventions.SystemDateSeparator), 2);
        EXPECT_FALSE(conventions.DecimalSeparator.isDigit());
    }
}

}  // namespace
}  // namespace sheetwright
