#pragma once

// Keeps a window from being used for a while, without the flicker of a disabled one and without taking the
// keyboard focus away from whatever has it.

#include <QEvent>
#include <QObject>

class QWidget;

namespace sheetwright {

// Whether a person makes such events, or asks a window to close by them. The release of a mouse button is
// none: what the press began must come to its end.
[[nodiscard]] bool IsInput(QEvent::Type type);

class InputGate : public QObject {
  public:
    explicit InputGate(QWidget& window);

    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    // While it is closed no key, click, drop or close reaches the window or its menus; its dialogs work.
    void SetOpen(bool isOpen);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    [[nodiscard]] bool Guards(QObject* receiver) const;

    QWidget& m_window;
    bool m_isOpen = true;
};

}  // namespace sheetwright
