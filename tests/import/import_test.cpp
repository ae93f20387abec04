#include "import/import.h"

#include "fields/editing.h"
#include "import/import_fixture.h"

#include <QFileInfo>

namespace sheetwright {
namespace {

// Not "Import", which is the function's.
using ImportRunTest = ImportTest;

FormText OneField(const QStringList& record) {
    FormText form;
    form.Page(S("A")).Field(S("v"), record).Data(1, {});
    return form;
}

TEST_F(ImportRunTest, ReportsWhatItDoes) {
    FormText form = OneField(Takes(S("V")));
    Pour(form, "V\r\na\r\nb\r\n");
    const QStringList expected{S("Initializing..."), S("Sorting..."), S("Importing data..."),
                               S("Importing: Record 1/2"), S("Importing: Record 2/2")};
    EXPECT_EQ(m_ui.statuses.first(expected.size()), expected);
    ASSERT_GE(m_ui.statuses.size(), 2);
    EXPECT_EQ(m_ui.statuses.last(), S("Ready"));
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(ImportRunTest, BarMovesAfterEachTwentyRecords) {
    FormText form = OneField(Takes(S("V")));
    QByteArray table("V\r\n");
    for (int record = 1; record <= 50; ++record)
        table += QByteArray::number(record) + "\r\n";
    Pour(form, table);
    ASSERT_GE(m_ui.progress.size(), 4U);
    EXPECT_EQ(std::vector<int>(m_ui.progress.begin(), m_ui.progress.begin() + 4),
              (std::vector<int>{100, 0, 40, 80}));
}

TEST_F(ImportRunTest, LastPageStaysOnScreenWithItsFirstFieldEntered) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")})).Data(1, {});
    Pour(form, "K\r\na\r\nb\r\n");
    EXPECT_EQ(m_document->DataPageNum, 2);
    EXPECT_EQ(TextAt(1), S("b"));
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
    EXPECT_TRUE(m_window.entryShown);
    EXPECT_TRUE(m_document->Changed);
    EXPECT_FALSE(m_document->PageChanged);
    EXPECT_FALSE(m_document->Importing);
    EXPECT_FALSE(m_document->Quiet);
    EXPECT_EQ(m_document->Busy, 0);
    EXPECT_EQ(m_document->CurrentRecord, -1);
    EXPECT_EQ(m_mainWindow.calls.count(S("RefreshPageList")), 1) << "once, not for each page";
}

TEST_F(ImportRunTest, TableIsOpenOnlyMeanwhile) {
    FormText form = OneField(Takes(S("V")));
    Pour(form, "V\r\na\r\n");
    EXPECT_EQ(m_document->DriverData.FileName(), QString());
    EXPECT_EQ(m_document->DriverData.Columns().Count(), 0);
}

TEST_F(ImportRunTest, FileWithoutMatchingColumnsChangesNothing) {
    FormText form = OneField(Takes(S("V")));
    Show(form);
    m_document->Changed = false;
    Import(*m_document, WriteTable("Other\r\na\r\nb\r\n"));
    EXPECT_EQ(Pages(), QStringList{S("")});
    EXPECT_TRUE(m_document->Changed);
    EXPECT_TRUE(m_ui.statuses.contains(S("Importing: Record 2/2")));
}

TEST_F(ImportRunTest, FieldsThatTakeNoColumnStay) {
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Field(S("w")).PictureField(S("p"));
    Pour(form.Data(1, {S("v=old"), S("w=kept")}), "V,w\r\nnew,x\r\n");
    EXPECT_EQ(TextAt(1), S("new"));
    EXPECT_EQ(TextAt(2), S("kept"));
}

TEST_F(ImportRunTest, BeginsOnTheFirstLineOfThePageOnScreen) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("V"), 2);
    Show(form.Data(1, {S("V 1=1"), S("V 2=2")}).Data(1, {S("V 1=3"), S("V 2=4")}));
    Turn(2);
    Import(*m_document, WriteTable("V\r\nnew\r\n"));
    EXPECT_EQ(Pages(), (QStringList{S("1|2"), S("new|4")}));
}

