#include "ui/element_accessibility.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_view_layout.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "ui/element_places.h"
#include "ui/event_boundary.h"
#include "ui/page_view.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kChecked = 1;

}  // namespace

ElementAccessibility::ElementAccessibility(PageView& view, ElementRef element)
    : m_view(&view), m_element(element), m_record(RecordOf(*view.Document().page, element)) {}

// None as soon as the view begins to go.
PageView* ElementAccessibility::View() const {
    return dynamic_cast<PageView*>(m_view.data());
}

frmSheetwright& ElementAccessibility::Document() const {
    return View()->Document();
}

bool ElementAccessibility::isValid() const {
    const std::shared_ptr<const PropertyBag> record = m_record.lock();
    if (!record || !View()) return false;
    const Page& page = *Document().page;
    return IsOnPage(page, m_element) && RecordOf(page, m_element) == record;
}

QWindow* ElementAccessibility::window() const {
    return View() ? View()->window()->windowHandle() : nullptr;
}

QAccessibleInterface* ElementAccessibility::parent() const {
    return View() ? QAccessible::queryAccessibleInterface(View()) : nullptr;
}

bool ElementAccessibility::IsEdited() const {
    const Page& page = *Document().page;
    return page.isEntryVisible && page.CurrentEntry == m_element;
}

bool ElementAccessibility::IsReadOnly() const {
    const frmSheetwright& document = Document();
    if (IsLocked(document)) return true;
    bool isReadOnly = false;
    Ignoring([&] { isReadOnly = FieldRecord(document.application, *m_record.lock()).ReadOnly(); });
    return isReadOnly;
}

QString ElementAccessibility::Name() const {
    const RecordView record(Document().application, *m_record.lock());
    const QString caption = IsKind(ElementKind::Check) ? record.TextOr(u"Caption", {}) : QString();
    return caption.isEmpty() ? record.TextOr(u"Name", {}) : caption;
}

QString ElementAccessibility::Value() const {
    Page& page = *Document().page;
    if (const FieldElement* const field = FieldOf(page, m_element)) return field->control->Value();
    return IsEdited() ? page.Entry.Value() : page.Entries.At(m_element.number).text;
}

int ElementAccessibility::CheckState() const {
    return IsKind(ElementKind::Check) ? Document().page->Checks.At(m_element.number).control->chkBox().Value()
                                      : 0;
}

QString ElementAccessibility::StateWord() const {
    const Application& application = Document().application;
    switch (CheckState()) {
        case 0:
            return application.Translate(QStringLiteral("Not checked"));
        case kChecked:
            return application.Translate(QStringLiteral("Checked"));
        case 2:
            return application.Translate(QStringLiteral("Not applicable"));
        default:
            return application.Translate(QStringLiteral("Unknown"));
    }
}

QString ElementAccessibility::text(QAccessible::Text kind) const {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) return Name();
    if (kind == QAccessible::Value) return Value();
    return kind == QAccessible::Description && IsKind(ElementKind::Check) ? StateWord() : QString();
}

void ElementAccessibility::setText(QAccessible::Text kind, const QString& text) {
    if (kind == QAccessible::Value) TakeValue(text);
}

QRect ElementAccessibility::rect() const {
    if (!isValid()) return {};
    const QRect inView = View()->OnScreen(PlaceOf(*Document().page, m_element)).toAlignedRect();
    return {View()->mapToGlobal(inView.topLeft()), inView.size()};
}

QAccessible::Role ElementAccessibility::role() const {
    if (IsKind(ElementKind::Check)) return QAccessible::CheckBox;
    if (IsKind(ElementKind::Bitmap)) return QAccessible::Graphic;
    return isValid() && IsReadOnly() ? QAccessible::StaticText : QAccessible::EditableText;
}

