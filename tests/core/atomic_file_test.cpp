#include "core/atomic_file.h"

#include "support/test_application.h"

#include <QFileInfo>

namespace sheetwright {
namespace {

using AtomicFileTest = ApplicationTest;

TEST_F(AtomicFileTest, LettingGoLeavesTheOldFile) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    {
        const AtomicFile file(path, QStringLiteral(".new"));
        file.Beside().Write("new");
        EXPECT_EQ(file.BesidePath(), path + QStringLiteral(".new"));
        EXPECT_TRUE(QFileInfo::exists(file.BesidePath()));
    }
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "old");
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".new")));
}

TEST_F(AtomicFileTest, ReplacePutsTheNewFileInPlace) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    {
        AtomicFile file(path, QStringLiteral(".new"));
        file.Beside().Write("new");
        file.Beside().Flush();
        EXPECT_EQ(Read(QStringLiteral("a.txt")), "old");
        file.Replace();
    }
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "new");
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".new")));
}

TEST_F(AtomicFileTest, SecondWriterIsRefusedWhileTheFirstIsAtWork) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    AtomicFile first(path, QStringLiteral(".new"));
    first.Beside().Write("first");
    EXPECT_EQ(FailureOf([&] { AtomicFile(path, QStringLiteral(".new")); }), failure::kPermissionDenied);
    first.Replace();
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "first");
    EXPECT_EQ(FailureOf([&] { AtomicFile(path, QStringLiteral(".new")); }), std::nullopt);
}

TEST_F(AtomicFileTest, ForeignFileIsNeitherPutInPlaceNorRemoved) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    {
        AtomicFile file(path, QStringLiteral(".new"));
        QFile::remove(file.BesidePath());
        Write(QStringLiteral("a.txt.new"), "foreign");
        EXPECT_EQ(FailureOf([&] { file.Replace(); }), failure::kPermissionDenied);
    }
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "old");
    EXPECT_EQ(Read(QStringLiteral("a.txt.new")), "foreign");
}

TEST_F(AtomicFileTest, FileOfAnotherCaseIsTheSameFile) {
    Write(QStringLiteral("Form.AFF"), "old");
    AtomicFile file(m_folder.filePath(QStringLiteral("form.aff")), QStringLiteral(" 2"));
    EXPECT_EQ(file.BesidePath(), m_folder.filePath(QStringLiteral("Form.AFF 2")));
}

TEST_F(AtomicFileTest, NewFileNeverOpensWhatIsThere) {
    const QString path = Write(QStringLiteral("a.txt"), "old");
    EXPECT_EQ(FailureOf([&] { NewFile{path}; }), failure::kPathAccess);
    EXPECT_EQ(FailureOf([&] { NewFile{m_folder.filePath(QStringLiteral("no/a.txt"))}; }),
              failure::kPathNotFound);
    EXPECT_EQ(Read(QStringLiteral("a.txt")), "old");
}

TEST_F(AtomicFileTest, DevicesAreNotReplaced) {
    const QString link = Path(QStringLiteral("full"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), link));
    EXPECT_EQ(FailureOf([&] { AtomicFile(link, QStringLiteral(".new")); }), failure::kPathAccess);
}

}  // namespace
}  // namespace sheetwright
