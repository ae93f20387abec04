#include "import/download_delivery.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/failure.h"
#include "core/keyed_collection.h"
#include "core/paths.h"
#include "import/csv_source.h"
#include "import/download_problem.h"
#include "import/download_run.h"
#include "import/driver_file.h"
#include "import/driver_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>

namespace sheetwright {

namespace {

constexpr int kNamesTried = 1000;

[[noreturn]] void RaiseNoTable(const Application& application, const DriverFile& driver) {
    RaiseProblem(application.Translate(QStringLiteral("What %1 has delivered is no table."),
                                       Parameters({driver.caption})));
}

QByteArray BytesOf(const Application& application, const DriverFile& driver, const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymLink())
        RaiseProblem(
            application.Translate(QStringLiteral("%1 has delivered nothing."), Parameters({driver.caption})));
    const bool isPlain = file.isFile() && !file.isSymLink() && file.size() <= DownloadRun::kMostBytes;
    QByteArray bytes;
    if (!isPlain || Ignoring([&] { bytes = ReadWholeFile(path); })) RaiseNoTable(application, driver);
    return bytes;
}

// Bytes that no text has come from a program that writes another encoding, or no table at all.
bool IsTable(const CsvSource& source) {
    const std::vector<QString>& names = source.Names();
    const bool hasName = std::any_of(names.begin(), names.end(),
                                     [](const QString& name) { return !name.trimmed().isEmpty(); });
    return hasName && !source.Bytes().contains('\0');
}

void CheckColumns(const Application& application, const DriverFile& driver, const CsvSource& source) {
    using NameSet = std::unordered_set<QString, CaseInsensitiveHash, CaseInsensitiveEqual>;
    const NameSet names(source.Names().begin(), source.Names().end());
    for (const QString& column : driver.columns)
        if (!names.contains(column))
            RaiseProblem(application.Translate(QStringLiteral("The table from %1 has no column \"%2\"."),
                                               Parameters({driver.caption, column})));
}

void CheckRecords(const Application& application, const DriverFile& driver, const CsvSource& source) {
    if (source.RecordCount() >= driver.minimumRecords) return;
    const QString numbers = Parameters(
        {driver.caption, QString::number(source.RecordCount()), QString::number(driver.minimumRecords)});
    RaiseProblem(application.Translate(
        QStringLiteral("The table from %1 holds too few records: %2 instead of %3."), numbers));
}

// A file that was not there before, flushed to the disk; removed unless it is kept.
class PlacedFile {
  public:
    // Raises 58 when something of that name is there, and what writing raises.
    PlacedFile(QString path, QByteArrayView bytes) : m_path(std::move(path)) {
        const auto caught = Catching([&] {
            const NewFile file(m_path, failure::kFileExists);
            m_isOurs = true;
            file.Write(bytes);
            file.Flush();
        });
        if (!caught) return;
        Remove();
        throw *caught;
    }
    PlacedFile(const PlacedFile&) = delete;
    PlacedFile& operator=(const PlacedFile&) = delete;
    ~PlacedFile() { Remove(); }

    void Keep() { m_isOurs = false; }

  private:
    void Remove() {
        if (m_isOurs) QFile::remove(m_path);
    }

    QString m_path;
    bool m_isOurs = false;
};

bool IsTaken(const QString& base) {
    return FileExists(base + QStringLiteral(".csv")) || FileExists(base + QStringLiteral(".inf"));
}

// Returns false when something of the new name is there. A second name for the file can't take another's
// place, as a rename could; disks without second names are asked first.
bool MoveUnlessTaken(const QString& from, const QString& to) {
    const std::filesystem::path source = QFileInfo(from).filesystemFilePath();
    const std::filesystem::path target = QFileInfo(to).filesystemFilePath();
    std::error_code error;
    std::filesystem::create_hard_link(source, target, error);
    if (error == std::errc::file_exists) return false;
    if (!error) return QFile::remove(from);
    if (QFileInfo::exists(to)) return false;
    std::filesystem::rename(source, target, error);
    if (error) throw Failure(FailureNumberOfErrno(error.value()));
    return true;
}

// Renames the finished table to `base`.csv behind its types. Returns false when another download has taken
// that name.
bool TryToPlace(PlacedFile& table, const QString& tablePath, const std::optional<QByteArray>& types,
                const QString& base) {
    std::optional<PlacedFile> companion;
    if (types) {
        const auto caught = Ignoring([&] { companion.emplace(base + QStringLiteral(".inf"), *types); });
        if (caught && caught->Number() == failure::kFileExists) return false;
        if (caught) throw *caught;
    }
    if (!MoveUnlessTaken(tablePath, base + QStringLiteral(".csv"))) return false;
    table.Keep();
    if (companion) companion->Keep();
    return true;
}

}  // namespace

std::optional<QByteArray> TypesOf(const Application& application, const DriverFile& driver) {
    if (driver.types.isEmpty()) return std::nullopt;
    QByteArray types;
    const auto caught = Ignoring([&] { types = ReadWholeFile(FileInFolder(driver.folder, driver.types)); });
    if (!caught) return types;
    RaiseProblem(application.Translate(QStringLiteral("The driver %1 lacks its file \"%2\"."),
                                       Parameters({driver.caption, driver.types})));
}

QByteArray CheckedTable(const Application& application, const DriverFile& driver, const QString& path) {
    const CsvSource source(BytesOf(application, driver, path));
    if (!IsTable(source)) RaiseNoTable(application, driver);
    CheckColumns(application, driver, source);
    CheckRecords(application, driver, source);
    return source.Bytes();
}

QString PutIntoFolder(const QByteArray& table, const std::optional<QByteArray>& types, const QString& folder,
                      const QString& name) {
    const QString onDisk = WithTrailingSeparator(OnDisk(folder));
    if (!QDir().mkpath(onDisk)) throw Failure(failure::kPathAccess);
    const QString hidden =
        onDisk + QStringLiteral(".%1.%2%3")
                     .arg(name, QString::number(QCoreApplication::applicationPid()), kUnfinishedSuffix);
    PlacedFile file(hidden, table);
    for (int number = 1; number <= kNamesTried; ++number) {
        const QString base = onDisk + name + (number == 1 ? QString() : QStringLiteral("_%1").arg(number));
        if (IsTaken(base) || !TryToPlace(file, hidden, types, base)) continue;
        Ignoring([&] { FlushToDisk(onDisk); });
        return base + QStringLiteral(".csv");
    }
    throw Failure(failure::kFileExists);
}

}  // namespace sheetwright
