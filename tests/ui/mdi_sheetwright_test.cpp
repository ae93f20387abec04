#include "ui/mdi_sheetwright.h"

#include "document/document.h"
#include "document/page.h"
#include "support/form_text.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/form_window.h"
#include "ui/page_view.h"
#include "ui/status_panel.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QByteArray TwoPages() {
    FormText form;
    form.Page(S("Cover")).Field(S("Client"));
    form.Page(S("Results")).Field(S("Reading"));
    form.Data(1, {S("Client=Marlow")}).Data(2, {S("Reading=1")});
    return form.Bytes();
}

class MdiSheetwrightTest : public ApplicationTest {
  protected:
    explicit MdiSheetwrightTest(const QString& title = S("Tolvane Quillon Sheetwright"))
        : ApplicationTest(title) {
        m_application->settings = Settings(Path(S("settings")));
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11907,16840\r\n");
        m_application->LoadPaperTable();
        Load();
    }
    ~MdiSheetwrightTest() override { Unload(); }

    void Load() {
        m_frame = std::make_unique<mdiSheetwright>(*m_application);
        m_frame->show();
        QApplication::setActiveWindow(m_frame.get());
    }
    void Unload() { m_frame.reset(); }

    FormWindow* Open(const QString& name, const QByteArray& bytes = TwoPages()) {
        m_frame->DialogFileName = Write(name, bytes);
        m_frame->OpenFromDialogSlot();
        return m_frame->Active();
    }

    FormWindow* OpenTemplate(const QString& name) {
        m_frame->OpenTemplate(Write(name, TwoPages()));
        return m_frame->Active();
    }

    [[nodiscard]] QAction* Action(const char* name) const { return m_frame->findChild<QAction*>(S(name)); }
    void Do(const char* name) const { Action(name)->trigger(); }
    void Click(const char* name) const {
        QTest::mouseClick(m_frame->findChild<QToolButton*>(S(name)), Qt::LeftButton);
    }
    [[nodiscard]] QString PageBox() const { return m_frame->findChild<QLabel*>(S("lblpages"))->text(); }

    // Types a text into the field that has the focus, and leaves it.
    static void Type(FormWindow& form, const QString& text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_TRUE(form.Document().Changed);
    }

    // What the file dialog gives next.
    void Choose(const QString& path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = path; };
    }

    std::unique_ptr<mdiSheetwright> m_frame;
};

TEST_F(MdiSheetwrightTest, IsTheApplicationsMainWindowWhileItLives) {
    EXPECT_EQ(m_application->mainWindow, m_frame.get());
    Unload();
    EXPECT_EQ(m_application->mainWindow, &m_application->noMainWindow);
}

