#pragma once

// Which programs a driver may start: those of its own folder, the driver programs that come with this one,
// and those that the person has allowed in the settings. Nothing is looked for anywhere else.

#include <QString>

namespace sheetwright {

class Application;
struct DriverFile;

// Full path of the driver's program, links followed; "" when there is none that may and can be started.
[[nodiscard]] QString ProgramOf(const Application& application, const DriverFile& driver);

}  // namespace sheetwright
