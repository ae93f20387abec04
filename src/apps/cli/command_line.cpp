#include "apps/cli/command_line.h"

#include <algorithm>
#include <limits>

namespace sheetwright::cli {

namespace {

bool IsOperand(QStringView argument) {
    if (!argument.startsWith(u'-') || argument == u"-") return true;
    const QChar second = argument[1];
    return second == u'.' || (second >= u'0' && second <= u'9');
}

const OptionSyntax& Known(QStringView name, std::span<const OptionSyntax> known, const QString& argument) {
    const auto found = std::ranges::find(known, name, &OptionSyntax::name);
    if (found == known.end()) throw UsageError(QStringLiteral("unknown option %1").arg(argument));
    return *found;
}

// Reads the option at `at` and leaves `at` on its last argument.
Option TakeOption(const QStringList& arguments, qsizetype& at, std::span<const OptionSyntax> known) {
    const QString argument = arguments[at] == QStringLiteral("-h") ? QStringLiteral("--help") : arguments[at];
    if (!argument.startsWith(QStringLiteral("--")))
        throw UsageError(QStringLiteral("unknown option %1").arg(argument));
    const qsizetype equals = argument.indexOf(u'=');
    const QString name = argument.sliced(2, (equals < 0 ? argument.size() : equals) - 2);
    const OptionSyntax& syntax = Known(name, known, argument);
    if (!syntax.takesValue) {
        if (equals >= 0) throw UsageError(QStringLiteral("option --%1 takes no value").arg(name));
        return {name, QString()};
    }
    if (equals >= 0) return {name, argument.sliced(equals + 1)};
    if (++at >= arguments.size()) throw UsageError(QStringLiteral("option --%1 needs a value").arg(name));
    return {name, arguments[at]};
}

}  // namespace

std::optional<QString> CommandLine::Value(QStringView name) const {
    const auto found = std::find_if(options.rbegin(), options.rend(),
                                    [&](const Option& option) { return option.name == name; });
    return found == options.rend() ? std::nullopt : std::optional(found->value);
}

CommandLine ParseCommandLine(const QStringList& arguments, std::span<const OptionSyntax> known) {
    CommandLine line;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        if (arguments[at] == QStringLiteral("--")) {
            line.operands += arguments.sliced(at + 1);
            break;
        }
        if (IsOperand(arguments[at])) {
            line.operands << arguments[at];
        } else {
            line.options.push_back(TakeOption(arguments, at, known));
        }
    }
    return line;
}

std::optional<int> WholeNumber(QStringView text) {
    constexpr qsizetype kMostDigits = 9;
    const bool isDigits =
        !text.isEmpty() && text.size() <= kMostDigits &&
        std::ranges::all_of(text, [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    if (!isDigits) return std::nullopt;
    const int number = text.toInt();
    return number <= std::numeric_limits<std::int16_t>::max() ? std::optional(number) : std::nullopt;
}

int PageNumber(QStringView text) {
    const std::optional<int> number = WholeNumber(text);
    if (!number) throw UsageError(QStringLiteral("\"%1\" is no page number").arg(text));
    return *number;
}

}  // namespace sheetwright::cli
