#pragma once

#include "apps/cli/command_line.h"

#include <QStringView>

#include <span>

namespace sheetwright::cli {

class Session;

// Exit status of the program.
namespace status {
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;
}  // namespace status

// One verb of the command line. `run` returns the exit status; it raises UsageError, CommandError or any
// failure.
struct Verb {
    QStringView name;
    QStringView operands;  // the usage line behind the verb's name
    QStringView help;      // lines of explanation
    std::span<const OptionSyntax> options;
    int (*run)(Session& session, const CommandLine& line);
};

// The only operand of a verb that takes a form. Raises UsageError when there is none or more than one.
[[nodiscard]] QString OnlyForm(const CommandLine& line);

}  // namespace sheetwright::cli
