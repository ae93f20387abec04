#include "ui/page_mouse.h"

#include "document/document.h"
#include "document/page_view_layout.h"
#include "fields/dragging.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "ui/drag_pictures.h"
#include "ui/entry_editor.h"
#include "ui/event_boundary.h"
#include "ui/key_events.h"
#include "ui/page_view.h"
#include "ui/page_zoom.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int16_t kLeftButton = 1;
constexpr double kPixelsPerLine = 20;
constexpr int kAnglePerNotch = 120;
constexpr std::chrono::milliseconds kEdgeInterval{40};
constexpr double kEdge = 12;         // pixels at the border of the view in which a drag scrolls
constexpr double kFastestEdge = 40;  // pixels for each interval

int EntryNumber(ElementRef element) {
    return element.kind == ElementKind::Entry ? element.number : 0;
}

// The unreliable pixels of X11 are left alone.
QPointF WheelPixels(const QWheelEvent& event) {
    const bool hasPixels = !event.pixelDelta().isNull() && QGuiApplication::platformName() != u"xcb";
    const double perAngle = kPixelsPerLine * QApplication::wheelScrollLines() / kAnglePerNotch;
    const QPointF pixels = hasPixels ? QPointF(event.pixelDelta()) : QPointF(event.angleDelta()) * perAngle;
    const bool isTurned = event.modifiers().testFlag(Qt::ShiftModifier) && pixels.x() == 0;
    return isTurned ? pixels.transposed() : pixels;
}

// How far a position lies in or beyond the borders; positive at the far one.
double BeyondEdge(double position, double extent) {
    const double beyond = position < kEdge ? position - kEdge : std::max(position - (extent - kEdge), 0.0);
    return std::clamp(beyond, -kFastestEdge, kFastestEdge);
}

}  // namespace

PageMouse::PageMouse(PageView& view) : m_view(view), m_document(view.Document()) {
    m_edgeTimer.setInterval(kEdgeInterval);
    QObject::connect(&m_edgeTimer, &QTimer::timeout, &m_edgeTimer, [this] { ScrollAtEdge(); });
}

bool PageMouse::IsDragging() const {
    return m_document.page->drag.mode != 0;
}

void PageMouse::Press(const QMouseEvent& event) {
    m_position = event.position();
    if (event.button() == Qt::MiddleButton) return BeginPan(m_position);
    if (event.button() != Qt::LeftButton || IsDragging()) return;
    m_view.Editor().Commit();
    m_pressed = m_view.ElementAt(m_position);
    Guarded(m_document, QStringLiteral("Form_MouseDown"),
            [&] { PressOn(m_pressed, m_view.OnPage(m_position)); });
    m_view.FocusChanged();
}

void PageMouse::PressOn(ElementRef element, QPointF position) {
    if (element.kind == ElementKind::Entry)
        Entries_MouseDown(m_document, element.number, kLeftButton, position.x(), position.y());
    if (element.IsNone() || element != m_document.page->CurrentEntry) Unselect(m_document, element);
    if (element.kind == ElementKind::Entry) {
        Entries_GotFocus(m_document, element.number);
    } else if (element.IsNone()) {
        m_document.window->FocusPage();
    }
}

void PageMouse::DoubleClick(const QMouseEvent& event) {
    const ElementRef element = m_view.ElementAt(event.position());
    if (event.button() != Qt::LeftButton || element.kind != ElementKind::Bitmap) return Press(event);
    m_pressed = {};
    Guarded(m_document, QStringLiteral("Bitmaps_DblClick"),
            [&] { Bitmaps_DblClick(m_document, element.number); });
    m_view.FocusChanged();
}

void PageMouse::Move(const QMouseEvent& event) {
    m_position = event.position();
    if (m_pan) {
        ContinuePan();
    } else if (event.buttons().testFlag(Qt::LeftButton)) {
        ContinueDrag(event);
    } else if (IsDragging()) {
        Cancel();  // the release went elsewhere
    }
    ShowCursor();
}

void PageMouse::ContinueDrag(const QMouseEvent& event) {
    if (m_pressed.kind != ElementKind::Entry || IsDragging()) return;
    const QPointF position = m_view.OnPage(m_position);
    Guarded(m_document, QStringLiteral("Entries_MouseMove"), [&] {
        Entries_MouseMove(m_document, kLeftButton, ShiftOf(event.modifiers()), position.x(), position.y());
    });
}

