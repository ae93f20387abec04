#include "core/paths.h"

#include "support/test_application.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

#include <cerrno>

namespace sheetwright {
namespace {

class PathsTest : public ApplicationTest {
  protected:
    QStringList Files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(PathsTest, FileNameStandsBehindTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(GetFileName(QStringLiteral("C:\\Forms/a\\b.aff")), QStringLiteral("b.aff"));
    EXPECT_EQ(GetFileName(QStringLiteral("/forms\\a/b.aff")), QStringLiteral("b.aff"));
    EXPECT_EQ(GetFileName(QStringLiteral("b.aff")), QStringLiteral("b.aff"));
    EXPECT_EQ(GetFileName(QStringLiteral("folder/")), QString());
    EXPECT_EQ(GetFileName(QString()), QString());
}

TEST_F(PathsTest, OnlyTheLastExtensionIsDropped) {
    EXPECT_EQ(GetFileName(QStringLiteral("a/b.c.aff"), true), QStringLiteral("b.c"));
    EXPECT_EQ(GetFileName(QStringLiteral("a.b/c"), true), QStringLiteral("c"));
    EXPECT_EQ(GetFileName(QStringLiteral(".aff"), true), QString());
}

TEST_F(PathsTest, FolderKeepsItsSeparator) {
    EXPECT_EQ(GetFolder(QStringLiteral("C:\\Forms\\b.aff")), QStringLiteral("C:\\Forms\\"));
    EXPECT_EQ(GetFolder(QStringLiteral("/b.aff")), QStringLiteral("/"));
    EXPECT_EQ(GetFolder(QStringLiteral("b.aff")), QString());
}

TEST_F(PathsTest, TrailingSeparatorIsOfThePathsOwnKind) {
    EXPECT_EQ(WithTrailingSeparator(QStringLiteral("/forms")), QStringLiteral("/forms/"));
    EXPECT_EQ(WithTrailingSeparator(QStringLiteral("C:\\forms")), QStringLiteral("C:\\forms\\"));
    EXPECT_EQ(WithTrailingSeparator(QStringLiteral("C:\\forms\\")), QStringLiteral("C:\\forms\\"));
    EXPECT_EQ(WithTrailingSeparator(QStringLiteral("forms/")), QStringLiteral("forms/"));
}

TEST_F(PathsTest, NoFolderIsNotTheRootOfTheDisk) {
    EXPECT_EQ(WithTrailingSeparator(QString()), QString());
}

TEST_F(PathsTest, StoredNamesAreFoundIgnoringCaseFolderByFolder) {
    const QString path = Write(QStringLiteral("Forms/2024/Bill.AFF"), "x");
    EXPECT_EQ(OnDisk(m_folder.path() + QStringLiteral("\\FORMS\\2024\\bill.aff")), path);
    EXPECT_TRUE(FileExists(m_folder.path() + QStringLiteral("/forms/2024/BILL.aff")));
}

TEST_F(PathsTest, ExactNameWinsOverOneInAnotherCase) {
    Write(QStringLiteral("A.txt"), "1");
    const QString exact = Write(QStringLiteral("a.txt"), "2");
    EXPECT_EQ(OnDisk(exact), exact);
}

TEST_F(PathsTest, WhatIsNowhereKeepsItsNameSoThatItCanBeMade) {
    const QString folder = QFileInfo(Write(QStringLiteral("Forms/x"), "")).path();
    EXPECT_EQ(OnDisk(m_folder.path() + QStringLiteral("\\forms\\New Folder\\b.aff")),
              folder + QStringLiteral("/New Folder/b.aff"));
    EXPECT_EQ(OnDisk(QString()), QString());
}

TEST_F(PathsTest, FoldersAreNoFiles) {
    Write(QStringLiteral("Forms/x"), "");
    EXPECT_FALSE(FileExists(m_folder.filePath(QStringLiteral("Forms"))));
    EXPECT_FALSE(FileExists(QString()));
}

TEST_F(PathsTest, HiddenFilesExist) {
    EXPECT_TRUE(FileExists(Write(QStringLiteral(".hidden"), "")));
}

TEST_F(PathsTest, ReadingTellsWhatIsMissing) {
    const auto failureOf = [this](const QString& name) {
        return FailureOf([&] { static_cast<void>(ReadWholeFile(m_folder.filePath(name))); });
    };
    QDir(m_folder.path()).mkdir(QStringLiteral("folder"));
    EXPECT_EQ(failureOf(QStringLiteral("none.txt")), failure::kFileNotFound);
    EXPECT_EQ(failureOf(QStringLiteral("none/none.txt")), failure::kPathNotFound);
    EXPECT_EQ(failureOf(QStringLiteral("folder")), failure::kPathAccess);
}

TEST_F(PathsTest, PipesAndDevicesAreNotRead) {
    const QString pipe = Path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ReadWholeFile(pipe)); }), failure::kPathAccess);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ReadWholeFile(QStringLiteral("/dev/zero"))); }),
              failure::kPathAccess);
}

