#include "print/picture_file.h"

#include "print/metafile_builder.h"
#include "support/test_application.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImage>
#include <QtEndian>

#include <unistd.h>

namespace sheetwright {
namespace {

class PictureFileTest : public ApplicationTest {
  protected:
    // White with one red pixel in the top left corner.
    static QImage Image(int width, int height, QImage::Format format = QImage::Format_RGB32) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        image.setPixelColor(0, 0, Qt::red);
        return image.convertToFormat(format);
    }

    static QByteArray Bytes(const QImage& image, const char* format) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&buffer, format));
        return buffer.data();
    }

    // Two frames of 2 by 2: red and green in a chequerboard, then all blue.
    static QByteArray Gif() {
        return QByteArray::fromHex(
            "47494638396102000200810000ff00000000ff00ff00ffffff"
            "2c00000000020002000002038428140021f904000a000000"
            "2c00000000020002000002034c9814003b");
    }

    [[nodiscard]] std::optional<int> FailureOfLoading(const QByteArray& bytes) const {
        const QString path = Write(QStringLiteral("picture"), bytes);
        return FailureOf([&] { static_cast<void>(LoadPicture(path)); });
    }

    // Of every part of a file from its start: the picture, or none where it is refused.
    static void ExpectPicturesOrRefusals(const QByteArray& whole, QSize size) {
        for (qsizetype length = 0; length <= whole.size(); ++length) {
            const std::optional<int> failure = FailureOf([&] {
                const Picture picture = PictureOf(whole.first(length));
                EXPECT_EQ(picture.image.size(), size) << length;
            });
            EXPECT_EQ(failure.value_or(481), 481) << length;
        }
        EXPECT_EQ(FailureOf([&] { static_cast<void>(PictureOf(whole)); }), std::nullopt);
    }
};

TEST_F(PictureFileTest, EveryFormatHasFifteenTwipsToThePixelAndAFormatThatPaintsFast) {
    for (const char* format : {"png", "bmp", "jpg", "ico"}) {
        const Picture picture = LoadPicture(Write(QStringLiteral("picture"), Bytes(Image(40, 30), format)));
        EXPECT_EQ(picture.image.size(), QSize(40, 30)) << format;
        EXPECT_EQ(picture.width, 600) << format;
        EXPECT_EQ(picture.height, 450) << format;
        EXPECT_FALSE(picture.IsEmpty()) << format;
        EXPECT_TRUE(picture.image.format() == QImage::Format_RGB32 ||
                    picture.image.format() == QImage::Format_ARGB32_Premultiplied)
            << format;
    }
}

TEST_F(PictureFileTest, TheResolutionThatAFileClaimsIsOfNoInterest) {
    QImage image = Image(40, 30);
    image.setDotsPerMeterX(11811);
    image.setDotsPerMeterY(11811);
    for (const char* format : {"png", "bmp", "jpg"})
        EXPECT_EQ(PictureOf(Bytes(image, format)).width, 600) << format;
}

TEST_F(PictureFileTest, OnlyAJpegIsAPhotograph) {
    EXPECT_TRUE(PictureOf(Bytes(Image(8, 8), "jpg")).isPhotograph);
    EXPECT_FALSE(PictureOf(Bytes(Image(8, 8), "png")).isPhotograph);
    EXPECT_FALSE(PictureOf(Gif()).isPhotograph);
}

TEST_F(PictureFileTest, FewColoursAndManyColoursBecomeOneFormat) {
    for (const QImage::Format format :
         {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_RGBX64,
          QImage::Format_RGB888})
        EXPECT_EQ(PictureOf(Bytes(Image(9, 7, format), "png")).image.format(), QImage::Format_RGB32)
            << format;
}

TEST_F(PictureFileTest, TransparencyStays) {
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0, 128));
    const Picture picture = PictureOf(Bytes(image, "png"));
    EXPECT_EQ(picture.image.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(picture.image.pixelColor(1, 1).alpha(), 128);
}

TEST_F(PictureFileTest, AGifShowsItsFirstFrame) {
    const Picture picture = PictureOf(Gif());
    EXPECT_EQ(picture.image.size(), QSize(2, 2));
    EXPECT_EQ(picture.image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture.image.pixelColor(1, 0), QColor(Qt::green));
}

