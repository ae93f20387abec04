#include "document/page_data.h"

#include "core/text.h"
#include "document/page_on_screen_test.h"
#include "fields/editing.h"

#include <QFile>

namespace sheetwright {
namespace {

using Messages = std::vector<ShownMessage>;

class PageData : public PageOnScreenTest {
  protected:
    using PageOnScreenTest::PageOnScreenTest;

    // A design of two text fields, a check box of four states and a picture field.
    static FormText Form() {
        FormText form;
        form.Page(S("Invoice")).Field(S("A")).CheckBox(S("C")).PictureField(S("D")).Field(S("B"));
        return form;
    }
    static QStringList Values(const QString& a, const QString& b, const QString& c = S("0"),
                              const QString& d = QString()) {
        return {S("A=") + a, S("B=") + b, S("C=") + c, S("D=") + d};
    }
};

TEST_F(PageData, LoadingPutsTheValuesIntoTheElements) {
    FormText form = Form();
    form.Data(1, {S("D=photo.bmp"), S("c=3"), S("B=two"), S("A=one")});
    Show(form);
    EXPECT_EQ(Texts(), QStringList({S("one"), S("two")}));
    EXPECT_EQ(Check(1).Value(), S("3"));
    EXPECT_EQ(Bitmap(1).Value(), S("photo.bmp"));
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageData, SavingWritesTextsCheckBoxesAndPicturesInTheOrderOfTheDesign) {
    FormText form = Form();
    form.Data(1, {S("D=photo.bmp"), S("C=3"), S("B=two"), S("A=one")});
    Show(form);
    SavePage(*m_document);
    EXPECT_EQ(Lines(1), QStringList({S("BEGIN PAGE 1 DESIGN=1"), S("A=one"), S("B=two"), S("C=3"),
                                     S("D=photo.bmp"), S("END PAGE")}));
}

TEST_F(PageData, SavingTwiceGivesTheSameLines) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two=2"), S("1"), S("photo.bmp")));
    Show(form);
    SavePage(*m_document);
    const QStringList first = Lines(1);
    SavePage(*m_document);
    EXPECT_EQ(Lines(1), first);
}

TEST_F(PageData, AValueWithAnEqualsSignComesBackWhole) {
    FormText form = Form();
    form.Data(1, {S("A=x=y==z"), S("B==")});
    Show(form);
    EXPECT_EQ(Texts(), QStringList({S("x=y==z"), S("=")}));
    SavePage(*m_document);
    EXPECT_TRUE(Lines(1).contains(S("A=x=y==z")));
    EXPECT_TRUE(Lines(1).contains(S("B==")));
}

TEST_F(PageData, ALineBreakIsCarriedAsSuch) {
    FormText form = Form();
    form.Data(1, {S("A=first\x7Fsecond"), S("B=")});
    Show(form);
    EXPECT_EQ(TextAt(1), S("first\r\nsecond"));
    ThePage().Entries.At(2).text = S("one\ntwo\rthree");
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).at(1), S("A=first\r\nsecond"));
    EXPECT_EQ(Lines(1).at(2), S("B=one\r\ntwo\r\nthree"));
}

TEST_F(PageData, Character127IsALineBreak) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    ThePage().Entries.At(1).text = S("one\x7Ftwo");
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).at(1), S("A=one\r\ntwo"));
}

TEST_F(PageData, ReadOnlyAndHiddenFieldsAreLoadedAndSavedAsAnyOther) {
    FormText form;
    form.Page(S("P")).Field(S("A"), {S("ReadOnly=True")}).Field(S("B"), {S("Visible=False")});
    form.Data(1, {S("A=one"), S("B=two")}).Data(1, {S("A=three"), S("B=four")});
    Show(form);
    Turn(2);
    EXPECT_EQ(Texts(), QStringList({S("three"), S("four")}));
    EXPECT_FALSE(ThePage().Entries.At(2).isVisible);
    SavePage(*m_document);
    EXPECT_EQ(Lines(2).mid(1, 2), QStringList({S("A=three"), S("B=four")}));
    EXPECT_EQ(Lines(1).mid(1, 2), QStringList({S("A=one"), S("B=two")}));
}

TEST_F(PageData, APageWithoutValuesShowsEmptyFields) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"), S("3"), S("photo.bmp"))).Data(1, {});
    Show(form);
    Turn(2);
    EXPECT_EQ(Texts(), QStringList({QString(), QString()}));
    EXPECT_EQ(Check(1).Value(), S("0"));
    EXPECT_EQ(Bitmap(1).Value(), S("0"));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageData, AMissingLineLeavesTheValueOfThePageBefore) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"), S("3"))).Data(1, {S("A=three")});
    Show(form);
    Turn(2);
    EXPECT_EQ(Texts(), QStringList({S("three"), S("two")}));
    EXPECT_EQ(Check(1).Value(), S("3"));
}

