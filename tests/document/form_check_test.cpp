#include "document/form_check.h"

#include "support/form_text.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> Check(const QString& text, const QStringList& pictures = {}) {
    const Conventions conventions = ConventionsOf(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const FormCheckSetting setting{conventions,
                                   {QStringLiteral("Wahr"), QStringLiteral("Falsch")},
                                   [&](const QString& name) { return pictures.contains(name); },
                                   [](int code, int orientation) { return code == 9 || orientation == 2; }};
    std::vector<std::string> findings;
    CheckForm(text, setting, [&](const Finding& finding) {
        findings.push_back(
            (finding.page + QStringLiteral(": ") + finding.element + QStringLiteral(": ") + finding.text)
                .toStdString());
    });
    return findings;
}

std::vector<std::string> Check(FormText& form, const QStringList& pictures = {}) {
    return Check(form.Text(), pictures);
}

FormText OnePage() {
    FormText form;
    form.Page(QStringLiteral("Cover"));
    return form;
}

}  // namespace

TEST(CheckForm, ACorrectFormHasNoFinding) {
    FormText form = OnePage();
    form.Field(S("Asset 1"))
        .Formula(S("Total"), S("SETME(SUM({FIELDS\\Results,Value}))"))
        .CheckBox(S("Passed"))
        .PictureField(S("Photo"))
        .Picture(S("logo.bmp"))
        .Picture(S(""))
        .Picture(S("companylogo.bmp"))
        .Page(S("Results"), {S("BackGround=16777215"), S("PrePrinted=scan.bmp|0|0|0|0|0")})
        .Field(S("Value"),
               {S("FieldType=2"), S("Visible=True"), S("MultiRecordIndex=3"), S("NewLineOnChange=True")})
        .Record(S("FRAME"), FormText::Extent() + QStringList{S("BorderStyle=0")})
        .Record(S("GADGET"), {S("anything=1")})
        .Data(1, {S("Asset 1=a=b"), S("Total=1"), S("Passed=3"), S("Photo=0")})
        .Data(2, {S("Value=")})
        .Data(2, {});
    EXPECT_THAT(Check(form, {S("logo.bmp"), S("scan.bmp")}), IsEmpty());
}

TEST(CheckForm, NumbersMayHaveEitherDecimalSeparator) {
    FormText form = OnePage();
    form.Field(S("A"), {S("FontSize=8,25"), S("AbsLeft=12.5")});
    EXPECT_THAT(Check(form), IsEmpty());
}

TEST(CheckForm, TheInstallationsWordsForTrueAndFalseAreBooleans) {
    FormText form = OnePage();
    form.Field(S("A"), {S("FontBold=Wahr"), S("ReadOnly=-1"), S("WordWrap=vielleicht")});
    EXPECT_THAT(Check(form), ElementsAre("1: A: WordWrap \"vielleicht\" is neither True nor False"));
}

TEST(CheckForm, AMissingTitleIsFound) {
    FormText form;
    form.Page(S("Cover"), {S("-Title")}).Field(S("A"));
    EXPECT_THAT(Check(form), ElementsAre("1: page: Title is missing"));
}

TEST(CheckForm, ASecondTitleIsFoundAlsoInAnElement) {
    FormText form = OnePage();
    form.Field(S("A"), {S("Title=Again")});
    EXPECT_THAT(Check(form), ElementsAre("1: A: Title stands twice on the page"));
}

TEST(CheckForm, ATitleThatStandsInAnElementOnlyIsFound) {
    FormText form;
    form.Page(S(""), {S("-Title")}).Field(S("A"), {S("Title=Cover")});
    EXPECT_THAT(Check(form), ElementsAre("1: A: the page's Title stands in an element"));
}

TEST(CheckForm, PaperMustBeInTheTable) {
    FormText form;
    form.Page(S("Cover"), {S("PaperSize=999")}).Page(S("Wide"), {S("PaperSize=999"), S("Orientation=2")});
    EXPECT_THAT(Check(form), ElementsAre("1: page: papersizes.csv has no paper 999 of orientation 1"));
}

TEST(CheckForm, OrientationAndPaperSizeAreRequired) {
    FormText form;
    form.Page(S("Cover"), {S("Orientation=3"), S("-PaperSize")});
    EXPECT_THAT(Check(form), ElementsAre("1: page: Orientation \"3\" is out of range (1 to 2)",
                                         "1: page: PaperSize is missing"));
}

TEST(CheckForm, NamesAreComparedWithoutCase) {
    FormText form = OnePage();
    form.Field(S("Asset")).CheckBox(S("ASSET"));
    EXPECT_THAT(Check(form), ElementsAre("1: ASSET: Name \"ASSET\" is also that of Asset"));
}

