// What the other commands of the frame do.

#include "document/page.h"
#include "mdi_sheetwright_test.h"
#include "support/fixed_metrics.h"
#include "support/recording_printer.h"
#include "ui/frame_status_bar.h"
#include "ui/page_view.h"
#include "ui/status_panel.h"

#include <QDialog>
#include <QFile>
#include <QListWidget>
#include <QProgressBar>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrameCommandsTest : public MdiSheetwrightTest {
  protected:
    // What is done in the next dialog.
    void InDialog(const std::function<void(QDialog&)>& step) {
        QTimer::singleShot(0, m_frame.get(), [step] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            step(*dialog);
        });
    }

    [[nodiscard]] static QString FirstField(FormWindow& form) {
        return form.Document().page->Entries.At(1).text;
    }
};

TEST_F(FrameCommandsTest, EveryEntryOfAMenuIsHarmlessWithoutAForm) {
    InDialog([](QDialog& about) { about.reject(); });
    for (const QAction* const action : m_frame->findChildren<QAction*>())
        if (action->objectName().startsWith(S("mnu"), Qt::CaseInsensitive) &&
            action->objectName() != S("mnuFileExit"))
            const_cast<QAction*>(action)->trigger();
    EXPECT_THAT(m_frame->Forms(), IsEmpty());
    EXPECT_TRUE(m_frame->isVisible());
}

