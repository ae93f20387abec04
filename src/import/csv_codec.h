#pragma once

// The encoding of one table, settled once for the whole file by the rule of DecodeFileText, and the decoding
// of its values one by one.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

namespace sheetwright {

enum class CsvEncoding { Ascii, Utf8, CodePage };

class CsvCodec {
  public:
    explicit CsvCodec(CsvEncoding encoding = CsvEncoding::Ascii);
    [[nodiscard]] static CsvEncoding EncodingOf(QByteArrayView file);

    [[nodiscard]] CsvEncoding Encoding() const { return m_encoding; }
    [[nodiscard]] QString Decode(QByteArrayView bytes) const;
    // None when a character has no byte in the encoding.
    [[nodiscard]] std::optional<QByteArray> Encode(QStringView text) const;

  private:
    [[nodiscard]] std::optional<char> ByteOf(QChar character) const;

    CsvEncoding m_encoding;
    QString m_upperHalf;  // what the bytes from 128 mean in the code page
};

}  // namespace sheetwright
