#pragma once

// The help for users in a window of its own beside the frame: contents and search on the left, the page on
// the right. The frame owns one; closed, it only hides.

#include <QMainWindow>

class QAction;
class QSplitter;
class QTabWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace sheetwright {

class Application;
class HelpBrowser;
class HelpFindBar;
class HelpSearchPanel;

// Where the pages lie, with trailing separator; "" when no help is installed.
[[nodiscard]] QString HelpFolder(const Application& application);

class HelpWindow : public QMainWindow {
  public:
    // `application` lives longer. Nothing is read yet.
    HelpWindow(Application& application, const QString& folder);
    ~HelpWindow() override;

    // Each brings the window to the front.
    void OpenContents();
    void OpenSearch(const QString& words = {});
    // A page with its place, such as "pages.html#adding".
    void OpenPage(const QString& target);

    [[nodiscard]] HelpBrowser& Browser() { return *m_browser; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Actions {
        QAction* back;
        QAction* forward;
        QAction* home;
        QAction* zoomIn;
        QAction* zoomOut;
        QAction* find;
    };

    void BuildPanes();
    void BuildToolBar();
    void BuildKeys();
    QAction* Add(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                 const std::function<void()>& command);
    void DrawIcons();
    void FillContents();
    void OpenEntry(const QTreeWidgetItem* entry);
    void SelectEntry();
    void GoHome();
    void Leave();
    void Present();
    void RestoreSize();
    void StoreSize();

    Application& m_application;
    QString m_folder;
    QSplitter* m_panes;
    QTabWidget* m_tabs;
    QTreeWidget* m_contents;
    HelpSearchPanel* m_search;
    HelpBrowser* m_browser;
    HelpFindBar* m_find;
    QToolBar* m_toolBar = nullptr;
    Actions m_actions{};
    bool m_wasShown = false;
};

}  // namespace sheetwright
