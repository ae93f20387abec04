#include "import/import_files.h"

#include "document/page_on_screen_test.h"

#include <QFile>
#include <QFileInfo>

namespace sheetwright {
namespace {

class ImportFiles : public PageOnScreenTest {
  protected:
    void ShowTwoDesigns() {
        FormText form;
        Show(form.Page(S("Details")).Field(S("a")).Page(S("Tests")).Field(S("b")).Data(1, {}));
    }
    [[nodiscard]] QString Temporary(const QString& name) const { return S("temporary/") + name; }
    [[nodiscard]] QString CompanionTitle(const QByteArray& pairs) const {
        Write(Temporary(S("linkedpages.txt")), pairs);
        const std::optional<Companion> companion = CompanionOfPage(*m_document);
        return companion ? S("%1 %2").arg(companion->design).arg(companion->title) : QString();
    }
};

TEST_F(ImportFiles, DriversFolderIsToldFromDriversOn) {
    Write(S("x/DRIVERS/Meter 5/DRIVER.INF"), "");
    EXPECT_EQ(GetRelativePath(Path(S("x/DRIVERS/Meter 5/Data/a.csv"))), S("DRIVERS/Meter 5"));
    EXPECT_EQ(GetRelativePath(Path(S("x/DRIVERS/Meter 5/a.csv"))), S("DRIVERS/Meter 5"));
    EXPECT_EQ(GetRelativePath(Path(S("x/DRIVERS/Meter 5/1/2/3/a.csv"))), S("DRIVERS/Meter 5"));
}

TEST_F(ImportFiles, NearestMarkerAndFirstDriversCount) {
    Write(S("DRIVERS/a/DRIVER.INF"), "");
    Write(S("DRIVERS/a/DRIVERS/b/DRIVER.INF"), "");
    EXPECT_EQ(GetRelativePath(Path(S("DRIVERS/a/DRIVERS/b/Data/x.csv"))), S("DRIVERS/a/DRIVERS/b"));
}

TEST_F(ImportFiles, DriversIsFoundInAnyCaseAndToldAsWritten) {
    Write(S("drivers/meter/driver.inf"), "");
    EXPECT_EQ(GetRelativePath(Path(S("drivers/meter/x.csv"))), S("drivers/meter"));
    const QString stored = Path(S("drivers/meter/x.csv")).replace(u'/', u'\\');
    EXPECT_EQ(GetRelativePath(stored), S("drivers\\meter"));
}

TEST_F(ImportFiles, FolderWithoutDriversIsToldWhole) {
    Write(S("plain/DRIVER.INF"), "");
    QString folder = Path(S("plain/x"));
    folder.chop(2);
    EXPECT_EQ(GetRelativePath(Path(S("plain/x.csv"))), folder);
    Write(S("y/DRIVERS/DRIVER.INF"), "");
    folder = Path(S("y/DRIVERS/x"));
    folder.chop(2);
    EXPECT_EQ(GetRelativePath(Path(S("y/DRIVERS/x.csv"))), folder) << "no separator behind it";
}

TEST_F(ImportFiles, PathWithoutAMarkerStaysAsItIs) {
    for (const QString& path :
         {Path(S("DRIVERS/meter/x.csv")), S("x.csv"), S("/x.csv"), S("C:\\x.csv"), S("")})
        EXPECT_EQ(GetRelativePath(path), path);
}

TEST_F(ImportFiles, FileIsKeptUnderTheFirstFreeNumber) {
    ShowTwoDesigns();
    KeepImportedFile(*m_document, Write(S("a.csv"), "A\r\n1\r\n"));
    KeepImportedFile(*m_document, Write(S("a.csv"), "B\r\n"));
    KeepImportedFile(*m_document, Write(S("a.csv"), "C\r\n"));
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import1.csv"))), "A\r\n1\r\n");
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import3.csv"))), "C\r\n");
    QFile::remove(Path(Temporary(S("import2.csv"))));
    KeepImportedFile(*m_document, Write(S("a.csv"), "D\r\n"));
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import2.csv"))), "D\r\n");
}

TEST_F(ImportFiles, FormWithoutAFolderKeepsNoCopy) {
    frmSheetwright document(*m_application);
    const QString path = Write(S("a.csv"), "A\r\n");
    KeepImportedFile(document, path);
    document.MyTempDir = Path(S("not there/x/"));
    QDir(document.MyTempDir).removeRecursively();
    KeepImportedFile(document, path);
    EXPECT_FALSE(QFileInfo::exists(document.MyTempDir));
    document.MyTempDir.clear();
}

TEST_F(ImportFiles, FileThatIsNotThereCantBeKept) {
    ShowTwoDesigns();
    EXPECT_EQ(FailureOf([&] { KeepImportedFile(*m_document, Path(S("no.csv"))); }), 53);
    EXPECT_FALSE(QFileInfo::exists(Path(Temporary(S("import1.csv")))));
}

TEST_F(ImportFiles, FirstLineWithThePagesTitleNamesTheCompanion) {
    ShowTwoDesigns();
    EXPECT_FALSE(HasLinkedPages(*m_document));
    EXPECT_EQ(CompanionTitle("Other|x\r\nDetails|Tests|more\r\nDetails|Details\r\n"), S("2 Tests"));
    EXPECT_TRUE(HasLinkedPages(*m_document));
    EXPECT_EQ(CompanionTitle("Details|Details"), S("1 Details"));
}

TEST_F(ImportFiles, CompanionIsNoneForAnyOtherTitle) {
    ShowTwoDesigns();
    EXPECT_EQ(CompanionTitle("details|Tests\r\n"), QString()) << "case counts";
    EXPECT_EQ(CompanionTitle("Details|tests\r\nDetails|Tests\r\n"), QString()) << "reading stops there";
    EXPECT_EQ(CompanionTitle("Details\r\n"), QString());
    EXPECT_EQ(CompanionTitle(""), QString());
    EXPECT_EQ(CompanionTitle("|\r\n\r\n"), QString());
}

}  // namespace
}  // namespace sheetwright
