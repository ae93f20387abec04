#include "document/page_view_layout.h"

#include "document/page_on_screen_test.h"
#include "support/fixed_metrics.h"
#include "support/recording_printer.h"

namespace sheetwright {
namespace {

using Messages = std::vector<ShownMessage>;

class PageViewLayout : public PageOnScreenTest {
  protected:
    // An A4 page, 794 by 1123 pixels, with fields at the corners.
    PageViewLayout() {
        FormText form;
        form.Page(S("P"));
        form.Field(S("A"), PlaceAt(150, 300)).Field(S("B"), PlaceAt(9000, 15000));
        form.CheckBox(S("C"), PlaceAt(4500, 7500)).Data(1, {});
        Show(form);
    }
    static QStringList PlaceAt(int left, int top) {
        return {S("AbsLeft=%1").arg(left), S("AbsTop=%1").arg(top), S("Width=1515"), S("Height=315")};
    }
    // The part in which the page shows then is that large.
    void Resize(double width, double height) {
        m_window.inside = {width + m_window.scrollBarBreadth, height + m_window.scrollBarBreadth};
        SizeForm(*m_document);
    }
    void Focus(ElementRef element) {
        ThePage().CurrentEntry = element;
        AutoScroll(*m_document);
    }
    [[nodiscard]] const ScrollBar& Horizontal() const { return ThePage().hsbForm; }
    [[nodiscard]] const ScrollBar& Vertical() const { return ThePage().vsbForm; }
};

TEST_F(PageViewLayout, ThePageIsAsLargeAsItsPaper) {
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 11906);
    EXPECT_EQ(m_document->surfaces->picForm.Height(), 16838);
}

TEST_F(PageViewLayout, TheClipWindowFillsTheWindowLessTheScrollBars) {
    m_window.inside = {6240, 7740};
    SizeForm(*m_document);
    EXPECT_EQ(ThePage().picContainer, (Size{6000, 7500}));
    EXPECT_TRUE(Horizontal().isVisible);
    EXPECT_TRUE(Vertical().isVisible);
    EXPECT_EQ(Horizontal().smallChange, 10);
    EXPECT_EQ(Horizontal().largeChange, 390);
    EXPECT_EQ(Vertical().largeChange, 490);
    EXPECT_EQ(Horizontal().max, 394) << "the last part of a pixel, too";
    EXPECT_EQ(Vertical().max, 623);
}

TEST_F(PageViewLayout, AScrollBarShowsOnlyForMoreThanOnePixel) {
    Resize(11906 - 15, 16838 - 16);
    EXPECT_FALSE(Horizontal().isVisible);
    EXPECT_TRUE(Vertical().isVisible);
    Resize(20000, 20000);
    EXPECT_FALSE(Horizontal().isVisible);
    EXPECT_EQ(Horizontal().max, 0);
}

TEST_F(PageViewLayout, AWindowSmallerThanItsScrollBarsShowsNothing) {
    m_window.inside = {100, 0};
    SizeForm(*m_document);
    EXPECT_EQ(ThePage().picContainer, (Size{0, 0}));
    EXPECT_EQ(Horizontal().largeChange, 1);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageViewLayout, ALargerWindowScrollsBack) {
    Resize(6000, 6000);
    ScrollTo(*m_document, 1000, 1000);
    EXPECT_EQ(Vertical().value, Vertical().max);
    Resize(20000, 15000);
    EXPECT_EQ(Horizontal().value, 0);
    EXPECT_EQ(m_document->surfaces->picForm.Left, 0);
    EXPECT_EQ(Vertical().value, 123);
    EXPECT_EQ(m_document->surfaces->picForm.Top, -123 * 15);
}

TEST_F(PageViewLayout, APageThatIsBuiltInAMinimisedWindowIsSized) {
    m_window.minimised = true;
    m_application->CurrentPaperSize = 11;
    m_document->MyPaperSize = 11;
    SizeForm(*m_document);
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 8391);
    EXPECT_EQ(m_document->surfaces->picForm.Height(), 11906);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageViewLayout, TheWindowIsToldOfTheLayout) {
    m_window.calls.clear();
    SizeForm(*m_document);
    EXPECT_EQ(m_window.calls, QStringList(S("LayoutChanged")));
}

TEST_F(PageViewLayout, APaperOfAnotherDocumentIsPutRight) {
    m_application->CurrentOrientation = 2;
    m_application->CurrentPaperSize = 11;
    m_mainWindow.calls.clear();
    SizeForm(*m_document);
    EXPECT_EQ(m_mainWindow.calls, QStringList(S("RefreshPageList")));
    EXPECT_EQ(m_application->CurrentOrientation, 1);
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
    SizeForm(*m_document);
    EXPECT_EQ(m_mainWindow.calls.size(), 1);
}