TEST_F(PageData, TurningToAPageOfTheSameDesignReloadsOnlyValues) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"))).Data(1, Values(S("three"), S("four")));
    Show(form);
    const usrEntry* const check = &Check(1);
    m_mainWindow.undoEnabled = true;
    Turn(2);
    EXPECT_EQ(&Check(1), check);
    EXPECT_EQ(Texts(), QStringList({S("three"), S("four")}));
    EXPECT_FALSE(m_mainWindow.undoEnabled);
    EXPECT_EQ(m_mainWindow.panel, S("2/2 - Invoice "));
    EXPECT_EQ(m_mainWindow.box, S("2/2"));
}

TEST_F(PageData, AnotherDesignIsBuiltAnew) {
    FormText form = Form();
    form.Page(S("Terms")).Field(S("T")).Data(1, Values(S("one"), S("two"))).Data(2, {S("T=terms")});
    Show(form);
    m_mainWindow.undoEnabled = true;
    Turn(2);
    EXPECT_EQ(m_document->PageNum, 2);
    EXPECT_EQ(Texts(), QStringList(S("terms")));
    EXPECT_EQ(ThePage().Checks.Count(), 0);
    EXPECT_FALSE(m_mainWindow.undoEnabled);
    EXPECT_EQ(m_mainWindow.panel, S("2/2 - Terms "));
    Turn(1);
    EXPECT_EQ(Texts(), QStringList({S("one"), S("two")}));
}

TEST_F(PageData, LoadingTheSamePageAgainLeavesUndoAndPanelAlone) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    m_mainWindow.undoEnabled = true;
    m_mainWindow.panels.clear();
    ThePage().Entries.At(1).text = S("typed");
    LoadPage(*m_document);
    EXPECT_EQ(TextAt(1), S("one"));
    EXPECT_TRUE(m_mainWindow.undoEnabled);
    EXPECT_TRUE(m_mainWindow.panels.isEmpty());
}

TEST_F(PageData, TitlesAreFetchedByPosition) {
    FormText form;
    form.Page(S("none"), {S("-Title")}).Field(S("A")).Page(S("Second")).Field(S("A"));
    form.Data(1, {S("A=1")}).Data(1, {S("A=2")}).Data(2, {S("A=3")}).Data(2, {S("A=4")});
    Show(form);
    EXPECT_EQ(m_mainWindow.panel, S("1/4 - Page 1 "));
    Turn(2);
    EXPECT_EQ(m_mainWindow.panel, S("2/4 - Second ")) << "the first title that was read";
    Turn(3);
    EXPECT_EQ(m_mainWindow.panel, S("3/4 - Second ")) << "built from the design";
    Turn(4);
    EXPECT_EQ(m_mainWindow.panel, S("4/4 - Page 2 ")) << "no second title";
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageData, WithoutDataPagesNothingIsLoaded) {
    FormText form = Form();
    Read(form);
    while (m_document->memory.DataPageCount() > 0)
        m_document->memory = MemoryBlock();
    Forget();
    LoadPage(*m_document);
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_TRUE(m_mainWindow.calls.isEmpty());
    EXPECT_EQ(m_document->PageNum, 0);
}

TEST_F(PageData, BeforeAnythingIsLoadedNothingIsSaved) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Read(form);
    const QStringList before = Lines(1);
    SavePage(*m_document);
    EXPECT_EQ(Lines(1), before);
}

TEST_F(PageData, APageThatIsBeingBuiltIsNotSaved) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Read(form);
    const QStringList before = Lines(1);
    m_ui.onPump = [this] { SavePage(*m_document); };
    LoadPage(*m_document);
    EXPECT_EQ(m_ui.pumps, 1);
    EXPECT_EQ(Lines(1), before);
    EXPECT_EQ(Texts(), QStringList({S("one"), S("two")}));
}

TEST_F(PageData, ALineForWhichTheDesignHasNoElementIsGoneWithTheNextSave) {
    FormText form = Form();
    form.Data(1, {S("Z=old"), S("A=one"), S("B=two")});
    Show(form);
    EXPECT_EQ(m_ui.messages, Messages{FormMessage()});
    EXPECT_EQ(LogRows(), QStringList(PageRow(S("5: Invalid procedure call or argument"))));
    EXPECT_EQ(Texts(), QStringList({S("one"), S("two")}));
    SavePage(*m_document);
    EXPECT_FALSE(Lines(1).contains(S("Z=old")));
}

