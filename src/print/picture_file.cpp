#include "print/picture_file.h"

#include "core/failure.h"
#include "core/paths.h"
#include "print/picture_bytes.h"
#include "print/units.h"
#include "print/wmf_picture.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QScopeGuard>
#include <QSize>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kMostBytesPerPixel = 8;
constexpr qint64 kMegabyte = 1LL << 20;
constexpr qint64 kMostScannedPixels = 50 * kMostPicturePixels;  // of a JPEG; some seconds

struct Signature {
    QByteArrayView front;
    const char* format;
};

constexpr QByteArrayView kIconFront("\0\0\1\0", 4);
constexpr std::array kSignatures{
    Signature{"BM", "bmp"},     Signature{"\xFF\xD8\xFF", "jpeg"}, Signature{kPngFront, "png"},
    Signature{"GIF87a", "gif"}, Signature{"GIF89a", "gif"},        Signature{kIconFront, "ico"},
};

QByteArray FormatOf(const QByteArray& bytes) {
    const auto* found = std::find_if(kSignatures.begin(), kSignatures.end(), [&](const Signature& signature) {
        return bytes.startsWith(signature.front);
    });
    if (found == kSignatures.end()) throw Failure(failure::kInvalidPicture);
    return found->format;
}

qint64 PixelsOf(QSize size) {
    return qint64{size.width()} * size.height();
}

void RequireReasonable(QSize size) {
    if (size.isEmpty() || PixelsOf(size) > kMostPicturePixels) throw Failure(failure::kInvalidPicture);
}

// Lets an image of that size be decoded as long as the guard lives.
auto AllowPixels(qint64 pixels) {
    const int before = QImageReader::allocationLimit();
    const auto needed = static_cast<int>(pixels * kMostBytesPerPixel / kMegabyte + 1);
    QImageReader::setAllocationLimit(std::max(before, needed));
    return qScopeGuard([before] { QImageReader::setAllocationLimit(before); });
}

bool HoldsPixels(const QImage& image) {
    const auto isSet = [](uchar byte) { return byte != 0; };
    return std::any_of(image.constBits(), image.constBits() + image.sizeInBytes(), isSet);
}

// Decoded pixels over nothing, so that what a file lacks at its end is transparent. Empty where the decoder
// makes its own image.
QImage Nothing(const QImageReader& reader, QSize size) {
    const QImage::Format format = reader.imageFormat();
    QImage image(size, format);
    if (image.isNull()) {
        if (format != QImage::Format_Invalid) throw Failure(failure::kOutOfMemory);
        return image;
    }
    // Not `fill`, which would make it opaque.
    std::fill_n(image.bits(), image.sizeInBytes(), uchar{0});
    return image;
}

// The PNG library writes its errors to the standard error stream by itself. What is wrong with a picture is
// told by whoever wanted it.
class LibraryRemarksOff {
  public:
    LibraryRemarksOff() {
#ifdef __GLIBC__  // elsewhere the stream can't be exchanged
        if (m_nowhere != nullptr) stderr = m_nowhere;
#endif
    }
    LibraryRemarksOff(const LibraryRemarksOff&) = delete;
    LibraryRemarksOff& operator=(const LibraryRemarksOff&) = delete;
    ~LibraryRemarksOff() {
#ifdef __GLIBC__
        stderr = m_stream;
#endif
        if (m_nowhere != nullptr) std::fclose(m_nowhere);
    }

  private:
    std::FILE* m_stream = stderr;
    std::FILE* m_nowhere = std::fopen("/dev/null", "w");
};

QImage Decoded(QImageReader& reader) {
    const LibraryRemarksOff remarksOff;
    const QSize size = reader.size();
    RequireReasonable(size);
    const auto allowance = AllowPixels(PixelsOf(size));
    QImage image = Nothing(reader, size);
    const bool isWhole = reader.read(&image);
    if (!isWhole && !HoldsPixels(image)) throw Failure(failure::kInvalidPicture);
    RequireReasonable(image.size());
    if (!isWhole && image.format() == QImage::Format_RGB32)
        image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return image;
}

