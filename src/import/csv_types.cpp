#include "import/csv_types.h"

#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"

#include <array>

namespace sheetwright {

namespace {

QStringView Unquoted(QStringView value) {
    const bool isQuoted = value.size() >= 2 && value.front() == u'"' && value.back() == u'"';
    return isQuoted ? value.sliced(1, value.size() - 2).trimmed() : value;
}

QString KnownType(QStringView value) {
    static const std::array kTypes{QStringLiteral("BOOLEAN"), QStringLiteral("DATE"),
                                   QStringLiteral("NUMBER")};
    for (const QString& type : kTypes)
        if (value.compare(type, Qt::CaseInsensitive) == 0) return type;
    return QStringLiteral("TEXT");
}

// A column's name may itself hold "]", so the last one of the line ends it.
bool IsSection(QStringView line) {
    return line.startsWith(u'[') && line.lastIndexOf(u']') > 0;
}

}  // namespace

CsvTypes ParseCsvTypes(const QString& inf) {
    CsvTypes types;
    QStringView section;
    bool isInSection = false;
    QStringView rest(inf);
    while (!rest.isEmpty()) {
        const QStringView line = TakeLine(rest).trimmed();
        if (IsSection(line)) {
            section = line.sliced(1, line.lastIndexOf(u']') - 1);
            isInSection = true;
        } else if (isInSection && KeyOf(line).trimmed().compare(u"DataType", Qt::CaseInsensitive) == 0) {
            types.emplace(section.toString(), KnownType(Unquoted(ValueOf(line).trimmed())));
        }
    }
    return types;
}

QString CsvTypesPathOf(const QString& tablePath) {
    return GetFolder(tablePath) + GetFileName(tablePath, true) + QStringLiteral(".inf");
}

CsvTypes LoadCsvTypes(const QString& tablePath) {
    const QString path = CsvTypesPathOf(tablePath);
    CsvTypes types;
    if (FileExists(path)) Ignoring([&] { types = ParseCsvTypes(DecodeFileText(ReadWholeFile(path))); });
    return types;
}

}  // namespace sheetwright
