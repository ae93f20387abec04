#pragma once

// The port through which the engine works the frame around the open forms: whether it takes commands, its
// page panel, its Undo command. The desktop implements it; programs without a frame use `NoMainWindow`.

#include <QString>

namespace sheetwright {

class frmSheetwright;

class MainWindow {
  public:
    MainWindow() = default;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    virtual ~MainWindow() = default;

    // A disabled main window takes no command: it is so while a page is built, and while a modal dialog is
    // up.
    [[nodiscard]] virtual bool IsEnabled() const = 0;
    virtual void SetEnabled(bool isEnabled) = 0;

    virtual void SetUndoEnabled(bool isEnabled) = 0;  // `mnuEditUndo`
    [[nodiscard]] virtual bool IsUndoEnabled() const = 0;
    [[nodiscard]] virtual bool IsBlankTicked() const = 0;  // `mnuOptionsBlank`

    // The panel that tells page and title, such as "2/5 - Page 1 ", and the box of the arrow buttons, such as
    // "2/5", which fits itself to its text. Of the document that has the focus.
    [[nodiscard]] virtual QString PagePanel() const = 0;
    virtual void SetPagePanel(const QString& text) = 0;
    virtual void SetPageBox(const QString& text) = 0;

    // The list of the document's pages has changed: the arrow buttons, "AddPage".
    virtual void RefreshPageList(frmSheetwright& document) = 0;
    // Offers the import drivers that the page names.
    virtual void DriverSetup(const QString& drivers) = 0;
    // The Add Page dialog, modally, for the document.
    virtual void ShowAddPage(frmSheetwright& document) = 0;

    // In percent. 100 where the platform knows no such limit.
    [[nodiscard]] virtual int FreeResources() const = 0;
};

// No frame: it remembers what it is told, and nothing is seen.
class NoMainWindow : public MainWindow {
  public:
    [[nodiscard]] bool IsEnabled() const override { return m_isEnabled; }
    void SetEnabled(bool isEnabled) override { m_isEnabled = isEnabled; }
    void SetUndoEnabled(bool) override {}
    [[nodiscard]] bool IsUndoEnabled() const override { return false; }
    [[nodiscard]] bool IsBlankTicked() const override { return false; }
    [[nodiscard]] QString PagePanel() const override { return m_panel; }
    void SetPagePanel(const QString& text) override { m_panel = text; }
    void SetPageBox(const QString&) override {}
    void RefreshPageList(frmSheetwright&) override {}
    void DriverSetup(const QString&) override {}
    void ShowAddPage(frmSheetwright&) override {}
    [[nodiscard]] int FreeResources() const override { return 100; }

  private:
    bool m_isEnabled = true;
    QString m_panel;
};

}  // namespace sheetwright
