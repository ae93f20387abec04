#pragma once

// The last resort: what escapes from an event's handler ends that event, not the program.

#include <QApplication>

#include <functional>

namespace sheetwright {

class GuardedApplication : public QApplication {
  public:
    GuardedApplication(int& count, char** arguments) : QApplication(count, arguments) {}

    // Called while the exception is handled; `throw;` raises it anew.
    std::function<void()> Escaped;

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    bool m_isTelling = false;  // what fails meanwhile, such as painting the same page again, is not told
};

}  // namespace sheetwright
