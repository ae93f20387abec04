#pragma once

// One element of the page for screen readers. It outlives its element unharmed: then it is invalid and tells
// nothing.

#include "core/keyed_collection.h"
#include "document/design_records.h"
#include "document/element_array.h"

#include <QAccessible>
#include <QPointer>

#include <functional>
#include <memory>

namespace sheetwright {

class PageView;
class frmSheetwright;

class ElementAccessibility : public QAccessibleInterface,
                             public QAccessibleActionInterface,
                             public QAccessibleTextInterface,
                             public QAccessibleEditableTextInterface,
                             public QAccessibleValueInterface {
  public:
    ElementAccessibility(PageView& view, ElementRef element);

    [[nodiscard]] ElementRef Element() const { return m_element; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // A field that isn't edited has no cursor and nothing selected: the editor has.
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    [[nodiscard]] QString attributes(int, int* start, int* end) const override;

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override;

    // Of a check box: its state.
    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

  private:
    [[nodiscard]] PageView* View() const;
    // Of an element that is there.
    [[nodiscard]] frmSheetwright& Document() const;
    [[nodiscard]] bool IsKind(ElementKind kind) const { return m_element.kind == kind; }
    [[nodiscard]] bool IsEdited() const;
    [[nodiscard]] bool IsReadOnly() const;
    [[nodiscard]] QString Name() const;
    [[nodiscard]] QString Value() const;
    [[nodiscard]] QString StateWord() const;
    [[nodiscard]] int CheckState() const;
    void TakeValue(const QString& text);
    void Focus();
    void Work();
    void Act(const std::function<void()>& step);

    QPointer<QObject> m_view;
    ElementRef m_element;
    std::weak_ptr<const PropertyBag> m_record;
};

}  // namespace sheetwright
