#pragma once

// The bytes of a picture, looked at before a decoder sees them: small files can be made that take gigabytes
// or hours.

#include <QByteArray>
#include <QByteArrayView>

namespace sheetwright {

inline constexpr QByteArrayView kPngFront("\x89PNG\r\n\x1A\n", 8);

// A PNG without the chunks that don't show: packed texts can be a thousand times larger than they look. What
// is no chunk any more stays as it is.
[[nodiscard]] QByteArray PngThatShows(const QByteArray& png);

// How often a JPEG goes over its pixels. A scan of a few bytes costs as much time as a full one.
[[nodiscard]] qint64 JpegScans(QByteArrayView jpeg);

// Position in the icon's directory of its largest image, of equally large ones of that with the most colours.
[[nodiscard]] int LargestIcon(QByteArrayView icon);

// The bytes of that image in the icon when it is a PNG; otherwise empty.
[[nodiscard]] QByteArray PngInIcon(const QByteArray& icon, int position);

}  // namespace sheetwright
