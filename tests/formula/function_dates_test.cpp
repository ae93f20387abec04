#include "formula/formula_test_base.h"
#include "formula/value_conversion.h"

#include <QDate>

namespace sheetwright {
namespace {

class DateFunctionTest : public FormulaTest {};

TEST_F(DateFunctionTest, InMonthReadsTheStampsMonth) {
    EXPECT_EQ(Told("INMONTH(\"31/12/1999\",12)"), "Boolean True");
    EXPECT_EQ(Told("INMONTH(\"31/12/1999\",\"12\")"), "Boolean True");
    EXPECT_EQ(Told("INMONTH(\"31/12/1999\",11)"), "Boolean False");
    EXPECT_EQ(Told("INMONTH(31/12/1999,12)"), "Boolean True") << "a stamp is its own stamp";
}

TEST_F(DateFunctionTest, InYearReadsTheStampsYear) {
    EXPECT_EQ(Told("INYEAR(\"31/12/1999\",1999)"), "Boolean True");
    EXPECT_EQ(Told("INYEAR(\"31/12/99\",1999)"), "Boolean True");
    EXPECT_EQ(Told("INYEAR(\"31/12/1999\",2000)"), "Boolean False");
}

TEST_F(DateFunctionTest, AnUnpaddedDateIsReadAsItStands) {
    EXPECT_EQ(Told("INMONTH(\"1/2/2003\",21)"), "Boolean True") << "its stamp is 200321";
    EXPECT_EQ(Told("INYEAR(\"1/2/2003\",2003)"), "Boolean True");
}

TEST_F(DateFunctionTest, AnyFailureIsFalse) {
    EXPECT_EQ(Told("INMONTH(\"\",12)"), "Boolean False");
    EXPECT_EQ(Told("INMONTH(\"31/12/1999\",\"Dec\")"), "Boolean False");
    EXPECT_EQ(Told("INMONTH({FIELDS},12)"), "Boolean False");
    EXPECT_EQ(Told("INYEAR(\"abc\",1)"), "Boolean False");
    EXPECT_EQ(Told("INYEAR(\"31/12/1999\",70000)"), "Boolean False");
    EXPECT_EQ(Told("INYEAR()"), "Boolean False");
}

TEST_F(DateFunctionTest, DayOfWeekNamesTheDay) {
    EXPECT_EQ(Told("DAYOFWEEK(\"31/12/1999\")"), "String Friday");
    EXPECT_EQ(Told("DAYOFWEEK(\"02/01/2000\")"), "String Sunday");
    EXPECT_EQ(Told("DAYOFWEEK(\"03/01/2000\")"), "String Monday");
    EXPECT_EQ(Told("DAYOFWEEK(\"08/01/2000\")"), "String Saturday");
}

TEST_F(DateFunctionTest, DayOfWeekSpeaksTheInstallationsLanguage) {
    Write(QStringLiteral("Sheetwright.DIC"), "English,Translation\r\nFriday,Freitag\r\n");
    m_application->dictionary.Load(Path(QStringLiteral("Sheetwright.DIC")));
    EXPECT_EQ(Told("DAYOFWEEK(\"31/12/1999\")"), "String Freitag");
}

TEST_F(DateFunctionTest, DayOfWeekReadsANumberAsDaysSince1899) {
    EXPECT_EQ(Told("DAYOFWEEK(36525)"), "String Friday") << "31 December 1999";
    EXPECT_EQ(Told("DAYOFWEEK(36525.75)"), "String Friday");
    EXPECT_EQ(Told("DAYOFWEEK(0)"), "String Saturday");
    EXPECT_EQ(Told("DAYOFWEEK(31/12/1999)"), "Empty") << "a stamp lies beyond the calendar";
}

TEST_F(DateFunctionTest, DayOfWeekOfNoDateIsEmpty) {
    EXPECT_EQ(Told("DAYOFWEEK(\"abc\")"), "Empty");
    EXPECT_EQ(Told("DAYOFWEEK(\"\")"), "Empty");
    EXPECT_EQ(Told("DAYOFWEEK()"), "Empty");
    EXPECT_EQ(Told("DAYOFWEEK({FIELDS})"), "Empty");
}

TEST_F(DateFunctionTest, TodayIsAShortDateAndNeedsItsParentheses) {
    const auto today = [this] {
        return "String " + ShortDate(QDate::currentDate(), m_application->conventions).toStdString();
    };
    const std::string before = today();
    const std::string told = Told("TODAY()");
    EXPECT_TRUE(told == before || told == today()) << told;
    EXPECT_EQ(Told("TODAY"), "Empty");
}

}  // namespace
}  // namespace sheetwright
