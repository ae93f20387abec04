#pragma once

// The boundary around each command: a menu action, a remote message, a verb of the command line. A failure
// that reaches it is logged and told to the person; other open documents live on.

#include "core/failure.h"

#include <QString>

#include <functional>
#include <optional>

namespace sheetwright {

class Application;

// Runs `command`. A failure, also running out of memory, is logged under `name` and shown as number and text
// under the application's title. Returns what failed.
std::optional<Failure> RunCommand(Application& application, const QString& name,
                                  const std::function<void()>& command);

}  // namespace sheetwright
