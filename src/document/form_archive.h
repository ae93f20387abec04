#pragma once

// The archive that a form is on disk: a zip with one text member and the pictures of its design, flat, under
// bare names. Archives are hostile until proved otherwise; what is refused leaves nothing behind.

#include <QString>
#include <QStringList>
#include <QStringView>

namespace sheetwright {

class Application;

// Limits on what an archive may unpack to. Sizes are counted while inflating, whatever the directory claims.
namespace archive_limits {
inline constexpr int kMembers = 10'000;
inline constexpr qint64 kMemberBytes = 512LL * 1024 * 1024;
inline constexpr qint64 kTotalBytes = 1024LL * 1024 * 1024;
// Unpacked bytes to the bytes of the archive, looked at above the floor. Repeated text packs less than 200 to
// one; nothing but an empty picture comes near the 1000 to one of a bomb.
inline constexpr qint64 kRatio = 800;
inline constexpr qint64 kRatioFloor = 1024 * 1024;
inline constexpr int kNameLength = 255;  // bytes of a member's name
}  // namespace archive_limits

// Behind the name of a form that is being saved.
inline constexpr QStringView kUnfinishedFormSuffix = u" 2";

// Unpacks the form at `path` into `destination` (a folder, with trailing separator). A plain text form, one
// whose first line begins with "VERSION", is copied. Failures of the archive show "Error code %1", are logged
// under "UnZipForm" with the member's name, and leave the destination as it was: the reader then finds no
// text member. Afterwards the text member bears the path's base name, ".af" and the last letter of its own
// name, unless that name is taken. Raises 53, 75 or 76 when the file can't be opened at all, and what copying
// a plain text raises.
void UnZipForm(Application& application, const QString& path, const QString& destination);

// Packs all files of `source` into the form at `path`: written beside as path + " 2", flushed, opened again
// and every member compared with its file, then put in place by one rename. A symbolic link at `path` stays
// one: the file behind it is replaced. At each failure, also when there is no text member (53), "Error code
// %1" is shown, it is logged under "ZipForm", the file beside is deleted and the old form stays; returns
// false then.
bool ZipForm(Application& application, const QString& path, const QString& source);

// Names of the archive's members in archive order; for a plain text form its own file name alone. Raises the
// failure number that UnZipForm would show.
[[nodiscard]] QStringList ArchiveMembers(const QString& path);

// Whether the file's first line begins with "VERSION": plain text, not an archive.
[[nodiscard]] bool IsPlainTextForm(const QString& path);

// Whether a file name matches "*.af?", the one way in which the text member is told from pictures.
[[nodiscard]] bool IsTextMemberName(const QString& name);

}  // namespace sheetwright
