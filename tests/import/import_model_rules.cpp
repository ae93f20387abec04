#include "import/import_model_rules.h"

#include <algorithm>

namespace sheetwright {

namespace {

QString BehindFirstComma(const QString& text) {
    const qsizetype comma = text.indexOf(u',');
    return comma < 0 ? QString() : text.mid(comma + 1);
}

bool IsAlternative(const QString& alternative, const QString& target) {
    if (IsSameModelPath(alternative, target)) return true;
    return alternative.startsWith(QStringLiteral("*,")) &&
           IsSameModelPath(alternative.mid(2), BehindFirstComma(target));
}

bool IsNumberType(const QString& type) {
    return type == QStringLiteral("NUMBER") || type == QStringLiteral("DATE") ||
           type == QStringLiteral("BOOLEAN");
}

// -1, 0 or 1, as the first stands before, beside or behind the second.
int Compared(const QString& one, const QString& other, const QString& type) {
    if (!IsNumberType(type)) return one < other ? -1 : one == other ? 0 : 1;
    if (one.isEmpty() || other.isEmpty())
        return static_cast<int>(other.isEmpty()) - static_cast<int>(one.isEmpty());
    const double first = ModelNumber(one);
    const double second = ModelNumber(other);
    return first < second ? -1 : first == second ? 0 : 1;
}

}  // namespace

bool IsSameModelPath(const QString& one, const QString& other) {
    const auto plain = [](QString text) { return text.replace(u'/', u'\\').toLower(); };
    return plain(one) == plain(other);
}

QStringList ModelAlternatives(QString text) {
    QStringList parts;
    int depth = 0;
    bool isQuoted = false;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (character == u'"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (character == u'(') ++depth;
        if (character == u')') --depth;
        if (character == u';' && depth == 0) {
            parts << text.left(at);
            text = text.mid(at + 1);
            at = 0;
        }
    }
    parts << text;
    return parts;
}

int ModelTable::ColumnOf(const QString& name) const {
    for (int number = 0; number < names.size(); ++number)
        if (names[number].toLower() == name.toLower()) return number;
    return -1;
}

QString ModelTable::Value(int row, int column) const {
    return rows[static_cast<std::size_t>(row)].value(column);
}

bool ModelTakes(const QString& pattern, const QString& target) {
    const QStringList alternatives = ModelAlternatives(pattern);
    return std::any_of(alternatives.begin(), alternatives.end(),
                       [&](const QString& alternative) { return IsAlternative(alternative, target); });
}

QString ModelRelativePath(const QString& path, const QStringList& marked) {
    QString folder = path;
    do {
        const qsizetype end = folder.lastIndexOf(u'\\');
        if (end < 0) return path;
        folder = folder.left(end);
    } while (!marked.contains(folder));
    const qsizetype start = folder.toUpper().indexOf(QStringLiteral("DRIVERS\\"));
    return start < 0 ? folder : folder.mid(start);
}

std::vector<int> ModelOrder(const ModelTable& table, const QStringList& columns) {
    std::vector<int> order;
    for (int row = 0; row < static_cast<int>(table.rows.size()); ++row)
        order.push_back(row);
    std::stable_sort(order.begin(), order.end(), [&](int one, int other) {
        for (const QString& name : columns) {
            const int column = table.ColumnOf(name);
            const int compared =
                Compared(table.Value(one, column), table.Value(other, column), table.types.value(column));
            if (compared != 0) return compared < 0;
        }
        return false;
    });
    return order;
}

double ModelNumber(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text[at] == u' ')
        ++at;
    const bool isNegative = at < text.size() && text[at] == u'-';
    if (isNegative) ++at;
    double number = 0;
    double unit = 0;  // of the next digit behind the point; 0 before it
    for (; at < text.size(); ++at) {
        const QChar character = text[at];
        if (character == u'.' && unit == 0) {
            unit = 0.1;
        } else if (character >= u'0' && character <= u'9') {
            const int digit = character.unicode() - u'0';
            number = unit == 0 ? number * 10 + digit : number + digit * unit;
            unit /= 10;
        } else {
            break;
        }
    }
    return isNegative ? -number : number;
}

QString ModelDate(const QString& stamp) {
    if (ModelNumber(stamp) == 0) return {};
    return stamp.right(2) + u'/' + stamp.mid(4, 2) + u'/' + stamp.left(4);
}

}  // namespace sheetwright