TEST_F(PictureFileTest, AnIconShowsItsLargestImage) {
    const QByteArray small = Bytes(Image(16, 16), "ico");
    const QByteArray large = Bytes(Image(32, 32), "ico");
    constexpr qsizetype kHeader = 6;
    constexpr qsizetype kEntry = 16;
    const auto entry = [&](const QByteArray& icon, qsizetype offset) {
        QByteArray bytes = icon.sliced(kHeader, kEntry);
        qToLittleEndian(static_cast<quint32>(offset), bytes.data() + 12);
        return bytes;
    };
    const qsizetype first = kHeader + 3 * kEntry;
    const qsizetype second = first + small.size() - kHeader - kEntry;
    const QByteArray icon = QByteArray::fromHex("000001000300") + entry(small, first) + entry(large, second) +
                            entry(small, first) + small.sliced(kHeader + kEntry) +
                            large.sliced(kHeader + kEntry);
    EXPECT_EQ(PictureOf(icon).image.size(), QSize(32, 32));
}

TEST_F(PictureFileTest, TheOrientationOfACameraIsLeftAlone) {
    // The camera was turned by a quarter: value 6 of tag 112 (hexadecimal).
    const QByteArray marker = QByteArray::fromHex("ffe10022457869660000");
    const QByteArray tags =
        QByteArray::fromHex("4d4d002a0000000800010112000300000001000600000000") + QByteArray(2, '\0');
    QByteArray bytes = Bytes(Image(40, 30), "jpg");
    bytes.insert(2, marker + tags);
    EXPECT_EQ(PictureOf(bytes).image.size(), QSize(40, 30));
}

TEST_F(PictureFileTest, ContentTellsTheFormatAndTheNameDoesNot) {
    EXPECT_EQ(LoadPicture(Write(QStringLiteral("a.jpg"), Bytes(Image(8, 4), "bmp"))).width, 120);
    EXPECT_EQ(LoadPicture(Write(QStringLiteral("a.bmp"), Bytes(Image(8, 4), "png"))).width, 120);
    EXPECT_EQ(LoadPicture(Write(QStringLiteral("a@2x.png"), Bytes(Image(8, 4), "png"))).width, 120);
    EXPECT_EQ(FailureOf([&] {
                  static_cast<void>(LoadPicture(Write(QStringLiteral("text.png"), "This is no picture.")));
              }),
              481);
}

TEST_F(PictureFileTest, MetafilesArePicturesWhateverTheirName) {
    MetafileBuilder builder;
    builder.Window(0, 0, 100, 100).SolidBrush(255, 0, 0).Select(0).Rectangle(0, 0, 100, 100);
    const Picture picture =
        LoadPicture(Write(QStringLiteral("a.png"), builder.Placeable(0, 0, 100, 100, 100)));
    EXPECT_EQ(picture.width, 1440);
    EXPECT_EQ(picture.image.pixelColor(picture.image.rect().center()), QColor(Qt::red));
}

TEST_F(PictureFileTest, OtherFormatsAreNoPictures) {
    const QByteArray drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>";
    for (const QByteArray& bytes :
         {drawing, QByteArray("P3 1 1 255 0 0 0"), QByteArray("#define a_width 8\n"),
          Bytes(Image(8, 8), "ppm"), Bytes(Image(8, 8), "xpm")})
        EXPECT_EQ(FailureOfLoading(bytes), 481);
}

TEST_F(PictureFileTest, StoredNamesMayUseEitherSeparatorAndAnyCase) {
    Write(QStringLiteral("Folder/Logo.PNG"), Bytes(Image(8, 4), "png"));
    EXPECT_EQ(LoadPicture(m_folder.path() + QStringLiteral("\\folder\\logo.png")).width, 120);
}

TEST_F(PictureFileTest, WhatIsNotThereOrCantBeReadRaisesTheReadersFailure) {
    const auto failureOf = [](const QString& path) {
        return FailureOf([&] { static_cast<void>(LoadPicture(path)); });
    };
    EXPECT_EQ(failureOf(Path(QStringLiteral("missing.png"))), 53);
    EXPECT_EQ(failureOf(m_folder.path() + QStringLiteral("/nowhere/missing.png")), 76);
    EXPECT_EQ(failureOf(m_folder.path()), 75);
    EXPECT_EQ(failureOf(QStringLiteral("/dev/zero")), 75);
    const QString locked = Write(QStringLiteral("locked.png"), Bytes(Image(8, 4), "png"));
    QFile::setPermissions(locked, {});
    EXPECT_EQ(failureOf(locked), geteuid() == 0 ? std::nullopt : std::optional(75));
}

