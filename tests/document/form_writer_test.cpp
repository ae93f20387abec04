#include "document/form_writer.h"

#include "document/document.h"
#include "document/form_archive.h"
#include "document/form_reader.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sheetwright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QByteArray kForm =
    "VERSION 1.0.0\r\nBEGIN DESIGN\r\n"
    "\tBEGIN PAGE 1\r\n\t\tTitle=Test Sheet\r\n\t\tUnknown=kept=1\r\n"
    "\t\tBEGIN FIELD\r\n\t\t\tName=Field1\r\n\t\t\tAbsLeft=1440.5\r\n\t\tEND FIELD\r\n"
    "\tEND PAGE\r\nEND DESIGN\r\nBEGIN DATA\r\n"
    "\tBEGIN PAGE 1 DESIGN=1\r\n\t\tField1=one\177two\177three\r\n\t\tstray\r\n\tEND PAGE\r\n"
    "\tBEGIN PAGE 2 DESIGN=1\r\n\tEND PAGE\r\nEND DATA\r\n";

class WriteForm : public ApplicationTest {
  protected:
    WriteForm() : m_document(*m_application) {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_document.MyTempDir = Path(QStringLiteral("form/x")).chopped(1);
        m_document.Tag = Path(QStringLiteral("disk/a.aff"));
    }
    ~WriteForm() override {
        SetWritable(true);
        m_document.MyTempDir.clear();
    }

    void ReadText(const QByteArray& text) {
        Write(QStringLiteral("form/a.aff"), text);
        ReadFormFile(m_document);
        m_ui.statuses.clear();
        m_ui.progress.clear();
    }
    [[nodiscard]] QByteArray Written() {
        WriteFormFile(m_document);
        return Read(QStringLiteral("form/a.aff"));
    }
    [[nodiscard]] QStringList TempFiles() const {
        return QDir(m_folder.filePath(QStringLiteral("form"))).entryList(QDir::Files, QDir::Name);
    }
    // The form's folder as a place that files can't be made in; a file in its stead works for every user.
    void SetWritable(bool writable) {
        if (!writable) m_document.MyTempDir = Write(QStringLiteral("blocked"), "") + u'/';
    }

    frmSheetwright m_document;
};

TEST_F(WriteForm, UnchangedFormComesBackByteForByte) {
    ReadText(kForm);
    EXPECT_EQ(Written(), kForm);
}

TEST_F(WriteForm, CodePageTextKeepsItsBytes) {
    QByteArray form = kForm;
    form.replace("Test Sheet",
                 "Pr\xFC"
                 "fblatt \x80");
    ReadText(form);
    EXPECT_EQ(Written(), form);
}

TEST_F(WriteForm, DocumentOfANewerVersionGetsThisProgramsVersion) {
    QByteArray form = kForm;
    ReadText(form.replace("VERSION 1.0.0", "VERSION 7.8.9"));
    EXPECT_EQ(Written(), kForm);
}

TEST_F(WriteForm, BlankLinesAreNotWritten) {
    ReadText(kForm);
    m_document.memory.AppendDataLine(2, QString());
    m_document.memory.AppendFormDesign(1, u"");
    EXPECT_EQ(Written(), kForm);
}

TEST_F(WriteForm, UndoSnapshotIsNeverWritten) {
    ReadText(kForm);
    m_document.memory.AppendDataLine(0, QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_EQ(Written(), kForm);
}

TEST_F(WriteForm, ValueWithTwoLineBreaksGoesThroughUnchanged) {
    ReadText(kForm);
    const QString value = QStringLiteral("Field1=a\r\n\r\nb");
    m_document.memory.ReplaceDataLine(1, 2, value);
    WriteFormFile(m_document);
    EXPECT_TRUE(Read(QStringLiteral("form/a.aff")).contains("\t\tField1=a\177\177b\r\n"));
    frmSheetwright again(*m_application);
    again.MyTempDir = m_document.MyTempDir;
    again.Tag = m_document.Tag;
    ReadFormFile(again);
    again.MyTempDir.clear();
    EXPECT_EQ(again.memory.DataPage(1).Line(2), value);
}

TEST_F(WriteForm, LoneLineFeedNeverBreaksALine) {
    ReadText(kForm);
    m_document.memory.ReplaceDataLine(1, 2, QStringLiteral("Field1=a\nEND DATA"));
    EXPECT_TRUE(Written().contains("\t\tField1=a\177END DATA\r\n"));
}

TEST_F(WriteForm, IndentOfZeroOrBelowIsNoIndentation) {
    ReadText(
        "BEGIN DESIGN\nEND DESIGN\nBEGIN DATA\nBEGIN PAGE 1 DESIGN=1\nENDNOTE=x\nENDNOTE2=y\nENDNOTE3=z\n"
        "a=1\nEND PAGE\n");
    EXPECT_TRUE(
        Written().contains("BEGIN DATA\r\n\tBEGIN PAGE 1 DESIGN=1\r\n\tENDNOTE=x\r\nENDNOTE2=y\r\n"
                           "ENDNOTE3=z\r\na=1\r\nEND PAGE\r\nEND DATA\r\n"));
}

TEST_F(WriteForm, SectionsStartAtDepthOneWhateverTheDesignDid) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nBEGIN FIELD\nBEGIN FIELD\nEND DESIGN\n");
    EXPECT_TRUE(
        Written().contains("\t\t\tBEGIN FIELD\r\nEND DESIGN\r\nBEGIN DATA\r\n\tBEGIN PAGE 1 DESIGN=1\r\n"));
}

