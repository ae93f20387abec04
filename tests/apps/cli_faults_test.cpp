// The command line where the system says no: no room, no rights, other processes, and the end in the middle
// of work. A form is always the old one or the new one, and nothing else is left behind.

#include "apps/cli_test.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/short_text.h"

#include <QDirIterator>
#include <QFileInfo>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace sheetwright {

namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

FormText OneField() {
    FormText form;
    form.Page(S("Cover")).Field(S("A"));
    return form;
}

// A form whose recalculation takes a while, so that there is a middle of the work.
QByteArray LongWork(int pages) {
    FormText form;
    form.Page(S("Cover"))
        .Formula(S("B"), S("SETME(") + S("ADD(1,").repeated(300) + S("1") + S(")").repeated(301))
        .Field(S("A"));
    for (int page = 0; page < pages; ++page)
        form.Data(1, {S("A=1"), S("B=1")});
    return form.Bytes();
}

}  // namespace

class CliFaults : public CliTest {
  protected:
    using Restriction = std::function<void()>;

    [[nodiscard]] CliResult RunWith(const Restriction& restriction, const QStringList& arguments) const {
        QProcess process;
        Prepare(process, arguments, S("C.UTF-8"));
        process.setChildProcessModifier(restriction);
        process.start();
        return ResultOf(process);
    }

    // As if the disk were full at this size of a file.
    [[nodiscard]] static Restriction FilesUpTo(rlim_t bytes) {
        return [bytes] {
            const rlimit limit{bytes, RLIM_INFINITY};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        };
    }

