// The open forms of the frame: how they come, change places and go.

#include "core/application.h"
#include "core/run_command.h"
#include "document/closing.h"
#include "document/document.h"
#include "document/page_panel.h"
#include "document/page_view_layout.h"
#include "ui/form_area.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"
#include "ui/guarded_application.h"
#include "ui/mdi_sheetwright.h"
#include "ui/page_view.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace sheetwright {

frmSheetwright& mdiSheetwright::MakeDocument() {
    auto made = std::make_unique<FormWindow>(m_application);
    FormWindow& form = *made;
    form.MayClose = [this](FormWindow& closing) { return MayClose(closing); };
    form.View().ZoomChanged = [this] { RefreshZoom(); };
    connect(&form, &QObject::destroyed, this, [this, &form] { m_undoable.erase(&form); });
    m_area->Add(std::move(made));
    return form.Document();
}

void mdiSheetwright::UnloadDocument(frmSheetwright& document) {
    if (FormWindow* const form = m_area->FormOf(document)) m_area->Remove(*form);
    if (FormWindow* const next = Active()) ShowPageOf(next->Document());
    Refresh();
}

// One that fails keeps none of the others from opening.
void mdiSheetwright::OpenDropped(const QStringList& paths) {
    const QString name = QStringLiteral("DragDrop");
    QStringList refused;
    for (const QString& path : paths)
        Run(name, [&] {
            if (!m_commands->OpenFile(path)) refused << path;
        });
    if (!refused.isEmpty()) Run(name, [&] { m_commands->TellRefused(refused); });
}

void mdiSheetwright::Activated(FormWindow& form) {
    frmSheetwright& document = form.Document();
    m_application.CurrentTempDir = document.MyTempDir;
    if (document.Pages < 1) {
        ClearPagePanel();
    } else {
        sheetwright::RunCommand(m_application, QStringLiteral("Form_Activate"),
                                [&] { ShowPageOf(document); });
    }
    Refresh();
}

void mdiSheetwright::ShowPageOf(frmSheetwright& document) {
    m_application.CurrentTempDir = document.MyTempDir;
    ShowPageOnPanel(document);
    RefreshPageControl(document);
}

void mdiSheetwright::ClearPagePanel() {
    SetPagePanel(QString());
    SetPageBox(QString());
}

bool mdiSheetwright::AsksToClose(FormWindow& form) {
    const QScopedValueRollback<bool> running(m_isRunning, true);
    frmSheetwright& document = form.Document();
    const ClosingActions actions{.bringToFront = [&] { m_area->BringToFront(form); },
                                 .save = [&] { m_commands->Save(document); },
                                 .saveAs = [&] { m_commands->SaveAs(document); }};
    return sheetwright::MayClose(document, actions);
}

bool mdiSheetwright::MayClose(FormWindow& form) {
    if (!m_area->IsClosingAll() && !AsksToClose(form)) return false;
    m_area->NoteClosing(form);
    return true;
}

bool mdiSheetwright::IsBusy() const {
    const std::vector<FormWindow*> forms = Forms();
    const auto isBusy = [](FormWindow* form) { return form->Document().Busy > 0; };
    return std::ranges::any_of(forms, isBusy);
}

// All are asked before the first one goes: whoever cancels at the last keeps them all.
bool mdiSheetwright::AllMayClose() {
    return std::ranges::all_of(Forms(), [this](FormWindow* form) { return AsksToClose(*form); });
}

void mdiSheetwright::Exit() {
    const QScopedValueRollback<bool> exiting(m_isExiting, true);
    close();
}

void mdiSheetwright::closeEvent(QCloseEvent* event) {
    event->ignore();
    const bool isByCommand = m_isExiting;
    if ((m_isRunning && !isByCommand) || !IsEnabled() || IsBusy()) return;
    const bool isByCloseBox = !isByCommand && event->spontaneous() && !GuardedApplication::IsEnding();
    if (AnswerToClosing(isByCloseBox, NoClose) == FrameClosing::Minimise) return showMinimized();
    if (!AllMayClose()) return;
    const QScopedValueRollback<bool> running(m_isRunning, true);  // nothing starts while the host is told
    TellTerminated(m_application, Timer);
    Unload();
    event->accept();
}

void mdiSheetwright::Unload() {
    m_area->CloseAll();
    m_commands->CloseHelp();
    StoreSettings();
}

}  // namespace sheetwright
