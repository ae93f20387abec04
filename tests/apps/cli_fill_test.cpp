#include "apps/cli_test.h"
#include "document/zip_reader.h"
#include "support/form_text.h"
#include "support/short_text.h"

namespace sheetwright {

class CliFill : public CliTest {
  protected:
    void SetUp() override {
        FormText form;
        form.Page(S("Cover")).Field(S("A")).Formula(S("B"), S("SETME(ADD({FIELDS\\Cover,A},1))"));
        form.CheckBox(S("C")).PictureField(S("P")).Field(S("D"));
        form.Page(S("Results")).Field(S("x:y")).Field(S("Count"), {S("Formula=SETME(ADD(ME,1))")});
        form.Data(1, {S("A=1"), S("D=d"), S("P=0")}).Data(2, {S("x:y="), S("Count=0")});
        Write(S("a.aff"), form.Bytes());
    }

    [[nodiscard]] CliResult Fill(const QStringList& rest) const {
        return Run(QStringList{S("fill"), S("a.aff")} + rest);
    }
    // Values without header after a fill that must succeed.
    [[nodiscard]] std::string Filled(const QStringList& rest) const {
        const CliResult result = Fill(rest + QStringList{S("--save"), S("out.aff")});
        EXPECT_EQ(result.out, "saved out.aff\n");
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
        const std::string values = Run({S("values"), S("out.aff")}).out;
        return values.substr(values.find('\n') + 1);
    }
};

TEST_F(CliFill, SetsValuesAndRecalculates) {
    EXPECT_EQ(Filled({S("--set"), S("1:A=5"), S("--set"), S("1:B=0"), S("--set"), S("1:C=2")}),
              "1\tCover\tA\t5\n1\tCover\tB\t6\n1\tCover\tD\td\n1\tCover\tC\t2\n1\tCover\tP\t0\n"
              "2\tResults\tx:y\t\n2\tResults\tCount\t1\n");
}

TEST_F(CliFill, WithoutRecalculationFormulasAreLeftAlone) {
    EXPECT_EQ(Filled({S("--no-recalculate"), S("--set"), S("1:A=5"), S("--add-page"), S("2")}),
              "1\tCover\tA\t5\n1\tCover\tD\td\n1\tCover\tP\t0\n2\tResults\tx:y\t\n2\tResults\tCount\t0\n"
              "3\tResults\tx:y\t\n3\tResults\tCount\t\n");
}

TEST_F(CliFill, NameEndsAtTheFirstEqualsSignAndMayHoldAColon) {
    EXPECT_THAT(Filled({S("--set"), S("2:x:y=a=b:c")}), ::testing::HasSubstr("2\tResults\tx:y\ta=b:c\n"));
    EXPECT_THAT(Filled({S("--set=2:x:y=-")}), ::testing::HasSubstr("2\tResults\tx:y\t-\n"));
}

TEST_F(CliFill, LineBreaksTabsAndBackslashesOfAValueAreWrittenWithBackslash) {
    EXPECT_THAT(Filled({S("--set"), S("1:A=1\\n2\\t3\\\\n4\\x"), S("--no-recalculate")}),
                ::testing::HasSubstr("1\tCover\tA\t1\\n2\\t3\\\\n4\\\\x\n"));
}

TEST_F(CliFill, RealLineBreaksOfEveryKindAreOne) {
    EXPECT_THAT(Filled({S("--set"), S("1:A=1\r\n2\n3\r4"), S("--no-recalculate")}),
                ::testing::HasSubstr("1\tCover\tA\t1\\n2\\n3\\n4\n"));
}

TEST_F(CliFill, APageAddedHasLinesForAllElementsInDesignOrder) {
    EXPECT_THAT(
        Filled({S("--add-page"), S("Cover"), S("--no-recalculate")}),
        ::testing::EndsWith("3\tCover\tA\t\n3\tCover\tB\t\n3\tCover\tD\t\n3\tCover\tC\t0\n3\tCover\tP\t0\n"));
}

TEST_F(CliFill, PagesAreAddedWhereAskedFor) {
    EXPECT_THAT(
        Filled({S("--add-page"), S("2:0"), S("--set"), S("1:x:y=at start"), S("--add-page"), S("Results:2:2"),
                S("--set"), S("2:x:y=before"), S("--add-page"), S("2:3:3"), S("--set"), S("4:x:y=after"),
                S("--add-page"), S("2:1"), S("--set"), S("6:x:y=at end")}),
        ::testing::AllOf(
            ::testing::HasSubstr("1\tResults\tx:y\tat start\n"),
            ::testing::HasSubstr("2\tResults\tx:y\tbefore\n"), ::testing::HasSubstr("3\tCover\tA\t1\n"),
            ::testing::HasSubstr("4\tResults\tx:y\tafter\n"), ::testing::HasSubstr("5\tResults\tx:y\t\n"),
            ::testing::HasSubstr("6\tResults\tx:y\tat end\n")));
}

TEST_F(CliFill, ADesignIsFoundByItsNumberBeforeItsTitle) {
    FormText form;
    form.Page(S("2")).Field(S("A")).Page(S("Two")).Field(S("B")).Page(S("7: Summary")).Field(S("C"));
    Write(S("a.aff"), form.Data(1, {S("A=")}).Bytes());
    EXPECT_EQ(Filled({S("--add-page"), S("2"), S("--add-page"), S("7: Summary")}),
              "1\t2\tA\t\n2\tTwo\tB\t\n3\t7: Summary\tC\t\n");
}

TEST_F(CliFill, FormulasRunOnceHoweverManyPagesAreAdded) {
    EXPECT_THAT(Filled({S("--add-page"), S("2"), S("--add-page"), S("2")}),
                ::testing::EndsWith(
                    "2\tResults\tx:y\t\n2\tResults\tCount\t1\n3\tResults\tx:y\t\n3\tResults\tCount\t1\n"
                    "4\tResults\tx:y\t\n4\tResults\tCount\t1\n"));
}

TEST_F(CliFill, APageWithoutValueLinesGetsAllOfThem) {
    FormText form;
    form.Page(S("Cover")).Field(S("A")).CheckBox(S("C"));
    Write(S("a.aff"), form.Data(1, {S("A=1")}).Data(1, {}).Bytes());
    EXPECT_EQ(Filled({S("--set"), S("2:C=1"), S("--no-recalculate")}),
              "1\tCover\tA\t1\n2\tCover\tA\t\n2\tCover\tC\t1\n");
}

TEST_F(CliFill, UnknownPagesNamesAndDesignsAreErrorsAndNothingIsWritten) {
    const std::vector<std::pair<QStringList, const char*>> cases{
        {{S("--set"), S("3:A=1")}, "there is no page 3: the form has 2"},
        {{S("--set"), S("0:A=1")}, "there is no page 0: the form has 2"},
        {{S("--set"), S("1:a=1")}, "page 1 has no field \"a\""},
        {{S("--set"), S("1:BEGIN PAGE 1 DESIGN=9")}, "page 1 has no field \"BEGIN PAGE 1 DESIGN\""},
        {{S("--set"), S("2:A=1")}, "page 2 has no field \"A\""},
        {{S("--add-page"), S("3")}, "there is no design page \"3\""},
        {{S("--add-page"), S("cover")}, "there is no design page \"cover\""},
        {{S("--add-page"), S("Cover:3:3")}, "there is no page 3: the form has 2"},
        {{S("--set"), S("3:x:y=1"), S("--add-page"), S("2")}, "there is no page 3: the form has 2"},
    };
    const QByteArray before = Read(S("a.aff"));
    for (const auto& [arguments, text] : cases) {
        const CliResult result = Fill(arguments + QStringList{S("--save"), S("out.aff")});
        EXPECT_EQ(result.status, 1) << text;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, std::string("error: ") + text + "\n");
        EXPECT_FALSE(QFile::exists(Path(S("out.aff"))));
        EXPECT_EQ(Fill(arguments + QStringList{S("--save"), S("a.aff")}).status, 1);
        EXPECT_EQ(Read(S("a.aff")), before);
    }
}

