#pragma once

// Bitmaps that stand in a metafile.

#include <QByteArrayView>
#include <QImage>

namespace sheetwright {

// A bitmap without the header that it has in a file of its own; null for one that makes no sense.
[[nodiscard]] QImage DeviceIndependentBitmap(QByteArrayView bytes);

}  // namespace sheetwright
