#pragma once

// The widgets of a form's one editor: it shows `Page::Entry` as a text box, a box of several lines, a combo
// box or a date with a calendar, and reports to it what a person types. The widgets are made when they are
// first needed and kept.

#include <QRectF>

#include <memory>

class QWidget;

namespace sheetwright {

class frmSheetwright;

class EntryEditor {
  public:
    // The widgets lie in `parent`. Takes the view's hooks of `Page::Entry`. Both must live when it is told to
    // do something; neither is touched by its end.
    EntryEditor(frmSheetwright& document, QWidget& parent);
    EntryEditor(const EntryEditor&) = delete;
    EntryEditor& operator=(const EntryEditor&) = delete;
    ~EntryEditor();

    // As `Page::Entry` is now, over the field at `place` in the parent's coordinates; takes the focus and
    // selects its text. A style that has nothing to type into hides it.
    void Show(const QRectF& place, double pixelsPerTwip);
    // To be called after scrolling, zooming and resizing; what is typed stays.
    void Move(const QRectF& place, double pixelsPerTwip);
    // The focus, if it is here, goes to the parent.
    void Hide();
    // What an input method is still composing becomes text. To be called before the value is read for any
    // other reason than a key.
    void Commit();

    [[nodiscard]] bool IsShown() const;
    // That takes the keys while the editor is shown; none while it is hidden.
    [[nodiscard]] QWidget* FocusWidget() const;

  private:
    class Impl;
    std::shared_ptr<Impl> m_impl;
};

}  // namespace sheetwright
