#pragma once

// Pictures from files: BMP, JPEG, PNG, GIF (its first frame), ICO (its largest image) and WMF. What a file is
// is told by its content, never by its name.

#include "print/picture.h"

#include <QDateTime>
#include <QString>

#include <map>

namespace sheetwright {

// Raises 53 (no such file), 76, 75 or 57 as reading does, 481 (Invalid picture) for a file that is no
// picture, is cut short so that nothing of it can be shown, or declares more than kMostPicturePixels, and 7
// when memory runs out. `stored` may use "\" or "/".
[[nodiscard]] Picture LoadPicture(const QString& stored);

inline constexpr qint64 kMostPicturePixels = 100'000'000;

// Pictures that were loaded before and whose files have not changed since: a logo stands on every page. Holds
// a limited amount of pixels.
class PictureCache {
  public:
    // Raises as LoadPicture.
    [[nodiscard]] const Picture& Load(const QString& stored);
    void Clear();

  private:
    struct Entry {
        Picture picture;
        QDateTime modified;
        qint64 size = 0;
        quint64 lastUse = 0;
    };
    void MakeRoom();

    std::map<QString, Entry> m_entries;
    quint64 m_uses = 0;
};

}  // namespace sheetwright
