#include "apps/cli/fill_import.h"

#include "apps/cli/session.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/headless_page.h"
#include "document/page_data.h"
#include "import/csv_table.h"
#include "import/import_files.h"

#include <QFileInfo>

namespace sheetwright::cli {

namespace {

void Show(frmSheetwright& document, int page) {
    document.DataPageNum = static_cast<std::int16_t>(page);
    LoadPage(document);
}

void RequirePair(const frmSheetwright& document, const ImportTable& table) {
    if (!HasLinkedPages(document) || CompanionOfPage(document)) return;
    throw CommandError(
        QStringLiteral("page %1 takes no table: linkedpages.txt doesn't name it").arg(table.page));
}

// What a window would do without a word.
void RequireColumns(const ImportResult& result, const ImportTable& table) {
    if (result.columns > 0) return;
    CsvTable file;
    file.SetFileName(table.path);
    if (file.Columns().Count() == 0) throw CommandError(table.path + QStringLiteral(" has no header"));
    throw CommandError(QStringLiteral("no column of %1 fills anything on page %2")
                           .arg(table.path, QString::number(table.page)));
}

QString Counted(std::int64_t count, const QString& one, const QString& many) {
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

}  // namespace

// The folders above the table tell whose it is, so its path must name them.
ImportResult TakeTable(frmSheetwright& document, const ImportTable& table) {
    RequireReadable(document.application, table.path);
    RequirePage(document, table.page);
    const int shown = document.DataPageNum;
    UsePageOnScreen(document);
    Show(document, table.page);
    RequirePair(document, table);
    const ImportResult result = Import(document, QFileInfo(OnDisk(table.path)).absoluteFilePath());
    RequireColumns(result, table);
    SavePage(document);
    UseHeadlessPage(document);
    Show(document, shown);
    return result;
}

QString ToldOf(const ImportResult& result) {
    return QStringLiteral("imported %1, %2 added")
        .arg(Counted(result.records, QStringLiteral("record"), QStringLiteral("records")),
             Counted(result.pagesAdded, QStringLiteral("page"), QStringLiteral("pages")));
}

}  // namespace sheetwright::cli
