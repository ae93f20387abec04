#pragma once

// Escape, by which a person stops what takes long.

#include <QElapsedTimer>
#include <QObject>

namespace sheetwright {

class StopKey : public QObject {
  public:
    // What begins now has not been stopped.
    void Forget();

    // Whether Escape was pressed since. Looks at what was typed meanwhile, now and then only, and lets
    // windows be painted. Other keys, clicks and requests to close are lost: they were meant for the form as
    // it was before, or as it will be.
    [[nodiscard]] bool WasPressed();

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    void Look();

    QElapsedTimer m_sinceLook;
    bool m_isLooking = false;
    bool m_wasPressed = false;
};

}  // namespace sheetwright
