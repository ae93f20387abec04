// What a person types into a page, saved by the command and read again from the disk.

#include "core/text.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "document/page.h"
#include "support/form_text.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/form_window.h"
#include "ui/mdi_sheetwright.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QTest>

namespace sheetwright {
namespace {

QString U(const char16_t* text) {
    return QString::fromUtf16(text);
}

class TypedValues : public ApplicationTest {
  protected:
    TypedValues() {
        m_application->settings = Settings(Path(S("settings")));
        m_application->conventions = ConventionsOf(QLocale::c());
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11907,16840\r\n");
        m_application->LoadPaperTable();
        m_frame = std::make_unique<mdiSheetwright>(*m_application);
        m_frame->show();
        QApplication::setActiveWindow(m_frame.get());
    }
    ~TypedValues() override { m_frame.reset(); }

    void Open(FormText form) {
        m_frame->DialogFileName = Write(S("form.aff"), form.Bytes());
        m_frame->OpenFromDialogSlot();
    }
    void Reopen() {
        Do("mnuFileClose");
        ASSERT_EQ(m_frame->Active(), nullptr);
        m_frame->OpenFromDialogSlot();
        ASSERT_NE(m_frame->Active(), nullptr);
    }
    void Do(const char* name) const { m_frame->findChild<QAction*>(S(name))->trigger(); }
    void Save() const { Do("mnuFileSave"); }
    [[nodiscard]] frmSheetwright& Document() const { return m_frame->Active()->Document(); }

    // A line feed is typed with Ctrl and Enter.
    static void Type(const QString& text) {
        for (const QChar character : text) {
            if (character == u'\n') {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
            } else {
                QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                    QString(character), Qt::NoModifier);
            }
        }
    }
    static void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    }
    static void Next() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); }

    [[nodiscard]] QString TextOf(const char* name) const {
        const Page& page = *Document().page;
        return page.Entries.At(page.names.At(S(name))->At(u"Key").toInt()).text;
    }
    // The value as it stands in the file.
    [[nodiscard]] QString InFile(const QString& name) const {
        const QString start = u'\t' + QString(u'\t') + name + u'=';
        for (const QString& line : DecodeFileText(TextMember()).split(S("\r\n")))
            if (line.startsWith(start)) return line.sliced(start.size());
        return S("(none)");
    }
    [[nodiscard]] QByteArray TextMember() const {
        const QString folder = Path(S("unpacked/"));
        QDir().mkpath(folder);
        UnZipForm(*m_application, Document().Tag, folder);
        return Read(S("unpacked/form.aff"));
    }

    // Types `text` into the first field of a form, which is saved while the field is being edited, and
    // returns what is read again.
    QString SavedAndRead(const QString& text, const QStringList& changes = {}) {
        FormText form;
        Open(form.Page(S("P")).Field(S("A"), changes).Field(S("B")).Data(1, {S("A="), S("B=b")}));
        Type(text);
        Save();
        EXPECT_EQ(Document().page->Entries.At(1).text, Document().memory.DataPage(1).Line(2).sliced(2));
        m_typed = Document().page->Entries.At(1).text;
        EXPECT_FALSE(Document().Changed);
        EXPECT_FALSE(Document().PageChanged);
        Reopen();
        EXPECT_EQ(m_ui.MessageTexts(), QStringList());
        EXPECT_EQ(TextOf("B"), S("b"));
        return TextOf("A");
    }

    std::unique_ptr<mdiSheetwright> m_frame;
    QString m_typed;  // as the page showed it after the save
};

TEST_F(TypedValues, ComeBackAsTheyWereTyped) {
    for (const QString& text : {S("=a=b="), S("  in front"), S("BEGIN PAGE 2 DESIGN=1"), S("END DATA"),
                                S("a,\"b\";c\\d"), U(u"Prüfgerät ÄÖÜß €"), U(u"Ã¼"), U(u"Ω 漢字 a\u00A0b")}) {
        EXPECT_EQ(SavedAndRead(text), text);
        Do("mnuFileClose");
    }
}

