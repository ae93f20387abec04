#pragma once

// How often a widget was painted.

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace sheetwright {

class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    [[nodiscard]] int Count() const { return m_count; }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++m_count;
        return false;
    }

  private:
    int m_count = 0;
};

}  // namespace sheetwright
