// The program with windows. Its title, given when it is built, tells the deployments apart.

#include "core/application.h"
#include "core/run_command.h"
#include "core/start_up.h"
#include "document/document.h"
#include "ui/desktop_program.h"
#include "ui/desktop_start_up.h"
#include "ui/desktop_user_interface.h"
#include "ui/form_window.h"
#include "ui/guarded_application.h"
#include "ui/lazy_printers.h"
#include "ui/line_icons.h"
#include "ui/termination.h"

#include <csignal>

namespace sheetwright {

namespace {

// Desktops know the program's windows by the name of its menu entry.
void ShowIdentity(const Application& application) {
    QApplication::setWindowIcon(ProgramIcon(application.ViewerMode));
    QApplication::setDesktopFileName(application.ViewerMode ? QStringLiteral("sheetwright_viewer")
                                                            : QStringLiteral("sheetwright"));
}

int Run(GuardedApplication& desktop) {
    DesktopUserInterface ui;
    Application application(QStringLiteral(SHEETWRIGHT_TITLE), QCoreApplication::applicationDirPath(),
                            Settings(), ui);
    ui.UseLanguageOf(application);
    ShowIdentity(application);
    DesktopStartUp actions(application, ui);
    LazyPrinters printers(application, [&actions] {
        mdiSheetwright* const frame = actions.Frame();
        FormWindow* const front = frame == nullptr ? nullptr : frame->Active();
        return front == nullptr ? QString() : front->Document().Caption;
    });
    application.printing.printers = &printers;
    ui.UsePrinters(printers);
    desktop.Escaped = [&application] { TellEscaped(application); };

    bool isFirst = false;
    const QString commandLine = CommandLineOf(QCoreApplication::arguments().sliced(1));
    const bool hasFailed = RunCommand(application, QStringLiteral("Main"), [&] {
                               isFirst = Main(application, actions, commandLine);
                           }).has_value();
    const int result = hasFailed ? EXIT_FAILURE : isFirst ? QApplication::exec() : EXIT_SUCCESS;
    desktop.Escaped = {};
    application.printing.printers = nullptr;
    return result;
}

}  // namespace

}  // namespace sheetwright

int main(int count, char** arguments) {
#ifdef SIGXFSZ  // a file beyond its limit is a failed write, not the end
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    sheetwright::GuardedApplication desktop(count, arguments);
    sheetwright::SpeakTheSystemsLanguage(desktop);
    sheetwright::CloseOnTermination();
    return sheetwright::Run(desktop);
}
