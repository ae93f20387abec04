#pragma once

// A picture: pixels, or a recorded drawing. Its natural size is that on the virtual screen, whatever
// resolution its file claims: 15 twips to the pixel.

#include <QImage>

#include <memory>

namespace sheetwright {

class Recording;

struct Picture {
    QImage image;
    std::shared_ptr<const Recording> recording;  // drawn instead of pixels when there is one
    double width = 0;                            // natural size in twips
    double height = 0;
    bool isPhotograph = false;  // came from a lossy file: a PDF may keep it lossy

    [[nodiscard]] bool IsEmpty() const { return image.isNull() && recording == nullptr; }
};

}  // namespace sheetwright
