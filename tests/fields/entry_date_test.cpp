#include "fields/entry_test.h"

namespace sheetwright {

namespace {

class EntryDate : public EntryTest {
  protected:
    EntryDate() {
        m_entry.SetValue(S("31/12/1999"));
        m_entry.SetFieldType(5);
        m_entry.Resize(1800, 300);
        TakeEvents();
    }
};

TEST_F(EntryDate, TypedDatesReachThePickerAndOtherTextsDoNot) {
    m_entry.ReportText(S("1/2/2003"));
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2003, 2, 1));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change")}));
    m_entry.ReportText(S("soon"));
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2003, 2, 1));
    EXPECT_EQ(m_entry.Value(), S("soon"));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryDate, DroppingDownShowsThePickerWithTheDate) {
    int calendars = 0;
    m_entry.OpenCalendar = [&] { ++calendars; };
    m_entry.ReportDropDown();
    EXPECT_TRUE(m_entry.dtpDate().Visible);
    EXPECT_FALSE(m_entry.cbo_date().Visible);
    EXPECT_EQ(m_entry.dtpDate().Place.width, 1800);
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(1999, 12, 31));
    EXPECT_EQ(calendars, 1);
    EXPECT_EQ(m_entry.Value(), S("31/12/1999"));
}

TEST_F(EntryDate, TextThatThePickerRefusesGivesToday) {
    m_entry.ReportText(S("soon"));
    m_entry.ReportDropDown();
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2024, 2, 29));
    m_entry.ReportCalendarClosed();
    EXPECT_EQ(m_entry.Value(), S("29/02/2024"));
}

TEST_F(EntryDate, ChosenDateIsCopiedAtOnceAndStaysWhenTheCalendarCloses) {
    m_entry.ReportDropDown();
    m_entry.ReportDate(QDate(2001, 2, 3));
    EXPECT_EQ(m_entry.cbo_date().Text(), S("03/02/2001"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change")}));
    m_entry.ReportCalendarClosed();
    EXPECT_FALSE(m_entry.dtpDate().Visible);
    EXPECT_TRUE(m_entry.cbo_date().Visible);
    EXPECT_EQ(m_entry.Value(), S("03/02/2001"));
    EXPECT_EQ(TakeEvents(), QStringList());
    m_entry.ReportDate(QDate(1990, 1, 1));
    m_entry.ReportCalendarClosed();
    EXPECT_EQ(m_entry.Value(), S("03/02/2001"));
}

TEST_F(EntryDate, TextOfAnotherStyleReachesThePickerWithTheStyle) {
    m_entry.SetFieldType(0);
    m_entry.SetValue(S("1/2/2003"));
    TakeEvents();
    m_entry.SetFieldType(5);
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2003, 2, 1));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryDate, ListOfTheEntryStaysEmpty) {
    m_entry.SetAttachedList(S("A,B"));
    m_entry.AddItem(S("C"));
    EXPECT_EQ(m_entry.cbo_date().ListCount(), 0);
}

TEST_F(EntryDate, ValueSetWhileTheCalendarIsOpenIsThePickers) {
    m_entry.ReportDropDown();
    m_entry.SetValue(S("1-2-2003"));
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2003, 2, 1));
    EXPECT_EQ(m_entry.Value(), S("01/02/2003"));
    m_entry.ReportCalendarClosed();
    EXPECT_EQ(m_entry.Value(), S("01/02/2003"));
}

TEST_F(EntryDate, AnotherStyleClosesTheCalendar) {
    m_entry.ReportDropDown();
    m_entry.SetFieldType(0);
    EXPECT_FALSE(m_entry.dtpDate().Visible);
    m_entry.ReportCalendarClosed();
    EXPECT_FALSE(m_entry.cbo_date().Visible);
    EXPECT_EQ(m_entry.Value(), S("31/12/1999"));
}

TEST_F(EntryDate, DisabledOneDoesNotDropDown) {
    int calendars = 0;
    m_entry.OpenCalendar = [&] { ++calendars; };
    m_entry.SetEnabled(false);
    m_entry.ReportDropDown();
    EXPECT_FALSE(m_entry.dtpDate().Visible);
    EXPECT_TRUE(m_entry.cbo_date().Visible);
    EXPECT_EQ(calendars, 0);
}

TEST_F(EntryDate, FailureOfAHandlerIsNoRefusalOfTheDate) {
    m_entry.ReportText(S("1/2/2003"));
    m_entry.SetFieldType(0);
    m_entry.SetFieldType(5);
    m_entry.Change = [] { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { m_entry.ReportText(S("4/5/2006")); }), failure::kOutOfMemory);
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(2006, 5, 4));
}

TEST_F(EntryDate, LongTextIsNoDate) {
    const QString text = S("1/2/2003 ").repeated(200'000);
    m_entry.SetValue(text);
    EXPECT_EQ(m_entry.Value(), text);
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(1999, 12, 31));
}

TEST_F(EntryDate, OnlyTheLongFormatReachesThePicker) {
    for (const char* mask : {"Short Date", "dd mmmm yyyy", "", "long date"}) {
        m_entry.design.Format = S(mask);
        m_entry.SetFieldType(5);
        EXPECT_EQ(m_entry.dtpDate().Text(), S("31/12/1999")) << mask;
    }
    m_entry.design.Format = S("Long Date");
    m_entry.SetFieldType(5);
    EXPECT_EQ(m_entry.dtpDate().Text(), S("Friday, 31 December 1999"));
}

TEST_F(EntryDate, LongDateIsReadBack) {
    m_entry.design.Format = S("Long Date");
    m_entry.SetFieldType(5);
    m_entry.ReportDropDown();
    m_entry.ReportCalendarClosed();
    EXPECT_EQ(m_entry.Value(), S("Friday, 31 December 1999"));
    m_entry.ReportDropDown();
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(1999, 12, 31));
}

TEST_F(EntryDate, PickerKeepsAYearThatItsTextCutsShort) {
    m_application->conventions.SystemDateMask = S("D/M/Y");
    m_entry.ReportDropDown();
    m_entry.ReportDate(QDate(1925, 3, 1));
    EXPECT_EQ(m_entry.dtpDate().Value(), QDate(1925, 3, 1));
    EXPECT_EQ(m_entry.cbo_date().Text(), S("01/03/25"));
}

}  // namespace

}  // namespace sheetwright
