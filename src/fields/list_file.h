#pragma once

// A list on disk: the table, its companion ".inf" with the columns' types, and how both looked when they were
// read or written last.

#include "document/file_stamp.h"
#include "fields/list_table.h"
#include "fields/list_types.h"

#include <QString>

#include <optional>
#include <vector>

namespace sheetwright {

class ListFile {
  public:
    // A list without a file, of one column and one blank row.
    explicit ListFile(const QString& columnName);
    // The list at `path`. Raises 53 (no such file), 76 (no such folder), 75 (no access, or no plain file), 57
    // or, for too many records, 6.
    [[nodiscard]] static ListFile Open(const QString& path);

    [[nodiscard]] const QString& Path() const { return m_path; }  // "" for none yet
    [[nodiscard]] ListTable& Table() { return m_table; }
    [[nodiscard]] const ListTable& Table() const { return m_table; }

    // Whether another program wrote to the file since.
    [[nodiscard]] bool IsChangedOnDisk() const;

    // Replaces the files in one step each. At no moment, also when a step fails, does the ".inf" give a
    // column the type of another one. Raises what WriteFileAtomically does, and what reading an ".inf" does
    // that has to be changed; `path` is the list's own from the moment its table is written.
    void Save(const QString& path);

  private:
    struct InfTexts {
        QString before;
        QString between;  // while the table is replaced
        QString after;
    };

    ListFile() = default;
    [[nodiscard]] InfTexts InfFor(const QString& path) const;
    [[nodiscard]] ColumnNames NamesSinceSaved() const;
    [[nodiscard]] std::vector<ColumnType> TypesNow() const;
    [[nodiscard]] std::vector<ColumnType> AmbiguousTypes(bool isOwnFile) const;

    QString m_path;
    ListTable m_table;
    std::optional<FileStamp> m_stamp;
    std::vector<ListColumn> m_savedColumns;
};

}  // namespace sheetwright
