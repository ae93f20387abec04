#include "mdi_sheetwright_test.h"

#include "document/page.h"
#include "ui/form_area.h"
#include "ui/page_view.h"
#include "ui/status_panel.h"

#include <QDir>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

// Each change would wake the program, which brings the frame up to date before it waits.
TEST_F(MdiSheetwrightTest, FrameThatIsUpToDateChangesNothing) {
    for (FormWindow* const form : {Open(S("form.aff")), OpenTemplate(S("form.aft"))}) {
        m_frame->Area().BringToFront(*form);
        EXPECT_THAT(ChangedByRefresh(), IsEmpty());
    }
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

TEST_F(MdiSheetwrightTest, FormIsNoneOfTheOpenOnesWhenItsEndIsTold) {
    FormWindow* const form = Open(S("form.aff"));
    std::vector<std::size_t> open;
    m_frame->Area().Changed = [&] { open.push_back(m_frame->Forms().size()); };
    m_frame->UnloadDocument(form->Document());
    EXPECT_THAT(open, ::testing::AllOf(::testing::Not(IsEmpty()), ::testing::Each(0U)));
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

TEST_F(MdiSheetwrightTest, PagePanelAndBoxTellOfTheFormInFront) {
    FormWindow* const first = Open(S("first.aff"));
    Click("cmd_nextpage");
    Open(S("second.aff"));
    EXPECT_EQ(m_frame->PagePanel(), S("1/2 - Cover "));
    m_frame->Area().BringToFront(*first);
    EXPECT_EQ(m_frame->PagePanel(), S("2/2 - Results "));
    EXPECT_EQ(PageBox(), S("2/2"));
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
        auto* const designs = dialog->findChild<QListWidget*>(S("LstDesign"));
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
    Do("mnuWindowArrange1");
    EXPECT_EQ(first->parentWidget()->width(), room.width());
    EXPECT_EQ(first->parentWidget()->height() + second->parentWidget()->height(), room.height());
    Do("mnuWindowArrange0");
    EXPECT_EQ(first->parentWidget()->size(), room * 3 / 4);
    EXPECT_GT(second->parentWidget()->y(), first->parentWidget()->y());
    Do("mnuWindowArrange2");
    EXPECT_EQ(first->parentWidget()->height(), room.height());
    EXPECT_EQ(first->parentWidget()->width() + second->parentWidget()->width(), room.width());
}

TEST_F(MdiSheetwrightTest, OptionsToggleWithoutAForm) {
    for (const char* option : {"mnuOptionsSelected", "mnuOptionsBlank"}) {
        Do(option);
        EXPECT_TRUE(Action(option)->isChecked()) << option;
        Do(option);
        EXPECT_FALSE(Action(option)->isChecked()) << option;
    }
    EXPECT_THAT(m_frame->Forms(), IsEmpty());
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(MdiSheetwrightTest, EveryButtonOfThePanelTellsWhatItDoes) {
    for (const char* name : {"cmd_firstpage", "cmd_prevpage", "cmd_nextpage", "cmd_lastpage", "Zoom"})
        EXPECT_FALSE(m_frame->findChild<QToolButton*>(S(name))->accessibleName().isEmpty()) << name;
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
