#pragma once

// A folder of this process alone, in which opened forms lie unpacked. Several processes at once thus never
// sweep or fill one another's directories, and whatever ends this one takes the folder with it. Only a
// process that was killed can't: its folder goes with the next one.

#include <QString>
#include <QTemporaryDir>

#include <csignal>

namespace sheetwright::cli {

class ScratchFolder {
  public:
    // Must be made before any other thread: from now on the signals that end a process remove the folder
    // first. Also removes what killed processes of the same user left.
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    // False when the system has no room for it.
    [[nodiscard]] bool IsValid() const { return m_folder.isValid(); }
    // With trailing separator.
    [[nodiscard]] QString Path() const { return m_folder.path() + QLatin1Char('/'); }

  private:
    sigset_t m_ending;  // blocked before there is a folder to leave behind
    QTemporaryDir m_folder;
    int m_hold;  // locks the folder's mark, until the process ends in whatever way
};

}  // namespace sheetwright::cli
