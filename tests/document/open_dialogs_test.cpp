#include "document/open_dialogs.h"

#include "core/folders.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "document/form_archive.h"
#include "document/page.h"
#include "document/recent_files.h"
#include "fields/editing.h"
#include "support/form_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>

namespace sheetwright {
namespace {

constexpr std::int32_t kOpenFlags = 4 + 8 + 1024 + 2048 + 4096 + 524288 + 2097152;
constexpr std::int32_t kSaveFlags = 2 + 4 + 8 + 1024 + 2048 + 524288 + 2097152;

class Dialogs : public ApplicationTest {
  protected:
    explicit Dialogs(const QString& title = S("Tolvane Quillon Sheetwright")) : ApplicationTest(title) {
        SetFormFolder(*m_application, S("/my/forms/"));
        SetTemplateFolder(*m_application, S("/my/templates/"));
    }

    void SetWelcome(const char* value) const {
        m_application->settings.Write(m_application->Title, S("frmWelcome"), S("ShowOnStartup"), S(value));
    }
    void SetOpen(OpenKind kind) {
        SetOpenForm(*m_application, kind, m_slot,
                    {[this](int tab) {
                         m_calls << S("welcome %1").arg(tab);
                         if (!m_welcomeChoice.isNull()) m_slot = m_welcomeChoice;
                     },
                     [this](const QString& path) { m_calls << S("template ") + path; },
                     [this] { m_calls << S("form ") + m_slot; }});
    }
    void Choose(const char* path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = S(path); };
    }

    QString m_slot;
    QString m_welcomeChoice;
    QStringList m_calls;
};

void ExpectDialog(const FileDialog& dialog, const char* title, const char* words, const char* extension,
                  const char* folder, std::int32_t flags) {
    EXPECT_EQ(dialog.title, S(title));
    EXPECT_EQ(dialog.fileName, S("*.") + S(extension));
    EXPECT_EQ(dialog.defaultExtension, S(extension));
    EXPECT_EQ(dialog.filter, S(words) + S("|*.") + S(extension));
    EXPECT_EQ(dialog.filterIndex, 1);
    EXPECT_EQ(dialog.initialFolder, S(folder));
    EXPECT_EQ(dialog.flags, flags);
}

TEST_F(Dialogs, ShowTheirTitlesFiltersAndFolders) {
    const char* const forms = "Tolvane Form Files (*.aff)";
    const char* const templates = "Tolvane Form Templates (*.aft)";
    ExpectDialog(NewDialog(*m_application), "New", templates, "aft", "/my/templates/", kOpenFlags);
    ExpectDialog(OpenDialog(*m_application), "Open", forms, "aff", "/my/forms/", kOpenFlags);
    ExpectDialog(SaveAsDialog(*m_application), "Save As", forms, "aff", "/my/forms/", kSaveFlags);
    ExpectDialog(MergeDialog(*m_application), "Merge Template", templates, "aft", "/my/templates/",
                 kOpenFlags);
}

TEST_F(Dialogs, SpeakTheLanguage) {
    m_application->LoadDictionary(Write(S("de.dic"),
                                        "ENGLISH,TRANSLATION\r\nOpen,Auf\r\n"
                                        "Tolvane Form Files (*.aff),Formulare (*.aff)\r\n"));
    const FileDialog dialog = OpenDialog(*m_application);
    EXPECT_EQ(dialog.title, S("Auf"));
    EXPECT_EQ(dialog.filter, S("Formulare (*.aff)|*.aff"));
}

TEST_F(Dialogs, CancellingIsNoFailureButOthersTravel) {
    FileDialog dialog;
    EXPECT_FALSE(ChooseToOpen(*m_application, dialog));
    EXPECT_FALSE(ChooseToSave(*m_application, dialog));
    EXPECT_EQ(m_ui.saveDialogs, 1);
    m_ui.onFileDialog = [](FileDialog&) { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { (void)ChooseToOpen(*m_application, dialog); }), 7);
    EXPECT_EQ(FailureOf([&] { (void)ChooseToSave(*m_application, dialog); }), 7);
}

