#include "document/document.h"

#include "core/paths.h"
#include "document/form_archive.h"
#include "document/form_writer.h"
#include "document/headless_page.h"
#include "support/test_application.h"

#include <QFile>
#include <QFileInfo>

namespace sheetwright {
namespace {

const QByteArray kTemplate =
    "VERSION 1.0.0\r\nBEGIN DESIGN\r\n"
    "\tBEGIN PAGE 1\r\n\t\tTitle=Cover\r\n"
    "\t\tBEGIN FIELD\r\n\t\t\tName=Customer\r\n\t\t\tFieldType=0\r\n\t\tEND FIELD\r\n"
    "\t\tBEGIN CHECK\r\n\t\t\tName=Done\r\n\t\tEND CHECK\r\n"
    "\tEND PAGE\r\n"
    "\tBEGIN PAGE 2\r\n\t\tTitle=Results\r\n"
    "\t\tBEGIN FIELD\r\n\t\t\tName=Reading\r\n\t\t\tFieldType=0\r\n"
    "\t\t\tFormula=SETME(EQUAL(1,{FIELDS\\Cover,Customer}))\r\n\t\tEND FIELD\r\n"
    "\tEND PAGE\r\n"
    "END DESIGN\r\nBEGIN DATA\r\nEND DATA\r\n";

class Document : public ApplicationTest {
  protected:
    void Open() {
        m_document = std::make_unique<frmSheetwright>(*m_application);
        UseHeadlessPage(*m_document);
        OpenDocument(*m_document, Write(QStringLiteral("form.aft"), kTemplate));
    }
    // Makes an archive whose text member bears this name, and opens it as a form of another name.
    void Pack(const QString& member) {
        Write(QStringLiteral("source/") + member, kTemplate);
        ASSERT_TRUE(ZipForm(*m_application, Path(QStringLiteral("packed.zip")),
                            Path(QStringLiteral("source/x")).chopped(1)));
    }
    void OpenAs(const QString& name) {
        ASSERT_TRUE(QFile::rename(Path(QStringLiteral("packed.zip")), Path(name)));
        m_document = std::make_unique<frmSheetwright>(*m_application);
        UseHeadlessPage(*m_document);
        OpenDocument(*m_document, Path(name));
    }

    std::unique_ptr<frmSheetwright> m_document;
};

TEST_F(Document, StartsEmptyOnPageOne) {
    const frmSheetwright document(*m_application);
    EXPECT_EQ(document.Pages, 0);
    EXPECT_EQ(document.PageNum, 1);
    EXPECT_EQ(document.DataPageNum, 1);
    EXPECT_FALSE(document.Changed);
    EXPECT_EQ(m_application->CurrentTempDir, m_application->WritableFolder + QStringLiteral("TEMP/"));
}

TEST_F(Document, OpensATemplateWithOneDataPageForEachDesign) {
    Open();
    EXPECT_EQ(m_document->Pages, 2);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->memory.DataPage(1).Line(2), u"Customer=");
    EXPECT_EQ(m_document->Caption, QStringLiteral("(Untitled)"));
    EXPECT_EQ(m_application->CurrentTempDir, m_document->MyTempDir);
}

TEST_F(Document, FormThatWasRenamedOpensAndIsSavedUnderItsNewName) {
    Pack(QStringLiteral("a.aff"));
    OpenAs(QStringLiteral("b.aff"));
    EXPECT_EQ(m_document->Pages, 2);
    EXPECT_TRUE(FileExists(m_document->MyTempDir + QStringLiteral("b.aff")));
    EXPECT_FALSE(FileExists(m_document->MyTempDir + QStringLiteral("a.aff")));
    EXPECT_TRUE(SaveForm(*m_document, Recalculate::No));
    EXPECT_EQ(ArchiveMembers(m_document->Tag), QStringList{QStringLiteral("b.aff")});
}

TEST_F(Document, FormThatWasRenamedToATemplateIsMissingItsText) {
    Pack(QStringLiteral("x.aff"));
    OpenAs(QStringLiteral("x.aft"));
    EXPECT_TRUE(FileExists(m_document->MyTempDir + QStringLiteral("x.aff")));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList{QStringLiteral("Error: File Missing")});
    EXPECT_EQ(m_document->Pages, 0);
}

TEST_F(Document, DamagedArchiveIsToldAndThenItsTextIsMissing) {
    Write(QStringLiteral("packed.zip"), "PK\3\4 and no more");
    OpenAs(QStringLiteral("a.aff"));
    EXPECT_EQ(m_ui.MessageTexts(),
              (QStringList{QStringLiteral("Error code 321"), QStringLiteral("Error: File Missing")}));
    EXPECT_EQ(m_document->Pages, 0);
}

TEST_F(Document, PlainTextFormIsSavedAsAnArchive) {
    Open();
    EXPECT_TRUE(IsPlainTextForm(m_document->Tag));
    EXPECT_TRUE(SaveForm(*m_document, Recalculate::No));
    EXPECT_FALSE(IsPlainTextForm(m_document->Tag));
    EXPECT_EQ(ArchiveMembers(m_document->Tag), QStringList{QStringLiteral("form.aft")});
}

TEST_F(Document, RemovesItsTemporaryDirectoryWhenItCloses) {
    Open();
    const QString directory = m_document->MyTempDir;
    EXPECT_TRUE(FileExists(directory + QStringLiteral("form.aft")));
    m_document.reset();
    EXPECT_FALSE(QFileInfo::exists(directory));
}

TEST_F(Document, OneThatCannotBeReadLeavesTheOthersAlone) {
    Open();
    const QString directory = m_document->MyTempDir;
    const QString bad = Write(QStringLiteral("bad.aff"),
                              "VERSION 1.0.0\r\nBEGIN DESIGN\r\nEND DESIGN\r\nBEGIN DATA\r\n"
                              "BEGIN PAGE 1\r\nEND PAGE\r\n");
    {
        frmSheetwright broken(*m_application);
        UseHeadlessPage(broken);
        EXPECT_EQ(FailureOf([&] { OpenDocument(broken, bad); }), 5);
    }
    EXPECT_TRUE(FileExists(directory + QStringLiteral("form.aft")));
    EXPECT_EQ(m_document->memory.DataPage(2).Line(2), u"Reading=");
}

TEST_F(Document, ASaveThatAFormulaStopsShowsThePageOnScreenAgain) {
    Open();
    m_document->memory.ReplaceDataLine(1, 2, QStringLiteral("Customer=abc"));
    m_document->Tag = Path(QStringLiteral("form.aff"));
    EXPECT_FALSE(SaveForm(*m_document));
    EXPECT_EQ(m_ui.messages.back().text, QStringLiteral("Type mismatch"));
    EXPECT_EQ(m_ui.messages.back().title, QStringLiteral("Unable to save file"));
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_FALSE(QFileInfo::exists(m_document->Tag));
}

}  // namespace
}  // namespace sheetwright
