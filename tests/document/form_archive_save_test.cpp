#include "document/form_archive.h"
#include "support/test_application.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSet>

#include <fcntl.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <random>

namespace sheetwright {
namespace {

const QByteArray kText = "VERSION 1.0.4\r\nBEGIN DESIGN\r\nEND DESIGN\r\nBEGIN DATA\r\nEND DATA\r\n";
const QByteArray kOld = "VERSION 1.0.0\r\nthe old form\r\n";

// Bytes that hardly pack, the same on every run.
QByteArray Noise(qsizetype size, std::uint32_t seed = 1) {
    std::mt19937 random(seed);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

// Runs `step` in a child process, which may lower its own rights and limits, and tells whether it returned
// true.
bool InChild(const std::function<bool()>& step) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(step() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void LimitFileSize(rlim_t bytes) {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

// Runs `step` in a child process that is killed before its system call number `count`, counted from 0 in
// entries and returns. Whether it came to its end before.
bool RunUntilSystemCall(int count, const std::function<void()>& step) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        step();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    for (int stop = 0; stop < count && WIFSTOPPED(status); ++stop) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    if (!WIFSTOPPED(status)) return true;
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return false;
}

class SavingTest : public ApplicationTest {
  protected:
    SavingTest() {
        Write(QStringLiteral("source/form.aff"), kText);
        Write(QStringLiteral("source/logo.bmp"), "picture");
    }

    QString Folder(const QString& name) const { return Path(name + QStringLiteral("/.")).chopped(1); }
    QString Source() const { return Folder(QStringLiteral("source")); }
    QString Form() const { return Path(QStringLiteral("forms/form.aff")); }
    bool Zip(const QString& path) { return ZipForm(*m_application, path, Source()); }

    QStringList FormsFolder() const {
        return QDir(Folder(QStringLiteral("forms"))).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    // A save that must fail: told with this number, logged, the old form as it was and nothing beside it.
    void ExpectFailure(const QString& path, int number, const QString& member = {}) {
        const QStringList before = FormsFolder();
        EXPECT_FALSE(Zip(path));
        const QString text = QStringLiteral("Error code %1").arg(number);
        ASSERT_EQ(m_ui.messages.size(), 1U);
        EXPECT_EQ(m_ui.messages[0],
                  (ShownMessage{text, m_application->Title, MessageIcon::Critical, MessageButtons::Ok}));
        EXPECT_EQ(FormsFolder(), before);
        EXPECT_EQ(m_ui.statuses, QStringList({QStringLiteral("Storing File..."), QStringLiteral("Ready")}));
        EXPECT_EQ(m_ui.pointer, Pointer::Normal);
        const std::vector<QStringList> rows = ErrorRows();
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0][3], QStringLiteral("ZipForm"));
        EXPECT_EQ(rows[0][5], member.isEmpty() ? path : path + u' ' + member);
    }

    QStringList Unpacked() {
        const QString folder = Folder(QStringLiteral("unpacked"));
        QDir(folder).removeRecursively();
        UnZipForm(*m_application, Form(), Folder(QStringLiteral("unpacked")));
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(SavingTest, ShowsWhatItDoes) {
    EXPECT_TRUE(Zip(Form()));
    EXPECT_EQ(m_ui.statuses, QStringList({QStringLiteral("Storing File..."), QStringLiteral("Ready")}));
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, AllFilesOfTheFolderTravelButNoSubfolders) {
    Write(QStringLiteral("source/.hidden"), "1");
    Write(QStringLiteral("source/sub/picture.bmp"), "2");
    ASSERT_TRUE(Zip(Form()));
    EXPECT_EQ(Unpacked(), QStringList({QStringLiteral(".hidden"), QStringLiteral("form.aff"),
                                       QStringLiteral("logo.bmp")}));
    EXPECT_EQ(Read(QStringLiteral("unpacked/form.aff")), kText);
    EXPECT_EQ(Read(QStringLiteral("unpacked/logo.bmp")), "picture");
}

TEST_F(SavingTest, TextIsTheFirstMember) {
    Write(QStringLiteral("source/a.bmp"), "1");
    ASSERT_TRUE(Zip(Form()));
    EXPECT_EQ(ArchiveMembers(Form()),
              QStringList({QStringLiteral("form.aff"), QStringLiteral("a.bmp"), QStringLiteral("logo.bmp")}));
}

TEST_F(SavingTest, NamesOfAnyScriptSurvive) {
    const QStringList names{QStringLiteral("Müller €.bmp"), QStringLiteral("Ωmega 图.bmp"),
                            QStringLiteral("form.aff"), QStringLiteral("logo.bmp")};
    Write(QStringLiteral("source/") + names[0], "1");
    Write(QStringLiteral("source/") + names[1], "2");
    ASSERT_TRUE(Zip(Form()));
    const QStringList unpacked = Unpacked();
    EXPECT_EQ(QSet<QString>(unpacked.begin(), unpacked.end()), QSet<QString>(names.begin(), names.end()));
}

TEST_F(SavingTest, StandardUnzipToolsReadTheForm) {
    Write(QStringLiteral("source/Müller.bmp"), Noise(300'000));
    ASSERT_TRUE(Zip(Form()));
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-t"), Form()});
    ASSERT_TRUE(unzip.waitForFinished()) << "unzip is needed for this test";
    EXPECT_EQ(unzip.exitCode(), 0) << unzip.readAll().toStdString();
}

TEST_F(SavingTest, PlainTextFormBecomesAnArchive) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    ASSERT_TRUE(IsPlainTextForm(Form()));
    ASSERT_TRUE(Zip(Form()));
    EXPECT_FALSE(IsPlainTextForm(Form()));
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, PictureOfOneColourIsSavedAndOpensAgain) {
    Write(QStringLiteral("source/white.bmp"), QByteArray(90 * 1024 * 1024, '\xFF'));
    ASSERT_TRUE(Zip(Form()));
    EXPECT_TRUE(Unpacked().contains(QStringLiteral("white.bmp")));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(SavingTest, LeftOverOfACrashIsReplaced) {
    Write(QStringLiteral("forms/form.aff 2"), "half a form");
    EXPECT_TRUE(Zip(Form()));
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, LinkInPlaceOfTheLeftOverIsNotFollowed) {
    const QString victim = Write(QStringLiteral("victim.txt"), "precious");
    Folder(QStringLiteral("forms"));
    ASSERT_TRUE(QFile::link(victim, Form() + QStringLiteral(" 2")));
    EXPECT_TRUE(Zip(Form()));
    EXPECT_EQ(Read(QStringLiteral("victim.txt")), "precious");
}

TEST_F(SavingTest, FolderInPlaceOfTheFileBesideIsAFailure) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    Folder(QStringLiteral("forms/form.aff 2"));
    ExpectFailure(Form(), failure::kPathAccess);
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
}

TEST_F(SavingTest, FolderInPlaceOfTheFormIsAFailure) {
    const QString folder = Folder(QStringLiteral("forms/folder.aff")).chopped(1);
    ExpectFailure(folder, failure::kPathAccess);
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST_F(SavingTest, FormWithoutItsTextNeverReplacesAGoodOne) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    QFile::remove(Path(QStringLiteral("source/form.aff")));
    ExpectFailure(Form(), failure::kFileNotFound);
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
}

TEST_F(SavingTest, FormWithTwoTextsIsNotSaved) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    Write(QStringLiteral("source/other.aft"), kText);
    ExpectFailure(Form(), failure::kInvalidFormat, QStringLiteral("other.aft"));
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
}

TEST_F(SavingTest, WhatCouldNotBeReadAgainIsNotSaved) {
    Write(QStringLiteral("source/LOGO.BMP"), "another");
    ExpectFailure(Form(), failure::kFileExists, QStringLiteral("logo.bmp"));
}

TEST_F(SavingTest, MissingSourceFolderIsAFailure) {
    QDir(Source()).removeRecursively();
    EXPECT_FALSE(ZipForm(*m_application, Form(), m_folder.filePath(QStringLiteral("source/"))));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 76")));
}

TEST_F(SavingTest, EmptySourceFolderNameIsNotTheCurrentFolder) {
    EXPECT_FALSE(ZipForm(*m_application, Form(), QString()));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 76")));
}

TEST_F(SavingTest, MissingTargetFolderGives76) {
    ExpectFailure(m_folder.filePath(QStringLiteral("nowhere/form.aff")), failure::kPathNotFound);
}

TEST_F(SavingTest, ReadOnlyFormGives75AndStays) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    ASSERT_EQ(::chmod(Form().toLocal8Bit().constData(), 0444), 0);
    ExpectFailure(Form(), failure::kPathAccess);
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
}

TEST_F(SavingTest, ReadOnlyFolderGives75) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    const QByteArray forms = Folder(QStringLiteral("forms")).toLocal8Bit();
    ::chmod(m_folder.path().toLocal8Bit().constData(), 0755);
    ::chmod(forms.constData(), 0555);
    const bool isAsTold = InChild([&] {
        if (::geteuid() == 0 && ::seteuid(65534) != 0) return false;
        return !Zip(Form()) && m_ui.MessageTexts() == QStringList(QStringLiteral("Error code 75"));
    });
    ::chmod(forms.constData(), 0755);
    EXPECT_TRUE(isAsTold);
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, NewFormKeepsTheOldOnesPermissions) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    ASSERT_EQ(::chmod(Form().toLocal8Bit().constData(), 0640), 0);
    ASSERT_TRUE(Zip(Form()));
    struct stat status {};
    ASSERT_EQ(::stat(Form().toLocal8Bit().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(SavingTest, LinkToAFormStaysALink) {
    const QString real = Write(QStringLiteral("real/form.aff"), kOld);
    Folder(QStringLiteral("forms"));
    ASSERT_TRUE(QFile::link(QStringLiteral("../real/form.aff"), Form()));
    ASSERT_TRUE(Zip(Form()));
    EXPECT_TRUE(QFileInfo(Form()).isSymLink());
    EXPECT_FALSE(QFileInfo(real).isSymLink());
    EXPECT_FALSE(IsPlainTextForm(real));
    EXPECT_EQ(QDir(Folder(QStringLiteral("real"))).entryList(QDir::Files),
              QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, LinkToAFormThatIsNotThereYetMakesIt) {
    Folder(QStringLiteral("real"));
    Folder(QStringLiteral("forms"));
    ASSERT_TRUE(QFile::link(QStringLiteral("../real/form.aff"), Form()));
    ASSERT_TRUE(Zip(Form()));
    EXPECT_TRUE(QFileInfo(Form()).isSymLink());
    EXPECT_TRUE(QFileInfo::exists(Path(QStringLiteral("real/form.aff"))));
}

TEST_F(SavingTest, CircleOfLinksIsAFailure) {
    Folder(QStringLiteral("forms"));
    ASSERT_TRUE(QFile::link(QStringLiteral("form.aff"), Form()));
    EXPECT_FALSE(Zip(Form()));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 75")));
}

TEST_F(SavingTest, StoredPathsSeparateWithBackslashes) {
    QString path = Form();
    EXPECT_TRUE(Zip(path.replace(u'/', u'\\')));
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, UnreadableSourceFileIsAFailure) {
    Write(QStringLiteral("forms/form.aff"), kOld);
    ASSERT_TRUE(QFile::remove(Path(QStringLiteral("source/logo.bmp"))));
    const QString secret = Write(QStringLiteral("source/secret.bmp"), "1");
    ::chmod(m_folder.path().toLocal8Bit().constData(), 0755);
    ::chmod(Folder(QStringLiteral("forms")).toLocal8Bit().constData(), 0777);
    ::chmod(secret.toLocal8Bit().constData(), 0);
    EXPECT_TRUE(InChild([&] {
        if (::geteuid() == 0 && ::seteuid(65534) != 0) return false;
        return !Zip(Form()) && m_ui.MessageTexts() == QStringList(QStringLiteral("Error code 70"));
    }));
    EXPECT_EQ(Read(QStringLiteral("forms/form.aff")), kOld);
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(SavingTest, FullDiskAtAnyByteLeavesTheOldForm) {
    Write(QStringLiteral("source/noise.bmp"), Noise(30'000));
    Write(QStringLiteral("forms/form.aff"), kOld);
    const QString full = QStringLiteral("Error code 61");
    for (rlim_t bytes = 0; bytes < 30'000; bytes += bytes < 400 ? 13 : 1'777) {
        ASSERT_TRUE(InChild([&] {
            LimitFileSize(bytes);
            return !Zip(Form()) && m_ui.MessageTexts() == QStringList(full);
        })) << bytes;
        ASSERT_EQ(Read(QStringLiteral("forms/form.aff")), kOld) << bytes;
        ASSERT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff"))) << bytes;
    }
}

TEST_F(SavingTest, FullDiskWhileUnpackingLeavesNothing) {
    Write(QStringLiteral("source/noise.bmp"), Noise(30'000));
    ASSERT_TRUE(Zip(Form()));
    const QString folder = Folder(QStringLiteral("unpacked"));
    for (rlim_t bytes = 0; bytes < 30'000; bytes += 3'333) {
        ASSERT_TRUE(InChild([&] {
            LimitFileSize(bytes);
            UnZipForm(*m_application, Form(), folder);
            return m_ui.MessageTexts() == QStringList(QStringLiteral("Error code 61"));
        })) << bytes;
        ASSERT_TRUE(QDir(folder).isEmpty()) << bytes;
    }
}

TEST_F(SavingTest, FileThatChangesWhileItIsSavedIsAFailureAtWorst) {
    Write(QStringLiteral("source/noise.bmp"), Noise(200'000));
    ASSERT_TRUE(Zip(Form()));
    const pid_t writer = ::fork();
    if (writer == 0) {
        const QByteArray path = Path(QStringLiteral("source/noise.bmp")).toLocal8Bit();
        const QByteArray other = Noise(200'000, 2);
        for (;;) {
            ::unlink(path.constData());
            const int handle = ::open(path.constData(), O_WRONLY | O_CREAT, 0600);
            if (::write(handle, other.constData(), 150'000) < 0) ::_exit(1);
            ::close(handle);
        }
    }
    for (int round = 0; round < 20; ++round) {
        m_ui.messages.clear();
        const bool isSaved = Zip(Form());
        EXPECT_EQ(isSaved, m_ui.messages.empty());
        EXPECT_FALSE(ArchiveMembers(Form()).isEmpty());
        EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
    }
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
}

TEST_F(SavingTest, KillAtAnyMomentLeavesAFormThatOpens) {
    Write(QStringLiteral("source/noise.bmp"), Noise(100'000));
    ASSERT_TRUE(Zip(Form()));
    bool isFinished = false;
    int stops = 0;
    for (; !isFinished; ++stops) {
        isFinished = RunUntilSystemCall(stops, [this] { Zip(Form()); });
        const QStringList files = FormsFolder();
        ASSERT_TRUE(files.contains(QStringLiteral("form.aff"))) << stops;
        ASSERT_LE(files.size(), 2) << stops;
        ASSERT_TRUE(files.size() == 1 || files.back() == u"form.aff 2") << stops;
        ASSERT_EQ(Unpacked(), QStringList({QStringLiteral("form.aff"), QStringLiteral("logo.bmp"),
                                           QStringLiteral("noise.bmp")}))
            << stops;
        ASSERT_TRUE(Read(QStringLiteral("unpacked/noise.bmp")) == Noise(100'000)) << stops;
    }
    EXPECT_GT(stops, 50);
    EXPECT_EQ(FormsFolder(), QStringList(QStringLiteral("form.aff")));
}

}  // namespace
}  // namespace sheetwright
