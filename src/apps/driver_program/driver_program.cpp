#include "apps/driver_program/driver_program.h"

#include "apps/cli/output.h"
#include "core/application.h"
#include "core/console_user_interface.h"
#include "core/failure.h"

#include <QCoreApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <new>

namespace sheetwright {

namespace {

constexpr int kDelivered = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

constexpr cli::OptionSyntax kHelp{u"help", false};
constexpr cli::OptionSyntax kVersion{u"version", false};

QString UsageOf(const DriverProgram& program) {
    return QStringLiteral("usage: %1 %2").arg(program.name, program.usage);
}

int Print(const QString& text) {
    cli::Output out;
    out.Line(text);
    return out.Flush() ? kDelivered : kFailed;
}

int PrintVersion(const DriverProgram& program) {
    const Version version = ProgramVersion();
    return Print(QStringLiteral("%1 %2.%3.%4")
                     .arg(program.name)
                     .arg(version.major)
                     .arg(version.minor)
                     .arg(version.revision));
}

int Fetch(const DriverProgram& program, const QStringList& arguments) {
    std::vector<cli::OptionSyntax> known = program.options;
    known.insert(known.end(), {kHelp, kVersion});
    const cli::CommandLine line = cli::ParseCommandLine(arguments.mid(1), known);
    if (line.Has(kHelp.name)) return Print(UsageOf(program) + QStringLiteral("\n\n%1").arg(program.help));
    if (line.Has(kVersion.name)) return PrintVersion(program);
    if (!line.operands.isEmpty())
        throw cli::UsageError(QStringLiteral("too many operands: %1").arg(line.operands.first()));
    program.fetch(line);
    return kDelivered;
}

int Guarded(const DriverProgram& program, const QStringList& arguments) {
    try {
        return Fetch(program, arguments);
    } catch (const cli::UsageError& error) {
        ConsoleUserInterface::PrintError(error.Text());
        std::fputs(qPrintable(UsageOf(program) + u'\n'), stderr);
        return kWrongUsage;
    } catch (const Failure& caught) {
        ConsoleUserInterface::PrintError(caught.Text());
    } catch (const std::bad_alloc&) {
        ConsoleUserInterface::PrintError(FailureText(failure::kOutOfMemory));
    }
    return kFailed;
}

// Remarks of the libraries are for their developers. The last word before the end is told.
void TellTheFatalOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) ConsoleUserInterface::PrintError(text);
}

}  // namespace

int RunDriverProgram(const DriverProgram& program, int argumentCount, char** arguments) {
    qInstallMessageHandler(TellTheFatalOnly);
#ifdef SIGXFSZ  // a file beyond its limit is a failed write, not the end
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const QCoreApplication application(argumentCount, arguments);
    return Guarded(program, QCoreApplication::arguments());
}

void TellProgress(QStringView text) {
    cli::Output out;
    out.Line(cli::OnOneLine(text));
    (void)out.Flush();  // the table counts, not who reads along
}

QString RequiredValue(const cli::CommandLine& line, QStringView option) {
    const QString value = line.Value(option).value_or(QString());
    if (value.isEmpty()) throw cli::UsageError(QStringLiteral("option --%1 is needed").arg(option));
    return value;
}

std::optional<std::uint64_t> NumberOption(const cli::CommandLine& line, QStringView option,
                                          std::uint64_t least, std::uint64_t most) {
    const std::optional<QString> text = line.Value(option);
    if (!text) return std::nullopt;
    bool isNumber = std::ranges::all_of(*text, [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    const qulonglong number = isNumber ? text->toULongLong(&isNumber) : 0;
    if (isNumber && number >= least && number <= most) return number;
    throw cli::UsageError(QStringLiteral("option --%1 takes a number from %2 to %3, not \"%4\"")
                              .arg(option, QString::number(least), QString::number(most), *text));
}

}  // namespace sheetwright
