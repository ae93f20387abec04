#include "ui/late_quit.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace sheetwright {

LateQuit::LateQuit(QObject& window, std::function<bool()> mayQuit)
    : QObject(&window), m_mayQuit(std::move(mayQuit)) {
    QCoreApplication::instance()->installEventFilter(this);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &LateQuit::QuitIfAsked);
}

bool LateQuit::eventFilter(QObject* /*receiver*/, QEvent* event) {
    if (event->type() == QEvent::Quit && !m_mayQuit()) m_isAsked = true;
    return false;
}

void LateQuit::QuitIfAsked() {
    if (!m_isAsked || !m_mayQuit()) return;
    m_isAsked = false;
    QMetaObject::invokeMethod(this, &QCoreApplication::quit, Qt::QueuedConnection);
}

}  // namespace sheetwright
