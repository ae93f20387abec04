#include "import/csv_codec.h"

#include "core/text.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

QByteArray AllBytes() {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    return bytes;
}

TEST(CsvCodec, PlainBytesAreAscii) {
    EXPECT_EQ(CsvCodec::EncodingOf(""), CsvEncoding::Ascii);
    EXPECT_EQ(CsvCodec::EncodingOf(QByteArray(1000, '~')), CsvEncoding::Ascii);
}

TEST(CsvCodec, OneCharacterBeyondAsciiAnywhereDecidesForTheWholeFile) {
    for (int length = 0; length < 100; ++length) {
        EXPECT_EQ(CsvCodec::EncodingOf(QByteArray(length, 'x') + "\xC3\xA4"), CsvEncoding::Utf8);
        EXPECT_EQ(CsvCodec::EncodingOf(QByteArray(length, 'x') + "\xE4"), CsvEncoding::CodePage);
    }
    EXPECT_EQ(CsvCodec::EncodingOf("\xC3\xA4\xE4"), CsvEncoding::CodePage);
}

TEST(CsvCodec, CodePageReadsLikeAWholeFileAndWritesTheSameBytes) {
    const CsvCodec codec(CsvEncoding::CodePage);
    const QString text = codec.Decode(AllBytes());
    EXPECT_EQ(text, DecodeFileText(AllBytes()));
    EXPECT_EQ(codec.Encode(text), AllBytes());
}

TEST(CsvCodec, CodePageRefusesWhatItHasNoByteFor) {
    EXPECT_EQ(CsvCodec(CsvEncoding::CodePage).Encode(QStringLiteral("\u03A9")), std::nullopt);
    EXPECT_EQ(CsvCodec(CsvEncoding::CodePage).Encode(QStringLiteral("\u20AC")), QByteArray("\x80"));
}

TEST(CsvCodec, AMarkAtTheFrontOfAValueIsKept) {
    const CsvCodec codec(CsvEncoding::Utf8);
    EXPECT_EQ(codec.Decode("\xEF\xBB\xBF"
                           "a"),
              QStringLiteral("\uFEFFa"));
    EXPECT_EQ(codec.Decode("a\xC3\xA4"), QStringLiteral("a\u00E4"));
}

}  // namespace
}  // namespace sheetwright
