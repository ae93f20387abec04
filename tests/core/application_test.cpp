#include "core/application.h"

#include "support/test_application.h"

#include <QDir>
#include <QLocale>
#include <QStandardPaths>

namespace sheetwright {

namespace {

class ApplicationTitles : public ApplicationTest {
  protected:
    void ExpectModes(const QString& title, bool viewer, bool report) {
        Restart(title);
        EXPECT_EQ(m_application->ViewerMode, viewer) << title.toStdString();
        EXPECT_EQ(m_application->ReportMode, report) << title.toStdString();
    }
};

TEST_F(ApplicationTitles, RunModesAreWordsOfTheTitleInAnyCase) {
    ExpectModes(QStringLiteral("Tolvane Quillon Sheetwright"), false, false);
    ExpectModes(QStringLiteral("Tolvane Ketterlin Professional Viewer"), true, false);
    ExpectModes(QStringLiteral("MYVIEWERS"), true, false);
    ExpectModes(QStringLiteral("Tolvane Reports"), false, true);
    ExpectModes(QStringLiteral("Report VIEWER"), true, true);
}

TEST_F(ApplicationTitles, TipIdentityNamesTheDeployment) {
    EXPECT_EQ(m_application->TipIdentity(), QStringLiteral("SHEETWRIGHT"));
    Restart(QStringLiteral("Tolvane Reports"));
    EXPECT_EQ(m_application->TipIdentity(), QStringLiteral("SHEETWRIGHT"));
    Restart(QStringLiteral("Viewer and Reports"));
    EXPECT_EQ(m_application->TipIdentity(), QStringLiteral("Dunmorrow"));
}

class ApplicationState : public ApplicationTest {};

TEST_F(ApplicationState, InstallFolderGetsATrailingSeparator) {
    EXPECT_EQ(m_application->InstallFolder, m_folder.path() + QDir::separator());
    const Application again(QStringLiteral("x"), m_application->InstallFolder, m_application->settings, m_ui);
    EXPECT_EQ(again.InstallFolder, m_application->InstallFolder);
}

TEST_F(ApplicationState, WritableInstallFolderIsWrittenToAndLeftAsItWas) {
    EXPECT_EQ(m_application->WritableFolder, m_application->InstallFolder);
    EXPECT_EQ(m_application->LogFolder, m_application->InstallFolder);
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(ApplicationState, InstallFolderThatCannotBeWrittenIsReplacedByTheUsersDataFolder) {
    const QString file = Write(QStringLiteral("file"), "no folder");
    const Application application(QStringLiteral("x"), file, m_application->settings, m_ui);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    EXPECT_EQ(application.WritableFolder, data + QStringLiteral("/sheetwright/"));
    EXPECT_EQ(application.LogFolder, application.WritableFolder);
    EXPECT_TRUE(QDir(application.WritableFolder).exists());
}

TEST_F(ApplicationState, StartsWithA4Upright) {
    EXPECT_EQ(m_application->CurrentOrientation, 1);
    EXPECT_EQ(m_application->CurrentPaperSize, 9);
}

TEST_F(ApplicationState, TitleIsTranslatedAndKeysTheSettings) {
    Write(QStringLiteral("Sheetwright.DIC"),
          "ENGLISH,TRANSLATION\r\nTolvane Quillon Sheetwright,Formularwerk\r\n");
    m_application->LoadLanguage();
    EXPECT_EQ(m_application->Title, QStringLiteral("Formularwerk"));
}

TEST_F(ApplicationState, TitleStaysWithoutADictionary) {
    m_application->LoadLanguage();
    EXPECT_EQ(m_application->Title, QStringLiteral("Tolvane Quillon Sheetwright"));
    EXPECT_FALSE(m_application->dictionary.IsOpen());
}

TEST_F(ApplicationState, EachDictionaryTranslatesTheTitle) {
    m_application->LoadDictionary(Write(QStringLiteral("TIPOFDAY.DIC"),
                                        "ENGLISH,TRANSLATION\r\nTolvane Quillon Sheetwright,Tipps\r\n"));
    EXPECT_EQ(m_application->Title, QStringLiteral("Tipps"));
}

TEST_F(ApplicationState, MissingDictionaryKeepsTheTitle) {
    Write(QStringLiteral("Sheetwright.DIC"),
          "ENGLISH,TRANSLATION\r\nTolvane Quillon Sheetwright,Formularwerk\r\nFormularwerk,x\r\n");
    m_application->dictionary.Load(m_application->InstallFolder + QStringLiteral("Sheetwright.DIC"));
    m_application->LoadDictionary(m_application->InstallFolder + QStringLiteral("TIPOFDAY.DIC"));
    EXPECT_EQ(m_application->Title, QStringLiteral("Tolvane Quillon Sheetwright"));
}

TEST_F(ApplicationState, DictionaryOfOneColumnThatHasTheTitleIsABrokenInstallation) {
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH\r\nTolvane Quillon Sheetwright\r\n");
    EXPECT_EQ(FailureOf([&] { m_application->LoadLanguage(); }), failure::kSubscript);
}

TEST_F(ApplicationState, MissingSecondDictionaryKeepsTheFirst) {
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH,TRANSLATION\r\nTrue,Wahr\r\n");
    m_application->LoadLanguage();
    m_application->LoadDictionary(m_application->InstallFolder + QStringLiteral("TIPOFDAY.DIC"));
    EXPECT_EQ(m_application->Translate(QStringLiteral("True")), QStringLiteral("Wahr"));
}

TEST_F(ApplicationState, LoadingALanguageRefreshesTheConventions) {
    const Conventions system = ConventionsOf(QLocale::system());
    m_application->conventions = ConventionsOf(QLocale(QStringLiteral("sv_SE")));
    m_application->LoadLanguage();
    EXPECT_EQ(m_application->conventions.locale, system.locale);
    EXPECT_EQ(m_application->conventions.DateMask, system.DateMask);
    EXPECT_EQ(m_application->conventions.DecimalSeparator, system.DecimalSeparator);
}

TEST_F(ApplicationState, PaperTableComesFromTheInstallFolder) {
    Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
    m_application->LoadPaperTable();
    EXPECT_EQ(m_application->PaperTable.RecordCount(), 1);
    EXPECT_EQ(m_application->PaperTable.Columns().At(QStringLiteral("WIDTH")).Value(),
              QStringLiteral("11906"));
}

TEST_F(ApplicationState, MissingPaperTableHasNoColumns) {
    m_application->LoadPaperTable();
    EXPECT_EQ(m_application->PaperTable.Columns().Count(), 0);
}

TEST_F(ApplicationState, PaperTableThatCannotBeReadHasNoColumns) {
    QDir(m_folder.path()).mkdir(QStringLiteral("papersizes.csv"));
    m_application->LoadPaperTable();
    EXPECT_EQ(m_application->PaperTable.Columns().Count(), 0);
}

TEST_F(ApplicationState, TruthIsTheWordOrItsTranslationExactly) {
    EXPECT_TRUE(m_application->Str2Boolean(u"True"));
    EXPECT_FALSE(m_application->Str2Boolean(u"TRUE"));
    EXPECT_FALSE(m_application->Str2Boolean(u"-1"));
    EXPECT_FALSE(m_application->Str2Boolean(u""));
    EXPECT_FALSE(m_application->Str2Boolean(u"Wahr"));
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH,TRANSLATION\r\nTrue,Wahr\r\nFalse,Falsch\r\n");
    m_application->LoadLanguage();
    EXPECT_TRUE(m_application->Str2Boolean(u"True"));
    EXPECT_TRUE(m_application->Str2Boolean(u"Wahr"));
    EXPECT_EQ(m_application->TranslatedTruthWords().TrueWord, QStringLiteral("Wahr"));
    EXPECT_EQ(m_application->TranslatedTruthWords().FalseWord, QStringLiteral("Falsch"));
}

TEST(ProgramVersion, IsAtLeastOne) {
    EXPECT_GE(ProgramVersion().major, 1);
}

}  // namespace

}  // namespace sheetwright
