#pragma once

// Black-box tests of the command line: the real executable, started in a folder of the test's own.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sheetwright {

struct CliResult {
    int status = -1;
    std::string out;
    std::string err;
};

class CliTest : public ::testing::Test {
  protected:
    CliTest() { QDir(m_folder.path()).mkdir(QStringLiteral("tmp")); }

    [[nodiscard]] QString Path(const QString& name) const { return m_folder.filePath(name); }

    void Write(const QString& name, const QByteArray& bytes) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    [[nodiscard]] QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Sets up a call in the test's folder; a test may start it and let others run beside.
    void Prepare(QProcess& process, const QStringList& arguments, const QString& locale) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), locale);
        environment.insert(QStringLiteral("TMPDIR"), Path(QStringLiteral("tmp")));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Path(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), Path(QStringLiteral("data")));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.setProgram(QStringLiteral(SHEETWRIGHT_BIN_DIR "/sheetwright-cli"));
        process.setArguments(arguments);
    }

    [[nodiscard]] static CliResult ResultOf(QProcess& process) {
        if (!process.waitForFinished(60'000)) return {};
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
    }

    [[nodiscard]] CliResult Run(const QStringList& arguments,
                                const QString& locale = QStringLiteral("C.UTF-8")) const {
        QProcess process;
        Prepare(process, arguments, locale);
        process.start();
        return ResultOf(process);
    }

    // What the calls left in the folder for temporary files.
    [[nodiscard]] QStringList LeftOvers() const {
        return QDir(Path(QStringLiteral("tmp")))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

  private:
    QTemporaryDir m_folder;
};

}  // namespace sheetwright
