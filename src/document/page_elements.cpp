#include "document/page_elements.h"

#include "core/application.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_panel.h"
#include "document/page_view_layout.h"
#include "formula/value_conversion.h"
#include "print/device.h"
#include "print/fixed_elements.h"
#include "print/form_surfaces.h"
#include "print/page_stationery.h"

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

using Bag = std::shared_ptr<PropertyBag>;

// A text that is no number, and a number that stands for a colour of the desktop, are no colour of paper:
// white, as for any bad one.
void SetBackground(PictureSurface& picForm, const PageRecord& record, const Conventions& conventions) {
    constexpr Colour kOfDesktop = 0x80000000;
    Colour background = PageRecord::kWhite;
    if (StrictNumber(record.TextOr(u"BackGround", {}), conventions))
        Ignoring([&] { background = record.BackGround(); });
    picForm.BackColor = (background & kOfDesktop) != 0 ? PageRecord::kWhite : background;
}

void SetStationery(frmSheetwright& document, const QString& value) {
    document.page->hasStationery = false;
    if (value.isEmpty()) return;
    Ignoring([&] { LoadPPSettings(document, value); });
    document.page->hasStationery = true;
}

void SetPrinterPaper(const Application& application) {
    Printer* const printer = InstalledPrinter(application.printing);
    if (printer == nullptr) return;
    printer->SetOrientation(application.CurrentOrientation);
    printer->SetPaperSize(application.CurrentPaperSize);
}

// The rest of an element whose failure travels.
template <void (*draw)(const ElementDrawing&)>
void Paint(frmSheetwright& document, const Bag& bag) {
    const QString formFolder = GetFolder(document.Tag);
    FormDrawing form{document.application, *document.surfaces, document.PrintElements, document.MyTempDir,
                     formFolder};
    draw({form, document.surfaces->picForm, bag, true});
}

FontSpec ControlFont(const TextRecord& record) {
    constexpr double kLargestFont = 2160;  // points
    FontSpec font;
    font.family = record.FontName();
    font.size = record.FontSize();
    if (!(font.size > 0 && font.size <= kLargestFont)) throw Failure(failure::kInvalidProperty);
    const FontStyles styles = record.ControlStyles();
    font.bold = styles.bold;
    font.italic = styles.italic;
    font.underline = styles.underline;
    font.strikethru = styles.strikethru;
    return font;
}

// Without sizes below 0: such an element can't be seen, but keeps its value.
Extent Placed(Extent place) {
    for (const double twips : {place.left, place.top, place.width, place.height})
        (void)ToInt32(twips);
    place.width = std::max(place.width, 0.0);
    place.height = std::max(place.height, 0.0);
    return place;
}

// The right and the bottom edge of a text lie one screen pixel inside.
Extent PlacedText(const PrintState& state, const RecordView& record) {
    Extent place = record.Place();
    place.width -= state.ScreenTwipsPerPixelX;
    place.height -= state.ScreenTwipsPerPixelY;
    return Placed(place);
}

void Place(FieldElement& element, const RecordView& record) {
    element.place = Placed(record.Place());
    element.control->Resize(element.place.width, element.place.height);
}

// A collection becomes an element when its record ends. Records that end twice have one collection, and an
// element more than once would be saved as often.
void RequireNew(const Page& page, const Bag& bag) {
    const auto isLastOf = [&](const ElementBags& bags) { return !bags.empty() && bags.back() == bag; };
    if (isLastOf(page.FieldProperties) || isLastOf(page.CheckProperties) || isLastOf(page.BitmapProperties))
        throw Failure(failure::kKeyExists);
}

// The text that finds the element from its record.
void Register(Page& page, const Bag& bag, const QString& key, QString tabIndex, QString name) {
    bag->Add(key, QStringLiteral("Key"));  // which moves its other values
    page.TabOrders.Add(bag, tabIndex);
    page.names.Add(bag, name);
}

void MakeText(frmSheetwright& document, const Bag& bag, const FieldRecord& record) {
    Page& page = *document.page;
    TextElement& element = page.Entries.Load({});
    page.FieldProperties.push_back(bag);
    element.isVisible = false;
    element.font = ControlFont(record);
    element.foreColor = record.ForeColor();
    element.wraps = record.WordWrap();
    element.alignment = record.Alignment();
    if (record.ReadOnly()) {
        element.isTransparent = true;
        const double borderStyle = record.BorderStyle();
        element.hasBorder = borderStyle == 1 || borderStyle == 2;
    }
    element.place = PlacedText(document.application.printing, record);
    element.isVisible = record.Visible();
    Register(page, bag, QString::number(page.Entries.Count()), record.TabIdx(), record.Name());
}

