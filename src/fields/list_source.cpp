#include "fields/list_source.h"

#include "core/contained_name.h"
#include "core/failure.h"
#include "formula/value_conversion.h"
#include "import/csv_table.h"

namespace sheetwright {

QString ListPathOf(const QString& listFolder, QStringView source, const Conventions& conventions) {
    const QString name = TextOf(GetCsvField(source, 1, conventions), conventions);
    return IsContainedName(name) ? listFolder + name + QStringLiteral(".csv") : QString();
}

const CsvColumn& ListColumnOf(CsvTable& table, QStringView source, const Conventions& conventions) {
    const Value column = GetCsvField(source, 2, conventions);
    const double* const number = std::get_if<double>(&column);
    return number ? table.Columns().At(ToInt32(*number)) : table.Columns().At(TextOf(column, conventions));
}

}  // namespace sheetwright
