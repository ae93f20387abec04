#include "core/start_up.h"

#include "core/folders.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>

#include <vector>

namespace sheetwright {

namespace {

// Notes what it is asked for, and changes the remembered folders as opening a file does.
class RecordingActions : public StartUpActions {
  public:
    explicit RecordingActions(Application& application) : m_application(application) {}

    bool ClaimInstance() override {
        Note(QStringLiteral("claim"));
        return isFirst;
    }
    void SetSplashProductLine(const QString& text) override { Note(QStringLiteral("product ") + text); }
    void ShowSplash() override { Note(QStringLiteral("splash")); }
    void CloseSplash() override { Note(QStringLiteral("close splash")); }
    void LoadMainWindow() override { Note(QStringLiteral("load main")); }
    void ShowMainWindow() override { Note(QStringLiteral("show main")); }
    void SetMainWindowCaption(const QString& caption) override { Note(QStringLiteral("caption ") + caption); }
    void ShowTipOfTheDay() override { Note(QStringLiteral("tip")); }
    void ShowWelcome() override {
        Note(QStringLiteral("welcome"));
        dialogFileName = choice;
    }
    QString DialogFileName() override { return dialogFileName; }
    void SetDialogFileName(const QString& path) override { dialogFileName = path; }
    void OpenTemplate(const QString& path) override {
        Note(QStringLiteral("template ") + path);
        SetTemplateFolder(m_application, QStringLiteral("/opened/"));
    }
    void OpenForm() override {
        Note(QStringLiteral("form ") + dialogFileName);
        SetFormFolder(m_application, QStringLiteral("/opened/"));
    }
    void SetPollInterval(int milliseconds) override { Note(QStringLiteral("poll %1").arg(milliseconds)); }

    bool isFirst = true;
    QString dialogFileName;
    QString choice;  // what the welcome screen leaves in the file dialog
    QStringList calls;

  private:
    void Note(const QString& call) { calls << call; }

