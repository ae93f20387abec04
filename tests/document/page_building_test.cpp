#include "document/page_building.h"

#include "document/page_building_fixture.h"
#include "document/page_view_layout.h"
#include "support/fixed_metrics.h"
#include "support/recording_printer.h"

#include <QFile>

namespace sheetwright {
namespace {

using PageBuilding = PageBuildingTest;

TEST_F(PageBuilding, OnlyFourLettersOfAWordCount) {
    Build([](FormText& form) {
        form.Record(S("FIELDX"), FormText::Extent() + FormText::Font() +
                                     QStringList{S("Name=A"), S("FieldType=0"), S("WordWrap=False"),
                                                 S("Alignment=0"), S("ReadOnly=False"), S("TabIdx=1")});
        for (const QString& word : {S("FRAME"), S("FRAMEWORK")})
            form.Record(word, QStringList(S("BorderStyle=1")) + FormText::Extent());
        form.Record(S("SOMETHING"), {S("Name=B")});
    });
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    EXPECT_EQ(Painted().size(), 8);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageBuilding, TheWordOfTheEndDecidesTheKind) {
    Build([](FormText& form) {
        form.Line(S("BEGIN FIELD"));
        for (const QString& line : QStringList(S("BorderStyle=1")) + FormText::Extent())
            form.Line(line);
        form.Line(S("END FRAME"));
        form.Field(S("A"));
    });
    EXPECT_EQ(Painted().size(), 4);
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    ASSERT_EQ(ThePage().FieldProperties.size(), 1U);
    EXPECT_EQ(ThePage().FieldProperties.front()->At(u"Name"), S("A"));
}

TEST_F(PageBuilding, ARecordThatEndsTwiceIsOneElement) {
    Build([](FormText& form) { form.Field(S("A")).Line(S("END CHECK")).Line(S("END FIELD")); });
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    EXPECT_EQ(ThePage().Checks.Count(), 0);
    EXPECT_EQ(LogRows().size(), 2);
    SavePage(*m_document);
    EXPECT_EQ(Lines(1), QStringList({S("BEGIN PAGE 1 DESIGN=1"), S("A="), S("END PAGE")}));
}

TEST_F(PageBuilding, TabOrdersAreSorted) {
    Build([](FormText& form) {
        form.Field(S("A"), {S("TabIdx=10")}).Field(S("B"), {S("TabIdx=9")}).CheckBox(S("C"), {S("TabIdx=1")});
    });
    EXPECT_EQ(ThePage().TabOrders.At(1)->At(u"Name"), S("C"));
    EXPECT_EQ(ThePage().TabOrders.At(2)->At(u"Name"), S("B"));
    EXPECT_EQ(ThePage().TabOrders.At(3)->At(u"Name"), S("A"));
}

// The page itself.

TEST_F(PageBuilding, ThePagesOwnKeysAreApplied) {
    Build([](FormText& form) { form.Field(S("A")); },
          {S("BackGround=255"), S("Drivers=One;Two"), S("Orientation=2"), S("PaperSize=9")});
    EXPECT_EQ(m_document->surfaces->picForm.BackColor, 255U);
    EXPECT_EQ(m_mainWindow.drivers, QStringList(S("One;Two")));
    EXPECT_EQ(m_application->CurrentOrientation, 2);
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
    EXPECT_EQ(m_document->MyOrientation, 2);
    EXPECT_EQ(m_document->MyPaperSize, 9);
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 16838);
    EXPECT_EQ(m_document->surfaces->picForm.Height(), 11906);
    EXPECT_EQ(m_mainWindow.panel, S("1/1 - Invoice "));
    EXPECT_EQ(m_mainWindow.box, S("1/1"));
}

TEST_F(PageBuilding, ABadBackgroundIsWhite) {
    for (const char* value : {"BackGround=1e99", "BackGround=-99999999999", "BackGround=-2147483643",
                              "BackGround=abc", "BackGround="}) {
        Build([](FormText& form) { form.Field(S("A")); }, {QString::fromLatin1(value)});
        EXPECT_EQ(m_document->surfaces->picForm.BackColor, 0xFFFFFFU) << value;
        EXPECT_TRUE(m_ui.messages.empty()) << value;
    }
}

TEST_F(PageBuilding, APageWithoutOptionalKeysIsComplete) {
    Build([](FormText& form) { form.Field(S("A")); });
    EXPECT_EQ(m_document->surfaces->picForm.BackColor, 0xFFFFFFU);
    EXPECT_EQ(m_mainWindow.drivers, QStringList(QString()));
    EXPECT_FALSE(ThePage().hasStationery);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageBuilding, APageWithoutATitleIsToldByItsDesign) {
    Build([](FormText& form) { form.Field(S("A")); }, {S("-Title")});
    EXPECT_EQ(m_mainWindow.panel, S("1/1 - Page 1 "));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageBuilding, APageWithoutPaperKeepsItsSizeAndLosesOnlyItsOwnKeys) {
    Build([](FormText& form) { form.Field(S("A")); }, {S("-PaperSize")});
    ExpectOneFailure(S("5: Invalid procedure call or argument"), S("BEGIN FIELD"));
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    EXPECT_EQ(m_mainWindow.panel, S("1/1 - Page 1 "));
}

TEST_F(PageBuilding, ADesignWithoutElementsIsNotBuilt) {
    FormText form;
    form.Page(S("First"), {S("BackGround=255")}).Field(S("A")).Page(S("Second"), {S("BackGround=7")});
    form.Data(1, {}).Data(2, {});
    Show(form);
    Turn(2);
    EXPECT_EQ(m_document->PageNum, 2);
    EXPECT_EQ(ThePage().Entries.Count(), 0);
    EXPECT_EQ(m_document->surfaces->picForm.BackColor, 255U);
    EXPECT_EQ(m_mainWindow.panel, S("2/2 - Page 2 "));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageBuilding, InstalledPrintersTakeThePaper) {
    FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    Build([](FormText& form) { form.Field(S("A")); }, {S("Orientation=2"), S("PaperSize=11")});
    EXPECT_EQ(printer.calls, QStringList({S("Orientation=2"), S("PaperSize=11")}));
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 11906);
    EXPECT_TRUE(printer.documents.empty());
    m_application->printing.printers = nullptr;
}

