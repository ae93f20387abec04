#pragma once

// The picture of a driver.

#include <QIcon>

namespace sheetwright {

struct DriverFile;

// From the driver's own file, an .svg, .png, .ico or .bmp; no icon for a driver without, or whose file can't
// be read.
[[nodiscard]] QIcon IconOf(const DriverFile& driver);

}  // namespace sheetwright
