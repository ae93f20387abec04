#pragma once

// Tables that are looked at again and again while one pass goes through a form, read once.

#include <QDateTime>
#include <QString>

#include <array>
#include <memory>
#include <unordered_map>

namespace sheetwright {

class CsvTable;

class CsvCache {
  public:
    CsvCache();
    CsvCache(const CsvCache&) = delete;
    CsvCache& operator=(const CsvCache&) = delete;
    ~CsvCache();

    // The table of the file at `path`, at any record. It is read again when its file or the companion ".inf"
    // has changed since. Too many or too large ones are not kept. Raises 53 when there is no such file and
    // what `CsvTable::SetFileName` raises.
    [[nodiscard]] std::shared_ptr<CsvTable> Open(const QString& path);

  private:
    struct FileState {
        QString path;  // on the disk
        qint64 size;   // -1 where there is none
        QDateTime changed;
        bool operator==(const FileState&) const = default;
    };
    struct Kept {
        std::array<FileState, 2> files;  // table and types
        std::shared_ptr<CsvTable> table;
    };

    [[nodiscard]] static FileState StateOf(const QString& path);
    [[nodiscard]] static bool IsSame(const Kept& kept);

    std::unordered_map<QString, Kept> m_tables;
    qint64 m_bytes = 0;
};

}  // namespace sheetwright
