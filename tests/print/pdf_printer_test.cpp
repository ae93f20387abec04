#include "print/pdf_printer.h"

#include "print/print_state.h"
#include "support/pdf_tools.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kPapers[] =
    "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n"
    "9,1,11906,16838\r\n9,2,16838,11906\r\n8,1,16838,23811\r\n11,2,11906,8391\r\n";

// Files may not grow beyond a size for as long as this lives, as if the disk were full.
class FileLimit {
  public:
    explicit FileLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;
    ~FileLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

  private:
    rlimit m_before{};
    void (*m_handler)(int);
};

Picture PictureOf(const QImage& image) {
    return {image, nullptr, image.width() * 15.0, image.height() * 15.0};
}

}  // namespace

class PdfPrinterTest : public ApplicationTest {
  protected:
    void SetUp() override {
        Write(QStringLiteral("papersizes.csv"), kPapers);
        m_application->LoadPaperTable();
    }

    [[nodiscard]] QString Target() const { return Path(QStringLiteral("out.pdf")); }

    [[nodiscard]] std::unique_ptr<PdfPrinter> Open() {
        return std::make_unique<PdfPrinter>(*m_application, Target(), QStringLiteral("Übersicht"));
    }

    static void PrintAt(Device& device, double x, double y, const QString& text) {
        device.CurrentX = x;
        device.CurrentY = y;
        device.Print(text);
    }

    // Whatever stands in the test's folder beside the paper table.
    [[nodiscard]] QStringList Files() const {
        QStringList names = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        names.removeAll(QStringLiteral("papersizes.csv"));
        return names;
    }
};

TEST_F(PdfPrinterTest, EachDocumentBecomesAPageWithItsOwnPaperAndOrientation) {
    const auto printer = Open();
    PrintAt(*printer, 1440, 1440, QStringLiteral("first"));
    printer->EndDoc();
    printer->SetOrientation(2);
    printer->SetPaperSize(9);
    PrintAt(*printer, 1440, 1440, QStringLiteral("second"));
    printer->EndDoc();
    printer->SetOrientation(1);
    printer->SetPaperSize(8);
    PrintAt(*printer, 1440, 1440, QStringLiteral("third"));
    EXPECT_EQ(printer->Finish(), 3);
    EXPECT_THAT(PdfPageSizes(Target()), ElementsAre("595x842", "842x595", "842x1191"));
    EXPECT_EQ(PdfText(Target(), 1), "first");
    EXPECT_EQ(PdfText(Target(), 2), "second");
    EXPECT_EQ(PdfText(Target(), 3), "third");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("out.pdf")));
}

TEST_F(PdfPrinterTest, OrientationAndPaperHoldFromTheNextDocumentOn) {
    const auto printer = Open();
    PrintAt(*printer, 0, 0, QStringLiteral("upright"));
    printer->SetOrientation(2);
    PrintAt(*printer, 0, 500, QStringLiteral("still upright"));
    EXPECT_EQ(printer->Finish(), 1);
    EXPECT_THAT(PdfPageSizes(Target()), ElementsAre("595x842"));
}

TEST_F(PdfPrinterTest, WidthAndHeightAreThoseOfPaperAndOrientation) {
    const auto printer = Open();
    EXPECT_EQ(printer->Width(), 11906);
    EXPECT_EQ(printer->Height(), 16838);
    printer->SetOrientation(2);
    EXPECT_EQ(printer->Width(), 16838);
    EXPECT_EQ(printer->Height(), 11906);
    printer->SetPaperSize(8);
    EXPECT_EQ(printer->Width(), 23811) << "turned, since the table has it upright only";
    EXPECT_EQ(printer->Height(), 16838);
    EXPECT_EQ(FailureOf([&] { printer->SetWidth(100); }), 380);
    EXPECT_EQ(FailureOf([&] { printer->SetHeight(100); }), 380);
}

TEST_F(PdfPrinterTest, APaperThatTheTableLacksIsRefusedAndTheOldOneStays) {
    const auto printer = Open();
    printer->SetPaperSize(8);
    EXPECT_EQ(FailureOf([&] { printer->SetPaperSize(77); }), 380);
    EXPECT_EQ(printer->PaperSize(), 8);
    EXPECT_EQ(printer->Width(), 16838);
    for (const std::int16_t orientation : std::array<std::int16_t, 3>{0, 3, -1})
        EXPECT_EQ(FailureOf([&] { printer->SetOrientation(orientation); }), 380);
    EXPECT_EQ(printer->Orientation(), 1);
}

