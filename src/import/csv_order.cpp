// How a table's records are put in order and found again.

#include "core/failure.h"
#include "import/csv_sort.h"
#include "import/csv_table.h"

#include <algorithm>
#include <numeric>
#include <ranges>

namespace sheetwright {

void CsvTable::Sort(const QString& columnNames) {
    Sort(columnNames.split(u','));
}

void CsvTable::Sort(const QStringList& columnNames) {
    std::vector<const CsvColumn*> columns;
    for (const QString& name : columnNames)
        columns.push_back(&ColumnNamed(name));
    for (const CsvColumn* column : columns | std::views::reverse)
        SortBy(*column);
    MoveFirst();
}

void CsvTable::SortBy(const CsvColumn& column) {
    CsvSortKeys keys(column.DataType() != QStringLiteral("TEXT"), RecordCount());
    for (std::int64_t position = 1; position <= RecordCount(); ++position)
        keys.Add(Text(RecordAt(position), column.m_index));
    std::vector<std::uint32_t> order = keys.Order();
    for (std::uint32_t& place : order)
        place = RecordAt(std::int64_t{place} + 1);
    m_order = std::move(order);
    m_isChanged = true;
}

std::vector<CsvTable::Criterion> CsvTable::CriteriaOf(const QString& filter) const {
    std::vector<Criterion> criteria;
    for (const QString& pair : filter.split(u',')) {
        const qsizetype equals = pair.indexOf(u'=');
        if (equals < 0) throw Failure(failure::kInvalidCall);
        criteria.push_back({ColumnNamed(pair.first(equals)).m_index, pair.sliced(equals + 1)});
    }
    return criteria;
}

bool CsvTable::Fits(std::uint32_t record, const std::vector<Criterion>& criteria) const {
    return std::all_of(criteria.begin(), criteria.end(), [&](const Criterion& criterion) {
        return Text(record, criterion.column) == criterion.value;
    });
}

bool CsvTable::Find(const QString& filter) {
    const std::vector<Criterion> criteria = CriteriaOf(filter);
    for (std::int64_t position = 1; position <= RecordCount(); ++position) {
        if (!Fits(RecordAt(position), criteria)) continue;
        MoveTo(position);
        return true;
    }
    return false;
}

}  // namespace sheetwright
