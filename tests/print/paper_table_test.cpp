#include "print/paper_table.h"

#include "support/fixed_metrics.h"
#include "support/recording_printer.h"
#include "support/test_application.h"

#include <QFile>
#include <QPageSize>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace sheetwright {
namespace {

class PaperTableTest : public ApplicationTest {
  protected:
    void Load(const QByteArray& table) {
        Write(QStringLiteral("papersizes.csv"), table);
        m_application->LoadPaperTable();
    }
    void LoadInstalled() {
        m_application->PaperTable.SetFileName(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/papersizes.csv"));
    }
    void SetPaper(std::int16_t paper, std::int16_t orientation) {
        m_application->CurrentPaperSize = paper;
        m_application->CurrentOrientation = orientation;
    }
    [[nodiscard]] std::pair<int, int> Page() const {
        return {PageWidthTwips(*m_application), PageHeightTwips(*m_application)};
    }

    const QByteArray m_table =
        "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n9,2,16838,11906\r\n"
        "1,1,12240,15840\r\n";
};

using Sizes = std::pair<int, int>;

TEST_F(PaperTableTest, ThePageHasTheSizeOfItsPaperAndOrientation) {
    Load(m_table);
    SetPaper(9, 1);
    EXPECT_EQ(Page(), Sizes(11906, 16838));
    SetPaper(9, 2);
    EXPECT_EQ(Page(), Sizes(16838, 11906));
    SetPaper(1, 1);
    EXPECT_EQ(Page(), Sizes(12240, 15840));
}

TEST_F(PaperTableTest, AnUnknownPaperHasTheSizeOfWhateverRecordIsCurrent) {
    Load(m_table);
    SetPaper(99, 1);
    EXPECT_EQ(Page(), Sizes(11906, 16838));
    SetPaper(1, 1);
    EXPECT_EQ(Page(), Sizes(12240, 15840));
    for (const auto& [paper, orientation] : {std::pair{1, 2}, std::pair{0, 0}, std::pair{-1, 1}}) {
        SetPaper(static_cast<std::int16_t>(paper), static_cast<std::int16_t>(orientation));
        EXPECT_EQ(Page(), Sizes(12240, 15840));
    }
}

TEST_F(PaperTableTest, WithAPrinterThePageIsItsSheetAndTheTableIsNotUsed) {
    Load(m_table);
    SetPaper(1, 1);
    const FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    printer.papers[9] = {11906.5, 16837.4};
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    EXPECT_EQ(Page(), Sizes(11906, 16837));
    printer.SetOrientation(2);
    EXPECT_EQ(Page(), Sizes(16837, 11906));
    EXPECT_EQ(m_application->PaperTable.Position(), 1);
}

TEST_F(PaperTableTest, WithNoPrinterInstalledThePrinterIsNeverTouched) {
    Load(m_table);
    const FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    RecordingPrinters printers(printer, 0);
    m_application->printing.printers = &printers;
    EXPECT_EQ(Page(), Sizes(11906, 16838));
    EXPECT_EQ(printers.touches, 0);
}

TEST_F(PaperTableTest, ASizePast32BitsIsAnOverflow) {
    Load("PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,2147483648,-2147483649\r\n");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(PageWidthTwips(*m_application)); }), 6);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(PageHeightTwips(*m_application)); }), 6);
    const FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    printer.papers[9] = {3e9, std::numeric_limits<double>::quiet_NaN()};
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    EXPECT_EQ(FailureOf([&] { static_cast<void>(PageWidthTwips(*m_application)); }), 6);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(PageHeightTwips(*m_application)); }), 6);
}

TEST_F(PaperTableTest, ASizeThatIsNoNumberIsNothing) {
    Load("PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,wide,\r\n");
    EXPECT_EQ(Page(), Sizes(0, 0));
}

TEST_F(PaperTableTest, SizesHaveADecimalPointWhateverTheLocale) {
    m_application->conventions = ConventionsOf(QLocale(QLocale::German));
    Load("PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11905.6,16837.4\r\n");
    EXPECT_EQ(Page(), Sizes(11906, 16837));
}

