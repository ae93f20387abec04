#pragma once

// The rows and typed columns of one list in memory, for a program that edits it. Rows of the file are cut out
// of its bytes when they are asked for; a change keeps the whole row, so that taking it back gives back the
// row of the file, byte for byte.

#include "import/csv_source.h"
#include "import/csv_types.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

class CsvWriter;

struct ListColumn {
    int key = 0;  // by which rows keep their values; it stays when columns come and go
    QString name;
    QString type = QStringLiteral("TEXT");
    bool operator==(const ListColumn&) const = default;
};

struct ListRow {
    static constexpr qint64 kNew = -1;
    qint64 record = kNew;    // of the file, from 0
    bool isWritten = false;  // then `values`, by key, count instead of the file's
    QStringList values;
};

// Rows and columns count from 0.
class ListTable {
  public:
    static constexpr int kColumnLimit = CsvSource::kColumnLimit;

    ListTable() = default;
    // Raises 6 for more than 2147483647 records.
    ListTable(QByteArray bytes, const CsvTypes& types);

    [[nodiscard]] int RowCount() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] int ColumnCount() const { return static_cast<int>(m_columns.size()); }
    [[nodiscard]] const ListColumn& Column(int column) const { return m_columns[Index(column)]; }
    [[nodiscard]] const std::vector<ListColumn>& Columns() const { return m_columns; }
    [[nodiscard]] const ListRow& Row(int row) const { return m_rows[Index(row)]; }
    [[nodiscard]] QString Text(int row, int column) const;

    using Cells = std::vector<std::pair<int, QString>>;  // column and text
    // The row with other texts in some of its cells.
    [[nodiscard]] ListRow WithTexts(const ListRow& row, const Cells& cells) const;
    [[nodiscard]] static ListRow BlankRow() { return {ListRow::kNew, true, {}}; }

    void SwapRow(int row, ListRow& other) { std::swap(m_rows[Index(row)], other); }
    void InsertRows(int at, std::vector<ListRow> rows);
    std::vector<ListRow> TakeRows(int at, int count);
    // Takes out rows at ascending places, or puts them back there.
    std::vector<ListRow> TakeRows(const std::vector<int>& places);
    void PutRows(const std::vector<int>& places, std::vector<ListRow> rows);
    // The row at first + i becomes the one that was at first + order[i].
    void Reorder(int first, const std::vector<std::uint32_t>& order);
    // The order by a column, as tables are sorted: by number or by character code; stable both ways.
    [[nodiscard]] std::vector<std::uint32_t> SortedOrder(int column, bool isDescending) const;

    // A column for `InsertColumn`. Raises 6 when there are 32767 already.
    [[nodiscard]] ListColumn NewColumn(const QString& name, const QString& type);
    void InsertColumn(int at, ListColumn column);
    void RemoveColumn(int at);
    void SetColumn(int at, ListColumn column) { m_columns[Index(at)] = std::move(column); }
    // Ignoring case.
    [[nodiscard]] std::optional<int> ColumnNamed(const QString& name) const;

    // That of the file that was read; ASCII is both of the others.
    [[nodiscard]] CsvEncoding Encoding() const { return m_source.Codec().Encoding(); }
    [[nodiscard]] QString LineEnd() const;
    // The file. Encoding and line ends stay what they were, as far as the encoding has all characters; rows
    // that nobody wrote to keep their bytes while the columns stay.
    [[nodiscard]] QByteArray Bytes() const;

  private:
    [[nodiscard]] static std::size_t Index(int at) { return static_cast<std::size_t>(at); }
    [[nodiscard]] QString TextOf(const ListRow& row, int key) const;
    [[nodiscard]] QStringList ValuesOf(const ListRow& row) const;
    void Cut(qint64 record) const;
    [[nodiscard]] bool HasFileColumns() const;
    [[nodiscard]] bool HasFileNames() const;
    [[nodiscard]] bool IsAsRead() const;
    [[nodiscard]] std::optional<QByteArray> Written(CsvEncoding encoding) const;
    void WriteHeader(CsvWriter& writer) const;
    void WriteRow(CsvWriter& writer, const ListRow& row, bool hasFileColumns) const;

    CsvSource m_source;
    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;
    int m_nextKey = 0;
    mutable qint64 m_cutRecord = ListRow::kNew;  // whose values m_fields are
    mutable std::vector<CsvField> m_fields;
};

}  // namespace sheetwright