// In one of the two formats that paint without being converted each time.
QImage ForPainting(QImage image) {
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    image.convertTo(format);
    if (image.isNull()) throw Failure(failure::kOutOfMemory);
    return image;
}

QByteArray PictureBytes(const QString& stored) {
    QFile file(OnDisk(stored));
    OpenForReading(file);
    if (file.size() > kLargestPictureFile) throw Failure(failure::kInvalidPicture);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) throw Failure(failure::kDeviceError);
    return bytes;
}

// Running out of memory is a failure like others here: a large picture is the likeliest reason for it.
template <typename Load>
Picture WithMemory(Load&& load) {
    try {
        return load();
    } catch (const std::bad_alloc&) {
        throw Failure(failure::kOutOfMemory);
    }
}

// The picture that a decoder makes of bytes that were looked at before.
Picture DecodedPicture(const QByteArray& bytes, const QByteArray& format) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    if (format == "ico") reader.jumpToImage(LargestIcon(bytes));
    if (format == "jpeg" && JpegScans(bytes) * PixelsOf(reader.size()) > kMostScannedPixels)
        throw Failure(failure::kInvalidPicture);
    Picture picture;
    picture.image = ForPainting(Decoded(reader));
    picture.width = picture.image.width() * kTwipsPerScreenPixel;
    picture.height = picture.image.height() * kTwipsPerScreenPixel;
    picture.isPhotograph = format == "jpeg";
    return picture;
}

Picture FromBytes(const QByteArray& bytes) {
    const QByteArray format = FormatOf(bytes);
    if (format == "png") return DecodedPicture(PngThatShows(bytes), format);
    const QByteArray png = format == "ico" ? PngInIcon(bytes, LargestIcon(bytes)) : QByteArray();
    return png.isEmpty() ? DecodedPicture(bytes, format) : DecodedPicture(PngThatShows(png), "png");
}

// Empty for a file that is no picture.
Picture PictureOrNone(const QString& path) {
    Picture picture;
    const std::optional<Failure> caught = Ignoring([&] { picture = LoadPicture(path); });
    if (caught && caught->Number() != failure::kInvalidPicture) throw Failure(*caught);
    return picture;
}

}  // namespace

Picture LoadPicture(const QString& stored) {
    return WithMemory([&] {
        const QByteArray bytes = PictureBytes(stored);
        return IsMetafile(bytes) ? MetafilePicture(bytes) : FromBytes(bytes);
    });
}

Picture PictureOf(const QByteArray& bytes) {
    return WithMemory([&] { return FromBytes(bytes); });
}

const Picture& PictureCache::Load(const QString& stored) {
    const QString path = OnDisk(stored);
    const QFileInfo info(path);
    Entry entry{{}, info.lastModified(), info.size(), ++m_uses};
    auto found = m_entries.find(path);
    if (found != m_entries.end() &&
        !(info.isFile() && found->second.modified == entry.modified && found->second.size == entry.size)) {
        Remove(found);
        found = m_entries.end();
    }
    if (found == m_entries.end()) {
        entry.picture = PictureOrNone(path);
        MakeRoom(BytesOf(entry));
        m_bytes += BytesOf(entry);
        found = m_entries.emplace(path, std::move(entry)).first;
    }
    found->second.lastUse = m_uses;
    if (found->second.picture.IsEmpty()) throw Failure(failure::kInvalidPicture);
    return found->second.picture;
}

void PictureCache::Remove(Entries::iterator entry) {
    m_bytes -= BytesOf(entry->second);
    m_entries.erase(entry);
}

void PictureCache::MakeRoom(qint64 bytes) {
    while (!m_entries.empty() && m_bytes + bytes > m_mostBytes)
        Remove(std::min_element(m_entries.begin(), m_entries.end(), [](const auto& one, const auto& other) {
            return one.second.lastUse < other.second.lastUse;
        }));
}

}  // namespace sheetwright