TEST_F(PageData, ALineWithoutAnEqualsSignIsLoggedAndSkipped) {
    FormText form = Form();
    form.Data(1, {S("nonsense"), S("A=one"), S("gibberish")});
    Show(form);
    EXPECT_EQ(m_ui.messages, Messages{FormMessage()});
    EXPECT_EQ(LogRows(), QStringList({PageRow(S("9: Subscript out of range")),
                                      PageRow(S("9: Subscript out of range"))}));
    EXPECT_EQ(TextAt(1), S("one"));
}

TEST_F(PageData, AValueThatACheckBoxRejectsIsLoggedAndTheRestLoads) {
    FormText form;
    form.Page(S("P")).CheckBox(S("A"), {S("States=2")}).CheckBox(S("B"), {S("States=2")}).Field(S("C"));
    form.Data(1, {S("A=1"), S("B=1"), S("C=x")}).Data(1, {S("A=7"), S("B=99999"), S("C=y")});
    Show(form);
    EXPECT_TRUE(m_ui.messages.empty());
    Turn(2);
    EXPECT_EQ(m_ui.messages, Messages{FormMessage()});
    EXPECT_EQ(LogRows(), QStringList({PageRow(S("380: Invalid property value")),
                                      PageRow(S("380: Invalid property value"))}));
    EXPECT_EQ(Check(1).Value(), S("1")) << "as it was";
    EXPECT_EQ(TextAt(1), S("y"));
}

TEST_F(PageData, AnyTextIsAState) {
    FormText form;
    form.Page(S("P")).CheckBox(S("A")).CheckBox(S("B")).CheckBox(S("C")).CheckBox(S("D"), {S("States=0")});
    form.Data(1, {S("A=abc"), S("B=-1"), S("C="), S("D=0")});
    Show(form);
    EXPECT_EQ(Check(1).Value(), S("0"));
    EXPECT_EQ(Check(2).Value(), S("1"));
    EXPECT_EQ(Check(3).Value(), S("0"));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageData, AHeaderThatCanNotBeReadIsAFailureAndTheDesignStays) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"))).Data(1, Values(S("three"), S("four")));
    Show(form);
    m_document->memory.ReplaceDataLine(2, 1, S("BEGIN PAGE 2 DESIGN=x"));
    Turn(2);
    EXPECT_EQ(LogRows(), QStringList(PageRow(S("13: Type mismatch"))));
    EXPECT_EQ(Texts(), QStringList({S("three"), S("four")}));
    EXPECT_EQ(m_document->PageNum, 1);
}

TEST_F(PageData, APageNumberOutsideTheDocumentIsAFailure) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    m_document->DataPageNum = 9;
    LoadPage(*m_document);
    EXPECT_EQ(LogRows(), QStringList(PageRow(S("9: Subscript out of range"))));
    EXPECT_EQ(m_ui.messages, Messages{FormMessage()});
    EXPECT_TRUE(m_mainWindow.enabled);
}

TEST_F(PageData, TheSnapshotForUndoIsPage0) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    m_document->DataPageNum = 0;
    SavePage(*m_document);
    m_document->DataPageNum = 1;
    EXPECT_EQ(Lines(0), QStringList({S("BEGIN PAGE 0 DESIGN=1"), S("A=one"), S("B=two"), S("C=0"), S("D="),
                                     S("END PAGE")}));
    ThePage().Entries.At(1).text = S("typed");
    m_document->DataPageNum = 0;
    LoadPage(*m_document);
    EXPECT_EQ(TextAt(1), S("one"));
}

TEST_F(PageData, AnElementWithoutANameHasNoLine) {
    FormText form;
    form.Page(S("P")).Field(S("x"), {S("-Name")}).Field(S("A")).Data(1, {S("A=one")});
    Show(form);
    SavePage(*m_document);
    EXPECT_EQ(Lines(1), QStringList({S("BEGIN PAGE 1 DESIGN=1"), S("A=one"), S("END PAGE")}));
}

TEST_F(PageData, AnElementThatIsNotInTheIndexIsSavedEmpty) {
    FormText form;
    form.Page(S("P")).Field(S("A")).Field(S("B"), {S("TabIdx=1")}).Data(1, {S("A=one"), S("B=two")});
    Show(form);
    EXPECT_EQ(m_ui.messages, (Messages{DesignMessage(), FormMessage()}));
    EXPECT_EQ(Texts(), QStringList({S("one"), QString()}));
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).mid(1, 2), QStringList({S("A=one"), S("B=")}));
}

// What is shown meanwhile.

TEST_F(PageData, StatusWordsTellOfASave) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    Forget();
    SavePage(*m_document);
    EXPECT_EQ(m_ui.statuses, QStringList({S("Clearing memory block..."), S("Saving fields..."),
                                          S("Saving checkboxes..."), S("Saving bitmaps..."), S("Ready")}));
    EXPECT_EQ(m_ui.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Normal}));
    EXPECT_EQ(m_ui.progress, (std::vector<int>{50, 100}));
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(PageData, StatusWordsTellOfALoad) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    Forget();
    LoadPage(*m_document);
    QStringList different = m_ui.statuses;
    different.removeDuplicates();
    EXPECT_EQ(different, QStringList({S("Loading data..."), S("Ready")}));
    EXPECT_EQ(m_ui.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Normal}));
    EXPECT_EQ(m_mainWindow.calls, QStringList({S("disabled"), S("enabled")}));
}

