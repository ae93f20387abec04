#include "print/print_job.h"

#include "print/printing_test.h"

#include <utility>
#include <vector>

namespace sheetwright {
namespace {

class PrintJobTest : public PrintingTest {
  protected:
    void Design(std::int16_t number, const QStringList& lines) {
        m_document.memory.AppendFormDesign(number, QStringLiteral("BEGIN PAGE %1").arg(number));
        for (const QString& line : lines)
            m_document.memory.AppendFormDesign(number, line);
        m_document.memory.AppendFormDesign(number, u"END PAGE");
    }
    void Data(std::int16_t page, int design, const QStringList& lines) {
        AddDataLines(page, QStringList(QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(page).arg(design))
                               << lines << QStringLiteral("END PAGE"));
    }
    void AddDataLines(std::int16_t page, const QStringList& lines) {
        for (const QString& line : lines)
            m_document.memory.AppendFormData(page, line);
        m_document.Pages = m_document.memory.DataPageCount();
    }
    [[nodiscard]] QStringList DataLines(int page) const {
        QStringList lines;
        const PageLines& data = m_document.memory.DataPage(page);
        for (int position = 1; position <= data.Count(); ++position)
            lines << data.Line(position).toString();
        return lines;
    }

    [[nodiscard]] static QStringList Paper(int orientation = 1, int size = 9) {
        return {QStringLiteral("Orientation=%1").arg(orientation), QStringLiteral("PaperSize=%1").arg(size)};
    }
    [[nodiscard]] static QStringList Record(const QString& word, const QStringList& lines) {
        return QStringList(QStringLiteral("BEGIN ") + word) << lines << QStringLiteral("END ") + word;
    }
    [[nodiscard]] static QStringList Field(const QString& name, const QStringList& changes = {}) {
        const QStringList lines = PlaceAt(100, 200, 3000, 500) + Font()
                                  << QStringLiteral("FieldType=0") << QStringLiteral("BorderStyle=0")
                                  << QStringLiteral("Alignment=0") << QStringLiteral("Name=") + name;
        return Record(QStringLiteral("FIELD"), FormText::Changed(lines, changes));
    }
    [[nodiscard]] static QStringList CheckBox(const QString& name) {
        return Record(QStringLiteral("CHECK"), PlaceAt(100, 200, 3000, 500) + Font()
                                                   << QStringLiteral("Style=0") << QStringLiteral("Caption=c")
                                                   << QStringLiteral("Name=") + name);
    }
    [[nodiscard]] static QStringList Frame() {
        return Record(QStringLiteral("FRAME"), PlaceAt(0, 0, 115, 115) << QStringLiteral("BorderStyle=1"));
    }

    // The texts that stand on the picture surface after printing these pages.
    QStringList Preview(std::int16_t first, std::int16_t last) {
        m_surface.Cls();
        PrintPages(m_document, m_surface, first, last);
        return WordsOf(m_surface.Recorded());
    }
    [[nodiscard]] static QStringList WordsOf(const Recording& recording) {
        QStringList words;
        for (const DrawnItem& item : recording.Items())
            if (const auto* const text = std::get_if<DrawnText>(&item)) words << text->text;
        return words;
    }
    [[nodiscard]] std::vector<QStringList> PrintedWords() const {
        std::vector<QStringList> words;
        for (const PrintedDocument& document : m_printer.documents)
            words.push_back(WordsOf(document.recording));
        return words;
    }
};

TEST_F(PrintJobTest, FixedElementsComeFirstThenValuesInTheOrderOfTheData) {
    Design(1, Paper() + Field(QStringLiteral("a")) + Field(QStringLiteral("b")) + Frame());
    Data(1, 1, {QStringLiteral("b=second"), QStringLiteral("a=first")});
    EXPECT_EQ(Preview(1, 1), QStringList({QStringLiteral("second"), QStringLiteral("first")}));
    EXPECT_TRUE(std::holds_alternative<DrawnLine>(m_surface.Recorded().Items().front()));
    EXPECT_EQ(m_document.PrintFields.size(), 2U);
    EXPECT_EQ(LogRows(), QStringList({QStringLiteral("PrintControl|5: Invalid procedure call or argument|"),
                                      QStringLiteral("PrintControl|5: Invalid procedure call or argument|")}))
        << "without a printer and a table of papers the page has no size";
}

TEST_F(PrintJobTest, FieldWithoutAValueLineIsNotDrawnAtAll) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a"), {QStringLiteral("BorderStyle=1")}));
    Data(1, 1, {});
    (void)Preview(1, 1);
    EXPECT_TRUE(m_surface.Recorded().IsEmpty());
}

TEST_F(PrintJobTest, ValueWithoutAnElementIsSkipped) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1,
         {QStringLiteral("unknown=x"), QStringLiteral("no equals sign"), QString(),
          QStringLiteral("a=known")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("known")));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, OnlyTheFirstEqualsSignSplits) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("A=x=y")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x=y"))) << "names match in any case";
}