QAccessible::State ElementAccessibility::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    const Page& page = *Document().page;
    const bool isText = IsKind(ElementKind::Entry);
    state.readOnly = IsReadOnly();
    state.editable = isText && !state.readOnly;
    state.focusable = !state.readOnly && CanBeEntered(Document(), m_element);
    state.focused = page.CurrentEntry == m_element;
    state.invisible = !View()->isVisible() || !IsVisible(page, m_element);
    state.offscreen = !QRectF(View()->rect()).intersects(View()->OnScreen(PlaceOf(page, m_element)));
    state.multiLine = isText && page.Entries.At(m_element.number).wraps;
    state.checkable = IsKind(ElementKind::Check);
    state.checked = CheckState() == kChecked;
    state.checkStateMixed = CheckState() > kChecked;
    return state;
}

void* ElementAccessibility::interface_cast(QAccessible::InterfaceType type) {
    const bool isText = IsKind(ElementKind::Entry);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::TextInterface && isText) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface && isText && isValid() && !IsReadOnly())
        return static_cast<QAccessibleEditableTextInterface*>(this);
    if (type == QAccessible::ValueInterface && IsKind(ElementKind::Check))
        return static_cast<QAccessibleValueInterface*>(this);
    return nullptr;
}

QStringList ElementAccessibility::actionNames() const {
    if (!isValid() || IsReadOnly()) return {};
    QStringList names;
    if (IsKind(ElementKind::Check)) names << toggleAction();
    if (IsKind(ElementKind::Bitmap)) names << pressAction();
    return names << setFocusAction();
}

void ElementAccessibility::doAction(const QString& name) {
    if (!actionNames().contains(name)) return;
    Act([&] { name == setFocusAction() ? Focus() : Work(); });
}

// A screen reader's request comes at any time, also while the page is being built.
void ElementAccessibility::Act(const std::function<void()>& step) {
    if (!Document().application.mainWindow->IsEnabled()) return;
    Guarded(Document(), QStringLiteral("Accessibility"), step);
}

void ElementAccessibility::Focus() {
    frmSheetwright& document = Document();
    if (IsKind(ElementKind::Entry)) {
        Entries_GotFocus(document, m_element.number);
    } else {
        FocusField(document, m_element);
    }
    AutoScroll(document);
}

void ElementAccessibility::Work() {
    if (IsKind(ElementKind::Check)) return Checks_Click(Document(), m_element.number);
    Bitmaps_DblClick(Document(), m_element.number);
}

QString ElementAccessibility::text(int start, int end) const {
    if (!isValid()) return {};
    return Value().mid(start, std::max(0, end - start));
}

int ElementAccessibility::characterCount() const {
    return isValid() ? static_cast<int>(Value().size()) : 0;
}

QString ElementAccessibility::attributes(int, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void ElementAccessibility::replaceText(int start, int end, const QString& text) {
    if (!isValid()) return;
    const QString value = Value();
    const qsizetype from = std::clamp<qsizetype>(start, 0, value.size());
    const qsizetype to = std::clamp<qsizetype>(end, from, value.size());
    TakeValue(value.first(from) + text + value.sliced(to));
}

void ElementAccessibility::TakeValue(const QString& text) {
    if (!isValid() || !IsKind(ElementKind::Entry) || IsReadOnly()) return;
    frmSheetwright& document = Document();
    Act([&] {
        if (IsEdited()) return document.page->Entry.SetValue(text);
        const QString mask = RecordView(document.application, *m_record.lock()).TextOr(u"Format", {});
        TakeText(document, m_element, text, mask);
    });
}

QVariant ElementAccessibility::currentValue() const {
    return isValid() ? CheckState() : QVariant();
}

QVariant ElementAccessibility::maximumValue() const {
    if (!isValid() || !IsKind(ElementKind::Check)) return {};
    return Document().page->Checks.At(m_element.number).control->States() - 1;
}

// As a person would: from state to state.
void ElementAccessibility::setCurrentValue(const QVariant& value) {
    const int state = value.toInt();
    if (!isValid() || IsReadOnly() || state < 0 || state > maximumValue().toInt()) return;
    for (int clicks = maximumValue().toInt(); clicks > 0 && isValid() && CheckState() != state; --clicks)
        Act([this] { Work(); });
}

}  // namespace sheetwright
