#pragma once

// Keeps a window from being used for a while, without the flicker of a disabled one and without taking the
// keyboard focus away from whatever has it.

#include <QObject>

class QWidget;

namespace sheetwright {

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
