#include "import/driver_folder.h"

#include "core/contained_name.h"
#include "core/paths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace sheetwright {

namespace {

constexpr std::size_t kMostDrivers = std::numeric_limits<std::int16_t>::max();

// Pages separate drivers by ";" and folders by "\".
bool CanPagesName(const QString& name) {
    return IsContainedName(name) && !name.contains(u';') && !name.contains(u'\\');
}

bool ComesBefore(const QString& left, const QString& right) {
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order == 0 ? left < right : order < 0;
}

QStringList FolderNames(const QString& directory) {
    QStringList names = QDir(directory).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

}  // namespace

bool IsInFolder(const QString& path, const QString& folder) {
    const QString inside = QFileInfo(path).canonicalFilePath();
    const QString outside = WithTrailingSeparator(QFileInfo(folder).canonicalFilePath());
    return !inside.isEmpty() && !outside.isEmpty() && inside.startsWith(outside);
}

QString FileInFolder(const QString& folder, const QString& name) {
    if (!IsContainedName(name)) return {};
    const QString path = OnDisk(folder + name);
    return QFileInfo(path).isFile() && IsInFolder(path, folder) ? path : QString();
}

std::vector<DriverFile> ReadDrivers(const QString& directory) {
    std::vector<DriverFile> drivers;
    if (directory.isEmpty()) return drivers;
    for (const QString& name : FolderNames(directory)) {
        if (drivers.size() == kMostDrivers) break;
        const QString folder = directory + name + u'/';
        const bool isDriver = CanPagesName(name) && IsInFolder(folder, directory) &&
                              !FileInFolder(folder, kDriverFileName).isEmpty();
        if (isDriver) drivers.push_back(ReadDriverFile(folder));
    }
    return drivers;
}

}  // namespace sheetwright
