#pragma once

// Plays a metafile's records through libwmf.

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <optional>

namespace sheetwright {

// The picture of that size in `Format_ARGB32_Premultiplied`, transparent where nothing is drawn. `metafile`
// has no header that tells a size, and begins by setting its window. None for one that can't be played.
[[nodiscard]] std::optional<QImage> DrawMetafile(QByteArray metafile, QSize pixels);

}  // namespace sheetwright
