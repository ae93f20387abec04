// Printing to a PDF file from the command line: what is in the file, and that there is none when anything
// fails.

#include "apps/cli_test.h"
#include "support/form_text.h"
#include "support/pdf_tools.h"
#include "support/short_text.h"

#include <QFileInfo>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>

namespace sheetwright {

namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Five data pages, upright and lying by turns.
QByteArray MixedForm() {
    FormText form;
    form.Page(S("Cover"), {S("PaperSize=9")}).Field(S("A")).Formula(S("B"), S("SETME({FIELDS\\Cover,A})"));
    form.Page(S("Wide"), {S("Orientation=2"), S("PaperSize=8")}).Field(S("C"));
    form.Data(1, {S("A=one")}).Data(2, {S("C=two")}).Data(1, {S("A=three")}).Data(2, {S("C=four")});
    form.Data(1, {S("A=five")});
    return form.Bytes();
}

QByteArray OneField(const QStringList& changes, const QString& value) {
    return FormText().Page(S("Cover")).Field(S("A"), changes).Data(1, {S("A=") + value}).Bytes();
}

QByteArray ManyPages(int pages) {
    FormText form;
    form.Page(S("Cover")).Field(S("A"));
    for (int page = 1; page <= pages; ++page)
        form.Data(1, {S("A=value %1").arg(page)});
    return form.Bytes();
}

}  // namespace

class CliPdf : public CliTest {
  protected:
    void SetUp() override { Write(S("a.aff"), MixedForm()); }

    [[nodiscard]] CliResult Fill(const QStringList& rest) const {
        return Run(QStringList{S("fill"), S("a.aff")} + rest);
    }

    // Everything in the test's folder beside what the calls work with.
    [[nodiscard]] QStringList Files() const {
        return QDir(Path(S("."))).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    [[nodiscard]] std::vector<std::string> TextsOf(const char* pdf, int pages) const {
        std::vector<std::string> texts;
        for (int page = 1; page <= pages; ++page)
            texts.push_back(PdfText(Path(S(pdf)), page));
        return texts;
    }
};

TEST_F(CliPdf, EveryDataPageIsPrintedOnItsOwnPaper) {
    const CliResult result = Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.out, "printed 5 pages to out.pdf\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(PdfPageSizes(Path(S("out.pdf"))),
                ElementsAre("595x842", "1191x842", "595x842", "1191x842", "595x842"));
    EXPECT_THAT(TextsOf("out.pdf", 5), ElementsAre("one", "two", "three", "four", "five"));
    EXPECT_EQ(PdfInfo(Path(S("out.pdf")), S("Title")), "a");
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("out.pdf")}));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliPdf, WhatIsSetAndAddedIsPrintedAndSaved) {
    Write(S("a.aff"), OneField({}, S("old")));
    const CliResult result = Fill({S("--set"), S("1:A=first"), S("--add-page"), S("Cover"), S("--set"),
                                   S("2:A=second"), S("--save"), S("b.aff"), S("--pdf"), S("b.pdf")});
    EXPECT_EQ(result.out, "saved b.aff\nprinted 2 pages to b.pdf\n");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(TextsOf("b.pdf", 2), ElementsAre("first", "second"));
    EXPECT_THAT(Run({S("values"), S("b.aff")}).out, HasSubstr("2\tCover\tA\tsecond\n"));
}

TEST_F(CliPdf, FormulasHaveRunUnlessTheyAreNotWanted) {
    FormText form;
    form.Page(S("Cover")).Formula(S("B"), S("SETME(ADD(1,2))")).Data(1, {S("B=7")});
    Write(S("a.aff"), form.Bytes());
    EXPECT_EQ(Fill({S("--pdf"), S("out.pdf")}).out, "printed 1 page to out.pdf\n");
    EXPECT_EQ(PdfText(Path(S("out.pdf")), 1), "3");
    EXPECT_EQ(Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf")}).status, 0);
    EXPECT_EQ(PdfText(Path(S("out.pdf")), 1), "7");
}

TEST_F(CliPdf, PagesChoosesSomeOfThem) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> cases{
        {"2-4", {"two", "three", "four"}},
        {"3", {"three"}},
        {"4-", {"four", "five"}},
        {"-2", {"one", "two"}},
        {"1-5", {"one", "two", "three", "four", "five"}},
    };
    for (const auto& [choice, texts] : cases) {
        const CliResult result =
            Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf"), S("--pages"), S(choice)});
        EXPECT_EQ(result.status, 0) << choice << result.err;
        EXPECT_EQ(TextsOf("out.pdf", static_cast<int>(texts.size())), texts) << choice;
    }
}

