#include "ui/form_area.h"

#include "document/document.h"
#include "ui/form_window.h"
#include "ui/tiling.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QSize kSmallestForm(240, 160);

FormWindow& FormIn(const QMdiSubWindow& window) {
    return *static_cast<FormWindow*>(window.widget());
}

}  // namespace

FormArea::FormArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QMdiArea::subWindowActivated, this, &FormArea::Activate);
}

FormArea::~FormArea() {
    disconnect(this);
    for (QMdiSubWindow* const window : findChildren<QMdiSubWindow*>()) {
        if (window->widget() != nullptr) window->widget()->disconnect(this);
        delete window;
    }
}

FormWindow* FormArea::Active() const {
    const std::vector<FormWindow*> forms = Forms();
    const auto active = std::ranges::find_if(forms, [this](const QObject* form) { return form == m_active; });
    if (active != forms.end()) return *active;
    return forms.empty() ? nullptr : forms.back();
}

std::vector<FormWindow*> FormArea::Forms() const {
    std::vector<FormWindow*> forms;
    for (const QMdiSubWindow* const window : subWindowList())
        if (window->widget() != nullptr) forms.push_back(&FormIn(*window));
    return forms;
}

FormWindow* FormArea::FormOf(const frmSheetwright& document) const {
    const std::vector<FormWindow*> forms = Forms();
    const auto found =
        std::ranges::find_if(forms, [&](FormWindow* form) { return &form->Document() == &document; });
    return found == forms.end() ? nullptr : *found;
}

QMdiSubWindow& FormArea::FrameOf(FormWindow& form) {
    return *static_cast<QMdiSubWindow*>(form.parentWidget());
}

void FormArea::Add(std::unique_ptr<FormWindow> made) {
    FormWindow* const front = Active();
    const bool isWhole = front == nullptr || FrameOf(*front).isMaximized();
    // The area disconnects itself from a window that closes.
    connect(made.get(), &QObject::destroyed, this, &FormArea::Forget);
    QMdiSubWindow* const window = addSubWindow(made.release());
    window->setWindowIcon(windowIcon());
    window->setAttribute(Qt::WA_DeleteOnClose);
    // The keys are those of the frame's own menu.
    for (QAction* const action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    Activate(window);
    window->setMinimumSize(kSmallestForm);
    window->resize(RoomForOne(*this));
    if (isWhole) {
        window->showMaximized();
    } else {
        window->show();
    }
}

void FormArea::BringToFront(FormWindow& form) {
    setActiveSubWindow(&FrameOf(form));
}

// A window that is deleted stands among the others until its form is gone: it is taken out first.
void FormArea::Remove(FormWindow& form) {
    QMdiSubWindow* const window = &FrameOf(form);
    removeSubWindow(window);
    delete window;
}

void FormArea::CloseAll() {
    const QScopedValueRollback<bool> closing(m_isClosingAll, true);
    for (FormWindow* const form : Forms()) {
        QMdiSubWindow& window = FrameOf(*form);
        window.close();
        QCoreApplication::sendPostedEvents(&window, QEvent::DeferredDelete);
    }
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void FormArea::NoteClosing(FormWindow& form) {
    m_closing.insert(&form);
}

// Also told when the last form is gone, and when another program comes to the front: then nothing changes.
void FormArea::Activate(QMdiSubWindow* window) {
    if (window == nullptr || window->widget() == nullptr) {
        if (Active() == nullptr) SetActive(nullptr);
        if (Changed) Changed();
        return;
    }
    FormWindow& form = FormIn(*window);
    SetActive(&form);
    if (Activated) Activated(form);
}

void FormArea::SetActive(const QObject* form) {
    const bool wasOther = m_active != nullptr && m_active != form;
    m_active = form;
    if (wasOther && Deactivated) Deactivated();
}

// Its window may still be about to go: who waits until messages were pumped waits behind that.
void FormArea::Forget(QObject* form) {
    if (m_active == form) SetActive(nullptr);
    const bool wasClosed = m_closing.erase(form) > 0;
    if (Changed) Changed();
    if (wasClosed && Closed)
        QMetaObject::invokeMethod(
            this, [this] { Closed(); }, Qt::QueuedConnection);
}

}  // namespace sheetwright
