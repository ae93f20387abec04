#pragma once

// Drivers that a test writes, with programs that are scripts, and who looks while one of them runs.

#include "core/paths.h"
#include "import/download_manager.h"
#include "import/download_progress.h"
#include "support/test_application.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <functional>
#include <utility>

namespace sheetwright {

class RecordingProgress : public DownloadProgress {
  public:
    void Begin(const QString& driver, std::function<void()> cancelRun) override {
        begun << driver;
        cancel = std::move(cancelRun);
        if (onBegin) onBegin();
    }
    void AddOutput(const QString& text) override {
        output += text;
        longest = std::max(longest, text.size());
        if (m_step && output.contains(m_awaited)) std::exchange(m_step, nullptr)();
    }
    void End() override { ++ends; }

    // `step` is done once, when the program has printed `text`.
    void When(const QString& text, const std::function<void()>& step) {
        m_awaited = text;
        m_step = step;
    }

    QStringList begun;
    QString output;
    qsizetype longest = 0;  // piece of output
    int ends = 0;
    std::function<void()> cancel;
    std::function<void()> onBegin;

  private:
    QString m_awaited;
    std::function<void()> m_step;
};

class DriverTest : public ApplicationTest {
  protected:
    // A file below "DRIVERS".
    QString WriteInDriver(const QString& name, const QByteArray& bytes) const {
        return Write(QStringLiteral("DRIVERS/") + name, bytes);
    }
    QString WriteProgram(const QString& name, const QByteArray& script) const {
        QString path = Write(name, "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    // A driver whose program is the script; `keys` are further lines of DRIVER.INF.
    void WriteDriver(const QString& name, const QByteArray& script, const QByteArray& keys = {}) const {
        const QString folder = QStringLiteral("DRIVERS/%1/").arg(name);
        Write(folder + QStringLiteral("DRIVER.INF"),
              "[Download]\nProgram=fetch\nArguments={output} {driver} {data}\n" + keys);
        WriteProgram(folder + QStringLiteral("fetch"), script);
    }
    // Paths below the folder of the test, of files and folders.
    [[nodiscard]] QStringList FilesIn(const QString& folder) const {
        QStringList files;
        QDirIterator all(m_folder.filePath(folder),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            files << QDir(m_folder.path()).relativeFilePath(all.next());
        files.sort();
        return files;
    }
    // Names of the tables and of all else in a driver's data folder.
    [[nodiscard]] QStringList DataOf(const QString& driver) const {
        return FilesIn(QStringLiteral("DRIVERS/%1/Data").arg(driver));
    }
    // What the download of the first driver delivers.
    QString Downloaded() {
        m_manager.Rescan();
        m_manager.SetIndex(0);
        m_manager.ShowProgress(true);
        m_manager.Download();
        return m_manager.DownloadedFile();
    }
    // Nothing came, nothing is left, and the person was told so.
    void ExpectNothing(const QStringList& messages) {
        EXPECT_EQ(Downloaded(), QString());
        EXPECT_EQ(m_ui.MessageTexts(), messages);
        EXPECT_EQ(FilesIn(QStringLiteral("TEMP")), QStringList());
        EXPECT_EQ(DataOf(m_manager.DriverName(0)), QStringList());
    }

    RecordingProgress m_progress;
    DownloadManager m_manager{*m_application, m_progress};
};

// Writes a table of one record.
inline const QByteArray kDeliver = "printf 'A,B\\n1,2\\n' > \"$1\"\n";

}  // namespace sheetwright
