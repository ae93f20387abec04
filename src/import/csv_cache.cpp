#include "import/csv_cache.h"

#include "core/failure.h"
#include "core/paths.h"
#include "import/csv_table.h"
#include "import/csv_types.h"

#include <QFileInfo>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr std::size_t kMostTables = 64;
constexpr qint64 kMostBytes = 64LL * 1024 * 1024;

}  // namespace

CsvCache::CsvCache() = default;
CsvCache::~CsvCache() = default;

CsvCache::FileState CsvCache::StateOf(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) return {path, -1, {}};
    return {path, file.size(), file.lastModified()};
}

bool CsvCache::IsSame(const Kept& kept) {
    return std::ranges::all_of(kept.files, [](const FileState& file) { return StateOf(file.path) == file; });
}

// What the files were is asked before they are read: a change meanwhile shows the next time.
std::shared_ptr<CsvTable> CsvCache::Open(const QString& path) {
    const auto known = m_tables.find(path);
    if (known != m_tables.end() && IsSame(known->second)) return known->second.table;
    if (known != m_tables.end()) {
        m_bytes -= known->second.files.front().size;
        m_tables.erase(known);
    }
    Kept kept{{StateOf(OnDisk(path)), StateOf(OnDisk(CsvTypesPathOf(path)))}, std::make_shared<CsvTable>()};
    const qint64 size = kept.files.front().size;
    if (size < 0) throw Failure(failure::kFileNotFound);
    kept.table->SetFileName(path);
    if (m_tables.size() >= kMostTables || m_bytes + size > kMostBytes) return kept.table;
    m_bytes += size;
    return m_tables.emplace(path, std::move(kept)).first->second.table;
}

}  // namespace sheetwright
