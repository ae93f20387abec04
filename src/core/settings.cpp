#include "core/settings.h"

#include "core/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>
#include <system_error>

namespace sheetwright {

namespace {

// Two writes within one tick of the file system's clock leave the same time on the file. So a file is known
// by its time only when it has had that time for a while.
constexpr std::chrono::milliseconds kSettlingTime{100};

// Sections and keys may hold any character; a "/" would otherwise open a group.
QString Path(const QString& section, const QString& key) {
    const auto escaped = [](const QString& text) {
        return QString::fromLatin1(QUrl::toPercentEncoding(text, " "));
    };
    return escaped(section) + u'/' + escaped(key);
}

}  // namespace

Settings::Settings()
    : Settings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
               QStringLiteral("/sheetwright")) {}

Settings::Settings(const QString& folder) : m_folder(WithTrailingSeparator(folder)) {}

QString Settings::FileOf(const QString& application) const {
    return m_folder + QString::fromLatin1(QUrl::toPercentEncoding(application, " ")) + QStringLiteral(".ini");
}

// The values remembered for an application, none of them if its file has been written since.
Settings::Store& Settings::StoreOf(const QString& application) const {
    Store& store = m_stores[application];
    if (store.file.empty()) store.file = QFileInfo(FileOf(application)).filesystemFilePath();
    std::error_code failed;
    const FileTime time = std::filesystem::last_write_time(store.file, failed);
    const std::optional<FileTime> written = failed ? std::nullopt : std::optional(time);
    if (store.isSettled && store.written == written) return store;
    store.values.clear();
    store.written = written;
    store.isSettled = !written || FileTime::clock::now() - *written > kSettlingTime;
    return store;
}

std::optional<QString> Settings::Look(const QString& application, const QString& path) const {
    const QSettings store(FileOf(application), QSettings::IniFormat);
    return store.contains(path) ? std::optional(store.value(path).toString()) : std::nullopt;
}

QString Settings::Read(const QString& application, const QString& section, const QString& key,
                       const QString& fallback) const {
    Store& store = StoreOf(application);
    const QString name = section + QChar(0) + key;
    auto value = store.values.constFind(name);
    if (value == store.values.constEnd())
        value = store.values.insert(name, Look(application, Path(section, key)));
    return value->value_or(fallback);
}

void Settings::Write(const QString& application, const QString& section, const QString& key,
                     const QString& value) {
    m_stores.erase(application);
    QDir().mkpath(m_folder);
    QSettings store(FileOf(application), QSettings::IniFormat);
    store.setValue(Path(section, key), value);
    store.sync();
}

}  // namespace sheetwright
