#pragma once

// Where the download manager and its drivers lie.

#include <QString>

namespace sheetwright {

class Application;

// `DownloadRoot`: the setting "Directory" of the download manager; where there is none, the writable folder,
// which then holds the program's own drivers. Without trailing separator.
[[nodiscard]] QString DownloadRoot(const Application& application);

}  // namespace sheetwright
