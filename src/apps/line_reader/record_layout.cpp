#include "apps/line_reader/record_layout.h"

#include "apps/line_reader/column_rule.h"
#include "core/failure.h"
#include "import/csv_syntax.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr std::size_t kMostColumns = 32'767;

[[noreturn]] void RefuseShortLine(Separation separation, qsizetype found, int needed) {
    const QString text = separation == Separation::Fixed
                             ? QStringLiteral("it has %1 characters, the last field starts at %2")
                             : QStringLiteral("it has %1 fields, %2 are needed");
    throw Failure(failure::kInvalidFormat, text.arg(found).arg(needed));
}

// Rare characters take two positions.
[[noreturn]] void RefuseCutCharacter(const ColumnRule& column) {
    throw Failure(failure::kInvalidFormat,
                  QStringLiteral("column \"%1\" begins or ends within a character").arg(column.name));
}

}  // namespace

QStringList CsvValues(const QString& line) {
    const QByteArray bytes = line.toUtf8();
    QStringList values;
    for (CsvFieldReader reader(bytes.cbegin(), bytes.cend()); reader.HasNext();) {
        const CsvField field = reader.Next();
        values << (field.isMixed ? QString::fromUtf8(UnquotedCsv(field.bytes))
                                 : QString::fromUtf8(field.bytes));
    }
    return values;
}

RecordLayout::RecordLayout(const QString& separator, const std::vector<IniSection>& sections) {
    const QStringList words{QStringLiteral("csv"), QStringLiteral("tab"), QStringLiteral("blanks"),
                            QStringLiteral("fixed")};
    constexpr std::array kSeparations{Separation::Csv, Separation::Character, Separation::Blanks,
                                      Separation::Fixed};
    const qsizetype word = words.indexOf(separator.toLower());
    if (word >= 0) m_separation = kSeparations[static_cast<std::size_t>(word)];
    m_separator = word == 1 ? u'\t' : separator.front();
    if (word < 0 && separator.size() != 1)
        RefuseConfiguration(
            QStringLiteral("Separator must be one character, %1").arg(words.join(QStringLiteral(", "))));
    const auto found = std::ranges::find_if(sections, [](const IniSection& section) {
        return section.name.compare(u"Columns", Qt::CaseInsensitive) == 0;
    });
    if (found == sections.end() || found->entries.empty() || found->entries.size() > kMostColumns)
        RefuseConfiguration(QStringLiteral("[Columns] must name 1 to %1 columns").arg(kMostColumns));
    for (const IniEntry& entry : found->entries) {
        m_columns.push_back(ParseColumnRule(entry, m_separation == Separation::Fixed));
        m_fieldsNeeded = std::max(m_fieldsNeeded, m_columns.back().start);
    }
}

QStringList RecordLayout::ColumnNames() const {
    QStringList names;
    for (const ColumnRule& column : m_columns)
        names << column.name;
    return names;
}

QStringList RecordLayout::FieldsOf(const QString& line) const {
    switch (m_separation) {
        case Separation::Csv:
            return CsvValues(line);
        case Separation::Character:
            return line.split(m_separator);
        case Separation::Blanks:
            return line.simplified().split(u' ');
        case Separation::Fixed:
            break;
    }
    return {};
}

QString RecordLayout::ValueOf(const ColumnRule& column, const QString& line,
                              const QStringList& fields) const {
    if (column.isConstant) return column.constant;
    if (m_separation != Separation::Fixed) return Converted(column, fields[column.start - 1]);
    const QString value = line.mid(column.start - 1, column.length);
    if (!value.isValidUtf16()) RefuseCutCharacter(column);
    return Converted(column, value);
}

QStringList RecordLayout::RecordOf(const QString& line) const {
    const QStringList fields = FieldsOf(line);
    const qsizetype found = m_separation == Separation::Fixed ? line.size() : fields.size();
    if (found < m_fieldsNeeded) RefuseShortLine(m_separation, found, m_fieldsNeeded);
    QStringList record;
    record.reserve(static_cast<qsizetype>(m_columns.size()));
    for (const ColumnRule& column : m_columns)
        record << ValueOf(column, line, fields);
    return record;
}

}  // namespace sheetwright
