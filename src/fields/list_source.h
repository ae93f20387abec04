#pragma once

// "<list>,<column>": how the list of a field, and what a field takes from the list of another, name a column
// of a list file.

#include <QString>
#include <QStringView>

namespace sheetwright {

class CsvColumn;
class CsvTable;
struct Conventions;

// The list's file below the list folder, which has a separator at its end; "" for a name that leads out of
// that folder.
[[nodiscard]] QString ListPathOf(const QString& listFolder, QStringView source,
                                 const Conventions& conventions);

// The column, by number when it reads as one, otherwise by name. Raises 9, 5 and 6 for what is no column.
[[nodiscard]] const CsvColumn& ListColumnOf(CsvTable& table, QStringView source,
                                            const Conventions& conventions);

}  // namespace sheetwright
