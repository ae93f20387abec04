#include "ui/spool_printer.h"

#include "document/document.h"
#include "document/headless_page.h"
#include "print/print_job.h"
#include "support/cups_server.h"
#include "support/form_text.h"
#include "support/pdf_tools.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QPrinter>

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Where print servers of tests listen: libraries ask for the address once in a process, so it is set before
// anything asks, for all tests.
class PrintServerAddress : public ::testing::Environment {
  public:
    void SetUp() override {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("CUPS_SERVER", QFile::encodeName(Socket()));
    }
    void TearDown() override { m_folder.reset(); }

    [[nodiscard]] QString Socket() const { return m_folder->filePath(S("socket")); }

  private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

const PrintServerAddress& Address() {
    static const auto* const kAddress =
        static_cast<PrintServerAddress*>(::testing::AddGlobalTestEnvironment(new PrintServerAddress));
    return *kAddress;
}

[[maybe_unused]] const PrintServerAddress& kRegistered = Address();

// Upright and lying pages with a value each.
QByteArray MixedForm() {
    FormText form;
    form.Page(S("Cover"), {S("Orientation=1"), S("PaperSize=9")}).Field(S("A"));
    form.Page(S("Results"), {S("Orientation=2"), S("PaperSize=9")}).Field(S("B"));
    form.Data(1, {S("A=upright")}).Data(2, {S("B=lying")});
    return form.Bytes();
}

}  // namespace

class SpoolPrinterTest : public ApplicationTest {
  protected:
    void SetUp() override {
        if (!m_server.Start()) GTEST_SKIP() << "cupsd can't be started here: " << m_server.Complaints();
        m_application->LoadPaperTable();
    }

    [[nodiscard]] std::unique_ptr<frmSheetwright> OpenMixedForm() {
        auto document = std::make_unique<frmSheetwright>(*m_application);
        UseHeadlessPage(*document);
        OpenDocument(*document, Write(S("mixed.aff"), MixedForm()));
        return document;
    }

    CupsServer m_server{Address().Socket()};
};

TEST_F(SpoolPrinterTest, EachFormPageIsAJobOfItsOwnWithItsOrientation) {
    SpoolPrinters printers(*m_application, [] { return S("mixed.aff"); });
    m_application->printing.printers = &printers;
    const auto document = OpenMixedForm();
    DoRealPrint(*document);
    const QStringList jobs = m_server.Documents();
    ASSERT_EQ(jobs.size(), 2) << m_server.Complaints();
    EXPECT_THAT(PdfPageSizes(jobs[0]), ElementsAre("595x842"));
    EXPECT_EQ(PdfText(jobs[0], 1), "upright");
    EXPECT_THAT(PdfPageSizes(jobs[1]), ElementsAre("842x595"));
    EXPECT_EQ(PdfText(jobs[1], 1), "lying");
    EXPECT_EQ(m_ui.printerDialogs.size(), 1U);
    EXPECT_EQ(m_ui.messages.size(), 0U);
    EXPECT_EQ(ErrorRows().size(), 0U);
    m_server.Stop();
    EXPECT_THAT(m_server.Notes().toStdString(), HasSubstr("mixed.aff"));
}

TEST_F(SpoolPrinterTest, OnlyTheChosenPagesArePrinted) {
    SpoolPrinters printers(*m_application);
    m_application->printing.printers = &printers;
    m_ui.onPrinterDialog = [](PrinterDialog& dialog) { dialog.fromPage = 2; };
    const auto document = OpenMixedForm();
    DoRealPrint(*document);
    ASSERT_EQ(m_server.Documents().size(), 1);
    EXPECT_EQ(PdfText(m_server.Documents().first(), 1), "lying");
}

TEST_F(SpoolPrinterTest, ACancelledDialogPrintsNothing) {
    SpoolPrinters printers(*m_application);
    m_application->printing.printers = &printers;
    m_ui.onPrinterDialog = [](PrinterDialog&) { throw Failure(failure::kCancelled); };
    const auto document = OpenMixedForm();
    DoRealPrint(*document);
    EXPECT_EQ(m_server.Documents(), QStringList());
    EXPECT_EQ(m_ui.messages.size(), 0U);
}

TEST_F(SpoolPrinterTest, TextStandsAsFarFromThePapersEdgeAsItIsTold) {
    SpoolPrinter printer(*m_application, S("kept"));
    printer.Line(1440, 2880, 4320, 5760, 0x0000FF, u"BF");
    printer.EndDoc();
    ASSERT_EQ(m_server.Documents().size(), 1);
    OutputOf(S("pdftoppm"), {S("-r"), S("20"), S("-png"), m_server.Documents().first(), Path(S("page"))});
    const QImage page(Path(S("page-1.png")));
    ASSERT_FALSE(page.isNull());
    EXPECT_EQ(page.pixelColor(21, 41), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(58, 78), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(17, 37), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(62, 82), QColor(Qt::white));
}

