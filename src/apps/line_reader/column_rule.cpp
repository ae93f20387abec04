#include "apps/line_reader/column_rule.h"

#include "apps/line_reader/date_format.h"
#include "core/failure.h"

#include <optional>

namespace sheetwright {

namespace {

constexpr int kMostPositions = 1'000'000;

[[noreturn]] void RefuseRule(const IniEntry& entry, const QString& expected) {
    RefuseConfiguration(QStringLiteral("line %1: column \"%2\" must be %3")
                            .arg(QString::number(entry.line), entry.key, expected));
}

[[noreturn]] void RefuseValue(const ColumnRule& column, const QString& value, const QString& expected) {
    throw Failure(failure::kInvalidFormat,
                  QStringLiteral("\"%1\" of column \"%2\" is %3").arg(value.left(80), column.name, expected));
}

std::optional<int> PositionOf(QStringView text) {
    bool isNumber = true;
    const int number = text.trimmed().toInt(&isNumber);
    if (!isNumber || number < 1 || number > kMostPositions) return std::nullopt;
    return number;
}

void ReadPlace(ColumnRule& column, QStringView text, const IniEntry& entry, bool isFixed) {
    const qsizetype comma = isFixed ? text.indexOf(u',') : text.size();
    const std::optional<int> start = PositionOf(text.first(std::max<qsizetype>(comma, 0)));
    const std::optional<int> length =
        isFixed && comma >= 0 ? PositionOf(text.sliced(comma + 1)) : std::optional(0);
    if (!start || !length || comma < 0)
        RefuseRule(entry, isFixed ? QStringLiteral("\"start,length\" or a text in quotes")
                                  : QStringLiteral("the number of a field or a text in quotes"));
    column.start = *start;
    column.length = *length;
}

QStringList Words(QStringView text) {
    QStringList words;
    for (const QStringView word : text.split(u','))
        if (!word.trimmed().isEmpty()) words << word.trimmed().toString();
    return words;
}

void ReadBoolean(ColumnRule& column, QStringView words, const IniEntry& entry) {
    const qsizetype slash = words.indexOf(u'/');
    column.trueWords = Words(slash < 0 ? words : words.first(slash));
    column.falseWords = slash < 0 ? QStringList() : Words(words.sliced(slash + 1));
    if (column.trueWords.isEmpty() || column.falseWords.isEmpty())
        RefuseRule(entry, QStringLiteral("converted by \"boolean words / words\""));
    column.conversion = Conversion::Boolean;
}

void ReadDate(ColumnRule& column, QStringView format, const IniEntry& entry) {
    if (!IsDateFormat(format))
        RefuseRule(entry, QStringLiteral("converted by \"date\" and a format such as dd.MM.yyyy"));
    column.dateFormat = format.toString();
    column.conversion = Conversion::Date;
}

void ReadConversion(ColumnRule& column, QStringView text, const IniEntry& entry) {
    if (text == u"trim") {
        column.conversion = Conversion::Trim;
    } else if (text.startsWith(u"date ")) {
        ReadDate(column, text.sliced(5).trimmed(), entry);
    } else if (text.startsWith(u"boolean ")) {
        ReadBoolean(column, text.sliced(8), entry);
    } else {
        RefuseRule(entry, QStringLiteral("converted by trim, date or boolean"));
    }
}

QString TruthOf(const ColumnRule& column, const QString& value) {
    if (column.trueWords.contains(value, Qt::CaseInsensitive)) return QStringLiteral("-1");
    if (column.falseWords.contains(value, Qt::CaseInsensitive)) return QStringLiteral("0");
    RefuseValue(column, value, QStringLiteral("neither true nor false"));
}

QString DateOf(const ColumnRule& column, const QString& value) {
    const std::optional<QDate> date = DateOfFormat(value, column.dateFormat);
    if (!date) RefuseValue(column, value, QStringLiteral("no date of the form %1").arg(column.dateFormat));
    return date->toString(QStringLiteral("yyyyMMdd"));
}

}  // namespace

ColumnRule ParseColumnRule(const IniEntry& entry, bool isFixed) {
    ColumnRule column;
    column.name = entry.key;
    const QStringView rule(entry.value);
    if (rule.startsWith(u'"')) {
        if (rule.size() < 2 || !rule.endsWith(u'"'))
            RefuseRule(entry, QStringLiteral("a text between two quotes"));
        column.isConstant = true;
        column.constant = rule.sliced(1, rule.size() - 2).toString();
        return column;
    }
    const qsizetype bar = rule.indexOf(u'|');
    ReadPlace(column, bar < 0 ? rule : rule.first(bar), entry, isFixed);
    if (bar >= 0) ReadConversion(column, rule.sliced(bar + 1).trimmed(), entry);
    return column;
}

QString Converted(const ColumnRule& column, const QString& value) {
    if (column.conversion == Conversion::None) return value;
    const QString trimmed = value.trimmed();
    if (trimmed.isEmpty() || column.conversion == Conversion::Trim) return trimmed;
    return column.conversion == Conversion::Date ? DateOf(column, trimmed) : TruthOf(column, trimmed);
}

}  // namespace sheetwright
