#pragma once

// The one reader and writer of comma-separated files: import data, maintainable lists, the error log, paper
// sizes, dictionaries. A table in memory with a current record; columns show the current record's values.
// The file's syntax and the companion ".inf" with the column types are told in docs/csv-tables.md.

#include "core/keyed_collection.h"
#include "import/csv_source.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace sheetwright {

class CsvTable;
class CsvWriter;

class CsvColumn {
  public:
    [[nodiscard]] const QString& Name() const { return m_name; }
    // "BOOLEAN", "DATE", "NUMBER" or "TEXT". Dates are stored as eight digits, Booleans as numbers, -1 for
    // true.
    [[nodiscard]] const QString& DataType() const { return m_dataType; }
    // The current record's value; "" when it is blank or there is no current record.
    [[nodiscard]] QString Value() const;
    // Shows at once, and is kept when `Update` follows before the table moves to another record. Raises 91
    // when there is no current record.
    void SetValue(const QString& value);

  private:
    friend class CsvTable;
    CsvColumn(CsvTable& table, int index, QString name)
        : m_table(table), m_index(index), m_name(std::move(name)) {}

    CsvTable& m_table;
    int m_index;
    QString m_name;
    QString m_dataType = QStringLiteral("TEXT");
};

class CsvTable {
  public:
    // The columns, by 1-based number or by name (without regard to case; the first of equal names). Asking
    // for what is not there raises 9 for a number and 5 for a name. What is handed out stays valid until the
    // next SetFileName.
    class ColumnList {
      public:
        explicit ColumnList(CsvTable& table) : m_table(table) {}
        [[nodiscard]] int Count() const;
        [[nodiscard]] CsvColumn& At(int number) const;
        [[nodiscard]] CsvColumn& At(const QString& name) const;
        // Adds a column of blanks behind the others. Raises 457 when the name is there and 6 when the table
        // has 32767 columns.
        CsvColumn& Add(const QString& name);

      private:
        CsvTable& m_table;
    };

    CsvTable();
    CsvTable(const CsvTable&) = delete;
    CsvTable& operator=(const CsvTable&) = delete;
    ~CsvTable();

    // Opens the file: reads header and records and positions on the first. A file that does not exist gives a
    // table with no columns, to which columns can be added. Raises 75 for a file that exists and can't be
    // read and 6 for one of more than 2147483647 records; then the table has that name and no columns.
    void SetFileName(const QString& path);
    // The same of a file whose bytes were read before, so that nobody can change them in between.
    void SetFileName(const QString& path, QByteArray bytes);
    [[nodiscard]] const QString& FileName() const { return m_fileName; }  // as last set; "" for a fresh table

    [[nodiscard]] ColumnList Columns() { return ColumnList(*this); }
    [[nodiscard]] std::int32_t RecordCount() const;

    // Orders the records by comma-separated column names, the first most significant; stable. Columns of type
    // NUMBER, DATE and BOOLEAN compare as numbers, blanks first; others by character code. Afterwards on the
    // first record. Raises 5 for a name that is no column, and leaves the table as it was.
    void Sort(const QString& columnNames);
    // The same of names that may hold commas.
    void Sort(const QStringList& columnNames);

    void MoveFirst();
    void MoveNext();  // past the last record there is no current one, and moving on stays there
    [[nodiscard]] bool AtEnd() const { return m_position > RecordCount(); }  // also when there is no record

    // Current record's number from 1; 0 when there is none. Setting 0, which is what a list without a
    // selected row asks for, leaves none; outside 0 to RecordCount it raises 9.
    [[nodiscard]] std::int32_t Position() const;
    void SetPosition(std::int32_t number);

    // Positions on the first record whose columns equal the values, given as comma-separated column=value
    // pairs. Where there is none the position stays. Returns whether one was found. Raises 5 for a name that
    // is no column.
    bool Find(const QString& filter);

    // Appends a blank record and makes it current. Raises 6 when there are 2147483647 already.
    void AddRecord();
    // Commits the values written through `Value`. Moving to another record without it drops them.
    void Update();
    // Writes the table back to its file, atomically: the old file or the new one, never a part. Records that
    // nobody wrote to keep their bytes, and a table that nobody changed all of them. Raises
    // 52 for a table with no file name, 75 for one whose file could not be read, and the failures of
    // WriteFileAtomically.
    void Save();

  private:
    friend class CsvColumn;
    using Values = std::vector<QString>;  // those in columns; may be fewer than the columns
    struct Criterion {
        int column;
        QString value;
    };

    void Clear();
    void Name(const QString& path);
    void Load(QByteArray bytes);
    void AppendColumn(const QString& name);
    [[nodiscard]] CsvColumn& ColumnNamed(const QString& name) const;
    [[nodiscard]] std::vector<Criterion> CriteriaOf(const QString& filter) const;
    [[nodiscard]] bool Fits(std::uint32_t record, const std::vector<Criterion>& criteria) const;
    void SortBy(const CsvColumn& column);

    // Records are numbered from 0 in the order of the file, added ones behind them.
    void MoveTo(std::int64_t position);
    [[nodiscard]] std::uint32_t RecordAt(std::int64_t position) const;
    [[nodiscard]] bool IsFromFile(std::uint32_t record) const;
    [[nodiscard]] const Values* WrittenValues(std::uint32_t record) const;
    [[nodiscard]] QString Text(std::uint32_t record, int column) const;
    [[nodiscard]] QString CurrentText(int column) const;
    void SetCurrentText(int column, const QString& value);
    void CutCurrentRecord() const;

    [[nodiscard]] std::optional<QByteArray> Written(CsvEncoding encoding) const;
    void WriteHeader(CsvWriter& writer) const;
    void WriteRecord(CsvWriter& writer, std::uint32_t record) const;
    void WriteValues(CsvWriter& writer, std::uint32_t record) const;

    QString m_fileName;
    bool m_isRead = true;  // not when the file could not be read: then it must not be written over
    CsvSource m_source;
    std::vector<std::unique_ptr<CsvColumn>> m_columns;
    std::unordered_map<QString, int, CaseInsensitiveHash, CaseInsensitiveEqual> m_columnNumbers;  // from 0
    std::int32_t m_addedCount = 0;
    std::vector<std::uint32_t> m_order;  // records by place; empty as long as they stand as in the file
    std::unordered_map<std::uint32_t, Values> m_written;
    std::optional<Values> m_pending;  // the current record with values that are not committed yet
    std::int64_t m_position = 1;
    bool m_isChanged = false;
    mutable std::vector<CsvField> m_fields;  // the current record as cut by CutCurrentRecord
    mutable bool m_isCut = false;
};

}  // namespace sheetwright