TEST_F(PrintJobTest, OnlyFourLettersOfARecordsWordCount) {
    InstallPrinter();
    const QStringList frame = PlaceAt(0, 0, 115, 115) << QStringLiteral("BorderStyle=1");
    Design(
        1,
        Paper() + Record(QStringLiteral("FRAMEWORK"), frame) +
            Field(QStringLiteral("a")).replaceInStrings(QStringLiteral("FIELD"), QStringLiteral("FIELDX")) +
            Record(QStringLiteral("frame"), frame) + Record(QStringLiteral("FRA"), frame));
    Data(1, 1, {QStringLiteral("a=x")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x")));
    EXPECT_EQ(m_surface.Recorded().Items().size(), 5U) << "one box and one text";
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, ValueReadFromAFileHasItsLineBreaks) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a"), {QStringLiteral("Height=2000")}));
    Data(1, 1, {QStringLiteral("a=one\u007Ftwo")});
    EXPECT_EQ(Preview(1, 1), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
}

TEST_F(PrintJobTest, ValueThatStandsTwiceIsDrawnTwice) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x"), QStringLiteral("a=y")});
    EXPECT_EQ(Preview(1, 1), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
}

TEST_F(PrintJobTest, CheckBoxesAreDrawnByTheirKey) {
    InstallPrinter();
    Design(1, Paper() + CheckBox(QStringLiteral("tick")));
    Data(1, 1, {QStringLiteral("tick=3")});
    EXPECT_EQ(Preview(1, 1), QStringList({QStringLiteral("?"), QStringLiteral("c")}));
    EXPECT_EQ(m_document.PrintChecks.size(), 1U);
}

TEST_F(PrintJobTest, EachPageIsADocumentWithItsOwnPaper) {
    InstallPrinter();
    Design(1, Paper(1, 9) + Field(QStringLiteral("a")));
    Design(2, Paper(2, 8) + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=one")});
    Data(2, 2, {QStringLiteral("a=two")});
    Data(3, 1, {QStringLiteral("a=three")});
    PrintPages(m_document, m_printer, 1, 3);
    EXPECT_EQ(PrintedWords(),
              (std::vector<QStringList>{
                  {QStringLiteral("one")}, {QStringLiteral("two")}, {QStringLiteral("three")}}));
    EXPECT_EQ(m_printer.documents[1].orientation, 2);
    EXPECT_EQ(m_printer.documents[1].paper, 8);
    EXPECT_EQ(m_printer.documents[2].orientation, 1);
    EXPECT_EQ(m_printer.calls,
              QStringList({QStringLiteral("EndDoc"), QStringLiteral("Orientation=1"),
                           QStringLiteral("PaperSize=9"), QStringLiteral("open"), QStringLiteral("EndDoc"),
                           QStringLiteral("Orientation=2"), QStringLiteral("PaperSize=8"),
                           QStringLiteral("open"), QStringLiteral("EndDoc"), QStringLiteral("Orientation=1"),
                           QStringLiteral("PaperSize=9"), QStringLiteral("open"), QStringLiteral("EndDoc")}));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, PrintsThePagesThatWereAskedFor) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    for (std::int16_t page = 1; page <= 5; ++page)
        Data(page, 1, {QStringLiteral("a=%1").arg(page)});
    EXPECT_EQ(Preview(2, 4), QStringList({QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")}));
}

TEST_F(PrintJobTest, FirstPageAboveLastPageDrawsNothingButEndsTheDocument) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    PrintPages(m_document, m_printer, 2, 1);
    EXPECT_TRUE(m_printer.documents.empty());
    EXPECT_EQ(m_printer.calls, QStringList(QStringLiteral("EndDoc")));
    EXPECT_EQ(m_ui.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Normal}));
}

TEST_F(PrintJobTest, PageWithoutHeaderIsDrawnWithTheLayoutBefore) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    AddDataLines(2, {QStringLiteral("a=y"), QStringLiteral("END PAGE")});
    PrintPages(m_document, m_printer, 1, 2);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("x"), QStringLiteral("y")}}));
    EXPECT_EQ(Preview(2, 2), QStringList(QStringLiteral("y"))) << "also in the next job";
}