TEST_F(PictureFileTest, AnEmptyFileIsNoPicture) {
    EXPECT_EQ(FailureOfLoading(QByteArray()), 481);
}

TEST_F(PictureFileTest, AFileBeyondTheLimitIsRefusedUnread) {
    const QString path = Write(QStringLiteral("huge.bmp"), "BM");
    ASSERT_TRUE(QFile::resize(path, kLargestPictureFile + 1));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(LoadPicture(path)); }), 481);
}

TEST_F(PictureFileTest, DeclaredSizesBeyondTheLimitAreRefused) {
    constexpr quint32 kSide = 100'000;
    QByteArray bmp = Bytes(Image(8, 8), "bmp");
    qToLittleEndian(kSide, bmp.data() + 18);
    qToLittleEndian(kSide, bmp.data() + 22);
    // A header that is right down to its check sum.
    const QByteArray png = QByteArray::fromHex(
                               "89504e470d0a1a0a0000000d49484452"
                               "000186a0000186a00802000000") +
                           QByteArray::fromHex("27309c9f") + QByteArray::fromHex("0000000049444154");
    QByteArray gif = Gif();
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    QByteArray jpeg = Bytes(Image(8, 8), "jpg");
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    ASSERT_GT(frame, 0);
    jpeg.replace(frame + 5, 4, "\xFF\xFF\xFF\xFF");
    for (const QByteArray& bytes : {bmp, png, gif, jpeg})
        EXPECT_EQ(FailureOfLoading(bytes), 481);
}

// A gray picture that is gone over so often, each time for nothing.
QByteArray JpegOfScans(quint16 side, int scans) {
    QByteArray frame = QByteArray::fromHex("ffc2000b080000000001011100");
    qToBigEndian(side, frame.data() + 5);
    qToBigEndian(side, frame.data() + 7);
    const QByteArray first = QByteArray::fromHex("ffda0008010100000000");
    return QByteArray::fromHex("ffd8ffdb004300") + QByteArray(64, '\x10') + frame +
           QByteArray::fromHex("ffc4001400") + QByteArray::fromHex("01") + QByteArray(16, '\0') +
           QByteArray::fromHex("ffc4001410") + QByteArray::fromHex("01") + QByteArray(15, '\0') + '\xE0' +
           first + QByteArray::fromHex("ffda0008010100013f00").repeated(scans - 1) +
           QByteArray::fromHex("ffd9");
}

