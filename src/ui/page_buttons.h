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

    // Asked for page `number`.
    std::function<void(int)> GoTo;

    // The box fits itself to its text.
    void SetBox(const QString& text);
    // Without pages the panel hides.
    void SetPages(int page, int pages);
    void SetIconColour(const QColor& colour);

  private:
    [[nodiscard]] QToolButton* Button(const QString& name, const QString& words);
    [[nodiscard]] int Target(std::size_t button) const;

    std::array<QToolButton*, 4> m_buttons;  // first, previous, next, last
    QLabel* m_lblpages;
    int m_page = 0;
    int m_pages = 0;
};

}  // namespace sheetwright
