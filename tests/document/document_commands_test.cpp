#include "document/document_commands.h"

#include "core/folders.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "document/page.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace sheetwright {
namespace {

const ShownMessage& NotThere() {
    static const ShownMessage message{
        S("Please check the path is valid and the file is not in use by any other applications."),
        S("Unable to open file"), MessageIcon::Critical};
    return message;
}
const ShownMessage& Corrupt() {
    static const ShownMessage message{S("Corrupt form file. Cannot continue."), S("Load form"),
                                      MessageIcon::Critical};
    return message;
}

FormText SmallForm() {
    FormText form;
    form.Page(S("One")).Field(S("a")).Field(S("b")).CheckBox(S("c"));
    return form;
}

class DocumentCommands : public ApplicationTest {
  protected:
    DocumentCommands() {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->mainWindow = &m_mainWindow;
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        m_application->LoadPaperTable();
    }

    // A form file: plain text, as those of older versions.
    QString WriteForm(const QString& name, FormText form = SmallForm()) const {
        return Write(name, form.Bytes());
    }
    void OpenTemplate(const QString& path) {
        OpenaftFile(
            *m_application, path, [this]() -> frmSheetwright& { return Make(); }, m_unload);
    }
    void Open(const QString& path) {
        OpenForm(
            *m_application, path, [this]() -> frmSheetwright& { return Make(); }, m_unload);
    }
    [[nodiscard]] frmSheetwright& Last() const { return *m_documents.back(); }
    [[nodiscard]] int CountOf(const ShownMessage& message) const {
        return static_cast<int>(std::ranges::count(m_ui.messages, message));
    }
    [[nodiscard]] QStringList TempDirectories() const {
        return QDir(TempRoot(*m_application)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }

    RecordingMainWindow m_mainWindow;
    RecordingWindow m_window;
    std::vector<std::unique_ptr<frmSheetwright>> m_documents;
    int m_made = 0;
    int m_unloaded = 0;

  private:
    frmSheetwright& Make() {
        ++m_made;
        m_documents.push_back(std::make_unique<frmSheetwright>(*m_application));
        Last().window = &m_window;
        return Last();
    }

    UnloadDocument m_unload = [this](frmSheetwright& document) {
        ++m_unloaded;
        std::erase_if(m_documents, [&](const auto& open) { return open.get() == &document; });
    };
};

TEST_F(DocumentCommands, TemplateOpensAsANewDocument) {
    const QString path = WriteForm(S("templates/sheet.aft"));
    OpenTemplate(path);
    ASSERT_EQ(m_documents.size(), 1U);
    EXPECT_EQ(Last().Tag, path);
    EXPECT_EQ(Last().Caption, S("(Untitled)"));
    EXPECT_TRUE(Last().DoSaveAsOnly);
    EXPECT_FALSE(Last().MyReadonly);
    EXPECT_FALSE(Last().Changed);
    EXPECT_EQ(TemplateFolder(*m_application), GetFolder(path));
    EXPECT_EQ(m_application->CurrentTempDir, Last().MyTempDir);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_EQ(Last().Busy, 0);
}

TEST_F(DocumentCommands, FormOpensAsItself) {
    const QString path = WriteForm(S("forms/sheet.aff"), SmallForm().Data(1, {S("a=one"), S("c=2")}));
    const QString templates = TemplateFolder(*m_application);
    Open(path);
    ASSERT_EQ(m_documents.size(), 1U);
    EXPECT_EQ(Last().Tag, path);
    EXPECT_EQ(Last().Caption, S("sheet.aff"));
    EXPECT_FALSE(Last().DoSaveAsOnly);
    EXPECT_FALSE(Last().MyReadonly);
    EXPECT_EQ(FormFolder(*m_application), GetFolder(path));
    EXPECT_EQ(TemplateFolder(*m_application), templates);
}

TEST_F(DocumentCommands, FirstPageShowsAndItsFirstFieldHasTheFocus) {
    Open(WriteForm(S("sheet.aff"), SmallForm().Data(1, {S("a=one"), S("b=two"), S("c=2")})));
    ASSERT_EQ(m_documents.size(), 1U);
    const Page& page = *Last().page;
    ASSERT_EQ(page.Entries.Count(), 2);
    EXPECT_EQ(page.Entries.At(1).text, S("one"));
    EXPECT_EQ(page.Entries.At(2).text, S("two"));
    ASSERT_EQ(page.Checks.Count(), 1);
    EXPECT_EQ(page.Checks.At(1).control->Value(), S("2"));
    EXPECT_EQ(page.CurrentEntry, (ElementRef{ElementKind::Entry, 1}));
    EXPECT_TRUE(m_window.entryShown);
}

TEST_F(DocumentCommands, EditorKeepsPageKeysForTheForm) {
    Open(WriteForm(S("sheet.aff")));
    ASSERT_EQ(m_documents.size(), 1U);
    constexpr std::int16_t kPageDown = 34;
    EXPECT_EQ(Last().page->Entry.ReportKeyDown(kPageDown, 0), 0);
}

TEST_F(DocumentCommands, SameFormTwiceGivesTwoWindows) {
    const QString path = WriteForm(S("sheet.aff"));
    Open(path);
    Open(path);
    ASSERT_EQ(m_documents.size(), 2U);
    EXPECT_NE(m_documents[0]->MyTempDir, m_documents[1]->MyTempDir);
}

TEST_F(DocumentCommands, FileThatNobodyMayWriteIsReadOnly) {
    const QString path = WriteForm(S("sheet.aff"));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    Open(path);
    ASSERT_EQ(m_documents.size(), 1U);
    EXPECT_TRUE(Last().MyReadonly);
    EXPECT_EQ(Last().page->FieldProperties[0]->At(u"ReadOnly"), S("True"));
}

TEST_F(DocumentCommands, MissingFileIsToldAndNothingOpens) {
    const QString folder = FormFolder(*m_application);
    for (const char* name : {"gone.aff", "no/such/folder.aff", ""}) {
        m_ui.messages.clear();
        Open(Path(S("forms/")) + S(name));
        OpenTemplate(Path(S("forms/")) + S(name));
        EXPECT_EQ(m_ui.messages, (std::vector{NotThere(), NotThere()})) << name;
    }
    EXPECT_EQ(m_made, 0);
    EXPECT_EQ(FormFolder(*m_application), folder);
}

TEST_F(DocumentCommands, EmptyFileIsCorruptAndItsWindowGoes) {
    for (const char* name : {"empty.aff", "empty.aft"}) {
        m_ui.messages.clear();
        const QString path = Write(S("forms/") + S(name), QByteArray());
        path.endsWith(S("aft")) ? OpenTemplate(path) : Open(path);
        EXPECT_EQ(CountOf(Corrupt()), 1) << name;
        EXPECT_EQ(m_ui.messages.back(), Corrupt()) << name;
    }
    EXPECT_EQ(m_made, 2);
    EXPECT_EQ(m_unloaded, 2);
    EXPECT_EQ(m_ui.Status(), QString());
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_EQ(TempDirectories(), QStringList()) << "the temporary directories go with the windows";
}

TEST_F(DocumentCommands, ListsOfAFormAreThereWhenItsFirstFieldIsEntered) {
    SetListFolder(*m_application, Path(S("mine/")));
    FormText form;
    form.Page(S("One")).Field(S("town"), {S("List=@LISTS\\towns,Town")});
    const auto archive = [&](const QByteArray& member) {
        return BuildZip({{member, form.Bytes()},
                         {"ListIndex.txt", "17,towns\r\n"},
                         {"17.csv", "Town\r\nBern\r\nUlm\r\n"}});
    };
    Open(Write(S("forms/sheet.aff"), archive("sheet.aff")));
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), "Town\r\nBern\r\nUlm\r\n");
    EXPECT_EQ(Last().page->Entry.ListCount(), 2);
    EXPECT_FALSE(Last().Changed);
    Write(S("mine/LISTS/towns.csv"), "Town\r\nKiel\r\n");
    OpenTemplate(Write(S("templates/sheet.aft"), archive("sheet.aft")));
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), "Town\r\nKiel\r\n") << "the user's edits win";
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(DocumentCommands, FormWithoutAnyDesignIsCorrupt) {
    Open(Write(S("sheet.aff"), "VERSION 1.0.0\r\nBEGIN DESIGN\r\nEND DESIGN\r\nBEGIN DATA\r\nEND DATA\r\n"));
    EXPECT_EQ(m_ui.messages, std::vector{Corrupt()});
    EXPECT_EQ(m_unloaded, 1);
}

