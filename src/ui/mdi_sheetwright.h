#pragma once

// The frame of the program: menus, tool bar, status bar, page panel, and the open forms as child windows. It
// keeps nothing of a form: every command acts on the form in front.

#include "core/main_window.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <vector>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolBar;
class QToolButton;

namespace sheetwright {

class Application;
class FormWindow;
class InputGate;
class PageButtons;
class PageView;
class StatusPanel;
class frmSheetwright;

class mdiSheetwright : public QMainWindow, public MainWindow {
  public:
    // Becomes the application's main window; `application` lives longer.
    explicit mdiSheetwright(Application& application);
    ~mdiSheetwright() override;

    [[nodiscard]] StatusPanel& Status() { return *m_status; }
    // The form in front; none where none is open.
    [[nodiscard]] FormWindow* Active() const;
    [[nodiscard]] std::vector<FormWindow*> Forms() const;

    // The file-name slot of the shared file dialog (`dlgCommonDialog`), from which `OpenFromDialogSlot` takes
    // the form.
    QString DialogFileName;
    void OpenTemplate(const QString& path);
    void OpenFromDialogSlot();

    // Brings captions, commands and panels up to date with the forms. Done whenever the program is idle.
    void Refresh();

    [[nodiscard]] bool IsEnabled() const override;
    void SetEnabled(bool isEnabled) override;
    void SetUndoEnabled(bool) override {}  // no command undoes anything
    [[nodiscard]] bool IsBlankTicked() const override;
    [[nodiscard]] QString PagePanel() const override;
    void SetPagePanel(const QString& text) override;
    void SetPageBox(const QString& text) override;
    void RefreshPageList(frmSheetwright& document) override;
    void DriverSetup(const QString&) override {}  // no command imports
    void ShowAddPage(frmSheetwright& document) override;
    [[nodiscard]] int FreeResources() const override { return 100; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    using Command = std::function<void()>;
    using DocumentCommand = void (mdiSheetwright::*)(frmSheetwright&);

    // The commands and what they hang in.
    struct Actions {
        QAction* open;
        QAction* close;
        QAction* save;
        QAction* saveAs;
        QAction* saveButton;  // of the tool bar: Save, or Save As where only that is possible
        QAction* update;
        QAction* addPage;
        QAction* blank;
        QAction* pagePanel;
        std::vector<QAction*> zooms;
        QMenu* edit;
        QMenu* options;
        QMenu* window;
        std::vector<QAction*> windows;  // the open forms in it
    };

    void BuildMenus();
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildViewMenu();
    void BuildOptionsMenu();
    void BuildWindowMenu();
    void BuildToolBar();
    void BuildStatusBar();
    void BuildZoomBox();
    void RemoveFunctionality();
    void DrawIcons();
    QAction* Add(QMenu& menu, const QString& name, const QString& caption, const Command& command);
    QAction* AddForActive(QMenu& menu, const QString& name, const QString& caption, DocumentCommand command);
    void AddZoom(QMenu& menu, const QString& name, const QString& caption,
                 const std::function<void(PageView&)>& change, const QList<QKeySequence>& keys = {});
    void AddArrangement(const QString& name, const QString& caption,
                        const std::function<void(QMdiArea&)>& arrange);
    void ListWindows();
    [[nodiscard]] static QString ZoomText(double zoom);

    // The boundary of each command: nothing starts within another command or while the frame is disabled. A
    // failure is told; the form in front then shows its current page again.
    void Run(const QString& name, const Command& command);
    void RunOnActive(const QString& name, DocumentCommand command);
    void Recover();

    void ReadTemplate(const QString& path);
    void ReadForm();
    void mnuFileOpen_Click();
    void mnuFileClose_Click();
    void SaveByButton(frmSheetwright& document);
    void Save(frmSheetwright& document);
    void SaveAs(frmSheetwright& document);
    void UpdateFormulas(frmSheetwright& document);
    void AddPageByMenu(frmSheetwright& document);
    void HighlightBlanks();
    void GoToPage(int number);
    void PopUpEditMenu();

    [[nodiscard]] frmSheetwright& MakeDocument();
    void UnloadDocument(frmSheetwright& document);
    [[nodiscard]] bool MayClose(FormWindow& form);
    [[nodiscard]] bool SaveBeforeClosing(frmSheetwright& document);
    void Activate(QMdiSubWindow* window);
    void ShowPageOf(frmSheetwright& document);
    void ClearPagePanel();
    void RefreshCaptions();
    void RefreshCommands();
    void RefreshZoom();

    Application& m_application;
    QMdiArea* m_area;
    InputGate* m_gate;
    QToolBar* m_toolBar = nullptr;
    StatusPanel* m_status = nullptr;
    QToolButton* m_page = nullptr;  // the panel "Page" of the status bar
    QToolButton* m_zoom = nullptr;
    PageButtons* m_pages = nullptr;
    Actions m_actions{};
    QPointer<FormWindow> m_active;
    bool m_isRunning = false;
};

}  // namespace sheetwright