TEST_F(PdfPrinterTest, WithoutAPaperTablePagesAreA4) {
    Restart(QStringLiteral("Tolvane Quillon Sheetwright"));
    const auto printer = Open();
    EXPECT_EQ(FailureOf([&] { printer->SetPaperSize(8); }), 380);
    printer->SetOrientation(2);
    PrintAt(*printer, 0, 0, QStringLiteral("text"));
    EXPECT_EQ(printer->Finish(), 1);
    EXPECT_THAT(PdfPageSizes(Target()), ElementsAre("842x595"));
}

TEST_F(PdfPrinterTest, FontsAreEmbeddedAndTextsCanBeSearched) {
    const auto printer = Open();
    printer->SetFontName(QStringLiteral("Arial"));
    PrintAt(*printer, 1440, 1440, QStringLiteral("Prüfling Nº 7, 4,70 kΩ"));
    printer->SetFontName(QStringLiteral("Courier New"));
    printer->SetFontBold(true);
    PrintAt(*printer, 1440, 2880, QStringLiteral("monospaced"));
    printer->Finish();
    EXPECT_THAT(PdfText(Target(), 1), HasSubstr("Prüfling Nº 7, 4,70 kΩ"));
    EXPECT_THAT(PdfText(Target(), 1), HasSubstr("monospaced"));
    const auto fonts = PdfFonts(Target());
    EXPECT_GE(fonts.size(), 2U);
    for (const QStringList& font : fonts) {
        ASSERT_GE(font.size(), 6) << font.join(u' ').toStdString();
        EXPECT_EQ(font[3], QStringLiteral("yes")) << "embedded";
        EXPECT_EQ(font[5], QStringLiteral("yes")) << "searchable";
    }
}

TEST_F(PdfPrinterTest, TitleAndCreatorAreSet) {
    const auto printer = Open();
    PrintAt(*printer, 0, 0, QStringLiteral("text"));
    printer->Finish();
    EXPECT_EQ(PdfInfo(Target(), QStringLiteral("Title")), "Übersicht");
    EXPECT_EQ(PdfInfo(Target(), QStringLiteral("Creator")), "Sheetwright");
}

// Drawn on paper with the resolution of 20 dots per inch at which a pixel is 72 twips.
TEST_F(PdfPrinterTest, TwipsFallWhereTheyShould) {
    const auto printer = Open();
    printer->Line(1440, 2880, 4320, 5760, 0x0000FF, u"BF");
    printer->Finish();
    OutputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("20"), QStringLiteral("-png"),
                                          Target(), Path(QStringLiteral("page"))});
    const QImage page(Path(QStringLiteral("page-1.png")));
    ASSERT_FALSE(page.isNull());
    EXPECT_EQ(page.pixelColor(21, 41), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(58, 78), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(17, 37), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(62, 82), QColor(Qt::white));
}

TEST_F(PdfPrinterTest, APictureThatStandsOnEveryPageIsKeptOnce) {
    QImage image(64, 64, QImage::Format_RGB32);
    std::uint32_t number = 1;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, (number = number * 1664525U + 1013904223U) >> 8);
    const Picture logo = PictureOf(image);
    const auto printer = Open();
    for (int page = 0; page < 5; ++page) {
        printer->PaintPicture(logo, 100, 100, 960, 960, 0, 0, logo.width, logo.height);
        printer->EndDoc();
    }
    EXPECT_EQ(printer->Finish(), 5);
    EXPECT_EQ(PdfImageCount(Target()), 1);
}

TEST_F(PdfPrinterTest, EndDocWithoutADocumentDoesNothing) {
    const auto printer = Open();
    printer->EndDoc();
    printer->EndDoc();
    printer->Print(QString());
    printer->EndDoc();
    printer->EndDoc();
    EXPECT_EQ(printer->PageCount(), 1) << "an empty text opens a document";
}

TEST_F(PdfPrinterTest, WithoutAPageThereIsNoFile) {
    Write(QStringLiteral("out.pdf"), "old");
    EXPECT_EQ(Open()->Finish(), 0);
    EXPECT_EQ(Read(QStringLiteral("out.pdf")), "old");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("out.pdf")));
}

TEST_F(PdfPrinterTest, WithoutFinishTheOldFileStays) {
    Write(QStringLiteral("out.pdf"), "old");
    {
        const auto printer = Open();
        PrintAt(*printer, 0, 0, QStringLiteral("text"));
        EXPECT_EQ(printer->Complete(), 1);
    }
    EXPECT_EQ(Read(QStringLiteral("out.pdf")), "old");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("out.pdf")));
}

