#pragma once

// The commands that ask for a file: which dialog shows, and what becomes of the file chosen in it.

#include "core/user_interface.h"

#include <QString>

#include <functional>

namespace sheetwright {

class Application;
class RecentFiles;
class frmSheetwright;

// The dialogs as they show at first.
[[nodiscard]] FileDialog NewDialog(const Application& application);
[[nodiscard]] FileDialog OpenDialog(const Application& application);
[[nodiscard]] FileDialog SaveAsDialog(const Application& application);
[[nodiscard]] FileDialog MergeDialog(const Application& application);

// Show a dialog; false when the person cancels it. Raise what else the dialog raises.
[[nodiscard]] bool ChooseToOpen(const Application& application, FileDialog& dialog);
[[nodiscard]] bool ChooseToSave(const Application& application, FileDialog& dialog);

// Whether New and Open go through the welcome screen: as the person set it, in the viewer never.
[[nodiscard]] bool WantsWelcome(const Application& application);

enum class OpenKind { New, Existing };

// What `SetOpenForm` asks of the main window.
struct OpenActions {
    std::function<void(int tab)> showWelcome;  // modally, on tab 1 (New) or 2 (Existing)
    std::function<void(const QString& path)> openTemplate;
    std::function<void()> openForm;  // that in the dialog's file-name slot
};

// The commands New and Open. `dialogFileName` is the file-name slot of the shared file dialog, in which the
// welcome screen leaves what was chosen; cancelled, either leaves it as it was.
void SetOpenForm(Application& application, OpenKind kind, QString& dialogFileName,
                 const OpenActions& actions);

// Asks for a name and saves the document under it from now on. False when nothing was saved under another
// name because the person cancelled, or chose a name that can't be a form's: then all is as it was. A name
// without a form's ending gets ".aff", unless there is such a file already, which nobody was asked about.
bool mnuFileSaveAs_Click(frmSheetwright& document, QString& dialogFileName, RecentFiles& files);

}  // namespace sheetwright
