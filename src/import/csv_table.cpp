#include "import/csv_table.h"

#include "core/failure.h"
#include "core/paths.h"
#include "import/csv_types.h"

#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <utility>

namespace sheetwright {

QString CsvColumn::Value() const {
    return m_table.CurrentText(m_index);
}

void CsvColumn::SetValue(const QString& value) {
    m_table.SetCurrentText(m_index, value);
}

int CsvTable::ColumnList::Count() const {
    return static_cast<int>(m_table.m_columns.size());
}

CsvColumn& CsvTable::ColumnList::At(int number) const {
    if (number < 1 || number > Count()) throw Failure(failure::kSubscript);
    return *m_table.m_columns[static_cast<std::size_t>(number - 1)];
}

CsvColumn& CsvTable::ColumnList::At(const QString& name) const {
    return m_table.ColumnNamed(name);
}

CsvColumn& CsvTable::ColumnList::Add(const QString& name) {
    if (m_table.m_columnNumbers.contains(name)) throw Failure(failure::kKeyExists);
    if (Count() == CsvSource::kColumnLimit) throw Failure(failure::kOverflow);
    m_table.AppendColumn(name);
    m_table.m_isChanged = true;
    return *m_table.m_columns.back();
}

CsvTable::CsvTable() = default;

CsvTable::~CsvTable() = default;

void CsvTable::Clear() {
    m_source = CsvSource();
    m_columns.clear();
    m_columnNumbers.clear();
    m_addedCount = 0;
    m_order = {};
    m_written.clear();
    m_isChanged = false;
    MoveFirst();
}

void CsvTable::Name(const QString& path) {
    const QString name = path;  // the argument may be this table's own name
    Clear();
    m_fileName = name;
    m_isRead = false;
}

void CsvTable::SetFileName(const QString& path) {
    Name(path);
    if (FileExists(m_fileName)) return Load(ReadWholeFile(m_fileName));
    if (QFileInfo::exists(OnDisk(m_fileName))) throw Failure(failure::kPathAccess);
    m_isRead = true;
}

void CsvTable::SetFileName(const QString& path, QByteArray bytes) {
    Name(path);
    Load(std::move(bytes));
}

void CsvTable::Load(QByteArray bytes) {
    m_source = CsvSource(std::move(bytes));
    const CsvTypes types = LoadCsvTypes(m_fileName);
    for (const QString& columnName : m_source.Names()) {
        AppendColumn(columnName);
        const auto type = types.find(columnName);
        if (type != types.end()) m_columns.back()->m_dataType = type->second;
    }
    m_isRead = true;
}

void CsvTable::AppendColumn(const QString& name) {
    const int index = static_cast<int>(m_columns.size());
    m_columns.push_back(std::unique_ptr<CsvColumn>(new CsvColumn(*this, index, name)));
    m_columnNumbers.emplace(name, index);
}

CsvColumn& CsvTable::ColumnNamed(const QString& name) const {
    const auto found = m_columnNumbers.find(name);
    if (found == m_columnNumbers.end()) throw Failure(failure::kInvalidCall);
    return *m_columns[static_cast<std::size_t>(found->second)];
}

std::int32_t CsvTable::RecordCount() const {
    return m_source.RecordCount() + m_addedCount;
}

void CsvTable::MoveFirst() {
    MoveTo(1);
}

void CsvTable::MoveNext() {
    if (!AtEnd()) MoveTo(m_position + 1);
}

std::int32_t CsvTable::Position() const {
    return AtEnd() ? 0 : static_cast<std::int32_t>(m_position);
}

void CsvTable::SetPosition(std::int32_t number) {
    if (number < 0 || number > RecordCount()) throw Failure(failure::kSubscript);
    MoveTo(number == 0 ? std::int64_t{RecordCount()} + 1 : number);
}

void CsvTable::MoveTo(std::int64_t position) {
    m_position = position;
    m_pending.reset();
    m_isCut = false;
}

std::uint32_t CsvTable::RecordAt(std::int64_t position) const {
    const auto place = static_cast<std::uint32_t>(position - 1);
    return m_order.empty() ? place : m_order[place];
}

bool CsvTable::IsFromFile(std::uint32_t record) const {
    return record < static_cast<std::uint32_t>(m_source.RecordCount());
}

void CsvTable::AddRecord() {
    if (RecordCount() == std::numeric_limits<std::int32_t>::max()) throw Failure(failure::kOverflow);
    const auto record = static_cast<std::uint32_t>(RecordCount());
    if (!m_order.empty()) m_order.push_back(record);
    ++m_addedCount;
    m_isChanged = true;
    MoveTo(RecordCount());
}

void CsvTable::Update() {
    if (!m_pending) return;
    m_written[RecordAt(m_position)] = *std::move(m_pending);
    m_pending.reset();
    m_isChanged = true;
}

const CsvTable::Values* CsvTable::WrittenValues(std::uint32_t record) const {
    if (m_written.empty()) return nullptr;
    const auto found = m_written.find(record);
    return found == m_written.end() ? nullptr : &found->second;
}

QString CsvTable::Text(std::uint32_t record, int column) const {
    const auto index = static_cast<std::size_t>(column);
    if (const Values* values = WrittenValues(record))
        return index < values->size() ? (*values)[index] : QString();
    return IsFromFile(record) ? m_source.Text(record, column) : QString();
}

QString CsvTable::CurrentText(int column) const {
    if (AtEnd()) return {};
    const auto index = static_cast<std::size_t>(column);
    if (m_pending) return index < m_pending->size() ? (*m_pending)[index] : QString();
    const std::uint32_t record = RecordAt(m_position);
    if (!IsFromFile(record) || WrittenValues(record) != nullptr) return Text(record, column);
    CutCurrentRecord();
    return index < m_fields.size() ? m_source.Text(m_fields[index]) : QString();
}

void CsvTable::CutCurrentRecord() const {
    if (m_isCut) return;
    m_fields.clear();
    CsvFieldReader reader = m_source.Record(RecordAt(m_position));
    const auto width = static_cast<std::size_t>(m_source.Width());
    while (reader.HasNext() && m_fields.size() < width)
        m_fields.push_back(reader.Next());
    m_isCut = true;
}

void CsvTable::SetCurrentText(int column, const QString& value) {
    if (AtEnd()) throw Failure(failure::kObjectNotSet);
    if (!m_pending) {
        Values values(m_columns.size());
        for (std::size_t index = 0; index < values.size(); ++index)
            values[index] = CurrentText(static_cast<int>(index));
        m_pending = std::move(values);
    }
    const auto index = static_cast<std::size_t>(column);
    if (m_pending->size() <= index) m_pending->resize(index + 1);
    (*m_pending)[index] = value;
}

}  // namespace sheetwright
