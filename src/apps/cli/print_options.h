#pragma once

// Which pages of a form go out, and where to, as the options of the verbs that draw name it.

#include "apps/cli/command_line.h"

#include <QString>

#include <optional>

namespace sheetwright::cli {

// Data pages, both ends included.
struct PageRange {
    std::int16_t first = 1;
    std::int16_t last = 0;
};

// The value of `--pages`: "A-B", "A", "A-" or "-B".
class PageChoice {
  public:
    // Every page where there is no such option. Raises UsageError for a text that names no pages.
    explicit PageChoice(const CommandLine& line);

    // The chosen ones of a form with that many pages. Raises UsageError, naming the choice, when they are not
    // all there.
    [[nodiscard]] PageRange Of(std::int16_t pages) const;

  private:
    QString m_text;
    std::optional<int> m_first;
    std::optional<int> m_last;
};

// Raise UsageError unless `target` has the ending `ending`, such as ".pdf", and the form itself stands
// neither there nor where the target is written before it is put in place.
void RequireEnding(const QString& target, const QString& ending);
void RequireOtherThan(const QString& form, const QString& target);

}  // namespace sheetwright::cli
