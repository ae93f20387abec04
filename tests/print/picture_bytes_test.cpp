#include "print/picture_bytes.h"

#include <QtEndian>

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

// Length, name, content and a check sum that nobody looks at here.
QByteArray Chunk(const QByteArray& name, const QByteArray& content = QByteArray("content")) {
    QByteArray chunk(4, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), chunk.data());
    return chunk + name + content + "SUM!";
}

QByteArray Png(const QByteArray& chunks) {
    return kPngFront.toByteArray() + chunks;
}

TEST(PngThatShows, KeepsPixelsColoursAndTransparency) {
    const QByteArray png = Png(Chunk("IHDR") + Chunk("PLTE") + Chunk("tRNS") + Chunk("IDAT") +
                               Chunk("IDAT", {}) + Chunk("IEND"));
    EXPECT_EQ(PngThatShows(png), png);
}

TEST(PngThatShows, LeavesOutWhatDoesntShow) {
    EXPECT_EQ(PngThatShows(Png(Chunk("IHDR") + Chunk("tEXt") + Chunk("zTXt") + Chunk("iTXt") + Chunk("iCCP") +
                               Chunk("sPLT") + Chunk("eXIf") + Chunk("quRk") + Chunk("IDAT") + Chunk("tEXt") +
                               Chunk("IEND"))),
              Png(Chunk("IHDR") + Chunk("IDAT") + Chunk("IEND")));
}

TEST(PngThatShows, WhatIsNoWholeChunkStaysAsItIs) {
    const QByteArray whole = Png(Chunk("IHDR") + Chunk("IDAT"));
    for (qsizetype length = 0; length <= whole.size(); ++length)
        EXPECT_EQ(PngThatShows(whole.first(length)), whole.first(length)) << length;
    QByteArray tooLong = Chunk("zTXt");
    tooLong.replace(0, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(PngThatShows(Png(Chunk("tEXt") + tooLong)), Png(tooLong));
}

QByteArray Segment(const char* marker, const QByteArray& content) {
    QByteArray length(2, '\0');
    qToBigEndian(static_cast<quint16>(content.size() + 2), length.data());
    return QByteArray::fromHex(marker) + length + content;
}

TEST(JpegScans, CountsScansAndNothingElse) {
    const QByteArray start = QByteArray::fromHex("ffd8");
    const QByteArray end = QByteArray::fromHex("ffd9");
    // Escaped bytes, restarts, filling and a lone marker between the pixels.
    const QByteArray scan = Segment("ffda", "header") + QByteArray::fromHex("12ff00daffd0ffffd7ff01ff00");
    // A preview in a segment, and another picture behind the end.
    const QByteArray preview = Segment("ffe1", start + scan + end);
    EXPECT_EQ(JpegScans(start + preview + scan + end + start + scan + end), 1);
    EXPECT_EQ(JpegScans(start + scan + Segment("ffc4", "table") + scan + scan + end), 3);
    EXPECT_EQ(JpegScans(start + scan + scan), 2) << "no end";
    EXPECT_EQ(JpegScans(start), 0);
    EXPECT_EQ(JpegScans(QByteArray()), 0);
}

TEST(JpegScans, EndsWhereTheFileEnds) {
    EXPECT_EQ(JpegScans(QByteArray(1000, '\xFF')), 0);
    const QByteArray whole = QByteArray::fromHex("ffd8") + Segment("ffe1", "\xFF\xDA") +
                             QByteArray::fromHex("ffe10000") + Segment("ffda", "header");
    for (qsizetype length = 0; length <= whole.size(); ++length)
        EXPECT_LE(JpegScans(QByteArrayView(whole).first(length)), 1) << length;
}

// A directory of one image of that size, lying at that place.
QByteArray Icon(quint32 size, quint32 start) {
    QByteArray icon = QByteArray::fromHex("0000010001001010000001002000") + QByteArray(8, '\0');
    qToLittleEndian(size, icon.data() + 14);
    qToLittleEndian(start, icon.data() + 18);
    return icon;
}

TEST(PngInIcon, IsThereOnlyWhereItBegins) {
    const QByteArray png = Png(Chunk("IHDR"));
    const auto size = static_cast<quint32>(png.size());
    EXPECT_EQ(PngInIcon(Icon(size, 22) + png, 0), png);
    EXPECT_EQ(PngInIcon(Icon(size + 100, 22) + png, 0), png) << "cut short";
    EXPECT_EQ(PngInIcon(Icon(size, 23) + png, 0), QByteArray());
    EXPECT_EQ(PngInIcon(Icon(0xFFFFFFFF, 0xFFFFFFFF) + png, 0), QByteArray());
    EXPECT_EQ(PngInIcon(Icon(size, 22) + png, 1), QByteArray()) << "not in the directory";
    EXPECT_EQ(PngInIcon(QByteArray(), 0), QByteArray());
}

TEST(LargestIcon, IsTheFirstWithoutAnyOther) {
    for (const QByteArray& icon :
         {QByteArray(), QByteArray("\0\0\1\0", 4), QByteArray("\0\0\1\0\xFF\xFF", 6), Icon(0, 0)})
        EXPECT_EQ(LargestIcon(icon), 0);
}

}  // namespace
}  // namespace sheetwright
