#pragma once

// The port through which a form works the window that shows it. The window is a view: it keeps nothing that
// the form doesn't know. Headless forms have none.

#include "document/element_array.h"
#include "print/picture_fit.h"

namespace sheetwright {

class DocumentWindow {
  public:
    DocumentWindow() = default;
    DocumentWindow(const DocumentWindow&) = delete;
    DocumentWindow& operator=(const DocumentWindow&) = delete;
    virtual ~DocumentWindow() = default;

    // In twips of the page, at whatever scale it is shown: the inside of the window, and how broad its scroll
    // bars are.
    [[nodiscard]] virtual Size Inside() const = 0;
    [[nodiscard]] virtual double ScrollBarBreadth() const = 0;
    [[nodiscard]] virtual bool IsMinimised() const = 0;
    [[nodiscard]] virtual bool IsShown() const = 0;  // false until it is shown for the first time

    // The sizes of page, `picContainer` and scroll bars are others.
    virtual void LayoutChanged() = 0;
    // The scroll bars have another value.
    virtual void Scrolled() = 0;
    // The elements or the painted layer are others: all is to be drawn anew. Also when the page is hidden
    // while it is built (`picForm`'s `Visible`).
    virtual void PageChanged() = 0;
    // The text, state or colours of one element are others.
    virtual void ElementChanged(ElementRef element) = 0;

    // Where keys go: to the empty part of the window, to the page without an element, to a check box or
    // picture field, to the editor (which shows where `Page::entryPlace` says, its text selected).
    virtual void FocusContainer() = 0;
    virtual void FocusPage() = 0;
    virtual void FocusElement(ElementRef element) = 0;
    virtual void ShowEntry() = 0;
    virtual void HideEntry() = 0;

    // The value under the pointer is being moved (1) or copied (2): the drag picture of that number shows.
    // Ends with `EndDrag`.
    virtual void BeginDrag(int mode) = 0;
    virtual void EndDrag() = 0;
};

// What a form without a window works: nothing is seen.
class NoDocumentWindow : public DocumentWindow {
  public:
    [[nodiscard]] Size Inside() const override { return {}; }
    [[nodiscard]] double ScrollBarBreadth() const override { return 0; }
    [[nodiscard]] bool IsMinimised() const override { return false; }
    [[nodiscard]] bool IsShown() const override { return true; }
    void LayoutChanged() override {}
    void Scrolled() override {}
    void PageChanged() override {}
    void ElementChanged(ElementRef) override {}
    void FocusContainer() override {}
    void FocusPage() override {}
    void FocusElement(ElementRef) override {}
    void ShowEntry() override {}
    void HideEntry() override {}
    void BeginDrag(int) override {}
    void EndDrag() override {}
};

}  // namespace sheetwright
