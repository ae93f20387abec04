#include "fields/entry_test.h"

namespace sheetwright {

namespace {

class EntryPicture : public EntryTest {
  protected:
    EntryPicture() { m_entry.SetFieldType(6); }
};

TEST_F(EntryPicture, FullPathEndsAsABareNameAndTheFileIsCopied) {
    WritePicture(S("elsewhere/red.png"));
    m_entry.SetValue(Path(S("elsewhere/red.png")));
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_EQ(Read(S("temporary/red.png")), Read(S("elsewhere/red.png")));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
    EXPECT_EQ(m_entry.cboCombo().Text(), S("red.png"));
}

TEST_F(EntryPicture, BackslashesSeparateToo) {
    WritePicture(S("elsewhere/red.png"));
    m_entry.SetValue(m_folder.path() + S("\\elsewhere\\red.png"));
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_TRUE(FileExists(Path(S("temporary/red.png"))));
}

TEST_F(EntryPicture, BareNameIsLookedForInTheFolderOfTheForm) {
    WritePicture(S("forms/red.png"));
    m_entry.SetValue(S("red.png"));
    EXPECT_TRUE(FileExists(Path(S("temporary/red.png"))));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, FileInTheTemporaryFolderComesFirst) {
    WritePicture(S("forms/red.png"), 20, 10);
    WritePicture(S("temporary/red.png"), 40, 10);
    m_entry.SetValue(S("red.png"));
    EXPECT_EQ(m_entry.picPicture().Image().image.width(), 40);
}

TEST_F(EntryPicture, FileAlreadyThereIsNotCopiedOntoItself) {
    WritePicture(S("temporary/red.png"));
    m_entry.SetValue(Path(S("temporary/red.png")));
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, MissingFileShowsAnEmptyPictureAndKeepsTheText) {
    WritePicture(S("temporary/red.png"));
    for (const char* name : {"none.png", "", "C:\\pictures\\none.png", "..", "/"}) {
        m_entry.SetValue(S("red.png"));
        m_entry.SetValue(S(name));
        EXPECT_EQ(m_entry.Value(), S(name));
        EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty()) << name;
        EXPECT_EQ(m_entry.picPicture().Shown(), Extent()) << name;
    }
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_TRUE(ErrorRows().empty());
}

TEST_F(EntryPicture, FileThatIsNoPictureShowsNothing) {
    WritePicture(S("temporary/red.png"));
    Write(S("temporary/words.bmp"), "only words");
    m_entry.SetValue(S("red.png"));
    m_entry.SetValue(S("words.bmp"));
    EXPECT_EQ(m_entry.Value(), S("words.bmp"));
    EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, NothingIsCopiedWithoutATemporaryFolder) {
    m_application->CurrentTempDir.clear();
    WritePicture(S("elsewhere/red.png"));
    m_entry.SetValue(Path(S("elsewhere/red.png")));
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, PictureKeepsItsShapeInTheBox) {
    WritePicture(S("temporary/red.png"), 20, 10);
    m_entry.Resize(1000, 1000);
    m_entry.SetValue(S("red.png"));
    EXPECT_EQ(m_entry.picPicture().Shown(), (Extent{0, 250, 1000, 500}));
    m_entry.Resize(3000, 600);
    EXPECT_EQ(m_entry.picPicture().Shown(), (Extent{900, 0, 1200, 600}));
    m_entry.Resize(3000, 0);
    EXPECT_EQ(m_entry.picPicture().Shown(), Extent());
}

TEST_F(EntryPicture, SpaceAndDoubleClickOpenTheDialog) {
    m_entry.ReportKeyPress(13);
    EXPECT_TRUE(m_ui.fileDialogs.empty());
    m_entry.ReportKeyPress(32);
    m_entry.ReportDoubleClick();
    ASSERT_EQ(m_ui.fileDialogs.size(), 2U);
    const FileDialog& dialog = m_ui.fileDialogs.front();
    EXPECT_EQ(dialog.title, S("Open"));
    EXPECT_EQ(dialog.defaultExtension, S("bmp"));
    EXPECT_EQ(dialog.filter,
              S("Bitmaps (*.bmp;*.dib)|*.bmp;*.dib|JPEG/JFIF Compliant (*.jpg;*.jif)|*.jpg;*.jif|"
                "Icons (*.ico)|*.ico|Metafiles (*.wmf)|*.wmf"));
    EXPECT_EQ(dialog.filterIndex, 1);
    EXPECT_EQ(dialog.initialFolder, QString());
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryPicture, ChosenFileBecomesTheValueAndIsRemembered) {
    WritePicture(S("elsewhere/red.png"));
    int repaints = 0;
    m_entry.Repaint = [&] { ++repaints; };
    m_ui.onFileDialog = [this](FileDialog& dialog) {
        dialog.fileName = Path(S("elsewhere/red.png"));
        dialog.filterIndex = 3;
    };
    m_entry.ChoosePicture();
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_EQ(repaints, 1);
    const auto remembered = [this](const char* key) {
        return m_application->settings.Read(m_application->Title, S("imgfield"), S(key));
    };
    EXPECT_EQ(remembered("FilterIndex"), S("3"));
    EXPECT_EQ(remembered("Initdir"), Path(S("elsewhere/")));
    m_entry.ChoosePicture();
    EXPECT_EQ(m_ui.fileDialogs.back().filterIndex, 3);
    EXPECT_EQ(m_ui.fileDialogs.back().initialFolder, Path(S("elsewhere/")));
}

TEST_F(EntryPicture, CancelChangesNothing) {
    WritePicture(S("temporary/red.png"));
    m_entry.SetValue(S("red.png"));
    m_entry.ChoosePicture();
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
    EXPECT_EQ(m_application->settings.Read(m_application->Title, S("imgfield"), S("FilterIndex")), QString());
}

TEST_F(EntryPicture, OtherFailuresOfTheDialogAreRaised) {
    m_ui.onFileDialog = [](FileDialog&) { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { m_entry.ChoosePicture(); }), failure::kOutOfMemory);
}

TEST_F(EntryPicture, RememberedFilterOutOfRangeIsBroughtIntoIt) {
    for (const auto& [stored, index] : {std::pair("99", 4), std::pair("-1", 1), std::pair("x", 1)}) {
        m_application->settings.Write(m_application->Title, S("imgfield"), S("FilterIndex"), S(stored));
        m_entry.ChoosePicture();
        EXPECT_EQ(m_ui.fileDialogs.back().filterIndex, index) << stored;
    }
}

}  // namespace

}  // namespace sheetwright