TEST_F(Dialogs, TheWelcomeScreenIsWantedUnlessItIsSwitchedOff) {
    EXPECT_TRUE(WantsWelcome(*m_application)) << "by default";
    SetWelcome("True");
    EXPECT_TRUE(WantsWelcome(*m_application));
    SetWelcome("False");
    EXPECT_FALSE(WantsWelcome(*m_application));
}

TEST_F(Dialogs, NewAndOpenGoThroughTheWelcomeScreen) {
    m_welcomeChoice = S("/t/sheet.aft");
    SetOpen(OpenKind::New);
    m_welcomeChoice = S("/f/sheet.aff");
    SetOpen(OpenKind::Existing);
    EXPECT_EQ(m_calls, (QStringList{S("welcome 1"), S("template /t/sheet.aft"), S("welcome 2"),
                                    S("form /f/sheet.aff")}));
    EXPECT_TRUE(m_ui.fileDialogs.empty());
    EXPECT_EQ(TemplateFolder(*m_application), S("/t/"));
    EXPECT_EQ(FormFolder(*m_application), S("/f/"));
}

TEST_F(Dialogs, ACancelledWelcomeScreenOpensNothing) {
    m_slot = S("/f/opened before.aff");
    SetOpen(OpenKind::Existing);
    EXPECT_EQ(m_calls, QStringList{S("welcome 2")});
    EXPECT_EQ(m_slot, S("/f/opened before.aff"));
}

TEST_F(Dialogs, WithoutTheWelcomeScreenADialogShows) {
    SetWelcome("False");
    Choose("/t/Sheet.AFT");
    SetOpen(OpenKind::New);
    Choose("/f/Sheet.AFF");
    SetOpen(OpenKind::Existing);
    EXPECT_EQ(m_calls, (QStringList{S("template /t/Sheet.AFT"), S("form /f/Sheet.AFF")}));
    ASSERT_EQ(m_ui.fileDialogs.size(), 2U);
    EXPECT_EQ(m_ui.fileDialogs[0].title, S("New"));
    EXPECT_EQ(m_ui.fileDialogs[1].title, S("Open"));
    EXPECT_EQ(m_ui.saveDialogs, 0);
}

TEST_F(Dialogs, TheEndingDecidesWhateverWasAskedFor) {
    SetWelcome("False");
    Choose("/f/sheet.aff");
    SetOpen(OpenKind::New);
    Choose("/t/sheet.aft");
    SetOpen(OpenKind::Existing);
    EXPECT_EQ(m_calls, (QStringList{S("form /f/sheet.aff"), S("template /t/sheet.aft")}));
}

TEST_F(Dialogs, OtherEndingsDoNothing) {
    SetWelcome("False");
    for (const char* path : {"/f/sheet.txt", "*.*", "ff", "/f/sheet", "/f/sheet.aff/"}) {
        Choose(path);
        SetOpen(OpenKind::Existing);
    }
    EXPECT_TRUE(m_calls.isEmpty());
    EXPECT_EQ(FormFolder(*m_application), S("/my/forms/"));
}

TEST_F(Dialogs, ACancelledDialogEndsTheCommand) {
    SetWelcome("False");
    m_slot = S("/f/before.aff");
    SetOpen(OpenKind::New);
    EXPECT_TRUE(m_calls.isEmpty());
    EXPECT_EQ(m_slot, S("/f/before.aff"));
}

class ViewerDialogs : public Dialogs {
  protected:
    ViewerDialogs() : Dialogs(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(ViewerDialogs, NeverShowTheWelcomeScreen) {
    SetWelcome("True");
    SetOpen(OpenKind::New);
    SetOpen(OpenKind::Existing);
    EXPECT_TRUE(m_calls.isEmpty());
    EXPECT_EQ(m_ui.fileDialogs.size(), 2U);
}

// Files grow no more than that, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : m_handler(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        ::signal(SIGXFSZ, m_handler);
    }

  private:
    sighandler_t m_handler;
    rlimit m_before{};
};

class Saving : public ApplicationTest {
  protected:
    Saving() {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->mainWindow = &m_mainWindow;
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        m_application->LoadPaperTable();
        Open(m_first, WriteForm(S("forms/sheet.aff")));
    }

