// How the rules of a record work together: triggers of lines and pages, the last line, what stays.

#include "core/folders.h"
#include "import/import_fixture.h"

namespace sheetwright {
namespace {

using ImportRules = ImportTest;

const QStringList kNewPage{S("NewPageOnChange=True")};
const QStringList kNewLine{S("NewLineOnReoccur=True")};

TEST_F(ImportRules, PagesForALocationAndLinesForItsItems) {
    FormText form;
    form.Page(S("A")).Field(S("l"), Takes(S("L"), 0, QStringList{S("KeyLevel=1")} + kNewPage));
    Lines(form, S("I"), 2, kNewLine);
    Pour(form.Data(1, {}), "L,I\r\nn,1\r\ns,2\r\nn,3\r\nn,4\r\ns,5\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("n|1|3"), S("n|4|"), S("s|2|5")}));
}

TEST_F(ImportRules, PageTriggerComesBeforeTheLineTriggerOfTheSameField) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 3, kNewPage + kNewLine);
    Pour(form.Data(1, {}), "K\r\na\r\na\r\nb\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|a|"), S("b||")}));
}

TEST_F(ImportRules, ReoccurOnALineKeepsChangeFromBeingAsked) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 2, {S("NewLineOnReoccur=True"), S("NewLineOnChange=True")});
    Pour(form.Data(1, {}), "K\r\na\r\na\r\n");
    EXPECT_EQ(Pages(), QStringList{S("a|a")}) << "an equal value begins the next line, too";
}

TEST_F(ImportRules, TriggerWordsThatAreNotTrueAreNone) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=False"), S("NewPageOnChange=1")}));
    Pour(form.Data(1, {}), "K\r\na\r\nb\r\n");
    EXPECT_EQ(Pages(), QStringList{S("b")});
}

TEST_F(ImportRules, TriggerWordMayBeTranslated) {
    Write(S("words.DIC"), "ENGLISH,TRANSLATION\r\nTrue,Wahr\r\nFalse,Falsch\r\n");
    m_application->LoadDictionary(Path(S("words.DIC")));
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=Wahr")}));
    form.Field(S("l"), Takes(S("L"), 0, {S("NewPageOnReoccur=Falsch")})).Data(1, {});
    Pour(form, "K,L\r\na,1\r\n,2\r\nb,3\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|2"), S("b|3")}));
}

TEST_F(ImportRules, ColumnBehindThePageTriggerFiresNoChangeOnTheNewPage) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    form.Field(S("l"), Takes(S("L"), 0, kNewPage)).Data(1, {});
    Pour(form, "K,L\r\na,1\r\nb,2\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|1"), S("b|2")}));
}

// Fields come first, whatever their place in the design.
TEST_F(ImportRules, CheckBoxOfTheTriggersColumnIsNotReachedOnTheOldPage) {
    FormText form;
    form.Page(S("A")).CheckBox(S("c"), Takes(S("K"))).Field(S("k"), Takes(S("K"), 0, kNewPage)).Data(1, {});
    Pour(form, "K\r\n1\r\n2\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("1|1"), S("2|2")}));
}

// The column of the line trigger isn't entered as seen, and so it would be a change on the next line, too.
TEST_F(ImportRules, ColumnOfALineTriggerIsNotSeenBeforeItIsWritten) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 4, {S("NewLineOnChange=True")});
    Pour(form.Data(1, {S("K 2=x"), S("K 3=y")}), "K\r\na\r\nb\r\nb\r\n");
    EXPECT_EQ(Pages(), QStringList{S("a|x|y|b")});
}

TEST_F(ImportRules, BlankBetweenEqualValuesBeginsALine) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 4);
    Lines(form, S("K"), 4, {S("NewLineOnChange=True")});
    Pour(form.Data(1, {}), "V,K\r\n1,a\r\n2,\r\n3,a\r\n4,a\r\n");
    EXPECT_EQ(Pages(), QStringList{S("2|4|||a|a||")});
}

// The check box of line 1 is reached before the trigger, and so the page has a second line from the start.
TEST_F(ImportRules, CheckBoxRaisesTheLastLine) {
    FormText form;
    form.Page(S("A")).CheckBox(S("c"), Takes(S("C"), 1));
    Lines(form, S("K"), 1, kNewLine);
    form.Field(S("K 2"), Takes(S("K"), 1)).Data(1, {S("K 1=old")});
    Pour(form, "C,K\r\n1,a\r\n");
    EXPECT_EQ(Pages(), QStringList{S("old|a|1")});
}

