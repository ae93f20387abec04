#include "document/recent_files.h"

#include "core/application.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QLatin1String kMenuSection("Recent Files");
constexpr QLatin1String kWelcomeSection("wRecent Files");
constexpr int kWelcomeCount = 20;
constexpr qsizetype kMarkLength = 3;  // of "&1 "

QString SettingKey(int number) {
    return QStringLiteral("Recent %1").arg(number);
}

QString Stored(const Application& application, const QString& section, int number) {
    return application.settings.Read(application.Title, section, SettingKey(number));
}

void Store(Application& application, const QString& section, int number, const QString& path) {
    if (Stored(application, section, number) != path)
        application.settings.Write(application.Title, section, SettingKey(number), path);
}

QString Caption(std::size_t index, const QString& path) {
    return QStringLiteral("&%1 ").arg(index + 1) + path;
}

bool Names(const RecentFiles::Entry& entry, const QString& path) {
    return entry.caption.size() > kMarkLength && QStringView(entry.caption).sliced(kMarkLength) == path;
}

}  // namespace

QStringList RecentFiles::Paths() const {
    QStringList paths;
    for (const Entry& entry : m_entries)
        if (entry.isVisible) paths << RecentFile(entry.caption);
    return paths;
}

void RecentFiles::Add(const QString& path) {
    const auto* const found = std::find_if(m_entries.begin() + 1, m_entries.end() - 1,
                                           [&](const Entry& entry) { return Names(entry, path); });
    for (auto index = static_cast<std::size_t>(found - m_entries.begin()); index >= 1; --index) {
        const Entry& before = m_entries[index - 1];
        if (before.isVisible) m_entries[index] = {Caption(index, RecentFile(before.caption)), true};
    }
    m_entries.front() = {Caption(0, path), true};
}

QString RecentFile(const QString& caption) {
    return caption.sliced(caption.indexOf(u' ') + 1);
}

QString MenuText(const QString& caption) {
    const qsizetype mark = std::min(kMarkLength, caption.size());
    return caption.first(mark) + caption.sliced(mark).replace(u'&', QStringLiteral("&&"));
}

void AddToRecentFiles(Application& application, RecentFiles& files, const QString& path, bool loading) {
    if (!loading) AddToWelcomeRecentFiles(application, path);
    files.Add(path);
}

void AddToWelcomeRecentFiles(Application& application, const QString& path) {
    int number = 1;
    while (number < kWelcomeCount && Stored(application, kWelcomeSection, number) != path)
        ++number;
    for (; number > 1; --number)
        Store(application, kWelcomeSection, number, Stored(application, kWelcomeSection, number - 1));
    Store(application, kWelcomeSection, 1, path);
}

QStringList WelcomeRecentFiles(const Application& application) {
    QStringList paths;
    for (int number = 1; number <= kWelcomeCount; ++number)
        paths << Stored(application, kWelcomeSection, number);
    paths.removeAll(QString());
    return paths;
}

RecentFiles LoadRecentFiles(Application& application) {
    RecentFiles files;
    for (int number = RecentFiles::kCount; number >= 1; --number) {
        const QString path = Stored(application, kMenuSection, number);
        if (!path.isEmpty()) AddToRecentFiles(application, files, path, true);
    }
    return files;
}

void SaveRecentFiles(Application& application, const RecentFiles& files) {
    int number = 1;
    for (const RecentFiles::Entry& entry : files.Entries()) {
        if (entry.isVisible) Store(application, kMenuSection, number, RecentFile(entry.caption));
        ++number;
    }
}

}  // namespace sheetwright