TEST_F(ImportRunTest, RecordsAreSortedByKeyLevels) {
    FormText form;
    form.Page(S("A")).Field(S("n"), Takes(S("N"), 0, {S("KeyLevel=2"), S("NewPageOnReoccur=True")}));
    form.Field(S("p"), Takes(S("P"), 0, {S("KeyLevel=1")})).Data(1, {});
    Pour(form, "N,P\r\n2,b\r\n1,b\r\n3,a\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("3|a"), S("1|b"), S("2|b")}));
}

TEST_F(ImportRunTest, WithoutKeysRecordsKeepTheirOrder) {
    FormText form = OneField(Takes(S("V"), 0, {S("NewPageOnReoccur=True")}));
    Pour(form, "V\r\nc\r\na\r\nb\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("c"), S("a"), S("b")}));
}

TEST_F(ImportRunTest, MissingKeyLevelsAreLoggedAndTheRunGoesOn) {
    FormText form;
    form.Page(S("A")).Field(S("n"), Takes(S("N"), 0, {S("KeyLevel=3"), S("NewPageOnReoccur=True")}));
    form.Field(S("p"), Takes(S("P"), 0, {S("KeyLevel=2")})).Data(1, {});
    Pour(form, "N,P\r\n2,b\r\n1,b\r\n3,a\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("3|a"), S("1|b"), S("2|b")}));
    ASSERT_EQ(LogRows().size(), 1);
    EXPECT_TRUE(LogRows()[0].startsWith(S("Import - Missing KeyLevels|")));
    EXPECT_TRUE(LogRows()[0].endsWith(u'|' + m_document->Tag));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(ImportRunTest, HighestKeyLevelCostsOneSort) {
    FormText form = OneField(Takes(S("V"), 0, {S("KeyLevel=32767"), S("NewPageOnReoccur=True")}));
    Pour(form, "V\r\nb\r\na\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a"), S("b")}));
}

TEST_F(ImportRunTest, NameOfAKeyColumnMayHoldACommaOrBeBlank) {
    FormText form = OneField(Takes(S("Serial, maker"), 0, {S("KeyLevel=1"), S("NewPageOnReoccur=True")}));
    Pour(form, "V,\"Serial, maker\"\r\n1,b\r\n2,a\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a"), S("b")}));
    FormText blank = OneField(Takes({}, 0, {S("KeyLevel=1"), S("NewPageOnReoccur=True")}));
    Pour(blank, "V,\r\n1,b\r\n2,a\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a"), S("b")}));
}

TEST_F(ImportRunTest, FormKeepsACopyOfEachFile) {
    FormText form = OneField(Takes(S("V")));
    Pour(form, "V\r\na\r\n");
    Import(*m_document, WriteTable("V\r\nb\r\n"));
    EXPECT_EQ(ApplicationTest::Read(S("temporary/import1.csv")), "V\r\na\r\n");
    EXPECT_EQ(ApplicationTest::Read(S("temporary/import2.csv")), "V\r\nb\r\n");
}

TEST_F(ImportRunTest, BlanksAreMarkedAgainAtTheEnd) {
    m_mainWindow.blankTicked = true;
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Field(S("w")).Data(1, {});
    Show(form);
    EXPECT_EQ(ThePage().Entries.At(1).backColor, 255U);
    Import(*m_document, WriteTable("V\r\na\r\n"));
    EXPECT_EQ(ThePage().Entries.At(1).backColor, 0xFFFFFFU);
    EXPECT_EQ(ThePage().Entries.At(2).backColor, 255U);
}

TEST_F(ImportRunTest, WhatIsBeingTypedIsTakenFirst) {
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Field(S("w")).Data(1, {});
    Show(form);
    Entries_GotFocus(*m_document, 2);
    ThePage().Entry.ReportText(S("typed"));
    Import(*m_document, WriteTable("V\r\na\r\n"));
    EXPECT_EQ(Pages(), QStringList{S("a|typed")});
}

TEST_F(ImportRunTest, FormulasOfTheLineRunForEachRecordAndSeeItsColumns) {
    FormText form;
    form.Page(S("A"));
    Lines(form, S("K"), 2, {S("NewLineOnReoccur=True")});
    for (int line = 0; line < 2; ++line)
        form.Field(S("o%1").arg(line + 1),
                   {S("Formula=SETME({DRIVERS\\meter,Other})"), S("MultiRecordIndex=%1").arg(line)});
    Pour(form.Data(1, {}), "K,Other\r\na,first\r\nb,second\r\n");
    EXPECT_EQ(Pages(), QStringList{S("a|b|first|second")});
}

