#include "import/driver_icon.h"

#include "import/driver_file.h"

#include <QFileInfo>
#include <QPixmap>
#include <QStringList>

namespace sheetwright {

namespace {

constexpr qint64 kLargestFile = 1 << 20;  // bytes
constexpr int kLook = 24;                 // pixels

bool IsIconFile(const QFileInfo& file) {
    static const QStringList kExtensions{QStringLiteral("svg"), QStringLiteral("png"), QStringLiteral("ico"),
                                         QStringLiteral("bmp")};
    return kExtensions.contains(file.suffix(), Qt::CaseInsensitive) && file.isFile() &&
           file.size() <= kLargestFile;
}

}  // namespace

// An icon of a file that can't be read isn't null by itself.
QIcon IconOf(const DriverFile& driver) {
    if (driver.icon.isEmpty() || !IsIconFile(QFileInfo(driver.icon))) return {};
    QIcon icon(driver.icon);
    return icon.pixmap(QSize(kLook, kLook)).isNull() ? QIcon() : icon;
}

}  // namespace sheetwright