    // Without the rights of an administrator, who may write anywhere.
    [[nodiscard]] CliResult RunAsNobody(const QStringList& arguments) const {
        const QString program = Path(S("sheetwright-cli"));
        QFile::copy(S(SHEETWRIGHT_BIN_DIR "/sheetwright-cli"), program);
        ::chmod(Path(S(".")).toLocal8Bit().constData(), 0755);
        ::chmod(Path(S("tmp")).toLocal8Bit().constData(), 0777);
        QProcess process;
        Prepare(process, arguments, S("C.UTF-8"));
        process.setProgram(program);
        process.setChildProcessModifier([] {
            constexpr unsigned kNobody = 65534;
            if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) ::_exit(99);
        });
        process.start();
        return ResultOf(process);
    }

    // Starts a call and returns when it has the form before it.
    void StartAndAwaitWork(QProcess& process, const QStringList& arguments) const {
        Prepare(process, arguments, S("C.UTF-8"));
        process.start();
        ASSERT_TRUE(process.waitForStarted());
        const auto isUnpacked = [&] {
            QDirIterator files(Path(S("tmp")), {S("a.aff")}, QDir::Files, QDirIterator::Subdirectories);
            return files.hasNext();
        };
        while (!isUnpacked() && process.state() == QProcess::Running)
            process.waitForReadyRead(1);
    }

    [[nodiscard]] std::string ValueOfA(const QString& form) const {
        const std::string out = Run({S("values"), form}).out;
        const std::size_t start = out.find("\t") == std::string::npos ? 0 : out.find("1\tCover\tA\t");
        return out.substr(start, out.find('\n', start) - start);
    }

    [[nodiscard]] QStringList FilesIn(const QString& folder) const {
        return QDir(Path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(CliFaults, AFolderThatIsReadOnlyCanNotBeSavedInto) {
    const QByteArray text = OneField().Bytes();
    QDir(Path(S("."))).mkdir(S("forms"));
    Write(S("forms/a.aff"), text);
    const QByteArray folder = Path(S("forms")).toLocal8Bit();
    ::chmod(folder.constData(), 0555);
    for (const char* target : {"forms/a.aff", "forms/b.aff"}) {
        const CliResult result = RunAsNobody({S("fill"), S("forms/a.aff"), S("--save"), S(target)});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "error: Error code 75\n");
    }
    ::chmod(folder.constData(), 0755);
    EXPECT_EQ(Read(S("forms/a.aff")), text);
    EXPECT_EQ(FilesIn(S("forms")), QStringList(S("a.aff")));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliFaults, AFormWithoutReadPermissionCanNotBeOpened) {
    Write(S("a.aff"), OneField().Bytes());
    QFile::setPermissions(Path(S("a.aff")), QFile::Permissions());
    EXPECT_THAT(RunAsNobody({S("info"), S("a.aff")}).err, StartsWith("error: Unable to open file: "));
}

TEST_F(CliFaults, AFullDiskLeavesTheOldForm) {
    Write(S("a.aff"), OneField().Data(1, {S("A=1")}).Bytes());
    Write(S("companion.aff"), "not to be touched");
    const QByteArray old = Read(S("a.aff"));
    for (const rlim_t bytes : {0, 1, 100, 400}) {
        const CliResult result = RunWith(
            FilesUpTo(bytes), {S("fill"), S("a.aff"), S("--set"), S("1:A=2"), S("--save"), S("a.aff")});
        EXPECT_EQ(result.status, 1) << bytes;
        EXPECT_THAT(result.err, HasSubstr("61")) << bytes;
        EXPECT_EQ(Read(S("a.aff")), old) << bytes;
        EXPECT_EQ(FilesIn(S(".")), QStringList({S("a.aff"), S("companion.aff")})) << bytes;
        EXPECT_EQ(LeftOvers(), QStringList()) << bytes;
    }
}

TEST_F(CliFaults, ADiskThatIsFullForTheArchiveOnly) {
    QByteArray noise(30'000, '\0');
    std::uint32_t number = 1;
    for (char& byte : noise)
        byte = static_cast<char>((number = number * 1664525U + 1013904223U) >> 24);
    BuiltMember text;
    text.name = "a.aff";
    text.data = OneField().Data(1, {S("A=1")}).Bytes();
    BuiltMember picture;
    picture.name = "noise.bmp";
    picture.data = noise;
    Write(S("a.aff"), BuildZip({text, picture}));
    const QByteArray old = Read(S("a.aff"));
    const CliResult result =
        RunWith(FilesUpTo(30'050), {S("fill"), S("a.aff"), S("--set"), S("1:A=2"), S("--save"), S("a.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: Error code 61\n");
    EXPECT_EQ(Read(S("a.aff")), old);
    EXPECT_EQ(FilesIn(S(".")), QStringList(S("a.aff")));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliFaults, OneFormThatCanNotBeReadDoesNotHideTheOthersFindings) {
    Write(S("a.aff"), OneField().Data(1, {QString(20'000, u'x')}).Bytes());
    Write(S("b.aff"), OneField().Data(1, {S("B=1")}).Bytes());
    const CliResult result = RunWith(FilesUpTo(10'000), {S("check"), S("a.aff"), S("b.aff")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "b.aff: data 1: B: design page 1 has no element of that name\n");
    EXPECT_EQ(result.err, "error: 61: Disk full (a.aff)\n");
}

TEST_F(CliFaults, SeveralCallsMaySaveTheSameForm) {
    Write(S("a.aff"), OneField().Data(1, {S("A=old")}).Bytes());
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < 12; ++number) {
        processes.push_back(std::make_unique<QProcess>());
        Prepare(*processes.back(), {S("fill"), S("a.aff"), S("--set"), S("1:A=new"), S("--save"), S("a.aff")},
                S("C.UTF-8"));
        processes.back()->start();
    }
    int saved = 0;
    for (const auto& process : processes) {
        const CliResult result = ResultOf(*process);
        EXPECT_THAT(result.out + result.err, AnyOf("saved a.aff\n", "error: Error code 70\n"));
        if (result.status == 0) ++saved;
    }
    EXPECT_GE(saved, 1);
    EXPECT_EQ(ValueOfA(S("a.aff")), "1\tCover\tA\tnew");
    EXPECT_EQ(FilesIn(S(".")), QStringList(S("a.aff")));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliFaults, WhatAKilledCallLeavesGoesWithTheNext) {
    const QByteArray form = LongWork(20'000);
    Write(S("a.aff"), form);
    Write(S("b.aff"), OneField().Bytes());
    QProcess process;
    StartAndAwaitWork(process, {S("fill"), S("a.aff"), S("--save"), S("a.aff")});
    EXPECT_EQ(LeftOvers().size(), 1);
    EXPECT_EQ(Run({S("info"), S("b.aff")}).status, 0);
    EXPECT_EQ(LeftOvers().size(), 1) << "a call that lives keeps its folder";

    process.kill();
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(Read(S("a.aff")), form);
    EXPECT_EQ(LeftOvers().size(), 1);
    EXPECT_EQ(Run({S("info"), S("b.aff")}).status, 0);
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliFaults, FoldersOfOthersInTheTemporaryFolderStay) {
    Write(S("b.aff"), OneField().Bytes());
    QDir(Path(S("tmp"))).mkpath(S("sheetwright-backup/TEMP"));
    EXPECT_EQ(Run({S("info"), S("b.aff")}).status, 0);
    EXPECT_EQ(LeftOvers(), QStringList(S("sheetwright-backup")));
}

TEST_F(CliFaults, WhatAKilledSaveLeftBesideTheFormGoesWithTheNext) {
    Write(S("a.aff"), OneField().Data(1, {S("A=1")}).Bytes());
    Write(S("a.aff 2"), "PK half an archive");
    EXPECT_EQ(Run({S("fill"), S("a.aff"), S("--set"), S("1:A=2"), S("--save"), S("a.aff")}).status, 0);
    EXPECT_EQ(ValueOfA(S("a.aff")), "1\tCover\tA\t2");
    EXPECT_EQ(FilesIn(S(".")), QStringList(S("a.aff")));
}

TEST_F(CliFaults, AFormThatTurnsReadOnlyMeanwhileStaysAsItWas) {
    const QByteArray form = LongWork(2'000);
    Write(S("a.aff"), form);
    QProcess process;
    StartAndAwaitWork(process, {S("fill"), S("a.aff"), S("--save"), S("a.aff")});
    QFile::setPermissions(Path(S("a.aff")), QFile::ReadOwner);
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: Error code 75\n");
    EXPECT_EQ(Read(S("a.aff")), form);
    EXPECT_EQ(FilesIn(S(".")), QStringList(S("a.aff")));
}

TEST_F(CliFaults, AFormThatVanishesMeanwhileIsSavedAnew) {
    Write(S("a.aff"), LongWork(2'000));
    QProcess process;
    StartAndAwaitWork(process, {S("fill"), S("a.aff"), S("--set"), S("1:A=2"), S("--save"), S("a.aff")});
    QFile::remove(Path(S("a.aff")));
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(ValueOfA(S("a.aff")), "1\tCover\tA\t2");
}

TEST_F(CliFaults, AFormWhoseUnpackedTextVanishesIsNotSaved) {
    const QByteArray form = LongWork(2'000);
    Write(S("a.aff"), form);
    QProcess process;
    StartAndAwaitWork(process, {S("fill"), S("a.aff"), S("--save"), S("a.aff")});
    QDir(Path(S("tmp"))).removeRecursively();
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith("error: "));
    EXPECT_EQ(Read(S("a.aff")), form);
    EXPECT_EQ(FilesIn(S(".")), QStringList(S("a.aff")));
}

}  // namespace sheetwright
