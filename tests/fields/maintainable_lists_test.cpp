#include "fields/maintainable_lists.h"

#include "core/folders.h"
#include "core/paths.h"
#include "document/document.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QDir>
#include <QDirIterator>

namespace sheetwright {
namespace {

class InstallingLists : public ApplicationTest {
  protected:
    InstallingLists() : m_document(*m_application) {
        SetListFolder(*m_application, Path(S("mine/")));
        m_document.MyTempDir = Path(S("TEMP/1/"));
        AddDesignLine(S("List=@LISTS\\towns,Town"));
    }

    void AddDesignLine(const QString& line, std::int16_t page = 1) {
        m_document.memory.AppendFormDesign(page, line);
    }
    // A list that the form has brought, by its stored name.
    void Bring(const QString& name, const QByteArray& table = "Town\r\nBern\r\n") const {
        Write(S("TEMP/1/") + name + S(".csv"), table);
    }
    void Install(const QByteArray& index) const {
        Write(S("TEMP/1/ListIndex.txt"), index);
        SheetwrightLoadLists(m_document);
    }
    // All files in the user's list folder and below.
    [[nodiscard]] QStringList Installed() const { return FilesBelow(S("mine")); }
    [[nodiscard]] QStringList FilesBelow(const QString& folder) const {
        QStringList files;
        QDirIterator walk(m_folder.filePath(folder), QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (walk.hasNext())
            files << QDir(m_folder.filePath(folder)).relativeFilePath(walk.next());
        files.sort();
        return files;
    }

    frmSheetwright m_document;
};

TEST_F(InstallingLists, AFormsListComesIntoTheListFolder) {
    Bring(S("17"), "Town,Code\r\nBern,7\r\n");
    Write(S("TEMP/1/17.inf"), "[Code]\r\nDataType=NUMBER\r\n");
    Install("17,towns\r\n");
    EXPECT_EQ(Installed(), (QStringList{S("LISTS/towns.csv"), S("LISTS/towns.inf")}));
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), "Town,Code\r\nBern,7\r\n");
    EXPECT_EQ(Read(S("mine/LISTS/towns.inf")), "[Code]\r\nDataType=NUMBER\r\n");
    EXPECT_EQ(Read(S("TEMP/1/17.csv")), "Town,Code\r\nBern,7\r\n") << "the form keeps its own";
}

TEST_F(InstallingLists, AUsersChangedListKeepsPriorityOverTheFormsCopy) {
    Write(S("mine/LISTS/towns.csv"), "Town\r\nUlm\r\n");
    Write(S("mine/LISTS/towns.inf"), "mine");
    Bring(S("17"));
    Write(S("TEMP/1/17.inf"), "the form's");
    Install("17,towns");
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), "Town\r\nUlm\r\n");
    EXPECT_EQ(Read(S("mine/LISTS/towns.inf")), "mine");
}

TEST_F(InstallingLists, AnInstalledListStaysWhenItsFormIsOpenedAgain) {
    Bring(S("17"));
    Install("17,towns");
    Write(S("mine/LISTS/towns.csv"), "Town\r\nUlm\r\n");
    SheetwrightLoadLists(m_document);
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), "Town\r\nUlm\r\n");
}

TEST_F(InstallingLists, TheTypesAreOptional) {
    Bring(S("17"));
    Install("17,towns");
    EXPECT_EQ(Installed(), QStringList{S("LISTS/towns.csv")});
}

TEST_F(InstallingLists, AllLinesAreInstalledWhateverTheDesignNames) {
    Bring(S("1"));
    Bring(S("2"));
    Install("1,one\r\n2,two\r\n");
    EXPECT_EQ(Installed(), (QStringList{S("LISTS/one.csv"), S("LISTS/two.csv")}));
}

TEST_F(InstallingLists, FoldersOfAListAreMade) {
    Bring(S("1"));
    Bring(S("2"));
    Install("1,north\\west\\towns\n2,south/towns\n");
    EXPECT_EQ(Installed(), (QStringList{S("LISTS/north/west/towns.csv"), S("LISTS/south/towns.csv")}));
}

TEST_F(InstallingLists, ThePathIsWhatStandsBehindTheFirstComma) {
    Bring(S("1"));
    Install("1,a,b");
    EXPECT_EQ(Installed(), QStringList{S("LISTS/a,b.csv")});
}

TEST_F(InstallingLists, ALineWithoutACommaIsSkipped) {
    Bring(S("1"));
    Bring(S("towns"));
    Install("\r\ntowns\r\n1,one");
    EXPECT_EQ(Installed(), QStringList{S("LISTS/one.csv")});
}

TEST_F(InstallingLists, NothingIsInstalledWithoutAnIndex) {
    Bring(S("towns"));
    SheetwrightLoadLists(m_document);
    EXPECT_EQ(Installed(), QStringList());
    EXPECT_FALSE(QDir(m_folder.filePath(S("mine/LISTS"))).exists());
}

TEST_F(InstallingLists, NothingIsInstalledWithoutAnUnpackedFolder) {
    Bring(S("1"));
    Write(S("TEMP/1/ListIndex.txt"), "1,towns");
    m_document.MyTempDir.clear();
    SheetwrightLoadLists(m_document);
    EXPECT_EQ(Installed(), QStringList());
    m_document.MyTempDir = Path(S("TEMP/1/")) + S("gone/");
    SheetwrightLoadLists(m_document);
    EXPECT_EQ(Installed(), QStringList());
}

