#pragma once

// Path pieces and files. Stored names use "\" and drive letters; on every system both "\" and "/" separate.
// Functions that show or store a path keep the form it came in.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

class QFile;

namespace sheetwright {

[[nodiscard]] bool IsSeparator(QChar character);

// The text behind the last separator, or the whole path when there is none; with `dropExtension` cut before
// its last ".".
[[nodiscard]] QString GetFileName(const QString& path, bool dropExtension = false);

// The text up to and including the last separator; "" when there is none.
[[nodiscard]] QString GetFolder(const QString& path);

// `folder` with a separator at its end, of the kind that the path already uses, otherwise the system's own.
// "" stays as it is: with a separator it would name the root of the disk.
[[nodiscard]] QString WithTrailingSeparator(const QString& folder);

// The path under which the disk holds what `stored` names: separators become the system's, and each component
// that is not there as written is looked for ignoring case. What is found nowhere comes back with the
// system's separators, so that it can be created.
[[nodiscard]] QString OnDisk(const QString& stored);

// Whether a file (not a folder) of that stored name exists; hidden files count.
[[nodiscard]] bool FileExists(const QString& stored);

// Opens a plain file. Raises 53 (no such file), 76 (no such folder) or 75 (no access, or a folder, pipe or
// device, which might never end).
void OpenForReading(QFile& file);

// Whole files. Reading raises what `OpenForReading` raises, or 57.
[[nodiscard]] QByteArray ReadWholeFile(const QString& stored);

// Writes `bytes` beside `stored`, flushes them to the disk and puts the result in place by one rename, so
// that a reader sees the old file or the new one and never a part. Raises 76, 75, 70, 61 (disk full) or 57;
// then the old file is as it was and nothing is left beside it.
void WriteFileAtomically(const QString& stored, QByteArrayView bytes);

// Flushes a file that was written by other means, or a folder after a rename, to the disk. Raises 57.
void FlushToDisk(const QString& path);

// Renames over an existing file in one step. Raises 75 or 70 when that is refused.
void ReplaceFile(const QString& from, const QString& to);

// The failure number for the system's last error (errno), as far as files are concerned.
[[nodiscard]] int FailureNumberOfErrno(int error);

}  // namespace sheetwright
