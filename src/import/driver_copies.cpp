#include "import/driver_copies.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "import/download_settings.h"
#include "import/driver_folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace sheetwright {

namespace {

bool CopyFile(const QString& from, const QString& to) {
    return QDir().mkpath(QFileInfo(to).path()) && QFile::copy(from, to) &&
           QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);
}

bool CopyFiles(const QString& from, const QString& to) {
    const QDir source(from);
    QDirIterator files(from, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        if (!CopyFile(file, to + source.relativeFilePath(file))) return false;
    }
    return true;
}

// Under a hidden name, which is no driver's, until it is whole.
void CopyDriver(const QString& from, const QString& directory, const QString& name) {
    const QTemporaryDir copy(directory + QStringLiteral(".XXXXXX.new"));
    const QString whole = copy.filePath(name);
    if (copy.isValid() && CopyFiles(from, whole + u'/')) QDir().rename(whole, directory + name);
}

void ReplaceByShipped(const DriverFile& shipped, const QString& folder, const QString& name) {
    if (FileInFolder(shipped.folder, name).isEmpty()) return;
    const QString target = OnDisk(folder + name);
    QDir().mkpath(QFileInfo(target).path());
    WriteFileAtomically(target, ReadWholeFile(shipped.folder + name));
}

// DRIVER.INF last: it tells the version, and so whether all of this is still to be done.
void UpdateDriver(const DriverFile& shipped, const QString& folder) {
    if (ReadDriverFile(folder).version >= shipped.version) return;
    ReplaceByShipped(shipped, folder, QDir(shipped.folder).relativeFilePath(shipped.icon));
    ReplaceByShipped(shipped, folder, shipped.types);
    ReplaceByShipped(shipped, folder, kDriverFileName);
}

void BringDriver(const DriverFile& shipped, const QString& directory) {
    const QString present = OnDisk(directory + shipped.name);
    if (!QFileInfo::exists(present)) {
        CopyDriver(shipped.folder, directory, shipped.name);
    } else if (FileExists(present + u'/' + kDriverFileName)) {
        Ignoring([&] { UpdateDriver(shipped, present + u'/'); });
    }
}

}  // namespace

void BringShippedDrivers(const Application& application) {
    const bool isElsewhere = application.WritableFolder != application.InstallFolder &&
                             DownloadSetting(application, QStringLiteral("Directory")).isEmpty();
    const QString shipped = OnDisk(application.InstallFolder + QStringLiteral("drivers"));
    if (!isElsewhere || !QFileInfo(shipped).isDir()) return;
    const QString directory = OnDisk(application.WritableFolder + QStringLiteral("DRIVERS")) + u'/';
    if (!QDir().mkpath(directory)) return;
    for (const DriverFile& driver : ReadDrivers(shipped + u'/'))
        BringDriver(driver, directory);
}

}  // namespace sheetwright