TEST_F(MdiSheetwrightTest, EmptyFrameOffersOnlyToOpenAndToExit) {
    EXPECT_TRUE(Action("mnuFileOpen")->isEnabled());
    EXPECT_TRUE(Action("mnuFileExit")->isEnabled());
    for (const char* name : {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "Save", "mnuPageAdd"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
    EXPECT_FALSE(m_frame->findChild<QMenu*>(S("mnuPage"))->menuAction()->isEnabled());
    EXPECT_FALSE(m_frame->findChild<QWidget*>(S("pic_pages"))->isVisible());
    EXPECT_EQ(m_frame->PagePanel(), S(""));
}

TEST_F(MdiSheetwrightTest, OpensTheFormOfTheFileNameSlot) {
    FormWindow* const form = Open(S("form.aff"));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), S("form.aff[*]"));
    EXPECT_EQ(m_frame->PagePanel(), S("1/2 - Cover "));
    EXPECT_EQ(PageBox(), S("1/2"));
    QCoreApplication::sendPostedEvents();  // the tool bar makes room for it
    EXPECT_TRUE(m_frame->findChild<QWidget*>(S("pic_pages"))->isVisible());
    EXPECT_EQ(m_application->CurrentTempDir, form->Document().MyTempDir);
    for (const char* name : {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "Save", "mnuPageAdd"})
        EXPECT_TRUE(Action(name)->isEnabled()) << name;
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiSheetwrightTest, FirstFieldOfAnOpenedFormHasTheFocus) {
    const FormWindow* const form = Open(S("form.aff"));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(form->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(MdiSheetwrightTest, TemplateOpensWithoutANameAndCanOnlyBeSavedUnderANewOne) {
    const FormWindow* const form = OpenTemplate(S("form.aft"));
    EXPECT_EQ(form->windowTitle(), S("(Untitled)[*]"));
    EXPECT_FALSE(Action("mnuFileSave")->isEnabled());
    EXPECT_TRUE(Action("mnuFileSaveAs")->isEnabled());
    EXPECT_THAT(Action("mnuFileSaveAs")->shortcuts(), ::testing::Contains(QKeySequence(QKeySequence::Save)));
}

TEST_F(MdiSheetwrightTest, MissingFileIsToldAndOpensNothing) {
    m_frame->DialogFileName = Path(S("nothing.aff"));
    m_frame->OpenFromDialogSlot();
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages,
                ElementsAre(ShownMessage{S("Please check the path is valid and the file is not in use by any "
                                           "other applications."),
                                         S("Unable to open file"), MessageIcon::Critical}));
}

TEST_F(MdiSheetwrightTest, CorruptFormLeavesNoWindow) {
    EXPECT_EQ(Open(S("empty.aff"), QByteArray()), nullptr);
    EXPECT_EQ(m_ui.messages.back(), (ShownMessage{S("Corrupt form file. Cannot continue."), S("Load form"),
                                                  MessageIcon::Critical}));
    EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(MdiSheetwrightTest, CorruptFormLeavesTheOthersAsTheyAre) {
    FormWindow* const form = Open(S("form.aff"));
    EXPECT_EQ(Open(S("empty.aff"), QByteArray()), form);
    EXPECT_EQ(m_application->CurrentTempDir, form->Document().MyTempDir);
    EXPECT_EQ(m_frame->PagePanel(), S("1/2 - Cover "));
}

TEST_F(MdiSheetwrightTest, OpenCommandTakesFormsAndTemplates) {
    Choose(Write(S("a/form.aff"), TwoPages()));
    Do("mnuFileOpen");
    Choose(Write(S("a/form.aft"), TwoPages()));
    Do("mnuFileOpen");
    ASSERT_EQ(m_frame->Forms().size(), 2U);
    EXPECT_EQ(m_frame->Active()->Document().Caption, S("(Untitled)"));
    EXPECT_EQ(m_ui.fileDialogs.front().title, S("Open"));
}

TEST_F(MdiSheetwrightTest, CancelledOpenDialogOpensNothing) {
    Do("mnuFileOpen");
    EXPECT_THAT(m_frame->Forms(), IsEmpty());
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiSheetwrightTest, SameFormTwiceGivesTwoWindows) {
    const FormWindow* const first = Open(S("form.aff"));
    const FormWindow* const second = Open(S("form.aff"));
    EXPECT_NE(first, second);
    EXPECT_EQ(m_frame->Forms().size(), 2U);
}

TEST_F(MdiSheetwrightTest, CurrentTempDirFollowsTheFormInFront) {
    FormWindow* const first = Open(S("first.aff"));
    FormWindow* const second = Open(S("second.aff"));
    EXPECT_EQ(m_application->CurrentTempDir, second->Document().MyTempDir);
    m_frame->findChild<QMdiArea*>()->setActiveSubWindow(static_cast<QMdiSubWindow*>(first->parentWidget()));
    EXPECT_EQ(m_frame->Active(), first);
    EXPECT_EQ(m_application->CurrentTempDir, first->Document().MyTempDir);
}

TEST_F(MdiSheetwrightTest, ChangedFormIsMarkedAndSaved) {
    FormWindow* const form = Open(S("form.aff"));
    Type(*form, S("Finch"));
    m_frame->Refresh();
    EXPECT_TRUE(form->isWindowModified());
    Do("mnuFileSave");
    EXPECT_FALSE(form->isWindowModified());
    EXPECT_TRUE(Read(S("form.aff")).startsWith("PK"));
}

TEST_F(MdiSheetwrightTest, UnchangedFormClosesWithoutAQuestion) {
    Open(S("form.aff"));
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages, IsEmpty());
    EXPECT_EQ(m_frame->PagePanel(), S(""));
    EXPECT_FALSE(Action("mnuFileClose")->isEnabled());
}

TEST_F(MdiSheetwrightTest, ClosedFormTakesItsTemporaryDirectoryAlong) {
    const QString folder = Open(S("form.aff"))->Document().MyTempDir;
    ASSERT_TRUE(QDir(folder).exists());
    Do("mnuFileClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(MdiSheetwrightTest, ChangedFormAsksBeforeItCloses) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    Do("mnuFileClose");
    EXPECT_NE(m_frame->Active(), nullptr);
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{S("Save any changes?"), m_application->Title,
                                                        MessageIcon::Question, MessageButtons::YesNoCancel}));
}