TEST_F(PageBuilding, APrinterThatRefusesThePaperCostsNoPage) {
    FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    Build([](FormText& form) { form.Field(S("A")); }, {S("PaperSize=77")});
    ExpectOneFailure(S("380: Invalid property value"), S("BEGIN FIELD"));
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 11906) << "the sheet that is in it";
    EXPECT_EQ(m_mainWindow.panel, S("1/1 - Invoice "));
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    m_application->printing.printers = nullptr;
}

// Stationery.

TEST_F(PageBuilding, StationeryIsPaintedOnceBehindAllElements) {
    WritePicture(S("temporary/scan.png"), 200, 400);
    Build(
        [](FormText& form) { form.Record(S("FRAME"), QStringList(S("BorderStyle=1")) + FormText::Extent()); },
        {S("PrePrinted=scan.png|192|500|500|30|45")});
    ASSERT_EQ(Painted().size(), 5);
    EXPECT_EQ(Painted().front(), S("picture 30,45 1500x3000 from 0,0 3000x6000 of 200x400 pixels"));
    EXPECT_TRUE(ThePage().hasStationery);
    SizeForm(*m_document);
    EXPECT_EQ(Painted().size(), 5);
}

TEST_F(PageBuilding, StationeryOfAWindowThatIsNotYetShownIsPaintedOnce) {
    WritePicture(S("temporary/scan.png"), 200, 400);
    m_window.shown = false;
    Build([](FormText& form) { form.Field(S("A")); }, {S("PrePrinted=scan.png|192|||0|0")});
    EXPECT_EQ(Painted().size(), 1);
}

