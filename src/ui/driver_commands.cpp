// The commands of the driver buttons, and those that start other programs for lists and tables.

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "document/document.h"
#include "fields/editing.h"
#include "import/drivers.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"
#include "ui/list_program.h"
#include "ui/mdi_sheetwright.h"

#include <QProcess>

namespace sheetwright {

namespace {

frmSheetwright* DocumentOf(FormWindow* form) {
    return form == nullptr ? nullptr : &form->Document();
}

void StartViewer(const QString& program, const QString& table) {
    if (!QProcess::startDetached(OnDisk(program), {OnDisk(table)})) throw Failure(failure::kFileNotFound);
}

}  // namespace

// The list being maintained may be the one of the field.
void FrameCommands::mnuEditlists_Click() {
    WithForm([](frmSheetwright& document) { Unselect(document); });
    const QString program = ListProgram(m_application);
    if (!program.isEmpty()) (void)QProcess::startDetached(program, {});
}

void FrameCommands::mnuEditDrivers_Click(const QString& driver) {
    SelectImport(m_application, m_frame.DownloadRoot, driver, DocumentOf(m_frame.Active()));
}

void FrameCommands::tbToolBar_Driver(const DriverButton& button) {
    DownloadAndImport(m_frame.Dock(), button, DocumentOf(m_frame.Active()),
                      [this] { m_frame.BringToFront(); });
}

// By value: what is done for the button may take it away.
void FrameCommands::WithPopupTarget(const std::function<void(const DriverButton&)>& step) {
    if (const std::optional<DriverButton> button = m_frame.TargetOfPopup()) step(*button);
}

void FrameCommands::mnuDriverDownload_Click() {
    WithPopupTarget([this](const DriverButton& button) {
        DownloadOnly(m_application, m_frame.Dock(), button, [this] { m_frame.BringToFront(); });
    });
}

void FrameCommands::mnuDriverImport_Click() {
    WithPopupTarget([this](const DriverButton& button) { mnuEditDrivers_Click(DriverOf(button)); });
}

void FrameCommands::mnuDriverEdit_Click() {
    WithPopupTarget(
        [this](const DriverButton& button) { EditDriverTable(m_application, button, StartViewer); });
}

}  // namespace sheetwright