    QString WriteForm(const QString& name) const {
        FormText form;
        form.Page(S("One")).Field(S("a")).Data(1, {S("a=one")});
        return Write(name, form.Bytes());
    }
    void Open(std::unique_ptr<frmSheetwright>& document, const QString& path) {
        const auto make = [&]() -> frmSheetwright& {
            document = std::make_unique<frmSheetwright>(*m_application);
            document->window = &m_window;
            return *document;
        };
        const auto unload = [&](frmSheetwright&) { document.reset(); };
        path.endsWith(S("aft")) ? OpenaftFile(*m_application, path, make, unload)
                                : OpenForm(*m_application, path, make, unload);
        ASSERT_TRUE(document);
    }
    static void Type(frmSheetwright& document, const QString& text) {
        Entries_GotFocus(document, 1);
        document.page->Entry.SetValue(text);
        document.Changed = true;
    }
    bool SaveAs(const QString& path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = path; };
        return mnuFileSaveAs_Click(*m_first, m_slot, m_files);
    }
    void Save(frmSheetwright& document) { mnuFileSave_Click(document); }
    // The value of the field in a saved form.
    [[nodiscard]] QString Saved(const QString& path) {
        frmSheetwright document(*m_application);
        OpenDocument(document, path);
        const PageLines& page = document.memory.DataPage(1);
        return page.Line(page.Find(u"a")).toString();
    }
    [[nodiscard]] ShownMessage Told(const QString& text) const {
        return {text, m_application->Title, MessageIcon::Critical};
    }
    [[nodiscard]] QStringList Forms() const {
        return QDir(Path(S("forms/."))).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    RecordingMainWindow m_mainWindow;
    RecordingWindow m_window;
    RecentFiles m_files;
    QString m_slot{S("/slot/before.aff")};
    std::unique_ptr<frmSheetwright> m_first;
    std::unique_ptr<frmSheetwright> m_second;
};

class SavingAs : public Saving {};

TEST_F(SavingAs, TheFormBearsTheNewNameFromThenOn) {
    const QString path = Path(S("forms/other.aff"));
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(path));
    EXPECT_EQ(m_ui.saveDialogs, 1);
    EXPECT_EQ(m_first->Tag, path);
    EXPECT_EQ(m_first->Caption, S("other.aff"));
    EXPECT_FALSE(m_first->Changed);
    EXPECT_EQ(m_slot, path);
    EXPECT_EQ(m_files.Paths(), QStringList{path});
    EXPECT_EQ(WelcomeRecentFiles(*m_application), QStringList{path});
    EXPECT_EQ(Saved(path), S("a=typed"));
    EXPECT_EQ(Saved(Path(S("forms/sheet.aff"))), S("a=one"));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(SavingAs, CancellingChangesNothing) {
    const QString tag = m_first->Tag;
    EXPECT_FALSE(mnuFileSaveAs_Click(*m_first, m_slot, m_files));
    EXPECT_EQ(m_first->Tag, tag);
    EXPECT_EQ(m_slot, S("/slot/before.aff"));
    EXPECT_TRUE(m_files.Paths().isEmpty());
    EXPECT_EQ(m_first->Caption, S("sheet.aff"));
}

TEST_F(SavingAs, ATemplateBecomesAForm) {
    Open(m_first, WriteForm(S("templates/sheet.aft")));
    EXPECT_TRUE(m_first->DoSaveAsOnly);
    const QString path = Path(S("forms/new.aff"));
    EXPECT_TRUE(SaveAs(path));
    EXPECT_FALSE(m_first->DoSaveAsOnly);
    EXPECT_EQ(QDir(m_first->MyTempDir).entryList(QDir::Files), QStringList{S("new.aff")})
        << "the old text is gone";
    EXPECT_EQ(Saved(path), S("a=one"));
    Type(*m_first, S("again"));
    Save(*m_first);
    EXPECT_EQ(Saved(path), S("a=again"));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(SavingAs, OntoItselfIsASave) {
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(m_first->Tag));
    EXPECT_EQ(Saved(m_first->Tag), S("a=typed"));
    EXPECT_EQ(Forms(), QStringList{S("sheet.aff")});
}