TEST_F(PrintJobTest, SecondHeaderInAPageEndsTheFirstDocument) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Design(2, Paper() + Field(QStringLiteral("b")));
    AddDataLines(1, {QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("a=x"),
                     QStringLiteral("BEGIN PAGE 1 DESIGN=2"), QStringLiteral("a=gone"), QStringLiteral("b=y"),
                     QStringLiteral("END PAGE")});
    PrintPages(m_document, m_printer, 1, 1);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("x")}, {QStringLiteral("y")}}));
}

TEST_F(PrintJobTest, DesignWithAPageBlockOnlyMakesNoPageBreakAndNoOutput) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Design(2, Paper(2, 8));
    Data(1, 1, {QStringLiteral("a=x")});
    Data(2, 2, {QStringLiteral("a=y")});
    PrintPages(m_document, m_printer, 1, 2);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("x")}}));
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
    EXPECT_TRUE(m_document.PrintElements.IsEmpty());
}

TEST_F(PrintJobTest, ElementThatIsNotPrintableTakesItsValueAlong) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a"), {QStringLiteral("Printable=False")}) +
                  Field(QStringLiteral("b"), {QStringLiteral("Printable=True")}));
    Data(1, 1, {QStringLiteral("a=hidden"), QStringLiteral("b=shown")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("shown")));
}

TEST_F(PrintJobTest, MissingPageAddsItsLinesToThePageOnScreen) {
    InstallPrinter();
    m_document.PageNum = 7;
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    m_document.DataPageNum = 1;
    EXPECT_EQ(Preview(3, 3), QStringList());
    EXPECT_EQ(DataLines(1), QStringList({QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("a=x"),
                                         QStringLiteral("END PAGE"), QStringLiteral("BEGIN PAGE 3 DESIGN=7"),
                                         QStringLiteral("END PAGE")}));
    EXPECT_EQ(m_document.memory.DataPageCount(), 1);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, MissingPageOnScreenIsMadeAndPrinted) {
    InstallPrinter();
    Design(1, Paper() + Frame());
    m_document.PageNum = 1;
    m_document.DataPageNum = 1;
    PrintPages(m_document, m_surface, 1, 1);
    EXPECT_EQ(m_surface.Recorded().Items().size(), 4U);
}

TEST_F(PrintJobTest, EqualKeyIsLoggedWithItsPlaceAndTheFirstStays) {
    InstallPrinter();
    Design(3, Paper() + Field(QStringLiteral("a")) +
                  Record(QStringLiteral("FRAME"), PlaceAt(0, 0, 115, 115) << QStringLiteral("BorderStyle=1")
                                                                          << QStringLiteral("Width=5015")));
    Data(1, 3, {});
    Data(2, 3, {});
    PrintPages(m_document, m_surface, 1, 2);
    const QString row = QStringLiteral(
        "PrintDesignPage|457: This key is already associated with an element "
        "of this collection|Page:3; Line:27");
    EXPECT_EQ(LogRows(), QStringList({row, row})) << "for each page that has the design";
    EXPECT_EQ(TextsOf(m_surface.Recorded()), BoxLines(0, 0, 100, 100) + BoxLines(0, 0, 100, 100));
}

