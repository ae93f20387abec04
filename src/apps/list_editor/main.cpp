// The list editor. It shares language, settings and lists folder with the program that uses the lists.

#include "core/application.h"
#include "core/run_command.h"
#include "ui/desktop_program.h"
#include "ui/desktop_user_interface.h"
#include "ui/guarded_application.h"
#include "ui/line_icons.h"
#include "ui/list_table_window.h"
#include "ui/termination.h"

#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <span>

namespace sheetwright {

namespace {

constexpr int kWrongUsage = 2;
constexpr const char* kUsage = "usage: sheetwright-list-editor [LIST]\n";

// Answers that need no display; none for a call that opens the window.
std::optional<int> AnswerTo(std::span<char*> arguments) {
    for (const char* const argument : arguments) {
        if (std::strcmp(argument, "--help") == 0) {
            std::fputs(kUsage, stdout);
            std::fputs(
                "\nEdits a list: a table in a .csv file, with the types of its columns in an .inf file.\n",
                stdout);
            return EXIT_SUCCESS;
        }
        if (std::strcmp(argument, "--version") == 0) {
            const Version version = ProgramVersion();
            std::printf("sheetwright-list-editor %d.%d.%d\n", version.major, version.minor, version.revision);
            return EXIT_SUCCESS;
        }
    }
    return std::nullopt;
}

int Run(GuardedApplication& desktop, const QStringList& files) {
    DesktopUserInterface ui;
    Application application(QStringLiteral("Tolvane Quillon Sheetwright"),
                            QCoreApplication::applicationDirPath(), Settings(), ui);
    ui.UseLanguageOf(application);
    desktop.Escaped = [&application] { TellEscaped(application); };
    if (RunCommand(application, QStringLiteral("Main"), [&] { application.LoadLanguage(); }))
        return EXIT_FAILURE;
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setDesktopFileName(QStringLiteral("sheetwright_lists"));
    ListTableWindow window(application);
    window.show();
    if (!files.isEmpty()) window.OpenFile(QFileInfo(files.constFirst()).absoluteFilePath());
    const int result = QApplication::exec();
    desktop.Escaped = {};
    return result;
}

}  // namespace

}  // namespace sheetwright

int main(int count, char** arguments) {
    if (const auto answer =
            sheetwright::AnswerTo(std::span(arguments, static_cast<std::size_t>(count)).subspan(1)))
        return *answer;
#ifdef SIGXFSZ  // a file beyond its limit is a failed write, not the end
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    sheetwright::GuardedApplication desktop(count, arguments);
    const QStringList files = QCoreApplication::arguments().sliced(1);
    if (files.size() > 1 || files.value(0).startsWith(u'-')) {
        std::fputs(sheetwright::kUsage, stderr);
        return sheetwright::kWrongUsage;
    }
    sheetwright::SpeakTheSystemsLanguage(desktop);
    sheetwright::CloseOnTermination();
    return sheetwright::Run(desktop, files);
}
