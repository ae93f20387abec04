#pragma once

// The settings of the download manager, which is a program of its own as far as they go.

#include <QString>

namespace sheetwright {

class Application;

// "" for one that isn't set.
[[nodiscard]] QString DownloadSetting(const Application& application, const QString& key);

}  // namespace sheetwright