TEST_F(ImportRules, LastLineStaysOnTheNextPage) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 3, kNewLine);
    Pour(form.Data(1, {}), "K\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("1|2|3"), S("4|5|6"), S("7||")}));
}

// On the first record only line 0 was seen, since a value that is blank is passed over with its column.
TEST_F(ImportRules, BlankColumnRaisesNoLastLine) {
    FormText form;
    form.Page(S("A"));
    form.Field(S("w"), Takes(S("W"), 5));
    Lines(form, S("K"), 1, kNewLine);
    form.Data(1, {S("K 1=old")});
    Pour(form, "W,K\r\n,a\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("|old"), S("|a")}));
}

TEST_F(ImportRules, LineThatIsFullIsPassedOver) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 4);
    Lines(form, S("K"), 4, kNewLine);
    Pour(form.Data(1, {S("K 1=x"), S("K 2=y")}), "V,K\r\n1,a\r\n");
    EXPECT_EQ(Pages(), QStringList{S("||1||x|y|a|")});
}

TEST_F(ImportRules, PagesGoToTheEndOfTheFormAndOthersStay) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    form.Page(S("B")).Field(S("b"));
    Show(form.Data(2, {S("b=1")}).Data(1, {}).Data(2, {S("b=2")}).Data(1, {S("k=own")}));
    Turn(2);
    EXPECT_EQ(Import(*m_document, WriteTable("K\r\na\r\nb\r\nc\r\n")).pagesAdded, 2);
    EXPECT_EQ(Pages(), (QStringList{S("1"), S("a"), S("2"), S("own"), S("b"), S("c")}));
    EXPECT_EQ(m_document->DataPageNum, 6);
}

// The formula's value stands there when the next record comes.
TEST_F(ImportRules, FormulaThatFillsTheTriggersFieldBeginsAPageForEachRecord) {
    FormText form;
    form.Page(S("A")).Field(S("k"), {S("DataSource=K,DRIVERS\\meter"), S("MultiRecordIndex=0"),
                                     S("NewPageOnReoccur=True"), S("Formula=SETME(\"f\")")});
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "V,K\r\n1,a\r\n2,\r\n3,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("f|2"), S("f|3")})) << "a blank value asks for nothing";
}

TEST_F(ImportRules, CheckBoxOfAnAbandonedPassKeepsItsStateOnTheOldPage) {
    FormText form;
    form.Page(S("A")).CheckBox(S("c"), Takes(S("C")));
    form.Field(S("v"), Takes(S("V"))).Field(S("k"), Takes(S("K"), 0, kNewPage)).Data(1, {});
    Pour(form, "C,V,K\r\n1,x,a\r\n3,y,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("x|a|3"), S("y|b|3")})) << "fields are taken back";
}

// Only the field itself is taken back, as check boxes aren't either.
TEST_F(ImportRules, WhatAListFilledIsNotTakenBack) {
    SetListFolder(*m_application, m_folder.path());
    Write(S("LISTS/types.csv"), "Code,Class\r\nK1,I\r\nK2,II\r\n");
    FormText form;
    form.Page(S("A")).Field(S("code"), Takes(S("Code"), 0, {S("List=@LISTS\\types,Code")}));
    form.Field(S("class"), {S("DataSource=LISTS\\types,Class"), S("MultiRecordIndex=0")});
    form.Field(S("k"), Takes(S("K"), 0, kNewPage)).Data(1, {});
    Pour(form, "Code,K\r\nK1,a\r\nK2,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("K1|II|a"), S("K2|II|b")}));
}

TEST_F(ImportRules, CounterKeepsThePlaceholderOfATranslationLast) {
    Write(S("words.DIC"), "ENGLISH,TRANSLATION\r\nImporting: Record %1,Satz %1\r\n");
    m_application->LoadDictionary(Path(S("words.DIC")));
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"))).Data(1, {});
    Pour(form, "K\r\na\r\nb\r\n");
    EXPECT_TRUE(m_ui.statuses.contains(S("Satz 1/2")));
    EXPECT_TRUE(m_ui.statuses.contains(S("Satz 2/2")));
}

}  // namespace
}  // namespace sheetwright
