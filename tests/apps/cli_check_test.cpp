#include "apps/cli_test.h"
#include "support/form_text.h"
#include "support/short_text.h"

namespace sheetwright {

namespace {

QByteArray Good() {
    return FormText().Page(S("Cover")).Field(S("A")).Data(1, {S("A=1")}).Bytes();
}

QByteArray Bad() {
    return FormText()
        .Page(S("Cover"))
        .Formula(S("A"), S("ADD(1, 2)"))
        .Picture(S("emblem.bmp"))
        .Data(1, {S("B=1")})
        .Bytes();
}

}  // namespace

using CliCheck = CliTest;

TEST_F(CliCheck, ACorrectFormPrintsNothing) {
    Write(S("a.aft"), Good());
    const CliResult result = Run({S("check"), S("a.aft")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliCheck, FindingsArePrintedOneALine) {
    Write(S("a.aft"), Bad());
    const CliResult result = Run({S("check"), S("a.aft")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out,
              "1: A: Formula: blank outside a string at character 7\n"
              "1: PICTURE 1: picture \"emblem.bmp\" is not in the archive\n"
              "data 1: B: design page 1 has no element of that name\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliCheck, APictureBesideAPlainTextFormCounts) {
    Write(S("a.aft"), FormText().Page(S("Cover")).Field(S("A")).Picture(S("emblem.bmp")).Bytes());
    Write(S("Emblem.bmp"), "BM");
    EXPECT_EQ(Run({S("check"), S("a.aft")}).status, 0);
    EXPECT_EQ(Run({S("check"), Path(S("a.aft"))}).status, 0);
}

TEST_F(CliCheck, APictureBesideAnArchiveDoesNot) {
    Write(S("a.aft"), FormText().Page(S("Cover")).Field(S("A")).Picture(S("emblem.bmp")).Bytes());
    Write(S("emblem.bmp"), "BM");
    ASSERT_EQ(Run({S("fill"), S("a.aft"), S("--save"), S("b.aff")}).status, 0);
    EXPECT_EQ(Run({S("check"), S("b.aff")}).out,
              "1: PICTURE 1: picture \"emblem.bmp\" is not in the archive\n");
}

TEST_F(CliCheck, WithSeveralFormsEachLineNamesItsForm) {
    Write(S("a.aft"), Good());
    Write(S("b.aft"), FormText().Page(S("Cover")).Formula(S("A"), S("FOO(1)")).Bytes());
    const CliResult result = Run({S("check"), S("a.aft"), S("none.aft"), S("b.aft")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "b.aft: 1: A: Formula: unknown function \"FOO\"\n");
    EXPECT_EQ(
        result.err,
        "error: Unable to open file: Please check the path is valid and the file is not in use by any other "
        "applications. (none.aft)\n");
}

TEST_F(CliCheck, AFormThatCanNotBeReadIsStillChecked) {
    Write(S("a.aft"), FormText().Page(S("Cover")).Field(S("A"), {S("Title=Again")}).Field(S("A")).Bytes());
    const CliResult result = Run({S("check"), S("a.aft")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out,
              "1: A: Title stands twice on the page\n1: A: Name \"A\" stands on the page twice\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliCheck, AnArchiveThatCanNotBeReadIsAnError) {
    Write(S("a.aft"), "no archive");
    const CliResult result = Run({S("check"), S("a.aft")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: Error code 321\nerror: Error: File Missing (a.aft)\n");
    EXPECT_EQ(LeftOvers(), QStringList());
}

}  // namespace sheetwright