TEST_F(WriteForm, LinesThatBeginRecordsWithoutEndGrowTheTextInAStraightLine) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\n" + QByteArray("BEGIN\n").repeated(20'000));
    EXPECT_LT(Written().size(), 20'000 * 80);
}

TEST_F(WriteForm, OldTextMemberOfAnotherNameGoesAndPicturesStay) {
    ReadText(kForm);
    Write(QStringLiteral("form/old.aft"), "old");
    Write(QStringLiteral("form/OLD.AFF"), "old");
    Write(QStringLiteral("form/logo.bmp"), "BM");
    m_document.Tag = Path(QStringLiteral("disk/b.aff"));
    WriteFormFile(m_document);
    EXPECT_EQ(TempFiles(), (QStringList{QStringLiteral("b.aff"), QStringLiteral("logo.bmp")}));
    EXPECT_EQ(Read(QStringLiteral("form/b.aff")), kForm);
}

TEST_F(WriteForm, FilesOfTheFormStayWhateverTheirNames) {
    ReadText(kForm);
    const QStringList names{QStringLiteral("a.aff.new"), QStringLiteral("form-text"),
                            QStringLiteral("form-text.new"), QStringLiteral("form-text_")};
    for (const QString& name : names)
        Write(QStringLiteral("form/") + name, name.toUtf8());
    WriteFormFile(m_document);
    EXPECT_EQ(TempFiles(), QStringList{QStringLiteral("a.aff")} + names);
    for (const QString& name : names)
        EXPECT_EQ(Read(QStringLiteral("form/") + name), name.toUtf8());
    EXPECT_EQ(Read(QStringLiteral("form/a.aff")), kForm);
}

TEST_F(WriteForm, TextMemberBearsTheSpellingOfTheTag) {
    ReadText(kForm);
    m_document.Tag = Path(QStringLiteral("disk/A.aff"));
    WriteFormFile(m_document);
    EXPECT_EQ(TempFiles(), QStringList{QStringLiteral("A.aff")});
}

