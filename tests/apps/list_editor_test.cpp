// The list editor as a program of its own.

#include "support/short_text.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

constexpr int kPatience = 30'000;  // milliseconds

class ListEditorTest : public ::testing::Test {
  protected:
    void Start(const QStringList& arguments, const QString& platform = S("offscreen")) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(S("QT_QPA_PLATFORM"), platform);
        environment.insert(S("HOME"), m_folder.path());
        environment.insert(S("XDG_CONFIG_HOME"), m_folder.filePath(S("config")));
        environment.insert(S("XDG_RUNTIME_DIR"), m_folder.path());
        environment.insert(S("LC_ALL"), S("C.UTF-8"));
        m_process.setProcessEnvironment(environment);
        m_process.start(S(SHEETWRIGHT_BIN_DIR "/sheetwright-list-editor"), arguments);
        ASSERT_TRUE(m_process.waitForStarted(kPatience));
    }
    [[nodiscard]] int Result() {
        EXPECT_TRUE(m_process.waitForFinished(kPatience));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        return m_process.exitCode();
    }

    QTemporaryDir m_folder;
    QProcess m_process;
};

TEST_F(ListEditorTest, TellsHelpAndVersionWithoutADisplay) {
    Start({S("--help")}, S("none"));
    EXPECT_EQ(Result(), 0);
    EXPECT_TRUE(m_process.readAllStandardOutput().startsWith("usage: sheetwright-list-editor [LIST]\n"));
    Start({S("--version")}, S("none"));
    EXPECT_EQ(Result(), 0);
    EXPECT_TRUE(m_process.readAllStandardOutput().startsWith("sheetwright-list-editor 1."));
}

TEST_F(ListEditorTest, WrongUsageIsTold) {
    for (const QStringList& arguments :
         {QStringList{S("--frobnicate")}, QStringList{S("a.csv"), S("b.csv")}}) {
        Start(arguments);
        EXPECT_EQ(Result(), 2);
        EXPECT_TRUE(m_process.readAllStandardError().contains("usage: sheetwright-list-editor [LIST]\n"));
    }
}

TEST_F(ListEditorTest, OpensAListAndLeavesItAloneWhenAskedToEnd) {
    const QByteArray bytes = "A\n\"1\"\n";
    QFile list(m_folder.filePath(S("list.csv")));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write(bytes);
    list.close();
    Start({list.fileName()});
    m_process.terminate();
    EXPECT_TRUE(m_process.waitForFinished(kPatience));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_EQ(list.readAll(), bytes);
    EXPECT_EQ(QDir(m_folder.path()).entryList({S("list*")}, QDir::Files), QStringList(S("list.csv")));
}

}  // namespace

}  // namespace sheetwright