// The new last element: a control of that style without a value, not yet shown.
FieldElement& Load(frmSheetwright& document, ElementArray<FieldElement>& elements, std::uint8_t fieldType) {
    auto control = std::make_unique<usrEntry>(document.application, document.surfaces->pictures);
    control->SetFieldType(fieldType);
    return elements.Load({std::move(control), {}, false});
}

void MakeBitmap(frmSheetwright& document, const Bag& bag, const FieldRecord& record) {
    Page& page = *document.page;
    FieldElement& element = Load(document, page.Bitmaps, field_type::kPicture);
    page.BitmapProperties.push_back(bag);
    usrEntry& control = *element.control;
    control.FormFolder = [&document] { return GetFolder(document.Tag); };
    control.SetValue(QString());
    control.SetFont(ControlFont(record));
    control.SetForeColor(record.ForeColor());
    Place(element, record);
    element.isVisible = true;
    control.SetEnabled(!record.ReadOnly());
    element.isVisible = record.Visible();
    Register(page, bag, u'B' + QString::number(page.Bitmaps.Count()), record.TabIdx(), record.Name());
}

void RequireResources(const Application& application) {
    constexpr int kLeast = 15;  // percent
    int isFree = 100;
    Ignoring([&] { isFree = application.mainWindow->FreeResources(); });
    if (isFree < kLeast) throw Failure(failure::kOutOfMemory);
}

}  // namespace

void MakePage(frmSheetwright& document, const Bag& bag) {
    Application& application = document.application;
    const PageRecord record(application, *bag);
    SetBackground(document.surfaces->picForm, record, application.conventions);
    document.page->Drivers = record.Drivers();
    Ignoring([&] { application.mainWindow->DriverSetup(document.page->Drivers); });
    SetStationery(document, record.PrePrinted());

    application.CurrentOrientation = record.Orientation();
    application.CurrentPaperSize = record.PaperSize();
    document.MyOrientation = application.CurrentOrientation;
    document.MyPaperSize = application.CurrentPaperSize;
    const std::optional<Failure> refused = Ignoring([&] { SetPrinterPaper(application); });
    SizeForm(document);
    if (record.HasTitle()) ShowPagePanel(document, record.Title());
    ReportStatusAgain(document);
    if (refused) throw *refused;
}

void MakeFrame(frmSheetwright& document, const Bag& bag) {
    Paint<DrawFrameElement>(document, bag);
}

void MakeLine(frmSheetwright& document, const Bag& bag) {
    Paint<DrawLineElement>(document, bag);
}

void MakeShape(frmSheetwright& document, const Bag& bag) {
    Paint<DrawShapeElement>(document, bag);
}

void MakeLabel(frmSheetwright& document, const Bag& bag) {
    Paint<DrawLabelElement>(document, bag);
}

void MakePicture(frmSheetwright& document, const Bag& bag) {
    Paint<DrawPictureElement>(document, bag);
}

void MakeField(frmSheetwright& document, const Bag& bag) {
    RequireNew(*document.page, bag);
    const FieldRecord record(document.application, *bag);
    bool isText = false;
    Ignoring([&] { isText = record.ShowsText(); });
    (isText ? MakeText : MakeBitmap)(document, bag, record);
}

void MakeCheckBox(frmSheetwright& document, const Bag& bag) {
    Application& application = document.application;
    application.ui.PumpMessages();
    RequireResources(application);
    Page& page = *document.page;
    RequireNew(page, bag);
    const CheckRecord record(application, *bag);
    FieldElement& element = Load(document, page.Checks, field_type::kCheckBox);
    page.CheckProperties.push_back(bag);
    usrEntry& control = *element.control;
    control.SetStyle(record.Style());
    control.SetCaption(record.Caption());
    control.SetStates(record.States());
    control.SetFont(ControlFont(record));
    control.SetBackColor(document.surfaces->picForm.BackColor);
    control.SetForeColor(record.ForeColor());
    Place(element, record);
    element.isVisible = true;
    Register(page, bag, u'C' + QString::number(page.Checks.Count()), record.TabIdx(), record.Name());
}

}  // namespace sheetwright
