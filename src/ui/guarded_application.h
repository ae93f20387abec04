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

    // Whether the whole program is asked to end, as at the end of a session: windows close then because of
    // that, not because of their close boxes.
    [[nodiscard]] static bool IsEnding();

  protected:
    bool event(QEvent* event) override;

  private:
    bool m_isEnding = false;
    bool m_isTelling = false;  // what fails meanwhile, such as painting the same page again, is not told
};

}  // namespace sheetwright