TEST_F(MdiSheetwrightTest, AnswerNoClosesAndSavesNothing) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::No};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_EQ(Read(S("form.aff")), TwoPages());
}

TEST_F(MdiSheetwrightTest, AnswerYesSavesAndCloses) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_TRUE(Read(S("form.aff")).startsWith("PK"));
}

TEST_F(MdiSheetwrightTest, WhatIsBeingTypedCountsAsAChange) {
    Open(S("form.aff"));
    QTest::keyClicks(QApplication::focusWidget(), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    Do("mnuFileClose");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Save any changes?")));
}

TEST_F(MdiSheetwrightTest, UntitledFormIsSavedUnderANewName) {
    Type(*OpenTemplate(S("form.aft")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Choose(Path(S("new.aff")));
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), nullptr);
    EXPECT_TRUE(Read(S("new.aff")).startsWith("PK"));
    EXPECT_EQ(m_ui.fileDialogs.back().title, S("Save As"));
    EXPECT_EQ(m_ui.fileDialogs.back().flags & dialogs::kOverwritePrompt, dialogs::kOverwritePrompt);
}

TEST_F(MdiSheetwrightTest, CancelledSaveAsKeepsTheFormOpen) {
    FormWindow* const form = OpenTemplate(S("form.aft"));
    Type(*form, S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuFileClose");
    EXPECT_EQ(m_frame->Active(), form);
    EXPECT_TRUE(form->Document().Tag.endsWith(S("form.aft")));
}

TEST_F(MdiSheetwrightTest, FormThatCantBeSavedStaysOpen) {
    Type(*OpenTemplate(S("form.aft")), S("Finch"));
    m_ui.answers = {MessageAnswer::Yes};
    Choose(Path(S("no")) + S("/folder/new.aff"));
    Do("mnuFileClose");
    EXPECT_NE(m_frame->Active(), nullptr);
}

TEST_F(MdiSheetwrightTest, BusyFormCantBeClosed) {
    FormWindow* const form = Open(S("form.aff"));
    form->Document().Busy = 1;
    EXPECT_FALSE(m_frame->close());
    EXPECT_TRUE(m_frame->isVisible());
    form->Document().Busy = 0;
    EXPECT_TRUE(m_frame->close());
}

TEST_F(MdiSheetwrightTest, FrameStaysOpenWithAFormThatDoes) {
    Type(*Open(S("form.aff")), S("Finch"));
    m_ui.answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(m_frame->close());
    EXPECT_EQ(m_frame->Forms().size(), 1U);
}

TEST_F(MdiSheetwrightTest, ButtonsTurnThePages) {
    FormWindow* const form = Open(S("form.aff"));
    EXPECT_FALSE(m_frame->findChild<QToolButton*>(S("cmd_firstpage"))->isEnabled());
    Click("cmd_nextpage");
    EXPECT_EQ(form->Document().DataPageNum, 2);
    EXPECT_EQ(m_frame->PagePanel(), S("2/2 - Results "));
    EXPECT_EQ(PageBox(), S("2/2"));
    EXPECT_FALSE(m_frame->findChild<QToolButton*>(S("cmd_lastpage"))->isEnabled());
    Click("cmd_prevpage");
    EXPECT_EQ(form->Document().DataPageNum, 1);
    Click("cmd_lastpage");
    Click("cmd_firstpage");
    EXPECT_EQ(form->Document().DataPageNum, 1);
    EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(MdiSheetwrightTest, TurningAPageKeepsWhatWasTyped) {
    FormWindow* const form = Open(S("form.aff"));
    QTest::keyClicks(QApplication::focusWidget(), S("Finch"));
    Click("cmd_nextpage");
    Click("cmd_prevpage");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Finch"));
}

TEST_F(MdiSheetwrightTest, AddPageAppendsAPageOfTheChosenDesign) {
    FormWindow* const form = Open(S("form.aff"));
    QStringList offered;
    QTimer::singleShot(0, m_frame.get(), [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        auto* const designs = dialog->findChild<QListWidget*>();
        for (int row = 0; row < designs->count(); ++row)
            offered << designs->item(row)->text();
        EXPECT_EQ(designs->currentRow(), 0);
        EXPECT_FALSE(m_frame->IsEnabled());
        designs->setCurrentRow(1);
        dialog->findChild<QPushButton*>(S("cmdAdd"))->click();
    });
    Do("mnuPageAdd");
    EXPECT_EQ(offered, QStringList({S("Cover"), S("Results")}));
    EXPECT_EQ(form->Document().Pages, 3);
    EXPECT_EQ(form->Document().memory.WhichDesign(3), 2);
    EXPECT_EQ(m_frame->PagePanel(), S("3/3 - Results "));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_TRUE(form->isAncestorOf(m_frame->focusWidget()));
}

TEST_F(MdiSheetwrightTest, CancelledAddPageChangesNothing) {
    FormWindow* const form = Open(S("form.aff"));
    QTimer::singleShot(0, m_frame.get(),
                       [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    Do("mnuPageAdd");
    EXPECT_EQ(form->Document().Pages, 2);
    EXPECT_FALSE(form->Document().Changed);
}

TEST_F(MdiSheetwrightTest, FormulasAreUpdatedAndTheirFailureIsTold) {
    FormText text;
    text.Page(S("Cover")).Field(S("A")).Formula(S("Sum"), S("SETME(ADD(1,2))"));
    text.Data(1, {S("A=1"), S("Sum=")});
    FormWindow* const form = Open(S("form.aff"), text.Bytes());
    Do("MnuEditUpdate");
    EXPECT_EQ(form->Document().page->Entries.At(2).text, S("3"));

    FormText broken;
    broken.Page(S("Cover")).Field(S("A")).Formula(S("Sum"), S("SETME(EQUAL(1,\"abc\"))"));
    broken.Data(1, {S("A=1"), S("Sum=")});
    Open(S("broken.aff"), broken.Bytes());
    m_ui.messages.clear();
    Do("MnuEditUpdate");
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{S("Error 13: Type mismatch"), m_application->Title,
                                                        MessageIcon::Critical}));
    EXPECT_TRUE(m_frame->IsEnabled());
    EXPECT_EQ(m_frame->Forms().size(), 2U);
}

TEST_F(MdiSheetwrightTest, BlankFieldsAreHighlightedWhenTicked) {
    FormText text;
    text.Page(S("Cover")).Field(S("A")).Field(S("B"));
    text.Data(1, {S("A=1"), S("B=")});
    FormWindow* const form = Open(S("form.aff"), text.Bytes());
    Do("mnuOptionsBlank");
    EXPECT_TRUE(m_frame->IsBlankTicked());
    EXPECT_EQ(form->Document().page->Entries.At(2).backColor, 255U);
    Do("mnuOptionsBlank");
    EXPECT_EQ(form->Document().page->Entries.At(2).backColor, 0xFFFFFFU);
}

TEST_F(MdiSheetwrightTest, OpeningAFormClearsTheTickOfBlankFields) {
    Do("mnuOptionsBlank");
    Open(S("form.aff"));
    EXPECT_FALSE(m_frame->IsBlankTicked());
}

TEST_F(MdiSheetwrightTest, MissingFormLeavesTheTickOfBlankFields) {
    Do("mnuOptionsBlank");
    m_frame->DialogFileName = Path(S("nothing.aff"));
    m_frame->OpenFromDialogSlot();
    EXPECT_TRUE(m_frame->IsBlankTicked());
}

TEST_F(MdiSheetwrightTest, MissingTemplateClearsTheTickOfBlankFields) {
    Do("mnuOptionsBlank");
    m_frame->OpenTemplate(Path(S("nothing.aft")));
    EXPECT_FALSE(m_frame->IsBlankTicked());
    EXPECT_EQ(m_frame->Active(), nullptr);
}

TEST_F(MdiSheetwrightTest, RemembersItsPlaceAndItsTick) {
    m_frame->setGeometry(20, 30, 500, 400);
    Do("mnuOptionsBlank");
    EXPECT_TRUE(m_frame->close());
    const auto stored = [this](const char* key) {
        return m_application->settings.Read(m_application->Title, S("mdiSheetwright"), S(key));
    };
    EXPECT_EQ(stored("MainWidth"), S("7500"));
    EXPECT_EQ(stored("MainHeight"), S("6000"));
    EXPECT_EQ(stored("BlankSelected"), S("True"));
    Unload();
    Load();
    EXPECT_EQ(m_frame->size(), QSize(500, 400));
    EXPECT_TRUE(m_frame->IsBlankTicked());
}

TEST_F(MdiSheetwrightTest, FrameMinimisedWhenClosedKeepsTheStoredPlace) {
    m_frame->setGeometry(20, 30, 500, 400);
    m_frame->close();
    m_frame->setGeometry(0, 0, 700, 600);
    m_frame->showMinimized();
    m_frame->close();
    EXPECT_EQ(m_application->settings.Read(m_application->Title, S("mdiSheetwright"), S("MainWidth")),
              S("7500"));
}

TEST_F(MdiSheetwrightTest, StoredPlaceOffTheScreenIsBroughtBack) {
    for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S(key), S("9999999999"));
    m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S("MainLeft"), S("-90000"));
    Unload();
    Load();
    EXPECT_GE(m_frame->x(), 0);
    EXPECT_GE(m_frame->width(), 300);
}

TEST_F(MdiSheetwrightTest, DisabledFrameTakesNoKeysAndKeepsTheFocus) {
    FormWindow* const form = Open(S("form.aff"));
    QWidget* const focus = QApplication::focusWidget();
    m_frame->SetEnabled(false);
    QTest::keyClicks(focus, S("Finch"));
    Click("cmd_nextpage");
    Do("mnuPageAdd");
    EXPECT_FALSE(m_frame->close());
    m_frame->SetEnabled(true);
    EXPECT_EQ(QApplication::focusWidget(), focus);
    EXPECT_EQ(form->Document().DataPageNum, 1);
    QTest::keyClicks(focus, S("M"));
    QTest::keyClick(focus, Qt::Key_Tab);
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("M"));
}