TEST(CheckForm, TheSameNameTwiceIsFound) {
    FormText form = OnePage();
    form.Field(S("A")).Field(S("A"));
    EXPECT_THAT(Check(form), ElementsAre("1: A: Name \"A\" stands on the page twice"));
}

TEST(CheckForm, TheSameNameOnTwoPagesIsNoFault) {
    FormText form = OnePage();
    form.Field(S("A")).Page(S("Other")).Field(S("A"));
    EXPECT_THAT(Check(form), IsEmpty());
}

TEST(CheckForm, TheSameTabIndexTwiceIsFound) {
    FormText form = OnePage();
    form.Field(S("A")).CheckBox(S("B"), {S("TabIdx=1")});
    EXPECT_THAT(Check(form), ElementsAre("1: B: TabIdx \"1\" is also that of A"));
}

TEST(CheckForm, AMissingKeyIsFoundForEachKindOfRecord) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"FRAME", "BorderStyle"}, {"LINE", "Direction"},    {"LINE", "BorderColor"}, {"SHAPE", "FillStyle"},
        {"SHAPE", "Shape"},       {"LABEL", "Caption"},     {"LABEL", "FontName"},   {"FIELD", "Name"},
        {"FIELD", "WordWrap"},    {"FIELD", "BorderStyle"}, {"FIELD", "TabIdx"},     {"CHECK", "States"},
        {"CHECK", "ForeColor"},   {"PICTURE", "Picture"},   {"PICTURE", "Width"}};
    for (const auto& [word, key] : cases) {
        FormText form = OnePage();
        const QStringList all{S("Name=A"),        S("FieldType=0"),   S("WordWrap=False"), S("Alignment=0"),
                              S("ReadOnly=True"), S("BorderStyle=1"), S("TabIdx=1"),       S("BorderType=1"),
                              S("BorderWidth=1"), S("BorderColor=0"), S("Direction=0"),    S("FillColor=0"),
                              S("FillStyle=0"),   S("Shape=0"),       S("Caption="),       S("Style=0"),
                              S("States=2"),      S("Picture=")};
        form.Record(S(word), FormText::Changed(all + FormText::Extent() + FormText::Font(), {u'-' + S(key)}));
        const QString element = S(key) == S("Name") ? S(word) + S(" 1") : S("A");
        EXPECT_THAT(Check(form),
                    ElementsAre((S("1: ") + element + S(": ") + S(key) + S(" is missing")).toStdString()))
            << word << ' ' << key;
    }
}

TEST(CheckForm, APictureFieldNeedsNoKeysOfATextBox) {
    FormText form = OnePage();
    form.Field(S("P"), {S("-FieldType"), S("-WordWrap"), S("-Alignment"), S("-BorderStyle")});
    EXPECT_THAT(Check(form), IsEmpty());
}

TEST(CheckForm, ValuesOutOfRangeAreFound) {
    FormText form = OnePage();
    form.Field(S("A"), {S("Width=-1"), S("FontSize=0"), S("Alignment=3"), S("AbsTop=low"), S("TabIdx=1.5")})
        .CheckBox(S("B"), {S("States=5"), S("Style=256")});
    EXPECT_THAT(Check(form), ElementsAre("1: A: TabIdx \"1.5\" is no whole number",
                                         "1: A: FontSize \"0\" is out of range (0.1 to 2160)",
                                         "1: A: AbsTop \"low\" is no number",
                                         "1: A: Width \"-1\" is out of range (0 to 2147483647)",
                                         "1: A: Alignment \"3\" is out of range (0 to 2)",
                                         "1: B: Style \"256\" is out of range (0 to 255)",
                                         "1: B: States \"5\" is out of range (1 to 4)"));
}

TEST(CheckForm, AShapeOfNumberSevenDrawsNothing) {
    FormText form = OnePage();
    form.Record(S("SHAPE"),
                FormText::Extent() + QStringList{S("Shape=7"), S("FillColor=0"), S("FillStyle=0"),
                                                 S("BorderType=1"), S("BorderWidth=1"), S("BorderColor=0")});
    EXPECT_THAT(Check(form), ElementsAre("1: SHAPE 1: Shape \"7\" is out of range (0 to 3)"));
}

TEST(CheckForm, OnlyFourLettersOfARecordsWordCount) {
    FormText form = OnePage();
    form.Record(S("FRAMEWORK"), {S("BorderStyle=1")});
    EXPECT_THAT(Check(form), Contains("1: FRAMEWORK 1: AbsLeft is missing"));
}

