#include "ui/template_list.h"

#include "core/failure.h"
#include "dialog_test.h"
#include "support/test_application.h"

#include <QDir>

namespace sheetwright {
namespace {

class TemplateListTest : public ApplicationTest {
  protected:
    TemplateListTest() : m_list(*m_application, nullptr) {
        for (const char* name :
             {"t/b.aft", "t/A.AFT", "t/c.aff", "t/aft", "t/sub/d.aft", "t/Empty.aft/x.txt"})
            Write(S(name), "x");
        m_list.Chosen = [this](const QString& path) { m_chosen << path; };
        m_list.resize(300, 300);
        ShowActive(m_list);
    }

    TemplateList m_list;
    QStringList m_chosen;
};

TEST_F(TemplateListTest, FoldersComeFirstThenTemplatesByName) {
    EXPECT_TRUE(m_list.UpdateNewList(Path(S("t"))));
    EXPECT_EQ(RowsOf(m_list), (QStringList{S(".."), S("Empty.aft"), S("sub"), S("A.AFT"), S("b.aft")}));
    EXPECT_EQ(m_list.item(0)->toolTip(), S("Up One Level"));
    EXPECT_TRUE(m_list.selectedItems().isEmpty());
}

TEST_F(TemplateListTest, ADoubleClickOnATemplateTellsItsPath) {
    m_list.UpdateNewList(Path(S("t/")));
    DoubleClick(m_list, 4);
    EXPECT_EQ(m_chosen, QStringList{Path(S("t/b.aft"))});
}

TEST_F(TemplateListTest, ADoubleClickOnAFolderOpensIt) {
    m_list.UpdateNewList(Path(S("t")));
    DoubleClick(m_list, 1);
    EXPECT_EQ(RowsOf(m_list), QStringList{S("..")}) << "a folder, whatever its name ends in";
    DoubleClick(m_list, 0);
    DoubleClick(m_list, 2);
    EXPECT_EQ(RowsOf(m_list), (QStringList{S(".."), S("d.aft")}));
    EXPECT_EQ(m_chosen, QStringList());
}

TEST_F(TemplateListTest, EnterOpensWhatIsSelected) {
    m_list.UpdateNewList(Path(S("t")));
    QTest::keyClick(&m_list, Qt::Key_Return);
    EXPECT_EQ(m_list.count(), 5) << "nothing is selected";
    m_list.setCurrentRow(2);
    QTest::keyClick(&m_list, Qt::Key_Return);
    EXPECT_EQ(m_list.currentRow(), 0) << "the first row of the folder";
    QTest::keyClick(&m_list, Qt::Key_Down);
    QTest::keyClick(&m_list, Qt::Key_Enter);
    EXPECT_EQ(m_chosen, QStringList{Path(S("t/sub/d.aft"))});
}

TEST_F(TemplateListTest, TheRootOfTheDiskHasNoFolderAbove) {
    EXPECT_TRUE(m_list.UpdateNewList(QDir::rootPath()));
    EXPECT_FALSE(RowsOf(m_list).contains(S("..")));
}

TEST_F(TemplateListTest, InsteadOfAMissingDataFolderTheOneAboveShows) {
    for (const char* folder : {"t/DATA/", "t\\data\\", "t/Data"}) {
        m_list.clear();
        EXPECT_TRUE(m_list.UpdateNewList(m_folder.filePath(S(folder)))) << folder;
        EXPECT_EQ(m_list.count(), 5) << folder;
    }
    EXPECT_FALSE(m_list.UpdateNewList(m_folder.filePath(S("t/MYDATA/"))));
}

TEST_F(TemplateListTest, AFolderThatIsGoneIsToldAndTheListStays) {
    m_list.UpdateNewList(Path(S("t")));
    QDir(Path(S("t/sub"))).removeRecursively();
    DoubleClick(m_list, 2);
    EXPECT_EQ(m_ui.messages,
              (std::vector{ShownMessage{S("Path not found"), m_application->Title, MessageIcon::Critical}}));
    EXPECT_EQ(m_list.count(), 5);
}

}  // namespace
}  // namespace sheetwright
