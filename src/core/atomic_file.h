#pragma once

// A file on its way to replace another: written beside it, flushed to the disk, put in place by one rename. A
// reader sees the old file or the new one and never a part; a failure, or just letting go, leaves the old
// one.

#include "core/failure.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

namespace sheetwright {

// Behind the name of a file that is being written; what bears it is taken for the left-over of a crash.
inline constexpr QStringView kUnfinishedSuffix = u".new";

// A file that is created here and was not there before; closed on destruction.
class NewFile {
  public:
    // Raises `failureIfThere` (something of that name is there), 75 (no access), 76 (no such folder), 61
    // or 57.
    explicit NewFile(const QString& path, int failureIfThere = failure::kPathAccess);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    [[nodiscard]] int Handle() const { return m_handle; }

    // Writes at the handle's position. Returns 0 or the system's error number: libraries that write through a
    // callback can't have a failure travel through them.
    [[nodiscard]] int TryWrite(QByteArrayView bytes) const;

    // Raise 61, 57 or another number of `FailureNumberOfErrno`.
    void Write(QByteArrayView bytes) const;
    void Flush() const;

  private:
    int m_handle;
};

class AtomicFile {
  public:
    // Opens `target` + `suffix`, both taken behind symbolic links; a left-over of that name is replaced.
    // Raises 75 (target is no plain file, or no access), 70 (another program is saving it), 76 (no such
    // folder), 61 or 57.
    AtomicFile(const QString& target, const QString& suffix);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    // Removes the file beside unless it was put in place.
    ~AtomicFile();

    [[nodiscard]] const QString& BesidePath() const { return m_beside; }
    [[nodiscard]] const NewFile& Beside() const { return *m_file; }

    // Gives the file the owner and permissions of the old one and renames it over that, in one step. Raises
    // 75 when the old file is read-only, otherwise what the rename raises.
    void Replace();

  private:
    QString m_target;
    QString m_beside;
    std::optional<NewFile> m_file;
    bool m_isInPlace = false;
};

// Whether this process now is the only one to hold an open file. Where the system can't hold files, everybody
// may.
[[nodiscard]] bool TryHoldFile(int handle);

// Whether `path` still leads to the file that was opened, and not to one that another process has put in its
// place.
[[nodiscard]] bool IsFileInPlace(int handle, const QString& path);

}  // namespace sheetwright
