#include "print/wmf_picture.h"

#include "print/metafile_builder.h"
#include "support/test_application.h"

#include <QColor>
#include <QProcess>

namespace sheetwright {
namespace {

// Draws without an outline; object 0 is the pen.
MetafileBuilder Canvas() {
    MetafileBuilder builder;
    builder.MapMode(8).Window(0, 0, 2000, 1000).NoPen().Select(0);
    return builder;
}

QColor ColourAt(const Picture& picture, int x, int y) {
    return picture.image.pixelColor(x * picture.image.width() / 2000, y * picture.image.height() / 1000);
}

bool IsShown(const Picture& picture, int x, int y) {
    return ColourAt(picture, x, y).alpha() > 0;
}

TEST(MetafilePicture, ARectangleStandsInItsColourOnNothing) {
    const Picture picture = MetafilePicture(Canvas()
                                                .SolidBrush(255, 0, 0)
                                                .Select(1)
                                                .Rectangle(500, 250, 1500, 750)
                                                .Placeable(0, 0, 2000, 1000, 1440));
    EXPECT_EQ(ColourAt(picture, 1000, 500), QColor(255, 0, 0));
    EXPECT_EQ(ColourAt(picture, 520, 270), QColor(255, 0, 0));
    EXPECT_EQ(ColourAt(picture, 1480, 730), QColor(255, 0, 0));
    EXPECT_FALSE(IsShown(picture, 480, 500));
    EXPECT_FALSE(IsShown(picture, 1000, 230));
    EXPECT_FALSE(IsShown(picture, 1520, 500));
}

TEST(MetafilePicture, HasItsNaturalSizeAndFormat) {
    const Picture picture = MetafilePicture(Canvas().Rectangle(0, 0, 1, 1).Placeable(0, 0, 2000, 1000, 500));
    EXPECT_EQ(picture.width, 5760);
    EXPECT_EQ(picture.height, 2880);
    EXPECT_EQ(picture.image.size(), QSize(1536, 768));
    EXPECT_EQ(picture.image.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_FALSE(picture.isPhotograph);
}

TEST(MetafilePicture, AnEllipseFillsItsBoxButNotItsCorners) {
    const Picture picture =
        MetafilePicture(Canvas().SolidBrush(0, 255, 0).Select(1).Ellipse(0, 0, 2000, 1000).Plain());
    EXPECT_EQ(ColourAt(picture, 1000, 500), QColor(0, 255, 0));
    EXPECT_EQ(ColourAt(picture, 1000, 20), QColor(0, 255, 0));
    EXPECT_FALSE(IsShown(picture, 100, 50));
    EXPECT_FALSE(IsShown(picture, 1950, 950));
}

TEST(MetafilePicture, APolygonIsFilled) {
    const Picture picture = MetafilePicture(
        Canvas().SolidBrush(0, 0, 255).Select(1).Polygon({0, 1000, 1000, 0, 2000, 1000}).Plain());
    EXPECT_EQ(ColourAt(picture, 1000, 500), QColor(0, 0, 255));
    EXPECT_FALSE(IsShown(picture, 200, 200));
}

TEST(MetafilePicture, TextsAreDrawnWithTheirAccents) {
    const auto shown = [](const QByteArray& text) {
        const Picture picture = MetafilePicture(
            Canvas().Font(500, "Arial").Select(1).TransparentBackground().Text(100, 100, text).Plain());
        qint64 count = 0;
        for (int y = 0; y < picture.image.height(); ++y)
            for (int x = 0; x < picture.image.width(); ++x)
                count += qAlpha(picture.image.pixel(x, y)) > 127;
        return count;
    };
    EXPECT_EQ(shown(" "), 0);
    EXPECT_GT(shown("u"), 1000);
    EXPECT_GT(shown("\xFC"), shown("u"));
}

TEST(MetafilePicture, WithoutAMapModeTheWindowFillsThePictureAllTheSame) {
    MetafileBuilder builder;
    builder.Window(0, 0, 2000, 1000).SolidBrush(255, 0, 0).Select(0).Rectangle(0, 0, 2000, 1000);
    const Picture picture = MetafilePicture(builder.Plain());
    EXPECT_EQ(ColourAt(picture, 1900, 900), QColor(255, 0, 0));
}

TEST(MetafilePicture, AWindowUpsideDownIsTurned) {
    MetafileBuilder builder;
    builder.Window(0, 1000, 2000, -1000).SolidBrush(255, 0, 0).Select(0).Rectangle(0, 500, 2000, 1000);
    const Picture picture = MetafilePicture(builder.Plain());
    EXPECT_TRUE(IsShown(picture, 1000, 250));
    EXPECT_FALSE(IsShown(picture, 1000, 750));
}

TEST(MetafilePicture, ABitmapInItIsStretchedIntoItsPlace) {
    // Two by two pixels of 24 bits, the lower row first: red and green over blue and black.
    const QByteArray header = QByteArray::fromHex("280000000200000002000000") +
                              QByteArray::fromHex("01001800") + QByteArray(24, '\0');
    const QByteArray rows = QByteArray::fromHex("ff00000000000000") + QByteArray::fromHex("0000ff00ff000000");
    const QByteArray place = QByteArray::fromHex("2000cc0000000200020000000000e803d00700000000");
    const Picture picture = MetafilePicture(Canvas().Bytes(0x0F43, place + header + rows).Plain());
    EXPECT_EQ(ColourAt(picture, 100, 100), QColor(255, 0, 0));
    EXPECT_EQ(ColourAt(picture, 1900, 100), QColor(0, 255, 0));
    EXPECT_EQ(ColourAt(picture, 100, 900), QColor(0, 0, 255));
    EXPECT_EQ(ColourAt(picture, 1900, 900), QColor(0, 0, 0));
}

TEST(MetafilePicture, WithoutAnythingInItIsTransparent) {
    const Picture picture = MetafilePicture(Canvas().Plain());
    EXPECT_FALSE(picture.IsEmpty());
    EXPECT_FALSE(IsShown(picture, 1000, 500));
}

TEST(MetafilePicture, RecordsThatMakeNoSenseEndInAPictureOrInFailure481) {
    const QByteArray many = QByteArray::fromHex("ff7f").append(QByteArray(40, '\x55'));
    for (const int function :
         {0x0324, 0x0538, 0x0521, 0x0A32, 0x0F43, 0x0940, 0x06FF, 0x02FB, 0x0142, 0x0922}) {
        const std::optional<int> failure = FailureOf(
            [&] { static_cast<void>(MetafilePicture(Canvas().Bytes(function, many).Select(9).Plain())); });
        EXPECT_EQ(failure.value_or(481), 481) << function;
    }
}

struct ProgramRun {
    int exitCode = -1;
    QByteArray output;
};

ProgramRun Draw(const QStringList& arguments, const QByteArray& input) {
    QProcess process;
    process.start(QStringLiteral(SHEETWRIGHT_BIN_DIR "/sheetwright-wmf"), arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitCode(), process.readAllStandardOutput()};
}

TEST(MetafileProgram, GivesFourBytesForEachPixel) {
    const ProgramRun run =
        Draw({QStringLiteral("30"), QStringLiteral("20")}, ReadMetafile(Canvas().Plain()).bytes);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, QByteArray(2400, '\0'));
}

TEST(MetafileProgram, GivesNothingForRubbish) {
    for (const QByteArray& input : {QByteArray(), QByteArray(1000, '\xFF'), Canvas().Plain().first(17)}) {
        const ProgramRun run = Draw({QStringLiteral("30"), QStringLiteral("20")}, input);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.output.isEmpty());
    }
}

TEST(MetafileProgram, RefusesSizesThatCantBe) {
    const QList<QStringList> lines{{},
                                   {QStringLiteral("30")},
                                   {QStringLiteral("0"), QStringLiteral("20")},
                                   {QStringLiteral("-5"), QStringLiteral("-5")},
                                   {QStringLiteral("32001"), QStringLiteral("1")},
                                   {QStringLiteral("5000"), QStringLiteral("5000")}};
    for (const QStringList& arguments : lines)
        EXPECT_EQ(Draw(arguments, Canvas().Plain()).exitCode, 2);
}

TEST(MetafilePixels, ArtworkHasFourPixelsForEachOfTheScreen) {
    EXPECT_EQ(MetafilePixels(14400, 7200), QSize(3840, 1920));
}

TEST(MetafilePixels, SmallDrawingsHaveEnoughToBeEnlarged) {
    EXPECT_EQ(MetafilePixels(100, 50), QSize(1200, 600));
}

TEST(MetafilePixels, AreBounded) {
    for (const auto& [width, height] : {std::pair{94e6, 94e6}, std::pair{94e6, 0.02}, std::pair{0.02, 94e6},
                                        std::pair{0.02, 0.02}, std::pair{32767.0, 32767.0}}) {
        const QSize pixels = MetafilePixels(width, height);
        EXPECT_LE(qint64{pixels.width()} * pixels.height(), 16'010'000);
        EXPECT_LE(std::max(pixels.width(), pixels.height()), 32'000);
        EXPECT_GE(std::min(pixels.width(), pixels.height()), 1);
    }
}

}  // namespace
}  // namespace sheetwright
