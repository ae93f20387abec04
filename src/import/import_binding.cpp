#include "import/import_binding.h"

#include "core/failure.h"
#include "core/keyed_collection.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/data_source.h"
#include "import/csv_table.h"

#include <algorithm>
#include <unordered_set>

namespace sheetwright {

namespace {

constexpr int kColumnsPerUpdate = 20;

using NameSet = std::unordered_set<QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

// What the design says of one element, read once.
struct ElementDesign {
    QString dataSource;
    std::int16_t keyLevel = 0;
    BoundElement element;
};

bool IsWordSet(const FieldRecord& record, QStringView key) {
    return record.Has(key) && record.Word(key);
}

std::optional<std::int16_t> LineOf(const FieldRecord& record) {
    std::optional<std::int16_t> line;
    Ignoring([&] { line = record.Has(u"MultiRecordIndex") ? record.MultiRecordIndex() : std::int16_t{0}; });
    return line;
}

ElementDesign DesignOfCheck(const FieldRecord& record, int number) {
    ElementDesign design;
    design.dataSource = record.DataSource();
    design.element.isField = false;
    design.element.number = number;
    design.element.line = LineOf(record);
    return design;
}

ElementDesign DesignOfField(const FieldRecord& record, int number) {
    ElementDesign design = DesignOfCheck(record, number);
    Ignoring([&] { design.keyLevel = record.KeyLevel(); });
    BoundElement& element = design.element;
    element.isField = true;
    element.newPageOnReoccur = IsWordSet(record, u"NewPageOnReoccur");
    element.newPageOnChange = IsWordSet(record, u"NewPageOnChange");
    element.newLineOnReoccur = IsWordSet(record, u"NewLineOnReoccur");
    element.newLineOnChange = IsWordSet(record, u"NewLineOnChange");
    if (const QString list = record.List(); list.startsWith(u'@')) element.list = list;
    return design;
}

template <typename Reading>
void AppendDesigns(std::vector<ElementDesign>& designs, const frmSheetwright& document,
                   const ElementBags& bags, Reading reading) {
    int number = 0;
    for (const auto& bag : bags) {
        ElementDesign design = reading(FieldRecord(document.application, *bag), ++number);
        if (!design.dataSource.isEmpty()) designs.push_back(std::move(design));
    }
}

// Elements without a data source take no column.
struct PageDesigns {
    explicit PageDesigns(const frmSheetwright& document) {
        AppendDesigns(all, document, document.page->FieldProperties, DesignOfField);
        AppendDesigns(all, document, document.page->CheckProperties, DesignOfCheck);
        for (int place = 0; place < std::ssize(all); ++place)
            sources.Add(all[static_cast<std::size_t>(place)].dataSource, place);
    }

    std::vector<ElementDesign> all;
    DataSourceIndex sources;  // by place in `all`
};

void SetKey(QStringList& keys, std::int16_t level, const QString& name) {
    if (level < 1) return;
    if (keys.size() < level) keys.resize(level);
    keys[level - 1] = name;
}

void BindColumn(ImportBinding& binding, const CsvColumn& column, const PageDesigns& designs,
                const QString& sourceFolder) {
    BoundColumn bound;
    bound.column = &column;
    for (const int place : designs.sources.Find(column.Name() + u',' + sourceFolder)) {
        const ElementDesign& design = designs.all[static_cast<std::size_t>(place)];
        bound.elements.push_back(design.element);
        SetKey(binding.keys, design.keyLevel, column.Name());
    }
    if (!bound.elements.empty()) binding.columns.push_back(std::move(bound));
}

bool IsNamed(const BoundColumn& column, const QString& name) {
    return CaseInsensitiveEqual()(column.column->Name(), name);
}

}  // namespace

ImportBinding BindColumns(const frmSheetwright& document, CsvTable& table, const QString& sourceFolder,
                          ProgressBar& bar) {
    ImportBinding binding;
    const PageDesigns designs(document);
    const int count = table.Columns().Count();
    NameSet names;
    for (int number = 1; number <= count; ++number) {
        const CsvColumn& column = table.Columns().At(number);
        if (names.insert(column.Name()).second) BindColumn(binding, column, designs, sourceFolder);
        if (number % kColumnsPerUpdate == 0) bar.Update(number, count);
    }
    return binding;
}

bool FillKeyLevels(QStringList& keys) {
    const auto isBlank = [](const QString& name) { return name.isEmpty(); };
    if (std::none_of(keys.begin(), keys.end(), isBlank)) return false;
    const auto first = std::find_if_not(keys.begin(), keys.end(), isBlank);
    QString seen = first == keys.end() ? QString() : *first;
    for (QString& name : keys) {
        if (name.isEmpty()) name = seen;
        seen = name;
    }
    return true;
}

void PutKeysFirst(ImportBinding& binding) {
    std::vector<BoundColumn>& columns = binding.columns;
    qsizetype place = 0;
    for (const QString& name : binding.keys) {
        const auto from = std::find_if(columns.begin(), columns.end(),
                                       [&](const BoundColumn& column) { return IsNamed(column, name); });
        const auto to = columns.begin() + std::min<qsizetype>(place++, std::ssize(columns) - 1);
        if (from < to) {
            std::rotate(from, from + 1, to + 1);
        } else if (from != columns.end()) {
            std::rotate(to, from, from + 1);
        }
    }
}

QStringList SortListOf(const QStringList& keys) {
    NameSet names;
    QStringList list;
    for (const QString& name : keys)
        if (names.insert(name).second) list << name;
    return list;
}

}  // namespace sheetwright
