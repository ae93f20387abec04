#include "fields/list_table.h"

#include "core/failure.h"
#include "import/csv_sort.h"
#include "import/csv_writer.h"

#include <algorithm>

namespace sheetwright {

ListTable::ListTable(QByteArray bytes, const CsvTypes& types)
    : m_source(std::move(bytes)), m_nextKey(m_source.Width()) {
    for (const QString& name : m_source.Names()) {
        const auto type = types.find(name);
        m_columns.push_back(
            {ColumnCount(), name, type == types.end() ? QStringLiteral("TEXT") : type->second});
    }
    m_rows.resize(Index(m_source.RecordCount()));
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_rows[row].record = static_cast<qint64>(row);
}

// What is drawn stands together in rows, so each is cut once.
void ListTable::Cut(qint64 record) const {
    if (m_cutRecord == record) return;
    m_cutRecord = record;
    m_fields.clear();
    CsvFieldReader reader = m_source.Record(static_cast<std::uint32_t>(record));
    const auto width = static_cast<std::size_t>(m_source.Width());
    while (reader.HasNext() && m_fields.size() < width)
        m_fields.push_back(reader.Next());
}

QString ListTable::TextOf(const ListRow& row, int key) const {
    if (row.isWritten) return row.values.value(key);
    Cut(row.record);
    return Index(key) < m_fields.size() ? m_source.Text(m_fields[Index(key)]) : QString();
}

QString ListTable::Text(int row, int column) const {
    return TextOf(Row(row), Column(column).key);
}

QStringList ListTable::ValuesOf(const ListRow& row) const {
    if (row.isWritten) return row.values;
    Cut(row.record);
    QStringList values;
    for (const CsvField& field : m_fields)
        values << m_source.Text(field);
    return values;
}

ListRow ListTable::WithTexts(const ListRow& row, const Cells& cells) const {
    ListRow changed{row.record, true, ValuesOf(row)};
    for (const auto& [column, text] : cells) {
        const int key = Column(column).key;
        if (changed.values.size() <= key) changed.values.resize(key + 1);
        changed.values[key] = text;
    }
    return changed;
}

void ListTable::InsertRows(int at, std::vector<ListRow> rows) {
    m_rows.insert(m_rows.begin() + at, std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
}

std::vector<ListRow> ListTable::TakeRows(int at, int count) {
    const auto first = m_rows.begin() + at;
    std::vector<ListRow> taken(std::make_move_iterator(first), std::make_move_iterator(first + count));
    m_rows.erase(first, first + count);
    return taken;
}

std::vector<ListRow> ListTable::TakeRows(const std::vector<int>& places) {
    std::vector<ListRow> taken;
    std::size_t kept = 0;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const bool isTaken = taken.size() < places.size() && Index(places[taken.size()]) == row;
        if (isTaken) {
            taken.push_back(std::move(m_rows[row]));
        } else if (kept++ != row) {
            m_rows[kept - 1] = std::move(m_rows[row]);
        }
    }
    m_rows.resize(kept);
    return taken;
}

void ListTable::PutRows(const std::vector<int>& places, std::vector<ListRow> rows) {
    std::size_t from = m_rows.size();
    m_rows.resize(m_rows.size() + rows.size());
    std::size_t left = rows.size();
    for (std::size_t to = m_rows.size(); left > 0; --to) {
        const bool isPut = Index(places[left - 1]) == to - 1;
        m_rows[to - 1] = isPut ? std::move(rows[--left]) : std::move(m_rows[--from]);
    }
}

void ListTable::Reorder(int first, const std::vector<std::uint32_t>& order) {
    std::vector<ListRow> rows;
    rows.reserve(order.size());
    for (const std::uint32_t place : order)
        rows.push_back(std::move(m_rows[Index(first) + place]));
    std::move(rows.begin(), rows.end(), m_rows.begin() + first);
}

// Descending, the rows are taken from the end, so that equal ones come out in their order.
std::vector<std::uint32_t> ListTable::SortedOrder(int column, bool isDescending) const {
    const auto& [key, name, type] = Column(column);
    CsvSortKeys keys(type != QStringLiteral("TEXT"), RowCount());
    for (int row = 0; row < RowCount(); ++row)
        keys.Add(TextOf(Row(isDescending ? RowCount() - 1 - row : row), key));
    std::vector<std::uint32_t> order = keys.Order();
    if (!isDescending) return order;
    std::reverse(order.begin(), order.end());
    for (std::uint32_t& place : order)
        place = static_cast<std::uint32_t>(RowCount()) - 1 - place;
    return order;
}

ListColumn ListTable::NewColumn(const QString& name, const QString& type) {
    if (ColumnCount() >= kColumnLimit) throw Failure(failure::kOverflow);
    return {m_nextKey++, name, type};
}

void ListTable::InsertColumn(int at, ListColumn column) {
    m_columns.insert(m_columns.begin() + at, std::move(column));
}

void ListTable::RemoveColumn(int at) {
    m_columns.erase(m_columns.begin() + at);
}

std::optional<int> ListTable::ColumnNamed(const QString& name) const {
    const auto found = std::find_if(m_columns.begin(), m_columns.end(), [&](const ListColumn& column) {
        return CaseInsensitiveEqual()(column.name, name);
    });
    if (found == m_columns.end()) return std::nullopt;
    return static_cast<int>(found - m_columns.begin());
}

QString ListTable::LineEnd() const {
    return QString::fromLatin1(m_source.LineEnd());
}

bool ListTable::HasFileColumns() const {
    bool isSame = ColumnCount() == m_source.Width();
    for (int column = 0; isSame && column < ColumnCount(); ++column)
        isSame = Column(column).key == column;
    return isSame;
}

bool ListTable::HasFileNames() const {
    return std::equal(m_columns.begin(), m_columns.end(), m_source.Names().begin(), m_source.Names().end(),
                      [](const ListColumn& column, const QString& name) { return column.name == name; });
}

bool ListTable::IsAsRead() const {
    if (RowCount() != m_source.RecordCount() || !HasFileColumns() || !HasFileNames()) return false;
    qint64 record = 0;
    return std::all_of(m_rows.begin(), m_rows.end(),
                       [&](const ListRow& row) { return !row.isWritten && row.record == record++; });
}

QByteArray ListTable::Bytes() const {
    if (IsAsRead()) return m_source.Bytes();
    std::optional<QByteArray> bytes;
    if (Encoding() != CsvEncoding::Utf8) bytes = Written(CsvEncoding::CodePage);
    if (!bytes) bytes = Written(CsvEncoding::Utf8);
    return *std::move(bytes);
}

std::optional<QByteArray> ListTable::Written(CsvEncoding encoding) const {
    CsvWriter writer(m_source.Codec(), encoding);
    if (m_columns.empty()) return writer.Take();
    const QByteArrayView lineEnd = m_source.LineEnd();
    const bool hasFileColumns = HasFileColumns();
    WriteHeader(writer);
    writer.EndRecord(lineEnd);
    for (const ListRow& row : m_rows) {
        WriteRow(writer, row, hasFileColumns);
        writer.EndRecord(lineEnd);
    }
    return writer.Take();
}

void ListTable::WriteHeader(CsvWriter& writer) const {
    writer.AppendLead(m_source.Lead());
    if (HasFileColumns() && HasFileNames()) return writer.AppendRaw(m_source.WholeHeader());
    for (int column = 0; column < ColumnCount(); ++column) {
        if (column > 0) writer.AppendComma();
        writer.AppendValue(Column(column).name);
    }
}

// Values beyond the header stay behind those of the columns, whatever these are now.
void ListTable::WriteRow(CsvWriter& writer, const ListRow& row, bool hasFileColumns) const {
    const auto record = static_cast<std::uint32_t>(row.record);
    if (!row.isWritten && hasFileColumns) return writer.AppendRaw(m_source.WholeRecord(record));
    bool isFirst = true;
    for (const ListColumn& column : m_columns) {
        if (!std::exchange(isFirst, false)) writer.AppendComma();
        writer.AppendValue(TextOf(row, column.key));
    }
    if (row.record != ListRow::kNew) writer.AppendRaw(m_source.Rest(record));
}

}  // namespace sheetwright
