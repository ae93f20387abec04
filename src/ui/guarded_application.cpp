#include "ui/guarded_application.h"

#include <QScopedValueRollback>

namespace sheetwright {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (!Escaped || m_isTelling) return true;
        const QScopedValueRollback<bool> telling(m_isTelling, true);
        Escaped();
        return true;
    }
}

bool GuardedApplication::IsEnding() {
    const auto* const program = dynamic_cast<const GuardedApplication*>(QCoreApplication::instance());
    return (program != nullptr && program->m_isEnding) || qApp->isSavingSession();
}

bool GuardedApplication::event(QEvent* event) {
    if (event->type() != QEvent::Quit) return QApplication::event(event);
    const QScopedValueRollback<bool> ending(m_isEnding, true);
    return QApplication::event(event);
}

}  // namespace sheetwright
