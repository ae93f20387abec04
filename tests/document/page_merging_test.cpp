#include "document/page_merging.h"

#include "core/paths.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "document/form_writer.h"
#include "document/page_data.h"
#include "document/zip_builder.h"
#include "support/form_text.h"
#include "support/page_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>

#include <map>

namespace sheetwright {
namespace {

constexpr std::uint16_t kEncrypted = 1;

FormText OwnForm() {
    FormText form;
    form.Page(S("Cover")).Field(S("a")).Picture(S("logo.bmp"));
    return form;
}

FormText OneDesign() {
    FormText form;
    form.Page(S("Sheet")).Field(S("x")).Formula(S("y"), S("SETME(1)"));
    return form;
}

FormText TwoDesigns() {
    FormText form = OneDesign();
    form.Page(S("Back")).Field(S("x"));
    return form;
}

class Merging : public ApplicationTest {
  protected:
    Merging() {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->mainWindow = &m_mainWindow;
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        m_application->LoadPaperTable();
        m_document = std::make_unique<frmSheetwright>(*m_application);
        m_document->Tag = WriteArchive(S("forms/form.aff"), OwnForm(), {{"logo.bmp", "own logo"}});
        UnpackAndRead(*m_document);
        m_document->window = &m_window;
        UsePageOnScreen(*m_document);
        LoadPage(*m_document);
        m_ui.messages.clear();
        m_ui.pointers.clear();
    }