TEST_F(ImportRunTest, AllFormulasRunAtTheEnd) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    form.Formula(S("n"), S("SETME(PAGENUMBER)")).Data(1, {});
    Pour(form, "K\r\na\r\nb\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|1"), S("b|2")}));
}

TEST_F(ImportRunTest, FileThatIsNotThereIsAFailureAndLeavesThePage) {
    FormText form = OneField(Takes(S("V")));
    Show(form);
    EXPECT_EQ(FailureOf([&] { Import(*m_document, Path(S("DRIVERS/meter/no.csv"))); }), 53);
    RecoverFromFailedPass(*m_document);
    EXPECT_FALSE(m_document->Importing);
    EXPECT_EQ(m_document->Busy, 0);
}

TEST_F(ImportRunTest, FailureEndsTheRunWithoutPuttingThingsBack) {
    m_mainWindow.blankTicked = true;
    FormText form;
    form.Page(S("A")).Field(S("v"), Takes(S("V"))).Field(S("w"));
    form.Field(S("f"), {S("Formula=SETME(IF(\"x\",1,2))"), S("MultiRecordIndex=0")}).Data(1, {});
    Show(form);
    EXPECT_EQ(FailureOf([&] { Import(*m_document, WriteTable("V\r\na\r\nb\r\n")); }), 13);
    EXPECT_TRUE(m_document->Importing);
    EXPECT_TRUE(m_ui.progressShown);
    EXPECT_EQ(m_ui.statuses.last(), S("Importing: Record 1/2"));
    EXPECT_EQ(ThePage().Entries.At(2).backColor, 0xFFFFFFU);
    EXPECT_FALSE(m_document->Quiet);
    EXPECT_EQ(m_document->Busy, 0);

    RecoverFromFailedPass(*m_document);
    EXPECT_FALSE(m_document->Importing);
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_EQ(m_document->CurrentRecord, -1);
    EXPECT_EQ(m_document->DriverData.FileName(), QString());
    EXPECT_EQ(ThePage().Entries.At(2).backColor, 255U);
    EXPECT_EQ(TextAt(1), S("a"));
}

// While it shows a message other commands of the form may come in.
TEST_F(ImportRunTest, RunIsNotReentered) {
    FormText form = OneField(Takes(S("V")));
    Show(form);
    m_document->Importing = true;
    m_document->Busy = 1;
    Import(*m_document, WriteTable("V\r\na\r\n"));
    EXPECT_EQ(TextAt(1), QString());
    RecoverFromFailedPass(*m_document);
    EXPECT_TRUE(m_document->Importing) << "it goes on";
    m_document->Busy = 0;
    Import(*m_document, WriteTable("V\r\na\r\n"));
    EXPECT_EQ(TextAt(1), S("a")) << "one that failed is over";
}

TEST_F(ImportRunTest, TellsNothingOfPagesWhileRecordsComeIn) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")})).Data(1, {});
    Pour(form, "K\r\na\r\nb\r\nc\r\n");
    const qsizetype begin = m_ui.statuses.indexOf(S("Importing data..."));
    EXPECT_EQ(
        m_ui.statuses.sliced(begin + 1, 3),
        (QStringList{S("Importing: Record 1/3"), S("Importing: Record 2/3"), S("Importing: Record 3/3")}));
}

