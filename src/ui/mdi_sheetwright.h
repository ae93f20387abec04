#pragma once

// The frame of the program: menus, tool bar, status bar, page panel, and the open forms as child windows. It
// keeps nothing of a form: every command acts on the form in front.

#include "core/main_window.h"
#include "import/fetchdock.h"
#include "ui/command_table.h"

#include <QMainWindow>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace sheetwright {

class Application;
class FormArea;
class FormWindow;
class FrameCommands;
class FrameMenus;
class FrameStatusBar;
class FrameToolBar;
class InputGate;
class StatusPanel;
class frmSheetwright;
struct DriverButton;

class mdiSheetwright : public QMainWindow, public MainWindow {
  public:
    // Becomes the application's main window; `application` lives longer. Without `dock` nothing downloads.
    explicit mdiSheetwright(Application& application, std::unique_ptr<FETCHDOCK> dock = nullptr);
    ~mdiSheetwright() override;

    [[nodiscard]] StatusPanel& Status() const;
    [[nodiscard]] FormArea& Area() const { return *m_area; }
    // The form in front; none where none is open.
    [[nodiscard]] FormWindow* Active() const;
    [[nodiscard]] std::vector<FormWindow*> Forms() const;

    // The file-name slot of the shared file dialog (`dlgCommonDialog`), from which `OpenFromDialogSlot` takes
    // the form.
    QString DialogFileName;
    void OpenTemplate(const QString& path);
    void OpenFromDialogSlot();

    [[nodiscard]] FETCHDOCK& Dock() const { return *m_dock; }
    QString DownloadRoot;          // as it was when the frame was made
    std::int16_t PopupTarget = 0;  // button of the tool bar whose menu was asked for last, from 1
    // The driver of that button; none when it is gone.
    [[nodiscard]] std::optional<DriverButton> TargetOfPopup() const;
    // The frame becomes the window that a person sees and types into.
    void BringToFront();

    bool NoClose = false;           // the close box only minimises
    QString SaveButtonDescription;  // "ReportSave": the host saves when the button is clicked
    std::function<double()> Timer;  // for waits, see `Pause`

    // Closes the frame as a command does: also when the close box only minimises it.
    void Exit();

    // Brings captions, commands and panels up to date with the forms. Done whenever the program is idle.
    void Refresh();

    // The boundary of each command: nothing starts within another command or while the frame is disabled. A
    // failure is told; the form in front then shows its current page again.
    void Run(const QString& name, const std::function<void()>& command);

    // What opening a form asks of the frame.
    [[nodiscard]] frmSheetwright& MakeDocument();
    void UnloadDocument(frmSheetwright& document);
    void ClearBlankTick();

    [[nodiscard]] bool IsEnabled() const override;
    void SetEnabled(bool isEnabled) override;
    void SetUndoEnabled(bool isEnabled) override;
    [[nodiscard]] bool IsUndoEnabled() const override;
    [[nodiscard]] bool IsBlankTicked() const override;
    [[nodiscard]] QString PagePanel() const override;
    void SetPagePanel(const QString& text) override;
    void SetPageBox(const QString& text) override;
    void RefreshPageList(frmSheetwright& document) override;
    // Not while the form in front can't be changed.
    void DriverSetup(const QString& drivers) override;
    void ShowAddPage(frmSheetwright& document) override;
    [[nodiscard]] int FreeResources() const override { return 100; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildToolBar();
    void BuildStatusBar();
    void ConnectArea();
    void RemoveFunctionality();
    void LoadSettings();
    void StoreSettings();
    void RunCommand(const QString& name, const FrameCommand& command);
    void Recover();

    [[nodiscard]] bool AsksToClose(FormWindow& form);
    [[nodiscard]] bool MayClose(FormWindow& form);
    [[nodiscard]] bool IsBusy() const;
    [[nodiscard]] bool AllMayClose();
    void Unload();

    void OpenDropped(const QStringList& paths);
    void Activated(FormWindow& form);
    void ShowPageOf(frmSheetwright& document);
    void ClearPagePanel();
    void RefreshCaptions();
    void RefreshCommands();
    void RefreshZoom();
    void PopUpEditMenu();
    void ConnectDrivers();
    void UpdateImportDrivers();
    void ShowDrivers(const QString& drivers);
    void PopUpDriverMenu(std::size_t index, const QPoint& place);

    Application& m_application;
    std::unique_ptr<FETCHDOCK> m_dock;
    FormArea* m_area;
    InputGate* m_gate;
    std::unique_ptr<FrameCommands> m_commands;
    FrameMenus* m_menus;
    FrameToolBar* m_toolBar;
    FrameStatusBar* m_status;
    std::set<const FormWindow*> m_undoable;  // forms with an undo point
    bool m_isRunning = false;
    bool m_isExiting = false;
};

}  // namespace sheetwright
