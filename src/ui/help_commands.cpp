// The commands of the Help menu.

#include "core/application.h"
#include "core/paths.h"
#include "ui/about_box.h"
#include "ui/frame_commands.h"
#include "ui/help_window.h"
#include "ui/mdi_sheetwright.h"

#include <QProcess>

namespace sheetwright {

namespace {

// With the ending that it has on other systems, or without.
QString TutorPath(const Application& application) {
    for (const QString& name : {QStringLiteral("Tutor\\Tutor.exe"), QStringLiteral("Tutor\\Tutor")})
        if (FileExists(application.InstallFolder + name)) return OnDisk(application.InstallFolder + name);
    return QString();
}

}  // namespace

HelpWindow* FrameCommands::Help() {
    const QString folder = HelpFolder(m_application);
    if (folder.isEmpty()) {
        m_application.ui.ShowMessage(
            m_application.Translate(QStringLiteral(
                "Unable to display Help Contents. There is no Help associated with this application.")),
            m_frame.windowTitle(), MessageIcon::Information);
        return nullptr;
    }
    if (!m_help) m_help = std::make_unique<HelpWindow>(m_application, folder);
    return m_help.get();
}

void FrameCommands::mnuHelpContents_Click() {
    if (HelpWindow* const help = Help()) help->OpenContents();
}

void FrameCommands::mnuHelpSearch_Click() {
    if (HelpWindow* const help = Help()) help->OpenSearch();
}

void FrameCommands::CloseHelp() {
    if (m_help) m_help->close();
}

void FrameCommands::MnuHelpTutor_Click() {
    const QString tutor = TutorPath(m_application);
    if (tutor.isEmpty()) return;
    const QString deployment =
        m_application.ViewerMode ? QStringLiteral("Dunmorrow") : QStringLiteral("Sheetwright");
    if (QProcess::startDetached(tutor, {deployment})) return;
    m_application.ui.ShowMessage(m_application.Translate(QStringLiteral("Unable to run Tutor")),
                                 m_application.Title, MessageIcon::Exclamation);
}

void FrameCommands::mnuHelpAbout_Click() {
    ShowAbout(&m_frame, m_application);
}

void FrameCommands::TellFreeResources() {
    m_application.ui.ShowMessage(
        m_application.Translate(QStringLiteral("You have %1% Free System Resources."),
                                QString::number(m_frame.FreeResources())),
        m_application.Title, MessageIcon::Information);
}

}  // namespace sheetwright
