#include "formula/page_update.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_on_screen_test.h"
#include "fields/editing.h"
#include "formula/recalculation.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QStringList>

namespace sheetwright {
namespace {

// Two data pages of design "A", the second of which is on screen, unless a test says otherwise.
class PageUpdate : public ApplicationTest {
  protected:
    PageUpdate() : m_document(*m_application) {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->mainWindow = &m_mainWindow;
        m_document.window = &m_window;
        m_document.memory.AppendFormDesign(1, S("BEGIN PAGE 1"));
        m_document.memory.AppendFormDesign(1, S("END PAGE"));
        m_document.memory.PageProps.Add(S("A"), S("1"));
        AddPage({S("x=first"), S("out=")});
        AddPage({S("x=second"), S("out=")});
        m_document.PageNum = 1;
        m_document.DataPageNum = 1;
        m_document.SavePageHook = [this] { ++m_saves; };
    }

    void AddPage(const QStringList& items) {
        const auto number = static_cast<std::int16_t>(m_document.memory.DataPageCount() + 1);
        m_document.memory.AppendFormData(number, S("BEGIN PAGE %1 DESIGN=1").arg(number));
        for (const QString& item : items)
            m_document.memory.AppendFormData(number, item);
        m_document.memory.AppendFormData(number, S("END PAGE"));
        m_document.Pages = number;
    }
    void AddField(const QString& name, const QString& formula, const QString& text,
                  const QString& record = S("0")) {
        auto bag = std::make_shared<PropertyBag>();
        bag->Add(name, S("Name"));
        bag->Add(formula, S("Formula"));
        bag->Add(S("000.0"), S("Format"));
        bag->Add(record, S("MultiRecordIndex"));
        m_document.page->FieldProperties.push_back(bag);
        TextElement entry;
        entry.text = text;
        m_document.page->Entries.Load(entry);
    }
    [[nodiscard]] QString Shown(int number) const { return m_document.page->Entries.At(number).text; }
    QString Updated(const QString& formula, const QString& text) {
        AddField(S("out"), formula, text);
        UpdateFormulas(m_document);
        return Shown(m_document.page->Entries.Count());
    }

    RecordingWindow m_window;
    RecordingMainWindow m_mainWindow;
    int m_saves = 0;
    frmSheetwright m_document;
};

TEST_F(PageUpdate, SetmeGivesTheFieldItsText) {
    EXPECT_EQ(Updated(S("SETME(ADD(1,2))"), S("old")), S("3"));
}

TEST_F(PageUpdate, MeReadsTheTextOnScreen) {
    EXPECT_EQ(Updated(S("SETME(ADD(ME,1))"), S("41")), S("42"));
    EXPECT_EQ(Updated(S("SETME(1);SETME(ADD(ME,1))"), S("old")), S("2"));
}

TEST_F(PageUpdate, FormulaOfOnlyASemicolonLeavesTheField) {
    EXPECT_EQ(Updated(S(";"), S("old")), S("old"));
    EXPECT_EQ(Updated(S("SETME(1);"), S("old")), S("1"));
    EXPECT_EQ(Updated(QString(), S("old")), S("old"));
}

TEST_F(PageUpdate, AppliesNoFormat) {
    EXPECT_EQ(Updated(S("SETME(5)"), QString()), S("5"));
}

TEST_F(PageUpdate, SavesThePageFirstSoThatReferencesSeeIt) {
    m_document.DataPageNum = 2;
    m_document.SavePageHook = [this] { m_document.memory.ReplaceDataLine(2, 2, S("x=typed")); };
    EXPECT_EQ(Updated(S("SETME({FIELDS\\A,x})"), QString()), S("typed"));
}

TEST_F(PageUpdate, ReferencesReadTheLastPageOfTheDesignWhicheverIsOnScreen) {
    m_document.MePage = 1;
    EXPECT_EQ(Updated(S("SETME({FIELDS\\A,x})"), QString()), S("second"));
    EXPECT_EQ(m_document.MePage, 0);
}

TEST_F(PageUpdate, FullPassReadsEachPagesOwnField) {
    m_document.memory.AppendFormulas(1, S("SETME({FIELDS\\A,x})"), S("out"));
    ÜberupdateFormulas(m_document, true);
    EXPECT_EQ(m_document.memory.DataPage(1).Line(3), u"out=first");
    EXPECT_EQ(m_document.memory.DataPage(2).Line(3), u"out=second");
}

TEST_F(PageUpdate, RunsInRecordOrderOnce) {
    AddField(S("a"), S("SETME(ADD(ME,1))"), S("1"));
    AddField(S("b"), S("SETME(ADD(ME,1))"), S("11"));
    m_document.Importing = true;  // no blanks are coloured
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("2"));
    EXPECT_EQ(Shown(2), S("12"));
    EXPECT_EQ(m_window.calls, QStringList({S("ElementChanged 1"), S("ElementChanged 2")}));
}

TEST_F(PageUpdate, ReferencesSeeThePageAsItWasBefore) {
    AddField(S("x"), S("SETME(9)"), S("old"));
    AddField(S("out"), S("SETME({FIELDS\\A,x})"), QString());
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(2), S("second"));
}

TEST_F(PageUpdate, StartsWithoutVariables) {
    m_application->FormVars.Add(S("5"), S("N"));
    EXPECT_EQ(Updated(S("SETME(VAR(\"n\"))"), S("old")), QString());
}

