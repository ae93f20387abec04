#include "core/error_log.h"

#include "core/application.h"
#include "core/paths.h"
#include "formula/value_conversion.h"
#include "import/csv_syntax.h"
#include "import/csv_table.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

constexpr QByteArrayView kHeader = "Date,Time,Application,Sub,Error,Additional\r\n";

struct LogField {
    QString column;
    QString value;
};
using LogRow = std::array<LogField, 6>;

LogRow RowOf(const Application& application, const QString& sub, const QString& additional, int number) {
    const QDateTime now = QDateTime::currentDateTime();
    return {{
        {QStringLiteral("Date"), ShortDate(now.date(), application.conventions)},
        {QStringLiteral("Time"), now.toString(QStringLiteral("HH:mm:ss"))},
        {QStringLiteral("Application"), application.Title},
        {QStringLiteral("Sub"), sub},
        {QStringLiteral("Error"), QString::number(number) + QStringLiteral(": ") + FailureText(number)},
        {QStringLiteral("Additional"), additional},
    }};
}

bool IsAscii(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 0x80; });
}

QString LineOf(const LogRow& row) {
    QStringList fields;
    for (const LogField& field : row) {
        QString text = field.value;
        const bool needsQuotes = NeedsCsvQuotes(text);
        if (needsQuotes) text.replace(u'"', QStringLiteral("\"\""));
        fields << (needsQuotes ? u'"' + text + u'"' : text);
    }
    return fields.join(u',') + QStringLiteral("\r\n");
}

// A log as this program leaves it, at whose end a line can simply be added.
bool IsPlainLog(QFile& file) {
    if (!file.seek(0) || file.read(kHeader.size()) != kHeader) return false;
    return file.seek(file.size() - 1) && file.read(1) == "\n";
}

// Adds the row without reading the rows before it: a form with a hundred thousand broken lines writes as
// many. False when the log is new, or other hands have been at it, or its encoding matters.
bool TryAppend(const QString& path, const LogRow& row) {
    const QString line = LineOf(row);
    QFile file(OnDisk(path));
    const auto mode =
        QIODevice::ReadWrite | QIODevice::Append | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    if (!IsAscii(line) || !file.open(mode) || !IsPlainLog(file)) return false;
    const qint64 oldSize = file.size();
    if (file.write(line.toLatin1()) == line.size()) return true;
    file.resize(oldSize);
    throw Failure(failure::kDiskFull);
}

void AddThroughTable(const QString& path, const LogRow& row) {
    CsvTable table;
    table.SetFileName(path);
    for (const LogField& field : row)
        Ignoring([&] { table.Columns().Add(field.column); });
    table.AddRecord();
    for (const LogField& field : row)
        table.Columns().At(field.column).SetValue(field.value);
    table.Update();
    table.Save();
}

}  // namespace

void LogError(const Application& application, const QString& sub, const QString& additional, int number) {
    const QString path = application.WritableFolder + QStringLiteral("errors.csv");
    const LogRow row = RowOf(application, sub, additional, number);
    if (!TryAppend(path, row)) AddThroughTable(path, row);
}

}  // namespace sheetwright