TEST_F(PaperTableTest, ATableWithoutTheColumnsRaisesFailure5) {
    for (const QByteArray& table : {QByteArray("PAPERSIZE,ORIENTATION,HEIGHT\r\n9,1,3\r\n"),
                                    QByteArray("WIDTH,HEIGHT\r\n2,3\r\n"), QByteArray()}) {
        Load(table);
        EXPECT_EQ(FailureOf([&] { static_cast<void>(PageWidthTwips(*m_application)); }), 5);
        EXPECT_EQ(FindPaper(*m_application, 9, 1), std::nullopt);
    }
}

TEST_F(PaperTableTest, WithoutAFileThereIsNoSize) {
    m_application->LoadPaperTable();
    EXPECT_EQ(FailureOf([&] { static_cast<void>(PageHeightTwips(*m_application)); }), 5);
}

TEST_F(PaperTableTest, ATableWithoutRecordsGivesPagesWithoutSize) {
    Load("PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n");
    EXPECT_EQ(Page(), Sizes(0, 0));
}

TEST_F(PaperTableTest, FindPaperKnowsThePapersOfTheTableOnly) {
    Load(m_table);
    EXPECT_EQ(FindPaper(*m_application, 9, 2), (PaperExtent{16838, 11906}));
    EXPECT_EQ(m_application->PaperTable.Position(), 2);
    EXPECT_EQ(FindPaper(*m_application, 1, 2), std::nullopt);
    EXPECT_EQ(FindPaper(*m_application, 0, 0), std::nullopt);
}

TEST_F(PaperTableTest, FindPaperRefusesSizesThatNoPaperHas) {
    Load(
        "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n1,1,0,5\r\n2,1,5,-5\r\n3,1,x,5\r\n4,1,99999999999,5\r\n5,"
        "1\r\n");
    for (std::int16_t paper = 1; paper <= 5; ++paper)
        EXPECT_EQ(FindPaper(*m_application, paper, 1), std::nullopt) << paper;
}

TEST_F(PaperTableTest, TheInstalledTableBeginsWithA4Upright) {
    LoadInstalled();
    SetPaper(0, 0);
    EXPECT_EQ(Page(), Sizes(11906, 16838));
}

TEST_F(PaperTableTest, TheInstalledTableHasEveryPaperBothWays) {
    LoadInstalled();
    CsvTable& table = m_application->PaperTable;
    std::vector<int> codes;
    for (; !table.AtEnd(); table.MoveNext())
        codes.push_back(table.Columns().At(QStringLiteral("PAPERSIZE")).Value().toInt());
    EXPECT_GE(codes.size(), 120U);
    for (const int code : codes) {
        EXPECT_EQ(std::count(codes.begin(), codes.end(), code), 2) << code;
        const auto paper = static_cast<std::int16_t>(code);
        const std::optional<PaperExtent> upright = FindPaper(*m_application, paper, 1);
        const std::optional<PaperExtent> lying = FindPaper(*m_application, paper, 2);
        ASSERT_TRUE(upright && lying) << code;
        EXPECT_EQ(upright->width, lying->height) << code;
        EXPECT_EQ(upright->height, lying->width) << code;
    }
}

TEST_F(PaperTableTest, TheInstalledSizesAreThoseOfTheirCodes) {
    LoadInstalled();
    // Printers mean other sizes by these codes than the reference does.
    const std::set<std::int16_t> others{15, 24, 25, 26};
    constexpr double kTwipsPerMillimetre = 1440 / 25.4;
    constexpr double kRounding = 15;  // a pixel: some papers are told in rounded inches, some in millimetres
    int known = 0;
    for (std::int16_t code = 1; code <= 70; ++code) {
        const QPageSize::PageSizeId id = QPageSize::id(code);
        const std::optional<PaperExtent> paper = FindPaper(*m_application, code, 1);
        if (id == QPageSize::Custom || !paper || others.contains(code)) continue;
        ++known;
        const QSizeF size = QPageSize::size(id, QPageSize::Millimeter) * kTwipsPerMillimetre;
        EXPECT_NEAR(paper->width, size.width(), kRounding) << code;
        EXPECT_NEAR(paper->height, size.height(), kRounding) << code;
    }
    EXPECT_GT(known, 40);
}

}  // namespace
}  // namespace sheetwright
