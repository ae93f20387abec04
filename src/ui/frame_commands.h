#pragma once

// What the commands of the frame do. Each is called by its entry in the command table, inside the frame's
// boundary; those for a form act on the one in front and do nothing without one.

#include "document/recent_files.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>

namespace sheetwright {

class Application;
class HelpWindow;
class PageView;
class frmSheetwright;
class mdiSheetwright;
struct DriverButton;
struct OpenActions;

class FrameCommands {
  public:
    // `frame` lives longer.
    FrameCommands(Application& application, mdiSheetwright& frame);
    ~FrameCommands();
    FrameCommands(const FrameCommands&) = delete;
    FrameCommands& operator=(const FrameCommands&) = delete;

    // The list of the File menu: loaded with the frame, stored when it closes.
    [[nodiscard]] const RecentFiles& Recent() const { return m_recent; }
    void StoreRecent();

    void OpenTemplate(const QString& path);
    // The form in the frame's file-name slot.
    void OpenFormOfSlot();
    // By the ending of its name. False for what is neither a form nor a template.
    [[nodiscard]] bool OpenFile(const QString& path);
    // One message for all.
    void TellRefused(const QStringList& paths);

    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileClose_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFilePrint_Click();
    void mnuFileRecent_Click(std::size_t index);
    void mnuFileExit_Click();
    // Saves, or saves under a new name where only that is possible.
    void tbToolBar_Save();
    void Save(frmSheetwright& document);
    void SaveAs(frmSheetwright& document);

    void mnuEditUndo_Click();
    void mnuEditRevert_Click();
    void MnuEditUpdate_Click();
    void mnuEditSetUndo_Click();
    void mnuPageAdd_Click();
    void mnuPageRemove_Click();
    void mnuPageGoto_Click();
    void cmd_firstpage_Click();
    void cmd_prevpage_Click();
    void cmd_nextpage_Click();
    void cmd_lastpage_Click();

    // Starts the program in which the lists are kept.
    void mnuEditlists_Click();

    // A table of a driver into the form in front.
    void mnuEditDrivers_Click(const QString& driver);
    // The button of a driver, and the entries of its popup menu.
    void tbToolBar_Driver(const DriverButton& button);
    void mnuDriverDownload_Click();
    void mnuDriverImport_Click();
    void mnuDriverEdit_Click();

    // Behind each tick of the Options menu.
    void UpdateColours();

    void mnuViewZoomIn_Click();
    void mnuViewZoomOut_Click();
    void mnuViewActualSize_Click();
    void mnuViewFitWidth_Click();
    void SetZoom(double zoom);

    // 0 cascade, 1 tile horizontally, 2 tile vertically, 3 arrange icons.
    void mnuWindowArrange_Click(int index);

    void mnuHelpContents_Click();
    void mnuHelpSearch_Click();
    void MnuHelpTutor_Click();
    void mnuHelpAbout_Click();
    void TellFreeResources();
    // The program ends with its last window, and help alone helps nobody.
    void CloseHelp();

  private:
    void WithForm(const std::function<void(frmSheetwright&)>& step);
    void WithPopupTarget(const std::function<void(const DriverButton&)>& step);
    void WithView(const std::function<void(PageView&)>& step);
    [[nodiscard]] OpenActions Opening();
    void SetOpenFormByDialog(int tab);
    // None after telling that there is no help.
    [[nodiscard]] HelpWindow* Help();

    Application& m_application;
    mdiSheetwright& m_frame;
    RecentFiles m_recent;
    bool m_gotoOpen = false;
    std::unique_ptr<HelpWindow> m_help;
};

}  // namespace sheetwright