    QString WriteArchive(const QString& name, FormText form,
                         const std::vector<BuiltMember>& pictures = {}) const {
        std::vector<BuiltMember> members{{"text" + name.right(4).toUtf8(), form.Bytes(), true}};
        members.insert(members.end(), pictures.begin(), pictures.end());
        return Write(name, BuildZip(members));
    }
    [[nodiscard]] QStringList Titles() const {
        QStringList titles;
        for (const auto& entry : m_document->memory.PageProps.Entries())
            titles << entry.item;
        return titles;
    }
    // Names and contents.
    [[nodiscard]] std::map<QString, QByteArray> Files() const {
        std::map<QString, QByteArray> files;
        const QDir folder(OnDisk(m_document->MyTempDir));
        for (const QString& name : folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            files[name] = QFileInfo(folder.filePath(name)).isFile() ? ReadWholeFile(folder.filePath(name))
                                                                    : QByteArray("a folder");
        return files;
    }
    [[nodiscard]] QStringList Design(int page) const { return TextsOf(m_document->memory.DesignPage(page)); }
    MergeResult Merge(const QString& path) { return MergeTemplate(*m_document, path); }

    // A merge that must not happen: neither form nor files change.
    template <typename Step>
    void ExpectUntouched(Step&& step) {
        const QStringList design = Design(1);
        const std::map<QString, QByteArray> files = Files();
        const QString tag = m_document->Tag;
        const QString folder = m_document->MyTempDir;
        step();
        EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
        EXPECT_EQ(Design(1), design);
        EXPECT_EQ(Titles(), QStringList{S("Cover")});
        EXPECT_EQ(m_document->memory.FormulasOf(2).Count(), 0);
        EXPECT_EQ(m_document->Pages, 1);
        EXPECT_EQ(m_document->PageNum, 1);
        EXPECT_EQ(m_document->DataPageNum, 1);
        EXPECT_EQ(Files(), files);
        EXPECT_EQ(m_document->Tag, tag);
        EXPECT_EQ(m_document->MyTempDir, folder);
        EXPECT_EQ(m_document->Caption, S("form.aff"));
        EXPECT_FALSE(m_document->Changed);
        EXPECT_EQ(m_document->Busy, 0);
        EXPECT_EQ(m_ui.pointer, Pointer::Normal);
        EXPECT_FALSE(m_ui.progressShown);
    }
    void ExpectFailure(const QString& path, int number) {
        ExpectUntouched([&] { EXPECT_EQ(FailureOf([&] { (void)Merge(path); }), number); });
    }

    RecordingMainWindow m_mainWindow;
    RecordingWindow m_window;
    std::unique_ptr<frmSheetwright> m_document;
};

TEST_F(Merging, AddsTheDesignsBehindTheFormsOwn) {
    const QString tag = m_document->Tag;
    const MergeResult merged = Merge(WriteArchive(S("more.aft"), TwoDesigns().Data(1, {S("x=theirs")})));
    EXPECT_EQ(merged.added, 2);
    EXPECT_EQ(merged.design, 2);
    EXPECT_EQ(Titles(), (QStringList{S("Cover"), S("Sheet"), S("Back")}));
    EXPECT_EQ(Design(3).value(0), S("BEGIN PAGE 3"));
    EXPECT_TRUE(m_document->memory.FormulasOf(2).Contains(u"y"));
    EXPECT_EQ(m_document->Pages, 1) << "no data page comes with it";
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(m_document->Tag, tag);
    EXPECT_EQ(m_document->Caption, S("form.aff"));
    EXPECT_TRUE(m_document->Changed) << "it has more designs than its file";
    EXPECT_EQ(m_ui.messages.size(), 0U);
    EXPECT_EQ(m_ui.pointers.front(), Pointer::Hourglass);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(Merging, PlainTextTemplatesAreMergedToo) {
    const MergeResult merged = Merge(Write(S("more.aft"), OneDesign().Bytes()));
    EXPECT_EQ(merged.added, 1);
    EXPECT_EQ(Titles(), (QStringList{S("Cover"), S("Sheet")}));
}

TEST_F(Merging, ATemplateOfTheSameNameLeavesTheFormsTextAlone) {
    const std::map<QString, QByteArray> files = Files();
    ASSERT_TRUE(files.contains(S("form.aff")));
    EXPECT_EQ(Merge(WriteArchive(S("other/form.aff"), OneDesign())).added, 1);
    EXPECT_EQ(Files(), files);
}

TEST_F(Merging, PicturesComeAlong) {
    EXPECT_EQ(Merge(WriteArchive(S("more.aft"), OneDesign(), {{"stamp.bmp", "stamp"}})).added, 1);
    EXPECT_EQ(Files().at(S("stamp.bmp")), "stamp");
    EXPECT_EQ(Files().at(S("logo.bmp")), "own logo");
}

// One pixel.
const QByteArray kBitmap = QByteArray::fromHex(
    "424d3a00000000000000360000002800000001000000010000000100180000000000040000000000000000000000000000000000"
    "0000"
    "0000ff00");

TEST_F(Merging, PicturesBesideATemplateComeAlong) {
    Write(S("stamp.bmp"), kBitmap);
    Write(S("scan.bmp"), kBitmap);
    FormText text;
    text.Page(S("Sheet"), {S("PrePrinted=scan.bmp|100|0|0|0|0")})
        .Picture(S("stamp.bmp"))
        .Picture(S("gone.bmp"));
    EXPECT_EQ(Merge(Write(S("more.aft"), text.Bytes())).added, 1);
    EXPECT_EQ(Files().at(S("stamp.bmp")), kBitmap);
    EXPECT_EQ(Files().at(S("scan.bmp")), kBitmap);
    EXPECT_FALSE(Files().contains(S("gone.bmp")));
}

TEST_F(Merging, APictureBesideATemplateGetsANewNameToo) {
    Write(S("logo.bmp"), kBitmap);
    FormText text = OneDesign().Picture(S("logo.bmp"));
    EXPECT_EQ(Merge(Write(S("more.aft"), text.Bytes())).added, 1);
    EXPECT_EQ(Files().at(S("logo.bmp")), "own logo");
    EXPECT_EQ(Files().at(S("logo_2.bmp")), kBitmap);
    EXPECT_TRUE(Design(2).contains(S("Picture=logo_2.bmp")));
}

TEST_F(Merging, OnlyPicturesAreTakenFromBesideATemplate) {
    Write(S("secret.txt"), "secret");
    FormText text = OneDesign().Picture(S("secret.txt"));
    EXPECT_EQ(Merge(Write(S("more.aft"), text.Bytes())).added, 1);
    EXPECT_FALSE(Files().contains(S("secret.txt")));
}

TEST_F(Merging, APictureThatTheFormHasIsShared) {
    const std::map<QString, QByteArray> files = Files();
    const QString path =
        WriteArchive(S("more.aft"), OneDesign().Picture(S("LOGO.BMP")), {{"LOGO.BMP", "own logo"}});
    EXPECT_EQ(Merge(path).added, 1);
    EXPECT_EQ(Files(), files);
    EXPECT_TRUE(Design(2).contains(S("Picture=LOGO.BMP")));
}

TEST_F(Merging, AnotherPictureOfTheSameNameGetsANewOne) {
    const QString path = WriteArchive(S("more.aft"),
                                      OneDesign()
                                          .Picture(S("C:\\Pictures\\Logo.bmp"))
                                          .Picture(S("logo_2.bmp"))
                                          .Line(S("PrePrinted=logo.bmp|300|0|0|0|0")),
                                      {{"LOGO.bmp", "their logo"}, {"logo_2.bmp", "second"}});
    EXPECT_EQ(Merge(path).added, 1);
    const std::map<QString, QByteArray> files = Files();
    EXPECT_EQ(files.at(S("logo.bmp")), "own logo");
    EXPECT_EQ(files.at(S("LOGO_3.bmp")), "their logo");
    EXPECT_EQ(files.at(S("logo_2.bmp")), "second");
    EXPECT_FALSE(files.contains(S("LOGO.bmp"))) << "an archive couldn't tell them apart";
    EXPECT_TRUE(Design(2).contains(S("Picture=C:\\Pictures\\LOGO_3.bmp")));
    EXPECT_TRUE(Design(2).contains(S("Picture=logo_2.bmp")));
    EXPECT_TRUE(Design(2).contains(S("PrePrinted=LOGO_3.bmp|300|0|0|0|0")));
    EXPECT_TRUE(Design(1).contains(S("Picture=logo.bmp")));
}

TEST_F(Merging, TheCompanyLogoOfTheFormStays) {
    m_application->settings.Write(S("Tolvane Quillon Form Designer"), S("frmPrefs"), S("CompanyLogo"),
                                  Write(S("company.bmp"), "company"));
    EXPECT_EQ(Merge(WriteArchive(S("more.aft"), OneDesign().Picture(S("companylogo.bmp")),
                                 {{"companylogo.bmp", "placeholder"}}))
                  .added,
              1);
    EXPECT_EQ(Files().at(S("newcompanylogo.bmp")), "company");
    EXPECT_TRUE(Design(2).contains(S("Picture=newcompanylogo.bmp")));
}

TEST_F(Merging, TheMergedFormCanBeSavedAndOpened) {
    EXPECT_EQ(Merge(WriteArchive(S("more.aft"), OneDesign().Picture(S("logo.bmp")), {{"logo.bmp", "theirs"}}))
                  .added,
              1);
    EXPECT_TRUE(SaveForm(*m_document));
    EXPECT_EQ(ArchiveMembers(m_document->Tag), (QStringList{S("form.aff"), S("logo.bmp"), S("logo_2.bmp")}));
    frmSheetwright again(*m_application);
    OpenDocument(again, m_document->Tag);
    EXPECT_EQ(again.memory.DesignPageCount(), 2);
    EXPECT_TRUE(TextsOf(again.memory.DesignPage(2)).contains(S("Picture=logo_2.bmp")));
}

TEST_F(Merging, NumbersThatAreLeftOutAreNoDesigns) {
    const MergeResult merged =
        Merge(Write(S("more.aft"), "VERSION 1.0.0\nBEGIN DESIGN\nBEGIN PAGE 3\nTitle=T\nEND PAGE\n"));
    EXPECT_EQ(merged.added, 1);
    EXPECT_EQ(merged.design, 4);
}

TEST_F(Merging, AMissingTemplateIsAFailure) {
    ExpectFailure(Path(S("gone.aft")), 53);
    ExpectFailure(Path(S("no/")) + S("such/folder.aft"), 76);
    ExpectFailure(Path(S("folder.aft/.")).chopped(2), 75);
}

TEST_F(Merging, ACorruptArchiveIsTold) {
    const QByteArray whole = BuildZip({{"text.aft", OneDesign().Bytes(), true}});
    for (const QByteArray& bytes : {QByteArray(), QByteArray("rubbish"), whole.first(whole.size() / 2)}) {
        m_ui.messages.clear();
        const QString path = Write(S("more.aft"), bytes);
        ExpectUntouched([&] { EXPECT_EQ(Merge(path).added, 0); });
        ASSERT_EQ(m_ui.messages.size(), 2U);
        EXPECT_TRUE(m_ui.messages[0].text.startsWith(S("Error code ")));
        EXPECT_EQ(m_ui.messages[1].text, S("Error: File Missing"));
    }
}

TEST_F(Merging, HostileMembersAreTold) {
    const QByteArray text = OneDesign().Bytes();
    const std::vector<std::vector<BuiltMember>> hostile{
        {{"text.aft", text}, {"a.bmp", "1"}, {"A.BMP", "2"}},
        {{"text.aft", text}, {"../escape.bmp", "1"}},
        {{"text.aft", text, false, kEncrypted}},
        {{"text.aft", text}, {"more.aff", text}},
        {{"text.aft", text, true, 0, 0, 0, std::nullopt, 12345U}},
    };
    for (const auto& members : hostile) {
        m_ui.messages.clear();
        const QString path = Write(S("more.aft"), BuildZip(members));
        ExpectUntouched([&] { EXPECT_EQ(Merge(path).added, 0); });
        EXPECT_TRUE(m_ui.MessageTexts().value(0).startsWith(S("Error code ")));
    }
    EXPECT_FALSE(FileExists(m_document->MyTempDir + S("../escape.bmp")));
}

TEST_F(Merging, AnArchiveWithoutTextIsTold) {
    const QString path = Write(S("more.aft"), BuildZip({{"a.bmp", "1"}}));
    ExpectUntouched([&] { EXPECT_EQ(Merge(path).added, 0); });
    EXPECT_EQ(m_ui.MessageTexts(), QStringList{S("Error: File Missing")});
}

TEST_F(Merging, ATemplateWithoutDesignsIsAFailure) {
    ExpectFailure(Write(S("a.aft"), BuildZip({{"text.aft", ""}})), 62);
    ExpectFailure(Write(S("b.aft"), "VERSION 1.0.0\r\nBEGIN DESIGN\r\nEND DESIGN\r\n"), 62);
    ExpectFailure(Write(S("c.aft"), BuildZip({{"text.aft", "VERSION 1.0.0\r\n"}, {"a.bmp", "1"}})), 62);
}

TEST_F(Merging, TwoTitlesOfAPageAreAFailureAndNoPictureStays) {
    ExpectFailure(WriteArchive(S("more.aft"), OneDesign().Line(S("Title=Again")), {{"a.bmp", "1"}}), 457);
}

TEST_F(Merging, TwoFieldsOfOneNameAreAFailure) {
    ExpectFailure(WriteArchive(S("more.aft"), OneDesign().Formula(S("Y"), S("SETME(2)"))), 457);
}

TEST_F(Merging, DesignsPast32767AreAFailure) {
    ExpectFailure(Write(S("a.aft"),
                        "VERSION 1.0.0\nBEGIN DESIGN\nBEGIN PAGE 1\nEND PAGE\nBEGIN PAGE 32767\nEND PAGE\n"),
                  6);
    ExpectFailure(Write(S("b.aft"), "VERSION 1.0.0\nBEGIN DESIGN\nBEGIN PAGE 99999\nEND PAGE\n"), 6);
}

TEST_F(Merging, AFormTakesNoMoreFilesThanItsArchiveMayHold) {
    const QDir folder(OnDisk(m_document->MyTempDir));
    const auto countOf = [&] { return folder.entryList(QDir::Files).size(); };
    const QString own = folder.filePath(S("logo.bmp"));
    for (int number = static_cast<int>(countOf()); number < archive_limits::kMembers - 1; ++number)
        ASSERT_TRUE(QFile::link(own, folder.filePath(S("%1.bmp").arg(number))));
    const QString path = WriteArchive(S("more.aft"), OneDesign(), {{"a.bmp", "1"}, {"b.bmp", "2"}});
    EXPECT_EQ(FailureOf([&] { (void)Merge(path); }), 67);
    EXPECT_EQ(countOf(), archive_limits::kMembers - 1);
    EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
    ASSERT_TRUE(QFile::remove(folder.filePath(S("9000.bmp"))));
    EXPECT_EQ(Merge(path).added, 1) << "just as many";
}

TEST_F(Merging, WhenThePicturesCantBeTakenNothingIs) {
    const QString blocked = OnDisk(m_document->MyTempDir) + S("b.bmp");
    ASSERT_TRUE(QDir().mkpath(blocked + S("/full")));
    ExpectFailure(WriteArchive(S("more.aft"), OneDesign(), {{"a.bmp", "1"}, {"b.bmp", "2"}}), 75);
    QDir(blocked).removeRecursively();
}

TEST_F(Merging, ALogoThatIsGoneIsAFailure) {
    m_application->settings.Write(S("Tolvane Quillon Form Designer"), S("frmPrefs"), S("CompanyLogo"),
                                  Path(S("gone.bmp")));
    ExpectFailure(WriteArchive(S("more.aft"), OneDesign().Picture(S("companylogo.bmp")), {{"a.bmp", "1"}}),
                  53);
}

TEST_F(Merging, ADocumentWithoutPagesTakesNothing) {
    frmSheetwright empty(*m_application);
    EXPECT_EQ(FailureOf([&] { (void)MergeTemplate(empty, WriteArchive(S("more.aft"), OneDesign())); }), 5);
}

TEST_F(Merging, ADocumentWithoutItsFolderTakesNothing) {
    const QString folder = std::exchange(m_document->MyTempDir, QString());
    EXPECT_EQ(FailureOf([&] { (void)Merge(WriteArchive(S("more.aft"), OneDesign())); }), 75);
    m_document->MyTempDir = folder;
    EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
}

TEST_F(Merging, OneDesignIsPlacedAtOnce) {
    EXPECT_TRUE(
        GetPages(*m_document, WriteArchive(S("more.aft"), OneDesign()), Placement::AtEnd, std::int16_t{1}));
    EXPECT_EQ(m_document->Pages, 2);
    EXPECT_EQ(m_document->DataPageNum, 2);
    EXPECT_EQ(m_document->memory.DataPage(2).Line(1), u"BEGIN PAGE 2 DESIGN=2");
    EXPECT_EQ(m_document->PageNum, 2) << "and shows";
}

TEST_F(Merging, OneDesignWithoutAPlaceWaits) {
    EXPECT_FALSE(
        GetPages(*m_document, WriteArchive(S("more.aft"), OneDesign()), Placement::Before, std::nullopt));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList{S("Page number required")});
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_EQ(Titles(), (QStringList{S("Cover"), S("Sheet")})) << "cancelling keeps the merged design";
}

TEST_F(Merging, OfSeveralDesignsThePersonPicksOne) {
    EXPECT_FALSE(
        GetPages(*m_document, WriteArchive(S("more.aft"), TwoDesigns()), Placement::AtEnd, std::int16_t{1}));
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_EQ(m_document->memory.DesignPageCount(), 3);
    EXPECT_EQ(m_ui.messages.size(), 0U);
}

TEST_F(Merging, TheSameTemplateTwiceGivesItsDesignsTwice) {
    const QString path = WriteArchive(S("more.aft"), OneDesign(), {{"stamp.bmp", "stamp"}});
    EXPECT_EQ(Merge(path).design, 2);
    EXPECT_EQ(Merge(path).design, 3);
    EXPECT_EQ(Titles(), (QStringList{S("Cover"), S("Sheet"), S("Sheet")}));
    EXPECT_EQ(Files().size(), 3U);
}

}  // namespace
}  // namespace sheetwright
