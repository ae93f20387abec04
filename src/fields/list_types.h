#pragma once

// The types of a list's columns: what a value of each looks like, and their place in the companion ".inf",
// whose other lines belong to whoever wrote them.

#include "core/keyed_collection.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <unordered_map>
#include <vector>

namespace sheetwright {

// Whether a value reads as the type: a number with a decimal point, a date of the calendar in eight digits,
// -1 or 0. Blanks fit every type, and every value is a text.
[[nodiscard]] bool FitsType(QStringView value, const QString& type);

struct ColumnType {
    QString name;
    QString type;
};

// What became of columns, by the names they had: their names now, or nothing for those that are gone.
using ColumnNames =
    std::unordered_map<QString, std::optional<QString>, CaseInsensitiveHash, CaseInsensitiveEqual>;

// The text of an ".inf" that tells these types, of which the first of equal names counts. The sections of
// renamed columns get the new names; those of columns that are gone lose their types, and go when nothing
// else is in them. All other lines stay. A column of text is told only where there is a type to replace, and
// one whose name has a line break not at all.
[[nodiscard]] QString WithColumnTypes(const QString& inf, const ColumnNames& names,
                                      const std::vector<ColumnType>& types);

}  // namespace sheetwright
