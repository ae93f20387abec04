#pragma once

// Per-user settings, read and written as (application, section, key, value, default). Each application has an
// INI file of its own below one folder, so programs of the suite read one another's settings by name.

#include <QHash>
#include <QString>

#include <filesystem>
#include <map>
#include <optional>

namespace sheetwright {

class Settings {
  public:
    // Settings below `folder`; the default is the user's configuration folder.
    Settings();
    explicit Settings(const QString& folder);

    // What another program or a hand in the file has changed is seen by the next call. Values are remembered
    // as long as their file is the same, so that reading one for each text on a page costs next to nothing.
    [[nodiscard]] QString Read(const QString& application, const QString& section, const QString& key,
                               const QString& fallback = QString()) const;

    // Stores a value at once. A store that can't be written keeps its old values: settings are a convenience,
    // and losing one must not stop a command.
    void Write(const QString& application, const QString& section, const QString& key, const QString& value);

    [[nodiscard]] const QString& Folder() const { return m_folder; }

  private:
    using FileTime = std::filesystem::file_time_type;
    struct Store {
        std::filesystem::path file;
        std::optional<FileTime> written;  // of the file that the values are from; none for no file
        bool isSettled = false;           // the file was left alone long enough for its time to tell it apart
        QHash<QString, std::optional<QString>> values;  // by section and key; none: absent
    };

    [[nodiscard]] QString FileOf(const QString& application) const;
    [[nodiscard]] Store& StoreOf(const QString& application) const;
    [[nodiscard]] std::optional<QString> Look(const QString& application, const QString& path) const;

    QString m_folder;
    mutable std::map<QString, Store> m_stores;  // by application
};

}  // namespace sheetwright
