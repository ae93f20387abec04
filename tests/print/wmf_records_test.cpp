#include "print/wmf_records.h"

#include "print/metafile_builder.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

constexpr qsizetype kHeaderSize = 18;

MetafileBuilder Drawing() {
    MetafileBuilder builder;
    builder.Rectangle(0, 0, 100, 50);
    return builder;
}

// What stands between the header and the last record.
QByteArray RecordsOf(const Metafile& metafile) {
    return metafile.bytes.sliced(kHeaderSize).chopped(6);
}

QByteArray RecordsOf(const MetafileBuilder& builder) {
    return builder.Plain().sliced(kHeaderSize).chopped(6);
}

MetafileBuilder Front(int left, int top, int width, int height) {
    MetafileBuilder builder;
    builder.MapMode(8).Window(left, top, width, height);
    return builder;
}

TEST(IsMetafile, KnowsBothHeaders) {
    EXPECT_TRUE(IsMetafile(Drawing().Plain()));
    EXPECT_TRUE(IsMetafile(Drawing().Placeable(0, 0, 100, 50, 1440)));
    EXPECT_FALSE(IsMetafile("BM"));
    EXPECT_FALSE(IsMetafile(QByteArray()));
    EXPECT_FALSE(IsMetafile(QByteArray(100, '\x01')));
}

TEST(ReadMetafile, BoxAndUnitsPerInchGiveTheSizeInTwips) {
    const Metafile metafile = ReadMetafile(Drawing().Placeable(100, 200, 2100, 1200, 1000));
    EXPECT_EQ(metafile.width, 2880);
    EXPECT_EQ(metafile.height, 1440);
}

TEST(ReadMetafile, ABoxWithoutUnitsIsInTwips) {
    EXPECT_EQ(ReadMetafile(Drawing().Placeable(0, 0, 300, 150, 0)).width, 300);
}

TEST(ReadMetafile, ABoxUpsideDownHasTheSameSize) {
    const Metafile metafile = ReadMetafile(Drawing().Placeable(0, 500, 1000, 0, 1000));
    EXPECT_EQ(metafile.height, 720);
    EXPECT_EQ(RecordsOf(metafile), RecordsOf(Front(0, 500, 1000, -500).Rectangle(0, 0, 100, 50)));
}

TEST(ReadMetafile, TheBoxBecomesTheWindow) {
    const Metafile metafile = ReadMetafile(Drawing().Placeable(10, 20, 110, 70, 1440));
    EXPECT_EQ(RecordsOf(metafile), RecordsOf(Front(10, 20, 100, 50).Rectangle(0, 0, 100, 50)));
}

TEST(ReadMetafile, ABoxBeyondSixteenBitsBecomesTheLargestWindowThereIs) {
    const Metafile metafile = ReadMetafile(Drawing().Placeable(-32768, 0, 32767, 100, 1440));
    EXPECT_EQ(metafile.width, 65535);
    EXPECT_EQ(RecordsOf(metafile), RecordsOf(Front(-32767, 0, 32767, 100).Rectangle(0, 0, 100, 50)));
}

TEST(ReadMetafile, WithoutABoxTheFirstWindowTellsTheSizeInTwips) {
    MetafileBuilder builder;
    builder.Window(0, 0, 2000, -1000).Window(0, 0, 5, 5).Rectangle(0, 0, 1, 1);
    const Metafile metafile = ReadMetafile(builder.Plain());
    EXPECT_EQ(metafile.width, 2000);
    EXPECT_EQ(metafile.height, 1000);
}

TEST(ReadMetafile, WithoutAnyWindowThereIsAUsualOne) {
    const Metafile metafile = ReadMetafile(Drawing().Plain());
    EXPECT_EQ(metafile.width, 1024);
    EXPECT_EQ(metafile.height, 1024);
    EXPECT_EQ(RecordsOf(metafile), RecordsOf(Front(0, 0, 1024, 1024).Rectangle(0, 0, 100, 50)));
}

TEST(ReadMetafile, WhatWouldMoveThePictureOutOfItsFrameIsLeftOut) {
    MetafileBuilder builder;
    builder.MapMode(2)
        .Window(0, 0, 100, 100)
        .Record(0x020D, {5, 5})
        .Record(0x020E, {7, 7})
        .Record(0x0211, {5, 5})
        .Record(0x0412, {1, 2, 1, 2})
        .Bytes(0x0626, "printer")
        .Record(0x020C, {0, 100})
        .Record(0x020C, {100})
        .Rectangle(0, 0, 9, 9);
    EXPECT_EQ(RecordsOf(ReadMetafile(builder.Plain())),
              RecordsOf(Front(0, 0, 100, 100).Window(0, 0, 100, 100).Rectangle(0, 0, 9, 9)));
}

TEST(ReadMetafile, TheHeaderFitsTheRecords) {
    MetafileBuilder expected = Front(10, 20, 100, 50);
    expected.Rectangle(0, 0, 100, 50);
    EXPECT_EQ(ReadMetafile(Drawing().Placeable(10, 20, 110, 70, 1440)).bytes, expected.Plain());
}

TEST(ReadMetafile, AMissingLastRecordIsNoHarm) {
    EXPECT_EQ(ReadMetafile(Drawing().Plain().chopped(6)).bytes, ReadMetafile(Drawing().Plain()).bytes);
}

TEST(ReadMetafile, RecordsThatDontFitTheFileAreRefused) {
    const QByteArray bytes = Drawing().Plain();
    QByteArray tooLarge = bytes;
    tooLarge[kHeaderSize] = '\x7F';
    QByteArray tooSmall = bytes;
    tooSmall[kHeaderSize] = '\x02';
    QByteArray huge = bytes;
    huge.replace(kHeaderSize, 4, "\xFF\xFF\xFF\xFF");
    for (const QByteArray& broken : {tooLarge, tooSmall, huge})
        EXPECT_EQ(FailureOf([&] { static_cast<void>(ReadMetafile(broken)); }), 481);
}

TEST(ReadMetafile, AnEmptyBoxAndAMissingHeaderAreRefused) {
    const QByteArray placeable = Drawing().Placeable(0, 0, 100, 50, 1440);
    for (const QByteArray& broken : {Drawing().Placeable(50, 0, 50, 50, 1440), placeable.first(22),
                                     placeable.first(30), QByteArray("WMF")})
        EXPECT_EQ(FailureOf([&] { static_cast<void>(ReadMetafile(broken)); }), 481);
}

TEST(ReadMetafile, AFileCutShortAnywhereIsReadOrRefused) {
    const QByteArray whole = Drawing().Placeable(0, 0, 100, 50, 1440);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const std::optional<int> failure =
            FailureOf([&] { static_cast<void>(ReadMetafile(whole.first(size))); });
        EXPECT_EQ(failure.value_or(481), 481) << size;
    }
}

}  // namespace
}  // namespace sheetwright
