#include "import/import.h"

#include "core/application.h"
#include "core/error_log.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page_view_layout.h"
#include "document/pages.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "formula/page_update.h"
#include "formula/recalculation.h"
#include "import/csv_cache.h"
#include "import/import_binding.h"
#include "import/import_files.h"
#include "import/import_pass.h"
#include "import/import_snapshot.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kRecordsPerUpdate = 20;

// What both walks of an import share.
struct Order {
    Order(frmSheetwright& document, const QString& path) : file(path), before(document) {}

    ImportedFile file;
    FormSnapshot before;
    ImportResult result;
};

// One walk through the records of a file, into the page on screen.
class ImportRun {
  public:
    // `linkedNextPage` as told of `RecordPass`.
    ImportRun(frmSheetwright& document, Order& order, int* linkedNextPage)
        : m_document(document),
          m_ui(document.application.ui),
          m_order(order),
          m_linkedNextPage(linkedNextPage) {}

    // Adds to the result what it has done.
    void Run() {
        Open();
        ProgressBar bar(m_ui);
        const QString sourceFolder = GetRelativePath(m_order.file.Path());
        ImportBinding binding = BindColumns(m_document, m_document.DriverData, sourceFolder, bar);
        bar.Update(1, 1);
        Count(binding);
        Sort(binding);
        WriteRecords(binding, bar);
        Finish(bar);
    }

  private:
    void Open();
    void Count(const ImportBinding& binding);
    void Sort(ImportBinding& binding) const;
    void WriteRecords(ImportBinding& binding, ProgressBar& bar);
    void Finish(ProgressBar& bar);

    frmSheetwright& m_document;
    UserInterface& m_ui;
    Order& m_order;
    int* m_linkedNextPage;
};

void ImportRun::Open() {
    m_document.Changed = true;
    m_document.Importing = true;
    const QByteArray& bytes = m_order.file.Bytes();
    m_order.before.NoteFile(KeepImportedFile(m_document, bytes));
    m_document.DriverData.SetFileName(m_order.file.Path(), bytes);
    Unselect(m_document);
    UpdateColors(m_document);
    m_ui.SetStatus(m_document.application.Translate(QStringLiteral("Initializing...")));
}

void ImportRun::Count(const ImportBinding& binding) {
    ImportResult& result = m_order.result;
    result.columns = std::max(result.columns, static_cast<std::int32_t>(binding.columns.size()));
    result.records += m_document.DriverData.RecordCount();
}

void ImportRun::Sort(ImportBinding& binding) const {
    constexpr int kNoError = 0;
    const Application& application = m_document.application;
    m_ui.SetStatus(application.Translate(QStringLiteral("Sorting...")));
    if (FillKeyLevels(binding.keys))
        Ignoring([&] {
            LogError(application, QStringLiteral("Import - Missing KeyLevels"), m_document.Tag, kNoError);
        });
    PutKeysFirst(binding);
    if (!binding.keys.isEmpty()) m_document.DriverData.Sort(SortListOf(binding.keys));
}

void ImportRun::WriteRecords(ImportBinding& binding, ProgressBar& bar) {
    const Application& application = m_document.application;
    m_ui.SetStatus(application.Translate(QStringLiteral("Importing data...")));
    bar.Update(0, 1);
    m_document.CurrentRecord = 0;
    QString counter = application.Translate(QStringLiteral("Importing: Record %1"), QStringLiteral("!"));
    counter.chop(1);

    const auto loud = qScopeGuard(
        [this, wasQuiet = std::exchange(m_document.Quiet, true)] { m_document.Quiet = wasQuiet; });
    CsvCache lists;
    RecordPass pass(m_document, binding.columns, m_linkedNextPage);
    const std::int32_t count = m_document.DriverData.RecordCount();
    for (std::int32_t record = 1; record <= count; ++record) {
        m_ui.SetStatus(counter + QString::number(record) + u'/' + QString::number(count));
        pass.WriteRecord();
        UpdateFormulas(m_document, &lists);
        m_document.DriverData.MoveNext();
        if (record % kRecordsPerUpdate != 0) continue;
        bar.Update(record, count);
        EndIfStopped(m_document);
    }
}

void ImportRun::Finish(ProgressBar& bar) {
    m_document.CurrentRecord = -1;
    m_document.Importing = false;
    ÜberupdateFormulas(m_document, false);
    m_document.PageChanged = false;
    bar.Hide();
    m_ui.SetStatus({});
    UpdateColors(m_document);
    SimulateTab(m_document);
    RefreshPageControl(m_document);
    m_ui.SetStatus(m_document.application.Translate(QStringLiteral("Ready")));
    m_document.DriverData.SetFileName({});
}

// The pages that the first run adds come out between those of the second.
void ImportPairs(frmSheetwright& document, Order& order) {
    const std::optional<Companion> companion = CompanionOfPage(document);
    if (!companion) return;
    int nextPage = document.DataPageNum + 1;
    ImportRun(document, order, nullptr).Run();

    document.DataPageNum = ToInt16(nextPage);
    const bool isThere = document.DataPageNum <= document.Pages;
    if (isThere) LoadPage(document);
    document.PageChanged = false;
    if (!isThere || TitleOfPage(document, document.DataPageNum) != companion->title)
        AddPage(document, companion->design, Placement::Before, document.DataPageNum);
    ImportRun(document, order, &nextPage).Run();
}

}  // namespace

ImportResult Import(frmSheetwright& document, const QString& path) {
    const bool isRunning = document.Importing && document.Busy > 0;
    if (isRunning) return {};
    const BusyDocument busy(document.Busy);
    Order order(document, path);
    const int pages = document.Pages;
    try {
        if (HasLinkedPages(document)) {
            ImportPairs(document, order);
        } else {
            ImportRun(document, order, nullptr).Run();
        }
    } catch (const ImportStopped&) {
        order.before.Restore();
        return {.isStopped = true};
    }
    order.result.pagesAdded = document.Pages - pages;
    return order.result;
}

}  // namespace sheetwright
