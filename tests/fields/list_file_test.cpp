#include "fields/list_file.h"

#include "support/short_text.h"
#include "support/test_application.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <sys/resource.h>

#include <csignal>

namespace sheetwright {

namespace {

class ListFileTest : public ApplicationTest {
  protected:
    static void Type(ListFile& file, int row, int column, const char* text) {
        ListTable& table = file.Table();
        ListRow changed = table.WithTexts(table.Row(row), {{column, S(text)}});
        table.SwapRow(row, changed);
    }
    static void SetColumn(ListFile& file, int column, const char* name, const char* type) {
        file.Table().SetColumn(column, {file.Table().Column(column).key, S(name), S(type)});
    }
    // Later than the file was opened, as a disk's clock tells.
    void ChangeBehindItsBack(const QString& name, const QByteArray& bytes) const {
        QFile file(Write(name, bytes));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFile::FileModificationTime));
    }
};

class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(ListFileTest, ReadsTheTypesBesideTheList) {
    Write(S("a.inf"), "[born]\r\nDataType=DATE\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "Name,Born\r\nAda,18151210\r\n"));
    EXPECT_EQ(file.Table().Column(0).type, S("TEXT"));
    EXPECT_EQ(file.Table().Column(1).type, S("DATE"));
}

TEST_F(ListFileTest, WhatIsNoPlainFileRaises) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ListFile::Open(Path(S("none.csv")))); }), 53);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ListFile::Open(m_folder.filePath(S("no/a.csv")))); }), 76);
    QDir(m_folder.path()).mkdir(S("folder.csv"));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ListFile::Open(m_folder.filePath(S("folder.csv")))); }), 75);
}

TEST_F(ListFileTest, SavesCellsAndLeavesTheTypesAlone) {
    const QByteArray inf = "[B]\nDataType=number\nWidth=3";
    Write(S("a.inf"), inf);
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    Type(file, 0, 0, "x");
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.csv")), "A,B\nx,2\n");
    EXPECT_EQ(Read(S("a.inf")), inf);
}

TEST_F(ListFileTest, NoTypesMakeNoCompanion) {
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    SetColumn(file, 0, "C", "TEXT");
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.csv")), "C,B\n1,2\n");
    EXPECT_FALSE(QFile::exists(Path(S("a.inf"))));
}

