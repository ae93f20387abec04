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
#include "import/import_binding.h"
#include "import/import_files.h"
#include "import/import_pass.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kRecordsPerUpdate = 20;

// One walk through the records of a file, into the page on screen.
class ImportRun {
  public:
    // `linkedNextPage` as told of `RecordPass`.
    ImportRun(frmSheetwright& document, const QString& path, int* linkedNextPage)
        : m_document(document),
          m_ui(document.application.ui),
          m_path(path),
          m_linkedNextPage(linkedNextPage) {}

    // Adds to `result` what it has done.
    void Run(ImportResult& result) {
        const int pages = m_document.Pages;
        Open();
        ProgressBar bar(m_ui);
        ImportBinding binding = BindColumns(m_document, m_document.DriverData, GetRelativePath(m_path), bar);
        result.columns = std::max(result.columns, static_cast<std::int32_t>(binding.columns.size()));
        result.records += m_document.DriverData.RecordCount();
        bar.Update(1, 1);
        Sort(binding);
        WriteRecords(binding, bar);
        Finish(bar);
        result.pagesAdded += m_document.Pages - pages;
    }

  private:
    void Open();
    void Sort(ImportBinding& binding) const;
    void WriteRecords(ImportBinding& binding, ProgressBar& bar);
    void Finish(ProgressBar& bar);

    frmSheetwright& m_document;
    UserInterface& m_ui;
    QString m_path;
    int* m_linkedNextPage;
};

void ImportRun::Open() {
    m_document.Changed = true;
    m_document.Importing = true;
    KeepImportedFile(m_document, m_path);
    m_document.DriverData.SetFileName(m_path);
    Unselect(m_document);
    UpdateColors(m_document);
    m_ui.SetStatus(m_document.application.Translate(QStringLiteral("Initializing...")));
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
    RecordPass pass(m_document, binding.columns, m_linkedNextPage);
    const std::int32_t count = m_document.DriverData.RecordCount();
    for (std::int32_t record = 1; record <= count; ++record) {
        m_ui.SetStatus(counter + QString::number(record) + u'/' + QString::number(count));
        pass.WriteRecord();
        UpdateFormulas(m_document);
        m_document.DriverData.MoveNext();
        if (record % kRecordsPerUpdate == 0) bar.Update(record, count);
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
void ImportPairs(frmSheetwright& document, const QString& path, ImportResult& result) {
    const std::optional<Companion> companion = CompanionOfPage(document);
    if (!companion) return;
    int nextPage = document.DataPageNum + 1;
    ImportRun(document, path, nullptr).Run(result);

    document.DataPageNum = ToInt16(nextPage);
    const bool isThere = document.DataPageNum <= document.Pages;
    if (isThere) LoadPage(document);
    document.PageChanged = false;
    if (!isThere || TitleOfPage(document, document.DataPageNum) != companion->title)
        AddPage(document, companion->design, Placement::Before, document.DataPageNum);
    ImportRun(document, path, &nextPage).Run(result);
}

}  // namespace

ImportResult Import(frmSheetwright& document, const QString& path) {
    ImportResult result;
    const bool isRunning = document.Importing && document.Busy > 0;
    if (isRunning) return result;
    const BusyDocument busy(document.Busy);
    if (HasLinkedPages(document)) {
        ImportPairs(document, path, result);
    } else {
        ImportRun(document, path, nullptr).Run(result);
    }
    return result;
}

}  // namespace sheetwright
