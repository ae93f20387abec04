#pragma once

// A print server of the test's own, with one queue that takes jobs and keeps them: no printer, no network, no
// administrator, whoever runs the test. The machine's own printers are never seen.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>

namespace sheetwright {

class CupsServer {
  public:
    // `socket` is where the server will listen.
    explicit CupsServer(const QString& socket) : m_socket(socket) {
        for (const char* name : {"etc", "spool", "spool/tmp", "cache", "state"})
            QDir(m_folder.path()).mkpath(QString::fromLatin1(name));
        Write(QStringLiteral("etc/cups-files.conf"), Files());
        Write(QStringLiteral("etc/cupsd.conf"), Rules());
        Write(QStringLiteral("etc/printers.conf"), Queues());
    }
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;
    ~CupsServer() { Stop(); }

    // Returns whether it answers. What it has to say goes to `Complaints`.
    bool Start() {
        const QString program = QStandardPaths::findExecutable(
            QStringLiteral("cupsd"), {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/local/sbin")});
        if (program.isEmpty()) return false;
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setStandardErrorFile(Path(QStringLiteral("complaints")));
        m_process.start(program,
                        {QStringLiteral("-f"), QStringLiteral("-c"), Path(QStringLiteral("etc/cupsd.conf")),
                         QStringLiteral("-s"), Path(QStringLiteral("etc/cups-files.conf"))});
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!Answers() && std::chrono::steady_clock::now() < deadline)
            if (m_process.waitForFinished(10) || m_process.state() == QProcess::NotRunning) return false;
        return Answers();
    }

    void Stop() {
        if (m_process.state() == QProcess::NotRunning) return;
        m_process.terminate();
        if (!m_process.waitForFinished(10'000)) m_process.kill();
        m_process.waitForFinished(10'000);
    }

    // The documents of the jobs, oldest first, as they were handed over.
    [[nodiscard]] QStringList Documents() const { return SpoolFiles(QStringLiteral("d*")); }

    // What the server noted about the jobs: names, sizes, options; written when it stops.
    [[nodiscard]] QByteArray Notes() const {
        QByteArray notes;
        for (const QString& path : SpoolFiles(QStringLiteral("c*"))) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly)) notes += file.readAll();
        }
        return notes;
    }

    [[nodiscard]] std::string Complaints() const {
        QFile file(Path(QStringLiteral("complaints")));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

  private:
    [[nodiscard]] QString Path(const QString& name) const { return m_folder.filePath(name); }

    void Write(const QString& name, const QString& text) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }

    [[nodiscard]] QString Files() const {
        return QStringLiteral(
                   "ServerRoot %1/etc\nRequestRoot %1/spool\nTempDir %1/spool/tmp\nCacheDir %1/cache\n"
                   "StateDir %1/state\nAccessLog %1/access\nErrorLog stderr\nPageLog %1/pages\n"
                   "FileDevice Yes\n")
            .arg(m_folder.path());
    }

    [[nodiscard]] QString Rules() const {
        return QStringLiteral(
                   "Listen %1\nBrowsing No\nBrowseLocalProtocols none\nWebInterface No\nLogLevel warn\n"
                   "PreserveJobFiles Yes\nPreserveJobHistory Yes\nDefaultAuthType None\n"
                   "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                   "<Policy default>\n<Limit All>\nOrder allow,deny\n</Limit>\n</Policy>\n")
            .arg(m_socket);
    }

    // A printer that is switched off: jobs wait for it.
    [[nodiscard]] static QString Queues() {
        return QStringLiteral(
            "<DefaultPrinter kept>\nInfo Kept\nDeviceURI file:///dev/null\nState Stopped\nAccepting Yes\n"
            "Shared No\nJobSheets none none\nOpPolicy default\nErrorPolicy stop-printer\n</DefaultPrinter>\n"
            "<Printer other>\nInfo Other\nDeviceURI file:///dev/null\nState Stopped\nAccepting No\n"
            "Shared No\nJobSheets none none\nOpPolicy default\nErrorPolicy stop-printer\n</Printer>\n");
    }

    [[nodiscard]] bool Answers() const {
        const QByteArray path = QFile::encodeName(m_socket);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) return false;
        std::copy(path.begin(), path.end(), address.sun_path);
        const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const bool isOpen =
            ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        ::close(handle);
        return isOpen;
    }

    [[nodiscard]] QStringList SpoolFiles(const QString& pattern) const {
        const QDir spool(Path(QStringLiteral("spool")));
        QStringList paths;
        for (const QString& name : spool.entryList({pattern}, QDir::Files, QDir::Name))
            paths << spool.filePath(name);
        return paths;
    }

    QString m_socket;
    QTemporaryDir m_folder;
    QProcess m_process;
};

}  // namespace sheetwright
