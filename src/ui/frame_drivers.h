#pragma once

// The buttons of the tool bar that download from the drivers which the page on screen names: a group of their
// own, there only while there are such.

#include "import/drivers.h"

#include <QObject>

#include <functional>
#include <optional>

class QAction;
class QColor;
class QToolBar;
class QToolButton;

namespace sheetwright {

class FrameDrivers : public QObject {
  public:
    // The buttons stand behind all others that `bar` has by now.
    explicit FrameDrivers(QToolBar& bar);

    // Called with a button that is clicked.
    std::function<void(const DriverButton&)> Clicked;
    // A person wants the menu of a button, counted from 0, at a place of the screen.
    std::function<void(std::size_t, const QPoint&)> MenuWanted;

    // A person leaves the buttons by the keyboard.
    std::function<void()> Left;

    // Shows these instead of those before.
    void Show(const std::vector<DriverButton>& buttons);
    [[nodiscard]] std::optional<DriverButton> At(std::size_t index) const;
    // Of the icon that stands for a driver without one.
    void SetIconColour(const QColor& colour);
    // Gives the first button the keyboard focus; without any nothing happens.
    void TakeFocus();

  private:
    struct Shown {
        DriverButton button;
        QAction* action;
    };
    void Clear();
    void Add(const DriverButton& button);
    void Dress(QToolButton& widget, const DriverButton& button);

    QToolBar& m_bar;
    QAction* m_divider;
    QAction* m_end;  // never shows; the buttons stand before it
    std::vector<Shown> m_shown;
    QIcon m_defaultIcon;
};

}  // namespace sheetwright