TEST_F(PathsTest, WrittenFileIsReadBack) {
    const QString path = m_folder.filePath(QStringLiteral("a.txt"));
    WriteFileAtomically(path, "first");
    WriteFileAtomically(path, "second");
    EXPECT_EQ(ReadWholeFile(path), "second");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("a.txt")));
}

TEST_F(PathsTest, WritingKeepsPermissionsAndLinks) {
    const QString real = Write(QStringLiteral("real.txt"), "old");
    ASSERT_EQ(::chmod(real.toLocal8Bit().constData(), 0640), 0);
    const QString link = Path(QStringLiteral("link.txt"));
    ASSERT_TRUE(QFile::link(QStringLiteral("real.txt"), link));
    WriteFileAtomically(link, "new");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(Read(QStringLiteral("real.txt")), "new");
    struct stat status {};
    ASSERT_EQ(::stat(real.toLocal8Bit().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(PathsTest, ReadOnlyFileIsNotReplaced) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    ASSERT_EQ(::chmod(path.toLocal8Bit().constData(), 0444), 0);
    EXPECT_EQ(FailureOf([&] { WriteFileAtomically(path, "new"); }), failure::kPathAccess);
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "old");
    EXPECT_EQ(Files(), QStringList(QStringLiteral("a.txt")));
}

TEST_F(PathsTest, WritingIntoNowhereTellsThePath) {
    const QString nowhere = m_folder.filePath(QStringLiteral("none/a.txt"));
    EXPECT_EQ(FailureOf([&] { WriteFileAtomically(nowhere, "x"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([&] { WriteFileAtomically(m_folder.path(), "x"); }), failure::kPathAccess);
}

TEST_F(PathsTest, ReplaceRenamesOverTheOldFile) {
    const QString from = Write(QStringLiteral("new"), "new");
    const QString to = Write(QStringLiteral("old"), "old");
    ReplaceFile(from, to);
    EXPECT_EQ(Files(), QStringList(QStringLiteral("old")));
    EXPECT_EQ(Read(QStringLiteral("old")), "new");
    EXPECT_EQ(FailureOf([&] { ReplaceFile(from, to); }), failure::kFileNotFound);
}

TEST_F(PathsTest, FlushOfWhatIsNotThereFails) {
    EXPECT_EQ(FailureOf([this] { FlushToDisk(m_folder.filePath(QStringLiteral("none"))); }),
              failure::kDeviceError);
    EXPECT_EQ(FailureOf([this] { FlushToDisk(m_folder.path()); }), std::nullopt);
}

TEST_F(PathsTest, SystemErrorsHaveFailureNumbers) {
    EXPECT_EQ(FailureNumberOfErrno(ENOSPC), 61);
    EXPECT_EQ(FailureNumberOfErrno(ENOENT), 53);
    EXPECT_EQ(FailureNumberOfErrno(ENOTDIR), 76);
    EXPECT_EQ(FailureNumberOfErrno(EACCES), 70);
    EXPECT_EQ(FailureNumberOfErrno(EROFS), 75);
    EXPECT_EQ(FailureNumberOfErrno(ENAMETOOLONG), 52);
    EXPECT_EQ(FailureNumberOfErrno(0), 57);
}

}  // namespace
}  // namespace sheetwright
