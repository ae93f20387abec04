#pragma once

// The one reader and writer of comma-separated files: import data, maintainable lists, the error log, paper
// sizes, dictionaries. A table in memory with a current record; columns show the current record's values.
// The file's syntax and the companion ".inf" with the column types are told in docs/csv-tables.md.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <vector>

namespace sheetwright {

class CsvTable;

class CsvColumn {
  public:
    [[nodiscard]] const QString& Name() const { return m_name; }
    // "BOOLEAN", "DATE", "NUMBER" or "TEXT". Dates are stored as eight digits, Booleans as numbers, -1 for true.
    [[nodiscard]] const QString& DataType() const { return m_dataType; }
    // The current record's value; "" when it is blank or there is no current record.
    [[nodiscard]] QString Value() const;
    // Raises 91 when there is no current record.
    void SetValue(const QString& value);

  private:
    friend class CsvTable;
    CsvColumn(CsvTable& table, int index, QString name) : m_table(table), m_index(index), m_name(std::move(name)) {}

    CsvTable& m_table;
    int m_index;
    QString m_name;
    QString m_dataType = QStringLiteral("TEXT");
};

class CsvTable {
  public:
    // The columns, by 1-based number or by name (without regard to case; the first of equal names). Asking for
    // what is not there raises 9 for a number and 5 for a name.
    class ColumnList {
      public:
        explicit ColumnList(CsvTable& table) : m_table(table) {}
        [[nodiscard]] int Count() const;
        [[nodiscard]] CsvColumn& At(int number) const;
        [[nodiscard]] CsvColumn& At(const QString& name) const;
        // Adds a column of blanks behind the others. Raises 457 when the name is there.
        CsvColumn& Add(const QString& name);

      private:
        CsvTable& m_table;
    };

    CsvTable();
    CsvTable(const CsvTable&) = delete;
    CsvTable& operator=(const CsvTable&) = delete;
    ~CsvTable();

    // Opens the file: reads header and records and positions on the first. A file that does not exist gives a
    // table with no columns, to which columns can be added. Raises 75 for a file that exists and can't be read.
    void SetFileName(const QString& path);
    [[nodiscard]] const QString& FileName() const;  // the path last set; "" for a fresh table

    [[nodiscard]] ColumnList Columns() { return ColumnList(*this); }
    [[nodiscard]] std::int32_t RecordCount() const;

    // Orders the records by comma-separated column names, the first most significant; stable. Columns of type
    // NUMBER, DATE and BOOLEAN compare as numbers, blanks first; others by character code. Afterwards on the
    // first record. Raises 5 for a name that is no column.
    void Sort(const QString& columnNames);

    void MoveFirst();
    void MoveNext();
    [[nodiscard]] bool AtEnd() const;  // `MoveNext` has passed the last record, or there is none

    // Current record's number from 1; 0 when there is none. Setting raises 9 outside 1 to RecordCount.
    [[nodiscard]] std::int32_t Position() const;
    void SetPosition(std::int32_t number);

    // Positions on the first record whose columns equal the values, given as comma-separated column=value pairs.
    // Where there is none the position stays. Returns whether one was found. Raises 5 for a name that is no column.
    bool Find(const QString& filter);

    void AddRecord();  // appends a blank record and makes it current
    void Update();     // commits the values written through `Value`
    // Writes the table back to its file, atomically: the old file or the new one, never a part. Raises the
    // failures of WriteFileAtomically.
    void Save();
};

}  // namespace sheetwright
