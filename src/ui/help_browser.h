#pragma once

// Shows the pages of the help. It reads nothing outside the help's folder: a link to the web opens in the
// desktop's browser, any other is refused, and what can't be shown is told in place of the page.

#include <QTextBrowser>
#include <QUrl>

#include <functional>

namespace sheetwright {

class Application;

class HelpBrowser : public QTextBrowser {
  public:
    HelpBrowser(const Application& application, const QString& folder, QWidget* parent);

    // A page with its place, "pages.html#adding".
    void Open(const QString& target);
    // What is shown now, in that form; "" for nothing of the help.
    [[nodiscard]] QString Target() const;

    // Shows where the words stand that were searched for, until another page is shown.
    void Highlight(const QString& words);

    // In steps from the desktop's own size of letters. What is at the top stays there.
    [[nodiscard]] int Zoom() const { return m_zoom; }
    void SetZoom(int steps);

    std::function<void(const QUrl&)> OpenOutside;

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Follow(const QUrl& url);
    void ShowInNewColours();
    [[nodiscard]] bool IsInFolder(const QString& path) const;
    [[nodiscard]] QString PathOf(const QUrl& url) const;
    [[nodiscard]] QString PageText(const QUrl& url) const;
    [[nodiscard]] QString StyleSheet(const QUrl& url) const;
    [[nodiscard]] QString MessagePage(const QString& message) const;

    const Application& m_application;
    QString m_folder;  // with "/" at its end
    QUrl m_page;       // whose style sheet and pictures are read
    QUrl m_shown;      // with the place in it
    int m_zoom = 0;
    bool m_isDark = false;
};

// A style sheet made for a light window, with its colours made for a dark one.
[[nodiscard]] QString InDarkColours(const QString& styleSheet);

}  // namespace sheetwright
