#include "print/stationery.h"

#include "print/print_state.h"
#include "support/fixed_metrics.h"
#include "support/recording_surface.h"
#include "support/test_application.h"

#include <QImage>

namespace sheetwright {
namespace {

class StationeryTest : public ApplicationTest {
  protected:
    // A stationery whose image has that many pixels.
    void SetImage(int width, int height) { m_image = QSize(width, height); }
    Picture Load(const QString& path) {
        m_paths << path;
        if (m_failure != 0) throw Failure(m_failure);
        return PictureOfSize(m_image.width(), m_image.height());
    }
    static Picture PictureOfSize(int width, int height) {
        Picture picture;
        picture.image = QImage(1, 1, QImage::Format_RGB32);
        picture.width = width * 15.0;
        picture.height = height * 15.0;
        return picture;
    }
    std::int16_t DetectedDpi(int width, int height) {
        SetImage(width, height);
        m_stationery.imageDPI = 0;
        m_stationery.setBackground(QStringLiteral("scan"));
        return m_stationery.imageDPI;
    }

    PrintState m_state;
    QSize m_image{100, 100};
    QStringList m_paths;
    int m_failure = 0;
    ScaleForm m_twips;
    const ScaleForm* m_active = &m_twips;
    PrePrinted m_stationery{m_state, [this] { return m_active; },
                            [this](const QString& path) { return Load(path); }};
};

TEST_F(StationeryTest, FieldsCountFromOneAndEndAtABar) {
    const QString value = QStringLiteral("scan.bmp|300|10|-20.5||40");
    EXPECT_EQ(StationeryField(value, 1), QStringLiteral("scan.bmp"));
    EXPECT_EQ(StationeryField(value, 2), QStringLiteral("300"));
    EXPECT_EQ(StationeryField(value, 4), QStringLiteral("-20.5"));
    EXPECT_EQ(StationeryField(value, 5), QString());
    EXPECT_EQ(StationeryField(value, 6), QStringLiteral("40"));
    EXPECT_EQ(StationeryField(value, 7), QString());
    EXPECT_EQ(StationeryField(QString(), 1), QString());
    EXPECT_EQ(StationeryField(QStringLiteral("a"), 2), QString());
}

TEST_F(StationeryTest, AResolutionThatIsGivenStandsWhateverTheImage) {
    for (const QSize size : {QSize(1654, 2339), QSize(100, 100), QSize(2339, 1654)}) {
        SetImage(size.width(), size.height());
        m_stationery.imageDPI = 300;
        m_stationery.setBackground(QStringLiteral("scan"));
        EXPECT_EQ(m_stationery.imageDPI, 300);
    }
}

TEST_F(StationeryTest, AnUprightA4ScanOf2339PixelsHas200DotsPerInch) {
    EXPECT_EQ(DetectedDpi(1654, 2339), 200);
}

TEST_F(StationeryTest, AnUprightA4ScanHasItsHeightOver11Point7RoundedTo50) {
    EXPECT_EQ(DetectedDpi(2480, 3508), 300);
    EXPECT_EQ(DetectedDpi(827, 1170), 100);
    EXPECT_EQ(DetectedDpi(4961, 7016), 600);
    EXPECT_EQ(DetectedDpi(595, 842), 50);
}

TEST_F(StationeryTest, ProportionsAreCutToTwoDecimals) {
    EXPECT_EQ(DetectedDpi(1000, 1409), 200) << "1.40";
    EXPECT_EQ(DetectedDpi(1000, 1410), 100) << "1.41 itself";
    EXPECT_EQ(DetectedDpi(1000, 1419), 100) << "1.41";
    EXPECT_EQ(DetectedDpi(1000, 1420), 200) << "1.42";
}

TEST_F(StationeryTest, ASquareImageHas200DotsPerInch) {
    EXPECT_EQ(DetectedDpi(3508, 3508), 200);
}

TEST_F(StationeryTest, ALyingA4ScanHas200DotsPerInch) {
    EXPECT_EQ(DetectedDpi(3508, 2480), 200);
    EXPECT_EQ(DetectedDpi(7016, 4961), 200);
}

TEST_F(StationeryTest, AScanTooSmallToTellHas200DotsPerInch) {
    EXPECT_EQ(DetectedDpi(100, 141), 200);
}

TEST_F(StationeryTest, AResolutionPast16BitsIs200) {
    EXPECT_EQ(DetectedDpi(282'000, 400'000), 200);
}

TEST_F(StationeryTest, AnUnreadableImageLeavesTheBackgroundAndHas200DotsPerInch) {
    m_stationery.setBackground(PictureOfSize(30, 20));
    for (const int number : {53, 481, 7}) {
        m_failure = number;
        m_stationery.imageDPI = 0;
        m_stationery.setBackground(QStringLiteral("broken"));
        EXPECT_EQ(m_stationery.Background().width, 450);
        EXPECT_EQ(m_stationery.imageDPI, 200);
    }
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(StationeryTest, WithoutAnyImageTheResolutionIs200) {
    m_failure = 53;
    m_stationery.setBackground(QStringLiteral("missing"));
    EXPECT_EQ(m_stationery.imageDPI, 200);
    EXPECT_TRUE(m_stationery.Background().IsEmpty());
}

TEST_F(StationeryTest, AnUnreadableImageAfterAnA4ScanIsTakenForThatScan) {
    EXPECT_EQ(DetectedDpi(2480, 3508), 300);
    m_failure = 481;
    m_stationery.imageDPI = 0;
    m_stationery.setBackground(QStringLiteral("broken"));
    EXPECT_EQ(m_stationery.imageDPI, 300);
}

TEST_F(StationeryTest, SizesAreOfTheImageInUnitsOfTheScaleForm) {
    m_stationery.setBackground(PictureOfSize(200, 100));
    EXPECT_EQ(m_stationery.imageWidth(), 3000);
    EXPECT_EQ(m_stationery.imageHeight(), 1500);
    const ScaleForm pixels{1.0 / 15, 1.0 / 30};
    m_stationery.setScaleForm(pixels);
    EXPECT_EQ(m_stationery.imageWidth(), 200);
    EXPECT_EQ(m_stationery.imageHeight(), 50);
}

TEST_F(StationeryTest, SizesThatAreSetAreReckonedAnewWhenTheyAreRead) {
    m_stationery.setBackground(PictureOfSize(200, 100));
    m_stationery.setImageWidth(1);
    m_stationery.setImageHeight(2);
    EXPECT_EQ(m_stationery.imageWidth(), 3000);
    EXPECT_EQ(m_stationery.imageHeight(), 1500);
}

TEST_F(StationeryTest, SettingTheBackgroundMakesTheActiveFormTheScaleForm) {
    const ScaleForm other{2, 2};
    m_stationery.setScaleForm(other);
    m_stationery.setBackground(PictureOfSize(100, 100));
    EXPECT_EQ(m_stationery.imageWidth(), 1500);
}

TEST_F(StationeryTest, WithNoActiveFormTheScaleFormStays) {
    m_active = nullptr;
    m_stationery.setBackground(PictureOfSize(100, 100));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_stationery.imageWidth()); }), 91);
    const ScaleForm other{2, 2};
    m_stationery.setScaleForm(other);
    m_stationery.setBackground(PictureOfSize(100, 100));
    EXPECT_EQ(m_stationery.imageWidth(), 3000);
}