TEST_F(PictureFileTest, AJpegThatWouldTakeHoursIsRefused) {
    EXPECT_EQ(PictureOf(JpegOfScans(8, 1000)).image.size(), QSize(8, 8));
    EXPECT_EQ(FailureOfLoading(JpegOfScans(10'000, 51)), 481);
}

TEST_F(PictureFileTest, AnIconMayHoldAPng) {
    const QByteArray png = Bytes(Image(40, 30), "png");
    QByteArray icon = QByteArray::fromHex("0000010001002828000001002000") + QByteArray(8, '\0');
    qToLittleEndian(static_cast<quint32>(png.size()), icon.data() + 14);
    qToLittleEndian(static_cast<quint32>(icon.size()), icon.data() + 18);
    const Picture picture = PictureOf(icon + png);
    EXPECT_EQ(picture.image.size(), QSize(40, 30));
    EXPECT_EQ(picture.image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(PictureFileTest, ALargeScanIsNoProblem) {
    const Picture picture = PictureOf(Bytes(Image(9000, 9000, QImage::Format_Mono), "png"));
    EXPECT_EQ(picture.width, 135'000);
}

TEST_F(PictureFileTest, AFileCutShortAnywhereShowsWhatItHasOrIsRefused) {
    for (const char* format : {"png", "bmp", "jpg", "ico"})
        ExpectPicturesOrRefusals(Bytes(Image(9, 7), format), QSize(9, 7));
    ExpectPicturesOrRefusals(Gif(), QSize(2, 2));
}

TEST_F(PictureFileTest, TheRestOfACutPngIsTransparent) {
    constexpr int kSide = 200;
    QImage image(kSide, kSide, QImage::Format_RGB32);
    quint32 noise = 1;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            image.setPixel(x, y, noise = noise * 1664525 + 1013904223);
    const QByteArray whole = Bytes(image, "png");
    const Picture picture = PictureOf(whole.first(whole.size() / 2));
    EXPECT_EQ(picture.image.pixelColor(0, 0), image.pixelColor(0, 0));
    EXPECT_EQ(picture.image.pixelColor(kSide - 1, kSide - 1).alpha(), 0);
}

TEST_F(PictureFileTest, APngWithoutOneWholePixelIsNoPicture) {
    const QByteArray whole = Bytes(Image(50, 50), "png");
    EXPECT_EQ(FailureOfLoading(whole.first(45)), 481);
}

class PictureCacheTest : public PictureFileTest {
  protected:
    QString Save(const QString& name, int width, int height = 10) {
        return Write(name, Bytes(Image(width, height), "bmp"));
    }
    static void SetAge(const QString& path, int seconds) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QDateTime day(QDate(2020, 1, 1), QTime(12, 0));
        ASSERT_TRUE(file.setFileTime(day.addSecs(-seconds), QFileDevice::FileModificationTime));
    }
};

TEST_F(PictureCacheTest, APictureIsDecodedOnce) {
    PictureCache cache;
    const QString path = Save(QStringLiteral("a.bmp"), 10);
    const qint64 first = cache.Load(path).image.cacheKey();
    EXPECT_EQ(cache.Load(path).image.cacheKey(), first);
    EXPECT_EQ(cache.Count(), 1);
}

TEST_F(PictureCacheTest, AFileThatChangedIsReadAgain) {
    PictureCache cache;
    const QString path = Save(QStringLiteral("a.bmp"), 10);
    SetAge(path, 10);
    EXPECT_EQ(cache.Load(path).width, 150);
    Save(QStringLiteral("a.bmp"), 20);
    SetAge(path, 10);
    EXPECT_EQ(cache.Load(path).width, 300) << "another size";
    Save(QStringLiteral("a.bmp"), 10, 20);
    SetAge(path, 10);
    EXPECT_EQ(cache.Load(path).height, 300);
    const qint64 before = cache.Load(path).image.cacheKey();
    SetAge(path, 5);
    EXPECT_NE(cache.Load(path).image.cacheKey(), before) << "another time";
}

TEST_F(PictureCacheTest, AFileThatWentIsMissing) {
    PictureCache cache;
    const QString path = Save(QStringLiteral("a.bmp"), 10);
    static_cast<void>(cache.Load(path));
    QFile::remove(path);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(cache.Load(path)); }), 53);
    EXPECT_EQ(cache.Count(), 0);
}

TEST_F(PictureCacheTest, AFileThatIsNoPictureIsLookedAtOnceUntilItChanges) {
    PictureCache cache;
    const QString path = Save(QStringLiteral("a.bmp"), 10);
    const QByteArray whole = Read(QStringLiteral("a.bmp"));
    const auto failureAfterWriting = [&](const QByteArray& bytes, int age) {
        Write(QStringLiteral("a.bmp"), bytes);
        SetAge(path, age);
        return FailureOf([&] { static_cast<void>(cache.Load(path)); });
    };
    EXPECT_EQ(failureAfterWriting(QByteArray(whole.size(), ' '), 10), 481);
    EXPECT_EQ(failureAfterWriting(whole, 10), 481) << "the same time and size: not looked at again";
    EXPECT_EQ(failureAfterWriting(whole, 5), std::nullopt);
    EXPECT_EQ(cache.Load(path).width, 150);
}

TEST_F(PictureCacheTest, TheOneNotUsedForLongestGoesFirst) {
    PictureCache cache(3 * 400);
    const QString a = Save(QStringLiteral("a.bmp"), 10);
    const QString b = Save(QStringLiteral("b.bmp"), 10);
    const qint64 keyOfA = cache.Load(a).image.cacheKey();
    const qint64 keyOfB = cache.Load(b).image.cacheKey();
    static_cast<void>(cache.Load(Save(QStringLiteral("c.bmp"), 10)));
    EXPECT_EQ(cache.Load(a).image.cacheKey(), keyOfA);
    static_cast<void>(cache.Load(Save(QStringLiteral("d.bmp"), 10)));
    EXPECT_EQ(cache.Count(), 3);
    EXPECT_EQ(cache.Load(a).image.cacheKey(), keyOfA);
    EXPECT_NE(cache.Load(b).image.cacheKey(), keyOfB);
}

TEST_F(PictureCacheTest, APictureBeyondTheLimitIsKeptAlone) {
    PictureCache cache(1000);
    static_cast<void>(cache.Load(Save(QStringLiteral("a.bmp"), 10)));
    EXPECT_EQ(cache.Load(Save(QStringLiteral("b.bmp"), 100)).width, 1500);
    EXPECT_EQ(cache.Count(), 1);
}

}  // namespace
}  // namespace sheetwright
