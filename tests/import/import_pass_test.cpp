#include "import/import_pass.h"

#include "core/folders.h"
#include "import/import_fixture.h"

#include <QFile>

namespace sheetwright {
namespace {

using RecordPassTest = ImportTest;

TEST_F(RecordPassTest, FieldThatMustNotReoccurBeginsAPage) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "K,V\r\na,1\r\na,2\r\nb,3\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|1"), S("a|2"), S("b|3")}));
}

TEST_F(RecordPassTest, FieldWithoutATextNeverFiresOnReoccur) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "K,V\r\na,1\r\n,2\r\n,3\r\n");
    EXPECT_EQ(Pages(), QStringList{S("a|3")});
}

// Two columns fill it: the second finds the first one's value on each new page.
TEST_F(RecordPassTest, FieldThatIsNeverBlankAddsPagesUntilThereAreTooMany) {
    FormText form;
    form.Page(S("A")).Field(S("k"), {S("DataSource=*,DRIVERS\\meter"), S("NewPageOnReoccur=True")});
    Show(form.Data(1, {}));
    EXPECT_EQ(FailureOf([&] { Import(*m_document, WriteTable("K,V\r\na,1\r\n")); }), 6);
    EXPECT_EQ(m_document->Pages, 32767);
}

TEST_F(RecordPassTest, FirstRecordFiresNoChange) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnChange=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {S("k=old"), S("v=old")}),
         "K,V\r\na,1\r\na,2\r\nb,3\r\nb,4\r\nc,5\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|2"), S("b|4"), S("c|5")}));
}

TEST_F(RecordPassTest, ValueBehindABlankCountsAsAChange) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnChange=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "K,V\r\na,1\r\n,2\r\na,3\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|2"), S("a|3")}));
}

TEST_F(RecordPassTest, ReoccurKeepsChangeFromBeingAsked) {
    FormText form;
    form.Page(S("A")).Field(S("k"),
                            Takes(S("K"), 1, {S("NewPageOnReoccur=True"), S("NewPageOnChange=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "K,V\r\na,1\r\nb,2\r\n");
    EXPECT_EQ(Pages(), QStringList{S("|2")}) << "its line is never reached, so it stays blank";
}

TEST_F(RecordPassTest, PageTriggersLookAtFieldsOfAllLines) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 5, {S("NewPageOnChange=True")}));
    Pour(form.Field(S("v"), Takes(S("V"))).Data(1, {}), "K,V\r\na,1\r\nb,2\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("|1"), S("|2")}));
}

TEST_F(RecordPassTest, FieldThatMustNotReoccurOnALineBeginsTheNextLine) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 3);
    Lines(form, S("K"), 3, {S("NewLineOnReoccur=True")});
    Pour(form.Data(1, {}), "V,K\r\n1,a\r\n2,b\r\n3,c\r\n4,d\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("1|2|3|a|b|c"), S("4|||d||")}));
}

TEST_F(RecordPassTest, ChangeOnALineNeedsATextAndAnotherValue) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 3);
    Lines(form, S("K"), 3, {S("NewLineOnChange=True")});
    Pour(form.Data(1, {}), "V,K\r\n1,a\r\n2,a\r\n3,b\r\n4,b\r\n");
    EXPECT_EQ(Pages(), QStringList{S("2|4||a|b|")});
}

// "V" has been entered as seen when "K" begins the line: otherwise it would begin another one.
TEST_F(RecordPassTest, ColumnsBeforeTheTriggerDontFireAgainOnTheNewLine) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 3, {S("NewLineOnChange=True")});
    Lines(form, S("K"), 3, {S("NewLineOnReoccur=True")});
    Pour(form.Data(1, {S("V 2=x")}), "V,K\r\n,a\r\n2,b\r\n");
    EXPECT_EQ(Pages(), QStringList{S("|2||a|b|")});
}

TEST_F(RecordPassTest, LastLineSeenSoFarTurnsALineIntoAPage) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 1, {S("NewLineOnReoccur=True")});
    form.Field(S("K 2"), Takes(S("K"), 1)).Data(1, {S("K 1=old")});
    Pour(form, "K\r\na\r\nb\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("old|"), S("a|b")}))
        << "at first line 1 has not been seen, on the second record it has";
}

TEST_F(RecordPassTest, NextPageIsFilledLineByLineToo) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 2, {S("NewLineOnReoccur=True")});
    Pour(form.Data(1, {}), "K\r\na\r\nb\r\nc\r\nd\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|b"), S("c|d")}));
}

TEST_F(RecordPassTest, RecordIsNeverHalfOnTheOldPage) {
    FormText form;
    form.Page(S("A"))
        .Field(S("v"), Takes(S("V")))
        .Field(S("k"), Takes(S("K"), 0, {S("NewPageOnChange=True")}));
    Pour(form.Data(1, {}), "V,K\r\n1,a\r\n2,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("1|a"), S("2|b")}));
}

TEST_F(RecordPassTest, CheckBoxesAreNotTakenBack) {
    FormText form;
    form.Page(S("A")).CheckBox(S("c"), Takes(S("C")));
    form.Field(S("k"), Takes(S("K"), 0, {S("NewPageOnChange=True")})).Data(1, {});
    Pour(form, "C,K\r\n1,a\r\n2,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|2"), S("b|2")}));
}

