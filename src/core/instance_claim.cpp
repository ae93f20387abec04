#include "core/instance_claim.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>

namespace sheetwright {

namespace {

// A claimed lock is stale only when its process is gone, however old it is.
constexpr int kNeverStaleByAge = 0;

QString ClaimPath(const QString& program) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& part : {program, qEnvironmentVariable("SHEETWRIGHT_CHANNEL"), QDir::homePath()}) {
        hash.addData(part.toUtf8());
        hash.addData(QByteArrayView("\0", 1));
    }
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString folder = !runtime.isEmpty() && QDir(runtime).exists() ? runtime : QDir::tempPath();
    return folder + QStringLiteral("/sheetwright-") + QString::fromLatin1(hash.result().toHex().first(32)) +
           QStringLiteral(".lock");
}

// Removes a lock file that no process holds open. The process that it names is no proof: its number may have
// been given anew, and the host renamed, since it crashed. The guard keeps two programs that start at a time
// from removing each other's.
void RemoveAbandoned(QLockFile& lock, const QString& path) {
    QLockFile guard(path + QStringLiteral(".removal"));
    if (guard.tryLock()) lock.removeStaleLockFile();
}

// Without a holder, no claim can be written down.
bool HasHolder(const QLockFile& lock) {
    qint64 process = 0;
    QString host;
    QString program;
    return lock.error() == QLockFile::LockFailedError && lock.getLockInfo(&process, &host, &program);
}

}  // namespace

InstanceClaim::InstanceClaim() = default;
InstanceClaim::~InstanceClaim() = default;

bool InstanceClaim::Take(const QString& program) {
    const QString path = ClaimPath(program);
    m_lock = std::make_unique<QLockFile>(path);
    m_lock->setStaleLockTime(kNeverStaleByAge);
    if (m_lock->tryLock()) return true;
    RemoveAbandoned(*m_lock, path);
    return m_lock->tryLock() || !HasHolder(*m_lock);
}

}  // namespace sheetwright
