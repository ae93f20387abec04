#include "ui/desktop_start_up.h"

#include "core/application.h"
#include "ui/desktop_user_interface.h"

#include <QApplication>

namespace sheetwright {

DesktopStartUp::DesktopStartUp(Application& application, DesktopUserInterface& ui)
    : m_application(application), m_ui(ui), m_program(application.Title) {}

void DesktopStartUp::LoadMainWindow() {
    m_frame = std::make_unique<mdiSheetwright>(m_application);
    m_frame->setWindowIcon(QApplication::windowIcon());
    m_ui.UseStatusPanel(m_frame->Status());
}

}  // namespace sheetwright
