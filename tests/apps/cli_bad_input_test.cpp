// Forms and arguments that nobody should give to the program. None crashes it, hangs it, leaves a file behind
// or harms another, and each gets its message.

#include "apps/cli_test.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/short_text.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QMap>

namespace sheetwright {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

QByteArray Text() {
    return FormText().Page(S("Cover")).Field(S("A")).Data(1, {S("A=1")}).Bytes();
}

BuiltMember Member(const QByteArray& name, const QByteArray& data = "picture") {
    BuiltMember member;
    member.name = name;
    member.data = data;
    return member;
}

// An archive with a good text and one more member.
QByteArray With(const BuiltMember& member) {
    return BuildZip({Member("a.aff", Text()), member});
}

QByteArray OneFormula(const QString& formula) {
    return FormText().Page(S("Cover")).Formula(S("A"), formula).Data(1, {S("A=1")}).Bytes();
}

QString Nested(int depth) {
    return S("NOT(").repeated(depth) + S("1") + S(")").repeated(depth);
}

}  // namespace

class CliBadInput : public CliTest {
  protected:
    // Every file in the test's folder with its bytes.
    [[nodiscard]] QMap<QString, QByteArray> Files() const {
        QMap<QString, QByteArray> files;
        QDirIterator all(Path(S(".")), QDir::Files | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString name = QDir(Path(S("."))).relativeFilePath(all.next());
            files.insert(name, Read(name));
        }
        return files;
    }

    // Whatever is asked of this form, the answer is this error, and no file comes, goes or changes.
    void ExpectRefusal(const QByteArray& form, const std::string& error) const {
        Write(S("a.aff"), form);
        const QMap<QString, QByteArray> before = Files();
        for (const QStringList& arguments : std::vector<QStringList>{
                 {S("info"), S("a.aff")},
                 {S("values"), S("a.aff")},
                 {S("eval"), S("a.aff"), S("1")},
                 {S("check"), S("a.aff")},
                 {S("fill"), S("a.aff"), S("--save"), S("out.aff")},
                 {S("fill"), S("a.aff"), S("--set"), S("1:A=2"), S("--save"), S("a.aff")}}) {
            const CliResult result = Run(arguments);
            EXPECT_EQ(result.status, 1) << arguments[0].toStdString();
            EXPECT_EQ(result.out, "") << arguments[0].toStdString();
            EXPECT_THAT(result.err, StartsWith("error: " + error)) << arguments[0].toStdString();
            EXPECT_TRUE(Files() == before) << arguments[0].toStdString();
            EXPECT_EQ(LeftOvers(), QStringList());
        }
    }

    // A form that can be opened comes out of a save as it was, and is checked with this result.
    void ExpectSurvival(const QByteArray& form, const std::string& findings) const {
        Write(S("a.aff"), form);
        const CliResult before = Run({S("values"), S("a.aff")});
        EXPECT_EQ(before.status, 0) << before.err;
        EXPECT_EQ(Run({S("fill"), S("a.aff"), S("--no-recalculate"), S("--save"), S("b.aff")}).err, "");
        EXPECT_TRUE(Run({S("values"), S("b.aff")}).out == before.out);
        for (const char* name : {"a.aff", "b.aff"}) {
            const CliResult checked = Run({S("check"), S(name)});
            EXPECT_EQ(checked.status, findings.empty() ? 0 : 1);
            EXPECT_EQ(checked.out, findings);
            EXPECT_EQ(checked.err, "");
        }
        EXPECT_EQ(LeftOvers(), QStringList());
    }
};

TEST_F(CliBadInput, WhatIsNoForm) {
    ExpectRefusal("This is a letter to my aunt.\n", "Error code 321\n");
    ExpectRefusal("\x89PNG\r\n\x1A\n", "Error code 321\n");
}

TEST_F(CliBadInput, AnEmptyFile) {
    ExpectRefusal("", "Error code 321\n");
}

TEST_F(CliBadInput, AFileOfOneByte) {
    for (const char byte : {'P', 'V', '\0', '\xFF'})
        ExpectRefusal(QByteArray(1, byte), "Error code 321\n");
}

TEST_F(CliBadInput, AnArchiveCutOffAtAnyLength) {
    BuiltMember text = Member("a.aff", Text());
    text.isDeflated = true;
    const QByteArray archive = BuildZip({text, Member("logo.bmp")});
    for (qsizetype length = 0; length < archive.size(); length += archive.size() / 25) {
        Write(S("a.aff"), archive.first(length));
        const CliResult result = Run({S("fill"), S("a.aff"), S("--save"), S("a.aff")});
        EXPECT_EQ(result.status, 1) << length;
        EXPECT_THAT(result.err, StartsWith("error: Error code 321\n")) << length;
        EXPECT_EQ(Read(S("a.aff")), archive.first(length)) << length;
        EXPECT_EQ(LeftOvers(), QStringList());
    }
    ExpectRefusal(archive.chopped(1), "Error code 321\n");
}

TEST_F(CliBadInput, AnArchiveWithoutText) {
    ExpectRefusal(BuildZip({Member("logo.bmp")}), "Error: File Missing");
    ExpectRefusal(BuildZip({}), "Error: File Missing");
}