TEST_F(PageUpdate, RecordAtHandRunsOnlyItsOwnFields) {
    AddField(S("a"), S("SETME(1)"), S("old"), S("0"));
    AddField(S("b"), S("SETME(1)"), S("old"), S("2"));
    m_document.CurrentRecord = 2;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("old"));
    EXPECT_EQ(Shown(2), S("1"));
}

TEST_F(PageUpdate, FullPassIgnoresTheRecordAtHand) {
    AddField(S("out"), S("SETME(1)"), S("old"), S("3"));
    m_document.memory.AppendFormulas(1, S("SETME(1)"), S("out"));
    m_document.CurrentRecord = 2;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("old"));
    ÜberupdateFormulas(m_document, true);
    EXPECT_TRUE(m_document.memory.DataPage(1).Line(3).startsWith(u"out=001.0"));
}

TEST_F(PageUpdate, DriverDataIsReadOnlyWithARecordAtHand) {
    const QString formula = S("SETME({DRIVERS\\meter,reading})");
    EXPECT_EQ(Updated(formula, S("imported")), S("imported"));
    m_document.CurrentRecord = 0;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), QString()) << "there is no driver";
}

TEST_F(PageUpdate, RecordBelowMinusOneRunsNothing) {
    AddField(S("a"), S("SETME(1)"), S("old"), S("-2"));
    m_document.CurrentRecord = -2;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("old"));
}

TEST_F(PageUpdate, FieldWithoutAnIndexIsOfTheFirstRecord) {
    AddField(S("a"), S("SETME(ADD(ME,1))"), S("0"));
    m_document.page->FieldProperties[0]->Remove(S("MultiRecordIndex"));
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("1"));
    m_document.CurrentRecord = 0;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("2"));
    m_document.CurrentRecord = 1;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), S("2"));
}

TEST_F(PageUpdate, TellsTheWindowOfNewTextsOnly) {
    AddField(S("a"), S("SETME(1)"), S("1"));
    AddField(S("b"), S("SETME(1)"), S("old"));
    m_document.Importing = true;  // no blanks are coloured
    UpdateFormulas(m_document);
    EXPECT_EQ(m_window.calls, QStringList{S("ElementChanged 2")});
}

TEST_F(PageUpdate, ColoursBlanksUnlessItImports) {
    m_mainWindow.blankTicked = true;
    AddField(S("a"), S("SETME(CONCATENATE())"), S("old"));
    m_document.Importing = true;
    UpdateFormulas(m_document);
    EXPECT_EQ(Shown(1), QString());
    EXPECT_EQ(m_document.page->Entries.At(1).backColor, 0xFFFFFFU);
    m_document.Importing = false;
    UpdateFormulas(m_document);
    EXPECT_EQ(m_document.page->Entries.At(1).backColor, 255U);
}

TEST_F(PageUpdate, FailureEndsThePassWhereItStands) {
    AddField(S("a"), S("SETME(1)"), S("old"));
    AddField(S("b"), S("SETME({nothing})"), S("old"));
    AddField(S("c"), S("SETME(1)"), S("old"));
    EXPECT_EQ(FailureOf([&] { UpdateFormulas(m_document); }), 5);
    EXPECT_EQ(Shown(1), S("1"));
    EXPECT_EQ(Shown(2), S("old"));
    EXPECT_EQ(Shown(3), S("old"));
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(PageUpdate, DocumentIsBusyMeanwhile) {
    m_document.SavePageHook = [this] { EXPECT_EQ(m_document.Busy, 1); };
    UpdateFormulas(m_document);
    EXPECT_EQ(m_document.Busy, 0);
}

using PageUpdateOnScreen = PageOnScreenTest;

TEST_F(PageUpdateOnScreen, TakesWhatIsBeingTypedAndTheNextSaveStoresTheResults) {
    FormText form;
    form.Page(S("A")).Field(S("x")).Formula(S("out"), S("SETME(ADD({FIELDS\\A,x},1))"));
    form.Data(1, {S("x=1"), S("out=")});
    Show(form);
    Entries_GotFocus(*m_document, 1);
    ThePage().Entry.ReportText(S("41"));
    UpdateFormulas(*m_document);
    EXPECT_EQ(Texts(), QStringList({S("41"), S("42")}));
    EXPECT_FALSE(ThePage().isEntryVisible);
    EXPECT_EQ(Lines(1).mid(1, 2), QStringList({S("x=41"), S("out=")})) << "the page stays live and unsaved";
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).mid(1, 2), QStringList({S("x=41"), S("out=42")}));
}

TEST_F(PageUpdateOnScreen, EachPassReadsItsOwnPages) {
    FormText form;
    form.Page(S("A")).Field(S("x")).Formula(S("out"), S("SETME({FIELDS\\A,x})"));
    form.Data(1, {S("x=first"), S("out=")}).Data(1, {S("x=second"), S("out=")});
    Show(form);
    UpdateFormulas(*m_document);
    EXPECT_EQ(TextAt(2), S("second"));
    ÜberupdateFormulas(*m_document, false);
    EXPECT_EQ(TextAt(2), S("first"));
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(Lines(1).at(2), S("out=first"));
    EXPECT_EQ(Lines(2).at(2), S("out=second"));
}

}  // namespace
}  // namespace sheetwright