TEST_F(CliFill, WithoutSaveOnlyASummaryIsPrinted) {
    const QByteArray before = Read(S("a.aff"));
    const CliResult result = Fill({S("--set"), S("1:A=5"), S("--add-page"), S("2")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "values set: 1\npages added: 1\ndata pages: 3\nsaved: no\n");
    EXPECT_EQ(Read(S("a.aff")), before);
}

TEST_F(CliFill, OutMayBeTheFormItself) {
    const CliResult result = Fill({S("--set"), S("1:A=5"), S("--save"), S("a.aff")});
    EXPECT_EQ(result.out, "saved a.aff\n");
    EXPECT_THAT(Run({S("values"), S("a.aff")}).out, ::testing::HasSubstr("1\tCover\tA\t5\n"));
    EXPECT_TRUE(Read(S("a.aff")).startsWith("PK"));
}

TEST_F(CliFill, ATemplateBecomesAForm) {
    FormText form;
    Write(S("t.aft"), form.Page(S("Cover")).Field(S("A")).Bytes());
    EXPECT_EQ(Run({S("fill"), S("t.aft"), S("--set"), S("1:A=x"), S("--save"), S("new.aff")}).status, 0);
    const CliResult result = Run({S("info"), S("new.aff")});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, ::testing::EndsWith("members: 1\nmember: new.aff\n"));
    EXPECT_EQ(Run({S("values"), S("new.aff")}).out, "page\tdesign\tname\tvalue\n1\tCover\tA\tx\n");
}

