#include "ui/frame_drivers.h"

#include "ui/line_icons.h"

#include <QAction>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace sheetwright {

namespace {

// A key of a button that has the focus.
void OnKey(QToolButton& widget, const QKeySequence& key, const std::function<void()>& act) {
    auto* const shortcut = new QShortcut(key, &widget);
    shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &widget, act);
}

}  // namespace

FrameDrivers::FrameDrivers(QToolBar& bar)
    : QObject(&bar), m_bar(bar), m_divider(bar.addSeparator()), m_end(bar.addSeparator()) {
    m_divider->setVisible(false);
    m_end->setVisible(false);
}

void FrameDrivers::Show(const std::vector<DriverButton>& buttons) {
    Clear();
    m_divider->setVisible(!buttons.empty());
    for (const DriverButton& button : buttons)
        Add(button);
}

// It may be a click on one of them that turns the page. Until they are gone nobody finds them.
void FrameDrivers::Clear() {
    for (const Shown& shown : std::exchange(m_shown, {})) {
        m_bar.widgetForAction(shown.action)->setObjectName(QString());
        m_bar.removeAction(shown.action);
        shown.action->setObjectName(QString());
        shown.action->deleteLater();
    }
}

void FrameDrivers::Add(const DriverButton& button) {
    auto* const action = new QAction(DriverOf(button), this);
    action->setObjectName(button.key);
    action->setToolTip(button.toolTip);
    action->setIcon(button.icon.isNull() ? m_defaultIcon : button.icon);
    connect(action, &QAction::triggered, this, [this, button] {
        if (Clicked) Clicked(button);
    });
    m_bar.insertAction(m_end, action);
    m_shown.push_back({button, action});
    Dress(*static_cast<QToolButton*>(m_bar.widgetForAction(action)), button);
}

// The icon that stands for any driver doesn't tell which one it is. Unlike those for commands that are in the
// menus as well, the buttons can have the keyboard focus.
void FrameDrivers::Dress(QToolButton& widget, const DriverButton& button) {
    widget.setObjectName(button.key);
    widget.setAccessibleName(button.toolTip);
    widget.setFocusPolicy(Qt::TabFocus);
    widget.setToolButtonStyle(button.icon.isNull() ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    const auto wantMenu = [this, index = m_shown.size() - 1, &widget] {
        if (MenuWanted) MenuWanted(index, widget.mapToGlobal(QPoint(0, widget.height())));
    };
    const auto leave = [this] {
        if (Left) Left();
    };
    connect(&widget, &QWidget::customContextMenuRequested, this, wantMenu);
    OnKey(widget, QKeySequence(Qt::SHIFT | Qt::Key_F10), wantMenu);
    OnKey(widget, QKeySequence(Qt::Key_Escape), leave);
}

std::optional<DriverButton> FrameDrivers::At(std::size_t index) const {
    if (index >= m_shown.size()) return std::nullopt;
    return m_shown[index].button;
}

void FrameDrivers::SetIconColour(const QColor& colour) {
    m_defaultIcon = LineIcon(QStringLiteral("instrument"), colour);
    for (const Shown& shown : m_shown)
        if (shown.button.icon.isNull()) shown.action->setIcon(m_defaultIcon);
}

void FrameDrivers::TakeFocus() {
    if (!m_shown.empty()) m_bar.widgetForAction(m_shown.front().action)->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace sheetwright
