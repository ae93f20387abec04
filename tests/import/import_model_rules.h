#pragma once

// The plain rules under the second import: sources, driver folders, the order of records, values.

#include <QString>
#include <QStringList>

#include <vector>

namespace sheetwright {

struct ModelTable {
    QStringList names;
    QStringList types;  // of the columns, "" for a text
    std::vector<QStringList> rows;

    [[nodiscard]] int ColumnOf(const QString& name) const;  // -1 for none; case does not count
    [[nodiscard]] QString Value(int row, int column) const;
};

// The alternatives of a source, cut at each ";" outside quotes and parentheses; the first character of each
// but the first is not looked at.
[[nodiscard]] QStringList ModelAlternatives(QString text);
// Case does not count, and "/" and "\" are alike.
[[nodiscard]] bool IsSameModelPath(const QString& one, const QString& other);
// Whether one of the alternatives of `pattern` stands for `target`.
[[nodiscard]] bool ModelTakes(const QString& pattern, const QString& target);
// The folder of a driver, from its "DRIVERS\" on; `marked` are the folders that hold a marker. Paths are
// separated by "\".
[[nodiscard]] QString ModelRelativePath(const QString& path, const QStringList& marked);
// Positions of the rows, ordered by the columns.
[[nodiscard]] std::vector<int> ModelOrder(const ModelTable& table, const QStringList& columns);
[[nodiscard]] double ModelNumber(const QString& text);
[[nodiscard]] QString ModelDate(const QString& stamp);

}  // namespace sheetwright
