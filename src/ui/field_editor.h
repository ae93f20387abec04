#pragma once

// One kind of the editor's widgets: what the editor asks of each.

#include "ui/editor_look.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QKeyEvent;

namespace sheetwright {

class usrEntry;

// What a widget tells the model, inside the boundary for failures; nothing while the model is being shown.
using ReportStep = std::function<void(const std::function<void()>& step)>;

class FieldEditor {
  public:
    FieldEditor() = default;
    FieldEditor(const FieldEditor&) = delete;
    FieldEditor& operator=(const FieldEditor&) = delete;
    virtual ~FieldEditor() = default;

    // Lies in the editor's frame, and takes the keys.
    [[nodiscard]] virtual QWidget& Widget() = 0;
    [[nodiscard]] virtual QWidget& FocusTarget() { return Widget(); }

    // The model's text and list, with nothing to undo.
    virtual void Load(const usrEntry& entry) = 0;
    // The model's text is another while it is being edited: undo leads back.
    virtual void TakeText(const QString& text) = 0;
    virtual void Dress(const EditorLook& look) = 0;
    virtual void SelectAll() = 0;
    // A key that neither form nor model has taken. True when the widget is not to see it.
    virtual bool Press(const QKeyEvent&) { return false; }
    virtual void ClosePopups() {}
    virtual void OpenCalendar() {}
    // That takes the keys while a list is open over the page; none where there is no such list.
    [[nodiscard]] virtual QWidget* PopupKeys() { return nullptr; }
    // Takes the item at which the open list stands, and closes it.
    virtual void ChooseInPopup() {}

    [[nodiscard]] virtual double NarrowestTwips() const { return 0; }
    [[nodiscard]] virtual bool HasArrow() const { return false; }
};

}  // namespace sheetwright