TEST(CheckForm, AKeyThatStandsTwiceIsFound) {
    FormText form = OnePage();
    form.Field(S("A"), {S("width=7")});
    EXPECT_THAT(Check(form), ElementsAre("1: A: width stands twice"));
}

TEST(CheckForm, APictureThatTheFormDoesNotBringIsFound) {
    FormText form = OnePage();
    form.Picture(S("C:\\Forms\\emblem.bmp")).Field(S("A"));
    EXPECT_THAT(Check(form), ElementsAre("1: PICTURE 1: picture \"emblem.bmp\" is not in the archive"));
    EXPECT_THAT(Check(form, {S("emblem.bmp")}), IsEmpty());
}

TEST(CheckForm, AStationeryImageThatTheFormDoesNotBringIsFound) {
    FormText form;
    form.Page(S("Cover"), {S("PrePrinted=scan.bmp|150|0|0|0|0")});
    EXPECT_THAT(Check(form), ElementsAre("1: page: picture \"scan.bmp\" is not in the archive"));
}

TEST(CheckForm, ADataLineWithNoElementIsFound) {
    FormText form = OnePage();
    form.Field(S("A")).Data(1, {S("a=1"), S("B=2"), S("lost")});
    EXPECT_THAT(Check(form), ElementsAre("data 1: B: design page 1 has no element of that name",
                                         "data 1: page: line without \"=\": \"lost\""));
}

TEST(CheckForm, AStateBeyondThoseOfACheckBoxIsFound) {
    FormText form = OnePage();
    form.CheckBox(S("C"), {S("States=2")}).Data(1, {S("C=")}).Data(1, {S("C=1")}).Data(1, {S("C=2")});
    EXPECT_THAT(Check(form), ElementsAre("data 3: C: \"2\" is no state of the check box"));
}

TEST(CheckForm, ADataPageOfAnUnknownDesignIsFound) {
    FormText form = OnePage();
    form.Field(S("A")).Data(2, {S("A=1")});
    EXPECT_THAT(Check(form), ElementsAre("data 1: page: there is no design page 2"));
}

TEST(CheckForm, DataPagesOutOfOrderAreFound) {
    FormText form = OnePage();
    form.Field(S("A")).Data(1, {}).DataLine(S("BEGIN PAGE 1 DESIGN=1")).DataLine(S("END PAGE"));
    EXPECT_THAT(Check(form), ElementsAre("data 1: page: pages are not numbered in order"));
}

TEST(CheckForm, ADataHeaderWithoutDesignIsFound) {
    FormText form = OnePage();
    form.Field(S("A")).DataLine(S("BEGIN PAGE 1")).DataLine(S("A=1"));
    EXPECT_THAT(Check(form), ElementsAre("form: data: \"BEGIN PAGE 1\" gives no page number and design"));
}

TEST(CheckForm, RecordsThatDoNotCloseAreFound) {
    FormText form = OnePage();
    form.Line(S("BEGIN GADGET")).Field(S("A")).Line(S("END LABEL")).Line(S("stray"));
    EXPECT_THAT(Check(form),
                ElementsAre("1: GADGET 1: END GADGET is missing", "1: page: \"END LABEL\" ends nothing",
                            "1: page: line without \"=\": \"stray\""));
}

TEST(CheckForm, TheEndOfARecordDecidesItsKind) {
    FormText form = OnePage();
    form.Line(S("BEGIN GADGET")).Line(S("BorderStyle=1"));
    for (const QString& line : FormText::Extent())
        form.Line(line);
    form.Line(S("END FRAME"));
    EXPECT_THAT(Check(form), ElementsAre("1: GADGET 1: BEGIN GADGET is ended by \"END FRAME\""));
}

TEST(CheckForm, PageNumbersThatCanNotBeReadAreFound) {
    EXPECT_THAT(Check(S("BEGIN PAGE x\r\nTitle=A\r\nEND PAGE\r\nBEGIN PAGE 2\r\nTitle=B\r\nOrientation=1\r\n"
                        "PaperSize=9\r\nEND PAGE\r\nEND DESIGN\r\n")),
                ElementsAre("form: page: \"BEGIN PAGE x\" gives no page number",
                            "2: page: pages are not numbered in order"));
    EXPECT_THAT(Check(S("BEGIN PAGE 99999\r\nEND PAGE\r\n")),
                ElementsAre("form: page: \"BEGIN PAGE 99999\" gives no page number",
                            "form: design: there is no design page"));
}

