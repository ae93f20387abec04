#include "ui/page_view.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page_view_layout.h"
#include "print/form_surfaces.h"
#include "print/units.h"
#include "ui/element_places.h"
#include "ui/entry_editor.h"
#include "ui/event_boundary.h"
#include "ui/key_events.h"
#include "ui/page_accessibility.h"
#include "ui/page_mouse.h"
#include "ui/page_painting.h"
#include "ui/page_zoom.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

constexpr int kBetweenPaints = 100;  // milliseconds, while much changes
constexpr int kFocusBreadth = 2;
constexpr int kFocusGap = 1;  // to the square of a check box, which stands at its edge
constexpr int kShadow = 7;
constexpr int kShadowAlpha = 8;   // of each of its layers
constexpr int kDarkest = 128;     // lightness below which a theme counts as dark
constexpr int kDeskOfDark = 150;  // percent darker than the theme's windows
constexpr int kDeskOfLight = 118;

QColor DeskOf(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    return window.darker(window.lightness() < kDarkest ? kDeskOfDark : kDeskOfLight);
}

void PaintShadow(QPainter& painter, const QRect& exposed, const QRect& page) {
    if (page.contains(exposed)) return;
    painter.save();
    painter.setClipRegion(QRegion(exposed) - page);
    for (int reach = 1; reach <= kShadow; ++reach)
        painter.fillRect(page.adjusted(1 - reach, 2 - reach, reach, reach), QColor(0, 0, 0, kShadowAlpha));
    painter.restore();
}

bool IsCommand(QEvent::Type type) {
    constexpr std::array kCommands{QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::Wheel,
                                   QEvent::KeyPress};
    return std::find(kCommands.begin(), kCommands.end(), type) != kCommands.end();
}

struct ScrollKey {
    int key;
    int horizontal;  // in small changes
    int vertical;
};
constexpr std::array kScrollKeys{ScrollKey{Qt::Key_Left, -1, 0}, ScrollKey{Qt::Key_Right, 1, 0},
                                 ScrollKey{Qt::Key_Up, 0, -1}, ScrollKey{Qt::Key_Down, 0, 1}};

using ZoomCommand = void (PageView::*)();

ZoomCommand CommandOf(ZoomKey key) {
    constexpr std::array<std::pair<ZoomKey, ZoomCommand>, 4> kCommands{
        {{ZoomKey::In, &PageView::ZoomIn},
         {ZoomKey::Out, &PageView::ZoomOut},
         {ZoomKey::Reset, &PageView::ResetZoom},
         {ZoomKey::FitWidth, &PageView::FitWidth}}};
    for (const auto& [known, command] : kCommands)
        if (known == key) return command;
    return nullptr;
}

}  // namespace

