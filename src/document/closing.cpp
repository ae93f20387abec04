#include "document/closing.h"

#include "core/application.h"
#include "core/pause.h"
#include "core/run_command.h"
#include "document/document.h"
#include "fields/editing.h"

#include <array>

namespace sheetwright {

namespace {

constexpr double kHostSeconds = 1;  // for the host to hear of the end

constexpr std::array<QStringView, 8> kMenusNotInViewer{u"mnuPage",       u"mnuOptions",  u"mnuFileSave",
                                                       u"mnuFileSaveAs", u"mnuFileDiv1", u"mnuFilePreview",
                                                       u"mnuFileNew",    u"MnuHelpTutor"};
constexpr std::array<QStringView, 4> kButtonsNotInViewer{u"Save", u"New", u"Formulas", u"AddPage"};

void TellAndWait(const Application& application, const QString& line, const std::function<double()>& timer) {
    if (!application.ReportMode) return;
    application.ui.TellHost(line);
    Pause(kHostSeconds, application.ui, timer);
}

MessageAnswer AskToSave(const Application& application) {
    return application.ui.ShowMessage(application.Translate(QStringLiteral("Save any changes?")),
                                      application.Title, MessageIcon::Question, MessageButtons::YesNoCancel);
}

// Whether nothing is left to lose.
bool SaveWanted(frmSheetwright& document, const ClosingActions& actions) {
    const std::function<void()>& save = CanSave(document) ? actions.save : actions.saveAs;
    if (RunCommand(document.application, QStringLiteral("Form_Unload"), save))
        RecoverFromFailedPass(document);
    return !document.Changed;
}

}  // namespace

bool CanSave(const frmSheetwright& document) {
    return !document.application.ViewerMode && !document.MyReadonly &&
           document.Tag.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive);
}

bool CanSaveAs(const frmSheetwright& document) {
    return !document.application.ViewerMode;
}

CommandStates CommandStatesOf(const Application& application, const frmSheetwright* front) {
    if (front == nullptr) return {.addPageVisible = !application.ViewerMode};
    return {.fileSave = CanSave(*front),
            .fileSaveAs = CanSaveAs(*front),
            .fileClose = true,
            .filePreview = !application.ViewerMode,
            .filePrint = true,
            .page = !application.ViewerMode,
            .addPageVisible = !application.ViewerMode && !front->MyReadonly};
}

std::span<const QStringView> MenusNotInViewer() {
    return kMenusNotInViewer;
}

std::span<const QStringView> ButtonsNotInViewer() {
    return kButtonsNotInViewer;
}

bool MayClose(frmSheetwright& document, const ClosingActions& actions) {
    Application& application = document.application;
    application.CurrentTempDir = document.MyTempDir;
    (void)RunCommand(application, QStringLiteral("Form_Unload"), [&] { Unselect(document); });
    if (!document.Changed || !(CanSave(document) || CanSaveAs(document))) return true;
    actions.bringToFront();
    const MessageAnswer answer = AskToSave(application);
    if (answer == MessageAnswer::Yes) return SaveWanted(document, actions);
    return answer == MessageAnswer::No;
}

void TellFormClosed(const Application& application, const std::function<double()>& timer) {
    TellAndWait(application, QStringLiteral("EVENT: FORMCLOSE"), timer);
}

void TellTerminated(const Application& application, const std::function<double()>& timer) {
    TellAndWait(application, QStringLiteral("EVENT: TERMINATE"), timer);
}

FrameClosing AnswerToClosing(bool isByCloseBox, bool noClose) {
    return isByCloseBox && noClose ? FrameClosing::Minimise : FrameClosing::Close;
}

}  // namespace sheetwright