// "First" and "Second" take the same file.
class LinkedImport : public ImportTest {
  protected:
    static FormText Pair(const QStringList& second = {S("NewPageOnReoccur=True")}) {
        FormText form;
        form.Page(S("First")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
        form.Page(S("Second")).Field(S("l"), Takes(S("K"), 0, second));
        form.Page(S("Other")).Field(S("o"), Takes(S("K")));
        return form;
    }
    [[nodiscard]] QStringList Designs() const {
        QStringList designs;
        for (int page = 1; page <= m_document->memory.DataPageCount(); ++page)
            designs << S("%1:%2").arg(m_document->memory.WhichDesign(page)).arg(ValuesOf(page));
        return designs;
    }
    void PourPair(FormText& form, const QByteArray& table, const QByteArray& pairs = "First|Second\r\n") {
        Show(form);
        Forget();
        Write(S("temporary/linkedpages.txt"), pairs);
        Import(*m_document, WriteTable(table));
    }
};

TEST_F(LinkedImport, OneFileFillsBothPagesInTurn) {
    FormText form = Pair();
    PourPair(form.Data(1, {}).Data(2, {}), "K\r\na\r\nb\r\nc\r\n");
    EXPECT_EQ(Designs(), (QStringList{S("1:a"), S("2:a"), S("1:b"), S("2:b"), S("1:c"), S("2:c")}));
    EXPECT_EQ(m_document->DataPageNum, 6);
    EXPECT_EQ(TextAt(1), S("c"));
    EXPECT_FALSE(m_document->PageChanged);
}

TEST_F(LinkedImport, CompanionPageIsAddedWhereThereIsNone) {
    FormText form = Pair();
    PourPair(form.Data(1, {}), "K\r\na\r\nb\r\n");
    EXPECT_EQ(Designs(), (QStringList{S("1:a"), S("2:a"), S("1:b"), S("2:b")}));
}

TEST_F(LinkedImport, CompanionPageIsAddedBeforeAPageOfAnotherKind) {
    FormText form = Pair();
    PourPair(form.Data(1, {}).Data(3, {S("o=kept")}), "K\r\na\r\n");
    EXPECT_EQ(Designs(), (QStringList{S("1:a"), S("2:a"), S("3:kept")}));
}

TEST_F(LinkedImport, MoreCompanionsThanFirstPagesStandAtTheEnd) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K")));
    form.Page(S("Second")).Field(S("l"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    PourPair(form.Data(1, {}), "K\r\na\r\nb\r\nc\r\n");
    EXPECT_EQ(Designs(), (QStringList{S("1:c"), S("2:a"), S("2:b"), S("2:c")}));
}

TEST_F(LinkedImport, PageThatIsNotNamedTakesNothingAndNothingIsSaid) {
    FormText form = Pair();
    Show(form.Data(3, {S("o=old")}));
    m_document->Changed = false;
    Forget();
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    Import(*m_document, WriteTable("K\r\na\r\n"));
    EXPECT_EQ(TextAt(1), S("old"));
    EXPECT_FALSE(m_document->Changed);
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_FALSE(QFileInfo::exists(Path(S("temporary/import1.csv"))));
}

TEST_F(LinkedImport, NextImportBeginsAnew) {
    FormText form = Pair();
    PourPair(form.Data(1, {}), "K\r\na\r\n");
    Turn(1);
    Import(*m_document, WriteTable("K\r\nb\r\n"));
    EXPECT_EQ(Designs(), (QStringList{S("1:a"), S("2:a"), S("1:b"), S("2:b")}));
    Import(*m_document, WriteTable("K\r\nc\r\n"));
    EXPECT_EQ(m_document->Pages, 4) << "a page of the second design isn't named";
}

TEST_F(LinkedImport, BothRunsKeepACopy) {
    FormText form = Pair();
    PourPair(form.Data(1, {}), "K\r\na\r\n");
    EXPECT_TRUE(QFileInfo::exists(Path(S("temporary/import2.csv"))));
}

TEST_F(LinkedImport, FailureLeavesNoLinkedImportBehind) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"), 0, {S("MultiRecordIndex=99999")}));
    form.Page(S("Second")).Field(S("l"), Takes(S("K"))).Data(1, {});
    Show(form);
    Write(S("temporary/linkedpages.txt"), "Second|First\r\n");
    Import(*m_document, WriteTable("K\r\na\r\n"));
    EXPECT_EQ(Designs(), QStringList{S("1:")}) << "not named";
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    EXPECT_EQ(FailureOf([&] { Import(*m_document, WriteTable("K\r\na\r\n")); }), 6);
    RecoverFromFailedPass(*m_document);
    Write(S("temporary/linkedpages.txt"), "Other|Second\r\n");
    Import(*m_document, WriteTable("K\r\na\r\n"));
    EXPECT_EQ(Designs(), QStringList{S("1:")});
}

}  // namespace
}  // namespace sheetwright