TEST_F(CliFill, AFormulaThatFailsWritesNothing) {
    FormText form;
    form.Page(S("Cover")).Formula(S("A"), S("SETME(ADD(1)")).Data(1, {S("A=1")});
    Write(S("a.aff"), form.Bytes());
    const CliResult result = Fill({S("--save"), S("out.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 5: Invalid procedure call or argument (a.aff)\n");
    EXPECT_FALSE(QFile::exists(Path(S("out.aff"))));
}

TEST_F(CliFill, AFolderThatIsNotThereCanNotBeSavedInto) {
    const CliResult result = Fill({S("--save"), S("none/out.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: Error code 76\n");
}

TEST_F(CliFill, KeysAndRecordsOfAnyKindSurviveASaveUnchanged) {
    FormText form;
    form.Page(S("Cover"), {S("PageKey=of its own")}).Field(S("A"), {S("OddKey= kept=so  x")});
    form.Record(S("GADGET"), {S("anything=1"), S("no equals sign")});
    form.Record(S("FIELDX"),
                FormText::Changed(FormText::Font() + FormText::Extent(), {S("Name=X"), S("FieldType=0")}));
    Write(S("a.aff"), form.Data(1, {S("A=1"), S("X=2")}).Bytes());
    EXPECT_EQ(Filled({S("--set"), S("1:X=3")}), "1\tCover\tA\t1\n1\tCover\tX\t3\n");

    const ZipReader archive(Path(S("out.aff")), 1);
    QByteArray saved;
    archive.Read(archive.Members().at(0), [&](QByteArrayView piece) { saved.append(piece); });
    EXPECT_EQ(saved.replace("\t", ""), Read(S("a.aff")).replace("X=2", "X=3"));
}

TEST_F(CliFill, ARefusedSaveLeavesTheOldForm) {
    const QByteArray before = Read(S("a.aff"));
    QFile::setPermissions(Path(S("a.aff")), QFile::ReadOwner);
    const CliResult result = Fill({S("--set"), S("1:A=5"), S("--save"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: Error code 75\n");
    EXPECT_EQ(Read(S("a.aff")), before);
    EXPECT_FALSE(QFile::exists(Path(S("a.aff 2"))));
}

}  // namespace sheetwright