TEST_F(PageData, AQuietDocumentShowsNothingOfSavesAndLoads) {
    FormText form = Form();
    form.Page(S("Terms")).Field(S("T")).Data(1, Values(S("one"), S("two"))).Data(2, {S("T=terms")});
    Show(form);
    m_document->Quiet = true;
    m_mainWindow.enabled = false;
    Forget();
    Turn(2);
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_TRUE(m_ui.pointers.empty());
    EXPECT_TRUE(m_ui.progress.empty());
    EXPECT_EQ(Texts(), QStringList(S("terms")));
    EXPECT_FALSE(m_mainWindow.enabled) << "as the bulk work left it";
}

TEST_F(PageData, TheMainWindowIsDisabledAndTheDocumentBusyWhileThePageIsBuilt) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Read(form);
    bool wasEnabled = true;
    int wasBusy = 0;
    m_ui.onPump = [&] {
        wasEnabled = m_mainWindow.enabled;
        wasBusy = m_document->Busy;
    };
    LoadPage(*m_document);
    EXPECT_FALSE(wasEnabled);
    EXPECT_GT(wasBusy, 0);
    EXPECT_TRUE(m_mainWindow.enabled);
    EXPECT_EQ(m_document->Busy, 0);
}

TEST_F(PageData, LoadingScrollsToTheTopAndTellsTheWindowOnce) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"))).Data(1, Values(S("three"), S("four")));
    m_window.inside = {3000, 3000};
    Show(form);
    ThePage().hsbForm.value = 20;
    ThePage().vsbForm.value = 30;
    m_document->surfaces->picForm.Left = -300;
    m_document->surfaces->picForm.Top = -450;
    Forget();
    Turn(2);
    EXPECT_EQ(ThePage().hsbForm.value, 0);
    EXPECT_EQ(ThePage().vsbForm.value, 0);
    EXPECT_EQ(m_document->surfaces->picForm.Top, 0);
    EXPECT_EQ(m_window.calls, QStringList({S("Scrolled"), S("PageChanged")}));
}

TEST_F(PageData, BlanksAreMarkedAfterALoad) {
    FormText form = Form();
    form.Data(1, Values(S("one"), QString()));
    m_mainWindow.blankTicked = true;
    Show(form);
    EXPECT_EQ(ThePage().Entries.At(1).backColor, 0xFFFFFFU);
    EXPECT_EQ(ThePage().Entries.At(2).backColor, 255U);
}

// The editor.

TEST_F(PageData, SavingTakesWhatIsBeingTyped) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two")));
    Show(form);
    Entries_GotFocus(*m_document, 1);
    ThePage().Entry.ReportText(S("typed"));
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).at(1), S("A=typed"));
    EXPECT_FALSE(ThePage().isEntryVisible);
}

TEST_F(PageData, WhatIsTypedIntoOnePageDoesNotGoIntoTheNext) {
    FormText form = Form();
    form.Data(1, Values(S("one"), S("two"))).Data(1, Values(S("three"), S("four")));
    Show(form);
    Entries_GotFocus(*m_document, 1);
    ThePage().Entry.ReportText(S("typed"));
    m_document->DataPageNum = 2;
    LoadPage(*m_document);
    SavePage(*m_document);
    EXPECT_EQ(Lines(2).at(1), S("A=three"));
    EXPECT_FALSE(m_window.entryShown);
}

// Size and speed.

TEST_F(PageData, FiveThousandValuesAreLoadedAndSaved) {
    FormText form;
    form.Page(S("P"));
    QStringList values;
    for (int number = 1; number <= 5000; ++number) {
        form.Field(S("A%1").arg(number));
        values << S("A%1=%1").arg(number);
    }
    form.Data(1, values);
    Show(form);
    EXPECT_EQ(TextAt(5000), S("5000"));
    SavePage(*m_document);
    EXPECT_EQ(Lines(1).mid(1, 5000), values);
}

class ReportPageData : public PageData {
  protected:
    ReportPageData() : PageData(S("Tolvane Reports")) {}
};

TEST_F(ReportPageData, FailuresAreToldToTheHost) {
    FormText form = Form();
    form.Data(1, {S("Z=old")});
    Show(form);
    EXPECT_EQ(m_ui.hostLines, QStringList(S("ERROR: Loading the form")));
    EXPECT_TRUE(m_ui.messages.empty());
}

}  // namespace
}  // namespace sheetwright
