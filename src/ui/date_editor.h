#pragma once

// The editor of a date: a line of text with an arrow that opens a calendar.

#include "ui/field_editor.h"

class QToolButton;

namespace sheetwright {

class Application;
class CalendarPopup;
class SingleLineEdit;

class DateEditor : public FieldEditor {
  public:
    DateEditor(const Application& application, usrEntry& entry, QWidget& frame, ReportStep report);
    ~DateEditor() override;

    [[nodiscard]] QWidget& Widget() override;
    [[nodiscard]] QWidget& FocusTarget() override;
    void Load(const usrEntry& entry) override;
    void TakeText(const QString& text) override;
    void Dress(const EditorLook& look) override;
    void SelectAll() override;
    bool Press(const QKeyEvent& key) override;
    void ClosePopups() override;
    void OpenCalendar() override;
    [[nodiscard]] double NarrowestTwips() const override;
    [[nodiscard]] bool HasArrow() const override { return true; }

  private:
    class Box;

    void DropDown();
    void CalendarClosed();
    [[nodiscard]] CalendarPopup& Calendar();

    const Application& m_application;
    usrEntry& m_entry;
    ReportStep m_report;
    Box* m_box;  // the frame's
    QPointer<CalendarPopup> m_calendar;
};

}  // namespace sheetwright
