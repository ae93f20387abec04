#pragma once

// What tests ask of rendered pixels.

#include <QColor>
#include <QImage>
#include <QRect>

#include <algorithm>

namespace sheetwright {

// As 0xRRGGBB.
[[nodiscard]] inline unsigned ColourAt(const QImage& image, int x, int y) {
    return image.pixel(x, y) & 0xFFFFFFU;
}

// The smallest area that holds every pixel which isn't white.
[[nodiscard]] inline QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (ColourAt(image, x, y) != 0xFFFFFF) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

[[nodiscard]] inline int CountOf(const QImage& image, unsigned colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += ColourAt(image, x, y) == colour ? 1 : 0;
    }
    return count;
}

}  // namespace sheetwright
