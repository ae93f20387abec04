#pragma once

// The window of one document: the page and its scroll bars. It owns the document and shows what the document
// tells it; the frame puts it into a sub-window.

#include "document/document_window.h"

#include <QWidget>

#include <functional>
#include <memory>

class QScrollBar;

namespace sheetwright {

class Application;
class PageView;
class frmSheetwright;
struct ScrollBar;

class FormWindow : public QWidget, public DocumentWindow {
  public:
    // With an empty document. Raises what making a document raises.
    explicit FormWindow(Application& application);
    ~FormWindow() override;

    [[nodiscard]] frmSheetwright& Document() { return *m_document; }
    [[nodiscard]] PageView& View() { return *m_view; }

    // Asked when the window is to be closed; false keeps it open. Not asked while the document is busy: then
    // it stays open.
    std::function<bool(FormWindow&)> MayClose;

    [[nodiscard]] Size Inside() const override;
    [[nodiscard]] double ScrollBarBreadth() const override;
    [[nodiscard]] bool IsMinimised() const override;
    [[nodiscard]] bool IsShown() const override { return m_wasShown; }
    void LayoutChanged() override;
    void Scrolled() override;
    void PageChanged() override;
    void ElementChanged(ElementRef element) override;
    void FocusContainer() override;
    void FocusPage() override;
    void FocusElement(ElementRef element) override;
    void ShowEntry() override;
    void HideEntry() override;
    void BeginDrag(int mode) override;
    void EndDrag() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    [[nodiscard]] QScrollBar* MakeScrollBar(Qt::Orientation orientation);
    [[nodiscard]] int Breadth() const;
    void FitToWindow();

    std::unique_ptr<frmSheetwright> m_document;
    PageView* m_view;
    QScrollBar* m_hsbForm;
    QScrollBar* m_vsbForm;
    bool m_wasShown = false;
};

}  // namespace sheetwright
