#pragma once

// Looking for a text in the cells of a list.

#include "fields/list_table.h"

#include <QString>

#include <optional>

namespace sheetwright {

struct ListQuery {
    QString text;
    Qt::CaseSensitivity isCaseSensitive = Qt::CaseInsensitive;

    [[nodiscard]] bool Fits(const QString& value) const {
        return !text.isEmpty() && value.contains(text, isCaseSensitive);
    }
    // The value with each place where the text stands replaced.
    [[nodiscard]] QString Replaced(QString value, const QString& by) const {
        return text.isEmpty() ? value : value.replace(text, by, isCaseSensitive);
    }
};

struct ListCell {
    int row = 0;
    int column = 0;
    bool operator==(const ListCell&) const = default;
};

// The next cell that fits behind (or before) `from`, which comes last; behind the last cell comes the first.
[[nodiscard]] std::optional<ListCell> FindCell(const ListTable& table, const ListQuery& query, ListCell from,
                                               bool isForward);

// How many cells fit in rows from `first` up to `end`.
[[nodiscard]] qint64 CountCells(const ListTable& table, const ListQuery& query, int first, int end);

}  // namespace sheetwright
