#pragma once

// One open document, headless: it owns its text in memory and its temporary directory, and holds the state
// that the facets of the engine (reading, saving, recalculation, pages) work on. It does almost nothing
// itself.

#include "core/conventions.h"
#include "core/keyed_collection.h"
#include "document/design_records.h"
#include "document/document_window.h"
#include "document/file_stamp.h"
#include "document/memory_block.h"
#include "formula/value.h"
#include "import/csv_table.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace sheetwright {

class Application;
class DesignCache;
class PrePrinted;
struct FormSurfaces;
struct Page;

class frmSheetwright {
  public:
    // Sweeps the temporary folder, takes the words for true and false, starts empty.
    explicit frmSheetwright(Application& application);
    frmSheetwright(const frmSheetwright&) = delete;
    frmSheetwright& operator=(const frmSheetwright&) = delete;
    // Removes the temporary directory.
    ~frmSheetwright();

    Application& application;
    MemoryBlock memory;

    QString Tag;      // full path of the document; a template's path for a new untitled one
    QString Caption;  // bare file name, or "(Untitled)" translated

    std::int16_t PageNum = 1;        // design that the page on screen was built from; 0 when none is built
    std::int16_t Pages = 0;          // data pages
    std::int16_t DataPageNum = 1;    // data page on screen
    bool Changed = false;            // the document differs from its file
    bool PageChanged = false;        // the page on screen differs from its lines
    bool DoSaveAsOnly = false;       // can't be saved under its own name
    bool MyReadonly = false;         // the file was opened read-only
    std::optional<FileStamp> Stamp;  // of its own file as it was read or saved last; none without one
    QString MyTempDir;               // with trailing separator
    std::int16_t MyOrientation = 0;  // paper of the page on screen
    std::int16_t MyPaperSize = 0;
    TruthWords words;

    std::int16_t MePage = 0;
    Value Me;
    std::int16_t InterruptedPage = 0;  // page on screen when a recalculation failed half way; 0 for none
    bool Importing = false;
    bool Quiet = false;  // bulk work: no status words, progress or pointer of page data
    int Busy = 0;        // passes and jobs that go through the document now; above 0 it must not be closed
    std::int16_t CurrentRecord = -1;
    CsvTable DriverData;            // record of the last import driver
    CsvTable* EntryList = nullptr;  // list of the field being edited

    // The hidden surfaces on which the form is measured and drawn.
    std::unique_ptr<FormSurfaces> surfaces;
    std::unique_ptr<Page> page;  // on screen; without elements while none is built
    NoDocumentWindow noWindow;
    DocumentWindow* window = &noWindow;      // that shows the form; never none, not owned
    std::unique_ptr<PrePrinted> stationery;  // made on first use
    // Fields and check boxes of the design printed last, by name, and the same in record order.
    KeyedCollection<std::shared_ptr<PropertyBag>> PrintElements;
    std::vector<std::shared_ptr<PropertyBag>> PrintFields;
    std::vector<std::shared_ptr<PropertyBag>> PrintChecks;
    std::uint64_t PrintFillings = 0;           // how often they were filled anew
    std::unique_ptr<DesignCache> designCache;  // of the print jobs

    // How the page on screen goes into the lines and back: that of a window (`UsePageOnScreen`) or of a form
    // without one (`UseHeadlessPage`). Empty ones do nothing, so that a pass over all pages runs with no
    // page.
    std::function<void()> SavePageHook;
    std::function<void()> LoadPageHook;
};

void SavePage(frmSheetwright& document);
void LoadPage(frmSheetwright& document);

// After a recalculation or an import failed half way: the page on screen is the current page again, nothing
// is being imported, the progress bar is gone. Whoever catches such a failure and lets the document live
// calls it, before anything saves the page on screen.
void RecoverFromFailedPass(frmSheetwright& document);

// The form that the tag names comes into memory: temporary directory, unpacking, reading. Raises what
// unpacking and the reader raise; the document's directory is removed with it in any case.
void UnpackAndRead(frmSheetwright& document);
// The same for the form at `path`, up to its first page.
void OpenDocument(frmSheetwright& document, const QString& path);

}  // namespace sheetwright
