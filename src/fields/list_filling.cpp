// How a row of a list fills the fields of a page.

#include "core/application.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/data_source.h"
#include "fields/editing_elements.h"
#include "fields/editing_text.h"
#include "fields/list_source.h"
#include "fields/maintainable_lists.h"
#include "formula/formula_scan.h"
#include "import/csv_table.h"

#include <QHash>
#include <QSet>

namespace sheetwright {

namespace {

// A key that is missing or bad means the default, as in the editor.
std::int16_t MultiRecordIndexOf(const FieldRecord& field) {
    std::int16_t index = 0;
    Ignoring([&] { index = field.MultiRecordIndex(); });
    return index;
}

class Filling {
  public:
    // `told` are alternatives whose columns are known to be missing; it takes those that are told here.
    Filling(frmSheetwright& document, CsvTable& list, QSet<QString>& told)
        : m_document(document), m_list(list), m_told(told), m_listFolder(ListFolder(document.application)) {}

    // All text elements but the one that `active` is. What is missing is told at the end: meanwhile messages
    // run, and the page may become another.
    void FillAll(std::int16_t multiRecordIndex, ElementRef active) {
        const std::optional<Failure> failed = Ignoring([&] {
            for (int number = 1; number <= m_document.page->Entries.Count(); ++number)
                if (ElementRef{ElementKind::Entry, number} != active) FillOne(number, multiRecordIndex);
        });
        m_told.unite(QSet<QString>(m_missing.begin(), m_missing.end()));
        TellMissing();
        if (failed) throw Failure(*failed);
    }

  private:
    void FillOne(int number, std::int16_t multiRecordIndex) {
        const auto record = RecordOf(*m_document.page, {ElementKind::Entry, number});
        if (record == nullptr) return;
        const FieldRecord field(m_document.application, *record);
        const QString source = field.DataSource();
        if (source.isEmpty() || MultiRecordIndexOf(field) != multiRecordIndex) return;
        const std::vector<QStringView> alternatives = StatementsOf(source);
        for (const QStringView& alternative : alternatives)
            Try(number, alternative, &alternative == &alternatives.back());
    }

    [[nodiscard]] bool NamesList(QStringView alternative) const {
        if (alternative.isEmpty()) return false;
        return IsSameSource(ListPathOf(m_listFolder, alternative, m_document.application.conventions),
                            m_list.FileName());
    }

    void Try(int number, QStringView alternative, bool isLast) {
        const auto take = [&] {
            if (NamesList(alternative)) Take(number, alternative);
        };
        if (!isLast) return take();
        const bool isMissing = Ignoring(take).has_value();
        if (isMissing && !m_told.contains(alternative.toString())) m_missing << alternative.toString();
    }

    void Take(int number, QStringView alternative) {
        const CsvColumn& column = ListColumnOf(m_list, alternative, m_document.application.conventions);
        PutText(m_document, number, column.Value());
    }

    void TellMissing() const {
        const Application& application = m_document.application;
        const QString title = m_list.FileName();
        const BusyDocument busy(m_document.Busy);
        for (const QString& alternative : m_missing)
            application.ui.ShowMessage(
                application.Translate(QStringLiteral("Missing Field in csv list: %1"), alternative), title,
                MessageIcon::Exclamation);
    }

    frmSheetwright& m_document;
    CsvTable& m_list;
    QSet<QString>& m_told;
    QString m_listFolder;
    QStringList m_missing;
};

}  // namespace

void FillFromList(frmSheetwright& document) {
    const Page& page = *document.page;
    CsvTable* const list = page.Entry.ListTable();
    if (list == nullptr || !page.Entry.AttachedList().startsWith(u'@')) return;
    list->SetPosition(page.Entry.ListIndex() + 1);
    if (list->Position() < 1) return;
    QSet<QString> told;
    Filling(document, *list, told).FillAll(page.Entry.design.MultiRecordIndex, page.CurrentEntry);
}

struct ListLookUps::OpenList {
    CsvTable table;
    QHash<QString, std::int32_t> rows;  // from 1, by item; the first of equal ones
};

ListLookUps::ListLookUps(frmSheetwright& document) : m_document(document) {}

ListLookUps::~ListLookUps() {
    for (const auto& [name, list] : m_lists)
        if (m_document.EntryList == &list->table) m_document.EntryList = nullptr;
}

// A list that isn't there, or has no such column, has no rows.
ListLookUps::OpenList& ListLookUps::Opened(const QString& list) {
    std::unique_ptr<OpenList>& place = m_lists[list];
    if (place != nullptr) return *place;
    place = std::make_unique<OpenList>();
    OpenList& opened = *place;
    const Conventions& conventions = m_document.application.conventions;
    const QStringView source = QStringView(list).sliced(1);
    const QString path = ListPathOf(ListFolder(m_document.application), source, conventions);
    if (!FileExists(path)) return opened;
    Ignoring([&] {
        CsvTable& table = opened.table;
        table.SetFileName(path);
        const CsvColumn& column = ListColumnOf(table, source, conventions);
        for (; !table.AtEnd(); table.MoveNext())
            if (const QString item = column.Value(); !opened.rows.contains(item))
                opened.rows.insert(item, table.Position());
    });
    return opened;
}

void ListLookUps::Fill(int number, const QString& list) {
    Page& page = *m_document.page;
    const auto record = RecordOf(page, {ElementKind::Entry, number});
    if (record == nullptr || number > page.Entries.Count() || !list.startsWith(u'@')) return;
    OpenList& opened = Opened(list);
    if (opened.table.FileName().isEmpty()) return;
    m_document.EntryList = &opened.table;
    opened.table.SetPosition(opened.rows.value(page.Entries.At(number).text, 0));
    if (opened.table.Position() < 1) return;
    Filling(m_document, opened.table, m_told)
        .FillAll(MultiRecordIndexOf(FieldRecord(m_document.application, *record)),
                 {ElementKind::Entry, number});
}

}  // namespace sheetwright
