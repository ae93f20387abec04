#pragma once

// The companion ".inf" of a table, which tells the types of its columns. Its form is in docs/csv-tables.md.

#include "core/keyed_collection.h"

#include <QString>

#include <unordered_map>

namespace sheetwright {

// "BOOLEAN", "DATE", "NUMBER" or "TEXT" by column name, without regard to case.
using CsvTypes = std::unordered_map<QString, QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

// Lines that make no sense are passed over; a type of any other name is "TEXT".
[[nodiscard]] CsvTypes ParseCsvTypes(const QString& inf);

// The companion of the table at `tablePath`, which may not be there.
[[nodiscard]] QString CsvTypesPathOf(const QString& tablePath);

// The types for the table at `tablePath`, from the file beside it; none when there is no such file or it
// can't be read: then every column is text.
[[nodiscard]] CsvTypes LoadCsvTypes(const QString& tablePath);

}  // namespace sheetwright
