// The drivers of the download manager in the frame: buttons of the tool bar, their menu, the Edit menu.

#include "core/application.h"
#include "document/document.h"
#include "import/drivers.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"
#include "ui/frame_drivers.h"
#include "ui/frame_menus.h"
#include "ui/frame_tool_bar.h"
#include "ui/mdi_sheetwright.h"

#include <QMenu>
#include <QScopeGuard>
#include <QShortcut>

namespace sheetwright {

void mdiSheetwright::ConnectDrivers() {
    FrameDrivers& drivers = m_toolBar->Drivers();
    drivers.Clicked = [this](const DriverButton& button) {
        RunCommand(button.key, [button](FrameCommands& commands) { commands.tbToolBar_Driver(button); });
    };
    drivers.MenuWanted = [this](std::size_t index, const QPoint& place) { PopUpDriverMenu(index, place); };
    drivers.Left = [this] {
        if (FormWindow* const form = Active()) form->setFocus();
    };
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, &drivers, &FrameDrivers::TakeFocus);
}

void mdiSheetwright::UpdateImportDrivers() {
    Ignoring([this] { m_dock->Rescan(); });
    m_menus->ShowDrivers(DriverNames(*m_dock));
}

void mdiSheetwright::DriverSetup(const QString& drivers) {
    FormWindow* const form = Active();
    if (form == nullptr || !form->Document().MyReadonly) ShowDrivers(drivers);
}

// Of drivers that can't all be shown the first ones are.
void mdiSheetwright::ShowDrivers(const QString& drivers) {
    if (m_application.ViewerMode || m_dock->Directory().isEmpty()) return;
    std::vector<DriverButton> buttons;
    const auto show = qScopeGuard([&] { m_toolBar->Drivers().Show(buttons); });
    MakeDriverButtons(m_application, *m_dock, drivers, buttons);
}

void mdiSheetwright::PopUpDriverMenu(std::size_t index, const QPoint& place) {
    if (m_isRunning || !IsEnabled()) return;
    PopupTarget = ToInt16(static_cast<double>(m_toolBar->NumberOfDriver(index)));
    m_menus->Menu(QStringLiteral("mnuDriverPopup")).popup(place);
}

std::optional<DriverButton> mdiSheetwright::TargetOfPopup() const {
    if (PopupTarget < 1) return std::nullopt;
    return m_toolBar->DriverOfNumber(static_cast<std::size_t>(PopupTarget));
}

void mdiSheetwright::BringToFront() {
    raise();
    activateWindow();
}

}  // namespace sheetwright