TEST_F(TypedValues, LineBreaksComeBackAndStandInTheFileAsCharacter127) {
    const QStringList wraps{S("WordWrap=True"), S("Height=2000")};
    EXPECT_EQ(SavedAndRead(S("one\n  two  \n\nfour\n"), wraps), S("one\r\n  two  \r\n\r\nfour\r\n"));
    EXPECT_EQ(InFile(S("A")), S("one\x7F  two  \x7F\x7F") + S("four\x7F"));
}

TEST_F(TypedValues, BlanksAtTheEndAreInTheFileButNotReadAgain) {
    EXPECT_EQ(SavedAndRead(S("  both ends  ")), S("  both ends"));
    EXPECT_EQ(m_typed, S("  both ends  "));
    EXPECT_EQ(InFile(S("A")), S("  both ends  "));
}

TEST_F(TypedValues, GermanTextKeepsTheCodePage) {
    EXPECT_EQ(SavedAndRead(U(u"Gerät €")), U(u"Gerät €"));
    EXPECT_TRUE(TextMember().contains("\t\tA=Ger\xE4t \x80\r\n"));
}

TEST_F(TypedValues, PastedTextIsOneValueWhateverItHolds) {
    FormText form;
    Open(form.Page(S("P")).Field(S("A")).Field(S("B"), {S("WordWrap=True"), S("Height=2000")}));
    Paste(S("a\tb\r\nc\r\n"));
    Next();
    Paste(S("\ta\x7F") + S("b\nc\rd\r\n"));
    Save();
    EXPECT_EQ(TextOf("A"), S("a\tb c"));
    EXPECT_EQ(TextOf("B"), S("\ta\r\nb\r\nc\r\nd\r\n"));
    Reopen();
    EXPECT_EQ(TextOf("A"), S("a\tb c"));
    EXPECT_EQ(TextOf("B"), S("\ta\r\nb\r\nc\r\nd\r\n"));
}

TEST_F(TypedValues, GoThroughTheMaskListAndCheckBoxOfTheirFields) {
    FormText form;
    Open(form.Page(S("P"))
             .Field(S("mask"), {S("Format=000.0")})
             .Field(S("date"), {S("FieldType=2"), S("Format=Short Date")})
             .Field(S("list"), {S("List=red,green")})
             .CheckBox(S("tick")));
    for (const char* text : {"7.25", "3/4/2024", "violet"}) {
        Type(S(text));
        Next();
    }
    Type(S("  "));
    Save();
    EXPECT_EQ(InFile(S("mask")), S("007.3"));
    EXPECT_EQ(InFile(S("date")), S("03/04/2024"));
    EXPECT_EQ(InFile(S("list")), S("violet"));
    EXPECT_EQ(InFile(S("tick")), S("2"));
    Reopen();
    EXPECT_EQ(TextOf("mask"), S("007.3"));
    EXPECT_EQ(TextOf("date"), S("03/04/2024"));
    EXPECT_EQ(TextOf("list"), S("violet"));
    EXPECT_EQ(Document().page->Checks.At(1).control->Value(), S("2"));
}

TEST_F(TypedValues, VisitingTheFieldsOfASavedFormChangesNothing) {
    FormText form;
    Open(form.Page(S("P"))
             .Field(S("A"))
             .Field(S("B"), {S("WordWrap=True"), S("Height=2000")})
             .Field(S("C"), {S("Format=000.0")})
             .Field(S("D"), {S("List=red,green")})
             .Field(S("E"))
             .Data(1, {S("A= =x"), S("B=a\x7F\x7F b"), S("C=007.3"), S("D=violet"), S("E=a\x7F") + S("b")}));
    for (int visit = 0; visit < 11; ++visit)
        Next();
    EXPECT_FALSE(Document().Changed);
    EXPECT_FALSE(Document().PageChanged);
    EXPECT_EQ(TextOf("B"), S("a\r\n\r\n b"));
    EXPECT_EQ(TextOf("E"), S("a\r\nb"));
}

TEST_F(TypedValues, AFieldThatIsLeftMarksTheFormAndItsPage) {
    FormText form;
    Open(form.Page(S("P")).Field(S("A")).Field(S("B")));
    Type(S("x"));
    Next();
    EXPECT_TRUE(Document().Changed);
    EXPECT_TRUE(Document().PageChanged);
    Save();
    EXPECT_FALSE(Document().Changed);
    EXPECT_FALSE(Document().PageChanged);
}

}  // namespace
}  // namespace sheetwright
