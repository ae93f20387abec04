#include "print/wmf_records.h"

#include "core/failure.h"
#include "print/units.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <initializer_list>

namespace sheetwright {

namespace {

constexpr quint32 kPlaceableKey = 0x9AC6CDD7;
constexpr qsizetype kPlaceableSize = 22;
constexpr qsizetype kHeaderSize = 18;
constexpr qsizetype kHeaderWords = 9;
constexpr qsizetype kRecordHeaderSize = 6;
constexpr qsizetype kLongestInFront = 5;  // words
constexpr int kUsualExtent = 1024;        // of a window that no record tells
constexpr int kAnisotropic = 8;
constexpr int kVersion = 0x0300;

enum Function : quint16 {
    kEndOfFile = 0x0000,
    kSetMapMode = 0x0103,
    kSetWindowOrigin = 0x020B,
    kSetWindowExtent = 0x020C,
    kSetViewportOrigin = 0x020D,
    kSetViewportExtent = 0x020E,
    kOffsetViewportOrigin = 0x0211,
    kScaleViewportExtent = 0x0412,
    kEscape = 0x0626,
};

// What would place the picture elsewhere than into its frame, or speaks to a printer.
constexpr std::array<quint16, 6> kLeftOut{kSetMapMode,           kSetViewportOrigin,   kSetViewportExtent,
                                          kOffsetViewportOrigin, kScaleViewportExtent, kEscape};

struct Window {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    [[nodiscard]] bool IsEmpty() const { return width == 0 || height == 0; }
};

template <typename Number>
Number At(const QByteArray& bytes, qsizetype position) {
    return qFromLittleEndian<Number>(bytes.constData() + position);
}

bool IsPlaceable(const QByteArray& bytes) {
    return bytes.size() >= kPlaceableSize && At<quint32>(bytes, 0) == kPlaceableKey;
}

bool IsHeader(const QByteArray& bytes, qsizetype position) {
    if (bytes.size() - position < kHeaderSize) return false;
    const auto kind = At<quint16>(bytes, position);  // in memory or on disk
    return (kind == 1 || kind == 2) && At<quint16>(bytes, position + 2) == kHeaderWords;
}

class Normaliser {
  public:
    explicit Normaliser(const QByteArray& bytes) : m_bytes(bytes) {}

    Metafile Result() {
        const bool isPlaceable = IsPlaceable(m_bytes);
        const qsizetype start = isPlaceable ? kPlaceableSize : 0;
        if (!IsHeader(m_bytes, start)) throw Failure(failure::kInvalidPicture);
        if (isPlaceable) ReadPlaceable();
        CopyRecords(start + kHeaderSize);
        if (m_window.IsEmpty()) m_window = {0, 0, kUsualExtent, kUsualExtent};
        const double twips = kTwipsPerInch / m_unitsPerInch;
        return {Header(At<quint16>(m_bytes, start + 10)) + Front() + m_records,
                std::abs(m_window.width) * twips, std::abs(m_window.height) * twips};
    }

  private:
    void ReadPlaceable() {
        const auto edge = [&](qsizetype position) { return int{At<qint16>(m_bytes, position)}; };
        m_window = {edge(6), edge(8), edge(10) - edge(6), edge(12) - edge(8)};
        if (m_window.IsEmpty()) throw Failure(failure::kInvalidPicture);
        const auto units = At<quint16>(m_bytes, 14);
        if (units != 0) m_unitsPerInch = units;
    }

    // A file without its last record has an end all the same.
    void CopyRecords(qsizetype position) {
        while (m_bytes.size() - position >= kRecordHeaderSize) {
            const qsizetype size = qsizetype{At<quint32>(m_bytes, position)} * 2;
            if (size < kRecordHeaderSize || size > m_bytes.size() - position)
                throw Failure(failure::kInvalidPicture);
            const auto function = At<quint16>(m_bytes, position + 4);
            if (function == kEndOfFile) break;
            CopyRecord(function, position, size);
            position += size;
        }
        Append(m_records, kEndOfFile, {});
    }

    void CopyRecord(quint16 function, qsizetype position, qsizetype size) {
        if (std::find(kLeftOut.begin(), kLeftOut.end(), function) != kLeftOut.end()) return;
        if (function == kSetWindowExtent && !TakeExtent(position, size)) return;
        m_records += QByteArrayView(m_bytes).sliced(position, size);
        m_largest = std::max(m_largest, size / 2);
    }

    // An extent of 0 would stretch the picture without end.
    bool TakeExtent(qsizetype position, qsizetype size) {
        if (size < kRecordHeaderSize + 4) return false;
        const Window window{0, 0, At<qint16>(m_bytes, position + 8), At<qint16>(m_bytes, position + 6)};
        if (m_window.IsEmpty()) m_window = window;
        return !window.IsEmpty();
    }

    [[nodiscard]] QByteArray Front() const {
        QByteArray records;
        Append(records, kSetMapMode, {kAnisotropic});
        Append(records, kSetWindowOrigin, {m_window.top, m_window.left});
        Append(records, kSetWindowExtent, {m_window.height, m_window.width});
        return records;
    }

    [[nodiscard]] QByteArray Header(quint16 objects) const {
        const qsizetype words = kHeaderWords + (Front().size() + m_records.size()) / 2;
        QByteArray header;
        AppendWords(header,
                    {1, kHeaderWords, kVersion, words, words >> 16, objects, m_largest, m_largest >> 16, 0});
        return header;
    }

    static void AppendWords(QByteArray& bytes, std::initializer_list<qsizetype> words) {
        for (const qsizetype word : words) {
            bytes += static_cast<char>(word);
            bytes += static_cast<char>(word >> 8);
        }
    }

    // Parameters beyond 16 bits, as a box may have whose corners lie far apart, become the largest there are.
    static void Append(QByteArray& bytes, Function function, std::initializer_list<int> parameters) {
        const auto words = static_cast<qsizetype>(parameters.size()) + kRecordHeaderSize / 2;
        AppendWords(bytes, {words, 0, function});
        for (const int parameter : parameters)
            AppendWords(bytes, {std::clamp(parameter, -0x7FFF, 0x7FFF)});
    }

    const QByteArray& m_bytes;
    Window m_window;
    double m_unitsPerInch = kTwipsPerInch;
    QByteArray m_records;
    qsizetype m_largest = kLongestInFront;  // words
};

}  // namespace

bool IsMetafile(const QByteArray& bytes) {
    return IsPlaceable(bytes) || IsHeader(bytes, 0);
}

Metafile ReadMetafile(const QByteArray& bytes) {
    return Normaliser(bytes).Result();
}

}  // namespace sheetwright
