// Any form that can be read can be shown, filled in and stored: pages are built, fields entered and left,
// texts typed, formulas run. A page that is stored twice has as many lines both times.

#include "core/failure.h"
#include "document/page.h"
#include "document/page_data.h"
#include "document/page_drawing.h"
#include "document/page_moves.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "formula/page_update.h"
#include "support/fuzz_drawing_place.h"
#include "support/page_window.h"

#include <algorithm>
#include <cstdint>

using namespace sheetwright;

namespace {

void Type(frmSheetwright& document, const QString& text) {
    Ignoring([&] { document.page->Entry.ReportText(text); });
    Ignoring([&] { SimulateTab(document); });
}

void FillIn(frmSheetwright& document) {
    constexpr int kMostFields = 12;
    const int fields = std::min(document.page->TabOrders.Count(), kMostFields);
    for (const char* text : {"12.5", "31/12/1999", ""})
        for (int field = 0; field < fields; ++field)
            Type(document, QString::fromLatin1(text));
    for (int number = 1; number <= std::min(document.page->Checks.Count(), kMostFields); ++number)
        Ignoring([&] { Checks_Click(document, number); });
    Ignoring([&] { Unselect(document); });
}

int StoredLines(frmSheetwright& document) {
    Ignoring([&] { SavePage(document); });
    const int page = document.DataPageNum;
    return page <= document.memory.DataPageCount() ? document.memory.DataPage(page).Count() : 0;
}

void WorkOn(frmSheetwright& document) {
    constexpr double kDotsPerInch = 8;
    Ignoring([&] { LoadPage(document); });
    FillIn(document);
    const int stored = StoredLines(document);
    Ignoring([&] { LoadPage(document); });
    Require(StoredLines(document) == stored);
    Ignoring([&] { UpdateFormulas(document); });
    Ignoring([&] { (void)RenderPageOnScreen(document, kDotsPerInch); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzGuiApplication();
    static FuzzDrawingPlace workplace;
    workplace.WriteFile(QStringLiteral("form.aff"),
                        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    RecordingWindow window;
    Ignoring([&] {
        ReadDocument document(workplace);
        document.window = &window;
        UsePageOnScreen(document);
        ConnectEntry(document);
        WorkOn(document);
        Ignoring([&] { ChangePage(document, u"down"); });
        WorkOn(document);
        Require(document.Busy == 0);
    });
    workplace.ForgetLog();
    return 0;
}
