#include "entry_editor_test.h"

#include <QTextCharFormat>

namespace sheetwright {
namespace {

class TheDateEditor : public EntryEditorTest {
  protected:
    void OpenDate(const QString& value = {}) {
        Date(S("day")).Field(S("other"));
        Open({S("day=") + value});
        ASSERT_EQ(ThePage().Entry.FieldType(), field_type::kDate);
        ThePage().Entry.Today = [] { return QDate(2024, 2, 29); };
    }
    [[nodiscard]] QCalendarWidget& Calendar() {
        auto* const calendar = View().findChild<QCalendarWidget*>();
        if (!calendar) throw std::runtime_error("no calendar");
        return *calendar;
    }
    [[nodiscard]] QWidget& Days() { return *Calendar().findChild<QWidget*>(S("qt_calendar_calendarview")); }
    [[nodiscard]] bool IsOpen() {
        auto* const calendar = View().findChild<QCalendarWidget*>();
        return calendar && calendar->isVisible();
    }
};

TEST_F(TheDateEditor, TypedDateIsReadWhenTheFieldIsLeft) {
    OpenDate();
    Type(S("3 Feb 2021"));
    Tab();
    EXPECT_EQ(Text(1), S("03/02/2021"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
}

TEST_F(TheDateEditor, BackspaceBlanksTheDateAndGoesOn) {
    OpenDate(S("03/02/2021"));
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Text(1), QString());
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    EXPECT_TRUE(Document().PageChanged);
}

TEST_F(TheDateEditor, EscapeKeepsTheDate) {
    OpenDate(S("03/02/2021"));
    Type(S("1"));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Text(1), S("03/02/2021"));
    EXPECT_FALSE(Editor().IsShown());
}

TEST_F(TheDateEditor, AltDownF4AndTheArrowOpenTheCalendarAtTheDate) {
    OpenDate(S("03/02/2021"));
    Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Calendar().selectedDate(), QDate(2021, 2, 3));
    EXPECT_EQ(Calendar().firstDayOfWeek(), Qt::Monday);
    QTest::keyClick(&Days(), Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    Key(Qt::Key_F4);
    EXPECT_TRUE(IsOpen());
    QTest::keyClick(&Days(), Qt::Key_F4);
    EXPECT_FALSE(IsOpen());
    QTest::mouseClick(View().findChild<QToolButton*>(QString(), Qt::FindChildrenRecursively), Qt::LeftButton);
    EXPECT_TRUE(IsOpen());
}

TEST_F(TheDateEditor, ArrowKeysAndEnterPickADay) {
    OpenDate(S("03/02/2021"));
    Key(Qt::Key_F4);
    QTest::keyClick(&Days(), Qt::Key_Right);
    QTest::keyClick(&Days(), Qt::Key_Down);
    QTest::keyClick(&Days(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Line().text(), S("11/02/2021"));
    EXPECT_EQ(ThePage().Entry.Value(), S("11/02/2021"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    Tab();
    EXPECT_EQ(Text(1), S("11/02/2021"));
}

TEST_F(TheDateEditor, TextThatIsNoDateOpensToday) {
    OpenDate();
    Type(S("soon"));
    Key(Qt::Key_F4);
    EXPECT_EQ(Calendar().selectedDate(), QDate(2024, 2, 29));
}

TEST_F(TheDateEditor, TodayButtonPicksToday) {
    OpenDate(S("03/02/2021"));
    Key(Qt::Key_F4);
    QTest::mouseClick(
        Calendar().parentWidget()->findChild<QPushButton*>(QString(), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Line().text(), S("29/02/2024"));
}

TEST_F(TheDateEditor, PickCanBeUndone) {
    OpenDate(S("03/02/2021"));
    Key(Qt::Key_F4);
    emit Calendar().clicked(QDate(2021, 2, 5));
    EXPECT_EQ(ThePage().Entry.Value(), S("05/02/2021"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("03/02/2021"));
}

TEST_F(TheDateEditor, FieldLeftWithItsCalendarOpenTakesTheCalendarsDay) {
    OpenDate();
    Key(Qt::Key_F4);
    Leave();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(1), S("29/02/2024"));
    Entries_GotFocus(Document(), 1);
    EXPECT_EQ(Line().text(), S("29/02/2024"));
}

TEST_F(TheDateEditor, CalendarStaysOnTheScreen) {
    m_form.Field(S("day"), At(600, 570) + QStringList{S("FieldType=2"), S("Format=Short Date")});
    Open();
    m_window->move(QApplication::primaryScreen()->availableGeometry().bottomRight() - QPoint(700, 590));
    Key(Qt::Key_F4);
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    const QRect popup(Calendar().window()->pos(), Calendar().window()->size());
    EXPECT_EQ(popup & screen, popup);
}

TEST_F(TheDateEditor, WeekendsCanBeReadOnADarkDesktop) {
    OpenDate();
    Key(Qt::Key_F4);
    QWidget& popup = *Calendar().window();
    popup.close();
    QPalette dark = popup.palette();
    dark.setColor(QPalette::Base, Qt::black);
    popup.setPalette(dark);
    Key(Qt::Key_F4);
    const auto colourOf = [&](Qt::DayOfWeek day) {
        return Calendar().weekdayTextFormat(day).foreground().color();
    };
    EXPECT_EQ(colourOf(Qt::Saturday), QColor(255, 140, 130));
    EXPECT_EQ(colourOf(Qt::Sunday), QColor(255, 140, 130));
    EXPECT_EQ(Calendar().weekdayTextFormat(Qt::Friday), QTextCharFormat());
}

}  // namespace
}  // namespace sheetwright
