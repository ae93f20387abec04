#pragma once

// Opens tables from bytes and shows their rows as lists of values.

#include "import/csv_table.h"
#include "support/test_application.h"

namespace sheetwright {

using Rows = std::vector<QStringList>;

inline QStringList NamesOf(CsvTable& table) {
    QStringList names;
    for (int number = 1; number <= table.Columns().Count(); ++number)
        names << table.Columns().At(number).Name();
    return names;
}

inline QStringList CurrentRow(CsvTable& table) {
    QStringList row;
    for (int number = 1; number <= table.Columns().Count(); ++number)
        row << table.Columns().At(number).Value();
    return row;
}

inline Rows RowsOf(CsvTable& table) {
    Rows rows;
    for (table.MoveFirst(); !table.AtEnd(); table.MoveNext())
        rows.push_back(CurrentRow(table));
    table.MoveFirst();
    return rows;
}

class CsvTableTest : public ApplicationTest {
  protected:
    // Puts `bytes` into the file of `m_table` and opens it.
    void Open(const QByteArray& bytes, const QByteArray& inf = {}) {
        if (!inf.isEmpty()) Write(QStringLiteral("table.inf"), inf);
        m_table.SetFileName(Write(QStringLiteral("table.csv"), bytes));
    }
    [[nodiscard]] QByteArray Saved() {
        m_table.Save();
        return Read(QStringLiteral("table.csv"));
    }
    void Set(const QString& column, const QString& value) { m_table.Columns().At(column).SetValue(value); }
    [[nodiscard]] QString Value(const QString& column) { return m_table.Columns().At(column).Value(); }

    CsvTable m_table;
};

}  // namespace sheetwright
