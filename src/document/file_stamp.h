#pragma once

// By what a file is known to be the same as before.

#include <QString>

#include <optional>

namespace sheetwright {

struct FileStamp {
    qint64 bytes = 0;
    qint64 modified = 0;  // milliseconds since 1970
    bool operator==(const FileStamp&) const = default;
};

// None where there is no file of that stored name.
[[nodiscard]] std::optional<FileStamp> StampOf(const QString& path);

}  // namespace sheetwright
