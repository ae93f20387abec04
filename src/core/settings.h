#pragma once

// Per-user settings, read and written as (application, section, key, value, default). Each application has an
// INI file of its own below one folder, so programs of the suite read one another's settings by name.

#include <QString>

namespace sheetwright {

class Settings {
  public:
    // Settings below `folder`; the default is the user's configuration folder.
    Settings();
    explicit Settings(const QString& folder);

    [[nodiscard]] QString Read(const QString& application, const QString& section, const QString& key,
                               const QString& fallback = QString()) const;

    // Stores a value at once. A store that can't be written keeps its old values: settings are a convenience,
    // and losing one must not stop a command.
    void Write(const QString& application, const QString& section, const QString& key, const QString& value);

    [[nodiscard]] const QString& Folder() const { return m_folder; }

  private:
    [[nodiscard]] QString FileOf(const QString& application) const;

    QString m_folder;
};

}  // namespace sheetwright
