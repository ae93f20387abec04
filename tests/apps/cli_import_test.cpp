// Tables of instruments that the command line pours into forms.

#include "apps/cli_test.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/short_text.h"

#include <sys/stat.h>

namespace sheetwright {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

QStringList Takes(const QString& column, const QStringList& more = {}) {
    return QStringList{S("DataSource=") + column + S(",DRIVERS\\meter")} + more;
}

}  // namespace

class CliImport : public CliTest {
  protected:
    void SetUp() override {
        QDir(Path(S("."))).mkpath(S("DRIVERS/meter/Data"));
        Write(S("DRIVERS/meter/DRIVER.INF"), "");
        Write(S("a.aff"), Form());
        Write(Table(), "K,V\r\na,1\r\nb,2\r\nc,3\r\n");
    }

    [[nodiscard]] static QString Table() { return S("DRIVERS/meter/Data/t.csv"); }
    // A cover, and a page for each record.
    [[nodiscard]] static QByteArray Form() {
        FormText form;
        form.Page(S("Cover")).Field(S("Client")).Formula(S("Pages"), S("SETME(PAGECOUNT)"));
        form.Page(S("Results")).Field(S("k"), Takes(S("K"), {S("NewPageOnReoccur=True")}));
        form.Field(S("v"), Takes(S("V"))).Formula(S("twice"), S("SETME(MULTIPLY({FIELDS\\Results,v},2))"));
        return form.Data(1, {S("Client=Marlow"), S("Pages=0")}).Data(2, {}).Bytes();
    }

    [[nodiscard]] CliResult Fill(const QStringList& rest) const {
        return Run(QStringList{S("fill"), S("a.aff")} + rest);
    }
    [[nodiscard]] std::string ValuesOf(const QString& form) const {
        const std::string values = Run({S("values"), form}).out;
        return values.substr(values.find('\n') + 1);
    }
    // Nothing is written, and the error says why.
    void ExpectError(const QStringList& edits, const std::string& error) const {
        const QByteArray before = Read(S("a.aff"));
        for (const QString& target : {S("out.aff"), S("a.aff")}) {
            const CliResult result = Fill(edits + QStringList{S("--save"), target, S("--pdf"), S("out.pdf")});
            EXPECT_EQ(result.status, 1) << error;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err, "error: " + error + "\n");
        }
        EXPECT_FALSE(QFile::exists(Path(S("out.aff"))));
        EXPECT_FALSE(QFile::exists(Path(S("out.pdf"))));
        EXPECT_EQ(Read(S("a.aff")), before);
        EXPECT_EQ(LeftOvers(), QStringList());
    }
    void ExpectUnreadable(const QString& table) const {
        ExpectError({S("--import"), table, S("--at-page"), S("2")},
                    "Unable to open file: Please check the path is valid and the file is not in use by any "
                    "other applications. (" +
                        table.toStdString() + ")");
    }
};

TEST_F(CliImport, RecordsFillThePageAndFurtherOnes) {
    const CliResult result =
        Fill({S("--import"), Table(), S("--at-page"), S("2"), S("--save"), S("out.aff")});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "imported 3 records, 2 pages added\nsaved out.aff\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(ValuesOf(S("out.aff")),
              "1\tCover\tClient\tMarlow\n1\tCover\tPages\t4\n"
              "2\tResults\tk\ta\n2\tResults\tv\t1\n2\tResults\ttwice\t2\n"
              "3\tResults\tk\tb\n3\tResults\tv\t2\n3\tResults\ttwice\t4\n"
              "4\tResults\tk\tc\n4\tResults\tv\t3\n4\tResults\ttwice\t6\n");
    EXPECT_THAT(Run({S("info"), S("out.aff")}).out, HasSubstr("member: import1.csv\n"));
}

TEST_F(CliImport, OneOfEachIsToldSo) {
    Write(Table(), "K,V\r\na,1\r\n");
    EXPECT_EQ(Fill({S("--import"), Table(), S("--at-page"), S("2"), S("--save"), S("a.aff")}).out,
              "imported 1 record, 0 pages added\nsaved a.aff\n");
    Write(Table(), "K,V\r\na,1\r\nb,2\r\n");
    EXPECT_EQ(Fill({S("--import"), Table(), S("--at-page=2"), S("--save"), S("out.aff")}).out,
              "imported 2 records, 2 pages added\nsaved out.aff\n")
        << "page 2 is full";
    EXPECT_EQ(Fill({S("--import"), Table(), S("--at-page=2")}).out,
              "imported 2 records, 2 pages added\nvalues set: 0\npages added: 2\nrecords imported: 2\n"
              "data pages: 4\nsaved: no\n");
}

TEST_F(CliImport, WithoutAPageItBeginsOnTheFirst) {
    FormText form;
    Write(S("a.aff"), form.Page(S("A")).Field(S("v"), Takes(S("V"))).Data(1, {}).Data(1, {S("v=")}).Bytes());
    EXPECT_EQ(Fill({S("--import"), Table(), S("--save"), S("out.aff")}).status, 0);
    EXPECT_EQ(ValuesOf(S("out.aff")), "1\tA\tv\t3\n2\tA\tv\t\n");
}

