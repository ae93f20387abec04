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
    EXPECT_EQ(KeepImportedFile(*m_document, "A\r\n1\r\n"), m_document->MyTempDir + S("import1.csv"));
    EXPECT_EQ(KeepImportedFile(*m_document, "B\r\n"), m_document->MyTempDir + S("import2.csv"));
    EXPECT_EQ(KeepImportedFile(*m_document, "C\r\n"), m_document->MyTempDir + S("import3.csv"));
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import1.csv"))), "A\r\n1\r\n");
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import3.csv"))), "C\r\n");
    QFile::remove(Path(Temporary(S("import2.csv"))));
    EXPECT_EQ(KeepImportedFile(*m_document, "D\r\n"), m_document->MyTempDir + S("import2.csv"));
    EXPECT_EQ(PageOnScreenTest::ApplicationTest::Read(Temporary(S("import2.csv"))), "D\r\n");
}

TEST_F(ImportFiles, FormWithoutAFolderKeepsNoCopy) {
    frmSheetwright document(*m_application);
    EXPECT_EQ(KeepImportedFile(document, "A\r\n"), QString());
    document.MyTempDir = Path(S("not there/x/"));
    QDir(document.MyTempDir).removeRecursively();
    EXPECT_EQ(KeepImportedFile(document, "A\r\n"), QString());
    EXPECT_FALSE(QFileInfo::exists(document.MyTempDir));
    document.MyTempDir.clear();
}

TEST_F(ImportFiles, FileThatIsNotThereCantBeRead) {
    EXPECT_EQ(FailureOf([&] { (void)ImportedFile(Path(S("no.csv"))).Bytes(); }), 53);
}

TEST_F(ImportFiles, FileIsReadOnce) {
    ImportedFile file(Write(S("a.csv"), "A\r\n1\r\n"));
    EXPECT_EQ(file.Bytes(), "A\r\n1\r\n");
    Write(S("a.csv"), "A\r\n1\r\n2\r\n");
    EXPECT_EQ(file.Bytes(), "A\r\n1\r\n");
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