TEST_F(SavingAs, ANameWithoutAFormsEndingGetsOne) {
    EXPECT_TRUE(SaveAs(Path(S("forms/plain"))));
    EXPECT_TRUE(SaveAs(Path(S("forms/logo.bmp"))));
    EXPECT_EQ(Forms(), (QStringList{S("logo.bmp.aff"), S("plain.aff"), S("sheet.aff")}));
    EXPECT_EQ(m_first->Tag, Path(S("forms/logo.bmp.aff")));
}

TEST_F(SavingAs, NoFileIsReplacedThatNobodyWasAskedAbout) {
    WriteForm(S("forms/other.aff"));
    const QByteArray other = Read(S("forms/other.aff"));
    const QString tag = m_first->Tag;
    EXPECT_FALSE(SaveAs(Path(S("forms/other"))));
    EXPECT_EQ(m_ui.messages, (std::vector{ShownMessage{S("File already exists"), S("Unable to save file"),
                                                       MessageIcon::Critical}}));
    EXPECT_EQ(Read(S("forms/other.aff")), other);
    EXPECT_EQ(m_first->Tag, tag);
    EXPECT_EQ(m_slot, S("/slot/before.aff"));
    EXPECT_TRUE(m_files.Paths().isEmpty());
}

TEST_F(SavingAs, OntoAFolderIsTold) {
    const QString folder = Path(S("forms/folder.aff/inside")).chopped(7);
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(folder));
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 75"))});
    EXPECT_TRUE(m_first->Changed);
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST_F(SavingAs, IntoAFolderThatIsGoneIsTold) {
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(m_folder.filePath(S("gone/other.aff"))));
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 76"))});
    EXPECT_TRUE(m_first->Changed);
    EXPECT_EQ(m_first->Caption, S("other.aff"));
}

TEST_F(SavingAs, OverAReadOnlyFormIsTold) {
    const QString path = WriteForm(S("forms/locked.aff"));
    const QByteArray before = Read(S("forms/locked.aff"));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(path));
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 75"))});
    EXPECT_EQ(Read(S("forms/locked.aff")), before);
    EXPECT_TRUE(m_first->Changed);
}

TEST_F(SavingAs, AfterAFailureAnotherPlaceWillDo) {
    Type(*m_first, S("typed"));
    EXPECT_TRUE(SaveAs(m_folder.filePath(S("gone/other.aff"))));
    EXPECT_TRUE(SaveAs(Path(S("forms/other.aff"))));
    EXPECT_FALSE(m_first->Changed);
    EXPECT_EQ(Saved(Path(S("forms/other.aff"))), S("a=typed"));
}

TEST_F(SavingAs, OntoAnotherOpenFormThatOneIsAskedBeforeItSavesOverIt) {
    const QString path = WriteForm(S("forms/other.aff"));
    Open(m_second, path);
    Type(*m_first, S("mine"));
    EXPECT_TRUE(SaveAs(path));
    EXPECT_TRUE(m_ui.messages.empty()) << "the dialog has asked already";
    EXPECT_EQ(Saved(path), S("a=mine"));

    Type(*m_second, S("theirs"));
    m_ui.answers = {MessageAnswer::No};
    Save(*m_second);
    EXPECT_EQ(
        m_ui.messages,
        (std::vector{ShownMessage{S("The file has been changed since it was opened. Replace it?"),
                                  m_application->Title, MessageIcon::Exclamation, MessageButtons::YesNo}}));
    EXPECT_EQ(Saved(path), S("a=mine"));
    EXPECT_TRUE(m_second->Changed);

    m_ui.messages.clear();
    Save(*m_second);
    EXPECT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(Saved(path), S("a=theirs"));
    EXPECT_FALSE(m_second->Changed);
}

class SavingUnderItsName : public Saving {};

