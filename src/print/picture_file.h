#pragma once

// Pictures from files: BMP, JPEG, PNG, GIF (its first frame), ICO (its largest image) and WMF. What a file is
// is told by its content, never by its name.

#include "print/picture.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <map>

namespace sheetwright {

// Raises 53 (no such file), 76, 75 or 57 as reading does, 481 (Invalid picture) for a file that is no
// picture, is cut short so that nothing of it can be shown, is larger than kLargestPictureFile or declares
// more than kMostPicturePixels, and 7 when memory runs out. `stored` may use "\" or "/". Metafiles take the
// program beside this one that draws them.
[[nodiscard]] Picture LoadPicture(const QString& stored);

// The picture that a file's bytes hold, other than a metafile. Raises 481 and 7 as `LoadPicture`.
[[nodiscard]] Picture PictureOf(const QByteArray& bytes);

inline constexpr qint64 kMostPicturePixels = 100'000'000;
inline constexpr qint64 kLargestPictureFile = 512LL << 20;

// Pictures that were loaded before and whose files have not changed since: a logo stands on every page. Holds
// at most `kMostCachedBytes` of pixels, or one picture that is larger. What is no picture is remembered, too,
// since a metafile may take seconds to be found out.
class PictureCache {
  public:
    explicit PictureCache(qint64 mostBytes = kMostCachedBytes) : m_mostBytes(mostBytes) {}

    // What comes back is good until the next call. Raises as LoadPicture.
    [[nodiscard]] const Picture& Load(const QString& stored);
    [[nodiscard]] qsizetype Count() const { return static_cast<qsizetype>(m_entries.size()); }

    static constexpr qint64 kMostCachedBytes = 256LL << 20;

  private:
    struct Entry {
        Picture picture;  // empty for a file that holds none
        QDateTime modified;
        qint64 size = 0;
        quint64 lastUse = 0;
    };
    using Entries = std::map<QString, Entry>;
    [[nodiscard]] static qint64 BytesOf(const Entry& entry) { return entry.picture.image.sizeInBytes(); }
    void Remove(Entries::iterator entry);
    void MakeRoom(qint64 bytes);

    qint64 m_mostBytes;
    qint64 m_bytes = 0;  // of all pictures
    Entries m_entries;   // by path on the disk
    quint64 m_uses = 0;
};

}  // namespace sheetwright