    Application& m_application;
};

class StartUp : public ApplicationTest {
  protected:
    // The calls of a whole start-up.
    QStringList Start(const QString& commandLine = QString(), const QString& choice = QString()) {
        RecordingActions actions(*m_application);
        actions.choice = choice;
        EXPECT_TRUE(Main(*m_application, actions, commandLine));
        return actions.calls;
    }
    // Those behind the closing of the splash.
    QStringList Opened(const QString& commandLine, const QString& choice = QString()) {
        const QStringList calls = Start(commandLine, choice);
        return calls.sliced(calls.indexOf(QStringLiteral("close splash")) + 1);
    }
    [[nodiscard]] QString Updater(const QString& section, const QString& key) const {
        return m_application->settings.Read(QStringLiteral("AutoUpdater"), section, key,
                                            QStringLiteral("none"));
    }
    void Set(const QString& section, const QString& key, const QString& value) {
        m_application->settings.Write(m_application->Title, section, key, value);
    }
};

TEST_F(StartUp, NormalModeShowsEverything) {
    EXPECT_EQ(Start(),
              QStringList({QStringLiteral("claim"), QStringLiteral("splash"), QStringLiteral("load main"),
                           QStringLiteral("show main"), QStringLiteral("close splash"), QStringLiteral("tip"),
                           QStringLiteral("welcome")}));
    EXPECT_EQ(m_ui.pumps, 1);
}

TEST_F(StartUp, ViewerHasAProductLineAndNoWelcome) {
    Restart(QStringLiteral("Tolvane Ketterlin Professional Viewer"));
    EXPECT_EQ(Start(),
              QStringList({QStringLiteral("claim"), QStringLiteral("product Viewer"),
                           QStringLiteral("splash"), QStringLiteral("load main"), QStringLiteral("show main"),
                           QStringLiteral("close splash"), QStringLiteral("tip")}));
}

TEST_F(StartUp, ReportEngineHasNoSplashAndAHiddenWindow) {
    Restart(QStringLiteral("Tolvane Reports"));
    EXPECT_EQ(Start(QStringLiteral("/IPC")),
              QStringList({QStringLiteral("claim"), QStringLiteral("load main"),
                           QStringLiteral("caption Tolvane Reports"), QStringLiteral("close splash"),
                           QStringLiteral("poll 1000")}));
}

TEST_F(StartUp, TitleWithBothWordsShowsTheSplashAndHidesTheWindow) {
    Restart(QStringLiteral("Report Viewer"));
    EXPECT_EQ(Start(), QStringList({QStringLiteral("claim"), QStringLiteral("product Viewer"),
                                    QStringLiteral("splash"), QStringLiteral("load main"),
                                    QStringLiteral("caption Report Viewer"), QStringLiteral("close splash"),
                                    QStringLiteral("tip")}));
    EXPECT_EQ(Updater(QStringLiteral("Dunmorrow"), QStringLiteral("Name")),
              QStringLiteral("Tolvane Quillon Viewer"));
}

TEST_F(StartUp, ReportEngineWithNothingToOpenHasTipAndWelcome) {
    Restart(QStringLiteral("Tolvane Reports"));
    EXPECT_EQ(
        Opened(QString(), QStringLiteral("/f/a.aff")),
        QStringList({QStringLiteral("tip"), QStringLiteral("welcome"), QStringLiteral("form /f/a.aff")}));
}

TEST_F(StartUp, EachStepFindsTheOnesBeforeItDone) {
    class States : public RecordingActions {
      public:
        States(Application& application, const RecordingUserInterface& ui)
            : RecordingActions(application), m_state(application), m_ui(ui) {}
        bool ClaimInstance() override { return Note(u"claim"); }
        void SetSplashProductLine(const QString& /*text*/) override { Note(u"product"); }
        void LoadMainWindow() override { Note(u"main"); }
        QStringList states;

      private:
        // What has been done: the updater told, the title translated, the paper sizes read, messages let
        // through, TEMP made.
        bool Note(QStringView step) {
            const QString updater = m_state.settings.Read(
                QStringLiteral("AutoUpdater"), QStringLiteral("Dunmorrow"), QStringLiteral("Name"));
            states << QStringLiteral("%1:%2%3%4%5%6")
                          .arg(step)
                          .arg(!updater.isEmpty())
                          .arg(m_state.Title == QStringLiteral("Betrachter"))
                          .arg(m_state.PaperTable.RecordCount())
                          .arg(m_ui.pumps)
                          .arg(QDir(TempRoot(m_state)).exists());
            return true;
        }
        const Application& m_state;
        const RecordingUserInterface& m_ui;
    };
    Restart(QStringLiteral("x viewer"));
    Write(QStringLiteral("Sheetwright.DIC"), "ENGLISH,TRANSLATION\r\nx viewer,Betrachter\r\n");
    Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
    States actions(*m_application, m_ui);
    EXPECT_TRUE(Main(*m_application, actions, QStringLiteral(" ")));
    EXPECT_EQ(actions.states, QStringList({QStringLiteral("claim:00000"), QStringLiteral("product:11100"),
                                           QStringLiteral("main:11111")}));
}

TEST_F(StartUp, SecondInstanceEndsWithNothingShownAndNothingWritten) {
    Restart(QStringLiteral("Tolvane Quillon Sheetwright"));
    RecordingActions actions(*m_application);
    actions.isFirst = false;
    EXPECT_FALSE(Main(*m_application, actions, QString()));
    EXPECT_EQ(actions.calls, QStringList(QStringLiteral("claim")));
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(StartUp, InstallLocationIsPublishedForTheUpdater) {
    struct Deployment {
        QString title;
        QString section;
        QString name;
    };
    const std::vector<Deployment> deployments{
        {QStringLiteral("x viewer"), QStringLiteral("Dunmorrow"), QStringLiteral("Tolvane Quillon Viewer")},
        {QStringLiteral("x report"), QStringLiteral("Tolvane Reports"), QStringLiteral("Tolvane Reports")},
        {QStringLiteral("x"), QStringLiteral("Tolvane Quillon"), QStringLiteral("Tolvane Quillon")}};
    for (const Deployment& deployment : deployments) {
        Restart(deployment.title);
        EXPECT_EQ(Updater(deployment.section, QStringLiteral("Path")), QStringLiteral("none"));
        Start();
        EXPECT_EQ(Updater(deployment.section, QStringLiteral("Path")), m_application->InstallFolder);
        EXPECT_EQ(Updater(deployment.section, QStringLiteral("Name")), deployment.name);
    }
}

TEST_F(StartUp, SettingsAreReadUnderTheTranslatedTitle) {
    Write(QStringLiteral("Sheetwright.DIC"),
          "ENGLISH,TRANSLATION\r\nTolvane Quillon Sheetwright,Formularwerk\r\nx viewer,Betrachter x\r\n"
          "Viewer,Betrachter\r\n");
    m_application->settings.Write(QStringLiteral("Formularwerk"), QStringLiteral("Settings"),
                                  QStringLiteral("Tipsyn"), QStringLiteral("False"));
    EXPECT_EQ(Opened(QString()), QStringList(QStringLiteral("welcome")));
    Restart(QStringLiteral("x viewer"));
    EXPECT_TRUE(Start().contains(QStringLiteral("product Betrachter")));
}

TEST_F(StartUp, PaperSizesAreLoadedAndTempIsSwept) {
    Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
    QDir(m_folder.path()).mkpath(QStringLiteral("TEMP/00000001"));
    Start();
    EXPECT_EQ(m_application->PaperTable.RecordCount(), 1);
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("TEMP/00000001"))));
    EXPECT_EQ(m_application->CurrentTempDir, TempRoot(*m_application));
}