TEST_F(PdfPrinterTest, NothingIsDrawnOnACompleteFile) {
    const auto printer = Open();
    PrintAt(*printer, 0, 0, QStringLiteral("text"));
    printer->Complete();
    EXPECT_EQ(FailureOf([&] { PrintAt(*printer, 0, 0, QStringLiteral("more")); }), 482);
    EXPECT_EQ(printer->Finish(), 1);
    EXPECT_EQ(PdfText(Target(), 1), "text");
}

TEST_F(PdfPrinterTest, AFullDiskIsNoticed) {
    Write(QStringLiteral("out.pdf"), "old");
    for (const rlim_t bytes : {0, 100, 2'000}) {
        const auto printer = Open();
        const FileLimit limit(bytes);
        for (int page = 0; page < 20; ++page) {
            PrintAt(*printer, 0, 0, QStringLiteral("text"));
            printer->EndDoc();
        }
        EXPECT_EQ(FailureOf([&] { printer->Finish(); }), 61) << bytes;
        EXPECT_EQ(FailureOf([&] { PrintAt(*printer, 0, 0, QStringLiteral("text")); }), 482) << bytes;
    }
    EXPECT_EQ(Read(QStringLiteral("out.pdf")), "old");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("out.pdf")));
}

TEST_F(PdfPrinterTest, AFileThatLacksBytesNeverComesToItsPlace) {
    Write(QStringLiteral("out.pdf"), "old");
    {
        const auto printer = Open();
        {
            const FileLimit limit(100);
            PrintAt(*printer, 0, 0, QStringLiteral("text"));
            EXPECT_EQ(FailureOf([&] { printer->Complete(); }), 61);
        }
        EXPECT_EQ(FailureOf([&] { printer->Finish(); }), 57) << "although there is room again";
    }
    EXPECT_EQ(Read(QStringLiteral("out.pdf")), "old");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("out.pdf")));
}

TEST_F(PdfPrinterTest, APlaceThatCanNotBeWrittenIsToldAtOnce) {
    const auto opened = [&](const QString& path) {
        return FailureOf([&] { PdfPrinter(*m_application, path, QString()); });
    };
    QDir(m_folder.path()).mkdir(QStringLiteral("folder.pdf"));
    EXPECT_EQ(opened(m_folder.filePath(QStringLiteral("folder.pdf"))), 75);
    EXPECT_EQ(opened(m_folder.filePath(QStringLiteral("nowhere/out.pdf"))), 76);
    EXPECT_EQ(opened(QStringLiteral("/dev/full")), 75);
    QFile::setPermissions(Write(QStringLiteral("kept.pdf"), "old"), QFile::ReadOwner);
    EXPECT_EQ(opened(Path(QStringLiteral("kept.pdf"))), 75);
    EXPECT_EQ(Files(), QStringList(QStringLiteral("kept.pdf")));
}

TEST_F(PdfPrinterTest, ItIsAPrinterOf288DotsWithoutMargin) {
    const auto printer = Open();
    EXPECT_EQ(printer->TwipsPerPixelX(), 5);
    EXPECT_EQ(printer->TwipsPerPixelY(), 5);
    EXPECT_EQ(printer->GetDeviceCaps(112), 0);
    EXPECT_EQ(printer->GetDeviceCaps(113), 0);
    EXPECT_EQ(printer->DriverName(), QStringLiteral("Sheetwright PDF"));
}

TEST_F(PdfPrinterTest, OnlyPrinterStandsInForTheInstalledOnes) {
    const auto printer = Open();
    PrintState& state = m_application->printing;
    EXPECT_FALSE(IsPrinter(state, *printer));
    {
        OnlyPrinter only(*m_application, *printer);
        EXPECT_EQ(InstalledPrinter(state), printer.get());
        EXPECT_TRUE(IsPrinter(state, *printer));
        only.FollowDefault();
        EXPECT_EQ(InstalledPrinter(state), printer.get());
    }
    EXPECT_EQ(InstalledPrinter(state), nullptr);
}

TEST_F(PdfPrinterTest, AThousandPagesAreAThousandPages) {
    const auto printer = Open();
    for (int page = 1; page <= 1000; ++page) {
        PrintAt(*printer, 1440, 1440, QStringLiteral("page %1").arg(page));
        printer->EndDoc();
    }
    EXPECT_EQ(printer->Finish(), 1000);
    EXPECT_EQ(PdfInfo(Target(), QStringLiteral("Pages")), "1000");
    EXPECT_EQ(PdfText(Target(), 1000), "page 1000");
}

}  // namespace sheetwright