TEST_F(DocumentCommands, FormThatBreaksHalfWayIsCorrupt) {
    Open(WriteForm(S("sheet.aff"), SmallForm().DataLine(S("BEGIN PAGE 1"))));
    EXPECT_EQ(m_ui.messages, std::vector{Corrupt()});
    EXPECT_EQ(m_unloaded, 1);
    ASSERT_EQ(ErrorRows().size(), 1U) << "the log tells why";
    EXPECT_EQ(ErrorRows()[0].value(3), S("ReadFormFile"));
}

TEST_F(DocumentCommands, CorruptFormLeavesOpenOnesAlone) {
    Open(WriteForm(S("sheet.aff")));
    Open(Write(S("bad.aff"), QByteArray()));
    ASSERT_EQ(m_documents.size(), 1U);
    EXPECT_EQ(Last().Caption, S("sheet.aff"));
    EXPECT_TRUE(QDir(Last().MyTempDir).exists());
}

TEST_F(DocumentCommands, WindowMayRefuseAndTheFailureTravels) {
    const auto refuse = []() -> frmSheetwright& { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] {
                  OpenForm(*m_application, WriteForm(S("sheet.aff")), refuse, [](frmSheetwright&) {});
              }),
              7);
}

class SavingCommand : public DocumentCommands {
  protected:
    SavingCommand() {
        Open(WriteForm(S("forms/sheet.aff"), FormText(SmallForm()).Data(1, {S("a=one"), S("b="), S("c=0")})));
    }
    void Type(const QString& text) const {
        Last().page->Entry.SetValue(text);
        Last().Changed = true;
        Last().PageChanged = true;
    }
    [[nodiscard]] QString SavedField(const QString& name) {
        Open(Last().Tag);
        const KeyedCollection<std::shared_ptr<PropertyBag>>& names = Last().page->names;
        const QString text = Last().page->Entries.At(names.At(name)->At(u"Key").toInt()).text;
        m_documents.pop_back();
        return text;
    }
};

