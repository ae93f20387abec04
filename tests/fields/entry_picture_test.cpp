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

TEST_F(EntryPicture, TextIsReadAsTheTextStyleReadsItWhileThePictureIsShown) {
    WritePicture(S("temporary/red.png"));
    m_entry.SetValue(S("red.png"));
    EXPECT_TRUE(m_entry.picPicture().Visible);
    EXPECT_FALSE(m_entry.txtText().Visible);
    EXPECT_EQ(m_entry.Value(), m_entry.txtText().Text());
    m_entry.SetFieldType(0);
    EXPECT_EQ(m_entry.Value(), S("red.png"));
}

TEST_F(EntryPicture, FileThatIsNoPictureIsShortenedAndNeverCopied) {
    Write(S("elsewhere/keys.txt"), "secret");
    Write(S("forms/keys.bmp"), "secret");
    m_entry.SetValue(Path(S("elsewhere/keys.txt")));
    EXPECT_EQ(m_entry.Value(), S("keys.txt"));
    m_entry.SetValue(S("keys.bmp"));
    EXPECT_EQ(m_entry.Value(), S("keys.bmp"));
    m_entry.SetValue(Write(S("elsewhere/empty.png"), {}));
    EXPECT_EQ(m_entry.Value(), S("empty.png"));
    EXPECT_FALSE(FileExists(Path(S("temporary/empty.png"))));
    EXPECT_FALSE(FileExists(Path(S("temporary/keys.txt"))));
    EXPECT_FALSE(FileExists(Path(S("temporary/keys.bmp"))));
    EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, NameThatLeadsOutOfTheTemporaryFolderShowsNothing) {
    WritePicture(S("elsewhere/red.png"));
    WritePicture(S("temporary/below/red.png"));
    for (const char* name : {"../elsewhere/red.png", "..\\elsewhere\\red.png", "below/red.png", "..", "."}) {
        m_entry.SetValue(S(name));
        EXPECT_EQ(m_entry.Value(), S(name));
        EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty()) << name;
    }
    EXPECT_FALSE(FileExists(Path(S("temporary/red.png"))));
}

