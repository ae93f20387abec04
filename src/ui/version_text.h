#pragma once

// The program's version as a person reads it: "Version 1.2.3".

#include <QString>

namespace sheetwright {

class Application;

[[nodiscard]] QString VersionText(const Application& application);

}  // namespace sheetwright
