#pragma once

// The three remembered folders and the temporary directories of open documents. A document's text and
// pictures lie unpacked in its temporary directory for as long as it is open.

#include <QString>

#include <cstdint>
#include <functional>

namespace sheetwright {

class Application;

// The remembered folder, with trailing separator. Defaults: the current directory + "DATA" for forms and
// templates, the current directory for lists. In report mode the template folder is read under another key.
[[nodiscard]] QString FormFolder(const Application& application);
[[nodiscard]] QString TemplateFolder(const Application& application);
[[nodiscard]] QString ListFolder(const Application& application);

// Remember a folder. Forms and templates: not when it begins with "a:" or "b:", removable disks.
void SetFormFolder(Application& application, const QString& path);
void SetTemplateFolder(Application& application, const QString& path);
void SetListFolder(Application& application, const QString& path);

// Keeps the form and the template folder as they are: whatever is remembered in its life is forgotten at its
// end.
class RememberedFolders {
  public:
    explicit RememberedFolders(Application& application);
    RememberedFolders(const RememberedFolders&) = delete;
    RememberedFolders& operator=(const RememberedFolders&) = delete;
    ~RememberedFolders();

  private:
    Application& m_application;
    QString m_formFolder;
    QString m_templateFolder;
};

// The root of all temporary directories, with trailing separator.
[[nodiscard]] QString TempRoot(const Application& application);

// Makes TEMP the current temporary directory, creates it if needed, and removes empty directories with
// numeric names below it, 100 of them at most. Directories with files stay: a running document or a crash
// left them.
void SweepTempDirectories(Application& application);

// A fresh directory below TEMP, with trailing separator, named by a random number of eight digits; no two
// documents share one. The directory at `wanted`, the one that the document used before (if any), is removed
// when it can be written; when neither it nor TEMP can, shows "Cannot write to Temporary Directory" and gives
// a path at which there may be no directory. `draw` gives the random numbers, from 0 to 99,999,999.
[[nodiscard]] QString MakeTempDirectory(Application& application, const QString& wanted);
[[nodiscard]] QString MakeTempDirectory(Application& application, const QString& wanted,
                                        const std::function<std::uint32_t()>& draw);

// Deletes the files of a temporary directory and the directory. Never touches the root of TEMP, anything that
// is not below a TEMP, or a directory that holds programs. Failures are ignored.
void RemoveTempDirectory(const QString& path);

}  // namespace sheetwright
