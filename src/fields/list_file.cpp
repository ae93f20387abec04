#include "fields/list_file.h"

#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"

#include <unordered_map>

namespace sheetwright {

namespace {

QString InfPath(const QString& tablePath) {
    return GetFolder(tablePath) + GetFileName(tablePath, true) + QStringLiteral(".inf");
}

QString InfText(const QString& tablePath) {
    const QString path = InfPath(tablePath);
    return FileExists(path) ? DecodeFileText(ReadWholeFile(path)) : QString();
}

void WriteInf(const QString& tablePath, const QString& before, const QString& after) {
    if (after != before) WriteFileAtomically(InfPath(tablePath), EncodeFileText(after));
}

}  // namespace

ListFile::ListFile(const QString& columnName) {
    m_table.InsertColumn(0, m_table.NewColumn(columnName, QStringLiteral("TEXT")));
    m_table.InsertRows(0, {ListTable::BlankRow()});
}

// The stamp is taken first: what is written while the file is read must count as a change.
ListFile ListFile::Open(const QString& path) {
    ListFile file;
    file.m_path = path;
    file.m_stamp = StampOf(path);
    file.m_table = ListTable(ReadWholeFile(path), LoadCsvTypes(path));
    file.m_savedColumns = file.m_table.Columns();
    return file;
}

bool ListFile::IsChangedOnDisk() const {
    const std::optional<FileStamp> there = StampOf(m_path);
    return there && there != m_stamp;
}

ColumnNames ListFile::NamesSinceSaved() const {
    std::unordered_map<int, const ListColumn*> now;
    for (const ListColumn& column : m_table.Columns())
        now.emplace(column.key, &column);
    ColumnNames names;
    for (const ListColumn& saved : m_savedColumns) {
        const auto found = now.find(saved.key);
        names.emplace(saved.name,
                      found == now.end() ? std::nullopt : std::optional<QString>(found->second->name));
    }
    return names;
}

std::vector<ColumnType> ListFile::TypesNow() const {
    std::vector<ColumnType> types;
    for (const ListColumn& column : m_table.Columns())
        types.push_back({column.name, column.type});
    return types;
}

// The names under which the file on disk may have another column. Until both files are new they are text.
std::vector<ColumnType> ListFile::AmbiguousTypes(bool isOwnFile) const {
    std::unordered_map<QString, int, CaseInsensitiveHash, CaseInsensitiveEqual> savedKeys;
    for (const ListColumn& saved : m_savedColumns)
        savedKeys.emplace(saved.name, saved.key);
    std::vector<ColumnType> types;
    for (const ListColumn& column : m_table.Columns()) {
        const auto saved = savedKeys.find(column.name);
        const bool isSame = isOwnFile && (saved == savedKeys.end() || saved->second == column.key);
        if (!isSame) types.push_back({column.name, QStringLiteral("TEXT")});
    }
    return types;
}

// A list that moves takes what was told of its columns along.
ListFile::InfTexts ListFile::InfFor(const QString& path) const {
    const bool isOwnFile = path == m_path;
    InfTexts texts;
    texts.before = InfText(path);
    texts.between = WithColumnTypes(texts.before, {}, AmbiguousTypes(isOwnFile));
    const QString own = isOwnFile || m_path.isEmpty() ? texts.before : InfText(m_path);
    texts.after = WithColumnTypes(own.isEmpty() ? texts.before : own, NamesSinceSaved(), TypesNow());
    return texts;
}

void ListFile::Save(const QString& path) {
    const QByteArray bytes = m_table.Bytes();
    const bool areTypesSaved = path == m_path && m_table.Columns() == m_savedColumns;
    const InfTexts inf = areTypesSaved ? InfTexts() : InfFor(path);
    WriteInf(path, inf.before, inf.between);
    if (const auto failed = Ignoring([&] { WriteFileAtomically(path, bytes); })) {
        Ignoring([&] { WriteInf(path, inf.between, inf.before); });
        throw Failure(*failed);
    }
    m_path = path;
    m_stamp = StampOf(path);
    WriteInf(path, inf.between, inf.after);
    m_savedColumns = m_table.Columns();
}

}  // namespace sheetwright