TEST_F(SavingCommand, WritesWhatIsOnScreen) {
    Type(S("typed"));
    mnuFileSave_Click(Last());
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_FALSE(Last().Changed);
    EXPECT_FALSE(Last().PageChanged);
    EXPECT_FALSE(IsPlainTextForm(Last().Tag));
    EXPECT_EQ(SavedField(S("a")), S("typed"));
}

TEST_F(SavingCommand, WorksInTheDocumentsOwnDirectory) {
    m_application->CurrentTempDir = Path(S("elsewhere/"));
    mnuFileSave_Click(Last());
    EXPECT_EQ(m_application->CurrentTempDir, Last().MyTempDir);
    EXPECT_EQ(Last().Busy, 0);
}

TEST_F(SavingCommand, CaptionIsTheTagsFileName) {
    Last().Tag = Path(S("forms/other.aff"));
    mnuFileSave_Click(Last());
    EXPECT_EQ(Last().Caption, S("other.aff"));
    EXPECT_TRUE(FileExists(Last().Tag));
}

TEST_F(SavingCommand, FailureIsToldAndTheDocumentStaysChanged) {
    Last().MyTempDir = Path(S("forms/")) + S("no/such/");
    Last().Tag = Path(S("forms/other.aff"));
    Type(S("typed"));
    mnuFileSave_Click(Last());
    EXPECT_EQ(
        m_ui.messages,
        (std::vector{ShownMessage{S("Path not found"), S("Unable to save file"), MessageIcon::Critical}}));
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_TRUE(Last().Changed);
    EXPECT_EQ(Last().Caption, S("other.aff")) << "in any case";
    EXPECT_FALSE(FileExists(Last().Tag));
}

TEST_F(SavingCommand, WhatWasBeingTypedIsAChangeWhenPackingFails) {
    const QByteArray before = Read(S("forms/sheet.aff"));
    ASSERT_TRUE(QDir().mkpath(Path(S("forms/other.aff/in the way"))));
    Last().Tag = Path(S("forms/other.aff"));
    Last().page->Entry.ReportText(S("typed"));
    mnuFileSave_Click(Last());
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_TRUE(m_ui.messages[0].text.startsWith(S("Error code ")));
    EXPECT_TRUE(Last().Changed);
    EXPECT_EQ(Last().page->Entries.At(1).text, S("typed"));
    EXPECT_EQ(Read(S("forms/sheet.aff")), before);
}

TEST_F(SavingCommand, UnchangedDocumentStaysSoWhenPackingFails) {
    ASSERT_TRUE(QDir().mkpath(Path(S("forms/other.aff/in the way"))));
    Last().Tag = Path(S("forms/other.aff"));
    mnuFileSave_Click(Last());
    EXPECT_EQ(m_ui.messages.size(), 1U);
    EXPECT_FALSE(Last().Changed);
}

TEST_F(SavingCommand, FailingFormulaLeavesThePageOnScreenCurrent) {
    Last().memory.AppendFormulas(1, S("SETME({nothing})"), S("a"));
    Type(S("typed"));
    const QByteArray before = Read(S("forms/sheet.aff"));
    mnuFileSave_Click(Last());
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(m_ui.messages[0].title, S("Unable to save file"));
    EXPECT_EQ(Last().DataPageNum, 1);
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_TRUE(Last().Changed);
    EXPECT_EQ(Read(S("forms/sheet.aff")), before);
}

}  // namespace
}  // namespace sheetwright
