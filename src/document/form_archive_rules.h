#pragma once

// What an archive must keep to before it is unpacked as a form, and again before a new one replaces an old
// form: names, number and sizes of its members.

#include <QString>

#include <vector>

namespace sheetwright {

class ZipReader;
struct ZipMember;

// Checks everything that the directory says. `current` becomes the name of the member that is being looked
// at, for the log. Raises 52 (a name that is no bare file name), 58 (two names that differ in case only), 70
// (encrypted), 6 (too large) or 321 (a link or other special member, or two text members, of which none can
// be told to be the form).
void CheckMembers(const std::vector<ZipMember>& members, qint64 archiveBytes, QString& current);

// Counts what is really unpacked: a directory may claim anything. `Take` raises 6 at the first byte too many.
class UnpackedBytes {
  public:
    explicit UnpackedBytes(qint64 archiveBytes) : m_archiveBytes(archiveBytes) {}
    void BeginMember() { m_member = 0; }
    void Take(qint64 bytes);

  private:
    qint64 m_archiveBytes;
    qint64 m_member = 0;
    qint64 m_total = 0;
};

// Whether so much in so small an archive is what hostile archives look like.
[[nodiscard]] bool IsTooDense(qint64 unpackedBytes, qint64 archiveBytes);

}  // namespace sheetwright
