#pragma once

// The forms that were opened or saved last: five entries of the File menu, and a longer list for the welcome
// screen. Both are settings of the person.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <cstddef>

namespace sheetwright {

class Application;

// `mnuFileRecent`: captions such as "&1 C:\Forms\a.aff", newest first. A plain value.
class RecentFiles {
  public:
    static constexpr std::size_t kCount = 5;

    struct Entry {
        QString caption;
        bool isVisible = false;
        bool operator==(const Entry&) const = default;
    };

    [[nodiscard]] const std::array<Entry, kCount>& Entries() const { return m_entries; }
    // Of the visible entries, newest first.
    [[nodiscard]] QStringList Paths() const;

    // The path becomes the first entry; the others move down, at most to where it stood. A path that is the
    // first entry already stands in the list twice afterwards: it is not looked for there.
    void Add(const QString& path);

  private:
    std::array<Entry, kCount> m_entries;
};

// The path in a caption: its text behind the first blank.
[[nodiscard]] QString RecentFile(const QString& caption);
// A caption as menus show it: an "&" of the path is doubled, so that it underlines nothing.
[[nodiscard]] QString MenuText(const QString& caption);

// Enters a path in both lists; while loading not in that of the welcome screen.
void AddToRecentFiles(Application& application, RecentFiles& files, const QString& path,
                      bool loading = false);
// Makes the path the newest of twenty; no path stands there twice.
void AddToWelcomeRecentFiles(Application& application, const QString& path);
// The welcome screen's list, newest first, without gaps.
[[nodiscard]] QStringList WelcomeRecentFiles(const Application& application);

// The menu's list as it was stored when the main window was closed last.
[[nodiscard]] RecentFiles LoadRecentFiles(Application& application);
void SaveRecentFiles(Application& application, const RecentFiles& files);

}  // namespace sheetwright