TEST_F(EntryPicture, DotsWithinABareNameAreNothingSpecial) {
    WritePicture(S("forms/red..png"));
    m_entry.SetValue(S("red..png"));
    EXPECT_TRUE(FileExists(Path(S("temporary/red..png"))));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryPicture, LongTextIsNotLookedFor) {
    for (const QString& text : {S("a/").repeated(500'000), S("a").repeated(1'000'000)}) {
        m_entry.SetValue(text);
        EXPECT_EQ(m_entry.Value(), text);
        EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty());
    }
}

TEST_F(EntryTest, OtherStylesKeepThePathOfAFileThatIsNoPicture) {
    const QString report = Write(S("elsewhere/report.txt"), "words");
    for (const std::uint8_t type : std::to_array<std::uint8_t>({0, 1, 3, 4, 5})) {
        m_entry.SetFieldType(type);
        m_entry.SetValue(S("x"));
        m_entry.SetValue(report);
        EXPECT_EQ(m_entry.txtText().Text(), report) << int{type};
        EXPECT_EQ(m_entry.cboCombo().Text(), report) << int{type};
        EXPECT_EQ(m_entry.cbo_date().Text(), report) << int{type};
    }
    EXPECT_FALSE(FileExists(Path(S("temporary/report.txt"))));
}

TEST_F(EntryTest, OtherStylesShortenThePathOfAPictureAndCopyIt) {
    for (const std::uint8_t type : std::to_array<std::uint8_t>({0, 1, 2, 3, 5})) {
        const QString name = QStringLiteral("red%1.png").arg(type);
        WritePicture(S("elsewhere/") + name);
        m_entry.SetFieldType(type);
        m_entry.SetValue(Path(S("elsewhere/") + name));
        EXPECT_EQ(m_entry.txtText().Text(), name);
        EXPECT_TRUE(FileExists(Path(S("temporary/") + name))) << int{type};
    }
}

TEST_F(EntryTest, BareNameIsLookedForOnlyByThePictureStyle) {
    WritePicture(S("forms/red.png"));
    int asked = 0;
    m_entry.FormFolder = [&] {
        ++asked;
        return Path(S("forms/"));
    };
    for (const std::uint8_t type : std::to_array<std::uint8_t>({0, 1, 2, 3, 4, 5})) {
        m_entry.SetFieldType(type);
        m_entry.SetValue(S("red.png"));
    }
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(FileExists(Path(S("temporary/red.png"))));
    m_entry.SetFieldType(6);
    EXPECT_TRUE(FileExists(Path(S("temporary/red.png"))));
    EXPECT_FALSE(m_entry.picPicture().Image().IsEmpty());
    EXPECT_EQ(asked, 1);
    m_entry.SetFieldType(6);
    EXPECT_EQ(asked, 1);
}

TEST_F(EntryTest, ValueOfAnotherStyleLeavesNoPictureBehind) {
    WritePicture(S("temporary/red.png"));
    m_entry.SetFieldType(6);
    m_entry.SetValue(S("red.png"));
    m_entry.SetFieldType(0);
    m_entry.SetValue(S("words"));
    m_entry.SetFieldType(6);
    EXPECT_TRUE(m_entry.picPicture().Image().IsEmpty());
}

TEST_F(EntryTest, PathIsShortenedWhenTheStyleBecomesPicture) {
    const QString report = Write(S("elsewhere/report.txt"), "words");
    m_entry.SetValue(report);
    TakeEvents();
    m_entry.SetFieldType(6);
    EXPECT_EQ(m_entry.Value(), S("report.txt"));
    EXPECT_EQ(m_entry.cboCombo().Text(), S("report.txt"));
    EXPECT_FALSE(FileExists(Path(S("temporary/report.txt"))));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryTest, TypedTextStaysWhenTheStyleBecomesPicture) {
    m_entry.SetValue(Write(S("elsewhere/report.txt"), "words"));
    m_entry.ReportText(S("typed"));
    m_entry.SetFieldType(6);
    EXPECT_EQ(m_entry.Value(), S("typed"));
}

TEST_F(EntryPicture, NothingIsCopiedWithoutATemporaryFolder) {
    m_application->CurrentTempDir.clear();
    WritePicture(S("elsewhere/red.png"));
    WritePicture(S("forms/red.png"));
    m_entry.SetValue(Path(S("elsewhere/red.png")));
    EXPECT_EQ(m_entry.Value(), S("red.png"));
    m_entry.SetValue(S("red.png"));
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

TEST_F(EntryPicture, DisabledOneRefusesTheChoice) {
    m_entry.SetEnabled(false);
    m_entry.ReportKeyPress(32);
    m_entry.ReportDoubleClick();
    m_entry.ChoosePicture();
    EXPECT_TRUE(m_ui.fileDialogs.empty());
}

TEST_F(EntryPicture, CancelledSpaceOpensNoDialog) {
    m_entry.KeyPress = [](std::int16_t& key) { key = 0; };
    EXPECT_EQ(m_entry.ReportKeyPress(32), 0);
    EXPECT_TRUE(m_ui.fileDialogs.empty());
}

TEST_F(EntryPicture, OtherStylesOpenNoDialog) {
    for (const std::uint8_t type : std::to_array<std::uint8_t>({0, 1, 2, 3, 4, 5})) {
        m_entry.SetFieldType(type);
        m_entry.ReportKeyPress(32);
        m_entry.ReportDoubleClick();
    }
    EXPECT_TRUE(m_ui.fileDialogs.empty());
}

TEST_F(EntryPicture, DialogIsTranslated) {
    m_application->LoadDictionary(Write(S("words.DIC"),
                                        "ENGLISH,TRANSLATION\r\n\"Open\",\"Auf\"\r\n"
                                        "\"Bitmaps\",\"Bilder\"\r\n\"Icons\",\"Zeichen\"\r\n"));
    m_entry.ChoosePicture();
    EXPECT_EQ(m_ui.fileDialogs.back().title, S("Auf"));
    EXPECT_EQ(m_ui.fileDialogs.back().filter,
              S("Bilder (*.bmp;*.dib)|*.bmp;*.dib|JPEG/JFIF Compliant (*.jpg;*.jif)|*.jpg;*.jif|"
                "Zeichen (*.ico)|*.ico|Metafiles (*.wmf)|*.wmf"));
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
