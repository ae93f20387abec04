#include "print/paper_table.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/value_conversion.h"
#include "print/device.h"

namespace sheetwright {

namespace {

// The table's numbers have a decimal point, whatever the locale.
std::int32_t CurrentTwips(Application& application, const QString& column) {
    return ToInt32(NumericPrefix(application.PaperTable.Columns().At(column).Value()));
}

bool FindRecord(Application& application, std::int16_t paper, std::int16_t orientation) {
    return application.PaperTable.Find(
        QStringLiteral("PAPERSIZE=%1,ORIENTATION=%2").arg(paper).arg(orientation));
}

std::int32_t TableTwips(Application& application, const QString& column) {
    static_cast<void>(FindRecord(application, application.CurrentPaperSize, application.CurrentOrientation));
    return CurrentTwips(application, column);
}

}  // namespace

std::int32_t PageWidthTwips(Application& application) {
    if (const Printer* printer = InstalledPrinter(application.printing)) return ToInt32(printer->Width());
    return TableTwips(application, QStringLiteral("WIDTH"));
}

std::int32_t PageHeightTwips(Application& application) {
    if (const Printer* printer = InstalledPrinter(application.printing)) return ToInt32(printer->Height());
    return TableTwips(application, QStringLiteral("HEIGHT"));
}

std::optional<PaperExtent> FindPaper(Application& application, std::int16_t paper, std::int16_t orientation) {
    std::optional<PaperExtent> extent;
    Ignoring([&] {
        if (!FindRecord(application, paper, orientation)) return;
        const PaperExtent found{CurrentTwips(application, QStringLiteral("WIDTH")),
                                CurrentTwips(application, QStringLiteral("HEIGHT"))};
        if (found.width > 0 && found.height > 0) extent = found;
    });
    return extent;
}

}  // namespace sheetwright
