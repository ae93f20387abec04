#pragma once

// The page in its window: `picContainer` with `picForm` in it. It paints the page crisply at any zoom, turns
// mouse and keys into the form's events, and holds the one editor. Zoom is the view's alone: the page's
// layout stays in twips.

#include "document/element_array.h"
#include "document/page.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace sheetwright {

class EntryEditor;
class PageMouse;
class PagePainting;
class frmSheetwright;

class PageView : public QWidget {
  public:
    // The document lives longer than the view.
    PageView(frmSheetwright& document, QWidget* parent);
    ~PageView() override;

    [[nodiscard]] frmSheetwright& Document() { return m_document; }
    [[nodiscard]] EntryEditor& Editor() { return *m_editor; }

    // 1 is 100 percent; 0.25 to 8, others become the nearest of these. What lies in the centre stays there.
    [[nodiscard]] double Zoom() const { return m_zoom; }
    void SetZoom(double zoom);
    void FitWidth();
    void ZoomIn();
    void ZoomOut();
    void ResetZoom();
    // What lies at that position of the view stays there, as far as the scroll bars allow.
    void ZoomAt(double zoom, QPointF position);
    std::function<void()> ZoomChanged;

    // In logical pixels.
    [[nodiscard]] double PixelsPerTwip() const;
    // From twips on the page to the view's coordinates and back.
    [[nodiscard]] QRectF OnScreen(const Extent& place) const;
    [[nodiscard]] QPointF OnPage(QPointF position) const;
    // The topmost visible one; none where there is none, and while the page is hidden.
    [[nodiscard]] ElementRef ElementAt(QPointF position) const;

    // What the form's window hands on to its view.
    void PageChanged();
    void ElementChanged(ElementRef element);
    void Moved();                             // scrolled, zoomed or resized: the editor goes along
    void FocusChanged(ElementRef next = {});  // to that element, or away from the one that has it
    void ShowEntry();
    void HideEntry();
    void BeginDrag(int mode);
    void EndDrag();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    // Tab belongs to the form.
    bool focusNextPrevChild(bool) override { return false; }

  private:
    [[nodiscard]] QPointF Origin() const;
    [[nodiscard]] QRectF PageOnScreen() const;
    // While an import runs, the page is painted now and then only.
    void Repaint(const QRect& part);
    void UpdateTwips(const QRectF& part);
    void PaintPage(QPainter& painter, const QRect& exposed);
    void PaintFocus(QPainter& painter) const;
    [[nodiscard]] bool TakeZoomKey(const QKeyEvent& event);
    [[nodiscard]] bool TakeScrollKey(const QKeyEvent& event);
    [[nodiscard]] bool SendToForm(const QKeyEvent& event);

    frmSheetwright& m_document;
    double m_zoom = 1;
    std::unique_ptr<PagePainting> m_painting;
    std::unique_ptr<PageMouse> m_mouse;
    std::unique_ptr<EntryEditor> m_editor;
    ElementRef m_outlined;  // as painted last
    QTimer m_catchUp;
};

}  // namespace sheetwright