TEST_F(MdiSheetwrightTest, CommandWithinACommandIsNotTaken) {
    m_ui.onFileDialog = [this](FileDialog& dialog) {
        EXPECT_FALSE(m_frame->close());
        dialog.fileName = Write(S("form.aff"), TwoPages());
        Do("mnuFileOpen");
    };
    Do("mnuFileOpen");
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_frame->Forms().size(), 1U);
}

TEST_F(MdiSheetwrightTest, ZoomBoxFollowsTheFormInFront) {
    FormWindow* const form = Open(S("form.aff"));
    const auto* const box = m_frame->findChild<QToolButton*>(S("Zoom"));
    EXPECT_EQ(box->text(), S("100\u00A0%"));
    Do("Zoom200");
    EXPECT_EQ(box->text(), S("200\u00A0%"));
    EXPECT_DOUBLE_EQ(form->View().Zoom(), 2);
    Do("mnuViewZoomOut");
    EXPECT_LT(form->View().Zoom(), 2);
    Do("mnuViewActualSize");
    EXPECT_DOUBLE_EQ(form->View().Zoom(), 1);
    Open(S("second.aff"))->View().SetZoom(4);
    EXPECT_EQ(box->text(), S("400\u00A0%"));
}

TEST_F(MdiSheetwrightTest, WindowsAreArranged) {
    FormWindow* const first = Open(S("first.aff"));
    FormWindow* const second = Open(S("second.aff"));
    const QSize room = m_frame->findChild<QMdiArea*>()->viewport()->size();
    Do("mnuWindowTileHorizontally");
    EXPECT_EQ(first->parentWidget()->width(), room.width());
    EXPECT_EQ(first->parentWidget()->height() + second->parentWidget()->height(), room.height());
    Do("mnuWindowCascade");
    EXPECT_EQ(first->parentWidget()->size(), room * 3 / 4);
    EXPECT_GT(second->parentWidget()->y(), first->parentWidget()->y());
    Do("mnuWindowTileVertically");
    EXPECT_EQ(first->parentWidget()->height(), room.height());
    EXPECT_EQ(first->parentWidget()->width() + second->parentWidget()->width(), room.width());
}

