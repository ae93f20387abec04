#include "ui/stop_key.h"

#include "ui/input_gate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace sheetwright {

namespace {

constexpr qint64 kBetweenLooks = 50;  // milliseconds

// A key that is held down since before says nothing about what goes on now.
bool IsEscape(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && !key.isAutoRepeat();
}

}  // namespace

void StopKey::Forget() {
    m_wasPressed = false;
    m_sinceLook.invalidate();
}

bool StopKey::WasPressed() {
    const bool isTime = !m_sinceLook.isValid() || m_sinceLook.hasExpired(kBetweenLooks);
    if (!m_wasPressed && !m_isLooking && isTime) Look();
    return m_wasPressed;
}

// What a host sends waits: commands come in only where the work can bear them.
void StopKey::Look() {
    const QScopedValueRollback looking(m_isLooking, true);
    qApp->installEventFilter(this);
    const auto stopFiltering = qScopeGuard([this] { qApp->removeEventFilter(this); });
    QApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    m_sinceLook.start();
}

bool StopKey::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWidgetType() || !IsInput(event->type())) return false;
    m_wasPressed = m_wasPressed || IsEscape(*event);
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

}  // namespace sheetwright
