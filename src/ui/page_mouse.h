#pragma once

// What the mouse does on a page: it enters fields, works check boxes and pictures, drags values, pans,
// scrolls and zooms.

#include "document/element_array.h"

#include <QCursor>
#include <QPointF>
#include <QTimer>

#include <optional>

class QMouseEvent;
class QWheelEvent;

namespace sheetwright {

class PageView;
class frmSheetwright;

class PageMouse {
  public:
    // The view lives longer.
    explicit PageMouse(PageView& view);

    void Press(const QMouseEvent& event);
    void DoubleClick(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release(const QMouseEvent& event);
    void Wheel(const QWheelEvent& event);

    // What is under way ends, and nothing is dropped.
    void Cancel();
    // What was pressed is gone with its page.
    void PageChanged() { m_pressed = {}; }
    [[nodiscard]] bool IsDragging() const;

    void BeginDrag(int mode);
    void EndDrag();

  private:
    struct Pan {
        QPointF position;
        int horizontal = 0;  // the scroll bars as they were
        int vertical = 0;
    };

    void PressOn(ElementRef element, QPointF position);
    void ReleaseOn(ElementRef element);
    void ClickOn(ElementRef element);
    void ContinueDrag(const QMouseEvent& event);
    void ScrollAtEdge();
    void BeginPan(QPointF position);
    void ContinuePan();
    void ScrollBy(QPointF pixels);
    void ZoomBy(int angle, QPointF position);
    void ShowCursor();
    [[nodiscard]] Qt::CursorShape ShapeOver(ElementRef element) const;

    PageView& m_view;
    frmSheetwright& m_document;
    QPointF m_position;    // of the pointer, in the view
    ElementRef m_pressed;  // where the left button went down
    std::optional<Pan> m_pan;
    std::optional<QCursor> m_dragCursor;
    QPointF m_scrollRest;  // less than a unit of the scroll bars
    int m_zoomRest = 0;    // less than a notch of the wheel
    QTimer m_edgeTimer;
};

}  // namespace sheetwright
