#include "document/page_view_layout.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "print/device.h"
#include "print/form_surfaces.h"
#include "print/page_stationery.h"
#include "print/paper_table.h"
#include "print/units.h"

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

int PixelsUp(double twips) {
    return static_cast<int>(std::ceil(twips / kTwipsPerScreenPixel));
}

int PixelsDown(double twips) {
    return static_cast<int>(std::floor(twips / kTwipsPerScreenPixel));
}

// Runs steps that fail quietly, and remembers whether any did.
class QuietSteps {
  public:
    template <typename Step>
    void Run(Step&& step) {
        if (Ignoring(std::forward<Step>(step))) m_hasFailed = true;
    }
    [[nodiscard]] bool HasFailed() const { return m_hasFailed; }

  private:
    bool m_hasFailed = false;
};

void FitScrollBar(ScrollBar& bar, double canvas, double clip) {
    bar.smallChange = 10;
    bar.largeChange = std::max(PixelsDown(clip) - bar.smallChange, 1);
    bar.max = std::max(PixelsUp(canvas - clip), 0);
    bar.isVisible = canvas - clip > kTwipsPerScreenPixel;
}

void FitToWindow(frmSheetwright& document) {
    Page& page = *document.page;
    const PictureSurface& picForm = document.surfaces->picForm;
    const Size inside = document.window->Inside();
    const double breadth = document.window->ScrollBarBreadth();
    page.picContainer = {std::max(inside.width - breadth, 0.0), std::max(inside.height - breadth, 0.0)};
    FitScrollBar(page.hsbForm, picForm.Width(), page.picContainer.width);
    FitScrollBar(page.vsbForm, picForm.Height(), page.picContainer.height);
}

void PaintStationery(frmSheetwright& document) {
    const Page& page = *document.page;
    if (page.hasStationery && !page.isStationeryPainted) PaintBackground(document);
}

bool HasOtherPaper(const frmSheetwright& document) {
    const Application& application = document.application;
    return document.MyOrientation != application.CurrentOrientation ||
           document.MyPaperSize != application.CurrentPaperSize;
}

Extent PlaceOf(const Page& page, ElementRef element) {
    switch (element.kind) {
        case ElementKind::Entry:
            return page.isEntryVisible ? page.entryPlace : page.Entries.At(element.number).place;
        case ElementKind::Check:
            return page.Checks.At(element.number).place;
        case ElementKind::Bitmap:
            return page.Bitmaps.At(element.number).place;
        default:
            return {};
    }
}

// The value nearest to the bar's own at which all from `start` to `end` is in view; of what is longer than
// the view, its beginning.
int ValueShowing(const ScrollBar& bar, double view, double start, double end) {
    const int first = PixelsDown(start);
    const int least = PixelsUp(end) - PixelsDown(view);
    return std::min(std::max(bar.value, least), first);
}

}  // namespace

void SizeForm(frmSheetwright& document) {
    Application& application = document.application;
    PictureSurface& picForm = document.surfaces->picForm;
    const Page& page = *document.page;
    QuietSteps steps;
    if (HasOtherPaper(document)) steps.Run([&] { RefreshPageControl(document); });
    steps.Run([&] { picForm.SetWidth(PageWidthTwips(application)); });
    steps.Run([&] { picForm.SetHeight(PageHeightTwips(application)); });
    steps.Run([&] { FitToWindow(document); });
    steps.Run([&] { document.window->LayoutChanged(); });
    steps.Run([&] { ScrollTo(document, page.hsbForm.value, page.vsbForm.value); });
    steps.Run([&] { PaintStationery(document); });
    if (steps.HasFailed())
        application.ui.ShowMessage(application.Translate(QStringLiteral("Error adjusting form size")),
                                   application.Translate(QStringLiteral("Warning")), MessageIcon::None);
}

void AutoScroll(frmSheetwright& document) {
    const Page& page = *document.page;
    if (page.CurrentEntry.IsNone()) return;
    const Extent place = PlaceOf(page, page.CurrentEntry);
    ScrollTo(document,
             ValueShowing(page.hsbForm, page.picContainer.width, place.left, place.left + place.width),
             ValueShowing(page.vsbForm, page.picContainer.height, place.top, place.top + place.height));
}

void ScrollTo(frmSheetwright& document, int horizontal, int vertical) {
    Page& page = *document.page;
    PictureSurface& picForm = document.surfaces->picForm;
    page.hsbForm.value = std::clamp(horizontal, 0, page.hsbForm.max);
    page.vsbForm.value = std::clamp(vertical, 0, page.vsbForm.max);
    const double left = -page.hsbForm.value * kTwipsPerScreenPixel;
    const double top = -page.vsbForm.value * kTwipsPerScreenPixel;
    if (picForm.Left == left && picForm.Top == top) return;
    picForm.Left = left;
    picForm.Top = top;
    document.window->Scrolled();
}

void RefreshPageControl(frmSheetwright& document) {
    Application& application = document.application;
    application.mainWindow->RefreshPageList(document);
    application.mainWindow->DriverSetup(document.page->Drivers);
    if (document.MyOrientation == 0 && document.MyPaperSize == 0) return;
    application.CurrentOrientation = document.MyOrientation;
    application.CurrentPaperSize = document.MyPaperSize;
    Printer* printer = nullptr;
    Ignoring([&] { printer = InstalledPrinter(application.printing); });
    if (printer == nullptr) return;
    Ignoring([&] { printer->SetOrientation(application.CurrentOrientation); });
    Ignoring([&] { printer->SetPaperSize(application.CurrentPaperSize); });
}

}  // namespace sheetwright