TEST_F(CliPdf, WrongArgumentsAreToldAndNothingIsWritten) {
    Write(S("b.pdf"), MixedForm());
    const std::vector<std::pair<QStringList, const char*>> cases{
        {{S("a.aff"), S("--pdf"), S("out.txt")}, "the name must end in .pdf: \"out.txt\""},
        {{S("a.aff"), S("--pdf"), S("")}, "the name must end in .pdf: \"\""},
        {{S("b.pdf"), S("--pdf"), S("b.pdf")}, "\"b.pdf\" is the form itself"},
        {{S("b.pdf"), S("--pdf"), S("./b.pdf")}, "\"./b.pdf\" is the form itself"},
        {{S("a.aff"), S("--pages"), S("1")}, "--pages needs --pdf"},
        {{S("a.aff"), S("--pdf")}, "option --pdf needs a value"},
    };
    for (const auto& [arguments, error] : cases) {
        const CliResult result = Run(QStringList{S("fill")} + arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, StartsWith(std::string("error: ") + error + "\nusage: "));
    }
    EXPECT_EQ(Read(S("b.pdf")), MixedForm());
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("b.pdf")}));
}

TEST_F(CliPdf, PagesThatCanNotBeAreToldWithTheRange) {
    for (const char* choice :
         {"", "-", "x", "1-x", "1-2-3", "1,2", "+1", " 1", "99999999999999999999", "32768"}) {
        const CliResult result =
            Fill({S("--pdf"), S("out.pdf"), S("--save"), S("b.aff"), S("--pages"), S(choice)});
        EXPECT_EQ(result.status, 2) << choice;
        EXPECT_THAT(result.err, StartsWith(std::string("error: --pages wants A, A-B, A- or -B, not \"") +
                                           choice + "\"\n"));
    }
    for (const char* choice : {"0", "0-2", "6", "2-6", "4-3", "6-", "-6", "-0"}) {
        const CliResult result =
            Fill({S("--pdf"), S("out.pdf"), S("--save"), S("b.aff"), S("--pages"), S(choice)});
        EXPECT_EQ(result.status, 2) << choice;
        EXPECT_THAT(result.err,
                    StartsWith(std::string("error: there are no pages ") + choice + ": the form has 5\n"));
    }
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliPdf, AFormThatStandsWhereAFileIsWrittenFirstIsNotTakenForALeftOver) {
    const std::vector<std::array<const char*, 3>> cases{
        {"out.pdf.new", "--pdf", "out.pdf"}, {"b.aff 2", "--save", "b.aff"}, {"a.aff", "--pdf", "link.pdf"}};
    QFile::link(Path(S("a.aff")), Path(S("link.pdf")));
    for (const auto& [form, option, target] : cases) {
        Write(S(form), MixedForm());
        const CliResult result = Run({S("fill"), S(form), S(option), S(target)});
        EXPECT_EQ(result.status, 2) << form;
        EXPECT_THAT(result.err, HasSubstr(" is the form itself\nusage: ")) << form;
        EXPECT_EQ(Read(S(form)), MixedForm());
    }
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("b.aff 2"), S("link.pdf"), S("out.pdf.new")}));
}