TEST_F(StationeryTest, WithoutAnImageThereAreNoSizes) {
    m_stationery.setScaleForm(m_twips);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_stationery.imageWidth()); }), 91);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_stationery.imageHeight()); }), 91);
}

class PaintBackgroundTest : public StationeryTest {
  protected:
    [[nodiscard]] std::vector<DrawnPicture> Painted() {
        m_surface.recording.Clear();
        PaintBackground(m_stationery, m_state, m_surface);
        std::vector<DrawnPicture> pictures;
        for (const DrawnItem& item : m_surface.recording.Items())
            pictures.push_back(std::get<DrawnPicture>(item));
        return pictures;
    }

    FixedMetrics m_metrics;
    RecordingSurface m_surface{m_metrics};
};

TEST_F(PaintBackgroundTest, TheImageIsShownLifeSize) {
    m_stationery.imageDPI = 200;
    m_stationery.screenXAdjust = 30;
    m_stationery.screenYAdjust = -45;
    m_stationery.setBackground(PictureOfSize(1600, 2400));
    const std::vector<DrawnPicture> painted = Painted();
    ASSERT_EQ(painted.size(), 1U);
    EXPECT_EQ(painted[0].target, QRectF(30, -45, 11520, 17280));
    EXPECT_EQ(painted[0].source, QRectF(0, 0, 24000, 36000));
}

TEST_F(PaintBackgroundTest, PrinterAdjustsDontMoveIt) {
    m_stationery.imageDPI = 96;
    m_stationery.printerXAdjust = 500;
    m_stationery.printerYAdjust = 500;
    m_stationery.setBackground(PictureOfSize(10, 10));
    EXPECT_EQ(Painted()[0].target, QRectF(0, 0, 150, 150));
}

TEST_F(PaintBackgroundTest, WithoutAnImageNothingIsDrawnWhateverTheResolution) {
    EXPECT_TRUE(Painted().empty());
}

TEST_F(PaintBackgroundTest, AResolutionOf0IsADivisionByZero) {
    m_stationery.setBackground(PictureOfSize(10, 10));
    EXPECT_EQ(FailureOf([&] { PaintBackground(m_stationery, m_state, m_surface); }), 11);
}

}  // namespace
}  // namespace sheetwright
