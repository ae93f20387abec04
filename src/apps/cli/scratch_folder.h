#pragma once

// A folder of this process alone, in which opened forms lie unpacked. Several processes at once thus never
// sweep or fill one another's directories. What a process that was ended from outside leaves goes with the
// next one.

#include <QString>
#include <QTemporaryDir>

namespace sheetwright::cli {

class ScratchFolder {
  public:
    // Also removes what ended processes of the same user left.
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    // False when the system has no room for it.
    [[nodiscard]] bool IsValid() const { return m_folder.isValid(); }
    // With trailing separator.
    [[nodiscard]] QString Path() const { return m_folder.path() + QLatin1Char('/'); }

  private:
    QTemporaryDir m_folder;
    int m_hold;  // locks the folder's mark, until the process ends in whatever way
};

}  // namespace sheetwright::cli
