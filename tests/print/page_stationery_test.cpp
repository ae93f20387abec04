#include "print/page_stationery.h"

#include "document/document.h"
#include "print/form_surfaces.h"
#include "print/stationery.h"
#include "support/item_text.h"
#include "support/test_application.h"

#include <QImage>

#include <functional>

namespace sheetwright {
namespace {

class PageStationeryTest : public ApplicationTest {
  protected:
    PageStationeryTest() {
        m_application->conventions = ConventionsOf(QLocale(QLocale::English));
        m_document.MyTempDir = m_folder.path() + u'/';
        m_ui.pointers.clear();
    }

    void SaveScan(const QString& name, int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        ASSERT_TRUE(image.save(Path(name), "PNG"));
    }
    void LoadValue(const QString& value) { LoadPPSettings(m_document, value); }
    [[nodiscard]] QStringList Painted() const { return TextsOf(m_document.surfaces->picForm.Recorded()); }

    frmSheetwright m_document{*m_application};
};

TEST_F(PageStationeryTest, FieldsGoToTheirMembers) {
    SaveScan(QStringLiteral("scan.png"), 10, 20);
    LoadValue(QStringLiteral("scan.png|300|10|-20.5|30|40.25"));
    const PrePrinted& stationery = *m_document.stationery;
    EXPECT_EQ(stationery.imageDPI, 300);
    EXPECT_EQ(stationery.printerXAdjust, 10);
    EXPECT_EQ(stationery.printerYAdjust, -20.5F);
    EXPECT_EQ(stationery.screenXAdjust, 30);
    EXPECT_EQ(stationery.screenYAdjust, 40.25F);
    EXPECT_EQ(stationery.Background().width, 150);
}

TEST_F(PageStationeryTest, TheScanIsPaintedLifeSizeAtItsScreenAdjust) {
    SaveScan(QStringLiteral("scan.png"), 200, 400);
    LoadValue(QStringLiteral("scan.png|192|500|500|30|45"));
    EXPECT_EQ(Painted(),
              QStringList(QStringLiteral("picture 30,45 1500x3000 from 0,0 3000x6000 of 200x400 pixels")));
}

TEST_F(PageStationeryTest, AnUprightA4ScanIsFoundOut) {
    SaveScan(QStringLiteral("scan.png"), 1240, 1754);
    LoadValue(QStringLiteral("scan.png|0||||"));
    EXPECT_EQ(m_document.stationery->imageDPI, 150);
}

TEST_F(PageStationeryTest, MissingFieldsAre0) {
    SaveScan(QStringLiteral("scan.png"), 10, 10);
    LoadValue(QStringLiteral("scan.png"));
    EXPECT_EQ(m_document.stationery->imageDPI, 200);
    EXPECT_EQ(m_document.stationery->screenYAdjust, 0);
    EXPECT_EQ(Painted(), QStringList(QStringLiteral("picture 0,0 72x72 from 0,0 150x150 of 10x10 pixels")));
}

TEST_F(PageStationeryTest, WhatIsNoNumberIs0) {
    LoadValue(QStringLiteral("scan.png|x|left|12abc|-|7"));
    EXPECT_EQ(m_document.stationery->imageDPI, 200);
    EXPECT_EQ(m_document.stationery->printerXAdjust, 0);
    EXPECT_EQ(m_document.stationery->printerYAdjust, 12);
    EXPECT_EQ(m_document.stationery->screenYAdjust, 7);
}

TEST_F(PageStationeryTest, AResolutionPast16BitsAndAnAdjustPastSinglePrecisionAreOverflows) {
    EXPECT_EQ(FailureOf([&] { LoadValue(QStringLiteral("scan.png|32768|1|2|3|4")); }), 6);
    EXPECT_EQ(FailureOf([&] { LoadValue(QStringLiteral("scan.png|300|1|2|1e39|4")); }), 6);
    EXPECT_EQ(m_document.stationery->printerYAdjust, 2);
    EXPECT_TRUE(Painted().isEmpty());
}

TEST_F(PageStationeryTest, EachPageOverwritesTheValuesOfTheLast) {
    SaveScan(QStringLiteral("a.png"), 10, 10);
    SaveScan(QStringLiteral("b.png"), 20, 20);
    LoadValue(QStringLiteral("a.png|300|1|2|3|4"));
    const PrePrinted* const first = m_document.stationery.get();
    LoadValue(QStringLiteral("b.png|96|||15|"));
    EXPECT_EQ(m_document.stationery.get(), first);
    EXPECT_EQ(Painted().back(), QStringLiteral("picture 15,0 300x300 from 0,0 300x300 of 20x20 pixels"));
    EXPECT_EQ(m_document.stationery->printerXAdjust, 0);
}

TEST_F(PageStationeryTest, AnUnreadableScanLeavesTheOldOne) {
    SaveScan(QStringLiteral("a.png"), 10, 10);
    Write(QStringLiteral("text.png"), "This is no picture.");
    LoadValue(QStringLiteral("a.png|96||||"));
    for (const QString& name : {QStringLiteral("missing.png"), QStringLiteral("text.png"), QString()}) {
        LoadValue(name + QStringLiteral("|96|||30|"));
        EXPECT_EQ(Painted().back(), QStringLiteral("picture 30,0 150x150 from 0,0 150x150 of 10x10 pixels"));
    }
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_TRUE(ErrorRows().empty());
}

TEST_F(PageStationeryTest, PaintingShowsTheHourglass) {
    SaveScan(QStringLiteral("scan.png"), 10, 10);
    LoadValue(QStringLiteral("scan.png|96||||"));
    EXPECT_EQ(m_ui.pointers, (std::vector{Pointer::Hourglass, Pointer::Normal}));
}

TEST_F(PageStationeryTest, WithoutAnImageThePointerStaysAndNothingIsDrawn) {
    LoadValue(QStringLiteral("missing.png|96||||"));
    PaintBackground(m_document);
    EXPECT_TRUE(m_ui.pointers.empty());
    EXPECT_TRUE(Painted().isEmpty());
}

TEST_F(PageStationeryTest, AResolutionOf0TravelsToTheCallerAndGivesThePointerBack) {
    SaveScan(QStringLiteral("scan.png"), 10, 10);
    LoadValue(QStringLiteral("scan.png|96||||"));
    m_document.stationery->imageDPI = 0;
    EXPECT_EQ(FailureOf([&] { PaintBackground(m_document); }), 11);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(PageStationeryTest, TheSurfacesAreLaidOutBeforeThePainting) {
    SaveScan(QStringLiteral("scan.png"), 10, 10);
    class HiddenWindow : public NoDocumentWindow {
      public:
        explicit HiddenWindow(std::function<void()> newOnLayout) : onLayout(std::move(newOnLayout)) {}
        [[nodiscard]] bool IsShown() const override { return false; }
        void LayoutChanged() override { onLayout(); }
        std::function<void()> onLayout;
    };
    QStringList paintedBefore{QStringLiteral("not called")};
    HiddenWindow window([&] { paintedBefore = Painted(); });
    m_document.window = &window;
    LoadValue(QStringLiteral("scan.png|96||||"));
    EXPECT_TRUE(paintedBefore.isEmpty());
    EXPECT_EQ(Painted().size(), 1);
}

TEST_F(PageStationeryTest, AScanIsDecodedOnceForAllPagesThatShowIt) {
    SaveScan(QStringLiteral("scan.png"), 10, 10);
    LoadValue(QStringLiteral("scan.png|96||||"));
    const qint64 key = m_document.stationery->Background().image.cacheKey();
    LoadValue(QStringLiteral("scan.png|96||||"));
    EXPECT_EQ(m_document.stationery->Background().image.cacheKey(), key);
}

TEST_F(PageStationeryTest, AdjustsAreReadByTheConventionsInForce) {
    m_application->conventions = ConventionsOf(QLocale(QLocale::German));
    LoadValue(QStringLiteral("scan.png|96|1,5|2.5|0|0"));
    EXPECT_EQ(m_document.stationery->printerXAdjust, 1.5F);
    EXPECT_EQ(m_document.stationery->printerYAdjust, 2.5F);
}

}  // namespace
}  // namespace sheetwright
