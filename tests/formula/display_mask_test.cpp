#include "formula/display_mask.h"

#include "core/text.h"
#include "support/test_application.h"

#include <QFile>

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

Conventions Of(const char* locale) {
    return ConventionsOf(QLocale(QLatin1StringView(locale)));
}

QString Shown(const QString& mask, const QString& text, const char* locale = "en_GB") {
    return FormatValue(text, mask, Of(locale));
}

struct Example {
    QString mask;
    QString value;
    QString shown;
};

// The cells of a table row that are all in backquotes; none for other lines.
std::optional<Example> ExampleOf(QStringView line) {
    QStringList cells;
    for (const QStringView cell : line.split(u'|')) {
        const QStringView bare = cell.trimmed();
        if (bare.size() >= 2 && bare.startsWith(u'`') && bare.endsWith(u'`') && bare.count(u'`') == 2)
            cells << bare.sliced(1, bare.size() - 2).toString();
    }
    return cells.size() == 3 ? std::optional(Example{cells[0], cells[1], cells[2]}) : std::nullopt;
}

std::vector<Example> ExamplesOfTheManual() {
    QFile file(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/docs/display-masks.md"));
    std::vector<Example> examples;
    if (!file.open(QIODevice::ReadOnly)) return examples;
    const QString text = QString::fromUtf8(file.readAll());
    for (const QStringView line : SplitLines(text)) {
        if (const std::optional<Example> example = ExampleOf(line)) examples.push_back(*example);
    }
    return examples;
}

TEST(DisplayMaskManual, EveryExampleIsShownAsTheManualSays) {
    const std::vector<Example> examples = ExamplesOfTheManual();
    EXPECT_GT(examples.size(), 100U);
    for (const Example& example : examples) {
        EXPECT_EQ(Shown(example.mask, example.value), example.shown)
            << example.value.toStdString() << " under " << example.mask.toStdString();
    }
}

TEST(FormatValue, AnEmptyMaskChangesNothing) {
    EXPECT_EQ(Shown(QString(), QStringLiteral(" 007 ")), QStringLiteral(" 007 "));
}

TEST(FormatValue, SeparatorsAreThoseOfTheLocale) {
    EXPECT_EQ(Shown(QStringLiteral("#,##0.00"), QStringLiteral("1234,5"), "de_DE"),
              QStringLiteral("1.234,50"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("5.6.2003"), "de_DE"),
              QStringLiteral("05.06.2003"));
    EXPECT_EQ(Shown(QStringLiteral("hh:nn"), QStringLiteral("9:05"), "fi_FI"), QStringLiteral("09.05"));
}

TEST(FormatValue, NamesAreThoseOfTheLocale) {
    EXPECT_EQ(Shown(QStringLiteral("dddd, d. mmmm yyyy"), QStringLiteral("31.12.1999"), "de_DE"),
              QStringLiteral("Freitag, 31. Dezember 1999"));
    EXPECT_EQ(Shown(QStringLiteral("Medium Time"), QStringLiteral("14:30"), "de_DE"),
              QStringLiteral("02:30 PM"));
}

TEST(FormatValue, AMonthWithoutADayHasItsNameStandingAlone) {
    EXPECT_EQ(Shown(QStringLiteral("mmmm yyyy"), QStringLiteral("19991231"), "cs_CZ"),
              QStringLiteral("prosinec 1999"));
    EXPECT_EQ(Shown(QStringLiteral("d. mmmm yyyy"), QStringLiteral("19991231"), "cs_CZ"),
              QStringLiteral("31. prosince 1999"));
}

TEST(FormatValue, LongTimeFollowsTheClockOfTheLocale) {
    EXPECT_EQ(Shown(QStringLiteral("Long Time"), QStringLiteral("14:30"), "en_US"),
              QStringLiteral("2:30:00 PM"));
    EXPECT_EQ(Shown(QStringLiteral("Long Time"), QStringLiteral("14:30"), "de_DE"),
              QStringLiteral("14:30:00"));
}

TEST(FormatValue, CurrencyStandsWhereTheLocalePutsIt) {
    EXPECT_EQ(Shown(QStringLiteral("Currency"), QStringLiteral("1234,5"), "de_DE"),
              QStringLiteral("1.234,50\u00a0\u20ac"));
}

TEST(FormatValue, TruthIsShownInTheWordsOfTheInstallation) {
    const TruthWords words{QStringLiteral("Wahr"), QStringLiteral("Falsch")};
    const Conventions conventions = Of("de_DE");
    EXPECT_EQ(FormatValue(QStringLiteral("-1"), QStringLiteral("True/False"), conventions, words),
              QStringLiteral("Wahr"));
    EXPECT_EQ(FormatValue(QStringLiteral("FALSCH"), QStringLiteral("True/False"), conventions, words),
              QStringLiteral("Falsch"));
    EXPECT_EQ(FormatValue(QStringLiteral("Wahr"), QStringLiteral("Yes/No"), conventions, words),
              QStringLiteral("Yes"));
}

TEST(FormatValue, HalvesGoAwayFromZeroOnTheDecimalText) {
    EXPECT_EQ(Shown(QStringLiteral("0.0"), QStringLiteral("0.25")), QStringLiteral("0.3"));
    EXPECT_EQ(Shown(QStringLiteral("0.0"), QStringLiteral("-0.25")), QStringLiteral("-0.3"));
    EXPECT_EQ(Shown(QStringLiteral("0.00"), QStringLiteral("4.35")), QStringLiteral("4.35"));
    EXPECT_EQ(Shown(QStringLiteral("0.0"), QStringLiteral("0.04")), QStringLiteral("0.0"));
    EXPECT_EQ(Shown(QStringLiteral("0"), QStringLiteral("999.5")), QStringLiteral("1000"));
    EXPECT_EQ(Shown(QStringLiteral("0"), QStringLiteral("0.5")), QStringLiteral("1"));
}

TEST(FormatValue, ShownNumbersStayAsTheyAreUnderTheSameMask) {
    for (const char* mask :
         {"0.00", "#,##0.00", "0.00E+00", "0%", "(0.0)", "0.0 \"kg\"", "Currency", "Percent", "dd/mm/yyyy",
          "Long Date", "Short Date", "General Date", "D/M/C", "d mmm yyyy"}) {
        const QString name = QLatin1StringView(mask);
        const QString once = Shown(name, QStringLiteral("36525.7"));
        EXPECT_EQ(Shown(name, once), once) << mask;
    }
}

TEST(FormatValue, VeryLargeAndSmallNumbersAreWrittenOut) {
    EXPECT_EQ(Shown(QStringLiteral("0"), QStringLiteral("1E+20")), QStringLiteral("100000000000000000000"));
    EXPECT_EQ(Shown(QStringLiteral("0.0"), QStringLiteral("1E-300")), QStringLiteral("0.0"));
    EXPECT_EQ(Shown(QStringLiteral("0.00E+00"), QStringLiteral("1E-300")), QStringLiteral("1.00E-300"));
    EXPECT_EQ(Shown(QStringLiteral("0"), QStringLiteral("1E+308")).size(), 309);
}

TEST(FormatValue, AnExponentFillsThePlacesBeforeThePoint) {
    EXPECT_EQ(Shown(QStringLiteral("000.0E+0"), QStringLiteral("12345")), QStringLiteral("123.5E+2"));
    EXPECT_EQ(Shown(QStringLiteral(".00E+00"), QStringLiteral("5")), QStringLiteral(".50E+01"));
    EXPECT_EQ(Shown(QStringLiteral("0E"), QStringLiteral("5")), QStringLiteral("5E"));
}

TEST(FormatValue, NumbersThatAreNoDayOfTheCalendarStay) {
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("99999999")), QStringLiteral("99999999"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("1E300")), QStringLiteral("1E300"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("2958465")), QStringLiteral("31/12/9999"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("2958466")), QStringLiteral("2958466"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy"), QStringLiteral("2958465.999999999")),
              QStringLiteral("2958465.999999999"));
    EXPECT_EQ(Shown(QStringLiteral("dd/mm/yyyy hh:nn"), QStringLiteral("-1.25")),
              QStringLiteral("29/12/1899 06:00"));
}

