// The command line over the engine: one verb for each task, no display, one process for each call.

#include "apps/cli/check.h"
#include "apps/cli/eval.h"
#include "apps/cli/fill.h"
#include "apps/cli/info.h"
#include "apps/cli/render.h"
#include "apps/cli/session.h"
#include "apps/cli/values.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <memory>
#include <new>
#include <span>
#include <string_view>

namespace sheetwright::cli {

namespace {

constexpr QStringView kProgram = u"sheetwright-cli";

constexpr OptionSyntax kHelpOption{u"help", false};

std::array<Verb, 6> Verbs() {
    return {InfoVerb(), ValuesVerb(), FillVerb(), RenderVerb(), EvalVerb(), CheckVerb()};
}

QString UsageOf(const Verb& verb) {
    return QStringLiteral("usage: %1 %2 %3").arg(kProgram, verb.name, verb.operands);
}

QString GeneralHelp() {
    QString help = QStringLiteral("usage: %1 VERB ...\n\nVerbs:\n").arg(kProgram);
    for (const Verb& verb : Verbs())
        help += QStringLiteral("  %1 %2\n").arg(verb.name, verb.operands);
    return help + QStringLiteral("\n\"%1 VERB --help\" tells more about a verb.\n").arg(kProgram);
}

// Several lines at once, the last one with its line end.
void Print(Output& out, QStringView lines) {
    out.Line(lines.chopped(lines.endsWith(u'\n') ? 1 : 0));
}

CommandLine ParseFor(const Verb& verb, const QStringList& arguments) {
    std::vector<OptionSyntax> known(verb.options.begin(), verb.options.end());
    known.push_back(kHelpOption);
    return ParseCommandLine(arguments, known);
}

int RunVerb(const Verb& verb, const QStringList& arguments) {
    const CommandLine line = ParseFor(verb, arguments);
    if (line.Has(kHelpOption.name)) {
        Output out;
        Print(out, UsageOf(verb) + QStringLiteral("\n\n") + verb.help.toString());
        return out.Flush() ? status::kDone : status::kFailed;
    }
    Session session(QCoreApplication::applicationDirPath());
    int result = status::kFailed;
    (void)session.Guarded(verb.name, [&] { result = verb.run(session, line); });
    if (session.Out().Flush()) return result;
    if (!session.Out().IsReaderGone())
        ConsoleUserInterface::PrintError(QStringLiteral("standard output can't be written"));
    return status::kFailed;
}

int WrongUsage(const QString& text, const QString& usage) {
    ConsoleUserInterface::PrintError(text);
    std::fputs(qPrintable(usage + u'\n'), stderr);
    return status::kWrongUsage;
}

int Broken(const Failure& caught) {
    ConsoleUserInterface::PrintError(
        QStringLiteral("%1: %2").arg(QString::number(caught.Number()), caught.Text()));
    return status::kFailed;
}

int Run(const QStringList& arguments) {
    const QString first = arguments.value(1);
    Output out;
    if (first == QStringLiteral("--help") || first == QStringLiteral("-h")) {
        Print(out, GeneralHelp());
        return out.Flush() ? status::kDone : status::kFailed;
    }
    if (first == QStringLiteral("--version")) {
        const Version version = ProgramVersion();
        Print(out, QStringLiteral("%1 %2.%3.%4")
                       .arg(kProgram)
                       .arg(version.major)
                       .arg(version.minor)
                       .arg(version.revision));
        return out.Flush() ? status::kDone : status::kFailed;
    }
    const std::array<Verb, 6> verbs = Verbs();
    const auto verb = std::ranges::find(verbs, QStringView(first), &Verb::name);
    const QString usage = QStringLiteral("usage: %1 VERB ... (see --help)").arg(kProgram);
    if (arguments.size() < 2) return WrongUsage(QStringLiteral("a verb is needed"), usage);
    if (verb == verbs.end()) return WrongUsage(QStringLiteral("unknown verb %1").arg(first), usage);
    try {
        return RunVerb(*verb, arguments.sliced(2));
    } catch (const UsageError& error) {
        return WrongUsage(error.Text(), UsageOf(*verb));
    } catch (const Failure& caught) {  // before there was a session: the installation itself is broken
        return Broken(caught);
    } catch (const std::bad_alloc&) {
        return Broken(Failure(failure::kOutOfMemory));
    }
}

// Remarks of the libraries are for their developers; standard error belongs to the errors of forms. The last
// word before the end is told.
void TellTheFatalOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) ConsoleUserInterface::PrintError(text);
}

// Told from the bare arguments, since the kind of application comes before everything else. To take a value
// for the option costs a moment and no more.
bool Draws(std::span<char* const> arguments) {
    const auto draws = [](std::string_view argument) {
        return argument.starts_with("--pdf") || argument.starts_with("--import");
    };
    return arguments.size() > 2 &&
           (std::string_view(arguments[1]) == "render" || std::ranges::any_of(arguments.subspan(2), draws));
}

// Fonts come with an application of the kind that has windows, on a platform that shows none, whatever
// display there is. It starts slower, so the verbs that draw nothing go without. The count and the arguments
// must live as long as the application.
std::unique_ptr<QCoreApplication> ApplicationFor(bool draws, int& count, char** arguments) {
    if (!draws) return std::make_unique<QCoreApplication>(count, arguments);
    qunsetenv("QT_QPA_PLATFORMTHEME");  // may insist on a display
    const QTemporaryDir runtime;        // without one, another would be made that stays
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    return std::make_unique<QGuiApplication>(count, arguments);
}

int RunIn(std::span<char*> arguments) {
    const bool draws = Draws(arguments);
    char platform[] = "-platform";
    char offscreen[] = "offscreen";
    std::array<char*, 4> own{arguments.empty() ? platform : arguments[0], platform, offscreen, nullptr};
    int ownCount = draws ? 3 : 1;
    const std::unique_ptr<QCoreApplication> application = ApplicationFor(draws, ownCount, own.data());
    QStringList texts;
    for (const char* argument : arguments)
        texts << QString::fromLocal8Bit(argument);
    return Run(texts);
}

}  // namespace

QString OnlyForm(const CommandLine& line) {
    if (line.operands.size() == 1) return line.operands.first();
    throw UsageError(line.operands.isEmpty() ? QStringLiteral("a form is needed")
                                             : QStringLiteral("too many operands: %1").arg(line.operands[1]));
}

}  // namespace sheetwright::cli

int main(int argumentCount, char** arguments) {
    qInstallMessageHandler(sheetwright::cli::TellTheFatalOnly);
#ifdef SIGXFSZ  // a pipe that nobody reads and a file beyond its limit are failed writes, not the end
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    return sheetwright::cli::RunIn({arguments, static_cast<std::size_t>(argumentCount)});
}
