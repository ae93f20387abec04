// An import that a person stops leaves no trace.

#include "core/folders.h"
#include "document/undo.h"
#include "fields/editing.h"
#include "import/import_fixture.h"

#include <QDir>

namespace sheetwright {
namespace {

class StoppedImport : public ImportTest {
  protected:
    // The person stops at the n-th question.
    void StopAt(int question) {
        m_ui.onStopQuestion = [this, question] { return ++m_questions >= question; };
    }
    void Count() {
        m_ui.onStopQuestion = [this] { return ++m_questions < 0; };
    }

    // A page for each record; "n" takes no column.
    static FormText Records() {
        FormText form;
        form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")})).Field(S("n"));
        form.Field(S("f"), {S("Formula=SETME({FIELDS\\A,k})"), S("MultiRecordIndex=0")});
        form.CheckBox(S("c"), Takes(S("C"))).PictureField(S("p"));
        form.Page(S("B")).Field(S("b"));
        return form;
    }
    static FormText ThreePages() {
        FormText form = Records();
        form.Data(2, {S("b=first")}).Data(1, {S("k="), S("n=kept"), S("c=2"), S("p=x.png")});
        form.Data(2, {S("b=third")});
        return form;
    }
    [[nodiscard]] QString Table(int records = 3) const {
        QByteArray table("K,C\r\n");
        for (int record = 1; record <= records; ++record)
            table += "k" + QByteArray::number(record) + ",1\r\n";
        return WriteTable(table);
    }
    // A second column brings a value into the trigger's field on each new page.
    static FormText Endless() {
        FormText form;
        form.Page(S("A"))
            .Field(S("k"), {S("DataSource=*,DRIVERS\\meter"), S("NewPageOnReoccur=True")})
            .Data(1, {});
        return form;
    }

    // All lines, of the undo point too.
    [[nodiscard]] QStringList AllLines() const {
        QStringList lines;
        for (int page = 0; page <= m_document->memory.DataPageCount(); ++page)
            lines << Lines(page);
        return lines;
    }
    [[nodiscard]] QStringList FilesOfForm() const {
        return QDir(m_document->MyTempDir).entryList(QDir::Files | QDir::Hidden);
    }

    int m_questions = 0;
};

TEST_F(StoppedImport, PersonIsAskedAfterEach20RecordsAndAtEachPage) {
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K")));
    Count();
    Show(form.Data(1, {}));
    EXPECT_FALSE(Import(*m_document, Table(59)).isStopped);
    EXPECT_EQ(m_questions, 2);
    FormText pages = ThreePages();
    Show(pages);
    Turn(2);
    m_questions = 0;
    EXPECT_FALSE(Import(*m_document, Table(20)).isStopped);
    EXPECT_EQ(m_questions, 19 + 1);
}

TEST_F(StoppedImport, ResultTellsOfNothingElse) {
    FormText form = Endless();
    Show(form);
    StopAt(3);
    const ImportResult result = Import(*m_document, WriteTable("K,V\r\na,1\r\n"));
    EXPECT_TRUE(result.isStopped);
    EXPECT_EQ(result.columns, 0);
    EXPECT_EQ(result.records, 0);
    EXPECT_EQ(result.pagesAdded, 0);
}

TEST_F(StoppedImport, DesignWithoutAnEndCanBeStopped) {
    FormText form = Endless();
    Show(form);
    StopAt(100);
    EXPECT_TRUE(Import(*m_document, WriteTable("K,V\r\na,1\r\n")).isStopped);
    EXPECT_EQ(m_questions, 100);
    EXPECT_EQ(Pages(), QStringList{S("")});
    EXPECT_EQ(m_document->Pages, 1);
}

TEST_F(StoppedImport, LinesAndStateAreAsBefore) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    SetUndo(*m_document);
    m_application->FormVars.Add(S("before"), S("LAST"));
    m_document->Changed = false;
    m_document->PageChanged = true;
    m_ui.SetStatus(S("Before"));
    const QStringList lines = AllLines();
    const QString panel = m_mainWindow.panel;
    ASSERT_TRUE(m_mainWindow.undoEnabled);

    StopAt(2);
    EXPECT_TRUE(Import(*m_document, Table()).isStopped);
    EXPECT_EQ(AllLines(), lines);
    EXPECT_EQ(m_document->Pages, 3);
    EXPECT_EQ(m_document->DataPageNum, 2);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_mainWindow.panel, panel);
    EXPECT_FALSE(m_document->Changed);
    EXPECT_TRUE(m_document->PageChanged);
    EXPECT_TRUE(m_mainWindow.undoEnabled);
    EXPECT_EQ(m_application->FormVars.At(QStringView(u"LAST")), S("before"));
    EXPECT_EQ(m_application->FormVars.Count(), 1);
    EXPECT_EQ(m_ui.statuses.last(), S("Before"));
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(StoppedImport, NothingIsBeingImportedAnyMore) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    StopAt(1);
    Import(*m_document, Table());
    EXPECT_FALSE(m_document->Importing);
    EXPECT_FALSE(m_document->Quiet);
    EXPECT_EQ(m_document->Busy, 0);
    EXPECT_EQ(m_document->CurrentRecord, -1);
    EXPECT_EQ(m_document->DriverData.FileName(), QString());
    EXPECT_TRUE(m_mainWindow.enabled);
}

