#include "core/paths.h"

#include "core/failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace sheetwright {

namespace {

qsizetype LastSeparator(QStringView path) {
    qsizetype at = path.size() - 1;
    while (at >= 0 && !IsSeparator(path[at])) --at;
    return at;
}

// The entry of `folder` that differs from `name` in case only, or `name` itself when there is none.
QString EntryIgnoringCase(const QString& folder, const QString& name) {
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList names = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : names)
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return entry;
    return name;
}

[[noreturn]] void RaiseOpenFailure(const QFile& file) {
    const QFileInfo info(file);
    if (info.isDir()) throw Failure(failure::kPathAccess);
    if (!info.dir().exists()) throw Failure(failure::kPathNotFound);
    if (!info.exists() && !(file.openMode() & QIODevice::WriteOnly)) throw Failure(failure::kFileNotFound);
    throw Failure(failure::kPathAccess);
}

}  // namespace

bool IsSeparator(QChar character) { return character == u'\\' || character == u'/'; }

QString GetFileName(const QString& path, bool dropExtension) {
    const QString name = path.sliced(LastSeparator(path) + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dropExtension && dot >= 0 ? name.first(dot) : name;
}

QString GetFolder(const QString& path) { return path.first(LastSeparator(path) + 1); }

QString WithTrailingSeparator(const QString& folder) {
    if (!folder.isEmpty() && IsSeparator(folder.back())) return folder;
    const bool isStoredForm = folder.contains(u'\\') && !folder.contains(u'/');
    return folder + (isStoredForm ? QChar(u'\\') : QDir::separator());
}

QString OnDisk(const QString& stored) {
    QString path = stored;
    path.replace(u'\\', u'/');
    if (path.isEmpty() || QFileInfo::exists(path)) return path;
    QString found;
    for (const QString& component : path.split(u'/')) {
        const QString asWritten = found + component;
        const bool needsSearch = !component.isEmpty() && !QFileInfo::exists(asWritten);
        found = needsSearch ? found + EntryIgnoringCase(found, component) : asWritten;
        found += u'/';
    }
    found.chop(1);
    return found;
}

bool FileExists(const QString& stored) { return !stored.isEmpty() && QFileInfo(OnDisk(stored)).isFile(); }

QByteArray ReadWholeFile(const QString& stored) {
    QFile file(OnDisk(stored));
    if (QFileInfo(file).isDir() || !file.open(QIODevice::ReadOnly)) RaiseOpenFailure(file);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) throw Failure(failure::kDeviceError);
    return bytes;
}

void WriteFileAtomically(const QString& stored, QByteArrayView bytes) {
    const QString path = OnDisk(stored);
    const QFileInfo info(path);
    if (!info.dir().exists()) throw Failure(failure::kPathNotFound);
    if (info.exists() && !(info.permissions() & QFileDevice::WriteUser)) throw Failure(failure::kPathAccess);
    const QString beside = path + QStringLiteral(".new");
    QFile file(beside);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw Failure(failure::kPathAccess);
    errno = 0;
    const bool isWritten = file.write(bytes.data(), bytes.size()) == bytes.size() && ::fsync(file.handle()) == 0;
    const int error = errno;
    file.close();
    try {
        if (!isWritten) throw Failure(FailureNumberOfErrno(error));
        ReplaceFile(beside, path);
    } catch (const Failure&) {
        QFile::remove(beside);
        throw;
    }
}

void FlushToDisk(const QString& path) {
    const int handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) throw Failure(failure::kDeviceError);
    const bool isFlushed = ::fsync(handle) == 0 || errno == EINVAL;
    ::close(handle);
    if (!isFlushed) throw Failure(failure::kDeviceError);
}

void ReplaceFile(const QString& from, const QString& to) {
    const QString target = OnDisk(to);
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(target).constData()) != 0)
        throw Failure(FailureNumberOfErrno(errno));
    Ignoring([&] { FlushToDisk(QFileInfo(target).path()); });
}

int FailureNumberOfErrno(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return failure::kDiskFull;
        case ENOENT:
            return failure::kFileNotFound;
        case ENOTDIR:
            return failure::kPathNotFound;
        case EACCES:
        case EPERM:
        case EBUSY:
        case ETXTBSY:
            return failure::kPermissionDenied;
        case EROFS:
        case EISDIR:
            return failure::kPathAccess;
        case ENAMETOOLONG:
            return failure::kBadFileName;
        default:
            return failure::kDeviceError;
    }
}

}  // namespace sheetwright
