#pragma once

// Folders of drivers: which there are, and what lies in one.

#include "import/driver_file.h"

#include <QLatin1String>
#include <QString>

#include <vector>

namespace sheetwright {

// The file that makes a folder that of a driver.
inline constexpr QLatin1String kDriverFileName("DRIVER.INF");

// Whether something lies below a folder, links followed on both sides. False for what isn't there.
[[nodiscard]] bool IsInFolder(const QString& path, const QString& folder);

// Full path of a plain file somewhere below `folder` (with trailing separator), named without leading out of
// it; "" when there is none.
[[nodiscard]] QString FileInFolder(const QString& folder, const QString& name);

// The drivers below `directory` (with trailing separator) by name, at most 32,767. Folders without the file,
// hidden ones, links that lead out of the directory and names that no page could write are passed over.
[[nodiscard]] std::vector<DriverFile> ReadDrivers(const QString& directory);

}  // namespace sheetwright