void PageMouse::Release(const QMouseEvent& event) {
    m_position = event.position();
    if (event.button() == Qt::MiddleButton) m_pan.reset();
    if (event.button() == Qt::LeftButton) {
        const bool isInside = QRectF(m_view.rect()).contains(m_position);
        ReleaseOn(isInside ? m_view.ElementAt(m_position) : ElementRef{});
    }
    ShowCursor();
}

void PageMouse::ReleaseOn(ElementRef element) {
    const ElementRef pressed = std::exchange(m_pressed, {});
    if (IsDragging()) {
        Guarded(m_document, QStringLiteral("Entries_DragDrop"),
                [&] { Entries_DragDrop(m_document, EntryNumber(element)); });
    } else if (element == pressed) {
        Guarded(m_document, QStringLiteral("Form_Click"), [&] { ClickOn(element); });
    }
    m_view.FocusChanged();
}

void PageMouse::ClickOn(ElementRef element) {
    if (element.kind == ElementKind::Check) Checks_Click(m_document, element.number);
    if (element.kind == ElementKind::Bitmap) Bitmaps_Click(m_document, element.number);
}

void PageMouse::Cancel() {
    m_pan.reset();
    m_pressed = {};
    if (IsDragging()) Guarded(m_document, QStringLiteral("CancelDrag"), [&] { CancelDrag(m_document); });
    ShowCursor();
}

void PageMouse::BeginDrag(int mode) {
    m_dragCursor = DragCursor(mode, m_view.devicePixelRatioF());
    m_edgeTimer.start();
    ShowCursor();
}

void PageMouse::EndDrag() {
    m_dragCursor.reset();
    m_edgeTimer.stop();
    ShowCursor();
}

void PageMouse::ScrollAtEdge() {
    const QPointF beyond(BeyondEdge(m_position.x(), m_view.width()),
                         BeyondEdge(m_position.y(), m_view.height()));
    if (!beyond.isNull()) ScrollBy(-beyond);
}

void PageMouse::BeginPan(QPointF position) {
    m_pan = Pan{position, m_document.page->hsbForm.value, m_document.page->vsbForm.value};
    ShowCursor();
}

void PageMouse::ContinuePan() {
    const QPointF moved = (m_position - m_pan->position) / m_view.Zoom();
    Guarded(m_document, QStringLiteral("ScrollTo"), [&] {
        ScrollTo(m_document, m_pan->horizontal - qRound(moved.x()), m_pan->vertical - qRound(moved.y()));
    });
}

void PageMouse::Wheel(const QWheelEvent& event) {
    if (event.modifiers().testFlag(Qt::ControlModifier))
        return ZoomBy(event.angleDelta().y(), event.position());
    ScrollBy(WheelPixels(event));
}

void PageMouse::ScrollBy(QPointF pixels) {
    const QPointF wanted = m_scrollRest - pixels / m_view.Zoom();
    const QPoint units(static_cast<int>(wanted.x()), static_cast<int>(wanted.y()));
    m_scrollRest = wanted - units;
    if (units.isNull()) return;
    const Page& page = *m_document.page;
    Guarded(m_document, QStringLiteral("ScrollTo"),
            [&] { ScrollTo(m_document, page.hsbForm.value + units.x(), page.vsbForm.value + units.y()); });
}

void PageMouse::ZoomBy(int angle, QPointF position) {
    m_zoomRest += angle;
    for (; m_zoomRest >= kAnglePerNotch; m_zoomRest -= kAnglePerNotch)
        m_view.ZoomAt(NextZoom(m_view.Zoom()), position);
    for (; m_zoomRest <= -kAnglePerNotch; m_zoomRest += kAnglePerNotch)
        m_view.ZoomAt(PreviousZoom(m_view.Zoom()), position);
}

Qt::CursorShape PageMouse::ShapeOver(ElementRef element) const {
    if (element.IsNone() || IsLocked(m_document)) return Qt::ArrowCursor;
    const Page& page = *m_document.page;
    if (element.kind == ElementKind::Entry)
        return page.Entries.At(element.number).isTransparent ? Qt::ArrowCursor : Qt::IBeamCursor;
    const auto& fields = element.kind == ElementKind::Check ? page.Checks : page.Bitmaps;
    const usrEntry* const control = fields.At(element.number).control.get();
    return control != nullptr && control->Enabled() ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

void PageMouse::ShowCursor() {
    if (m_dragCursor) return m_view.setCursor(*m_dragCursor);
    const Qt::CursorShape shape = m_pan ? Qt::ClosedHandCursor : ShapeOver(m_view.ElementAt(m_position));
    if (m_view.cursor().shape() != shape) m_view.setCursor(shape);
}

}  // namespace sheetwright