TEST_F(StartUp, TipAndWelcomeStayAwayWhenTheirSettingsSaySo) {
    Set(QStringLiteral("Settings"), QStringLiteral("Tipsyn"), QStringLiteral("False"));
    EXPECT_EQ(Opened(QString()), QStringList(QStringLiteral("welcome")));
    Set(QStringLiteral("frmWelcome"), QStringLiteral("ShowOnStartup"), QStringLiteral("False"));
    EXPECT_TRUE(Opened(QString()).isEmpty());
}

TEST_F(StartUp, ChoiceOfTheWelcomeScreenIsOpenedAndItsFolderRemembered) {
    EXPECT_EQ(Opened(QString(), QStringLiteral("/f/a.aff")).last(), QStringLiteral("form /f/a.aff"));
    EXPECT_EQ(Opened(QString(), QStringLiteral("/t/a.aft")).last(), QStringLiteral("template /t/a.aft"));
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("/opened/"));
}

TEST_F(StartUp, FolderOfTheChoiceIsRememberedBeforeItIsOpened) {
    class FolderSeenOnOpening : public RecordingActions {
      public:
        explicit FolderSeenOnOpening(Application& application)
            : RecordingActions(application), m_state(application) {}
        void OpenForm() override { folder = FormFolder(m_state); }
        void OpenTemplate(const QString& /*path*/) override { folder = TemplateFolder(m_state); }
        QString folder;

      private:
        Application& m_state;
    };
    FolderSeenOnOpening actions(*m_application);
    actions.choice = QStringLiteral("/f/a.aff");
    Main(*m_application, actions, QString());
    EXPECT_EQ(actions.folder, QStringLiteral("/f/"));
    actions.choice = QStringLiteral("/t/a.aft");
    Main(*m_application, actions, QString());
    EXPECT_EQ(actions.folder, QStringLiteral("/t/"));
}

TEST_F(StartUp, DialogIsLookedAtThoughNoWelcomeScreenWasShown) {
    Restart(QStringLiteral("x viewer"));
    RecordingActions actions(*m_application);
    actions.dialogFileName = QStringLiteral("/f/a.aff");
    EXPECT_TRUE(Main(*m_application, actions, QString()));
    EXPECT_EQ(actions.calls.sliced(actions.calls.size() - 2),
              QStringList({QStringLiteral("tip"), QStringLiteral("form /f/a.aff")}));
}

TEST_F(StartUp, ChoiceOfFiveCharactersIsLongEnough) {
    EXPECT_EQ(Opened(QString(), QStringLiteral("a.aff")).last(), QStringLiteral("form a.aff"));
    EXPECT_EQ(Opened(QString(), QStringLiteral("a.aft")).last(), QStringLiteral("template a.aft"));
}

TEST_F(StartUp, ChoiceThatIsNoFileOpensNothing) {
    for (const QString& choice :
         {QStringLiteral("*.aff"), QStringLiteral("*.aft"), QStringLiteral(".aff"), QStringLiteral("a.AFF"),
          QStringLiteral("a.Aft"), QStringLiteral("a.txt"), QStringLiteral("*.x.aff"), QString()})
        EXPECT_EQ(Opened(QString(), choice).last(), QStringLiteral("welcome")) << choice.toStdString();
}

TEST_F(StartUp, CommandLineOfBlanksIsNotEmpty) {
    EXPECT_TRUE(Opened(QStringLiteral("  ")).isEmpty());
}

TEST_F(StartUp, TokensOfTheCommandLineActInTheirOrder) {
    EXPECT_EQ(Opened(QStringLiteral("\"/my forms/a.aff\" /IPC b.aft")),
              QStringList({QStringLiteral("form /my forms/a.aff"), QStringLiteral("poll 1000"),
                           QStringLiteral("template b.aft")}));
}