TEST_F(PageBuilding, ADesignWithoutStationeryHasNoneAfterOneThatHas) {
    WritePicture(S("temporary/scan.png"), 200, 400);
    FormText form;
    form.Page(S("First"), {S("PrePrinted=scan.png|192|||0|0")}).Field(S("A"));
    form.Page(S("Second")).Field(S("A")).Data(1, {}).Data(2, {});
    Show(form);
    Turn(2);
    SizeForm(*m_document);
    EXPECT_FALSE(ThePage().hasStationery);
    EXPECT_TRUE(Painted().isEmpty());
    Turn(1);
    EXPECT_EQ(Painted().size(), 1);
}

TEST_F(PageBuilding, BadStationeryCostsNothingElse) {
    Build([](FormText& form) { form.Field(S("A")); }, {S("PrePrinted=none.png|99999|x|y|z|1e99")});
    EXPECT_EQ(ThePage().Entries.Count(), 1);
    EXPECT_TRUE(m_ui.messages.empty());
}

// Read-only.

TEST_F(PageBuilding, InAReadOnlyDocumentEveryFieldIsReadOnly) {
    FormText form;
    form.Page(S("P"))
        .Field(S("A"), {S("BorderStyle=1")})
        .Field(S("B"), {S("-ReadOnly"), S("READONLY=False")});
    form.Data(1, {});
    Read(form);
    m_document->MyReadonly = true;
    LoadPage(*m_document);
    for (const int number : {1, 2})
        EXPECT_TRUE(ThePage().Entries.At(number).isTransparent) << number;
    EXPECT_EQ(ThePage().FieldProperties[0]->At(u"ReadOnly"), S("True"));
    EXPECT_TRUE(ThePage().Entries.At(1).hasBorder);
    EXPECT_EQ(TextsOf(m_document->memory.DesignPage(1)).filter(S("ReadOnly=False")).size(), 1)
        << "the design keeps its word";
}

