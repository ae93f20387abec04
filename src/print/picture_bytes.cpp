#include "print/picture_bytes.h"

#include <QtEndian>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr qsizetype kChunkFrame = 12;  // length, name and check sum

quint8 ByteAt(QByteArrayView bytes, qsizetype position) {
    return static_cast<quint8>(bytes[position]);
}

// Where the chunk at `position` ends; past the file when it isn't whole.
qint64 EndOfChunk(QByteArrayView png, qsizetype position) {
    if (png.size() - position < kChunkFrame) return png.size() + qint64{1};
    return position + kChunkFrame + qint64{qFromBigEndian<quint32>(png.data() + position)};
}

// A small first letter: what can do without. Of these only transparency shows.
bool Shows(QByteArrayView chunk) {
    constexpr quint8 kSmallLetter = 0x20;
    return (ByteAt(chunk, 4) & kSmallLetter) == 0 || chunk.sliced(4, 4) == "tRNS";
}

// Of a JPEG: markers that stand alone, and bytes of an image that only look like a marker.
bool IsBareMarker(quint8 marker) {
    constexpr quint8 kTemporary = 0x01;
    constexpr quint8 kFirstRestart = 0xD0;
    constexpr quint8 kStart = 0xD8;
    return marker == 0 || marker == kTemporary || (marker >= kFirstRestart && marker <= kStart);
}

constexpr qsizetype kIconHeader = 6;
constexpr qsizetype kIconEntry = 16;

}  // namespace

QByteArray PngThatShows(const QByteArray& png) {
    QByteArray result;
    result.reserve(png.size());
    result += png.first(std::min(png.size(), kPngFront.size()));
    qsizetype position = result.size();
    for (qint64 end = EndOfChunk(png, position); end <= png.size(); end = EndOfChunk(png, position)) {
        const QByteArrayView chunk =
            QByteArrayView(png).sliced(position, static_cast<qsizetype>(end) - position);
        if (Shows(chunk)) result += chunk;
        position = static_cast<qsizetype>(end);
    }
    return result += QByteArrayView(png).sliced(position);
}

qint64 JpegScans(QByteArrayView jpeg) {
    constexpr char kMarker = '\xFF';
    constexpr quint8 kScan = 0xDA;
    constexpr quint8 kEnd = 0xD9;
    qint64 scans = 0;
    qsizetype position = jpeg.indexOf(kMarker);
    while (position >= 0 && position + 1 < jpeg.size()) {
        const quint8 marker = ByteAt(jpeg, position + 1);
        if (marker == kEnd) break;
        const bool isFilling = jpeg[position + 1] == kMarker;
        if (isFilling || IsBareMarker(marker)) {
            position = jpeg.indexOf(kMarker, position + (isFilling ? 1 : 2));
            continue;
        }
        if (marker == kScan) ++scans;
        if (jpeg.size() - position < 4) break;
        position = jpeg.indexOf(kMarker, position + 2 + qFromBigEndian<quint16>(jpeg.data() + position + 2));
    }
    return scans;
}

// The directory: 16 bytes for each image behind a header of 6, where 0 pixels stand for 256.
int LargestIcon(QByteArrayView icon) {
    const auto pixels = [&](qsizetype position) {
        return ByteAt(icon, position) == 0 ? 256 : int{ByteAt(icon, position)};
    };
    const int count = icon.size() < kIconHeader ? 0 : ByteAt(icon, 4) + 256 * ByteAt(icon, 5);
    int largest = 0;
    int most = 0;
    for (qsizetype entry = kIconHeader, index = 0; entry + kIconEntry <= icon.size() && index < count;
         entry += kIconEntry, ++index) {
        const int rank = pixels(entry) * pixels(entry + 1) * 256 + ByteAt(icon, entry + 6);
        if (rank > most) largest = static_cast<int>(index);
        most = std::max(most, rank);
    }
    return largest;
}

QByteArray PngInIcon(const QByteArray& icon, int position) {
    const qsizetype entry = kIconHeader + position * kIconEntry;
    if (entry + kIconEntry > icon.size()) return {};
    const auto size = qFromLittleEndian<quint32>(icon.constData() + entry + 8);
    const auto start = qFromLittleEndian<quint32>(icon.constData() + entry + 12);
    const QByteArray image = icon.mid(start, size);
    return image.startsWith(kPngFront) ? image : QByteArray();
}

}  // namespace sheetwright