TEST_F(CliBadInput, AnArchiveWithTwoTexts) {
    ExpectRefusal(With(Member("b.aft", Text())), "Error code 321\n");
}

TEST_F(CliBadInput, MembersThatWouldLieElsewhere) {
    for (const char* name : {"../x", "/x", "C:\\x", "a/b", "..\\x", "..", "a/", ""})
        ExpectRefusal(With(Member(name)), "Error code 52\n");
    EXPECT_FALSE(QFileInfo::exists(S("/x")));
}

TEST_F(CliBadInput, MembersThatDifferInCapitalsOnly) {
    ExpectRefusal(BuildZip({Member("a.aff", Text()), Member("a.bmp"), Member("A.BMP")}), "Error code 58\n");
}

TEST_F(CliBadInput, ABomb) {
    BuiltMember zeros = Member("b.bmp", QByteArray(80 * 1024 * 1024, '\0'));
    zeros.isDeflated = true;
    zeros.claimedSize = 100;
    ExpectRefusal(With(zeros), "Error code 6\n");
}

TEST_F(CliBadInput, NulBytesAreCharactersLikeOthers) {
    const QString nul(QChar(0));
    FormText form;
    form.Page(S("Co") + nul + S("ver")).Field(S("A") + nul + S("x"));
    const QByteArray text = form.Data(1, {S("A") + nul + S("x=1") + nul + nul}).Bytes();
    ExpectSurvival(text, "");
    using namespace std::string_literals;
    EXPECT_THAT(Run({S("values"), S("a.aff")}).out, EndsWith("\n1\tCo\0ver\tA\0x\t1\0\0\n"s));

    Write(S("a.aff"), "VERSION" + QByteArray(100'000, '\0'));
    EXPECT_EQ(Run({S("info"), S("a.aff")}).err, "error: no design page could be read (a.aff)\n");
    EXPECT_EQ(Run({S("check"), S("a.aff")}).out, "form: design: there is no design page\n");
}

TEST_F(CliBadInput, ALineOf50Megabytes) {
    const QString line(50'000'000, u'x');
    ExpectSurvival(FormText().Page(S("Cover")).Field(S("A")).Data(1, {S("A=") + line}).Bytes(), "");
    Write(S("a.aff"), FormText().Page(S("Cover")).Field(S("A")).Data(1, {line}).Bytes());
    EXPECT_EQ(Run({S("check"), S("a.aff")}).out,
              "data 1: page: line without \"=\": \"" + std::string(60, 'x') + "...\"\n");
}

TEST_F(CliBadInput, ADesignOfOneLineOf50Megabytes) {
    Write(S("a.aff"), "VERSION " + QByteArray(50'000'000, '1'));
    const CliResult result = Run({S("info"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, EndsWith("error: no design page could be read (a.aff)\n"));
}

TEST_F(CliBadInput, AHundredThousandNestedParentheses) {
    ExpectSurvival(OneFormula(Nested(100'000)), "1: A: Formula: longer than 32,767 characters\n");
    const CliResult filled = Run({S("fill"), S("a.aff"), S("--save"), S("out.aff")});
    EXPECT_EQ(filled.status, 1);
    EXPECT_EQ(filled.err, "error: 6: Overflow (a.aff)\n");
    EXPECT_FALSE(QFile::exists(Path(S("out.aff"))));
}

TEST_F(CliBadInput, AsManyNestedParenthesesAsAFormulaHolds) {
    ExpectSurvival(OneFormula(Nested(6'000)), "1: A: Formula: nested more than 399 deep\n");
    EXPECT_EQ(Run({S("fill"), S("a.aff"), S("--save"), S("out.aff")}).err,
              "error: 28: Out of stack space (a.aff)\n");
    ExpectSurvival(OneFormula(S("(").repeated(32'000)),
                   "1: A: Formula: unknown function \"\"\n"
                   "1: A: Formula: parentheses don't balance: \"" +
                       std::string(60, '(') + "...\"\n");
}

TEST_F(CliBadInput, PageNumbersThatNoFormHas) {
    Write(S("a.aff"), Text());
    const QMap<QString, QByteArray> before = Files();
    const auto expect = [&](const QStringList& arguments, int status, const std::string& error) {
        const CliResult result = Run(arguments);
        EXPECT_EQ(result.status, status) << arguments.join(u' ').toStdString();
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, StartsWith("error: " + error + "\n"));
    };
    for (const char* number : {"-1", "32768", "1000000000", "1e9", "99999999999999999999", "1.5", ""}) {
        const std::string error = "\"" + std::string(number) + "\" is no page number";
        expect({S("values"), S("a.aff"), S("--page"), S(number)}, 2, error);
        expect({S("eval"), S("a.aff"), S("--page"), S(number), S("1")}, 2, error);
        expect({S("fill"), S("a.aff"), S("--set"), S(number) + S(":A=2"), S("--save"), S("a.aff")}, 2, error);
    }
    for (const char* number : {"0", "2", "32767"}) {
        const std::string error = "there is no page " + std::string(number) + ": the form has 1";
        expect({S("values"), S("a.aff"), S("--page"), S(number)}, 1, error);
        expect({S("eval"), S("a.aff"), S("--page"), S(number), S("1")}, 1, error);
        expect({S("fill"), S("a.aff"), S("--set"), S(number) + S(":A=2"), S("--save"), S("a.aff")}, 1, error);
        expect({S("fill"), S("a.aff"), S("--add-page"), S("Cover:3:") + S(number)}, 1, error);
    }
    for (const char* design : {"0", "-1", "32768", "1000000000", "1e9", "Cover:3:32768", "Cover:3:-1"})
        expect({S("fill"), S("a.aff"), S("--add-page"), S(design), S("--save"), S("a.aff")}, 1,
               "there is no design page \"" + std::string(design) + "\"");
    EXPECT_TRUE(Files() == before);
}

TEST_F(CliBadInput, FormsWithPageNumbersThatNoFormHas) {
    const auto form = [](const char* design, const char* data, const char* designOfData) {
        QByteArray text = Text();
        text.replace("BEGIN PAGE 1\r", QByteArray("BEGIN PAGE ") + design + '\r');
        return text.replace("BEGIN PAGE 1 DESIGN=1",
                            QByteArray("BEGIN PAGE ") + data + " DESIGN=" + designOfData);
    };
    const auto expectError = [&](const QByteArray& text, const std::string& error) {
        Write(S("a.aff"), text);
        const CliResult result = Run({S("fill"), S("a.aff"), S("--save"), S("a.aff")});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "error: " + error + " (a.aff)\n");
        EXPECT_EQ(Read(S("a.aff")), text);
        EXPECT_EQ(Run({S("check"), S("a.aff")}).status, 1);
    };
    for (const char* number : {"32768", "1000000000", "1e9"}) {
        expectError(form(number, "1", "1"), "6: Overflow");
        expectError(form("1", number, "1"), "6: Overflow");
        expectError(form("1", "1", number), "6: Overflow");
    }
    for (const char* number : {"0", "-1"}) {
        expectError(form(number, "1", "1"), "no design page could be read");
        const std::string page = number;
        ExpectSurvival(form("1", "1", number), "data 1: page: there is no design page " + page + "\n");
        Write(S("a.aff"), form("1", number, "1"));
        EXPECT_EQ(Run({S("check"), S("a.aff")}).out,
                  "form: data: \"BEGIN PAGE " + page + " DESIGN=1\" gives no page number and design\n");
    }
    ExpectSurvival(form("1", "32767", "1"), "data 32767: page: pages are not numbered in order\n");
}

TEST_F(CliBadInput, OverlongNames) {
    ExpectRefusal(With(Member(QByteArray(256, 'n'))), "Error code 52\n");
    ExpectRefusal(With(Member(QByteArray(65'535, 'n'))), "Error code 52\n");

    const QString name(100'000, u'n');
    ExpectSurvival(FormText().Page(name).Field(name).Data(1, {name + S("=1")}).Bytes(), "");
    const CliResult unknown = Run({S("fill"), S("a.aff"), S("--set"), S("1:x") + name + S("=2")});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.err, StartsWith("error: page 1 has no field \"xnnn"));

    const QMap<QString, QByteArray> before = Files();
    for (const qsizetype length : {253, 300, 5000}) {
        const QString file = name.first(length) + S(".aff");
        const CliResult saved = Run({S("fill"), S("a.aff"), S("--save"), file});
        EXPECT_EQ(saved.status, 1) << length;
        EXPECT_THAT(saved.err, StartsWith("error: ")) << length;
        EXPECT_THAT(Run({S("info"), file}).err, StartsWith("error: Unable to open file: ")) << length;
    }
    EXPECT_TRUE(Files() == before);
}

TEST_F(CliBadInput, FindingsStayShortWhateverTheTemplateHolds) {
    const QString lots(1'000'000, u'n');
    FormText form;
    form.Page(S("Cover"))
        .Field(lots, {S("Width=") + lots, lots + S("=1"), lots.toUpper() + S("=2")})
        .Field(lots)
        .Formula(S("F"), S("SETME({FIELDS\\") + lots.first(20'000) + S(",A})"))
        .Picture(lots)
        .Record(lots, {lots})
        .Line(S("END ") + lots)
        .Data(1, {lots + S("x=1"), lots});
    Write(S("a.aff"), form.Bytes());
    const CliResult result = Run({S("check"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("...: Width \"nnn"));
    EXPECT_LT(result.out.size(), 4'000U);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 9) << result.out;
}

TEST_F(CliBadInput, ATableThatEndsInsideQuotes) {
    QDir(Path(S("."))).mkdir(S("Lists"));
    Write(S("Lists/stock.csv"), "Code,Name\r\nA1,Bolt\r\nA2,\"Nut and\r\nno end");
    Write(S("a.aff"), Text());
    const QMap<QString, QByteArray> before = Files();
    const CliResult result =
        Run({S("eval"), S("a.aff"), S("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A2\")"),
             S("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A1\")")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "String\tNut and\\nno end\nString\tBolt\n");
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(Files() == before);
}

}  // namespace sheetwright
