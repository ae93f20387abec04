#include "ui/desktop_start_up.h"

#include "core/application.h"
#include "core/paths.h"
#include "import/download_manager.h"
#include "ui/desktop_user_interface.h"
#include "ui/download_window.h"
#include "ui/splash_window.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

namespace sheetwright {

namespace {

constexpr int kPaintPatience = 500;  // milliseconds
constexpr int kPaintLook = 1;

// Of a file in the current folder, which is another one at the next start.
QString WholePath(const QString& path) {
    const QFileInfo file(OnDisk(path));
    return file.isRelative() && file.exists() ? file.absoluteFilePath() : path;
}

}  // namespace

DesktopStartUp::DesktopStartUp(Application& application, DesktopUserInterface& ui)
    : m_application(application), m_ui(ui), m_program(application.Title) {}

DesktopStartUp::~DesktopStartUp() = default;

SplashWindow& DesktopStartUp::Splash() {
    if (!m_splash) m_splash = std::make_unique<SplashWindow>(m_application);
    return *m_splash;
}

void DesktopStartUp::SetSplashProductLine(const QString& text) {
    Splash().SetProductLine(text);
}

// The window system takes a moment until it lets a new window be painted; by then the start would be too busy
// to do so.
void DesktopStartUp::ShowSplash() {
    Splash().show();
    const QDeadlineTimer patience(kPaintPatience);
    while (!Splash().WasPainted() && !patience.hasExpired()) {
        m_ui.PumpMessages();
        QThread::msleep(kPaintLook);
    }
}

void DesktopStartUp::CloseSplash() {
    m_splash.reset();
}

void DesktopStartUp::LoadMainWindow() {
    m_download = std::make_unique<DownloadWindow>(m_application);
    m_frame = std::make_unique<mdiSheetwright>(m_application,
                                               std::make_unique<DownloadManager>(m_application, *m_download));
    m_ui.UseStatusPanel(m_frame->Status());
}

void DesktopStartUp::SetDialogFileName(const QString& path) {
    m_frame->DialogFileName = WholePath(path);
}

void DesktopStartUp::OpenTemplate(const QString& path) {
    m_frame->OpenTemplate(WholePath(path));
}

}  // namespace sheetwright
