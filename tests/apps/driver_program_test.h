#pragma once

// Black-box tests of the programs that drivers start: the real executables, in a folder of the test's own.

#include "apps/cli_test.h"

namespace sheetwright {

class DriverProgramTest : public CliTest {
  protected:
    explicit DriverProgramTest(QString program)
        : m_program(QStringLiteral(SHEETWRIGHT_BIN_DIR "/") + std::move(program)) {
        QDir(Path(QStringLiteral("."))).mkdir(QStringLiteral("out"));
    }

    // Where the table is to be written, in a folder that holds nothing else.
    [[nodiscard]] QString OutputPath() const { return Path(QStringLiteral("out/table.csv")); }
    [[nodiscard]] QByteArray Output() const { return Read(QStringLiteral("out/table.csv")); }
    [[nodiscard]] QStringList Delivered() const {
        return QDir(Path(QStringLiteral("out")))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void Start(QProcess& process, const QStringList& arguments) const {
        Prepare(process, arguments, QStringLiteral("C"));
        process.setProgram(m_program);
        process.start();
    }
    [[nodiscard]] CliResult Run(const QStringList& arguments) const {
        QProcess process;
        Start(process, arguments);
        return ResultOf(process);
    }

    // Waits until the program has told so much. Returns whether it did.
    [[nodiscard]] static bool WaitForWords(QProcess& process, const QByteArray& words) {
        constexpr int kDeadline = 60'000;
        QByteArray told;
        while (!told.contains(words) && process.waitForReadyRead(kDeadline))
            told += process.readAllStandardOutput();
        return told.contains(words);
    }

  private:
    QString m_program;
};

}  // namespace sheetwright