TEST_F(StartUp, CommandLineTakesAnyCase) {
    EXPECT_EQ(Opened(QStringLiteral("a.AFF b.Aft /ipc")),
              QStringList({QStringLiteral("form a.AFF"), QStringLiteral("template b.Aft"),
                           QStringLiteral("poll 1000")}));
}

TEST_F(StartUp, NameThatIsOnlyAnEndingOpensFromTheCommandLine) {
    EXPECT_EQ(Opened(QStringLiteral(".aff")), QStringList(QStringLiteral("form .aff")));
}

TEST_F(StartUp, UnknownTokenIsIgnored) {
    EXPECT_TRUE(Opened(QStringLiteral("/x a.txt aff /IPC2")).isEmpty());
}

TEST_F(StartUp, UnbalancedQuoteLosesTheLastToken) {
    EXPECT_EQ(Opened(QStringLiteral("a.aff \"b.aff")), QStringList(QStringLiteral("form a.aff")));
}

TEST_F(StartUp, FilesOfTheCommandLineDoNotChangeTheRememberedFolders) {
    SetFormFolder(*m_application, QStringLiteral("/forms/"));
    SetTemplateFolder(*m_application, QStringLiteral("/templates/"));
    Start(QStringLiteral("a.aff b.aft"));
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("/forms/"));
    EXPECT_EQ(TemplateFolder(*m_application), QStringLiteral("/templates/"));
}

TEST_F(StartUp, FailureInAFileOfTheCommandLineTravelsWithTheFoldersRestored) {
    class Failing : public RecordingActions {
      public:
        using RecordingActions::RecordingActions;
        void OpenForm() override {
            RecordingActions::OpenForm();
            throw Failure(failure::kDiskFull);
        }
    };
    SetFormFolder(*m_application, QStringLiteral("/forms/"));
    Failing actions(*m_application);
    EXPECT_EQ(FailureOf([&] { Main(*m_application, actions, QStringLiteral("a.aff b.aft")); }), 61);
    EXPECT_EQ(actions.calls.last(), QStringLiteral("form a.aff"));
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("/forms/"));
}

TEST(CommandLineTokens, SplitsAtBlanksOutsideQuotes) {
    EXPECT_EQ(CommandLineTokens(QStringLiteral("a \"b c\" d\"e f\"g")),
              QStringList({QStringLiteral("a"), QStringLiteral("b c"), QStringLiteral("de fg")}));
}

TEST(CommandLineTokens, BlankEndsEvenAnEmptyToken) {
    EXPECT_EQ(CommandLineTokens(QStringLiteral("a  b")),
              QStringList({QStringLiteral("a"), QString(), QStringLiteral("b")}));
    EXPECT_EQ(CommandLineTokens(QStringLiteral(" ")), QStringList({QString(), QString()}));
    EXPECT_EQ(CommandLineTokens(QString()), QStringList(QString()));
}

TEST(CommandLineTokens, UnbalancedQuoteLosesTheLastToken) {
    EXPECT_EQ(CommandLineTokens(QStringLiteral("a b\"c d")), QStringList(QStringLiteral("a")));
}

TEST(CommandLineTokens, OtherWhiteSpaceBelongsToAToken) {
    EXPECT_EQ(CommandLineTokens(QStringLiteral("a\tb")), QStringList(QStringLiteral("a\tb")));
}

TEST(CommandLineOf, IsEmptyWithoutArguments) {
    EXPECT_EQ(CommandLineOf({}), QString());
}

TEST(CommandLineOf, GivesTheArgumentsBack) {
    const QStringList arguments{QStringLiteral("/my forms/a.aff"), QString(), QStringLiteral("/IPC"),
                                QStringLiteral(" "), QStringLiteral("tab\there")};
    EXPECT_EQ(CommandLineTokens(CommandLineOf(arguments)), arguments);
}

TEST(CommandLineOf, QuotesInAnArgumentAreDroppedAndSpoilNoOther) {
    EXPECT_EQ(
        CommandLineTokens(CommandLineOf(
            {QStringLiteral("\"my form.aff\""), QStringLiteral("5\" disk.aff"), QStringLiteral("b.aff")})),
        QStringList({QStringLiteral("my form.aff"), QStringLiteral("5 disk.aff"), QStringLiteral("b.aff")}));
}

}  // namespace

}  // namespace sheetwright