TEST_F(PrintJobTest, DesignThatIsMissingIsLogged) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 9, {QStringLiteral("a=x")});
    EXPECT_EQ(Preview(1, 1), QStringList());
    EXPECT_EQ(LogRows(),
              QStringList(QStringLiteral("PrintDesignPage|9: Subscript out of range|Page:9; Line:1")));
}

TEST_F(PrintJobTest, FailureBeforeTheFirstValueIsLoggedAndTheJobGoesOn) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    AddDataLines(1, {QStringLiteral("BEGIN PAGE 1 DESIGN=40000"), QStringLiteral("BEGIN PAGE 1 DESIGN=1"),
                     QStringLiteral("a=x")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x")));
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintPages|6: Overflow|Page:1; Line:1")));
}

TEST_F(PrintJobTest, FailureAfterTheFirstValueTravels) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("unknown=x")});
    Data(2, 40000, {});
    EXPECT_EQ(FailureOf([&] { (void)Preview(1, 2); }), 6) << "a value that has no element counts";
    EXPECT_EQ(LogRows(), QStringList());
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(PrintJobTest, FailureInsideTheFirstValueTravels) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a"), {QStringLiteral("-Alignment")}));
    Data(1, 1, {QStringLiteral("a=x")});
    EXPECT_EQ(FailureOf([&] { (void)Preview(1, 1); }), 5);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, FailureOfTheLastEndIsLoggedWhileNoValueWasLookedUp) {
    InstallPrinter();
    m_printer.failureOfEndDoc = 57;
    PrintPages(m_document, m_surface, 2, 1);
    EXPECT_EQ(LogRows(), QStringList(QStringLiteral("PrintPages|57: Device I/O error|Page:0; Line:0")));
}

TEST_F(PrintJobTest, StationeryAdjustsAPrinter) {
    InstallPrinter();
    m_printer.marginLeft = 100;
    m_printer.marginTop = 50;
    Design(1, Paper() << QStringLiteral("PrePrinted=scan.bmp|300|11|22|33|44") << Frame());
    Data(1, 1, {});
    PrintPages(m_document, m_printer, 1, 1);
    EXPECT_FLOAT_EQ(m_application->printing.PrintXAdjust, 11 - 240);
    EXPECT_FLOAT_EQ(m_application->printing.PrintYAdjust, 22 - 120);
    EXPECT_EQ(LastPage(), BoxLines(-229, -98, -129, 2, 6 * 2.4));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, StationeryLeavesAPictureSurfaceAlone) {
    InstallPrinter();
    m_printer.marginLeft = 100;
    Design(1, Paper() << QStringLiteral("PrePrinted=scan.bmp|300|11|22|33|44") << Frame());
    Data(1, 1, {});
    PrintPages(m_document, m_surface, 1, 1);
    EXPECT_EQ(m_application->printing.PrintXAdjust, 0);
    EXPECT_EQ(TextsOf(m_surface.Recorded()), BoxLines(0, 0, 100, 100));
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, BehindStationeryAFailureOfTheDesignIsOneOfThePage) {
    InstallPrinter();
    Design(1, QStringList({QStringLiteral("PrePrinted=scan.bmp|300|11|22|33|44")}) + Paper() + Frame() +
                  Record(QStringLiteral("FRAME"), {QStringLiteral("Width=1"), QStringLiteral("Width=2")}) +
                  Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    EXPECT_EQ(Preview(1, 1), QStringList()) << "the rest of the design is lost";
    EXPECT_EQ(LogRows(),
              QStringList(QStringLiteral("PrintPages|457: This key is already associated with an element of "
                                         "this collection|Page:1; Line:1")));
}

TEST_F(PrintJobTest, KeyBehindTheEndOfAFieldStillReachesIt) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a"), {QStringLiteral("-Alignment")})
                  << QStringLiteral("Alignment=0"));
    Data(1, 1, {QStringLiteral("a=x")});
    Data(2, 1, {QStringLiteral("a=y")});
    EXPECT_EQ(Preview(1, 2), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
    EXPECT_EQ(LogRows(), QStringList()) << "the second page begins with new records";
}