TEST_F(CliImport, EditsAreDoneInTheOrderGiven) {
    Write(S("DRIVERS/meter/u.csv"), "V\r\n9\r\n");
    const CliResult result =
        Fill({S("--set"), S("2:v=0"), S("--import"), Table(), S("--set"), S("4:v=7"), S("--at-page"), S("2"),
              S("--add-page"), S("Results:0"), S("--import"), S("DRIVERS/meter/u.csv"), S("--at-page"),
              S("1"), S("--save"), S("out.aff")});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "imported 3 records, 2 pages added\nimported 1 record, 0 pages added\nsaved out.aff\n");
    const std::string values = ValuesOf(S("out.aff"));
    EXPECT_THAT(values, StartsWith("1\tResults\tk\t\n1\tResults\tv\t9\n1\tResults\ttwice\t18\n"));
    EXPECT_THAT(values, HasSubstr("3\tResults\tk\ta\n3\tResults\tv\t1\n"));
    EXPECT_THAT(values, EndsWith("5\tResults\tk\tc\n5\tResults\tv\t7\n5\tResults\ttwice\t14\n"));
    EXPECT_THAT(Run({S("info"), S("out.aff")}).out, HasSubstr("member: import2.csv\n"));
}

TEST_F(CliImport, ResultIsPrinted) {
    const CliResult result = Fill({S("--import"), Table(), S("--at-page"), S("2"), S("--pdf"), S("out.pdf")});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "imported 3 records, 2 pages added\nprinted 4 pages to out.pdf\n");
    EXPECT_TRUE(Read(S("out.pdf")).startsWith("%PDF-"));
}

TEST_F(CliImport, FormulasOfTheImportRunWithoutARecalculation) {
    EXPECT_EQ(Fill({S("--no-recalculate"), S("--import"), Table(), S("--at-page"), S("2"), S("--set"),
                    S("3:v=5"), S("--save"), S("out.aff")})
                  .status,
              0);
    EXPECT_THAT(ValuesOf(S("out.aff")),
                ::testing::AllOf(HasSubstr("1\tCover\tPages\t4\n"),
                                 HasSubstr("3\tResults\tv\t5\n3\tResults\ttwice\t4\n")));
}

TEST_F(CliImport, TemplateBecomesAForm) {
    FormText form;
    Write(S("t.aft"), form.Page(S("A")).Field(S("v"), Takes(S("V"))).Bytes());
    const CliResult result = Run({S("fill"), S("t.aft"), S("--import"), Table(), S("--save"), S("n.aff")});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "imported 3 records, 0 pages added\nsaved n.aff\n");
    EXPECT_EQ(ValuesOf(S("n.aff")), "1\tA\tv\t3\n");
}

TEST_F(CliImport, PairsOfPagesAreFilledFromOneTable) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"), {S("NewPageOnReoccur=True")}));
    form.Page(S("Second")).Field(S("v"), Takes(S("V"), {S("NewPageOnReoccur=True")}));
    form.Page(S("Other")).Field(S("o"), Takes(S("K")));
    BuiltMember text;
    text.name = "a.aff";
    text.data = form.Data(1, {}).Data(3, {S("o=")}).Bytes();
    BuiltMember pairs;
    pairs.name = "linkedpages.txt";
    pairs.data = "First|Second\r\n";
    Write(S("a.aff"), BuildZip({text, pairs}));
    EXPECT_EQ(Fill({S("--import"), Table(), S("--save"), S("out.aff")}).out,
              "imported 6 records, 5 pages added\nsaved out.aff\n");
    EXPECT_EQ(ValuesOf(S("out.aff")),
              "1\tFirst\tk\ta\n2\tSecond\tv\t1\n3\tOther\to\t\n4\tSecond\tv\t2\n5\tFirst\tk\tb\n"
              "6\tSecond\tv\t3\n7\tFirst\tk\tc\n");
    QFile::remove(Path(S("out.aff")));
    ExpectError({S("--import"), Table(), S("--at-page"), S("2")},
                "page 2 takes no table: linkedpages.txt doesn't name it");
}

