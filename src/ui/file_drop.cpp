#include "ui/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace sheetwright {

QStringList DroppedFiles(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    return paths;
}

FileDrop::FileDrop(QWidget& window, std::function<void(const QStringList&)> dropped)
    : QObject(&window), m_window(window), m_dropped(std::move(dropped)) {
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool FileDrop::IsInWindow(QObject* receiver) const {
    return receiver->isWidgetType() && static_cast<const QWidget*>(receiver)->window() == &m_window;
}

bool FileDrop::eventFilter(QObject* receiver, QEvent* event) {
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) return false;
    if (!IsInWindow(receiver)) return false;
    auto* const drop = static_cast<QDropEvent*>(event);
    const QStringList paths = DroppedFiles(*drop->mimeData());
    if (paths.isEmpty()) return false;
    drop->setDropAction(Qt::CopyAction);  // nothing is moved away from where it lies
    drop->accept();
    if (isDrop)
        QMetaObject::invokeMethod(
            this, [this, paths] { m_dropped(paths); }, Qt::QueuedConnection);
    return true;
}

}  // namespace sheetwright