TEST_F(PrintJobTest, FieldThatEndsTwiceIsLoggedOnEveryPage) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")) << QStringLiteral("END FIELD"));
    Data(1, 1, {});
    Data(2, 1, {});
    (void)Preview(1, 2);
    EXPECT_EQ(LogRows().size(), 4) << "its key and its name";
}

TEST_F(PrintJobTest, CommandDuringTheJobMayPrintToo) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")) + Field(QStringLiteral("b")));
    Data(1, 1, {QStringLiteral("a=x"), QStringLiteral("b=y")});
    PictureSurface other(FontsOf(*m_application), 12000, 17000);
    bool isBusy = false;
    m_ui.onPump = [&] {
        if (!std::exchange(isBusy, true)) PrintPages(m_document, other, 1, 1);
    };
    EXPECT_EQ(Preview(1, 1), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
    EXPECT_EQ(WordsOf(other.Recorded()), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
}

TEST_F(PrintJobTest, DesignThatChangedBetweenTwoJobsIsReadAnew) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x"), QStringLiteral("b=y")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x")));
    MemoryBlock other;
    std::swap(other, m_document.memory);
    Design(1, Paper() + Field(QStringLiteral("b")));
    Data(1, 1, {QStringLiteral("a=x"), QStringLiteral("b=y")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("y"))) << "another form with as many lines";
    m_document.memory = other;
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x")));
}

TEST_F(PrintJobTest, DesignThatACommandChangesDuringTheJobIsReadAnewForTheNextPage) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    for (std::int16_t page = 1; page <= 2; ++page)
        Data(page, 1, {QStringLiteral("a=x"), QStringLiteral("b=y")});
    const PageLines& design = m_document.memory.DesignPage(1);
    int name = 1;
    while (design.Line(name) != u"Name=a")
        ++name;
    m_ui.onPump = [&] { m_document.memory.ReplaceDesignLine(1, name, QStringLiteral("Name=b")); };
    EXPECT_EQ(Preview(1, 2), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
}

TEST_F(PrintJobTest, PrintingAsksForThePagesOfTheForm) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    for (std::int16_t page = 1; page <= 3; ++page)
        Data(page, 1, {QStringLiteral("a=%1").arg(page)});
    m_ui.onPrinterDialog = [](PrinterDialog& dialog) {
        dialog.fromPage = 2;
        dialog.toPage = 2;
    };
    mnuFilePrint_Click(m_document);
    ASSERT_EQ(m_ui.printerDialogs.size(), 1U);
    const PrinterDialog& shown = m_ui.printerDialogs.front();
    EXPECT_EQ(shown.minimumPage, 1);
    EXPECT_EQ(shown.maximumPage, 3);
    EXPECT_EQ(shown.fromPage, 1);
    EXPECT_EQ(shown.toPage, 3);
    EXPECT_EQ(shown.flags, 1048836);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("2")}}));
    EXPECT_EQ(m_printers.follows, 1);
}

TEST_F(PrintJobTest, CancelledPrintingPrintsNothingButHasSavedThePage) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    int saves = 0;
    m_document.SavePageHook = [&] { ++saves; };
    m_ui.onPrinterDialog = [](PrinterDialog&) { throw Failure(failure::kCancelled); };
    DoRealPrint(m_document);
    EXPECT_EQ(saves, 1);
    EXPECT_TRUE(m_printer.documents.empty());
    EXPECT_EQ(m_printers.follows, 1);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, PrintingRunsTheFormulasFirst) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=old")});
    m_document.memory.AppendFormulas(1, QStringLiteral("SETME(ADD(1,1))"), QStringLiteral("a"));
    DoRealPrint(m_document);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("2")}}));
}

TEST_F(PrintJobTest, FailingFormulaLeavesThePageOnScreenAsItWas) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    Data(2, 1, {QStringLiteral("a=x")});
    m_document.memory.AppendFormulas(1, QStringLiteral("SETME(IF(ME,1,2))"), QStringLiteral("a"));
    m_document.DataPageNum = 2;
    EXPECT_EQ(FailureOf([&] { DoRealPrint(m_document); }), 13);
    EXPECT_EQ(m_document.DataPageNum, 2);
    EXPECT_EQ(m_document.InterruptedPage, 0);
    EXPECT_TRUE(m_ui.printerDialogs.empty());
    EXPECT_TRUE(m_printer.documents.empty());
}