PageView::PageView(frmSheetwright& document, QWidget* parent)
    : QWidget(parent),
      m_document(document),
      m_painting(std::make_unique<PagePainting>(document)),
      m_mouse(std::make_unique<PageMouse>(*this)),
      m_editor(std::make_unique<EntryEditor>(document, *this)) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_catchUp.setSingleShot(true);
    m_catchUp.setInterval(kBetweenPaints);
    connect(&m_catchUp, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

PageView::~PageView() = default;

double PageView::PixelsPerTwip() const {
    return m_zoom / kTwipsPerScreenPixel;
}

// A page that is narrower than the view stands in its middle. Whole pixels, so that nothing trembles.
QPointF PageView::Origin() const {
    const ScrollBar& horizontal = m_document.page->hsbForm;
    const double width = m_document.surfaces->picForm.Width() * PixelsPerTwip();
    const double left = width < this->width() ? std::floor((this->width() - width) / 2)
                                              : -std::round(horizontal.value * m_zoom);
    return {left, -std::round(m_document.page->vsbForm.value * m_zoom)};
}

QRectF PageView::PageOnScreen() const {
    const PictureSurface& page = m_document.surfaces->picForm;
    return OnScreen({0, 0, page.Width(), page.Height()});
}

QRectF PageView::OnScreen(const Extent& place) const {
    const double scale = PixelsPerTwip();
    const QPointF origin = Origin();
    return {origin.x() + place.left * scale, origin.y() + place.top * scale, place.width * scale,
            place.height * scale};
}

QPointF PageView::OnPage(QPointF position) const {
    return (position - Origin()) / PixelsPerTwip();
}

ElementRef PageView::ElementAt(QPointF position) const {
    if (!m_document.surfaces->picForm.Visible) return {};
    return TopmostAt(*m_document.page, OnPage(position));
}

void PageView::SetZoom(double zoom) {
    ZoomAt(zoom, QRectF(rect()).center());
}

void PageView::ZoomAt(double zoom, QPointF position) {
    const double nearest = NearestZoom(zoom);
    if (nearest == m_zoom) return;
    const QPointF held = OnPage(position);
    m_zoom = nearest;
    Guarded(m_document, QStringLiteral("SizeForm"), [&] {
        if (m_document.MyPaperSize == 0) return;
        SizeForm(m_document);
        const QPointF corner = held / kTwipsPerScreenPixel - position / m_zoom;
        ScrollTo(m_document, qRound(corner.x()), qRound(corner.y()));
    });
    update();
    Moved();
    if (ZoomChanged) ZoomChanged();
}

void PageView::FitWidth() {
    const PictureSurface& page = m_document.surfaces->picForm;
    if (!(page.Width() > 0)) return;
    const Size inside = m_document.window->Inside();
    const double bar = m_document.window->ScrollBarBreadth();
    SetZoom((inside.width - bar) / page.Width() * m_zoom);
}

void PageView::ZoomIn() {
    SetZoom(NextZoom(m_zoom));
}

void PageView::ZoomOut() {
    SetZoom(PreviousZoom(m_zoom));
}

void PageView::ResetZoom() {
    SetZoom(1);
}

void PageView::PageChanged() {
    m_mouse->PageChanged();
    m_painting->ForgetAll();
    AccessibilityPageChanged(*this);
    Repaint(rect());
}

void PageView::ElementChanged(ElementRef element) {
    UpdateTwips(m_painting->Forget(element));
    if (m_document.Importing) return;
    AccessibilityValueChanged(*this, element);
    FocusChanged();
}

void PageView::Moved() {
    Repaint(rect());
    if (m_editor->IsShown()) m_editor->Move(OnScreen(m_document.page->entryPlace), PixelsPerTwip());
}

// Which element has the focus is asked when it is painted: while it moves, the page doesn't know yet.
void PageView::FocusChanged(ElementRef next) {
    for (const ElementRef& element : {m_outlined, m_document.page->CurrentEntry, next})
        if (!element.IsNone()) UpdateTwips(RectOf(PlaceOf(*m_document.page, element)));
}

void PageView::ShowEntry() {
    m_editor->Show(OnScreen(m_document.page->entryPlace), PixelsPerTwip());
    FocusChanged();
}

void PageView::HideEntry() {
    m_editor->Hide();
}

void PageView::BeginDrag(int mode) {
    m_mouse->BeginDrag(mode);
}

void PageView::EndDrag() {
    m_mouse->EndDrag();
}

void PageView::Repaint(const QRect& part) {
    if (m_document.Importing) {
        if (!m_catchUp.isActive()) m_catchUp.start();
        return;
    }
    const bool isBehind = m_catchUp.isActive();
    m_catchUp.stop();
    update(isBehind ? rect() : part);
}

void PageView::UpdateTwips(const QRectF& part) {
    constexpr double kMargin = kFocusGap + kFocusBreadth + 2;
    const QRectF exposed = OnScreen({part.x(), part.y(), part.width(), part.height()})
                               .adjusted(-kMargin, -kMargin, kMargin, kMargin);
    Repaint((exposed & QRectF(rect())).toAlignedRect());
}

void PageView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    painter.fillRect(exposed, DeskOf(palette()));
    m_outlined = m_document.page->CurrentEntry;
    const QRect page = PageOnScreen().toAlignedRect();
    if (!m_document.surfaces->picForm.Visible || page.isEmpty()) return;
    PaintShadow(painter, exposed, page);
    Catching([&] { PaintPage(painter, exposed); });
    PaintFocus(painter);
}

// In physical pixels, whatever the screen's scale: the painter's own scale is taken back.
void PageView::PaintPage(QPainter& painter, const QRect& exposed) {
    const QTransform device = painter.deviceTransform();
    const QPoint origin = device.map(Origin()).toPoint();
    const QRect part = device.mapRect(QRectF(exposed)).toAlignedRect().translated(-origin);
    if (const QRectF changed = m_painting->Refresh(); !changed.isEmpty()) {
        const QRectF shown = OnScreen({changed.x(), changed.y(), changed.width(), changed.height()});
        if (!QRectF(exposed).contains(shown & QRectF(rect()))) UpdateTwips(changed);
    }
    painter.save();
    painter.setWorldTransform(QTransform::fromTranslate(origin.x(), origin.y()) * device.inverted());
    m_painting->Paint(painter, part, PixelsPerTwip() * device.m11());
    painter.restore();
}

