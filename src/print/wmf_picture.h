#pragma once

// Windows metafiles as pictures. The program "sheetwright-wmf" draws them in a process of its own: the
// library it does that with was not made for hostile files.

#include "print/picture.h"
#include "print/wmf_records.h"

#include <QSize>

namespace sheetwright {

// The metafile drawn with at least four pixels to each of the screen's, on nothing. Raises 481 for a file
// that is none, or that the program beside this one can't draw in time.
[[nodiscard]] Picture MetafilePicture(const QByteArray& bytes);

// The pixels that a metafile of that natural size (twips, above 0) is drawn with.
[[nodiscard]] QSize MetafilePixels(double width, double height);

inline constexpr double kMostMetafilePixels = 16e6;

}  // namespace sheetwright
