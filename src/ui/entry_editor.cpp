#include "ui/entry_editor.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "ui/date_editor.h"
#include "ui/event_boundary.h"
#include "ui/key_events.h"
#include "ui/list_editor.h"
#include "ui/text_editors.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <iterator>

namespace sheetwright {

namespace {

constexpr int kFrameWidth = 2;     // pixels
constexpr int kNarrowest = 12;     // pixels
constexpr int kWidestBeside = 14;  // pixels of an arrow that covers another field

// The visible focus around the field.
class EditorFrame : public QWidget {
  public:
    explicit EditorFrame(QWidget* parent) : QWidget(parent) { setCursor(Qt::ArrowCursor); }

    void SetBase(const QColor& base) {
        m_base = base;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Highlight));
        painter.fillRect(rect().adjusted(kFrameWidth, kFrameWidth, -kFrameWidth, -kFrameWidth), m_base);
    }
    // The form has seen the key already; commands go on to the page and the frame.
    void keyPressEvent(QKeyEvent* event) override {
        event->setAccepted(!event->modifiers().testFlag(Qt::ControlModifier));
    }
    void keyReleaseEvent(QKeyEvent* event) override { event->accept(); }
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }

  private:
    QColor m_base;
};

enum EditorKind { kLine, kLines, kList, kDate, kKinds };

EditorKind KindOf(const usrEntry& entry) {
    switch (entry.FieldType()) {
        case field_type::kText:
            return entry.WordWrap() ? kLines : kLine;
        case field_type::kCombo:
            return kList;
        case field_type::kDate:
            return kDate;
        default:
            return kKinds;
    }
}

bool IsPageKey(const QKeyEvent& key) {
    return key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
}

bool IsTab(const QKeyEvent& key) {
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return isTab && !key.modifiers().testFlag(Qt::ControlModifier);
}

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

// Keys with which a composition is worked.
bool WorksComposition(const QKeyEvent& key) {
    return IsTab(key) || IsEnter(key) || key.key() == Qt::Key_Escape;
}

// Keys that the editor needs although they may be shortcuts of the frame; its widgets claim those of editing.
bool IsOwnKey(const QKeyEvent& key) {
    constexpr int kOwn[] = {Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Up,   Qt::Key_Down,
                            Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Home,   Qt::Key_End,  Qt::Key_PageUp,
                            Qt::Key_F4,     Qt::Key_PageDown,  Qt::Key_Return, Qt::Key_Enter};
    if (IsTab(key)) return true;
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier & ~Qt::ShiftModifier;
    if (modifiers == Qt::ControlModifier)
        return IsEnter(key) || key.key() == Qt::Key_Y || key.key() == Qt::Key_Z;
    if (modifiers == Qt::AltModifier) return key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
    return modifiers == Qt::NoModifier &&
           std::find(std::begin(kOwn), std::end(kOwn), key.key()) != std::end(kOwn);
}

}  // namespace

class EntryEditor::Impl : public QObject {
  public:
    Impl(frmSheetwright& document, QWidget& parent) : m_document(document), m_parent(&parent) {}
    ~Impl() override;

    void Show(const QRectF& place, double pixelsPerTwip);
    void Move(const QRectF& place, double pixelsPerTwip);
    void Hide();
    void Commit() const;
    [[nodiscard]] QWidget* FocusWidget() const { return m_current ? &m_current->FocusTarget() : nullptr; }

    void PropertyChanged(QStringView property);
    void OpenCalendar();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] FieldEditor& EditorOf(EditorKind kind);
    [[nodiscard]] std::unique_ptr<FieldEditor> Make(EditorKind kind);
    void Load();
    void Arrange();
    [[nodiscard]] QRect WithArrow(QRect field, EditorLook& look) const;
    void ShowAgain(const QRectF& place, double pixelsPerTwip);
    void TakeFocusAway();
    void ShowWidget();
    [[nodiscard]] bool Press(const QKeyEvent& key);
    [[nodiscard]] bool SendPress(const QKeyEvent& key);
    [[nodiscard]] bool Release(const QKeyEvent& key);
    [[nodiscard]] bool TakeInPopup(QEvent& event);
    [[nodiscard]] bool TakeInEditor(QEvent& event);
    [[nodiscard]] usrEntry& Entry() const { return m_document.page->Entry; }

    frmSheetwright& m_document;
    QPointer<QWidget> m_parent;
    QPointer<EditorFrame> m_frame;
    std::array<std::unique_ptr<FieldEditor>, kKinds> m_editors;
    FieldEditor* m_current = nullptr;
    QRectF m_place;
    double m_pixelsPerTwip = 0;
    bool m_isLoading = false;
    bool m_isComposing = false;
    int m_turns = 0;  // how often it was shown or hidden
};

