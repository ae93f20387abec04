#include "ui/form_window.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_view_layout.h"
#include "ui/event_boundary.h"
#include "ui/page_accessibility.h"
#include "ui/page_view.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>

namespace sheetwright {

namespace {

void Fit(QScrollBar& widget, const ScrollBar& bar, const QRect& place) {
    const QSignalBlocker quiet(widget);
    widget.setGeometry(place);
    widget.setRange(0, bar.max);
    widget.setSingleStep(bar.smallChange);
    widget.setPageStep(bar.largeChange);
    widget.setValue(bar.value);
    widget.setVisible(bar.isVisible);
}

void Move(QScrollBar& widget, int value) {
    const QSignalBlocker quiet(widget);
    widget.setValue(value);
}

}  // namespace

FormWindow::FormWindow(Application& application)
    : m_document(std::make_unique<frmSheetwright>(application)),
      m_view(new PageView(*m_document, this)),
      m_hsbForm(MakeScrollBar(Qt::Horizontal)),
      m_vsbForm(MakeScrollBar(Qt::Vertical)) {
    RegisterPageAccessibility();
    m_document->window = this;
    setFocusProxy(m_view);
}

// The view looks at the document until its end.
FormWindow::~FormWindow() {
    m_document->window = &m_document->noWindow;
    delete m_view;
}

QScrollBar* FormWindow::MakeScrollBar(Qt::Orientation orientation) {
    auto* const bar = new QScrollBar(orientation, this);
    bar->hide();
    connect(bar, &QScrollBar::valueChanged, this, [this] {
        Guarded(*m_document, QStringLiteral("ScrollTo"),
                [this] { ScrollTo(*m_document, m_hsbForm->value(), m_vsbForm->value()); });
    });
    return bar;
}

int FormWindow::Breadth() const {
    return style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
}

Size FormWindow::Inside() const {
    return {width() / m_view->PixelsPerTwip(), height() / m_view->PixelsPerTwip()};
}

double FormWindow::ScrollBarBreadth() const {
    return Breadth() / m_view->PixelsPerTwip();
}

bool FormWindow::IsMinimised() const {
    const auto* const frame = qobject_cast<const QMdiSubWindow*>(parentWidget());
    return frame != nullptr ? frame->isMinimized() || frame->isShaded() : isMinimized();
}

void FormWindow::LayoutChanged() {
    const Page& page = *m_document->page;
    const int breadth = Breadth();
    const int right = width() - (page.vsbForm.isVisible ? breadth : 0);
    const int bottom = height() - (page.hsbForm.isVisible ? breadth : 0);
    m_view->setGeometry(0, 0, right, bottom);
    Fit(*m_hsbForm, page.hsbForm, QRect(0, height() - breadth, right, breadth));
    Fit(*m_vsbForm, page.vsbForm, QRect(width() - breadth, 0, breadth, bottom));
    m_view->Moved();
}

void FormWindow::Scrolled() {
    Move(*m_hsbForm, m_document->page->hsbForm.value);
    Move(*m_vsbForm, m_document->page->vsbForm.value);
    m_view->Moved();
}

void FormWindow::PageChanged() {
    m_view->PageChanged();
}

void FormWindow::ElementChanged(ElementRef element) {
    m_view->ElementChanged(element);
}

void FormWindow::FocusContainer() {
    FocusPage();
}

void FormWindow::FocusPage() {
    m_view->setFocus();
    m_view->FocusChanged();
    AccessibilityFocusChanged(*m_view, {});
}

void FormWindow::FocusElement(ElementRef element) {
    m_view->setFocus();
    m_view->FocusChanged(element);
    AccessibilityFocusChanged(*m_view, element);
}

void FormWindow::ShowEntry() {
    m_view->ShowEntry();
}

void FormWindow::HideEntry() {
    m_view->HideEntry();
}

void FormWindow::BeginDrag(int mode) {
    m_view->BeginDrag(mode);
}

void FormWindow::EndDrag() {
    m_view->EndDrag();
}

// Before a page was built there is no paper to size it by.
void FormWindow::FitToWindow() {
    if (IsMinimised()) return;
    if (m_document->MyPaperSize == 0) return LayoutChanged();
    Guarded(*m_document, QStringLiteral("Form_Resize"), [this] { SizeForm(*m_document); });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitToWindow();
}

void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const bool isFirst = !m_wasShown;
    m_wasShown = true;
    if (isFirst) FitToWindow();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) FitToWindow();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = m_document->Busy == 0;
    if (mayClose && MayClose) {
        mayClose = false;
        Guarded(*m_document, QStringLiteral("Form_Unload"), [&] { mayClose = MayClose(*this); });
    }
    event->setAccepted(mayClose);
}

}  // namespace sheetwright