TEST_F(PrintJobTest, PrintingWithoutAPrinterIsAFailure) {
    Data(1, 1, {});
    EXPECT_EQ(FailureOf([&] { DoRealPrint(m_document); }), 482);
    EXPECT_TRUE(m_ui.printerDialogs.empty());
    InstallNoPrinter();
    EXPECT_EQ(FailureOf([&] { DoRealPrint(m_document); }), 482);
    EXPECT_EQ(m_printers.follows, 1);
    m_ui.onPrinterDialog = [](PrinterDialog&) { throw Failure(failure::kCancelled); };
    EXPECT_FALSE(FailureOf([&] { DoRealPrint(m_document); }));
}

TEST_F(PrintJobTest, PrinterThatIsInstalledMeanwhileCanBePrintedOn) {
    InstallNoPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    m_ui.onPrinterDialog = [&](PrinterDialog&) { m_printers.count = 1; };
    DoRealPrint(m_document);
    EXPECT_EQ(PrintedWords(), (std::vector<QStringList>{{QStringLiteral("x")}}));
}

TEST_F(PrintJobTest, PrinterThatIsGoneStopsSilently) {
    class LostPrinters : public RecordingPrinters {
      public:
        using RecordingPrinters::RecordingPrinters;
        void FollowDefault() override { throw Failure(failure::kPrinterError); }
    };
    LostPrinters printers(m_printer);
    m_application->printing.printers = &printers;
    Data(1, 1, {});
    EXPECT_FALSE(FailureOf([&] { DoRealPrint(m_document); }));
    EXPECT_TRUE(m_printer.calls.isEmpty());
}

TEST_F(PrintJobTest, PagesChosenTheWrongWayRoundPrintNothing) {
    InstallPrinter();
    Design(1, Paper() + Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    Data(2, 1, {QStringLiteral("a=y")});
    m_ui.onPrinterDialog = [](PrinterDialog& dialog) { std::swap(dialog.fromPage, dialog.toPage); };
    DoRealPrint(m_document);
    EXPECT_EQ(m_printer.calls, QStringList(QStringLiteral("EndDoc")));
}

TEST_F(PrintJobTest, PreviewWithoutAPrinterNeverTouchesOne) {
    InstallNoPrinter();
    Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
    m_application->LoadPaperTable();
    Design(1, Paper() << QStringLiteral("PrePrinted=scan.bmp|300|11|22|33|44") << Field(QStringLiteral("a")));
    Data(1, 1, {QStringLiteral("a=x")});
    EXPECT_EQ(Preview(1, 1), QStringList(QStringLiteral("x")));
    EXPECT_EQ(m_surface.Width(), 11906);
    EXPECT_EQ(m_printers.touches, 0);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(PrintJobTest, ReportModeTellsTheHostAndPrintsNothing) {
    InstallPrinter();
    m_application->ReportMode = true;
    mnuFilePrint_Click(m_document);
    m_document.Changed = true;
    mnuFilePrint_Click(m_document);
    EXPECT_EQ(m_ui.hostLines,
              QStringList({QStringLiteral("EVENT: PRINT"), QStringLiteral("EVENT: PRINT CHANGED")}));
    EXPECT_TRUE(m_ui.printerDialogs.empty());
    EXPECT_TRUE(m_ui.pointers.empty());
}

TEST_F(PrintJobTest, DesignCanBeDrawnByItself) {
    InstallPrinter();
    Design(1, Paper() + Frame() + Field(QStringLiteral("a")));
    PrintDesignPage(m_document, m_surface, 1);
    EXPECT_EQ(TextsOf(m_surface.Recorded()), BoxLines(0, 0, 100, 100));
    EXPECT_EQ(m_document.PrintElements.Count(), 1);
    PrintDesignPage(m_document, m_surface, 1);
    EXPECT_EQ(m_document.PrintElements.Count(), 1) << "what was kept before is dropped";
    EXPECT_EQ(LogRows(), QStringList());
}

}  // namespace
}  // namespace sheetwright