// Two columns wrote the field; the later of the two old texts stays.
TEST_F(RecordPassTest, TextsAreTakenBackFromTheFirstToTheLast) {
    FormText form;
    form.Page(S("A")).Field(S("v"), {S("DataSource=V,DRIVERS\\meter;W,DRIVERS\\meter")});
    form.Field(S("k"), Takes(S("K"), 0, {S("NewPageOnChange=True")})).Data(1, {});
    Pour(form, "V,W,K\r\n1,2,a\r\n3,4,b\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("3|a"), S("4|b")}));
}

TEST_F(RecordPassTest, BlanksWriteNothing) {
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Field(S("w"), Takes(S("W"))).Data(1, {S("v=old")});
    Pour(form, "V,W\r\n,1\r\n");
    EXPECT_EQ(Pages(), QStringList{S("old|1")});
}

TEST_F(RecordPassTest, BooleansBecomeWordsAndDatesTheirDisplay) {
    FormText form;
    form.Page(S("A")).Field(S("b"), Takes(S("B"))).Field(S("d"), Takes(S("D"))).Field(S("t"), Takes(S("T")));
    const QByteArray inf("[B]\r\nDataType=BOOLEAN\r\n[D]\r\nDataType=DATE\r\n");
    Pour(form.Data(1, {}), "B,D,T\r\n-1,19991231,0017\r\n", inf);
    EXPECT_EQ(Pages(), QStringList{S("True|31/12/1999|0017")});
    Import(*m_document, WriteTable("B,D,T\r\n1,20000101,x\r\n", inf));
    EXPECT_EQ(Pages(), QStringList{S("False|01/01/2000|x")});
}

TEST_F(RecordPassTest, CheckBoxesTakeTheNumberWithoutItsSign) {
    FormText form;
    form.Page(S("A"))
        .CheckBox(S("c"), Takes(S("C")))
        .CheckBox(S("d"), Takes(S("D")))
        .CheckBox(S("e"), Takes(S("E")));
    Pour(form.Data(1, {}), "C,D,E\r\n-1,3 of 4,9\r\n");
    EXPECT_EQ(Pages(), QStringList{S("1|3|0")}) << "a state beyond the last is none";
}

TEST_F(RecordPassTest, CheckBoxesStandOnTheirLine) {
    FormText form;
    form.Page(S("A"));
    form.CheckBox(S("c1"), Takes(S("C"), 0)).CheckBox(S("c2"), Takes(S("C"), 1));
    Lines(form, S("K"), 2, {S("NewLineOnReoccur=True")});
    Pour(form.Data(1, {}), "K,C\r\na,1\r\nb,2\r\n");
    EXPECT_EQ(Pages(), QStringList{S("a|b|1|2")});
}

TEST_F(RecordPassTest, LineThatIsNoNumberOfTheModelEndsTheRun) {
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"), 0, {S("MultiRecordIndex=99999")})).Data(1, {});
    Show(form);
    EXPECT_EQ(FailureOf([&] { Import(*m_document, WriteTable("V\r\n1\r\n")); }), 6);
}

// Field 1 holds a code; the others take what the list says of it.
class ListedImport : public RecordPassTest {
  protected:
    ListedImport() {
        SetListFolder(*m_application, m_folder.path());
        Write(S("LISTS/types.csv"), "Code,Class,Name\r\nK1,I,Kettle\r\nK2,II,Drill\r\nK2,III,Second\r\n");
    }
    static FormText FormWithList(int lines = 1, const QStringList& more = {}) {
        FormText form;
        form.Page(S("A"));
        Lines(form, S("Code"), lines, QStringList{S("List=@LISTS\\types,Code")} + more);
        for (int line = 0; line < lines; ++line)
            form.Field(S("Class %1").arg(line + 1), {S("DataSource=Class,DRIVERS\\meter;LISTS\\types,Class"),
                                                     S("MultiRecordIndex=%1").arg(line)});
        return form;
    }
};

TEST_F(ListedImport, ValueOfAListFillsTheFieldsThatTakeItsOtherColumns) {
    FormText form = FormWithList();
    form.Field(S("Name"), {S("DataSource=LISTS\\types,Name"), S("MultiRecordIndex=0")});
    Pour(form.Data(1, {}), "Code\r\nK2\r\n");
    EXPECT_EQ(Pages(), QStringList{S("K2|II|Drill")}) << "the first of equal ones";
}

TEST_F(ListedImport, ValueThatIsNotInTheListDoesNothing) {
    FormText form = FormWithList();
    Pour(form.Data(1, {S("Class 1=old")}), "Code\r\nk2\r\n");
    EXPECT_EQ(Pages(), QStringList{S("k2|old")});
}

TEST_F(ListedImport, ListThatIsNotThereDoesNothing) {
    QFile::remove(Path(S("LISTS/types.csv")));
    FormText form = FormWithList();
    Pour(form.Data(1, {S("Class 1=old")}), "Code\r\nK1\r\n");
    EXPECT_EQ(Pages(), QStringList{S("K1|old")});
}

TEST_F(ListedImport, OnlyFieldsOfTheSameLineAreFilled) {
    FormText form = FormWithList(3, {S("NewLineOnReoccur=True")});
    Pour(form.Data(1, {S("Class 3=old")}), "Code\r\nK1\r\nK2\r\n");
    EXPECT_EQ(Pages(), QStringList{S("K1|K2||I|II|old")});
}

TEST_F(ListedImport, ColumnOfTheFileBehindTheListWins) {
    FormText form = FormWithList();
    Pour(form.Data(1, {}), "Code,Class\r\nK1,own\r\n");
    EXPECT_EQ(Pages(), QStringList{S("K1|own")});
}

TEST_F(ListedImport, EditorStaysAsItWas) {
    FormText form = FormWithList();
    Show(form.Data(1, {}));
    ThePage().Entry.design.MultiRecordIndex = 7;
    Import(*m_document, WriteTable("Other\r\nK1\r\n"));
    Import(*m_document, WriteTable("Code\r\nK1\r\n"));
    EXPECT_EQ(m_document->EntryList, ThePage().Entry.ListTable())
        << "of the field that is entered at the end";
}

}  // namespace
}  // namespace sheetwright
