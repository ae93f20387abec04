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

}  // namespace sheetwright
