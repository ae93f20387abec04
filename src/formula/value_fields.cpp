#include "formula/value_conversion.h"
#include "import/csv_table.h"

namespace sheetwright {

namespace {

// Where the field that starts at `start` ends: at its comma or at the end of the line. Commas between the
// field's first quote and the next one belong to the field.
qsizetype FieldEnd(QStringView line, qsizetype start) {
    qsizetype comma = line.indexOf(u',', start);
    if (comma < 0) return line.size();
    const qsizetype quote = line.sliced(start, comma - start).indexOf(u'"');
    if (quote < 0) return comma;
    const qsizetype closing = line.indexOf(u'"', start + quote + 1);
    while (comma >= 0 && comma < closing)
        comma = line.indexOf(u',', comma + 1);
    return comma < 0 ? line.size() : comma;
}

Value ValueOfField(QStringView field, const Conventions& conventions) {
    if (field.startsWith(u'"'))
        return field.size() < 3 ? QString(QLatin1StringView(""))
                                : field.sliced(1, field.size() - 2).toString();
    if (IsNumberText(field, conventions)) return ToNumber(field, conventions);
    return field.toString();
}

}  // namespace

Value GetCsvField(QStringView line, int n, const Conventions& conventions) {
    if (line.isEmpty() || n < 1) return Empty();
    qsizetype start = 0;
    for (int number = 1;; ++number) {
        const qsizetype end = FieldEnd(line, start);
        if (number == n) return ValueOfField(line.sliced(start, end - start), conventions);
        if (end == line.size()) return Empty();
        start = end + 1;
    }
}

std::vector<Value> CsvFieldsOf(QStringView line, const Conventions& conventions) {
    std::vector<Value> fields;
    if (line.isEmpty()) return fields;
    for (qsizetype start = 0; start <= line.size();) {
        const qsizetype end = FieldEnd(line, start);
        fields.push_back(ValueOfField(line.sliced(start, end - start), conventions));
        start = end + 1;
    }
    return fields;
}

QString FieldDisplayText(const CsvColumn& column, const Conventions& conventions, const TruthWords& words) {
    QString value = column.Value();
    if (column.DataType() == QStringLiteral("BOOLEAN"))
        return ToNumber(value, conventions) == -1 ? words.TrueWord : words.FalseWord;
    return column.DataType() == QStringLiteral("DATE") ? StampToDate(value, conventions) : value;
}

}  // namespace sheetwright