TEST_F(StoppedImport, WhatWasNotStoredIsStillOnScreen) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    ThePage().Entries.At(2).text = S("unsaved");
    Check(1).SetValue(S("3"));
    Bitmap(1).SetValue(S("y.png"));
    const QStringList lines = AllLines();
    StopAt(2);
    Import(*m_document, Table());
    EXPECT_EQ(Texts(), (QStringList{S(""), S("unsaved"), S("")}));
    EXPECT_EQ(Check(1).Value(), S("3"));
    EXPECT_EQ(Bitmap(1).Value(), S("y.png"));
    EXPECT_EQ(AllLines(), lines);
    EXPECT_EQ(m_window.calls.last(), S("PageChanged")) << "all of it is painted anew";
}

TEST_F(StoppedImport, BlanksAreMarkedAgain) {
    m_mainWindow.blankTicked = true;
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    StopAt(2);
    Import(*m_document, Table());
    EXPECT_EQ(ThePage().Entries.At(1).backColor, 255U);
    EXPECT_EQ(ThePage().Entries.At(2).backColor, 0xFFFFFFU);
}

TEST_F(StoppedImport, WhoWasTypingGoesOn) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    Entries_GotFocus(*m_document, 2);
    ThePage().Entry.ReportText(S("typed"));
    ThePage().Entry.ReportSelection(1, 3);
    m_document->Changed = false;
    StopAt(2);
    Import(*m_document, Table());
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Entry, 2}));
    EXPECT_TRUE(m_window.entryShown);
    EXPECT_EQ(ThePage().Entry.Value(), S("typed"));
    EXPECT_EQ(ThePage().Entry.SelStart(), 1);
    EXPECT_EQ(ThePage().Entry.SelLength(), 3);
    EXPECT_EQ(TextAt(2), S("kept"));
    EXPECT_FALSE(m_document->Changed);
    Unselect(*m_document);
    EXPECT_EQ(TextAt(2), S("typed"));
    EXPECT_TRUE(m_document->Changed);
}

TEST_F(StoppedImport, CheckBoxThatWasEnteredIsEnteredAgain) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    FocusField(*m_document, {ElementKind::Check, 1});
    StopAt(2);
    Import(*m_document, Table());
    EXPECT_EQ(ThePage().CurrentEntry, (ElementRef{ElementKind::Check, 1}));
    EXPECT_EQ(m_window.focused, (ElementRef{ElementKind::Check, 1}));
}

TEST_F(StoppedImport, WithoutAFieldEnteredNoneIs) {
    FormText form = ThreePages();
    Show(form);
    StopAt(1);
    Turn(2);
    Import(*m_document, Table());
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone());
    EXPECT_FALSE(m_window.entryShown);
}

TEST_F(StoppedImport, ListOfTheFieldStandsWhereItStood) {
    SetListFolder(*m_application, m_folder.path());
    Write(S("LISTS/types.csv"), "Code,Class\r\nK1,I\r\nK2,II\r\n");
    FormText form;
    form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    Show(form.Field(S("l"), {S("List=@LISTS\\types,Code")}).Data(1, {S("k="), S("l=K2")}));
    Entries_GotFocus(*m_document, 2);
    ASSERT_NE(m_document->EntryList, nullptr);
    m_document->EntryList->SetPosition(2);
    StopAt(1);
    EXPECT_TRUE(Import(*m_document, Table()).isStopped);
    ASSERT_NE(m_document->EntryList, nullptr);
    EXPECT_EQ(m_document->EntryList, ThePage().Entry.ListTable());
    EXPECT_EQ(m_document->EntryList->Position(), 2);
}

TEST_F(StoppedImport, CopyOfTheFileGoesAndEarlierOnesStay) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    Import(*m_document, WriteTable("K\r\n"));
    const QStringList files = FilesOfForm();
    ASSERT_TRUE(files.contains(S("import1.csv")));
    StopAt(1);
    EXPECT_TRUE(Import(*m_document, Table()).isStopped);
    EXPECT_EQ(FilesOfForm(), files);
}

TEST_F(StoppedImport, NextImportIsAsTheFirst) {
    FormText form = ThreePages();
    Show(form);
    Turn(2);
    StopAt(2);
    Import(*m_document, Table());
    m_ui.onStopQuestion = nullptr;
    const ImportResult result = Import(*m_document, Table());
    EXPECT_FALSE(result.isStopped);
    EXPECT_EQ(result.columns, 2);
    EXPECT_EQ(result.records, 3);
    EXPECT_EQ(result.pagesAdded, 2);
    EXPECT_EQ(m_document->Pages, 5);
    EXPECT_EQ(m_document->DataPageNum, 5);
}

TEST_F(StoppedImport, PairOfPagesIsTakenBackWhole) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    form.Page(S("Second")).Field(S("l"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    Show(form.Data(1, {}));
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    const QStringList lines = AllLines();
    const QStringList files = FilesOfForm();
    StopAt(3);  // of the second run: two pages are added in each
    EXPECT_TRUE(Import(*m_document, Table()).isStopped);
    EXPECT_EQ(AllLines(), lines);
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(FilesOfForm(), files);
    m_ui.onStopQuestion = nullptr;
    EXPECT_EQ(Import(*m_document, Table()).pagesAdded, 5);
    EXPECT_EQ(m_document->Pages, 6);
}

TEST_F(StoppedImport, ScrollBarsStandWhereTheyStood) {
    FormText form = ThreePages();
    m_window.inside = {4000, 4000};
    Show(form);
    Turn(2);
    ThePage().hsbForm.value = 20;
    ThePage().vsbForm.value = 30;
    StopAt(2);
    Import(*m_document, Table());
    EXPECT_EQ(ThePage().hsbForm.value, 20);
    EXPECT_EQ(ThePage().vsbForm.value, 30);
}

}  // namespace
}  // namespace sheetwright
