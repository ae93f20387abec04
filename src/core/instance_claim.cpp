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

// Without a holder, the lock is what a process left that crashed before it had written its name, or none can
// be made.
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
    m_lock = std::make_unique<QLockFile>(ClaimPath(program));
    m_lock->setStaleLockTime(kNeverStaleByAge);
    if (m_lock->tryLock()) return true;
    if (HasHolder(*m_lock)) return false;
    m_lock->removeStaleLockFile();
    return m_lock->tryLock() || !HasHolder(*m_lock);
}

}  // namespace sheetwright
