#include "ui/input_gate.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

constexpr std::array kInput{
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::ShortcutOverride,
    QEvent::Shortcut,
    QEvent::InputMethod,
    QEvent::MouseButtonPress,
    QEvent::MouseButtonDblClick,
    QEvent::MouseMove,
    QEvent::Wheel,
    QEvent::ContextMenu,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TabletPress,
    QEvent::TabletMove,
    QEvent::DragEnter,
    QEvent::DragMove,
    QEvent::Drop,
    QEvent::NativeGesture,
    QEvent::Close,
};

}  // namespace

bool IsInput(QEvent::Type type) {
    return std::ranges::find(kInput, type) != kInput.end();
}

InputGate::InputGate(QWidget& window) : QObject(&window), m_window(window) {}

void InputGate::SetOpen(bool isOpen) {
    if (isOpen == m_isOpen) return;
    m_isOpen = isOpen;
    if (isOpen) {
        qApp->removeEventFilter(this);
    } else {
        qApp->installEventFilter(this);
    }
}

bool InputGate::eventFilter(QObject* receiver, QEvent* event) {
    if (!IsInput(event->type()) || !Guards(receiver)) return false;
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

bool InputGate::Guards(QObject* receiver) const {
    if (!receiver->isWidgetType()) return false;
    const auto* const widget = static_cast<const QWidget*>(receiver);
    const QWidget* const window = widget->window();
    return window == &m_window || (window->windowType() == Qt::Popup && m_window.isAncestorOf(window));
}

}  // namespace sheetwright
