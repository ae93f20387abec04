#include "apps/cli_test.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/short_text.h"

#include <QDirIterator>

#include <memory>

namespace sheetwright {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

QByteArray OneField() {
    return FormText().Page(S("Cover")).Field(S("A")).Data(1, {S("A=1")}).Bytes();
}

}  // namespace

using CliUsage = CliTest;

TEST_F(CliUsage, WithoutVerbIsWrong) {
    const CliResult result = Run({});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: a verb is needed\nusage: sheetwright-cli VERB ... (see --help)\n");
}

TEST_F(CliUsage, AnUnknownVerbIsWrong) {
    const CliResult result = Run({S("print"), S("a.aff")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("error: unknown verb print\n"));
}

TEST_F(CliUsage, HelpListsAllVerbs) {
    const CliResult result = Run({S("--help")});
    EXPECT_EQ(result.status, 0);
    for (const char* verb :
         {"  info FORM\n", "  values FORM", "  fill FORM", "  render FORM", "  eval FORM", "  check FORM"})
        EXPECT_THAT(result.out, HasSubstr(verb));
    EXPECT_EQ(result.err, "");
}

TEST_F(CliUsage, EachVerbHasHelp) {
    for (const char* verb : {"info", "values", "fill", "render", "eval", "check"}) {
        const CliResult result = Run({S(verb), S("--help")});
        EXPECT_EQ(result.status, 0) << verb;
        EXPECT_THAT(result.out, StartsWith(std::string("usage: sheetwright-cli ") + verb + " FORM"));
        EXPECT_EQ(result.err, "");
    }
}

TEST_F(CliUsage, VersionIsTold) {
    EXPECT_THAT(Run({S("--version")}).out, StartsWith("sheetwright-cli "));
}

TEST_F(CliUsage, WrongArgumentsAreToldWithTheVerbsUsage) {
    Write(S("a.aff"), OneField());
    const std::vector<std::pair<QStringList, const char*>> cases{
        {{S("info")}, "a form is needed"},
        {{S("info"), S("a.aff"), S("b.aff")}, "too many operands: b.aff"},
        {{S("info"), S("a.aff"), S("--page"), S("1")}, "unknown option --page"},
        {{S("info"), S("a.aff"), S("-x")}, "unknown option -x"},
        {{S("values"), S("a.aff"), S("--page")}, "option --page needs a value"},
        {{S("values"), S("a.aff"), S("--page"), S("one")}, "\"one\" is no page number"},
        {{S("eval"), S("a.aff")}, "a form and an expression are needed"},
        {{S("check")}, "a form is needed"},
        {{S("fill"), S("a.aff"), S("--no-recalculate=yes")}, "option --no-recalculate takes no value"},
        {{S("fill"), S("a.aff"), S("--save"), S("b.zip")},
         "a form's name ends in .aff or .aft, not \"b.zip\""},
        {{S("fill"), S("a.aff"), S("--set"), S("A=1")}, "--set wants PAGE:NAME=VALUE, not \"A=1\""},
        {{S("fill"), S("a.aff"), S("--set"), S("1:A")}, "--set wants PAGE:NAME=VALUE, not \"1:A\""},
        {{S("fill"), S("a.aff"), S("--set"), S("1:=x")}, "--set wants PAGE:NAME=VALUE, not \"1:=x\""},
        {{S("fill"), S("a.aff"), S("--set"), S("x:A=1")}, "\"x\" is no page number"},
        {{S("fill"), S("a.aff"), S("--add-page"), S("Cover:4")}, "there is no mode 4: it is 0 to 3"},
        {{S("fill"), S("a.aff"), S("--add-page"), S("Cover:2")}, "mode 2 needs a position"},
        {{S("fill"), S("a.aff"), S("--add-page"), S("")}, "--add-page wants DESIGN[:MODE[:POSITION]]"},
    };
    for (const auto& [arguments, text] : cases) {
        const CliResult result = Run(arguments);
        EXPECT_EQ(result.status, 2) << text;
        EXPECT_EQ(result.out, "") << text;
        EXPECT_THAT(result.err, StartsWith(std::string("error: ") + text + "\nusage: sheetwright-cli " +
                                           arguments.first().toStdString() + " FORM"));
    }
}

TEST_F(CliUsage, AFormThatIsNotThereCanNotBeOpened) {
    for (const char* verb : {"info", "values", "fill", "check"}) {
        const CliResult result = Run({S(verb), S("none.aff")});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(
            result.err,
            "error: Unable to open file: Please check the path is valid and the file is not in use by any "
            "other applications. (none.aff)\n");
    }
}

TEST_F(CliUsage, AFolderIsNoForm) {
    EXPECT_THAT(Run({S("info"), S("tmp")}).err, StartsWith("error: Unable to open file: "));
}

TEST_F(CliUsage, ADamagedArchiveIsTold) {
    Write(S("bad.aff"), "PK\x03\x04 and nothing more");
    const CliResult result = Run({S("values"), S("bad.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        "error: Error code 321\nerror: Error: File Missing\nerror: no design page could be read (bad.aff)\n");
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliUsage, AnEmptyTextIsACorruptForm) {
    BuiltMember text;
    text.name = "a.aff";
    Write(S("a.aff"), BuildZip({text}));
    const CliResult result = Run({S("info"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: Corrupt form file. Cannot continue. (a.aff)\n");
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliUsage, ATextWithoutDesignPageCanNotBeRead) {
    Write(S("a.aff"), "VERSION 1.0.0\r\n");
    const CliResult result = Run({S("info"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: no design page could be read (a.aff)\n");
}

TEST_F(CliUsage, AFailureWhileReadingIsToldWithItsNumberAndTheForm) {
    Write(S("a.aff"), FormText().Page(S("Cover")).Field(S("A"), {S("Title=Again")}).Bytes());
    const CliResult result = Run({S("info"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith("error: 457: "));
    EXPECT_THAT(result.err, HasSubstr(" (a.aff)\n"));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliUsage, ANewerFormIsAWarningOnly) {
    Write(S("a.aff"), OneField().replace("VERSION 1.0.0", "VERSION 9.0.0"));
    const CliResult result = Run({S("values"), S("a.aff")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "warning: This form was saved using a newer version and may not function correctly.\n");
    EXPECT_EQ(result.out, "page\tdesign\tname\tvalue\n1\tCover\tA\t1\n");
}

TEST_F(CliUsage, NoTemporaryFileIsLeft) {
    Write(S("a.aff"), OneField());
    for (const QStringList& arguments :
         std::vector<QStringList>{{S("info"), S("a.aff")},
                                  {S("check"), S("a.aff")},
                                  {S("fill"), S("a.aff"), S("--set"), S("9:A=1"), S("--save"), S("b.aff")},
                                  {S("fill"), S("a.aff"), S("--save"), S("b.aff")}})
        EXPECT_NE(Run(arguments).status, -1);
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliUsage, OutputThatCanNotBeWrittenIsAnError) {
    Write(S("a.aff"), OneField());
    QProcess process;
    Prepare(process, {S("values"), S("a.aff")}, S("C.UTF-8"));
    process.setStandardOutputFile(S("/dev/full"));
    process.start();
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: standard output can't be written\n");
}

TEST_F(CliUsage, SeveralCallsAtOnceDoNotDisturbOneAnother) {
    Write(S("a.aff"), OneField());
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < 16; ++number) {
        processes.push_back(std::make_unique<QProcess>());
        Prepare(*processes.back(),
                {S("fill"), S("a.aff"), S("--set"), S("1:A=%1").arg(number), S("--save"),
                 S("out%1.aff").arg(number)},
                S("C.UTF-8"));
        processes.back()->start();
    }
    for (int number = 0; number < 16; ++number) {
        const CliResult result = ResultOf(*processes[static_cast<std::size_t>(number)]);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(Run({S("values"), S("out%1.aff").arg(number)}).out,
                  "page\tdesign\tname\tvalue\n1\tCover\tA\t" + std::to_string(number) + "\n");
    }
    EXPECT_EQ(LeftOvers(), QStringList());
}

}  // namespace sheetwright