TEST_F(ListFileTest, NewTypesGoIntoTheCompanion) {
    Write(S("a.inf"), "[other]\r\nKey=1\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    SetColumn(file, 1, "B", "NUMBER");
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.csv")), "A,B\n1,2\n");
    EXPECT_EQ(Read(S("a.inf")), "[other]\r\nKey=1\r\n[B]\r\nDataType=NUMBER\r\n");
}

TEST_F(ListFileTest, RenamedColumnKeepsItsTypeUnderItsNewName) {
    Write(S("a.inf"), "[A]\r\nDataType=DATE\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    SetColumn(file, 0, "When", "DATE");
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.inf")), "[When]\r\nDataType=DATE\r\n");
    EXPECT_EQ(ListFile::Open(Path(S("a.csv"))).Table().Column(0).type, S("DATE"));
}

TEST_F(ListFileTest, ListThatCannotBeWrittenKeepsItsTypes) {
    Write(S("a.inf"), "[A]\r\nDataType=DATE\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    file.Table().RemoveColumn(0);
    SetColumn(file, 0, "A", "NUMBER");
    QFile::setPermissions(Path(S("a.csv")), QFile::ReadOwner);
    EXPECT_EQ(FailureOf([&] { file.Save(file.Path()); }), 75);
    EXPECT_EQ(Read(S("a.csv")), "A,B\n1,2\n");
    EXPECT_EQ(Read(S("a.inf")), "[A]\r\nDataType=DATE\r\n");
    QFile::setPermissions(Path(S("a.csv")), QFile::ReadOwner | QFile::WriteOwner);
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.csv")), "A\n2\n");
    EXPECT_EQ(Read(S("a.inf")), "[A]\r\nDataType=NUMBER\r\n");
}

// A column takes the name of one that went. The companion is written before the list too; the disk is full
// for what follows.
TEST_F(ListFileTest, CompanionThatCannotFollowTheListGivesNoTypeToAnotherColumn) {
    Write(S("a.inf"), "[A]\r\nDataType=DATE\r\n[C]\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B,C\n1,2,3\n"));
    file.Table().RemoveColumn(0);
    SetColumn(file, 0, "A", "NUMBER");
    SetColumn(file, 1, "C", "BOOLEAN");
    {
        const FileSizeLimit limit(30);
        EXPECT_EQ(FailureOf([&] { file.Save(file.Path()); }), 61);
    }
    EXPECT_EQ(Read(S("a.csv")), "A,C\n2,3\n");
    EXPECT_EQ(Read(S("a.inf")), "[A]\r\nDataType=TEXT\r\n[C]\r\n");
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.inf")), "[C]\r\nDataType=BOOLEAN\r\n[A]\r\nDataType=NUMBER\r\n");
}

TEST_F(ListFileTest, CompanionThatCannotBeWrittenIsToldAndTriedAgain) {
    Write(S("a.inf"), "[A]\r\nDataType=DATE\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    SetColumn(file, 1, "B", "NUMBER");
    QFile::setPermissions(Path(S("a.inf")), QFile::ReadOwner);
    EXPECT_EQ(FailureOf([&] { file.Save(file.Path()); }), 75);
    EXPECT_FALSE(file.IsChangedOnDisk());
    QFile::setPermissions(Path(S("a.inf")), QFile::ReadOwner | QFile::WriteOwner);
    file.Save(file.Path());
    EXPECT_EQ(Read(S("a.inf")), "[A]\r\nDataType=DATE\r\n[B]\r\nDataType=NUMBER\r\n");
}

TEST_F(ListFileTest, FullDiskKeepsTheOldList) {
    QByteArray bytes = "A\n";
    for (int row = 0; row < 1000; ++row)
        bytes += "row " + QByteArray::number(row) + "\n";
    ListFile file = ListFile::Open(Write(S("a.csv"), bytes));
    Type(file, 0, 0, "changed");
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(FailureOf([&] { file.Save(file.Path()); }), 61);
    }
    EXPECT_EQ(Read(S("a.csv")), bytes);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList(S("a.csv")));
    file.Save(file.Path());
    EXPECT_TRUE(Read(S("a.csv")).startsWith("A\nchanged\nrow 1\n"));
}

TEST_F(ListFileTest, KnowsWhenAnotherProgramWroteToItsFile) {
    ListFile file = ListFile::Open(Write(S("a.csv"), "A\n1\n"));
    EXPECT_FALSE(file.IsChangedOnDisk());
    ChangeBehindItsBack(S("a.csv"), "A\n2\n");
    EXPECT_TRUE(file.IsChangedOnDisk());
    file.Save(file.Path());
    EXPECT_FALSE(file.IsChangedOnDisk());
    QFile::remove(Path(S("a.csv")));
    EXPECT_FALSE(file.IsChangedOnDisk()) << "there is nothing to lose";
}

TEST_F(ListFileTest, MovedListTakesItsCompanionAlong) {
    Write(S("a.inf"), "; mine\r\n[A]\r\nDataType=DATE\r\nWidth=3\r\n");
    Write(S("b.inf"), "[B]\r\nDataType=BOOLEAN\r\n");
    ListFile file = ListFile::Open(Write(S("a.csv"), "A,B\n1,2\n"));
    file.Save(Path(S("b.csv")));
    EXPECT_EQ(file.Path(), Path(S("b.csv")));
    EXPECT_EQ(Read(S("b.csv")), "A,B\n1,2\n");
    EXPECT_EQ(Read(S("b.inf")), "; mine\r\n[A]\r\nDataType=DATE\r\nWidth=3\r\n");
    EXPECT_EQ(Read(S("a.csv")), "A,B\n1,2\n");
}

TEST_F(ListFileTest, NewListIsNotGivenTheTypesOfTheOneItReplaces) {
    Write(S("b.inf"), "[Name]\r\nDataType=BOOLEAN\r\n");
    ListFile file(S("Name"));
    Type(file, 0, 0, "x");
    file.Save(Path(S("b.csv")));
    EXPECT_EQ(Read(S("b.csv")), "Name\r\nx\r\n");
    EXPECT_EQ(Read(S("b.inf")), "[Name]\r\nDataType=TEXT\r\n");
}

}  // namespace

}  // namespace sheetwright
