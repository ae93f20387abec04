#pragma once

// Which commands a form allows, and what closing it, or the whole program, asks and tells.

#include <QStringView>

#include <functional>
#include <span>

namespace sheetwright {

class Application;
class frmSheetwright;

// Under its own name a form can be saved, unless its file was opened read-only; one made of a template has no
// name yet. Under a new name always, except in the viewer.
[[nodiscard]] bool CanSave(const frmSheetwright& document);
[[nodiscard]] bool CanSaveAs(const frmSheetwright& document);

// What the main window offers for the form in front; nothing for none.
struct CommandStates {
    bool fileSave = false;
    bool fileSaveAs = false;
    bool fileClose = false;
    bool filePreview = false;
    bool filePrint = false;
    bool page = false;            // the Edit menu
    bool addPageVisible = false;  // of the tool bar
};
[[nodiscard]] CommandStates CommandStatesOf(const Application& application, const frmSheetwright* front);

// What the viewer doesn't have: menus and their entries, and buttons of the tool bar by their keys.
[[nodiscard]] std::span<const QStringView> MenusNotInViewer();
[[nodiscard]] std::span<const QStringView> ButtonsNotInViewer();

// What closing a form asks of the main window. The two commands save the form in front.
struct ClosingActions {
    std::function<void()> bringToFront;
    std::function<void()> save;
    std::function<void()> saveAs;
};

// Leaves the field that is being edited, asks about changes and saves them if that is wanted. False when the
// form stays open: the person cancelled, or it could not be saved, of which has been told.
[[nodiscard]] bool MayClose(frmSheetwright& document, const ClosingActions& actions);

// After a form is gone, and after the main window is closing: in report mode tell the host, and wait for one
// second by `timer` (see `Pause`).
void TellFormClosed(const Application& application, const std::function<double()>& timer = {});
void TellTerminated(const Application& application, const std::function<double()>& timer = {});

enum class FrameClosing { Close, Minimise };

// What becomes of a request to close the main window: its close box only minimises it when the host wants no
// closing.
[[nodiscard]] FrameClosing AnswerToClosing(bool isByCloseBox, bool noClose);

}  // namespace sheetwright