TEST(FormatValue, UnfinishedMasksHurtNobody) {
    EXPECT_EQ(Shown(QStringLiteral("0 \"kg"), QStringLiteral("5")), QStringLiteral("5 kg"));
    EXPECT_EQ(Shown(QStringLiteral("0\\"), QStringLiteral("5")), QStringLiteral("5\\"));
    EXPECT_EQ(Shown(QStringLiteral(";;;;;"), QStringLiteral("5")), QStringLiteral(""));
    EXPECT_EQ(Shown(QStringLiteral("0.0.0"), QStringLiteral("5.25")), QStringLiteral("5.2.5"));
    EXPECT_EQ(Shown(QStringLiteral("\""), QStringLiteral("5")), QStringLiteral(""));
}

TEST(FormatValue, LongMasksCostInProportion) {
    EXPECT_EQ(Shown(QString(100000, u'0'), QStringLiteral("5")).size(), 100000);
    EXPECT_EQ(Shown(QString(100000, u'%') + u'0', QStringLiteral("5")).size(), 300001);
    EXPECT_EQ(Shown(QString(100000, u'@'), QStringLiteral("5")).size(), 100000);
    EXPECT_EQ(Shown(QStringLiteral("d ").repeated(50000), QStringLiteral("36525")).size(), 150000);
}

TEST(FormatDate, FollowsTheMask) {
    const QDate date(2003, 6, 5);
    EXPECT_EQ(FormatDate(date, QStringLiteral("Long Date"), Of("en_GB")),
              QStringLiteral("Thursday, 5 June 2003"));
    EXPECT_EQ(FormatDate(date, QStringLiteral("dd-mm-yyyy"), Of("en_US")), QStringLiteral("05-06-2003"));
    EXPECT_EQ(FormatDate(date, QString(), Of("en_GB")), QStringLiteral("05/06/2003"));
}

TEST(FormatDate, ShowsTheEmptyDate) {
    EXPECT_EQ(FormatDate(QDate(1899, 12, 30), QStringLiteral("Short Date"), Of("en_GB")),
              QStringLiteral("30/12/1899"));
}

}  // namespace
}  // namespace sheetwright
