#include "ui/list_table_text.h"

#include <QRegularExpression>

namespace sheetwright {

namespace {

QString Quoted(QString cell) {
    static const QRegularExpression special(QStringLiteral("^\"|[\t\r\n]"));
    if (!cell.contains(special)) return cell;
    return u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

bool EndsCell(QStringView rest) {
    return rest.isEmpty() || rest.front() == u'\t' || rest.front() == u'\r' || rest.front() == u'\n';
}

// Takes the cell in quotes at the front of `rest`; none when what stands there is no such.
bool TakeQuoted(QStringView& rest, QString& cell) {
    if (!rest.startsWith(u'"')) return false;
    QString text;
    for (qsizetype at = 1; at < rest.size(); ++at) {
        if (rest[at] == u'"') {
            const QStringView behind = rest.sliced(at + 1);
            if (!behind.startsWith(u'"')) {
                if (!EndsCell(behind)) return false;
                rest = behind;
                cell = text;
                return true;
            }
            ++at;
        }
        text += rest[at];
    }
    return false;
}

QString TakeCell(QStringView& rest) {
    QString cell;
    if (TakeQuoted(rest, cell)) return cell;
    qsizetype end = 0;
    while (!EndsCell(rest.sliced(end)))
        ++end;
    cell = rest.first(end).toString();
    rest = rest.sliced(end);
    return cell;
}

void TakeLineEnd(QStringView& rest) {
    rest = rest.sliced(rest.startsWith(u"\r\n") ? 2 : 1);
}

}  // namespace

QString TabSeparated(const std::vector<QStringList>& rows) {
    QString text;
    for (const QStringList& row : rows) {
        for (qsizetype column = 0; column < row.size(); ++column) {
            if (column > 0) text += u'\t';
            text += Quoted(row[column]);
        }
        text += u'\n';
    }
    return text;
}

std::vector<QStringList> CellsOf(const QString& text) {
    std::vector<QStringList> rows;
    QStringView rest(text);
    while (!rest.isEmpty()) {
        QStringList& row = rows.emplace_back();
        row << TakeCell(rest);
        while (rest.startsWith(u'\t')) {
            rest = rest.sliced(1);
            row << TakeCell(rest);
        }
        if (!rest.isEmpty()) TakeLineEnd(rest);
    }
    return rows;
}

}  // namespace sheetwright
