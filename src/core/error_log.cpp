#include "core/error_log.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/paths.h"
#include "core/text.h"
#include "formula/value_conversion.h"
#include "import/csv_syntax.h"
#include "import/csv_table.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <array>

namespace sheetwright {

namespace {

constexpr char kHeader[] = "Date,Time,Application,Sub,Error,Additional\r\n";
constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr int kPatience = 1000;  // milliseconds for which another process may hold the log

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

// The log as long as no other process writes to it: several may run from one installation.
class HeldLog {
  public:
    // Makes the file when it is not there. Raises 75 (no plain file, or no access), 76 (no such folder) and
    // 70 (held by another process for too long).
    explicit HeldLog(const QString& path) : m_file(OnDisk(path)) {
        const QDeadlineTimer patience(kPatience);
        while (!TryOpen()) {
            if (patience.hasExpired()) throw Failure(failure::kPermissionDenied);
            QThread::msleep(1);
        }
    }

    [[nodiscard]] bool IsEmpty() const { return m_file.size() == 0; }

    // Begins with a byte-order mark: text of any language can be added.
    [[nodiscard]] bool HasMark() { return HasAt(0, kUtf8Mark); }

    // A log as this program leaves it, at whose end a line can simply be added.
    [[nodiscard]] bool IsPlain() {
        const qint64 start = HasMark() ? QByteArrayView(kUtf8Mark).size() : 0;
        return HasAt(start, kHeader) && HasAt(m_file.size() - 1, "\n");
    }

    // Raises 61; then the log is as it was.
    void Append(const QByteArray& bytes) {
        const qint64 oldSize = m_file.size();
        if (m_file.write(bytes) == bytes.size()) return;
        m_file.resize(oldSize);
        throw Failure(failure::kDiskFull);
    }

  private:
    bool HasAt(qint64 place, QByteArrayView bytes) {
        return m_file.seek(place) && m_file.read(bytes.size()) == bytes;
    }

    bool TryOpen() {
        m_file.close();
        const QFileInfo info(m_file.fileName());
        if (!info.dir().exists()) throw Failure(failure::kPathNotFound);
        const bool isRefused = info.exists() && !(info.isFile() && info.permission(QFile::WriteOwner));
        const auto mode = QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered;
        if (isRefused || !m_file.open(mode)) throw Failure(failure::kPathAccess);
        return TryHoldFile(m_file.handle()) && IsFileInPlace(m_file.handle(), m_file.fileName());
    }

    QFile m_file;
};

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

// From then on the log has the mark, so that the next row of this kind need not read those before it.
void AddAsUtf8(const QString& path, const QString& line) {
    WriteFileAtomically(path, kUtf8Mark + (DecodeFileText(ReadWholeFile(path)) + line).toUtf8());
}

// Adds the row, where it can, without reading the rows before it: a form with a hundred thousand broken lines
// writes as many. Not when other hands have been at the log, or the row is the first that is not ASCII.
void AddRow(const QString& path, const LogRow& row) {
    HeldLog log(path);
    const QString line = LineOf(row);
    const bool isAscii = IsAscii(line);
    if (log.IsEmpty()) {
        log.Append(QByteArray(isAscii ? "" : kUtf8Mark) + kHeader + line.toUtf8());
    } else if (!log.IsPlain()) {
        AddThroughTable(path, row);
    } else if (isAscii || log.HasMark()) {
        log.Append(line.toUtf8());
    } else {
        AddAsUtf8(path, line);
    }
}

}  // namespace

void LogError(const Application& application, const QString& sub, const QString& additional, int number) {
    AddRow(application.LogFolder + QStringLiteral("errors.csv"), RowOf(application, sub, additional, number));
}

}  // namespace sheetwright
