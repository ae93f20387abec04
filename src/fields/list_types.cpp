#include "fields/list_types.h"

#include "core/text.h"
#include "import/csv_types.h"

#include <QDate>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <unordered_set>

namespace sheetwright {

namespace {

constexpr qsizetype kDateDigits = 8;

bool IsNumber(QStringView value) {
    bool isNumber = false;
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    const double number = locale.toDouble(value, &isNumber);
    return isNumber && qIsFinite(number);
}

bool IsDate(QStringView value) {
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return value.size() == kDateDigits && std::all_of(value.begin(), value.end(), isDigit) &&
           QDate(value.first(4).toInt(), value.sliced(4, 2).toInt(), value.sliced(6).toInt()).isValid();
}

// Lines up to the next section. The first part of a file has no name.
struct InfSection {
    QString name;
    QStringList lines;
    bool isNamed = false;
};

std::vector<InfSection> SectionsOf(const QString& inf) {
    std::vector<InfSection> sections(1);
    for (const QStringView whole : SplitLines(inf)) {
        const QStringView line = whole.trimmed();
        if (line.startsWith(u'[') && line.lastIndexOf(u']') > 0)
            sections.push_back({line.sliced(1, line.lastIndexOf(u']') - 1).toString(), {}, true});
        sections.back().lines << whole.toString();
    }
    return sections;
}

// None for a line that tells no type.
std::optional<QString> TypeIn(const QString& line) {
    const CsvTypes types = ParseCsvTypes(QStringLiteral("[x]\n") + line);
    return types.empty() ? std::nullopt : std::optional<QString>(types.begin()->second);
}

QString TypeLine(const QString& type) {
    return QStringLiteral("DataType=") + type;
}

bool IsBlank(const QString& line) {
    return line.trimmed().isEmpty();
}

class InfEditor {
  public:
    InfEditor(const QString& inf, const std::vector<ColumnType>& types)
        : m_isOneByteEnd(!inf.isEmpty() && !inf.contains(QStringLiteral("\r\n"))),
          m_sections(SectionsOf(inf)) {
        for (const ColumnType& column : types)
            m_types.emplace(column.name, column.type);
    }

    void Rename(const ColumnNames& names) {
        for (InfSection& section : m_sections) {
            const auto found = names.find(section.name);
            if (!section.isNamed || found == names.end()) continue;
            if (!found->second) {
                Forget(section);
            } else if (*found->second != section.name) {
                section.name = *found->second;
                section.lines.first() = Heading(section.name);
            }
        }
    }

    void SetTypes(const std::vector<ColumnType>& types) {
        for (InfSection& section : m_sections)
            SetType(section);
        for (const ColumnType& column : types)
            if (column.type != QStringLiteral("TEXT") && m_told.insert(column.name).second) Add(column);
    }

    [[nodiscard]] QString Text() const {
        const QString end = m_isOneByteEnd ? QStringLiteral("\n") : QStringLiteral("\r\n");
        QString text;
        for (const InfSection& section : m_sections)
            for (const QString& line : section.lines)
                text += line + end;
        return text;
    }

  private:
    using Names = std::unordered_set<QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

    [[nodiscard]] static QString Heading(const QString& name) { return u'[' + name + u']'; }

    // What is left of it is no longer a column's.
    static void Forget(InfSection& section) {
        section.lines.removeIf([](const QString& line) { return TypeIn(line).has_value(); });
        if (std::all_of(section.lines.begin() + 1, section.lines.end(), IsBlank)) section.lines.clear();
        section.isNamed = false;
    }

    void SetType(InfSection& section) {
        const auto wanted = m_types.find(section.name);
        if (!section.isNamed || wanted == m_types.end()) return;
        for (QString& line : section.lines) {
            const std::optional<QString> type = TypeIn(line);
            if (type) m_told.insert(section.name);
            if (type && *type != wanted->second) line = TypeLine(wanted->second);
        }
    }

    void Add(const ColumnType& column) {
        if (column.name.contains(u'\r') || column.name.contains(u'\n')) return;
        const auto section = std::find_if(m_sections.begin(), m_sections.end(), [&](const InfSection& each) {
            return each.isNamed && CaseInsensitiveEqual()(each.name, column.name);
        });
        if (section == m_sections.end()) {
            m_sections.push_back({column.name, {Heading(column.name), TypeLine(column.type)}, true});
            return;
        }
        section->lines.insert(1, TypeLine(column.type));
    }

    bool m_isOneByteEnd;
    std::vector<InfSection> m_sections;
    CsvTypes m_types;
    Names m_told;
};

}  // namespace

bool FitsType(QStringView value, const QString& type) {
    const QStringView plain = value.trimmed();
    if (plain.isEmpty() || type == QStringLiteral("TEXT")) return true;
    if (type == QStringLiteral("NUMBER")) return IsNumber(plain);
    if (type == QStringLiteral("DATE")) return IsDate(plain);
    return plain == u"-1" || plain == u"0";
}

QString WithColumnTypes(const QString& inf, const ColumnNames& names, const std::vector<ColumnType>& types) {
    InfEditor editor(inf, types);
    editor.Rename(names);
    editor.SetTypes(types);
    return editor.Text();
}

}  // namespace sheetwright
