#pragma once

// The calendar that opens below a date.

#include <QDate>
#include <QFrame>

#include <functional>

class QCalendarWidget;

namespace sheetwright {

class Application;

class CalendarPopup : public QFrame {
  public:
    CalendarPopup(const Application& application, QWidget* parent);

    // Below `field` (in the screen's coordinates), above it where there is no room below.
    void OpenAt(const QRect& field, QDate date);

    std::function<void(QDate)> Picked;  // the calendar is still open
    std::function<void()> Closed;       // whatever closed it
    std::function<QDate()> Today;

  protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Pick(QDate date);
    void ColourWeekends();

    QCalendarWidget* m_calendar;
};

}  // namespace sheetwright