TEST(CheckForm, APageThatBeginsTwiceIsFound) {
    FormText form = OnePage();
    form.Line(S("END PAGE")).Line(S("BEGIN PAGE 1")).Field(S("A"));
    EXPECT_THAT(Check(form), ElementsAre("1: page: the page begins twice"));
}

TEST(CheckForm, ATextOfNoFormHasNoDesignPage) {
    EXPECT_THAT(Check(S("")), ElementsAre("form: design: there is no design page"));
    EXPECT_THAT(Check(S("VERSION 1.0.0")), ElementsAre("form: design: there is no design page"));
}

TEST(CheckForm, ANameThatCanNotBeReadBackIsFound) {
    FormText form = OnePage();
    form.Field(S("a=b")).Field(S(" c"));
    EXPECT_THAT(Check(form), ElementsAre("1: a=b: Name holds \"=\", so its value can't be read back",
                                         "1:  c: Name begins with a blank, so its value can't be read back"));
}

TEST(CheckForm, ANameThatReadsAsAPageIsFound) {
    FormText form = OnePage();
    form.Field(S("BEGIN PAGE 9")).Field(S("END PAGES")).Field(S("BEGIN")).Field(S("END DATA"));
    EXPECT_THAT(
        Check(form),
        ElementsAre("1: BEGIN PAGE 9: Name begins with \"BEGIN PAGE\", so its value can't be read back",
                    "1: END PAGES: Name begins with \"END PAGE\", so its value can't be read back"));
}

TEST(CheckForm, AKeyWithOtherCapitalsIsFound) {
    FormText form = OnePage();
    form.Field(S("A"),
               {S("-Width"), S("WIDTH=5"), S("formula=SETME(1)"), S("-ReadOnly"), S("readonly=True")});
    EXPECT_THAT(Check(form),
                ElementsAre("1: A: Formula is written \"formula\"", "1: A: Width is written \"WIDTH\""));
}

TEST(CheckForm, AWordThatLooksLikeAMarkerIsToldAsItIs) {
    FormText form = OnePage();
    form.Record(S("%1 %2"), {S("lost")});
    EXPECT_THAT(Check(form), ElementsAre("1: %1 %2 1: line without \"=\": \"lost\""));
}

TEST(CheckForm, LongNamesAndValuesAreToldByTheirBeginnings) {
    const QString name(1000, u'n');
    FormText form = OnePage();
    form.Field(name, {S("Width=") + name});
    const std::string start(60, 'n');
    EXPECT_THAT(Check(form), ElementsAre("1: " + start + "...: Width \"" + start + "...\" is no number"));
}

TEST(CheckForm, FindingsOfFormulasNameTheirField) {
    FormText form = OnePage();
    form.Formula(S("A"), S("SETME(AD(1,2))")).Formula(S("B"), S("SETME({FIELDS\\Cover,C})"));
    EXPECT_THAT(Check(form), ElementsAre("1: A: Formula: unknown function \"AD\"",
                                         "1: B: Formula: no field \"C\" on design page \"Cover\""));
}

TEST(CheckForm, APageWithoutTitleShiftsTheTitlesOfLaterPages) {
    FormText form;
    form.Page(S(""), {S("-Title")}).Field(S("A")).Page(S("Results")).Field(S("B"));
    form.Formula(S("C"), S("SETME({FIELDS\\Results,A})"));
    EXPECT_THAT(Check(form), ElementsAre("1: page: Title is missing"));
}

TEST(CheckForm, ALineBreakInAFormulaIsABlank) {
    FormText form = OnePage();
    form.Formula(S("A"), S("SETME(1);\x7FSETME(2)"));
    EXPECT_THAT(Check(form), ElementsAre("1: A: Formula: blank outside a string at character 10"));
}

TEST(CheckForm, ARecordOfAHundredThousandKeysIsCheckedOnce) {
    FormText form = OnePage();
    QStringList lines;
    for (int number = 0; number < 100'000; ++number)
        lines << S("key%1=1").arg(number);
    form.Record(S("GADGET"), lines);
    EXPECT_THAT(Check(form), IsEmpty());
}

TEST(CheckForm, ThousandsOfPagesAreCheckedInOnePass) {
    FormText form;
    for (int number = 1; number <= 3000; ++number)
        form.Page(S("Page %1").arg(number)).Formula(S("A"), S("SETME({FIELDS\\Page %1,A})").arg(number));
    for (int number = 1; number <= 30'000; ++number)
        form.Data(1 + number % 3000, {S("A=1")});
    EXPECT_THAT(Check(form), IsEmpty());
}

}  // namespace sheetwright
