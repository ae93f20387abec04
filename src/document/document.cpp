#include "document/document.h"

#include "core/application.h"
#include "core/folders.h"
#include "document/form_archive.h"
#include "document/form_reader.h"
#include "document/page.h"
#include "fields/editing.h"
#include "print/design_cache.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/stationery.h"

#include <utility>

namespace sheetwright {

frmSheetwright::frmSheetwright(Application& owner)
    : application(owner),
      surfaces(std::make_unique<FormSurfaces>(FontsOf(owner))),
      page(std::make_unique<Page>(owner, surfaces->pictures)),
      designCache(std::make_unique<DesignCache>()) {
    // A form that was printed on stationery before must not shift this one.
    application.printing.PrintXAdjust = 0;
    application.printing.PrintYAdjust = 0;
    SweepTempDirectories(application);
    words = application.TranslatedTruthWords();
}

frmSheetwright::~frmSheetwright() {
    RemoveTempDirectory(MyTempDir);
}

void SavePage(frmSheetwright& document) {
    if (document.SavePageHook) document.SavePageHook();
}

void LoadPage(frmSheetwright& document) {
    if (document.LoadPageHook) document.LoadPageHook();
}

void RecoverFromFailedPass(frmSheetwright& document) {
    const bool isRunning = document.Importing && document.Busy > 0;  // it shows a message, and goes on
    if (document.InterruptedPage == 0 && (isRunning || !document.Importing)) return;
    if (document.InterruptedPage != 0)
        document.DataPageNum = std::exchange(document.InterruptedPage, std::int16_t{0});
    document.application.ui.HideProgress();
    if (isRunning) return;
    document.Importing = false;
    document.CurrentRecord = -1;
    document.DriverData.SetFileName({});
    HighlightBlanks(document);
}

void UnpackAndRead(frmSheetwright& document) {
    document.MyTempDir = MakeTempDirectory(document.application, document.MyTempDir);
    document.application.CurrentTempDir = document.MyTempDir;
    UnZipForm(document.application, document.Tag, document.MyTempDir);
    ReadFormFile(document);
}

void OpenDocument(frmSheetwright& document, const QString& path) {
    document.Tag = path;
    UnpackAndRead(document);
    LoadPage(document);
}

}  // namespace sheetwright
