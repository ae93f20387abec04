#include "ui/page_accessibility.h"

#include "document/document.h"
#include "document/page.h"
#include "fields/editing_elements.h"
#include "ui/element_accessibility.h"
#include "ui/element_places.h"
#include "ui/entry_editor.h"
#include "ui/page_view.h"

#include <QAccessibleWidget>
#include <QHash>

#include <memory>
#include <utility>
#include <vector>

namespace sheetwright {

namespace {

using ElementKey = std::pair<int, int>;

ElementKey KeyOf(ElementRef element) {
    return {static_cast<int>(element.kind), element.number};
}

// The elements in tab order, then those without a place in it.
class ElementOrder {
  public:
    explicit ElementOrder(const Page& page) {
        for (const auto& stop : page.TabOrders.Entries())
            Add(page, ElementOf(*stop.item));
        for (const ElementKind kind : {ElementKind::Entry, ElementKind::Check, ElementKind::Bitmap})
            for (int number = 1; number <= CountOf(page, kind); ++number)
                Add(page, {kind, number});
    }

    [[nodiscard]] int Count() const { return static_cast<int>(m_elements.size()); }
    [[nodiscard]] ElementRef At(int index) const { return m_elements[static_cast<std::size_t>(index)]; }
    [[nodiscard]] int IndexOf(ElementRef element) const { return m_indexes.value(KeyOf(element), -1); }

  private:
    void Add(const Page& page, ElementRef element) {
        if (!IsOnPage(page, element) || m_indexes.contains(KeyOf(element))) return;
        m_indexes.insert(KeyOf(element), Count());
        m_elements.push_back(element);
    }

    std::vector<ElementRef> m_elements;
    QHash<ElementKey, int> m_indexes;
};

// What shows that the page was built anew without a word of it.
struct Building {
    explicit Building(const Page& page)
        : entries(page.Entries.Count()), checks(page.Checks.Count()), bitmaps(page.Bitmaps.Count()) {
        for (const ElementBags* const bags :
             {&page.FieldProperties, &page.CheckProperties, &page.BitmapProperties})
            if (!first && !bags->empty()) first = bags->front();
    }
    bool operator==(const Building&) const = default;

    int entries;
    int checks;
    int bitmaps;
    std::shared_ptr<PropertyBag> first;
};

class PageAccessibility : public QAccessibleWidget {
  public:
    explicit PageAccessibility(PageView& view) : QAccessibleWidget(&view, QAccessible::Document) {}
    ~PageAccessibility() override { DropElements(); }

    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    [[nodiscard]] QAccessibleInterface* Element(ElementRef element) const;
    // The elements are asked for anew.
    void Drop() const;
    // Whether the element's value is another than the one that was told last.
    [[nodiscard]] bool HasNews(ElementRef element, const QString& value) const;

  private:
    [[nodiscard]] PageView* View() const { return dynamic_cast<PageView*>(object()); }
    [[nodiscard]] const ElementOrder* Order() const;
    [[nodiscard]] QWidget* EditorWidget() const;
    void DropElements() const;