TEST_F(PageViewLayout, AFailureIsToldOnceAndTheRestStands) {
    Write(S("papersizes.csv"), "NAME\r\nA4\r\n");
    m_application->LoadPaperTable();
    m_window.inside = {3240, 3240};
    SizeForm(*m_document);
    EXPECT_EQ(
        m_ui.messages,
        (Messages{{S("Error adjusting form size"), S("Warning"), MessageIcon::None, MessageButtons::Ok}}));
    EXPECT_EQ(m_document->surfaces->picForm.Width(), 11906);
    EXPECT_EQ(ThePage().picContainer, (Size{3000, 3000}));
}

TEST_F(PageViewLayout, ScrollingStaysWithinTheRanges) {
    Resize(6000, 6000);
    m_window.calls.clear();
    ScrollTo(*m_document, -5, 99999);
    EXPECT_EQ(Horizontal().value, 0);
    EXPECT_EQ(Vertical().value, Vertical().max);
    EXPECT_EQ(m_document->surfaces->picForm.Top, -15.0 * Vertical().max);
    ScrollTo(*m_document, 7, 8);
    EXPECT_EQ(m_document->surfaces->picForm.Left, -105);
    EXPECT_EQ(m_document->surfaces->picForm.Top, -120);
    EXPECT_EQ(m_window.calls, QStringList({S("Scrolled"), S("Scrolled")}));
    ScrollTo(*m_document, 7, 8);
    EXPECT_EQ(m_window.calls.size(), 2) << "nothing moved";
}

TEST_F(PageViewLayout, TheFocusIsBroughtIntoViewFromAllSides) {
    Resize(6000, 6000);
    Focus({ElementKind::Entry, 2});  // to 10500 and 15300 twips, behind the window's 6000
    EXPECT_EQ(Horizontal().value, 300);
    EXPECT_EQ(Vertical().value, 620);
    Focus({ElementKind::Check, 1});  // begins at 4500 and 7500
    EXPECT_EQ(Horizontal().value, 300) << "in view already";
    EXPECT_EQ(Vertical().value, 500);
    Focus({ElementKind::Entry, 1});
    EXPECT_EQ(Horizontal().value, 10);
    EXPECT_EQ(Vertical().value, 20);
}

TEST_F(PageViewLayout, OfAnElementLargerThanTheWindowTheBeginningShows) {
    Resize(750, 150);
    Focus({ElementKind::Entry, 2});
    EXPECT_EQ(Horizontal().value, 600);
    EXPECT_EQ(Vertical().value, 1000);
}

TEST_F(PageViewLayout, TheEditorIsFollowedWhereItStands) {
    Resize(6000, 6000);
    ThePage().isEntryVisible = true;
    ThePage().entryPlace = {0, 9000, 1500, 600};
    Focus({ElementKind::Entry, 1});
    EXPECT_EQ(Vertical().value, 240);
}

TEST_F(PageViewLayout, WithoutFocusNothingScrolls) {
    Resize(6000, 6000);
    ScrollTo(*m_document, 5, 6);
    Focus(ElementRef{});
    EXPECT_EQ(Vertical().value, 6);
}

TEST_F(PageViewLayout, RefreshingShowsPagesAndDriversAndSetsThePaper) {
    FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    ThePage().Drivers = S("One");
    m_document->MyOrientation = 2;
    m_document->MyPaperSize = 77;
    m_mainWindow.calls.clear();
    m_mainWindow.drivers.clear();
    RefreshPageControl(*m_document);
    EXPECT_EQ(m_mainWindow.calls, QStringList(S("RefreshPageList")));
    EXPECT_EQ(m_mainWindow.drivers, QStringList(S("One")));
    EXPECT_EQ(m_application->CurrentOrientation, 2);
    EXPECT_EQ(m_application->CurrentPaperSize, 77);
    EXPECT_EQ(printer.calls, QStringList({S("Orientation=2"), S("PaperSize=77")})) << "refused quietly";
    m_application->printing.printers = nullptr;
}

TEST_F(PageViewLayout, RefreshingWithoutAPageLeavesThePaperAlone) {
    m_document->MyOrientation = 0;
    m_document->MyPaperSize = 0;
    m_application->CurrentPaperSize = 11;
    RefreshPageControl(*m_document);
    EXPECT_EQ(m_application->CurrentPaperSize, 11);
}

}  // namespace
}  // namespace sheetwright
