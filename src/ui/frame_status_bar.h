#pragma once

// `sbStatusBar`: the panel of status text and progress, the panel "Page" that opens the Edit menu, and the
// zoom.

#include <QStatusBar>

#include <functional>

class QMenu;
class QToolButton;

namespace sheetwright {

class Application;
class StatusPanel;

class FrameStatusBar : public QStatusBar {
  public:
    FrameStatusBar(const Application& application, QWidget* parent);

    [[nodiscard]] StatusPanel& Status() const { return *m_status; }
    [[nodiscard]] const QString& PageText() const { return m_pageText; }
    void SetPageText(const QString& text);
    // Without a form there is no page and nothing to zoom.
    void Refresh(bool hasForm, double zoom);
    // Above the panel "Page".
    void PopUp(QMenu& menu) const;

    std::function<void()> PageClicked;
    std::function<void()> DoubleClicked;
    std::function<void(double)> ZoomChosen;
    std::function<void()> FitWidthChosen;

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void BuildZoomBox(const Application& application);
    void AddZoom(QMenu& menu, const QString& name, const QString& text, const std::function<void()>& choose);

    StatusPanel* m_status;
    QString m_pageText;
    QToolButton* m_page;
    QToolButton* m_zoom;
};

}  // namespace sheetwright
