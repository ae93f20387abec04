#pragma once

// The record structure of a Windows metafile, checked, and brought into one form for the program that draws
// it: one way to tell the window, nothing that moves the picture out of its frame, every size within the
// file.

#include <QByteArray>

namespace sheetwright {

// Whether the bytes begin like a metafile, with or without the header that tells its size.
[[nodiscard]] bool IsMetafile(const QByteArray& bytes);

struct Metafile {
    QByteArray bytes;  // without the header that tells the size
    double width = 0;  // natural size in twips, above 0
    double height = 0;
};

// A file with that header has the size it tells; of any other the units of its window are twips. Raises 481
// for bytes that are no metafile or whose records don't fit into them.
[[nodiscard]] Metafile ReadMetafile(const QByteArray& bytes);

}  // namespace sheetwright