class ViewerPageBuilding : public PageBuildingTest {
  protected:
    ViewerPageBuilding() : PageBuildingTest(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(ViewerPageBuilding, EveryFieldIsReadOnly) {
    BuildField({S("ReadOnly=False")});
    EXPECT_TRUE(ThePage().Entries.At(1).isTransparent);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(ViewerPageBuilding, AFieldWithoutTheKeyFailsOnTheMissingKey) {
    BuildField({S("-ReadOnly")});
    ExpectOneFailure(S("5: Invalid procedure call or argument"), S("END FIELD"));
    EXPECT_FALSE(ThePage().FieldProperties.front()->Contains(u"ReadOnly"));
}

class ReportPageBuilding : public PageBuildingTest {
  protected:
    ReportPageBuilding() : PageBuildingTest(S("Tolvane Reports")) {}
};

TEST_F(ReportPageBuilding, FailuresAreToldToTheHost) {
    BuildField({S("-Width")});
    EXPECT_EQ(m_ui.hostLines, QStringList(S("ERROR: Loading the form design")));
    EXPECT_TRUE(m_ui.messages.empty());
}

// Failures.

TEST_F(PageBuilding, AMissingKeyLeavesTheElementHalfMadeAndTheRestGoesOn) {
    for (const char* key :
         {"Name", "AbsLeft", "AbsTop", "Width", "Height", "FontName", "FontSize", "FontBold", "FontItalic",
          "FontStrikethru", "FontUnderline", "ForeColor", "WordWrap", "Alignment", "ReadOnly", "TabIdx"}) {
        m_ui.messages.clear();
        QFile::remove(m_application->LogFolder + S("errors.csv"));
        Build([&](FormText& form) { form.Field(S("A"), {u'-' + QString::fromLatin1(key)}).Field(S("B")); });
        SCOPED_TRACE(key);
        ExpectOneFailure(S("5: Invalid procedure call or argument"), S("END FIELD"));
        EXPECT_FALSE(ThePage().names.Contains(u"A"));
        ASSERT_EQ(ThePage().Entries.Count(), 2);
        EXPECT_EQ(ThePage().names.At(u"B")->At(u"Key"), S("2"));
    }
}

TEST_F(PageBuilding, ALineWithoutAnEqualsSignIsLoggedAndSkipped) {
    Build([](FormText& form) {
        form.Field(S("A")).Line(S("nonsense")).Line(S("BEGIN FRAME")).Line(S("END FRAME"));
    });
    EXPECT_EQ(m_ui.messages, Messages{DesignMessage()});
    EXPECT_EQ(LogRows(),
              QStringList({DesignRow(S("9: Subscript out of range"), S("nonsense")),
                           DesignRow(S("5: Invalid procedure call or argument"), S("END FRAME"))}));
    EXPECT_TRUE(ThePage().names.Contains(u"A"));
}

TEST_F(PageBuilding, AKeyThatStandsTwiceIsAFailureAndTheFirstStays) {
    Build([](FormText& form) { form.Line(S("Title2=x")).Line(S("TITLE2=y")).Field(S("A")); });
    ExpectOneFailure(S("457: This key is already associated with an element of this collection"),
                     S("TITLE2=y"));
}

TEST_F(PageBuilding, ADuplicateTabIndexOrNameKeepsTheElementOutOfTheIndex) {
    Build([](FormText& form) {
        form.Field(S("A"))
            .Field(S("B"), {S("TabIdx=1")})
            .CheckBox(S("a"), {S("TabIdx=3")})
            .Field(S("C"), {S("TabIdx=4")});
    });
    EXPECT_EQ(m_ui.messages, Messages{DesignMessage()});
    EXPECT_EQ(LogRows().size(), 2);
    EXPECT_FALSE(ThePage().names.Contains(u"B"));
    EXPECT_EQ(ThePage().names.At(u"A")->At(u"Key"), S("1"));
    EXPECT_EQ(ThePage().names.At(u"C")->At(u"Key"), S("3"));
    EXPECT_EQ(ThePage().Entries.Count(), 3);
    EXPECT_EQ(ThePage().Checks.Count(), 1);
}

TEST_F(PageBuilding, WithoutResourcesEachFurtherCheckBoxIsAFailure) {
    FormText form;
    form.Page(S("P")).CheckBox(S("A")).CheckBox(S("B")).Field(S("C")).Data(1, {});
    Read(form);
    m_ui.onPump = [this] { m_mainWindow.freeResources = m_ui.pumps == 1 ? 15 : 14; };
    LoadPage(*m_document);
    ExpectOneFailure(S("7: Out of memory"), S("END CHECK"));
    EXPECT_EQ(ThePage().Checks.Count(), 1);
    EXPECT_EQ(ThePage().CheckProperties.size(), 1U);
    EXPECT_TRUE(ThePage().names.Contains(u"A"));
    EXPECT_TRUE(ThePage().names.Contains(u"C"));
}

TEST_F(PageBuilding, ADesignThatIsNotThereIsAFailure) {
    FormText form;
    form.Page(S("P")).Field(S("A")).Data(7, {S("A=kept")});
    Show(form);
    EXPECT_EQ(m_ui.messages, (Messages{DesignMessage(), FormMessage()}));
    EXPECT_EQ(ThePage().Entries.Count(), 0);
    SavePage(*m_document);
    EXPECT_TRUE(Lines(1).contains(S("A=kept"))) << "nothing was built that could be saved";
}

// The walk.

TEST_F(PageBuilding, StatusPointerAndProgressTellOfTheWork) {
    FormText form;
    form.Page(S("P"));
    for (int number = 1; number <= 20; ++number)
        form.Field(S("A%1").arg(number));
    form.Data(1, {});
    Read(form);
    m_document->PageNum = 1;
    Forget();
    LoadDesignPage(*m_document);
    QStringList different = m_ui.statuses;
    different.removeDuplicates();
    EXPECT_EQ(different, QStringList({S("Clearing page..."), S("Loading form template..."), S("Ready")}));
    EXPECT_EQ(m_ui.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Normal, Pointer::Hourglass,
                                                   Pointer::Normal}));
    ASSERT_EQ(m_ui.progress.size(), 4U) << "once in a hundred lines";
    EXPECT_GT(m_ui.progress.front(), 20);
    EXPECT_LT(m_ui.progress.front(), 30);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(PageBuilding, AQuietDocumentShowsNothingOfTheWork) {
    FormText form;
    form.Page(S("P"));
    for (int number = 1; number <= 20; ++number)
        form.Field(S("A%1").arg(number));
    form.Data(1, {});
    Read(form);
    m_document->PageNum = 1;
    m_document->Quiet = true;
    Forget();
    LoadDesignPage(*m_document);
    EXPECT_TRUE(m_ui.statuses.isEmpty());
    EXPECT_TRUE(m_ui.pointers.empty());
    EXPECT_TRUE(m_ui.progress.empty());
    EXPECT_EQ(ThePage().Entries.Count(), 20);
}

TEST_F(PageBuilding, ThePageIsHiddenWhileItIsBuilt) {
    FormText form;
    form.Page(S("P")).CheckBox(S("A")).Data(1, {});
    Read(form);
    bool wasVisible = true;
    int wasBusy = 0;
    m_ui.onPump = [&] {
        wasVisible = m_document->surfaces->picForm.Visible;
        wasBusy = m_document->Busy;
    };
    m_document->PageNum = 1;
    LoadDesignPage(*m_document);
    EXPECT_FALSE(wasVisible);
    EXPECT_GT(wasBusy, 0);
    EXPECT_EQ(m_document->Busy, 0);
    EXPECT_TRUE(m_document->surfaces->picForm.Visible);
    EXPECT_EQ(m_window.calls.back(), S("PageChanged"));
}

TEST_F(PageBuilding, ClearPageRemovesAllElementsAndWhatTheUserDidWithThem) {
    Build([](FormText& form) {
        form.Field(S("A")).Field(S("B"), {S("TabIdx=1")}).CheckBox(S("C")).PictureField(S("D"));
        form.Record(S("FRAME"), QStringList(S("BorderStyle=1")) + FormText::Extent());
    });
    Page& page = ThePage();
    page.CurrentEntry = {ElementKind::Entry, 1};
    page.isEntryVisible = true;
    page.drag = {1, 5, 5, 1};
    m_document->DataPageNum = 3;
    m_document->Pages = 4;
    m_ui.SetStatus(S("Busy..."));
    Forget();
    m_ui.SetStatus(S("Busy..."));
    ClearPage(*m_document);
    EXPECT_EQ(page.Entries.Count() + page.Checks.Count() + page.Bitmaps.Count(), 0);
    EXPECT_TRUE(page.names.IsEmpty() && page.TabOrders.IsEmpty());
    EXPECT_TRUE(page.FieldProperties.empty() && page.CheckProperties.empty() &&
                page.BitmapProperties.empty());
    EXPECT_TRUE(page.CurrentEntry.IsNone());
    EXPECT_FALSE(page.isEntryVisible);
    EXPECT_EQ(page.drag.source, 0);
    EXPECT_EQ(page.drag.mode, 0);
    EXPECT_EQ(m_window.Count(S("HideEntry")), 1);
    EXPECT_EQ(m_window.Count(S("EndDrag")), 1);
    EXPECT_TRUE(Painted().isEmpty());
    EXPECT_EQ(m_mainWindow.panel, S("3/4 - Page 1 "));
    EXPECT_EQ(m_mainWindow.box, S("3/4"));
    EXPECT_EQ(m_ui.Status(), S("Busy..."));
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(PageBuilding, FiveThousandElementsAreBuilt) {
    Build([](FormText& form) {
        for (int number = 1; number <= 5000; ++number)
            form.Field(S("A%1").arg(number));
    });
    EXPECT_EQ(ThePage().Entries.Count(), 5000);
    EXPECT_EQ(ThePage().names.At(u"A5000")->At(u"Key"), S("5000"));
    EXPECT_TRUE(m_ui.messages.empty());
    ClearPage(*m_document);
    EXPECT_EQ(ThePage().Entries.Count(), 0);
}

TEST_F(PageBuilding, AnElementOfAnUnknownKindIsNoFailure) {
    Build([](FormText& form) { form.Field(S("A")); });
    MakeForm(*m_document, u"XXXX", std::make_shared<PropertyBag>());
    EXPECT_EQ(FailureOf([&] { MakeForm(*m_document, u"FRAM", std::make_shared<PropertyBag>()); }), 5);
}

}  // namespace
}  // namespace sheetwright