EntryEditor::Impl::~Impl() {
    m_current = nullptr;
    delete m_frame.data();
}

FieldEditor& EntryEditor::Impl::EditorOf(EditorKind kind) {
    if (!m_frame) m_frame = new EditorFrame(m_parent);
    std::unique_ptr<FieldEditor>& editor = m_editors[kind];
    if (!editor) {
        editor = Make(kind);
        editor->FocusTarget().installEventFilter(this);
        if (QWidget* const popup = editor->PopupKeys()) popup->installEventFilter(this);
    }
    return *editor;
}

std::unique_ptr<FieldEditor> EntryEditor::Impl::Make(EditorKind kind) {
    const ReportStep report = [this](const std::function<void()>& step) {
        if (m_current && !m_isLoading) Guarded(m_document, QStringLiteral("Entry"), step);
    };
    if (kind == kLine) return std::make_unique<LineEditor>(Entry(), *m_frame, report);
    if (kind == kLines) return std::make_unique<LinesEditor>(Entry(), *m_frame, report);
    if (kind == kList) return std::make_unique<ListEditor>(Entry(), *m_frame, report);
    return std::make_unique<DateEditor>(m_document.application, Entry(), *m_frame, report);
}

void EntryEditor::Impl::Show(const QRectF& place, double pixelsPerTwip) {
    const EditorKind kind = KindOf(Entry());
    if (kind == kKinds || !m_parent) return Hide();
    FieldEditor& editor = EditorOf(kind);
    if (m_current == &editor) return ShowAgain(place, pixelsPerTwip);
    Hide();
    ++m_turns;
    m_current = &editor;
    m_place = place;
    m_pixelsPerTwip = pixelsPerTwip;
    Load();
    ShowWidget();
    m_current->SelectAll();
}

// The field that is being edited: nothing that was typed is lost, and it can still be undone.
void EntryEditor::Impl::ShowAgain(const QRectF& place, double pixelsPerTwip) {
    Move(place, pixelsPerTwip);
    m_current->TakeText(Entry().Value());
    m_current->FocusTarget().setFocus(Qt::OtherFocusReason);
}

void EntryEditor::Impl::Load() {
    if (m_isComposing) QGuiApplication::inputMethod()->reset();
    m_isComposing = false;
    m_isLoading = true;
    m_current->ClosePopups();
    m_current->Load(Entry());
    m_isLoading = false;
    Arrange();
}

void EntryEditor::Impl::ShowWidget() {
    for (const std::unique_ptr<FieldEditor>& editor : m_editors)
        if (editor) editor->Widget().setVisible(editor.get() == m_current);
    m_frame->show();
    m_frame->raise();
    m_current->FocusTarget().setFocus(Qt::OtherFocusReason);
}

void EntryEditor::Impl::Arrange() {
    m_isLoading = true;
    QRect inside = m_place.toRect();
    EditorLook look = LookOfEntry(m_document, *m_parent, m_pixelsPerTwip);
    const int narrowest = qRound(m_current->NarrowestTwips() * m_pixelsPerTwip);
    inside.setWidth(std::max({inside.width(), narrowest, kNarrowest}) + look.overhang);
    inside.setHeight(std::max(inside.height(), look.height));
    if (m_current->HasArrow()) inside = WithArrow(inside, look);
    m_frame->setGeometry(inside.adjusted(-kFrameWidth, -kFrameWidth, kFrameWidth, kFrameWidth));
    m_frame->SetBase(look.base);
    m_current->Widget().setGeometry(QRect(QPoint(kFrameWidth, kFrameWidth), inside.size()));
    m_current->Dress(look);
    m_isLoading = false;
}

// Inside the field, where it would push a text aside that doesn't stand on the left, only if there is no room
// beside it.
QRect EntryEditor::Impl::WithArrow(QRect field, EditorLook& look) const {
    look.arrow = ArrowWidth(field.size());
    const int beside = std::min(look.arrow, kWidestBeside);
    const bool hasRoom = field.right() + beside + kFrameWidth < m_parent->width();
    if (look.alignment == Qt::AlignLeft || !hasRoom) return field;
    look.arrow = beside;
    return field.adjusted(0, 0, beside, 0);
}

void EntryEditor::Impl::Move(const QRectF& place, double pixelsPerTwip) {
    if (!m_current) return;
    m_place = place;
    m_pixelsPerTwip = pixelsPerTwip;
    Arrange();
    QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
}

void EntryEditor::Impl::Hide() {
    if (!m_current) return;
    ++m_turns;
    FieldEditor& editor = *m_current;
    m_isLoading = true;
    editor.ClosePopups();
    m_isLoading = false;
    TakeFocusAway();
    m_current = nullptr;
    m_isComposing = false;
    m_frame->hide();
}