TEST_F(MdiSheetwrightTest, OptionsToggleWithoutAForm) {
    Do("mnuOptionsBlank");
    EXPECT_TRUE(m_frame->IsBlankTicked());
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiSheetwrightTest, EveryButtonOfThePanelTellsWhatItDoes) {
    for (const char* name : {"cmd_firstpage", "cmd_prevpage", "cmd_nextpage", "cmd_lastpage", "Zoom"})
        EXPECT_FALSE(m_frame->findChild<QToolButton*>(S(name))->accessibleName().isEmpty()) << name;
}

class MdiViewerTest : public MdiSheetwrightTest {
  protected:
    MdiViewerTest() : MdiSheetwrightTest(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(MdiViewerTest, HidesWhatChangesForms) {
    EXPECT_EQ(m_frame->windowTitle(), S("Tolvane Ketterlin Professional Viewer"));
    Open(S("form.aff"));
    for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "Save", "MnuEditUpdate", "mnuPageAdd"})
        EXPECT_FALSE(Action(name)->isVisible()) << name;
    EXPECT_FALSE(m_frame->findChild<QMenu*>(S("mnuPage"))->menuAction()->isVisible());
    EXPECT_TRUE(Action("mnuFileOpen")->isVisible());
}

TEST_F(MdiViewerTest, TurnsPages) {
    const auto place = [this] { return m_frame->PagePanel(); };
    Open(S("form.aff"));
    Click("cmd_nextpage");
    EXPECT_EQ(place(), S("2/2 - Results "));
    Do("mnuFileClose");
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiViewerTest, PageKeysTurnPagesAndOfferNone) {
    FormWindow* const form = Open(S("form.aff"));
    ASSERT_EQ(QApplication::focusWidget(), &form->View());
    const auto press = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_PageDown);
    EXPECT_EQ(form->Document().DataPageNum, 2);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageUp);
    EXPECT_EQ(form->Document().DataPageNum, 1);
    EXPECT_TRUE(form->Document().page->CurrentEntry.IsNone());
}

TEST(StatusPanel, BarLiesBehindTheText) {
    StatusPanel panel;
    panel.resize(400, 24);
    panel.ShowStatus(S("Ready"));
    panel.ShowProgress();
    panel.SetProgress(40);
    const int text = panel.fontMetrics().horizontalAdvance(S("Ready"));
    EXPECT_EQ(panel.Progress().x(), text + 16);
    EXPECT_EQ(panel.Progress().width(), 400 - text - 24);
    EXPECT_EQ(panel.Progress().value(), 40);
    panel.HideProgress();
    EXPECT_TRUE(panel.Progress().isHidden());
}

TEST(StatusPanel, BarHasNoRoomBesideALongText) {
    StatusPanel panel;
    panel.resize(40, 24);
    panel.ShowStatus(S("Reading template into memory..."));
    EXPECT_EQ(panel.Progress().width(), 0);
}

}  // namespace

}  // namespace sheetwright