TEST_F(CliImport, PageBelongsToTheImportBefore) {
    const std::vector<std::pair<QStringList, const char*>> cases{
        {{S("--at-page"), S("2")}, "--at-page needs --import before it"},
        {{S("--at-page"), S("2"), S("--import"), Table()}, "--at-page needs --import before it"},
        {{S("--import"), Table(), S("--at-page"), S("2"), S("--at-page"), S("1")},
         "an --import has one --at-page"},
        {{S("--import"), Table(), S("--at-page"), S("-2")}, "\"-2\" is no page number"},
        {{S("--import"), Table(), S("--at-page"), S("two")}, "\"two\" is no page number"},
        {{S("--import"), Table(), S("--at-page")}, "option --at-page needs a value"},
        {{S("--import")}, "option --import needs a value"},
    };
    for (const auto& [arguments, text] : cases) {
        const CliResult result = Fill(arguments);
        EXPECT_EQ(result.status, 2) << text;
        EXPECT_THAT(result.err, StartsWith(std::string("error: ") + text + "\nusage: "));
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(CliImport, PageThatIsNotThereIsAnError) {
    ExpectError({S("--import"), Table(), S("--at-page"), S("3")}, "there is no page 3: the form has 2");
    ExpectError({S("--import"), Table(), S("--at-page"), S("0")}, "there is no page 0: the form has 2");
}

TEST_F(CliImport, TableThatCantBeReadIsAnError) {
    ExpectUnreadable(S("DRIVERS/meter/Data/none.csv"));
    ExpectUnreadable(S("DRIVERS/meter/Data"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(Path(S("pipe.csv"))).constData(), 0600), 0);
    ExpectUnreadable(S("pipe.csv"));
    ExpectUnreadable(S(""));
}

TEST_F(CliImport, TableWithoutAHeaderIsAnError) {
    const QString table = Table();
    for (const char* bytes : {"", "\r\n\r\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"}) {
        Write(table, bytes);
        ExpectError({S("--import"), table, S("--at-page"), S("2")}, table.toStdString() + " has no header");
    }
}

TEST_F(CliImport, TableOfWhichNothingComesIntoTheFormIsAnError) {
    const std::string error = "no column of " + Table().toStdString() + " fills anything on page ";
    ExpectError({S("--import"), Table()}, error + "1");
    Write(Table(), "X,Y\r\n1,2\r\n");
    ExpectError({S("--import"), Table(), S("--at-page"), S("2")}, error + "2");
    Write(S("t.csv"), "K,V\r\na,1\r\n");
    ExpectError({S("--import"), S("t.csv"), S("--at-page"), S("2")},
                "no column of t.csv fills anything on page 2");
}

TEST_F(CliImport, Utf16IsTakenForAnotherTable) {
    Write(Table(), QByteArray("\xFF\xFEK\0,\0V\0\r\0\n\0a\0,\0001\0\r\0\n\0", 22));
    ExpectError({S("--import"), Table(), S("--at-page"), S("2")},
                "no column of " + Table().toStdString() + " fills anything on page 2");
}

TEST_F(CliImport, TextsOfBothEncodingsAreRead) {
    for (const QByteArray& bytes : {QByteArray("\xEF\xBB\xBFK,V\nGer\xC3\xA4t,1\n"),
                                    QByteArray("K,V\nGer\xC3\xA4t,1\n"), QByteArray("K,V\nGer\xE4t,1\n")}) {
        Write(Table(), bytes);
        EXPECT_EQ(Fill({S("--import"), Table(), S("--at-page"), S("2"), S("--save"), S("out.aff")}).err, "");
        EXPECT_THAT(ValuesOf(S("out.aff")), HasSubstr("2\tResults\tk\tGer\xC3\xA4t\n"));
    }
}

TEST_F(CliImport, RaggedRecordsAreReadAsFarAsTheyGo) {
    Write(Table(), "K,V\na\nb,2,3,4\n\n,\nc,\"5\n");
    EXPECT_EQ(Fill({S("--import"), Table(), S("--at-page"), S("2"), S("--save"), S("out.aff")}).out,
              "imported 4 records, 2 pages added\nsaved out.aff\n");
    EXPECT_THAT(ValuesOf(S("out.aff")),
                ::testing::AllOf(HasSubstr("2\tResults\tk\ta\n2\tResults\tv\t\n"),
                                 HasSubstr("3\tResults\tk\tb\n3\tResults\tv\t2\n"),
                                 HasSubstr("4\tResults\tk\tc\n4\tResults\tv\t5\\n\n")));
}

TEST_F(CliImport, DesignWithoutAnEndIsAFailureAndNothingIsLost) {
    FormText form;
    form.Page(S("A")).Field(S("k"), {S("DataSource=*,DRIVERS\\meter"), S("NewPageOnReoccur=True")});
    Write(S("a.aff"), form.Data(1, {S("k=")}).Bytes());
    const QByteArray before = Read(S("a.aff"));
    const CliResult result = Fill({S("--import"), Table(), S("--save"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: 6: Overflow (a.aff)\n");
    EXPECT_EQ(Read(S("a.aff")), before);
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliImport, FailureOfAFormulaWritesNothing) {
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Formula(S("f"), S("SETME(ADD(1)")).Data(1, {});
    Write(S("a.aff"), form.Bytes());
    ExpectError({S("--import"), Table()}, "5: Invalid procedure call or argument (a.aff)");
}

TEST_F(CliImport, HelpTellsOfIt) {
    const std::string help = Run({S("fill"), S("--help")}).out;
    EXPECT_THAT(help, HasSubstr("  --import CSV "));
    EXPECT_THAT(help, HasSubstr("  --at-page N "));
    EXPECT_THAT(help, HasSubstr("an import runs them nevertheless"));
    EXPECT_THAT(help, StartsWith("usage: sheetwright-cli fill FORM"));
}

}  // namespace sheetwright
