#include "core/settings.h"

#include "core/paths.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace sheetwright {

namespace {

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

QString Settings::Read(const QString& application, const QString& section, const QString& key,
                       const QString& fallback) const {
    const QSettings store(FileOf(application), QSettings::IniFormat);
    return store.value(Path(section, key), fallback).toString();
}

void Settings::Write(const QString& application, const QString& section, const QString& key,
                     const QString& value) {
    QDir().mkpath(m_folder);
    QSettings store(FileOf(application), QSettings::IniFormat);
    store.setValue(Path(section, key), value);
    store.sync();
}

}  // namespace sheetwright