// Hidden with the focus, a widget hands it to the next one in the whole window.
void EntryEditor::Impl::TakeFocusAway() {
    const QWidget* const focus = m_parent->window()->focusWidget();
    if (!focus || !m_frame->isAncestorOf(focus)) return;
    m_isLoading = true;
    m_parent->setFocus(Qt::OtherFocusReason);
    m_isLoading = false;
}

void EntryEditor::Impl::Commit() const {
    if (m_current && m_isComposing) QGuiApplication::inputMethod()->commit();
}

void EntryEditor::Impl::PropertyChanged(QStringView property) {
    if (!m_current || m_isLoading) return;
    if (property == u"Value") m_current->TakeText(Entry().Value());
    if (property == u"Font" || property == u"ForeColor" || property == u"BackColor" ||
        property == u"Alignment")
        Arrange();
}

void EntryEditor::Impl::OpenCalendar() {
    if (m_current) m_current->OpenCalendar();
}

bool EntryEditor::Impl::eventFilter(QObject* watched, QEvent* event) {
    if (!m_current) return false;
    if (watched == m_current->PopupKeys()) return TakeInPopup(*event);
    return watched == &m_current->FocusTarget() && TakeInEditor(*event);
}

bool EntryEditor::Impl::TakeInEditor(QEvent& event) {
    switch (event.type()) {
        case QEvent::ShortcutOverride:
            if (!IsOwnKey(static_cast<QKeyEvent&>(event))) return false;
            event.accept();
            return true;
        case QEvent::KeyPress:
            return Press(static_cast<QKeyEvent&>(event));
        case QEvent::KeyRelease:
            return Release(static_cast<QKeyEvent&>(event));
        case QEvent::InputMethod:
            m_isComposing = !static_cast<QInputMethodEvent&>(event).preeditString().isEmpty();
            return false;
        case QEvent::FocusOut:
            m_isComposing = false;
            return false;
        default:
            return false;
    }
}

// The page keys turn the form's pages, also over an open list; Tab takes the item and goes on.
bool EntryEditor::Impl::TakeInPopup(QEvent& event) {
    const bool isPress = event.type() == QEvent::KeyPress;
    if (!isPress && event.type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<QKeyEvent&>(event);
    if (IsPageKey(key)) {
        if (isPress || key.isAutoRepeat()) return true;
        m_current->ClosePopups();
        return Release(key);
    }
    if (!isPress || !IsTab(key)) return false;
    m_current->ChooseInPopup();
    return Press(key);
}

bool EntryEditor::Impl::Press(const QKeyEvent& key) {
    if (!m_document.application.mainWindow->IsEnabled()) return true;
    if (m_isComposing) return WorksComposition(key);
    const int turns = m_turns;
    const bool isTaken = SendPress(key);
    if (isTaken || m_turns != turns || !m_current) return true;
    return m_current->Press(key) || IsTab(key);
}

bool EntryEditor::Impl::SendPress(const QKeyEvent& key) {
    bool isTaken = false;
    const ElementRef current{ElementKind::Entry, m_document.page->CurrentEntry.number};
    const bool isDone = Guarded(m_document, QStringLiteral("Entry_KeyDown"),
                                [&] { isTaken = SendKeyPress(m_document, key, current); });
    return isTaken || !isDone;
}

bool EntryEditor::Impl::Release(const QKeyEvent& key) {
    bool isTaken = false;
    const bool isDone =
        Guarded(m_document, QStringLiteral("Form_KeyUp"), [&] { isTaken = SendKeyRelease(m_document, key); });
    return isTaken || !isDone;
}

EntryEditor::EntryEditor(frmSheetwright& document, QWidget& parent)
    : m_impl(std::make_shared<Impl>(document, parent)) {
    const std::weak_ptr<Impl> editor = m_impl;
    usrEntry& entry = document.page->Entry;
    entry.OpenCalendar = [editor] {
        if (const std::shared_ptr<Impl> impl = editor.lock()) impl->OpenCalendar();
    };
    entry.PropertyChanged = [editor](QStringView property) {
        if (const std::shared_ptr<Impl> impl = editor.lock()) impl->PropertyChanged(property);
    };
}

EntryEditor::~EntryEditor() = default;

void EntryEditor::Show(const QRectF& place, double pixelsPerTwip) {
    m_impl->Show(place, pixelsPerTwip);
}

void EntryEditor::Move(const QRectF& place, double pixelsPerTwip) {
    m_impl->Move(place, pixelsPerTwip);
}

void EntryEditor::Hide() {
    m_impl->Hide();
}

void EntryEditor::Commit() {
    m_impl->Commit();
}

bool EntryEditor::IsShown() const {
    return m_impl->FocusWidget() != nullptr;
}

QWidget* EntryEditor::FocusWidget() const {
    return m_impl->FocusWidget();
}

}  // namespace sheetwright