TEST_F(FrameCommandsTest, UndoBringsTheKeptValuesBack) {
    FormWindow* const form = Open(S("form.aff"));
    Do("mnuEditSetUndo");
    Press(Qt::Key_Tab);
    Type(*form, S("Finch"));
    form->Document().Changed = false;
    Do("mnuEditUndo");
    EXPECT_EQ(FirstField(*form), S("Marlow"));
    EXPECT_TRUE(form->Document().Changed);
    EXPECT_EQ(form->Document().DataPageNum, 1);
    EXPECT_EQ(m_frame->PagePanel(), S("1/2 - Cover "));
    EXPECT_EQ(PageBox(), S("1/2"));
    EXPECT_TRUE(form->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(FrameCommandsTest, UndoTwiceIsTheSameAsOnce) {
    FormWindow* const form = Open(S("form.aff"));
    Do("mnuEditSetUndo");
    Press(Qt::Key_Tab);
    Type(*form, S("Finch"));
    Do("mnuEditUndo");
    Type(*form, S("Heron"));
    Do("mnuEditUndo");
    EXPECT_EQ(FirstField(*form), S("Marlow"));
}

TEST_F(FrameCommandsTest, RevertShowsTheStoredValuesAgain) {
    FormWindow* const form = Open(S("form.aff"));
    Type(*form, S("Finch"));
    Do("mnuEditRevert");
    EXPECT_EQ(FirstField(*form), S("Marlow"));
}

TEST_F(FrameCommandsTest, RemovePageAsksAndShowsTheNext) {
    FormWindow* const form = Open(S("form.aff"));
    m_ui.answers = {MessageAnswer::Yes};
    Do("mnuPageRemove");
    EXPECT_THAT(m_ui.messages, ElementsAre(ShownMessage{S("Are you sure?"), S("Remove Page"),
                                                        MessageIcon::Question, MessageButtons::YesNo}));
    EXPECT_EQ(form->Document().Pages, 1);
    EXPECT_EQ(m_frame->PagePanel(), S("1/1 - Results "));
    Do("mnuPageRemove");
    EXPECT_EQ(m_ui.messages.size(), 1U);
}

TEST_F(FrameCommandsTest, GotoMovesToTheChosenPage) {
    FormWindow* const form = Open(S("form.aff"));
    InDialog([](QDialog& dialog) {
        dialog.findChild<QListWidget*>(S("lstPages"))->setCurrentRow(1);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(form->Document().DataPageNum, 2);
    EXPECT_TRUE(m_frame->IsEnabled());
    EXPECT_TRUE(form->isAncestorOf(m_frame->focusWidget()));  // the platform may give it back later
}

TEST_F(FrameCommandsTest, FormulasButtonAndKeyUpdate) {
    FormText text;
    text.Page(S("Cover")).Field(S("A")).Formula(S("Sum"), S("SETME(ADD(1,2))"));
    text.Data(1, {S("A=1"), S("Sum=")});
    FormWindow* const form = Open(S("form.aff"), text.Bytes());
    form->Document().memory.ReplaceDataLine(1, 3, S("Sum="));
    form->Document().page->Entries.At(2).text.clear();
    Do("Formulas");
    EXPECT_EQ(form->Document().page->Entries.At(2).text, S("3"));
    form->Document().page->Entries.At(2).text.clear();
    Press(Qt::Key_F9);
    EXPECT_EQ(form->Document().page->Entries.At(2).text, S("3"));
}

TEST_F(FrameCommandsTest, PrintAsksForThePages) {
    const FixedMetrics metrics;
    RecordingPrinter printer(metrics);
    RecordingPrinters printers(printer);
    m_application->printing.printers = &printers;
    Open(S("form.aff"));
    m_ui.onPrinterDialog = [](PrinterDialog&) { throw Failure(failure::kCancelled); };
    Do("mnuFilePrint");
    Do("Print");
    Press(Qt::Key_P, Qt::ControlModifier);
    m_application->printing.printers = nullptr;
    EXPECT_EQ(m_ui.printerDialogs.size(), 3U);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(FrameCommandsTest, PanelPageOpensTheEditMenu) {
    Open(S("form.aff"));
    Click("Page");
    EXPECT_TRUE(Menu("mnuPage").isVisible());
    Menu("mnuPage").close();
}

TEST_F(FrameCommandsTest, DoubleClickOnTheStatusBarTellsTheFreeResources) {
    auto* const bar = m_frame->findChild<FrameStatusBar*>();
    QTest::mouseDClick(&m_frame->Status(), Qt::LeftButton);
    QTest::mouseDClick(bar, Qt::LeftButton, {}, QPoint(1, 1));
    const ShownMessage told{S("You have 100% Free System Resources."), m_application->Title,
                            MessageIcon::Information};
    EXPECT_THAT(m_ui.messages, ElementsAre(told, told));
}

TEST_F(FrameCommandsTest, ResizedFramePlacesTheProgressBarAnew) {
    m_frame->Status().ShowStatus(S("Ready"));
    m_frame->Status().ShowProgress();
    m_frame->resize(700, 500);
    QCoreApplication::processEvents();
    const int text = m_frame->Status().fontMetrics().horizontalAdvance(S("Ready"));
    EXPECT_EQ(m_frame->Status().Progress().x(), text + 16);
    EXPECT_EQ(m_frame->Status().Progress().width(), m_frame->Status().width() - text - 24);
}

TEST_F(FrameCommandsTest, MinimisedFormsAreArrangedAlongTheLowerEdge) {
    FormWindow* const first = Open(S("first.aff"));
    FormWindow* const second = Open(S("second.aff"));
    const QRect room = m_frame->findChild<QMdiArea*>()->viewport()->rect();
    Do("mnuWindowArrange1");
    for (FormWindow* const form : {first, second}) {
        form->parentWidget()->showMinimized();
        form->parentWidget()->move(10, 10);
    }
    Do("mnuWindowArrange3");
    EXPECT_EQ(first->parentWidget()->geometry().bottomLeft(), room.bottomLeft());
    EXPECT_EQ(second->parentWidget()->x(), first->parentWidget()->width());
    EXPECT_EQ(second->parentWidget()->geometry().bottom(), room.bottom());
}

TEST_F(FrameCommandsTest, HelpThatIsNotInstalledIsTold) {
    Do("mnuHelpContents");
    Do("mnuHelpSearch");
    const ShownMessage told{
        S("Unable to display Help Contents. There is no Help associated with this application."),
        m_frame->windowTitle(), MessageIcon::Information};
    EXPECT_THAT(m_ui.messages, ElementsAre(told, told));
}

TEST_F(FrameCommandsTest, HelpShowsInAWindowOfItsOwn) {
    Write(S("help/index.html"),
          "<html><head><title>Help</title></head><body><ul><li>A</li></ul></body></html>");
    Press(Qt::Key_F1);
    EXPECT_THAT(m_ui.messages, IsEmpty());
    const auto isHelp = [this](const QWidget* window) {
        return window->isVisible() && window != m_frame.get();
    };
    const QWidgetList windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::ranges::any_of(windows, isHelp));
    m_frame->close();
    EXPECT_FALSE(std::ranges::any_of(windows, isHelp)) << "the program ends with its last window";
}

TEST_F(FrameCommandsTest, MissingTutorDoesNothing) {
    Do("MnuHelpTutor");
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(FrameCommandsTest, TutorThatCantBeStartedIsTold) {
    Write(S("Tutor/Tutor.exe"), "no program");
    Do("MnuHelpTutor");
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Unable to run Tutor")));
}

TEST_F(FrameCommandsTest, TutorIsStartedWithTheNameOfTheDeployment) {
    const QString told = Path(S("told"));
    const QString tutor =
        Write(S("Tutor/Tutor.exe"), "#!/bin/sh\necho \"$1\" > \"" + told.toUtf8() + ".part\"\nmv \"" +
                                        told.toUtf8() + ".part\" \"" + told.toUtf8() + "\"\n");
    QFile::setPermissions(tutor, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Do("MnuHelpTutor");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(told); }));
    EXPECT_EQ(Read(S("told")), "Sheetwright\n");
}

TEST_F(FrameCommandsTest, ButtonsSayWhatTheyDoAndWithWhichKey) {
    EXPECT_EQ(Action("New")->toolTip(), S("New (Ctrl+N)"));
    EXPECT_EQ(Action("AddPage")->toolTip(), S("Add Page"));
    for (const char* key : {"New", "Open", "Save", "Print", "Formulas", "AddPage"}) {
        EXPECT_FALSE(Action(key)->icon().isNull()) << key;
        EXPECT_FALSE(Action(key)->text().contains(u'&')) << key;
    }
}

TEST_F(FrameCommandsTest, PageBoxHasRoomForItsPattern) {
    const auto* const box = m_frame->findChild<QLabel*>(S("lblpages"));
    EXPECT_GE(box->minimumWidth(), box->fontMetrics().horizontalAdvance(S("000/000")));
}

}  // namespace

}  // namespace sheetwright