    mutable std::unique_ptr<ElementOrder> m_order;
    mutable std::unique_ptr<Building> m_building;
    mutable QHash<ElementKey, QAccessible::Id> m_elements;
    mutable QHash<ElementKey, QString> m_told;
};

void PageAccessibility::DropElements() const {
    for (const QAccessible::Id id : std::exchange(m_elements, {}))
        QAccessible::deleteAccessibleInterface(id);
}

void PageAccessibility::Drop() const {
    DropElements();
    m_told.clear();
    m_order.reset();
    m_building.reset();
}

// None once the view has begun to go.
const ElementOrder* PageAccessibility::Order() const {
    PageView* const view = View();
    if (!view) return nullptr;
    const Page& page = *view->Document().page;
    if (!m_building || !(*m_building == Building(page))) {
        Drop();
        m_building = std::make_unique<Building>(page);
        m_order = std::make_unique<ElementOrder>(page);
    }
    return m_order.get();
}

// That lies directly in the view.
QWidget* PageAccessibility::EditorWidget() const {
    QWidget* widget = View() ? View()->Editor().FocusWidget() : nullptr;
    while (widget && widget->parentWidget() != View())
        widget = widget->parentWidget();
    return widget;
}

QAccessibleInterface* PageAccessibility::Element(ElementRef element) const {
    const ElementOrder* const order = Order();
    if (!order || order->IndexOf(element) < 0) return nullptr;
    const auto known = m_elements.constFind(KeyOf(element));
    if (known != m_elements.constEnd()) return QAccessible::accessibleInterface(*known);
    auto* const made = new ElementAccessibility(*View(), element);  // the cache of all interfaces owns it
    m_elements.insert(KeyOf(element), QAccessible::registerAccessibleInterface(made));
    return made;
}

int PageAccessibility::childCount() const {
    const ElementOrder* const order = Order();
    return order ? order->Count() + (EditorWidget() ? 1 : 0) : 0;
}

QAccessibleInterface* PageAccessibility::child(int index) const {
    const ElementOrder* const order = Order();
    if (!order || index < 0) return nullptr;
    if (index < order->Count()) return Element(order->At(index));
    QWidget* const editor = EditorWidget();
    return editor && index == order->Count() ? QAccessible::queryAccessibleInterface(editor) : nullptr;
}

int PageAccessibility::indexOfChild(const QAccessibleInterface* child) const {
    const ElementOrder* const order = Order();
    if (!order || !child) return -1;
    if (const auto* const element = dynamic_cast<const ElementAccessibility*>(child))
        return element->isValid() ? order->IndexOf(element->Element()) : -1;
    return child->object() && child->object() == EditorWidget() ? order->Count() : -1;
}

QAccessibleInterface* PageAccessibility::childAt(int x, int y) const {
    PageView* const view = View();
    if (!view) return nullptr;
    return Element(view->ElementAt(view->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* PageAccessibility::focusChild() const {
    PageView* const view = View();
    if (!view) return nullptr;
    QWidget* const editor = view->Editor().FocusWidget();
    if (editor && editor->hasFocus()) return QAccessible::queryAccessibleInterface(editor);
    return Element(view->Document().page->CurrentEntry);
}

QString PageAccessibility::text(QAccessible::Text kind) const {
    PageView* const view = View();
    return view && kind == QAccessible::Name ? view->Document().Caption : QAccessibleWidget::text(kind);
}

bool PageAccessibility::HasNews(ElementRef element, const QString& value) const {
    const auto told = m_told.constFind(KeyOf(element));
    if (told != m_told.constEnd() && *told == value) return false;
    m_told.insert(KeyOf(element), value);
    return true;
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* const view = dynamic_cast<PageView*>(object);
    return view ? new PageAccessibility(*view) : nullptr;  // the cache of all interfaces owns it
}

PageAccessibility* InterfaceOf(PageView& view, AccessibilityTeller tell) {
    const bool isHeard = tell != &QAccessible::updateAccessibility || QAccessible::isActive();
    return isHeard ? dynamic_cast<PageAccessibility*>(QAccessible::queryAccessibleInterface(&view)) : nullptr;
}

}  // namespace

void RegisterPageAccessibility() {
    QAccessible::installFactory(&MakeInterface);
}

void AccessibilityFocusChanged(PageView& view, ElementRef element, AccessibilityTeller tell) {
    const PageAccessibility* const page = InterfaceOf(view, tell);
    if (!page) return;
    QWidget* const editor = element.kind == ElementKind::Entry ? view.Editor().FocusWidget() : nullptr;
    QAccessibleInterface* const focus =
        editor ? QAccessible::queryAccessibleInterface(editor) : page->Element(element);
    QAccessibleEvent event(focus ? focus : QAccessible::queryAccessibleInterface(&view), QAccessible::Focus);
    tell(&event);
}

void AccessibilityValueChanged(PageView& view, ElementRef element, AccessibilityTeller tell) {
    const PageAccessibility* const page = InterfaceOf(view, tell);
    QAccessibleInterface* const changed = page ? page->Element(element) : nullptr;
    if (!changed) return;
    const QString value = changed->text(QAccessible::Value);
    if (!page->HasNews(element, value)) return;
    if (element.kind == ElementKind::Check) {
        QAccessible::State state;
        state.checked = true;
        state.checkStateMixed = true;
        QAccessibleStateChangeEvent event(changed, state);
        tell(&event);
    }
    QAccessibleValueChangeEvent event(changed, value);
    tell(&event);
}

void AccessibilityPageChanged(PageView& view, AccessibilityTeller tell) {
    const PageAccessibility* const page = InterfaceOf(view, tell);
    if (!page) return;
    page->Drop();
    QAccessibleEvent event(&view, QAccessible::ObjectReorder);
    tell(&event);
}

}  // namespace sheetwright
