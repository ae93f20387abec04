#include "ui/date_editor.h"

#include "core/application.h"
#include "fields/usr_entry.h"
#include "ui/calendar_popup.h"
#include "ui/single_line_edit.h"
#include "ui/text_editors.h"

#include <QKeyEvent>
#include <QToolButton>

#include <utility>

namespace sheetwright {

namespace {

bool OpensCalendar(const QKeyEvent& key) {
    if (key.key() == Qt::Key_F4) return key.modifiers() == Qt::NoModifier;
    return key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier);
}

}  // namespace

// The line and its arrow.
class DateEditor::Box : public QWidget {
  public:
    explicit Box(QWidget* parent)
        : QWidget(parent), line(new SingleLineEdit(this)), arrow(new QToolButton(this)) {
        setFocusProxy(line);
        arrow->setArrowType(Qt::DownArrow);
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setCursor(Qt::ArrowCursor);
    }

    void Dress(const EditorLook& look) {
        m_arrowWidth = look.arrow;
        line->Dress(look);
        Arrange();
    }

    SingleLineEdit* line;
    QToolButton* arrow;

  protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

  private:
    void Arrange() {
        line->setGeometry(0, 0, width() - m_arrowWidth, height());
        arrow->setGeometry(width() - m_arrowWidth, 0, m_arrowWidth, height());
    }

    int m_arrowWidth = 0;
};

DateEditor::DateEditor(const Application& application, usrEntry& entry, QWidget& frame, ReportStep report)
    : m_application(application), m_entry(entry), m_report(std::move(report)), m_box(new Box(&frame)) {
    m_box->arrow->setAccessibleName(application.Translate(QStringLiteral("Open the calendar")));
    ConnectLine(entry, *m_box->line, m_report);
    QObject::connect(m_box->arrow, &QToolButton::clicked, m_box, [this] { DropDown(); });
}

DateEditor::~DateEditor() {
    if (m_calendar) m_calendar->Closed = nullptr;
}

QWidget& DateEditor::Widget() {
    return *m_box;
}

QWidget& DateEditor::FocusTarget() {
    return *m_box->line;
}

void DateEditor::Load(const usrEntry& entry) {
    m_box->line->setText(entry.Value());
    m_box->line->setAccessibleName(entry.design.Idx);
}

void DateEditor::TakeText(const QString& text) {
    m_box->line->ReplaceText(text);
}

void DateEditor::Dress(const EditorLook& look) {
    m_box->Dress(look);
}

void DateEditor::SelectAll() {
    m_box->line->SelectFromEnd();
}

bool DateEditor::Press(const QKeyEvent& key) {
    if (!OpensCalendar(key)) return PressInLine(*m_box->line, key);
    DropDown();
    return true;
}

void DateEditor::ClosePopups() {
    if (m_calendar) m_calendar->close();
}

// The model opens the calendar once its picker has the date.
void DateEditor::DropDown() {
    m_report([this] { m_entry.ReportDropDown(); });
}

CalendarPopup& DateEditor::Calendar() {
    if (!m_calendar) {
        m_calendar = new CalendarPopup(m_application, m_box);
        m_calendar->Picked = [this](QDate date) { m_report([this, date] { m_entry.ReportDate(date); }); };
        m_calendar->Closed = [this] { CalendarClosed(); };
        m_calendar->Today = [this] { return m_entry.Today(); };
    }
    return *m_calendar;
}

void DateEditor::OpenCalendar() {
    const QRect field(m_box->mapToGlobal(QPoint(0, 0)), m_box->size());
    Calendar().OpenAt(field, m_entry.dtpDate().Value());
}

void DateEditor::CalendarClosed() {
    m_report([this] {
        m_entry.ReportCalendarClosed();
        m_box->line->ReplaceText(m_entry.Value());
    });
    SelectAll();
}

double DateEditor::NarrowestTwips() const {
    return usrEntry::kNarrowestList;
}

}  // namespace sheetwright
