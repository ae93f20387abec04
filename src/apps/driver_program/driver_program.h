#pragma once

// What the programs of drivers have in common: options, help, exit codes. 0 means that the table was written
// whole, 1 that nothing was delivered, 2 that the program was called in a way it doesn't understand. Progress
// goes to standard output line by line, errors go to standard error.

#include "apps/cli/command_line.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace sheetwright {

struct DriverProgram {
    QStringView name;
    QStringView usage;  // what stands behind the name
    QStringView help;
    std::vector<cli::OptionSyntax> options;
    std::function<void(const cli::CommandLine&)> fetch;  // raises UsageError or Failure
};

// The whole run of the process. Returns the exit code.
[[nodiscard]] int RunDriverProgram(const DriverProgram& program, int argumentCount, char** arguments);

// Shows at once, on one line.
void TellProgress(QStringView text);

// Raises UsageError when the option is missing or blank.
[[nodiscard]] QString RequiredValue(const cli::CommandLine& line, QStringView option);

// The whole number that the option gives; none without the option. Raises UsageError for anything else and
// outside `least` to `most`.
[[nodiscard]] std::optional<std::uint64_t> NumberOption(const cli::CommandLine& line, QStringView option,
                                                        std::uint64_t least, std::uint64_t most);

}  // namespace sheetwright
