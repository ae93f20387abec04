#include "ui/calendar_popup.h"

#include "core/application.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kMargin = 4;  // pixels
constexpr int kDark = 128;  // lightness below which a background counts as dark

bool ClosesCalendar(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Escape || key.key() == Qt::Key_F4) return true;
    const bool isArrow = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
    return isArrow && key.modifiers().testFlag(Qt::AltModifier);
}

QPoint CornerOf(const QRect& field, QSize size, const QRect& screen) {
    const bool fitsBelow = field.bottom() + 1 + size.height() <= screen.bottom();
    const int top = fitsBelow ? field.bottom() + 1 : field.top() - size.height();
    const int left = std::min(field.left(), screen.right() + 1 - size.width());
    return {std::max(left, screen.left()), std::max(top, screen.top())};
}

}  // namespace

CalendarPopup::CalendarPopup(const Application& application, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_calendar(new QCalendarWidget(this)) {
    setFrameShape(QFrame::StyledPanel);
    m_calendar->setLocale(application.conventions.locale);
    m_calendar->setFirstDayOfWeek(application.conventions.locale.firstDayOfWeek());
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setDateEditEnabled(false);
    for (QWidget* const part : m_calendar->findChildren<QWidget*>())
        part->installEventFilter(this);

    auto* const today = new QPushButton(application.Translate(QStringLiteral("Today")), this);
    today->setAutoDefault(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_calendar);
    layout->addWidget(today);

    connect(m_calendar, &QCalendarWidget::clicked, this, [this](QDate date) { Pick(date); });
    connect(m_calendar, &QCalendarWidget::activated, this, [this](QDate date) { Pick(date); });
    connect(today, &QPushButton::clicked, this, [this] { Pick(Today ? Today() : QDate::currentDate()); });
}

void CalendarPopup::ColourWeekends() {
    const bool isDark = palette().color(QPalette::Base).lightness() < kDark;
    QTextCharFormat weekend;
    weekend.setForeground(isDark ? QColor(255, 140, 130) : QColor(192, 0, 0));
    const QList<Qt::DayOfWeek> working = m_calendar->locale().weekdays();
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
        const auto name = static_cast<Qt::DayOfWeek>(day);
        m_calendar->setWeekdayTextFormat(name, working.contains(name) ? QTextCharFormat() : weekend);
    }
}

void CalendarPopup::OpenAt(const QRect& field, QDate date) {
    ColourWeekends();
    m_calendar->setSelectedDate(date);
    m_calendar->setCurrentPage(date.year(), date.month());
    const auto place = [&] {
        adjustSize();
        move(CornerOf(field, size(), parentWidget()->screen()->availableGeometry()));
    };
    place();
    show();
    place();  // its parts know their size only now
    m_calendar->setFocus(Qt::PopupFocusReason);
}

// Double clicks come after the click that has closed the calendar.
void CalendarPopup::Pick(QDate date) {
    if (!isVisible()) return;
    if (Picked) Picked(date);
    close();
}

void CalendarPopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (Closed) Closed();
}

void CalendarPopup::keyPressEvent(QKeyEvent* event) {
    if (!ClosesCalendar(*event)) return QFrame::keyPressEvent(event);
    event->accept();
    close();
}

bool CalendarPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !ClosesCalendar(*static_cast<QKeyEvent*>(event)))
        return QFrame::eventFilter(watched, event);
    close();
    return true;
}

}  // namespace sheetwright
