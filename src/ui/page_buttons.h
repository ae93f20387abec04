#pragma once

// `pic_pages`: the four buttons that turn the pages of the form in front, and the box between them that tells
// which page shows.

#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QToolButton;

namespace sheetwright {

class Application;

class PageButtons : public QWidget {
  public:
    PageButtons(const Application& application, QWidget* parent);

    // Called when the buttons are clicked.
    std::function<void()> First;
    std::function<void()> Previous;
    std::function<void()> Next;
    std::function<void()> Last;

    // The box fits itself to its text, for which it has room of "000/000" at least.
    void SetBox(const QString& text);
    // Enables the buttons that lead to another page.
    void SetPages(int page, int pages);
    void SetIconColour(const QColor& colour);

  private:
    [[nodiscard]] QToolButton* Button(const QString& name, const QString& words);

    std::array<QToolButton*, 4> m_buttons;  // first, previous, next, last
    QLabel* m_lblpages;
    int m_page = 0;
    int m_pages = 0;
};

}  // namespace sheetwright
