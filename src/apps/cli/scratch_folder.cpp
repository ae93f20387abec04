#include "apps/cli/scratch_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace sheetwright::cli {

namespace {

constexpr QLatin1String kName("sheetwright-");
constexpr QLatin1String kMark("/in-use");

// Locks a file for as long as the handle is open; -1 when there is none or another process has it locked.
int TryHold(const QString& path, int flags) {
    const int handle = ::open(QFile::encodeName(path).constData(),
                              flags | O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    if (handle < 0 || ::flock(handle, LOCK_EX | LOCK_NB) == 0) return handle;
    ::close(handle);
    return -1;
}

// The mark is locked before it bears its name, so that one without a lock is always that of a dead process.
int TakeInUse(const QString& folder) {
    if (folder.isEmpty()) return -1;
    const QString unnamed = folder + QStringLiteral("/new-mark");
    const int hold = TryHold(unnamed, O_CREAT | O_EXCL);
    if (hold >= 0) QFile::rename(unnamed, folder + kMark);
    return hold;
}

// Where a new folder goes. Those of this user that lie there with the mark of a dead process are cleared
// away.
QString RoomForFolder() {
    const QDir root(QDir::tempPath());
    const QStringList names{kName + QStringLiteral("??????")};
    for (const QFileInfo& folder : root.entryInfoList(names, QDir::Dirs | QDir::NoSymLinks)) {
        if (folder.ownerId() != ::geteuid()) continue;
        const int hold = TryHold(folder.filePath() + kMark, 0);
        if (hold < 0) continue;
        QDir(folder.filePath()).removeRecursively();
        ::close(hold);
    }
    return root.filePath(kName + QStringLiteral("XXXXXX"));
}

}  // namespace

ScratchFolder::ScratchFolder() : m_folder(RoomForFolder()), m_hold(TakeInUse(m_folder.path())) {}

ScratchFolder::~ScratchFolder() {
    m_folder.remove();  // while it is held: another call that clears it away at once would be in the way
    if (m_hold >= 0) ::close(m_hold);
}

}  // namespace sheetwright::cli
