#include "core/atomic_file.h"

#include "core/failure.h"
#include "core/paths.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace sheetwright {

namespace {

constexpr int kLinksFollowed = 40;

// The file that a chain of symbolic links ends in, whether or not it exists.
QString BehindLinks(const QString& path) {
    std::filesystem::path file = QFile::encodeName(path).toStdString();
    std::error_code error;
    for (int count = 0; std::filesystem::is_symlink(file, error); ++count) {
        if (count == kLinksFollowed) throw Failure(failure::kPathAccess);
        const std::filesystem::path next = std::filesystem::read_symlink(file, error);
        if (error) throw Failure(failure::kPathAccess);
        file = file.parent_path() / next;
    }
    return QFile::decodeName(QByteArray::fromStdString(file.string()));
}

std::optional<struct stat> StatusOf(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return std::nullopt;
    return status;
}

// A file that can't be created blames the place where it should lie, not the file.
int CreationFailure(int error, int failureIfThere) {
    const int number = FailureNumberOfErrno(error);
    if (number == failure::kFileExists) return failureIfThere;
    if (number == failure::kFileNotFound) return failure::kPathNotFound;
    return number == failure::kPermissionDenied ? failure::kPathAccess : number;
}

// Two programs may save the same file at the same moment. Each holds its own file beside, so that neither
// takes the other's unfinished one for a left-over of a crash.
void RemoveLeftOver(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    const int handle = ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0 && (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG)) return;
    const bool isFree = handle < 0 || (TryHoldFile(handle) && IsFileInPlace(handle, path));
    const bool isGone = isFree && (::unlink(name.constData()) == 0 || errno == ENOENT);
    if (handle >= 0) ::close(handle);
    if (!isGone) throw Failure(isFree ? failure::kPathAccess : failure::kPermissionDenied);
}

}  // namespace

bool TryHoldFile(int handle) {
    return ::flock(handle, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR);
}

bool IsFileInPlace(int handle, const QString& path) {
    struct stat opened {};
    const std::optional<struct stat> present = StatusOf(path);
    return ::fstat(handle, &opened) == 0 && present && opened.st_dev == present->st_dev &&
           opened.st_ino == present->st_ino;
}

NewFile::NewFile(const QString& path, int failureIfThere)
    : m_handle(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
    if (m_handle < 0) throw Failure(CreationFailure(errno, failureIfThere));
}

NewFile::~NewFile() {
    ::close(m_handle);
}

int NewFile::TryWrite(QByteArrayView bytes) const {
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(m_handle, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written < 0 ? errno : ENOSPC;
        bytes = bytes.sliced(written);
    }
    return 0;
}

void NewFile::Write(QByteArrayView bytes) const {
    if (const int error = TryWrite(bytes); error != 0) throw Failure(FailureNumberOfErrno(error));
}

void NewFile::Flush() const {
    if (::fsync(m_handle) != 0 && errno != EINVAL) throw Failure(FailureNumberOfErrno(errno));
}

AtomicFile::AtomicFile(const QString& target, const QString& suffix)
    : m_target(BehindLinks(OnDisk(target))), m_beside(m_target + suffix) {
    const std::optional<struct stat> old = StatusOf(m_target);
    if (old && !S_ISREG(old->st_mode)) throw Failure(failure::kPathAccess);
    RemoveLeftOver(m_beside);
    m_file.emplace(m_beside, failure::kPermissionDenied);
    // Another program may have taken it for a left-over before it was held.
    const bool isOurs = TryHoldFile(m_file->Handle()) && IsFileInPlace(m_file->Handle(), m_beside);
    if (!isOurs) throw Failure(failure::kPermissionDenied);
}

AtomicFile::~AtomicFile() {
    if (!m_isInPlace && IsFileInPlace(m_file->Handle(), m_beside))
        ::unlink(QFile::encodeName(m_beside).constData());
}

void AtomicFile::Replace() {
    if (const std::optional<struct stat> old = StatusOf(m_target)) {
        if (!(old->st_mode & S_IWUSR)) throw Failure(failure::kPathAccess);
        // Only an administrator may give files away, and not every file system knows owners and modes: what
        // can't be taken over is no reason not to save.
        if (::fchown(m_file->Handle(), old->st_uid, old->st_gid) != 0) errno = 0;
        if (::fchmod(m_file->Handle(), old->st_mode & 07777) != 0) errno = 0;
    }
    if (!IsFileInPlace(m_file->Handle(), m_beside)) throw Failure(failure::kPermissionDenied);
    ReplaceFile(m_beside, m_target);
    m_isInPlace = true;
}

}  // namespace sheetwright
