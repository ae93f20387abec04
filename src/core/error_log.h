#pragma once

// "errors.csv": one row for each error that a handler catches and survives. It is for support; a user never
// sees it.

#include "core/failure.h"

#include <QString>

#include <optional>
#include <utility>

namespace sheetwright {

class Application;

// Writes one row. A failure of the log (file locked or read-only) is raised to the caller.
void LogError(const Application& application, const QString& sub, const QString& additional, int number);

// Runs one step of a walk; its failure is logged under `sub` and the walk goes on with the next step. A
// failure of the log itself is ignored. Returns the failure, so that the walk can report one message at its
// end.
template <typename Step>
std::optional<Failure> LoggedStep(const Application& application, const QString& sub,
                                  const QString& additional, Step&& step) {
    std::optional<Failure> caught = Ignoring(std::forward<Step>(step));
    if (caught) Ignoring([&] { LogError(application, sub, additional, caught->Number()); });
    return caught;
}

}  // namespace sheetwright
