#pragma once

// Names of files below a folder, as they come from forms of unknown origin.

#include <QStringView>

namespace sheetwright {

// Whether a stored name that is put behind a folder names something in it or in a folder below: it has a
// file's name at its end and is neither absolute nor led by a drive, and no part of it leads up, on any
// system. At most 1024 characters.
[[nodiscard]] bool IsContainedName(QStringView name);

}  // namespace sheetwright
