#pragma once

// A request to end the program closes the dialog that is open, but it ends nothing while a command is under
// way. It is made again when the program is idle.

#include <QObject>

#include <functional>

namespace sheetwright {

class LateQuit : public QObject {
  public:
    // `mayQuit` tells whether the window can close now. What a person is asked then is no matter of this.
    LateQuit(QObject& window, std::function<bool()> mayQuit);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    void QuitIfAsked();

    std::function<bool()> m_mayQuit;
    bool m_isAsked = false;
};

}  // namespace sheetwright
