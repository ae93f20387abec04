// The command line over the engine: one verb for each task, no display, one process for each call.

#include "apps/cli/check.h"
#include "apps/cli/eval.h"
#include "apps/cli/fill.h"
#include "apps/cli/info.h"
#include "apps/cli/session.h"
#include "apps/cli/values.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <new>

namespace sheetwright::cli {

namespace {

constexpr QStringView kProgram = u"sheetwright-cli";

constexpr OptionSyntax kHelpOption{u"help", false};

std::array<Verb, 5> Verbs() {
    return {InfoVerb(), ValuesVerb(), FillVerb(), EvalVerb(), CheckVerb()};
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
    const std::array<Verb, 5> verbs = Verbs();
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

}  // namespace

QString OnlyForm(const CommandLine& line) {
    if (line.operands.size() == 1) return line.operands.first();
    throw UsageError(line.operands.isEmpty() ? QStringLiteral("a form is needed")
                                             : QStringLiteral("too many operands: %1").arg(line.operands[1]));
}

}  // namespace sheetwright::cli

int main(int argumentCount, char** arguments) {
    // Remarks of the libraries are for their developers; standard error belongs to the errors of forms.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
#ifdef SIGXFSZ  // a pipe that nobody reads and a file beyond its limit are failed writes, not the end
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const QCoreApplication application(argumentCount, arguments);
    return sheetwright::cli::Run(QCoreApplication::arguments());
}