TEST_F(SpoolPrinterTest, AJobThatTheSpoolerRefusesIsNoticed) {
    SpoolPrinter refusing(*m_application, S("other"));
    refusing.Print(S("text"));
    EXPECT_EQ(FailureOf([&] { refusing.EndDoc(); }), 482);
    EXPECT_EQ(m_server.Documents(), QStringList());
    refusing.SetQueue(S("kept"));
    refusing.Print(S("text"));
    EXPECT_EQ(FailureOf([&] { refusing.EndDoc(); }), std::nullopt);
    EXPECT_EQ(m_server.Documents().size(), 1);
}

TEST_F(SpoolPrinterTest, AnOpenDocumentStaysWithTheQueueThatItBeganFor) {
    SpoolPrinter printer(*m_application, S("kept"));
    printer.Print(S("for kept"));
    printer.SetQueue(S("other"));
    EXPECT_EQ(FailureOf([&] { printer.EndDoc(); }), std::nullopt);
    ASSERT_EQ(m_server.Documents().size(), 1);
    EXPECT_EQ(PdfText(m_server.Documents().first(), 1), "for kept");
    printer.Print(S("for other"));
    EXPECT_EQ(FailureOf([&] { printer.EndDoc(); }), 482) << "it takes no jobs";
    EXPECT_EQ(m_server.Documents().size(), 1);
}

TEST_F(SpoolPrinterTest, ASpoolerThatIsGoneIsNoticed) {
    SpoolPrinter printer(*m_application, S("kept"));
    printer.Print(S("text"));
    m_server.Stop();
    EXPECT_EQ(FailureOf([&] { printer.EndDoc(); }), 482);
}

TEST_F(SpoolPrinterTest, AQueueThatIsNotThereTakesNothing) {
    SpoolPrinter printer(*m_application, S("nobody's"));
    EXPECT_EQ(FailureOf([&] { printer.Print(S("text")); }), 482);
    EXPECT_EQ(FailureOf([&] { printer.EndDoc(); }), std::nullopt);
}

TEST_F(SpoolPrinterTest, PaperAndOrientationDecideTheSize) {
    SpoolPrinter printer(*m_application, S("kept"));
    printer.SetPaperSize(9);
    EXPECT_EQ(printer.Width(), 11906);
    EXPECT_EQ(printer.Height(), 16838);
    printer.SetOrientation(2);
    EXPECT_EQ(printer.Width(), 16838);
    EXPECT_EQ(printer.Height(), 11906);
    printer.SetPaperSize(1);
    EXPECT_EQ(printer.Width(), 15840);
    EXPECT_EQ(printer.Height(), 12240);
    EXPECT_EQ(FailureOf([&] { printer.SetPaperSize(999); }), 380);
    EXPECT_EQ(printer.PaperSize(), 1);
    EXPECT_EQ(FailureOf([&] { printer.SetOrientation(0); }), 380);
    EXPECT_EQ(printer.Orientation(), 2);
    EXPECT_EQ(FailureOf([&] { printer.SetWidth(100); }), 380);
}

TEST_F(SpoolPrinterTest, APaperThatOnlyTheTableKnowsHasTheTablesSize) {
    Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n300,1,5000,7000\r\n");
    m_application->LoadPaperTable();
    SpoolPrinter printer(*m_application, S("kept"));
    printer.SetPaperSize(300);
    EXPECT_EQ(printer.Width(), 5000);
    EXPECT_EQ(printer.Height(), 7000);
}

TEST_F(SpoolPrinterTest, ThereIsNoMarginAndTheDriverHasAName) {
    SpoolPrinter printer(*m_application, S("kept"));
    EXPECT_EQ(printer.GetDeviceCaps(112), 0);
    EXPECT_EQ(printer.GetDeviceCaps(113), 0);
    EXPECT_NE(printer.DriverName(), QString());
    EXPECT_EQ(printer.TwipsPerPixelX(), 1440.0 / printer.Spool().resolution());
}

TEST_F(SpoolPrinterTest, ThePrinterIsTheDefaultOneUntilAPersonChooses) {
    SpoolPrinters printers(*m_application);
    EXPECT_EQ(printers.Count(), 2);
    Printer& printer = printers.Printer();
    EXPECT_EQ(printers.Spooled().Queue(), S("kept"));
    printers.Choose(S("other"));
    EXPECT_EQ(printers.Spooled().Queue(), S("kept")) << "until the choice is followed";
    printers.FollowDefault();
    EXPECT_EQ(printers.Spooled().Queue(), S("other"));
    EXPECT_EQ(&printers.Printer(), &printer);
    printers.Choose(S("gone"));
    printers.FollowDefault();
    EXPECT_EQ(printers.Spooled().Queue(), S("kept"));
}

TEST(SpoolPrinters, WithoutASpoolerThereIsNoPrinter) {
    RecordingUserInterface ui;
    QTemporaryDir folder;
    Application application(S("Tolvane Quillon Sheetwright"), folder.path(), Settings(), ui);
    SpoolPrinters printers(application);
    EXPECT_EQ(printers.Count(), 0);
    EXPECT_EQ(FailureOf([&] { (void)printers.Printer(); }), 482);
    printers.FollowDefault();
    application.printing.printers = &printers;
    EXPECT_EQ(InstalledPrinter(application.printing), nullptr);
}

}  // namespace sheetwright
