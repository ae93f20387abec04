// The pages of the sample forms as images: a change of how anything is drawn shows here. What was meant is
// kept by running this test once with SHEETWRIGHT_KEEP_PAGES=1 in the environment, after looking at the
// images.

#include "document/document.h"
#include "document/headless_page.h"
#include "print/fonts.h"
#include "print/picture_surface.h"
#include "print/print_job.h"
#include "support/test_application.h"

#include <QFile>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace sheetwright {

namespace {

constexpr double kDotsPerInch = 72;
// Fonts and their rasteriser differ a little from machine to machine.
constexpr int kClearlyDifferent = 64;        // of 255, in one colour of a pixel
constexpr double kMostDifferent = 0.003;     // of all pixels
constexpr double kMostMeanDifference = 0.8;  // of 255

struct Difference {
    double differentPart = 0;
    double mean = 0;
};

Difference Compare(const QImage& left, const QImage& right) {
    qint64 different = 0;
    qint64 sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QColor a = left.pixelColor(x, y);
            const QColor b = right.pixelColor(x, y);
            const int most = std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                       std::abs(a.blue() - b.blue())});
            sum += most;
            if (most > kClearlyDifferent) ++different;
        }
    }
    const double pixels = static_cast<double>(left.width()) * left.height();
    return {static_cast<double>(different) / pixels, static_cast<double>(sum) / pixels};
}

class SamplePages : public ApplicationTest, public ::testing::WithParamInterface<const char*> {
  protected:
    SamplePages() {
        const QString table = QStringLiteral("papersizes.csv");
        QFile::copy(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/") + table, Path(table));
        m_application->conventions = ConventionsOf(QLocale(QLocale::English, QLocale::UnitedKingdom));
        m_application->LoadPaperTable();
    }

    [[nodiscard]] QImage Drawn(frmSheetwright& document, int page) const {
        PictureSurface surface(FontsOf(*m_application));
        PrintPages(document, surface, static_cast<std::int16_t>(page), static_cast<std::int16_t>(page));
        return surface.Render(kDotsPerInch);
    }

    static void ExpectKept(const QImage& drawn, const QString& name) {
        const QString kept = QStringLiteral(SHEETWRIGHT_TEST_DATA "/pages/") + name;
        if (qEnvironmentVariableIsSet("SHEETWRIGHT_KEEP_PAGES")) {
            ASSERT_TRUE(drawn.convertToFormat(QImage::Format_RGB888).save(kept, "PNG"));
        }
        const QImage expected(kept);
        ASSERT_EQ(drawn.size(), expected.size()) << name.toStdString();
        const Difference difference = Compare(drawn, expected);
        EXPECT_LT(difference.differentPart, kMostDifferent) << name.toStdString();
        EXPECT_LT(difference.mean, kMostMeanDifference) << name.toStdString();
    }
};

TEST_P(SamplePages, LookAsTheyWereKept) {
    const QString name = QString::fromLatin1(GetParam());
    frmSheetwright document(*m_application);
    UseHeadlessPage(document);
    OpenDocument(document, QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/samples/%1.aff").arg(name));
    ASSERT_GT(document.Pages, 0);
    for (int page = 1; page <= document.Pages; ++page)
        ExpectKept(Drawn(document, page), QStringLiteral("%1_%2.png").arg(name).arg(page));
    EXPECT_TRUE(ErrorRows().empty());
}

INSTANTIATE_TEST_SUITE_P(Forms, SamplePages,
                         ::testing::Values("appliance_test_record", "installation_inspection_report",
                                           "calibration_certificate"));

}  // namespace

}  // namespace sheetwright
