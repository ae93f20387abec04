#include "import/csv_codec.h"

#include "core/text.h"

#include <QStringDecoder>

namespace sheetwright {

namespace {

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";

QString DecodedUpperHalf() {
    QByteArray bytes(128, '\0');
    for (int index = 0; index < 128; ++index)
        bytes[index] = static_cast<char>(128 + index);
    return DecodeFileText(bytes);
}

// A mark at the front of a value is a character of it, which the plain conversion would drop.
QString DecodedUtf8(QByteArrayView bytes) {
    if (!bytes.startsWith(kUtf8Mark)) return QString::fromUtf8(bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

}  // namespace

CsvCodec::CsvCodec(CsvEncoding encoding) : m_encoding(encoding) {
    if (encoding == CsvEncoding::CodePage) m_upperHalf = DecodedUpperHalf();
}

CsvEncoding CsvCodec::EncodingOf(QByteArrayView file) {
    if (IsAscii(file)) return CsvEncoding::Ascii;
    return file.isValidUtf8() ? CsvEncoding::Utf8 : CsvEncoding::CodePage;
}

QString CsvCodec::Decode(QByteArrayView bytes) const {
    if (m_encoding == CsvEncoding::Utf8) return DecodedUtf8(bytes);
    if (m_encoding == CsvEncoding::Ascii) return QString::fromLatin1(bytes);
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text)
        if (character.unicode() >= 128) character = m_upperHalf[character.unicode() - 128];
    return text;
}

std::optional<char> CsvCodec::ByteOf(QChar character) const {
    if (character.unicode() < 128) return static_cast<char>(character.unicode());
    const qsizetype index = m_upperHalf.indexOf(character);
    if (index < 0) return std::nullopt;
    return static_cast<char>(128 + index);
}

std::optional<QByteArray> CsvCodec::Encode(QStringView text) const {
    if (m_encoding == CsvEncoding::Utf8) return text.toUtf8();
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const std::optional<char> byte = ByteOf(character);
        if (!byte) return std::nullopt;
        bytes.append(*byte);
    }
    return bytes;
}

}  // namespace sheetwright
