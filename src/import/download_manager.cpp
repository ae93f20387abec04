#include "import/download_manager.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "import/download_delivery.h"
#include "import/download_problem.h"
#include "import/download_progress.h"
#include "import/download_root.h"
#include "import/download_run.h"
#include "import/driver_copies.h"
#include "import/driver_folder.h"
#include "import/driver_icon.h"
#include "import/driver_programs.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTemporaryDir>

#include <utility>

namespace sheetwright {

namespace {

constexpr int kDaysKept = 2;            // the longest time limit is one
constexpr qsizetype kLongestName = 50;  // of a driver in the name of a file

QString DirectoryOf(const Application& application) {
    const QString directory = OnDisk(DownloadRoot(application) + QStringLiteral("/DRIVERS"));
    return QFileInfo(directory).isDir() ? WithTrailingSeparator(QDir(directory).absolutePath()) : QString();
}

// As it stands on the disk or will stand there, with trailing separator. Raises 321 for one outside the
// driver's folder.
QString DataFolderOf(const Application& application, const DriverFile& driver, const QString& wanted) {
    const QString folder = wanted.isEmpty() ? driver.folder + QStringLiteral("Data") : wanted;
    const QString plain = WithTrailingSeparator(QDir::cleanPath(OnDisk(folder)));
    if (plain.startsWith(driver.folder)) return plain;
    RaiseProblem(application.Translate(QStringLiteral("The data folder of %1 is not in the driver's folder."),
                                       Parameters({driver.caption})));
}

QString NameOfDownload(const DriverFile& driver) {
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_HHmmss"));
    return driver.name.left(kLongestName) + u'_' + time;
}

// Values are put in once: what they hold themselves is no placeholder.
QString Filled(const QString& argument, const QString& output, const QString& driver, const QString& data) {
    const std::pair<QString, QString> values[] = {{QStringLiteral("{output}"), output},
                                                  {QStringLiteral("{driver}"), driver},
                                                  {QStringLiteral("{data}"), data}};
    QString filled;
    for (QStringView rest(argument); !rest.isEmpty();) {
        qsizetype length = 1;
        QStringView value = rest.first(1);
        for (const auto& [placeholder, text] : values) {
            if (!rest.startsWith(placeholder)) continue;
            length = placeholder.size();
            value = text;
        }
        filled += value;
        rest = rest.sliced(length);
    }
    return filled;
}

QString WithoutSeparator(const QString& folder) {
    return folder.chopped(1);
}

QString ProgramToStart(const Application& application, const DriverFile& driver) {
    QString program = ProgramOf(application, driver);
    if (!program.isEmpty()) return program;
    RaiseProblem(application.Translate(QStringLiteral("The program of %1 cannot be started."),
                                       Parameters({driver.caption})));
}

// A folder that only this run knows; it goes with all that is in it.
class PrivateFolder {
  public:
    explicit PrivateFolder(const Application& application)
        : m_folder(MadeRoot(application) + QStringLiteral("download-XXXXXX")) {
        if (m_folder.isValid()) return;
        RaiseProblem(application.Translate(QStringLiteral("Cannot write to Temporary Directory")));
    }
    [[nodiscard]] QString Path() const { return m_folder.path(); }

  private:
    // Those that a crash has left behind: no download takes that long.
    static void RemoveForgotten(const QString& root) {
        const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-kDaysKept);
        const auto kinds = QDir::Dirs | QDir::NoSymLinks;
        for (const QFileInfo& folder : QDir(root).entryInfoList({QStringLiteral("download-??????")}, kinds))
            if (folder.lastModified() < oldest) QDir(folder.filePath()).removeRecursively();
    }
    static QString MadeRoot(const Application& application) {
        QString root = OnDisk(TempRoot(application));
        QDir().mkpath(root);
        RemoveForgotten(root);
        return root;
    }

    QTemporaryDir m_folder;
};

// What writing raises, in words that say what was to be written.
QString Put(const Application& application, const DriverFile& driver, const QByteArray& table,
            const std::optional<QByteArray>& types, const QString& folder, const QString& name) {
    QString path;
    const auto caught = Catching([&] { path = PutIntoFolder(table, types, folder, name); });
    if (!caught) return path;
    RaiseProblem(application.Translate(QStringLiteral("The table from %1 cannot be saved: %2"),
                                       Parameters({driver.caption, caught->Text()})));
}

}  // namespace

DownloadManager::DownloadManager(Application& application, DownloadProgress& progress)
    : m_application(application), m_progress(progress) {}

// It may not be there before the shipped drivers are.
QString DownloadManager::Directory() const {
    static_cast<void>(Drivers());
    return DirectoryOf(m_application);
}

void DownloadManager::Rescan() {
    m_drivers.reset();
    m_index = -1;
    static_cast<void>(Drivers());
}

const std::vector<DriverFile>& DownloadManager::Drivers() const {
    if (!m_drivers) {
        if (!std::exchange(m_hasShippedDrivers, true)) BringShippedDrivers(m_application);
        m_drivers = ReadDrivers(DirectoryOf(m_application));
    }
    return *m_drivers;
}

const DriverFile& DownloadManager::DriverAt(int index) const {
    if (index < 0 || index >= Count()) throw Failure(failure::kSubscript);
    return Drivers()[static_cast<std::size_t>(index)];
}

std::int16_t DownloadManager::Count() const {
    return static_cast<std::int16_t>(Drivers().size());
}

QString DownloadManager::DriverName(std::int16_t index) const {
    return DriverAt(index).name;
}

void DownloadManager::SetIndex(std::int16_t index) {
    static_cast<void>(DriverAt(index));
    m_index = index;
}

bool DownloadManager::Available() const {
    return m_index >= 0 && !ProgramOf(m_application, DriverAt(m_index)).isEmpty();
}

QIcon DownloadManager::Icon() const {
    return m_index < 0 ? QIcon() : IconOf(DriverAt(m_index));
}

void DownloadManager::Download() {
    if (m_isRunning) return;
    const QScopedValueRollback running(m_isRunning, true);
    m_downloadedFile.clear();
    const bool isShown = std::exchange(m_showsProgress, false);
    if (m_index < 0) return;
    const DriverFile driver = DriverAt(m_index);
    const auto caught = Catching([&] { m_downloadedFile = Fetched(driver, isShown); });
    if (caught && caught->Number() != failure::kCancelled)
        m_application.ui.ShowMessage(caught->Text(), m_application.Title, MessageIcon::Exclamation);
}

QString DownloadManager::Fetched(const DriverFile& driver, bool isShown) {
    const QString dataFolder = DataFolderOf(m_application, driver, m_dataFolder);
    const std::optional<QByteArray> types = TypesOf(m_application, driver);
    const QString name = NameOfDownload(driver);
    RunOrder order;
    order.caption = driver.caption;
    order.program = ProgramToStart(m_application, driver);
    order.timeLimit = driver.timeLimit;
    order.isShown = isShown;
    const PrivateFolder folder(m_application);
    order.folder = folder.Path();
    const QString output = order.folder + u'/' + name + QStringLiteral(".csv");
    for (const QString& argument : driver.arguments)
        order.arguments << Filled(argument, output, WithoutSeparator(driver.folder),
                                  WithoutSeparator(dataFolder));

    NoDownloadProgress nobody;
    DownloadRun run(order, isShown ? m_progress : nobody);
    const RunEnd end = run.Run();
    RaiseUnlessDone(m_application, driver, run, end);
    const QByteArray table = CheckedTable(m_application, driver, output);
    return Put(m_application, driver, table, types, dataFolder, name);
}

}  // namespace sheetwright