TEST_F(WriteForm, SuccessClearsTheChangeMarks) {
    ReadText(kForm);
    m_document.Changed = m_document.PageChanged = m_document.DoSaveAsOnly = true;
    WriteFormFile(m_document);
    EXPECT_FALSE(m_document.Changed || m_document.PageChanged || m_document.DoSaveAsOnly);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(WriteForm, StatusWordsAndProgressFollowTheSections) {
    ReadText(kForm);
    WriteFormFile(m_document, Recalculate::No);
    EXPECT_EQ(m_ui.statuses,
              (QStringList{QStringLiteral("Writing template to disk..."),
                           QStringLiteral("Writing data to disk..."), QStringLiteral("Ready")}));
    EXPECT_THAT(m_ui.progress, ElementsAre(100, 50, 100));
}

TEST_F(WriteForm, RecalculatesFirst) {
    QByteArray form = kForm;
    ReadText(form.replace("Name=Field1\r\n", "Name=Field1\r\n\t\t\tFormula=SETME(ADD(2,3))\r\n"));
    EXPECT_TRUE(Written().contains("\t\tField1=5\r\n"));
    EXPECT_TRUE(Read(QStringLiteral("form/a.aff")).contains("Formula=SETME(ADD(2,3))\r\n"));
}

TEST_F(WriteForm, WithoutRecalculationTheValuesStay) {
    QByteArray form = kForm;
    form.replace("Name=Field1\r\n", "Name=Field1\r\n\t\t\tFormula=SETME(ADD(2,3))\r\n");
    ReadText(form);
    WriteFormFile(m_document, Recalculate::No);
    EXPECT_EQ(Read(QStringLiteral("form/a.aff")), form);
}

TEST_F(WriteForm, TextThatCannotBeWrittenRaisesAndKeepsTheChangeMarks) {
    ReadText(kForm);
    m_document.Changed = true;
    SetWritable(false);
    EXPECT_TRUE(FailureOf([&] { WriteFormFile(m_document); }).has_value());
    EXPECT_TRUE(m_document.Changed);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_FALSE(m_ui.progressShown);
    EXPECT_EQ(Read(QStringLiteral("form/a.aff")), kForm);
}

TEST_F(WriteForm, DocumentWithoutATemporaryDirectoryIsNotWritten) {
    m_document.MyTempDir.clear();
    EXPECT_EQ(FailureOf([&] { WriteFormFile(m_document); }), 76);
}

TEST_F(WriteForm, SaveMakesAnArchiveThatReadsBack) {
    ReadText(kForm);
    Write(QStringLiteral("form/logo.bmp"), "BM");
    m_document.Changed = true;
    EXPECT_TRUE(SaveForm(m_document));
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(m_document.Caption, QStringLiteral("a.aff"));
    EXPECT_EQ(m_application->CurrentTempDir, m_document.MyTempDir);
    EXPECT_FALSE(IsPlainTextForm(m_document.Tag));
    UnZipForm(*m_application, m_document.Tag, Path(QStringLiteral("other/x")).chopped(1));
    EXPECT_EQ(Read(QStringLiteral("other/a.aff")), kForm);
    EXPECT_EQ(Read(QStringLiteral("other/logo.bmp")), "BM");
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(WriteForm, SaveBringsThePageOnScreenIntoTheText) {
    ReadText(kForm);
    m_document.SavePageHook = [&] {
        m_document.memory.ReplaceDataLine(2, 2, QStringLiteral("Field1=typed"));
    };
    EXPECT_TRUE(SaveForm(m_document));
    EXPECT_TRUE(Read(QStringLiteral("form/a.aff")).contains("Field1=typed\r\n"));
}

TEST_F(WriteForm, SaveThatCannotWriteTheTextTellsSoAndKeepsTheOldFile) {
    ReadText(kForm);
    EXPECT_TRUE(SaveForm(m_document));
    const QByteArray before = Read(QStringLiteral("disk/a.aff"));
    m_document.Caption = QStringLiteral("old caption");
    m_document.Changed = m_document.DoSaveAsOnly = true;
    SetWritable(false);
    EXPECT_FALSE(SaveForm(m_document));
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(m_ui.messages[0].title, QStringLiteral("Unable to save file"));
    EXPECT_EQ(m_ui.messages[0].icon, MessageIcon::Critical);
    EXPECT_TRUE(m_document.Changed);
    EXPECT_TRUE(m_document.DoSaveAsOnly);
    EXPECT_EQ(m_document.Caption, QStringLiteral("old caption"));
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_EQ(Read(QStringLiteral("disk/a.aff")), before);
}

TEST_F(WriteForm, SaveWhoseFormulaFailsTellsItsTextAndWritesNothing) {
    QByteArray form = kForm;
    form.replace("Name=Field1\r\n", "Name=Field1\r\n\t\t\tFormula=SETME(MID(ABC,0,1))\r\n");
    ReadText(form);
    EXPECT_FALSE(SaveForm(m_document));
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{QStringLiteral("Invalid procedure call or argument"),
                                                        QStringLiteral("Unable to save file"),
                                                        MessageIcon::Critical, MessageButtons::Ok}));
    EXPECT_FALSE(QFile::exists(m_document.Tag));
    EXPECT_EQ(Read(QStringLiteral("form/a.aff")), form);
}

TEST_F(WriteForm, SaveWhoseArchiveFailsShowsOneMessageAndStaysChanged) {
    ReadText(kForm);
    m_document.Changed = m_document.DoSaveAsOnly = true;
    m_document.Tag = Path(QStringLiteral("disk/a.aff"));
    QDir().mkpath(m_document.Tag + QStringLiteral("/in the way"));
    EXPECT_FALSE(SaveForm(m_document));
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_TRUE(m_ui.messages[0].text.startsWith(QStringLiteral("Error code ")));
    EXPECT_TRUE(m_document.Changed);
    EXPECT_TRUE(m_document.DoSaveAsOnly);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

}  // namespace
}  // namespace sheetwright
