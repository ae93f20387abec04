#include "print/recording.h"

#include "core/failure.h"

#include <utility>

namespace sheetwright {

void Recording::Add(DrawnItem item) {
    if (const auto* const drawn = std::get_if<DrawnPicture>(&item)) HoldPixels(drawn->picture);
    m_items.push_back(std::move(item));
}

void Recording::HoldPixels(const Picture& picture) {
    std::map<qint64, qint64> images;
    if (!picture.image.isNull()) images.emplace(picture.image.cacheKey(), picture.image.sizeInBytes());
    if (picture.recording != nullptr)
        images.insert(picture.recording->m_images.begin(), picture.recording->m_images.end());
    qint64 more = 0;
    for (const auto& [key, bytes] : images)
        if (!m_images.contains(key)) more += bytes;
    if (m_pixelBytes + more > kMostPixelBytes) throw Failure(failure::kOutOfMemory);
    m_images.merge(images);
    m_pixelBytes += more;
}

}  // namespace sheetwright
