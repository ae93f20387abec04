#include "print/page_stationery.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_view_layout.h"
#include "formula/value_conversion.h"
#include "print/form_surfaces.h"
#include "print/own_picture.h"
#include "print/stationery.h"

#include <QScopeGuard>

namespace sheetwright {

namespace {

constexpr ScaleForm kTwips;  // every form measures in twips

enum Field { kImage = 1, kResolution, kPrinterX, kPrinterY, kScreenX, kScreenY };

PrePrinted& StationeryOf(frmSheetwright& document) {
    if (!document.stationery)
        document.stationery = std::make_unique<PrePrinted>(
            document.application.printing, [] { return &kTwips; },
            [&pictures = document.surfaces->pictures](const QString& path) { return pictures.Load(path); });
    return *document.stationery;
}

// The scan of a template in plain text lies beside it.
void TakeScan(frmSheetwright& document, const QString& name) {
    if (name.isEmpty() || !GetFolder(name).isEmpty()) return;
    Ignoring([&] {
        (void)OwnPicture(document.surfaces->pictures, name, document.MyTempDir, GetFolder(document.Tag));
    });
}

}  // namespace

void LoadPPSettings(frmSheetwright& document, const QString& value) {
    PrePrinted& stationery = StationeryOf(document);
    const auto number = [&](Field field) {
        return ToNumber(StationeryField(value, field), document.application.conventions);
    };
    stationery.imageDPI = ToInt16(number(kResolution));
    stationery.printerXAdjust = ToSingle(number(kPrinterX));
    stationery.printerYAdjust = ToSingle(number(kPrinterY));
    stationery.screenXAdjust = ToSingle(number(kScreenX));
    stationery.screenYAdjust = ToSingle(number(kScreenY));
    const QString scan = StationeryField(value, kImage).toString();
    TakeScan(document, scan);
    stationery.setBackground(document.MyTempDir + scan);
    stationery.setScaleForm(kTwips);
    if (!document.window->IsShown()) SizeForm(document);
    PaintBackground(document);
}

void PaintBackground(frmSheetwright& document) {
    PrePrinted& stationery = StationeryOf(document);
    if (stationery.Background().IsEmpty()) return;
    UserInterface& ui = document.application.ui;
    ui.SetPointer(Pointer::Hourglass);
    const auto normalPointer = qScopeGuard([&ui] { ui.SetPointer(Pointer::Normal); });
    PaintBackground(stationery, document.application.printing, document.surfaces->picForm);
    document.page->isStationeryPainted = true;
}

}  // namespace sheetwright
