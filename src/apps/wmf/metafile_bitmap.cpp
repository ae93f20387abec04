#include "apps/wmf/metafile_bitmap.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr qsizetype kFileHeaderSize = 14;
constexpr quint32 kOldHeaderSize = 12;  // with sizes of 16 bits and colours of 3 bytes
constexpr qsizetype kHeaderSize = 40;
constexpr quint32 kBitFields = 3;

template <typename Number>
Number At(QByteArrayView bytes, qsizetype position) {
    return qFromLittleEndian<Number>(bytes.data() + position);
}

// How many bytes of colours stand between header and pixels.
qsizetype PaletteSize(QByteArrayView bytes) {
    if (At<quint32>(bytes, 0) == kOldHeaderSize) {
        const auto bits = At<quint16>(bytes, 10);
        return bits <= 8 ? qsizetype{3} << bits : 0;
    }
    const auto bits = At<quint16>(bytes, 14);
    const auto used = At<quint32>(bytes, 32);
    const qsizetype masks =
        At<quint32>(bytes, 0) == kHeaderSize && At<quint32>(bytes, 16) == kBitFields ? 12 : 0;
    const qsizetype colours = used != 0 || bits > 8 ? qsizetype{used} : qsizetype{1} << bits;
    return masks + std::min<qsizetype>(colours, 256) * 4;
}

}  // namespace

QImage DeviceIndependentBitmap(QByteArrayView bytes) {
    if (bytes.size() < kHeaderSize) return {};
    const qsizetype offset = kFileHeaderSize + qsizetype{At<quint32>(bytes, 0)} + PaletteSize(bytes);
    QByteArray file(kFileHeaderSize, '\0');
    file.replace(0, 2, "BM");
    qToLittleEndian(static_cast<quint32>(kFileHeaderSize + bytes.size()), file.data() + 2);
    qToLittleEndian(static_cast<quint32>(offset), file.data() + 10);
    file += bytes;
    return QImage::fromData(file, "BMP");
}

}  // namespace sheetwright