void PageView::PaintFocus(QPainter& painter) const {
    const Page& page = *m_document.page;
    const ElementRef current = page.CurrentEntry;
    if (current.kind == ElementKind::Entry || !IsVisible(page, current)) return;
    const QRect inner = (OnScreen(PlaceOf(page, current)) & QRectF(rect()).adjusted(-9, -9, 9, 9))
                            .toAlignedRect()
                            .adjusted(-kFocusGap, -kFocusGap, kFocusGap, kFocusGap);
    const QRect outer = inner.adjusted(-kFocusBreadth, -kFocusBreadth, kFocusBreadth, kFocusBreadth);
    for (const QRect& side : QRegion(outer) - inner)
        painter.fillRect(side, palette().color(QPalette::Highlight));
}

bool PageView::event(QEvent* event) {
    const QEvent::Type type = event->type();
    if (IsCommand(type) && !m_document.application.mainWindow->IsEnabled()) {
        event->accept();
        return true;
    }
    if (type == QEvent::WindowDeactivate || type == QEvent::Hide) m_mouse->Cancel();
    if (type == QEvent::WindowDeactivate || type == QEvent::WindowActivate) FocusChanged();
    if (type == QEvent::ShortcutOverride && m_mouse->IsDragging()) event->accept();
    return QWidget::event(event);
}

// Who comes back to the form goes on editing.
void PageView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    QWidget* const editor = m_editor->FocusWidget();
    const bool isOpen = m_document.page->isEntryVisible && editor != nullptr;
    if (isOpen && event->reason() != Qt::MouseFocusReason) editor->setFocus(event->reason());
    FocusChanged();
}

void PageView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    FocusChanged();
}

void PageView::mousePressEvent(QMouseEvent* event) {
    m_mouse->Press(*event);
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event) {
    m_mouse->DoubleClick(*event);
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    m_mouse->Move(*event);
}

void PageView::mouseReleaseEvent(QMouseEvent* event) {
    m_mouse->Release(*event);
}

void PageView::wheelEvent(QWheelEvent* event) {
    m_mouse->Wheel(*event);
    event->accept();
}

bool PageView::TakeZoomKey(const QKeyEvent& event) {
    const ZoomCommand command = CommandOf(ZoomKeyOf(event));
    if (command == nullptr) return false;
    (this->*command)();
    return true;
}

// The arrows scroll as long as no element has a use for them.
bool PageView::TakeScrollKey(const QKeyEvent& event) {
    const Page& page = *m_document.page;
    if (event.modifiers().testFlag(Qt::ControlModifier) || !page.CurrentEntry.IsNone()) return false;
    for (const ScrollKey& known : kScrollKeys) {
        if (known.key != event.key()) continue;
        return Guarded(m_document, QStringLiteral("ScrollTo"), [&] {
            ScrollTo(m_document, page.hsbForm.value + known.horizontal * page.hsbForm.smallChange,
                     page.vsbForm.value + known.vertical * page.vsbForm.smallChange);
        });
    }
    return false;
}

bool PageView::SendToForm(const QKeyEvent& event) {
    bool isTaken = true;
    Guarded(m_document, QStringLiteral("Form_KeyDown"),
            [&] { isTaken = SendKeyPress(m_document, event, m_document.page->CurrentEntry); });
    FocusChanged();
    return isTaken;
}

// Keys that the editor has no use for arrive here, too; the form has heard them then.
void PageView::keyPressEvent(QKeyEvent* event) {
    if (m_mouse->IsDragging() && event->key() == Qt::Key_Escape) return m_mouse->Cancel();
    if (TakeZoomKey(*event)) return;
    if (hasFocus() && (SendToForm(*event) || TakeScrollKey(*event))) return;
    QWidget::keyPressEvent(event);
}

void PageView::keyReleaseEvent(QKeyEvent* event) {
    bool isTaken = false;
    if (hasFocus())
        Guarded(m_document, QStringLiteral("Form_KeyUp"),
                [&] { isTaken = SendKeyRelease(m_document, *event); });
    if (!isTaken) QWidget::keyReleaseEvent(event);
}

}  // namespace sheetwright
