// Any form that can be read can be drawn, as a preview and on a printer: the job ends, and whatever it can't
// draw is logged or raised. What was drawn can be painted.

#include "core/failure.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/picture_surface.h"
#include "print/print_job.h"
#include "support/fuzz_drawing_place.h"
#include "support/recording_printer.h"

#include <algorithm>
#include <cstdint>

using namespace sheetwright;

namespace {

// A form may have thousands of pages.
std::int16_t LastPage(const frmSheetwright& document) {
    constexpr std::int16_t kMostPages = 20;
    return std::min(document.Pages, kMostPages);
}

void DrawPreview(ReadDocument& document) {
    constexpr double kDotsPerInch = 8;
    document.application.printing.printers = nullptr;
    PictureSurface surface(FontsOf(document.application));
    Ignoring([&] { PrintPages(document, surface, 1, LastPage(document)); });
    Ignoring([&] { Require(!surface.Render(kDotsPerInch).isNull()); });
}

void DrawOnPrinter(ReadDocument& document) {
    RecordingPrinter printer(FontsOf(document.application));
    RecordingPrinters printers(printer);
    document.application.printing.printers = &printers;
    Ignoring([&] { PrintPages(document, printer, 1, LastPage(document)); });
    document.application.printing.printers = nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzGuiApplication();
    static FuzzDrawingPlace workplace;
    workplace.WriteFile(QStringLiteral("form.aff"),
                        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    Ignoring([&] {
        ReadDocument document(workplace);
        DrawPreview(document);
        DrawOnPrinter(document);
    });
    workplace.ForgetLog();
    return 0;
}