TEST_F(CliPdf, TheSavedFormIsNotOverwrittenByItsPrint) {
    Write(S("both.pdf"), "old");
    QFile::link(Path(S("both.pdf")), Path(S("b.aff")));
    const CliResult result = Fill({S("--save"), S("b.aff"), S("--pdf"), S("both.pdf")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("error: \"both.pdf\" is the form itself\n"));
    EXPECT_EQ(Read(S("both.pdf")), "old");
}

TEST_F(CliPdf, AFormThatIsNotThereIsToldAsSuch) {
    const CliResult result =
        Run({S("fill"), S("missing.aff"), S("--save"), S("b.aff"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith("error: Unable to open file: "));
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliPdf, ALinkStaysAndTheFileBehindItIsWritten) {
    QFile::link(Path(S("behind.pdf")), Path(S("out.pdf")));
    EXPECT_EQ(Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf")}).status, 0);
    EXPECT_TRUE(QFileInfo(Path(S("out.pdf"))).isSymLink());
    EXPECT_EQ(PdfInfo(Path(S("behind.pdf")), S("Pages")), "5");
}

TEST_F(CliPdf, APlaceThatCanNotBeWrittenFailsAndSavesNothing) {
    QDir(Path(S("."))).mkdir(S("folder.pdf"));
    QFile::link(S("/dev/full"), Path(S("full.pdf")));
    QFile::link(Path(S("circle.pdf")), Path(S("circle.pdf")));
    ASSERT_EQ(::mkfifo(Path(S("pipe.pdf")).toLocal8Bit().constData(), 0600), 0);
    const QByteArray longName(300, 'x');
    const std::vector<std::pair<QByteArray, const char*>> cases{
        {"folder.pdf", "75: Path/File access error"}, {"nowhere/out.pdf", "76: Path not found"},
        {"full.pdf", "75: Path/File access error"},   {"circle.pdf", "75: Path/File access error"},
        {"pipe.pdf", "75: Path/File access error"},   {longName + ".pdf", "52: Bad file name or number"},
        {"a.aff/out.pdf", "76: Path not found"},
    };
    for (const auto& [target, error] : cases) {
        const CliResult result =
            Fill({S("--no-recalculate"), S("--save"), S("b.aff"), S("--pdf"), S(target.constData())});
        EXPECT_EQ(result.status, 1) << target.constData();
        EXPECT_EQ(result.out, "") << target.constData();
        EXPECT_EQ(result.err, std::string("error: ") + error + " (a.aff)\n") << target.constData();
    }
    EXPECT_FALSE(QFileInfo::exists(Path(S("b.aff"))));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliPdf, AFormThatCanNotBeSavedIsNotPrintedEither) {
    const CliResult result =
        Fill({S("--no-recalculate"), S("--save"), S("nowhere/b.aff"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("error: "));
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliPdf, AFullDiskLeavesTheOldFiles) {
    Write(S("a.aff"), ManyPages(300));
    Write(S("out.pdf"), "old");
    const QByteArray form = Read(S("a.aff"));
    for (const rlim_t bytes : {9'000, 20'000, 40'000}) {
        QProcess process;
        Prepare(process, {S("fill"), S("a.aff"), S("--save"), S("a.aff"), S("--pdf"), S("out.pdf")},
                S("C.UTF-8"));
        process.setChildProcessModifier([bytes] {
            const rlimit limit{bytes, RLIM_INFINITY};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        });
        process.start();
        const CliResult result = ResultOf(process);
        EXPECT_EQ(result.status, 1) << bytes;
        EXPECT_EQ(result.out, "") << bytes;
        EXPECT_THAT(result.err, HasSubstr("61")) << bytes;
        EXPECT_EQ(Read(S("a.aff")), form) << bytes;
        EXPECT_EQ(Read(S("out.pdf")), "old") << bytes;
        EXPECT_EQ(Files(), QStringList({S("a.aff"), S("out.pdf")})) << bytes;
    }
}

TEST_F(CliPdf, AnOldFileThatIsReadOnlyStays) {
    Write(S("out.pdf"), "old");
    QFile::setPermissions(Path(S("out.pdf")), QFile::ReadOwner);
    const CliResult result = Fill({S("--no-recalculate"), S("--save"), S("b.aff"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 75: Path/File access error (a.aff)\n");
    EXPECT_EQ(Read(S("out.pdf")), "old");
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("out.pdf")}));
}

TEST_F(CliPdf, AFontOfNoSizeIsAFailure) {
    Write(S("a.aff"), OneField({S("FontSize=0")}, S("text")));
    const CliResult result = Fill({S("--save"), S("b.aff"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: 380: Invalid property value (a.aff)\n");
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliPdf, APlacePast16BitsIsAFailure) {
    for (const char* change : {"AbsLeft=40000", "AbsTop=32767", "Width=1e9", "Height=99999"}) {
        Write(S("a.aff"), OneField({S(change)}, S("text")));
        const CliResult result = Fill({S("--pdf"), S("out.pdf")});
        EXPECT_EQ(result.status, 1) << change;
        EXPECT_EQ(result.err, "error: 6: Overflow (a.aff)\n") << change;
        EXPECT_EQ(Files(), QStringList(S("a.aff"))) << change;
    }
}

TEST_F(CliPdf, AFontThatNobodyHasIsPrintedInArial) {
    for (const char* name : {"", "Nobody's Font", "../../etc/passwd", "Arial,Courier New", "@Arial"}) {
        Write(S("a.aff"), OneField({S("FontName=") + S(name)}, S("text")));
        EXPECT_EQ(Fill({S("--pdf"), S("out.pdf")}).status, 0) << name;
        const auto fonts = PdfFonts(Path(S("out.pdf")));
        ASSERT_EQ(fonts.size(), 1U) << name;
        EXPECT_THAT(fonts[0][0].toStdString(), HasSubstr("LiberationSans")) << name;
    }
}

TEST_F(CliPdf, AFontSizeThatCanNotBeIsAFailureAndASmallOneIsDrawn) {
    const std::vector<std::pair<const char*, const char*>> cases{{"-1", "380: Invalid property value"},
                                                                 {"1e6", "380: Invalid property value"},
                                                                 {"NaN", "380: Invalid property value"},
                                                                 {"0.001", "11: Division by zero"},
                                                                 {"2160", "6: Overflow"}};
    for (const auto& [size, error] : cases) {
        Write(S("a.aff"), OneField({S("FontSize=") + S(size), S("Height=9000")}, S("text")));
        const CliResult result = Fill({S("--pdf"), S("out.pdf")});
        EXPECT_EQ(result.status, 1) << size;
        EXPECT_EQ(result.err, std::string("error: ") + error + " (a.aff)\n");
    }
    Write(S("a.aff"), OneField({S("FontSize=0.5")}, S("text")));
    EXPECT_EQ(Fill({S("--pdf"), S("out.pdf")}).status, 0);
    EXPECT_EQ(PdfText(Path(S("out.pdf")), 1), "text");
}

// A field too narrow for any character prints nothing; its page is there if it has been told to the printer.
TEST_F(CliPdf, BoxesWithoutRoomAreNoHarm) {
    for (const char* extent : {"0", "-5", "-32768", "1", "NaN"}) {
        Write(S("a.aff"), OneField({S("Width=") + S(extent), S("Height=") + S(extent), S("BorderStyle=1")},
                                   S("text\x7Fmore text")));
        const CliResult result = Fill({S("--pdf"), S("out.pdf")});
        EXPECT_EQ(result.out, "printed 1 page to out.pdf\n") << extent;
        EXPECT_EQ(result.err, "") << extent;
    }
}

TEST_F(CliPdf, AValueOfMegabytesEndsAtItsBox) {
    for (const QString& piece : {S("word "), S("x"), S("\x7F"), S("漢字"), S("שלום "), S("😀")}) {
        const qsizetype bytes = piece == S("😀") ? 100'000 : 5'000'000;
        Write(S("a.aff"), OneField({}, piece.repeated(bytes / piece.toUtf8().size())));
        const CliResult result = Fill({S("--pdf"), S("out.pdf")});
        EXPECT_EQ(result.out, "printed 1 page to out.pdf\n") << piece.toStdString();
        EXPECT_LT(QFileInfo(Path(S("out.pdf"))).size(), 30'000) << piece.toStdString();
    }
}

// Shapes far beyond any paper, with every fill and line, cost no more than what can be seen of them.
TEST_F(CliPdf, ShapesAsLargeAsNumbersGoAreDrawnAsFarAsTheyCanBeSeen) {
    const QStringList place{S("AbsLeft=-1000000000"), S("AbsTop=-1000000000"), S("Width=2000000000"),
                            S("Height=2000000000"),   S("BorderColor=255"),    S("FillColor=65280")};
    FormText form;
    form.Page(S("Cover"));
    for (const char* fill : {"0", "1", "4", "7", "8", "99", "32768"})
        for (const char* type : {"1", "2", "3", "6", "7", "-1"})
            for (const char* width : {"1", "32767", "0", "-1"})
                for (const char* shape : {"0", "3"})
                    form.Record(
                        S("SHAPE"),
                        place + QStringList{S("Shape=") + S(shape), S("FillStyle=") + S(fill),
                                            S("BorderType=") + S(type), S("BorderWidth=") + S(width)});
    form.Record(S("LINE"), place + QStringList{S("BorderType=3"), S("BorderWidth=1"), S("Direction=1")});
    Write(S("a.aff"), form.Data(1, {}).Bytes());
    EXPECT_EQ(Fill({S("--pdf"), S("out.pdf")}).out, "printed 1 page to out.pdf\n");
    EXPECT_LT(QFileInfo(Path(S("out.pdf"))).size(), 1'000'000);
    EXPECT_EQ(Run({S("render"), S("a.aff"), S("--png"), S("out.png")}).status, 0);
}

TEST_F(CliPdf, TheLastPagesOfAsManyAsAFormCanHave) {
    constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    Write(S("a.aff"), ManyPages(kMost));
    EXPECT_EQ(Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf"), S("--pages"), S("32000-")}).out,
              "printed 768 pages to out.pdf\n");
    EXPECT_EQ(PdfInfo(Path(S("out.pdf")), S("Pages")), "768");
    EXPECT_EQ(PdfText(Path(S("out.pdf")), 768), "value 32767");
}

TEST_F(CliPdf, SeveralCallsMayPrintToTheSameFile) {
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < 8; ++number) {
        processes.push_back(std::make_unique<QProcess>());
        Prepare(*processes.back(), {S("fill"), S("a.aff"), S("--no-recalculate"), S("--pdf"), S("out.pdf")},
                S("C.UTF-8"));
        processes.back()->start();
    }
    int printed = 0;
    for (const auto& process : processes) {
        const CliResult result = ResultOf(*process);
        EXPECT_THAT(result.out + result.err,
                    AnyOf("printed 5 pages to out.pdf\n", "error: 70: Permission denied (a.aff)\n"));
        if (result.status == 0) ++printed;
    }
    EXPECT_GE(printed, 1);
    EXPECT_EQ(PdfInfo(Path(S("out.pdf")), S("Pages")), "5");
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("out.pdf")}));
}

// A design of a header alone is never told to the printer, and its values find no element.
// A label that is missing from a signed sheet must not be missing without a word.
TEST_F(CliPdf, PartsOfTheDesignThatCanNotBeDrawnAreToldAsAWarning) {
    const QByteArray form = FormText()
                                .Page(S("Cover"))
                                .Field(S("A"))
                                .Record(S("LABEL"), {S("Caption=no place and no font")})
                                .Data(1, {S("A=one")})
                                .Bytes();
    Write(S("a.aff"), form);
    const std::string warning =
        "warning: parts of the design could not be drawn (3); errors.csv tells why (a.aff)\n";
    const CliResult printed = Fill({S("--pdf"), S("a.pdf")});
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(printed.err, warning);
    EXPECT_EQ(PdfText(Path(S("a.pdf")), 1), "one");
    EXPECT_EQ(Run({S("render"), S("a.aff"), S("--png"), S("a.png")}).err, warning);
}

TEST_F(CliPdf, WhereNothingIsDrawnThereIsNothingToPrint) {
    FormText nothingDrawn;
    nothingDrawn.Page(S("Cover"), {S("-Orientation")}).Data(1, {S("A=1")});
    const QByteArray noPage = FormText().Page(S("Cover")).Field(S("A")).Bytes();
    for (const QByteArray& form : {nothingDrawn.Bytes(), noPage}) {
        Write(S("a.aff"), form);
        const CliResult result = Fill({S("--save"), S("b.aff"), S("--pdf"), S("out.pdf")});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "error: nothing to print\n");
        EXPECT_EQ(Files(), QStringList(S("a.aff")));
    }
}

TEST_F(CliPdf, ACallThatIsKilledLeavesTheOldFileAndTheNextClearsUp) {
    Write(S("a.aff"), ManyPages(20'000));
    Write(S("out.pdf"), "old");
    QProcess process;
    Prepare(process, {S("fill"), S("a.aff"), S("--no-recalculate"), S("--pdf"), S("out.pdf")}, S("C.UTF-8"));
    process.start();
    const auto isPrinting = [&] { return QFileInfo(Path(S("out.pdf.new"))).size() > 0; };
    while (!isPrinting() && process.state() != QProcess::NotRunning)
        process.waitForFinished(1);
    ASSERT_TRUE(isPrinting()) << process.readAllStandardError().toStdString();
    process.kill();
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(Read(S("out.pdf")), "old");
    Write(S("a.aff"), MixedForm());
    EXPECT_EQ(Fill({S("--no-recalculate"), S("--pdf"), S("out.pdf")}).status, 0);
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("out.pdf")}));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliPdf, NoDisplayIsNeededWhateverTheEnvironmentSays) {
    QProcess process;
    Prepare(process, {S("fill"), S("a.aff"), S("--no-recalculate"), S("--pdf"), S("out.pdf")}, S("C.UTF-8"));
    QProcessEnvironment environment = process.processEnvironment();
    environment.insert(S("QT_QPA_PLATFORM"), S("xcb"));
    environment.insert(S("QT_QPA_PLATFORMTHEME"), S("gtk3"));
    environment.insert(S("DISPLAY"), S(":99"));
    process.setProcessEnvironment(environment);
    process.start();
    EXPECT_EQ(ResultOf(process).out, "printed 5 pages to out.pdf\n");
}

}  // namespace sheetwright
