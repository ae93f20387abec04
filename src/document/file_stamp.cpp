#include "document/file_stamp.h"

#include "core/paths.h"

#include <QDateTime>
#include <QFileInfo>

namespace sheetwright {

std::optional<FileStamp> StampOf(const QString& path) {
    const QFileInfo file(OnDisk(path));
    if (path.isEmpty() || !file.isFile()) return std::nullopt;
    return FileStamp{file.size(), file.lastModified().toMSecsSinceEpoch()};
}

}  // namespace sheetwright
