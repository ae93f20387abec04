// Files that change, vanish or can't be written while they are open in the frame.

#include "core/atomic_file.h"
#include "mdi_sheetwright_test.h"

#include <QDir>
#include <QFile>

#include <sys/resource.h>

#include <csignal>

namespace sheetwright {

namespace {

using ::testing::IsEmpty;

class MdiBadInputTest : public MdiSheetwrightTest {
  protected:
    FormWindow* OpenChanged(const QString& name = S("form.aff")) {
        FormWindow* const form = Open(name);
        Type(*form, S("Finch"));
        m_ui.messages.clear();
        return form;
    }
    [[nodiscard]] bool IsSaved(const char* name) const { return Read(S(name)).startsWith("PK"); }
    [[nodiscard]] QStringList Titles() const {
        QStringList titles;
        for (const ShownMessage& message : m_ui.messages)
            titles << message.title;
        return titles;
    }
};

// No file grows while it lives.
class FullDisk {
  public:
    FullDisk() {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(MdiBadInputTest, DeletedFormIsWrittenAnew) {
    OpenChanged();
    QFile::remove(Path(S("form.aff")));
    Do("mnuFileSave");
    EXPECT_TRUE(IsSaved("form.aff"));
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiBadInputTest, FormWhoseFolderIsGoneStaysOpenAndChanged) {
    FormWindow* const form = OpenChanged(S("folder/form.aff"));
    QDir(Path(S("folder"))).removeRecursively();
    Do("mnuFileSave");
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_TRUE(m_ui.messages.front().text.startsWith(S("Error code")));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(MdiBadInputTest, ReplacedFormIsAskedAbout) {
    OpenChanged();
    Write(S("form.aff"), "of another program");
    m_ui.answers = {MessageAnswer::No};
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.MessageTexts(),
              QStringList(S("The file has been changed since it was opened. Replace it?")));
    EXPECT_EQ(Read(S("form.aff")), "of another program");
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuFileSave");
    EXPECT_TRUE(IsSaved("form.aff"));
}

TEST_F(MdiBadInputTest, SaveAsOntoItselfIsASave) {
    FormWindow* const form = OpenChanged();
    Choose(Path(S("form.aff")));
    Do("mnuFileSaveAs");
    EXPECT_TRUE(IsSaved("form.aff"));
    EXPECT_FALSE(form->Document().Changed);
}

TEST_F(MdiBadInputTest, SaveAsOntoAnotherOpenFormIsSeenThere) {
    FormWindow* const other = OpenChanged(S("other.aff"));
    OpenChanged(S("form.aff"));
    Choose(Path(S("other.aff")));
    Do("mnuFileSaveAs");
    EXPECT_TRUE(IsSaved("other.aff"));
    m_frame->findChild<QMdiArea*>()->setActiveSubWindow(static_cast<QMdiSubWindow*>(other->parentWidget()));
    m_ui.messages.clear();
    m_ui.answers = {MessageAnswer::No};
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.MessageTexts(),
              QStringList(S("The file has been changed since it was opened. Replace it?")));
    EXPECT_TRUE(other->Document().Changed);
}

TEST_F(MdiBadInputTest, SaveAsOntoAFolderKeepsTheForm) {
    FormWindow* const form = OpenChanged();
    QDir(m_folder.path()).mkdir(S("folder.aff"));
    Choose(Path(S("folder.aff")));
    Do("mnuFileSaveAs");
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_TRUE(m_ui.messages.front().text.startsWith(S("Error code")));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_TRUE(QFileInfo(Path(S("folder.aff"))).isDir());
}

TEST_F(MdiBadInputTest, FullDiskLosesNothing) {
    FormWindow* const form = OpenChanged();
    {
        const FullDisk full;
        Do("mnuFileSave");
    }
    EXPECT_TRUE(Titles().contains(S("Unable to save file")));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
    Do("mnuFileSave");
    EXPECT_TRUE(IsSaved("form.aff"));
    EXPECT_FALSE(form->Document().Changed);
}

TEST_F(MdiBadInputTest, FormThatCameWithoutPermissionToWriteIsSavedUnderAnotherName) {
    QFile::setPermissions(Write(S("form.aff"), TwoPages()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("form.aff"));
    m_frame->OpenFromDialogSlot();
    Choose(Path(S("copy.aff")));
    Do("Save");
    EXPECT_TRUE(IsSaved("copy.aff"));
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
}

TEST_F(MdiBadInputTest, FormThatBecomesReadOnlyIsSavedUnderAnotherName) {
    FormWindow* const form = OpenChanged();
    QFile::setPermissions(Path(S("form.aff")), QFile::ReadOwner | QFile::ReadUser);
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.messages,
              (std::vector{ShownMessage{S("Error code 75"), m_application->Title, MessageIcon::Critical}}));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
    Choose(Path(S("copy.aff")));
    Do("mnuFileSaveAs");
    EXPECT_TRUE(IsSaved("copy.aff"));
    EXPECT_FALSE(form->Document().Changed);
}

TEST_F(MdiBadInputTest, FormThatAnotherProgramIsSavingStaysChanged) {
    FormWindow* const form = OpenChanged();
    const NewFile unfinished(Path(S("form.aff 2")));
    ASSERT_TRUE(TryHoldFile(unfinished.Handle()));
    Do("mnuFileSave");
    EXPECT_EQ(m_ui.messages,
              (std::vector{ShownMessage{S("Error code 70"), m_application->Title, MessageIcon::Critical}}));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_TRUE(QFile::exists(Path(S("form.aff 2"))));
}

TEST_F(MdiBadInputTest, SaveAsOntoAReadOnlyFileKeepsBoth) {
    FormWindow* const form = OpenChanged();
    QFile::setPermissions(Write(S("other.aff"), "theirs"), QFile::ReadOwner | QFile::ReadUser);
    Choose(Path(S("other.aff")));
    Do("mnuFileSaveAs");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error code 75")));
    EXPECT_EQ(Read(S("other.aff")), "theirs");
    EXPECT_TRUE(form->Document().Changed);
}

TEST_F(MdiBadInputTest, SaveAsOnAFullDiskLeavesNoFile) {
    FormWindow* const form = OpenChanged();
    Choose(Path(S("copy.aff")));
    {
        const FullDisk full;
        Do("mnuFileSaveAs");
    }
    EXPECT_FALSE(QFile::exists(Path(S("copy.aff"))));
    EXPECT_FALSE(QFile::exists(Path(S("copy.aff 2"))));
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
    EXPECT_TRUE(form->Document().Changed);
    Do("mnuFileSave");
    EXPECT_TRUE(IsSaved("copy.aff"));
}

TEST_F(MdiBadInputTest, FilesThatAreNoFormsOpenNothingAndLeaveNothing) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("PK\3\4 and no more"), QByteArray(5000, '\0'),
                                    QByteArray("BEGIN DESIGN\r\n")}) {
        EXPECT_EQ(Open(S("bad.aff"), bytes), nullptr);
        EXPECT_FALSE(m_ui.messages.empty());
        m_ui.messages.clear();
        EXPECT_TRUE(m_frame->IsEnabled());
        EXPECT_EQ(m_frame->PagePanel(), S(""));
    }
    EXPECT_THAT(QDir(m_application->WritableFolder + S("TEMP")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                IsEmpty());
}

TEST_F(MdiBadInputTest, FailingCommandLeavesTheFrameUsable) {
    Open(S("form.aff"));
    Do("mnuFilePrint");  // without a printer
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error 482: Printer error")));
    EXPECT_TRUE(m_frame->IsEnabled());
    Click("cmd_nextpage");
    EXPECT_EQ(m_frame->PagePanel(), S("2/2 - Results "));
}

}  // namespace

}  // namespace sheetwright
