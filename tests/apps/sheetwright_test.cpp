// The real program, started without a display in a folder of its own.

#include "support/form_text.h"
#include "support/short_text.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

constexpr int kPatience = 30'000;  // milliseconds
constexpr int kLook = 10;

class SheetwrightTest : public ::testing::Test {
  protected:
    SheetwrightTest() {
        const QDir root(m_folder.path());
        for (const char* name : {"home", "run", "program"})
            root.mkdir(S(name));
        QFile::setPermissions(Path(S("run")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        for (const char* program : {"sheetwright", "sheetwright-viewer", "sheetwright-report"})
            QFile::copy(S(SHEETWRIGHT_BIN_DIR "/") + S(program), Path(S("program/") + S(program)));
        QFile::copy(S(SHEETWRIGHT_SOURCE_DIR "/share/papersizes.csv"), Path(S("program/papersizes.csv")));
    }

    [[nodiscard]] QString Path(const QString& name) const { return m_folder.filePath(name); }

    [[nodiscard]] QString WriteForm(const QString& name = S("my form.aff")) const {
        FormText form;
        form.Page(S("Cover")).Field(S("Client"));
        form.Data(1, {S("Client=Marlow")});
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(form.Bytes());
        return file.fileName();
    }

    void Start(QProcess& process, const QStringList& arguments, const char* program = "sheetwright") const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(S("QT_QPA_PLATFORM"), S("offscreen"));
        environment.insert(S("HOME"), Path(S("home")));
        environment.insert(S("XDG_RUNTIME_DIR"), Path(S("run")));
        environment.insert(S("XDG_CONFIG_HOME"), Path(S("home/config")));
        environment.insert(S("XDG_DATA_HOME"), Path(S("home/data")));
        environment.insert(S("CUPS_SERVER"), Path(S("run/no-spooler")));
        environment.insert(S("LC_ALL"), S("C.UTF-8"));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.start(Path(S("program/") + S(program)), arguments);
        ASSERT_TRUE(process.waitForStarted(kPatience));
    }

    // The files of open forms.
    [[nodiscard]] QStringList Unpacked() const {
        QStringList files;
        const QDir temp(Path(S("program/TEMP")));
        for (const QString& folder : temp.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            files += QDir(temp.filePath(folder)).entryList(QDir::Files);
        return files;
    }

    [[nodiscard]] static bool WaitUntil(QProcess& process, const std::function<bool()>& isSo) {
        for (int waited = 0; waited < kPatience && process.state() == QProcess::Running; waited += kLook) {
            if (isSo()) return true;
            process.waitForFinished(kLook);
        }
        return isSo();
    }

    [[nodiscard]] QByteArray SettingsOf(const QString& title) const {
        QFile settings(Path(S("home/config/sheetwright/") + title + S(".ini")));
        return settings.open(QIODevice::ReadOnly) ? settings.readAll() : QByteArray();
    }

    // A window's place is stored when it is closed, if it was to be seen.
    [[nodiscard]] bool WasShown(const QString& title) const {
        return SettingsOf(title).contains("MainWidth=");
    }

    // As the system asks it to at the end of a session.
    static void Close(QProcess& process) {
        process.terminate();
        EXPECT_TRUE(process.waitForFinished(kPatience));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
    }

    QTemporaryDir m_folder;
};

TEST_F(SheetwrightTest, OpensTheFormOfItsCommandLineAndTidiesUpWhenClosed) {
    QProcess process;
    Start(process, {WriteForm()});
    EXPECT_TRUE(WaitUntil(process, [this] { return Unpacked() == QStringList(S("my form.aff")); }));
    Close(process);
    EXPECT_EQ(Unpacked(), QStringList());
    EXPECT_TRUE(WasShown(S("Tolvane Quillon Sheetwright")));
    EXPECT_FALSE(QFile::exists(Path(S("program/errors.csv"))));
}

TEST_F(SheetwrightTest, OpensAllFilesOfItsCommandLineAndKeepsTheFoldersAsTheyWere) {
    for (const char* program : {"sheetwright", "sheetwright-viewer"}) {
        QProcess process;
        Start(process, {S("/x"), WriteForm(S("a.AFF")), S("/IPC"), WriteForm(S("my template.aft"))}, program);
        EXPECT_TRUE(WaitUntil(process, [this] { return Unpacked().size() == 2; })) << program;
        Close(process);
        EXPECT_EQ(Unpacked(), QStringList()) << program;
    }
    for (const char* title : {"Tolvane Quillon Sheetwright", "Tolvane Ketterlin Professional Viewer"}) {
        const QByteArray settings = SettingsOf(S(title));
        EXPECT_TRUE(settings.contains("a.AFF")) << "a recent form in " << title;
        EXPECT_FALSE(settings.contains("my template.aft")) << title;
        EXPECT_FALSE(settings.contains("folder=/")) << title;
    }
}

TEST_F(SheetwrightTest, ReportEngineOpensItsFormHiddenAndTidiesUpWhenClosed) {
    QProcess process;
    Start(process, {WriteForm()}, "sheetwright-report");
    EXPECT_TRUE(WaitUntil(process, [this] { return Unpacked() == QStringList(S("my form.aff")); }));
    Close(process);
    EXPECT_EQ(Unpacked(), QStringList());
    EXPECT_FALSE(WasShown(S("Tolvane Reports")));
    EXPECT_FALSE(QFile::exists(Path(S("program/errors.csv"))));
}

TEST_F(SheetwrightTest, ReportEngineRunsBesideTheProgramWithWindows) {
    QProcess first;
    Start(first, {});
    ASSERT_TRUE(WaitUntil(first, [this] { return QDir(Path(S("program"))).exists(S("TEMP")); }));
    QProcess second;
    Start(second, {WriteForm()}, "sheetwright-report");
    EXPECT_TRUE(WaitUntil(second, [this] { return Unpacked() == QStringList(S("my form.aff")); }));
    Close(second);
    EXPECT_EQ(first.state(), QProcess::Running);
    Close(first);
}

TEST_F(SheetwrightTest, SecondStartEndsAtOnceAndSilently) {
    QProcess first;
    Start(first, {});
    ASSERT_TRUE(WaitUntil(first, [this] { return QDir(Path(S("program"))).exists(S("TEMP")); }));
    QProcess second;
    Start(second, {});
    EXPECT_TRUE(second.waitForFinished(kPatience));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(first.state(), QProcess::Running);
    Close(first);
}

// The list of recent forms is used from other folders, too.
TEST_F(SheetwrightTest, FormNamedFromTheCurrentFolderIsRememberedWithItsWholePath) {
    const QString form = WriteForm();
    QProcess process;
    Start(process, {S("my form.aff")});
    ASSERT_TRUE(WaitUntil(process, [this] { return !Unpacked().isEmpty(); }));
    Close(process);
    QString text;
    for (const QFileInfo& file : QDir(Path(S("home/config/sheetwright"))).entryInfoList(QDir::Files)) {
        QFile stored(file.filePath());
        if (stored.open(QIODevice::ReadOnly)) text += QString::fromUtf8(stored.readAll());
    }
    EXPECT_TRUE(text.contains(form)) << text.toStdString();
}

}  // namespace

}  // namespace sheetwright
