#pragma once

// A line of text that stands exactly where it is told. Line breaks don't come in: what is pasted or dropped
// gets blanks in their place. Those that a value has already stay in it.

#include <QLineEdit>

namespace sheetwright {

struct EditorLook;

class SingleLineEdit : public QLineEdit {
  public:
    explicit SingleLineEdit(QWidget* parent);

    void Dress(const EditorLook& look);
    void PasteText();  // instead of QLineEdit::paste
    // Unlike QLineEdit::setText it can be undone.
    void ReplaceText(const QString& text);
    // All of it. The cursor goes to the start of a text that is wider than the line: that stays in view.
    void SelectFromEnd();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

// The text in one line: blanks for line breaks, none for one at the end.
[[nodiscard]] QString InOneLine(QString text);

}  // namespace sheetwright
