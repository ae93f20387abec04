// The files of the sample instruments give the filled sample forms.

#include "core/folders.h"
#include "core/text.h"
#include "import/import_fixture.h"

#include <QFile>

namespace sheetwright {
namespace {

const QString kShare = QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/");

class SampleImport : public PageOnScreenTest {
  protected:
    SampleImport() : m_sample(*m_application) {
        SetListFolder(*m_application, m_folder.path());
        for (const char* list : {"appliance_types.csv", "appliance_types.inf", "wiring_systems.csv"})
            Write(S("LISTS/") + S(list), Bytes(kShare + S("lists/") + S(list)));
    }

    // A new form of that name, its page of `design` on screen, takes the file of the instrument.
    void Pour(const QString& name, const QString& driver, std::int16_t design,
              const QByteArray& linkedPages = {}) {
        m_document = std::make_unique<frmSheetwright>(*m_application);
        m_document->window = &m_window;
        UsePageOnScreen(*m_document);
        OpenDocument(*m_document, kShare + S("templates/") + name + S(".aft"));
        Turn(m_document->memory.PagesOf(design).front());
        if (!linkedPages.isEmpty())
            WriteFileAtomically(m_document->MyTempDir + S("linkedpages.txt"), linkedPages);
        Import(*m_document, kShare + S("drivers/") + driver + S("/Data/") + name + S(".csv"));
        OpenDocument(m_sample, kShare + S("samples/") + name + S(".aff"));
    }

    // "name=value" of all fields that take a column, page after page of a design.
    [[nodiscard]] static QStringList Imported(const frmSheetwright& document, std::int16_t design) {
        const QStringList names = BoundNames(document, design);
        QStringList lines;
        for (const std::int16_t page : document.memory.PagesOf(design))
            for (const QString& line : TextsOf(document.memory.DataPage(page)))
                if (names.contains(line.section(u'=', 0, 0)) && !line.endsWith(u'=')) lines << line;
        return lines;
    }

    frmSheetwright m_sample;

  private:
    [[nodiscard]] static QByteArray Bytes(const QString& path) { return ReadWholeFile(path); }
    [[nodiscard]] static QStringList BoundNames(const frmSheetwright& document, std::int16_t design) {
        QStringList names;
        QString name;
        for (const QString& text : TextsOf(document.memory.DesignPage(design))) {
            const QStringView line = StripTabs(text);
            if (line.startsWith(u"Name=")) name = line.sliced(5).toString();
            if (line.startsWith(u"DataSource=")) names << name;
        }
        return names;
    }
};

TEST_F(SampleImport, AppliancesStandOnThePagesOfTheirLocations) {
    Pour(S("appliance_test_record"), S("AT310"), 2);
    ASSERT_GT(Imported(m_sample, 2).size(), 200);
    EXPECT_EQ(Imported(*m_document, 2), Imported(m_sample, 2));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(SampleImport, ReadingsStandOnThePagesOfTheirRanges) {
    Pour(S("calibration_certificate"), S("PC50"), 2);
    ASSERT_GT(Imported(m_sample, 2).size(), 40);
    EXPECT_EQ(Imported(*m_document, 2), Imported(m_sample, 2));
}

TEST_F(SampleImport, CircuitsStandOnBothPagesOfEachPair) {
    Pour(S("installation_inspection_report"), S("MF720"), 3, "Circuit Details|Circuit Tests\r\n");
    ASSERT_GT(Imported(m_sample, 3).size(), 60);
    EXPECT_EQ(Imported(*m_document, 3), Imported(m_sample, 3));
    EXPECT_EQ(Imported(*m_document, 4), Imported(m_sample, 4));
    EXPECT_EQ(m_document->memory.PagesOf(3), m_sample.memory.PagesOf(3));
    EXPECT_EQ(m_document->memory.PagesOf(4), m_sample.memory.PagesOf(4));
}

}  // namespace
}  // namespace sheetwright