TEST_F(SavingUnderItsName, AsksNothingAgainAndAgain) {
    for (const char* text : {"1", "22", "333"}) {
        Type(*m_first, S(text));
        Save(*m_first);
        EXPECT_EQ(Saved(m_first->Tag), S("a=") + S(text));
    }
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(SavingUnderItsName, AFormThatWasDeletedIsWrittenAnew) {
    ASSERT_TRUE(QFile::remove(m_first->Tag));
    Type(*m_first, S("typed"));
    Save(*m_first);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(Saved(m_first->Tag), S("a=typed"));
}

TEST_F(SavingUnderItsName, WithItsFolderGoneItStaysOpenAndChanged) {
    ASSERT_TRUE(QDir(QFileInfo(m_first->Tag).path()).removeRecursively());
    Type(*m_first, S("typed"));
    Save(*m_first);
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 76"))});
    EXPECT_TRUE(m_first->Changed);
    EXPECT_TRUE(SaveAs(Path(S("elsewhere/sheet.aff"))));
    EXPECT_EQ(Saved(Path(S("elsewhere/sheet.aff"))), S("a=typed"));
}

TEST_F(SavingUnderItsName, AFileThatWasReplacedIsAskedAbout) {
    Write(S("forms/sheet.aff"), "somebody else's");
    Type(*m_first, S("typed"));
    m_ui.answers = {MessageAnswer::No};
    Save(*m_first);
    EXPECT_EQ(m_ui.MessageTexts(),
              QStringList{S("The file has been changed since it was opened. Replace it?")});
    EXPECT_EQ(Read(S("forms/sheet.aff")), "somebody else's");
    EXPECT_TRUE(m_first->Changed);
    EXPECT_TRUE(SaveAs(Path(S("forms/mine.aff"))));
    EXPECT_EQ(Saved(Path(S("forms/mine.aff"))), S("a=typed"));
}

TEST_F(SavingUnderItsName, AHostIsNotAsked) {
    m_application->ReportMode = true;
    Write(S("forms/sheet.aff"), "somebody else's");
    Type(*m_first, S("typed"));
    Save(*m_first);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(Saved(m_first->Tag), S("a=typed"));
}

TEST_F(SavingUnderItsName, AFolderThatTookItsPlaceIsTold) {
    ASSERT_TRUE(QFile::remove(m_first->Tag));
    ASSERT_TRUE(QDir().mkpath(m_first->Tag));
    Type(*m_first, S("typed"));
    Save(*m_first);
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 75"))});
    EXPECT_TRUE(m_first->Changed);
}

TEST_F(SavingUnderItsName, WhileAnotherProgramSavesItIsTold) {
    QFile beside(m_first->Tag + kUnfinishedFormSuffix.toString());
    ASSERT_TRUE(beside.open(QIODevice::WriteOnly));
    ASSERT_EQ(::flock(beside.handle(), LOCK_EX | LOCK_NB), 0);
    const QByteArray before = Read(S("forms/sheet.aff"));
    Type(*m_first, S("typed"));
    Save(*m_first);
    EXPECT_EQ(m_ui.messages, std::vector{Told(S("Error code 70"))});
    EXPECT_EQ(Read(S("forms/sheet.aff")), before);
    EXPECT_TRUE(m_first->Changed);
    beside.close();
    Save(*m_first);
    EXPECT_EQ(Saved(m_first->Tag), S("a=typed"));
}

TEST_F(SavingUnderItsName, OnAFullDiskTheOldFormStays) {
    const QByteArray before = Read(S("forms/sheet.aff"));
    Type(*m_first, S("typed"));
    for (const rlim_t bytes : {rlim_t{0}, rlim_t{100}}) {
        m_ui.messages.clear();
        {
            const FullDisk full(bytes);
            Save(*m_first);
        }
        EXPECT_EQ(
            m_ui.messages,
            (std::vector{ShownMessage{S("Disk full"), S("Unable to save file"), MessageIcon::Critical}}))
            << bytes;
        EXPECT_TRUE(m_first->Changed);
        EXPECT_EQ(Read(S("forms/sheet.aff")), before);
        EXPECT_EQ(Forms(), QStringList{S("sheet.aff")});
    }
    m_ui.messages.clear();
    Save(*m_first);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(Saved(m_first->Tag), S("a=typed")) << "once there is room";
}

TEST_F(SavingUnderItsName, AnOpenFormThatIsDeletedIsNoTroubleToClose) {
    ASSERT_TRUE(QFile::remove(m_first->Tag));
    const QString folder = m_first->MyTempDir;
    m_first.reset();
    EXPECT_FALSE(QDir(folder).exists());
}

}  // namespace
}  // namespace sheetwright
