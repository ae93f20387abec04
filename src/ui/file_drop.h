#pragma once

// Files dropped anywhere on a window.

#include <QObject>
#include <QStringList>

#include <functional>

class QMimeData;
class QWidget;

namespace sheetwright {

// The paths of the files on this machine; none for anything else that is dragged.
[[nodiscard]] QStringList DroppedFiles(const QMimeData& data);

class FileDrop : public QObject {
  public:
    // `dropped` is called with the paths when the drop is over: the program from which they come doesn't
    // wait.
    FileDrop(QWidget& window, std::function<void(const QStringList& paths)> dropped);

  protected:
    // Before the widgets of the window, some of which would take the files for text.
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    [[nodiscard]] bool IsInWindow(QObject* receiver) const;

    QWidget& m_window;
    std::function<void(const QStringList&)> m_dropped;
};

}  // namespace sheetwright
