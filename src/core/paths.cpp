#include "core/paths.h"

#include "core/atomic_file.h"
#include "core/failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

namespace sheetwright {

namespace {

qsizetype LastSeparator(QStringView path) {
    qsizetype at = path.size() - 1;
    while (at >= 0 && !IsSeparator(path[at]))
        --at;
    return at;
}

// The entry of `folder` that differs from `name` in case only, or `name` itself when there is none.
QString EntryIgnoringCase(const QString& folder, const QString& name) {
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList names =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : names)
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return entry;
    return name;
}

struct ErrnoName {
    int error;
    int number;
};

constexpr std::array kErrnoNames{
    ErrnoName{ENOSPC, failure::kDiskFull},          ErrnoName{EDQUOT, failure::kDiskFull},
    ErrnoName{EFBIG, failure::kDiskFull},           ErrnoName{ENOENT, failure::kFileNotFound},
    ErrnoName{ENOTDIR, failure::kPathNotFound},     ErrnoName{EACCES, failure::kPermissionDenied},
    ErrnoName{EPERM, failure::kPermissionDenied},   ErrnoName{EBUSY, failure::kPermissionDenied},
    ErrnoName{ETXTBSY, failure::kPermissionDenied}, ErrnoName{EROFS, failure::kPathAccess},
    ErrnoName{EISDIR, failure::kPathAccess},        ErrnoName{ELOOP, failure::kPathAccess},
    ErrnoName{ENAMETOOLONG, failure::kBadFileName}, ErrnoName{EEXIST, failure::kFileExists},
    ErrnoName{EMFILE, failure::kTooManyFiles},      ErrnoName{ENFILE, failure::kTooManyFiles},
    ErrnoName{ENOMEM, failure::kOutOfMemory},
};

}  // namespace

bool IsSeparator(QChar character) {
    return character == u'\\' || character == u'/';
}

QString GetFileName(const QString& path, bool dropExtension) {
    const QString name = path.sliced(LastSeparator(path) + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dropExtension && dot >= 0 ? name.first(dot) : name;
}

QString GetFolder(const QString& path) {
    return path.first(LastSeparator(path) + 1);
}

QString WithTrailingSeparator(const QString& folder) {
    if (folder.isEmpty() || IsSeparator(folder.back())) return folder;
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

bool FileExists(const QString& stored) {
    return !stored.isEmpty() && QFileInfo(OnDisk(stored)).isFile();
}

void OpenForReading(QFile& file) {
    const QFileInfo info(file);
    if (!info.exists() && !info.isSymLink())
        throw Failure(info.dir().exists() ? failure::kFileNotFound : failure::kPathNotFound);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) throw Failure(failure::kPathAccess);
}

QByteArray ReadWholeFile(const QString& stored) {
    QFile file(OnDisk(stored));
    OpenForReading(file);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) throw Failure(failure::kDeviceError);
    return bytes;
}

void WriteFileAtomically(const QString& stored, QByteArrayView bytes) {
    AtomicFile file(stored, kUnfinishedSuffix.toString());
    file.Beside().Write(bytes);
    file.Beside().Flush();
    file.Replace();
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
    const auto* found = std::find_if(kErrnoNames.begin(), kErrnoNames.end(),
                                     [error](const ErrnoName& name) { return name.error == error; });
    return found == kErrnoNames.end() ? failure::kDeviceError : found->number;
}

}  // namespace sheetwright