TEST_F(InstallingLists, AFormWhoseFieldsTakeNoItemsFromListsInstallsNone) {
    frmSheetwright other(*m_application);
    for (const char* line : {"List=A,B", "List=@towns,Town", "List=@lists\\towns,Town", "Caption=LISTS\\"})
        other.memory.AppendFormDesign(1, S(line));
    other.MyTempDir = m_document.MyTempDir;
    Bring(S("1"));
    Write(S("TEMP/1/ListIndex.txt"), "1,towns");
    SheetwrightLoadLists(other);
    EXPECT_EQ(Installed(), QStringList());
    other.memory.AppendFormDesign(3, S("Anything else, List=@LISTS\\ in it"));
    SheetwrightLoadLists(other);
    EXPECT_EQ(Installed(), QStringList{S("LISTS/towns.csv")}) << "at any place of any page";
}

TEST_F(InstallingLists, BothSeparatorsLeadToTheLists) {
    frmSheetwright other(*m_application);
    other.memory.AppendFormDesign(1, S("List=@LISTS/towns,Town"));
    other.MyTempDir = m_document.MyTempDir;
    Bring(S("1"));
    Write(S("TEMP/1/ListIndex.txt"), "1,towns");
    SheetwrightLoadLists(other);
    EXPECT_EQ(Installed(), QStringList{S("LISTS/towns.csv")});
}

TEST_F(InstallingLists, AListWhoseCopyFailsStaysAbsentWithoutAMessage) {
    Bring(S("2"));
    Bring(S("3"));
    Bring(S("4"));
    Write(S("mine/LISTS/folder.csv/in the way"), "");
    Write(S("mine/LISTS/file"), "");
    Write(S("TEMP/1/9.inf"), "types of nothing");
    Install("9,gone\r\n2,folder\r\n3,file\\towns\r\n4,last");
    EXPECT_EQ(Installed(),
              (QStringList{S("LISTS/file"), S("LISTS/folder.csv/in the way"), S("LISTS/last.csv")}));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_EQ(ErrorRows().size(), 0U);
}

TEST_F(InstallingLists, TypesWhoseCopyFailsDoNotKeepTheListAway) {
    Write(S("mine/LISTS/towns.inf/in the way"), "");
    Bring(S("17"));
    Write(S("TEMP/1/17.inf"), "types");
    Install("17,towns");
    EXPECT_EQ(Installed(), (QStringList{S("LISTS/towns.csv"), S("LISTS/towns.inf/in the way")}));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(InstallingLists, AFolderIsMadeAlsoForAListThatTheFormLacks) {
    Install("gone,north\\towns");
    EXPECT_EQ(Installed(), QStringList());
    EXPECT_TRUE(QDir(m_folder.filePath(S("mine/LISTS/north"))).exists());
}

TEST_F(InstallingLists, CaseDoesNotCountOnTheDisk) {
    Write(S("mine/Lists/North/Towns.csv"), "Town\r\nUlm\r\n");
    Bring(S("Stored"));
    Write(S("TEMP/1/STORED.INF"), "types");
    Write(S("TEMP/1/LISTINDEX.TXT"), "stored,NORTH\\towns\r\nstored,north\\villages");
    SheetwrightLoadLists(m_document);
    EXPECT_EQ(Installed(), (QStringList{S("Lists/North/Towns.csv"), S("Lists/North/villages.csv"),
                                        S("Lists/North/villages.inf")}));
}

TEST_F(InstallingLists, NoListLeavesTheListFolder) {
    Bring(S("1"));
    const QStringList before = FilesBelow(S("."));
    for (const char* path : {"..\\x", "../x", "..\\..\\x", "a\\..\\..\\..\\x", "a/../../x", "a\\../x", "\\x",
                             "/x", "C:\\x", "x:y", "..", ".", "", "\\", "a\\", ".. \\x", "...\\x"}) {
        Install(QByteArray("1,") + path);
        EXPECT_EQ(Installed(), QStringList()) << path;
    }
    QFile::remove(m_folder.filePath(S("TEMP/1/ListIndex.txt")));
    EXPECT_EQ(FilesBelow(S(".")), before);
}

TEST_F(InstallingLists, NoFileOutsideTheFormIsTakenForAList) {
    Write(S("secret.csv"), "secret");
    Write(S("TEMP/secret.csv"), "secret");
    Write(S("TEMP/1/below/secret.csv"), "secret");
    for (const char* name :
         {"..\\secret", "../secret", "..\\..\\secret", "below\\secret", "below/secret", ""}) {
        Install(QByteArray(name) + ",towns");
        EXPECT_EQ(Installed(), QStringList()) << name;
    }
    Install(m_folder.filePath(S("secret")).toUtf8() + ",towns");
    EXPECT_EQ(Installed(), QStringList());
}

TEST_F(InstallingLists, AnAbsurdIndexInstallsNothing) {
    Bring(S("1"));
    Install("1,towns\r\n" + QByteArray(1024 * 1024, 'x'));
    EXPECT_EQ(Installed(), QStringList());
}

TEST_F(InstallingLists, AFormBringsAThousandListsAtMost) {
    Bring(S("1"));
    Install(QByteArray("gone,towns\r\n").repeated(999) + "1,last\r\n1,beyond");
    EXPECT_EQ(Installed(), QStringList{S("LISTS/last.csv")});
}

TEST_F(InstallingLists, ALongPathTakesNoTime) {
    Bring(S("1"));
    Install("1," + QByteArray("a\\").repeated(500'000) + "x");
    EXPECT_EQ(Installed(), QStringList());
}

TEST_F(InstallingLists, AListLargerThanAStepOfTheCopyArrivesWhole) {
    const QByteArray table = "Town\r\n" + QByteArray("Bern\r\n").repeated(100'000);
    Bring(S("1"), table);
    Install("1,towns");
    EXPECT_EQ(Read(S("mine/LISTS/towns.csv")), table);
    EXPECT_EQ(Installed().size(), 1);
}

}  // namespace
}  // namespace sheetwright
