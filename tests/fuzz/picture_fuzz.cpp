// Any bytes are a picture of a bearable size or failure 481; and any metafile comes out of the reader in a
// form that the reader leaves as it is.

#include "core/failure.h"
#include "print/picture_file.h"
#include "print/wmf_picture.h"

#include <cstdint>
#include <cstdlib>

using namespace sheetwright;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

template <typename Step>
void RequirePictureFailure(Step&& step) {
    const std::optional<Failure> caught = Ignoring(step);
    Require(!caught || caught->Number() == failure::kInvalidPicture ||
            caught->Number() == failure::kOutOfMemory);
}

void CheckPicture(const QByteArray& bytes) {
    const Picture picture = PictureOf(bytes);
    const QSize size = picture.image.size();
    Require(!picture.IsEmpty() && qint64{size.width()} * size.height() <= kMostPicturePixels);
    Require(picture.width == size.width() * 15.0 && picture.height == size.height() * 15.0);
}

void CheckMetafile(const QByteArray& bytes) {
    const Metafile metafile = ReadMetafile(bytes);
    Require(metafile.width > 0 && metafile.height > 0);
    const QSize pixels = MetafilePixels(metafile.width, metafile.height);
    Require(!pixels.isEmpty() && qint64{pixels.width()} * pixels.height() < 17'000'000);
    Require(ReadMetafile(metafile.bytes).bytes.endsWith(metafile.bytes.last(metafile.bytes.size() - 46)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    RequirePictureFailure([&] { CheckPicture(bytes); });
    RequirePictureFailure([&] { CheckMetafile(bytes); });
    return 0;
}
