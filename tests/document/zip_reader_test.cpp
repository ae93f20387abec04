#include "document/zip_reader.h"

#include "core/failure.h"
#include "document/zip_builder.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

constexpr std::uint64_t kMost = 100;

class ZipReaderTest : public ApplicationTest {
  protected:
    QString Archive(const std::vector<BuiltMember>& members) const {
        return Write(QStringLiteral("archive.zip"), BuildZip(members));
    }

    QStringList Names(const std::vector<BuiltMember>& members) const {
        const ZipReader reader(Archive(members), kMost);
        QStringList names;
        for (const ZipMember& member : reader.Members())
            names << member.name;
        return names;
    }

    static QByteArray Content(const ZipReader& reader, std::size_t index) {
        QByteArray content;
        reader.Read(reader.Members().at(index), [&](QByteArrayView piece) { content.append(piece); });
        return content;
    }

    std::optional<int> FailureOfReading(const BuiltMember& member) const {
        return FailureOf([&] { static_cast<void>(Content(ZipReader(Archive({member}), kMost), 0)); });
    }
};

TEST_F(ZipReaderTest, StoredAndDeflatedMembersComeBackByteForByte) {
    const QByteArray large(700'000, 'x');
    const ZipReader reader(
        Archive({{"a.aff", "VERSION 1.0.0\r\n"}, {"b.bmp", large, true}, {"empty.txt", ""}}), kMost);
    EXPECT_EQ(Content(reader, 0), "VERSION 1.0.0\r\n");
    EXPECT_EQ(Content(reader, 1), large);
    EXPECT_EQ(Content(reader, 2), "");
}

TEST_F(ZipReaderTest, NamesInUtf8AreTakenAsTheyAre) {
    EXPECT_EQ(Names({{"Müller €.bmp", "", false, 0x800}, {"Größe.bmp", "", false, 0}}),
              QStringList({QStringLiteral("Müller €.bmp"), QStringLiteral("Größe.bmp")}));
}

TEST_F(ZipReaderTest, NamesOfOldZipProgramsAreInCodePage437) {
    EXPECT_EQ(Names({{"M\x81ller.bmp", ""}}), QStringList(QStringLiteral("Müller.bmp")));
}

TEST_F(ZipReaderTest, NulInANameIsABlankAndHidesNothing) {
    EXPECT_EQ(Names({{QByteArray("a.aff\0.bmp", 10), ""}}), QStringList(QStringLiteral("a.aff .bmp")));
}

TEST_F(ZipReaderTest, ControlCharactersInANameAreNotMadePictures) {
    const QStringList names =
        Names({{"a\x01"
                "b.bmp",
                ""}});
    ASSERT_EQ(names.size(), 1);
    EXPECT_TRUE(names.front().contains(QChar(1)));
}

TEST_F(ZipReaderTest, EmptyFileIsNoArchive) {
    const QString path = Write(QStringLiteral("empty.zip"), {});
    EXPECT_EQ(FailureOf([&] { ZipReader(path, kMost); }), failure::kInvalidFormat);
}

TEST_F(ZipReaderTest, MissingFileRaises53) {
    const QString path = Path(QStringLiteral("none.zip"));
    EXPECT_EQ(FailureOf([&] { ZipReader(path, kMost); }), failure::kFileNotFound);
}

TEST_F(ZipReaderTest, MoreMembersThanAllowedRaise67) {
    const QString path = Archive({{"a", ""}, {"b", ""}, {"c", ""}});
    EXPECT_EQ(FailureOf([&] { ZipReader(path, 2); }), failure::kTooManyFiles);
    EXPECT_EQ(FailureOf([&] { ZipReader(path, 3); }), std::nullopt);
}

TEST_F(ZipReaderTest, WrongChecksumIsDamage) {
    EXPECT_EQ(FailureOfReading({.name = "a.aff", .data = "text", .claimedChecksum = 1}),
              failure::kInvalidFormat);
}

TEST_F(ZipReaderTest, WrongSizeIsDamage) {
    EXPECT_EQ(FailureOfReading(
                  {.name = "a.aff", .data = QByteArray(1000, 'x'), .isDeflated = true, .claimedSize = 10}),
              failure::kInvalidFormat);
    EXPECT_EQ(FailureOfReading(
                  {.name = "a.aff", .data = QByteArray(10, 'x'), .isDeflated = true, .claimedSize = 1000}),
              failure::kInvalidFormat);
}

TEST_F(ZipReaderTest, UnknownPackingIsAnInvalidFormat) {
    EXPECT_EQ(FailureOfReading({.name = "a.aff", .data = "text", .method = 77}), failure::kInvalidFormat);
}

TEST_F(ZipReaderTest, EncryptedMemberIsToldAndRefused) {
    const ZipReader reader(Archive({{.name = "a.aff", .data = QByteArray(40, 'x'), .flags = 1}}), kMost);
    EXPECT_TRUE(reader.Members().front().isEncrypted);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(Content(reader, 0)); }), failure::kPermissionDenied);
}

TEST_F(ZipReaderTest, LinksAndDevicesAreTold) {
    constexpr std::uint16_t kUnix = 3 << 8;
    const ZipReader reader(
        Archive({{.name = "file", .madeBy = kUnix, .attributes = 0100644U << 16},
                 {.name = "link", .data = "/etc", .madeBy = kUnix, .attributes = 0120777U << 16},
                 {.name = "device", .madeBy = kUnix, .attributes = 0060644U << 16},
                 {.name = "old", .attributes = 0x20}}),
        kMost);
    std::vector<bool> plain;
    for (const ZipMember& member : reader.Members())
        plain.push_back(member.isPlainFile);
    EXPECT_EQ(plain, std::vector<bool>({true, false, false, true}));
}

TEST_F(ZipReaderTest, WhatTheTakerRaisesEndsTheReading) {
    const ZipReader reader(Archive({{"a.aff", QByteArray(1'000'000, 'x'), true}}), kMost);
    int pieces = 0;
    const auto stop = [&](QByteArrayView) {
        ++pieces;
        throw Failure(failure::kDiskFull);
    };
    EXPECT_EQ(FailureOf([&] { reader.Read(reader.Members().front(), stop); }), failure::kDiskFull);
    EXPECT_EQ(pieces, 1);
}

}  // namespace
}  // namespace sheetwright
