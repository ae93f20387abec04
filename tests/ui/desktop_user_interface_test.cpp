#include "ui/desktop_user_interface.h"

#include "core/application.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/file_dialog.h"
#include "ui/lazy_printers.h"
#include "ui/status_panel.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;

template <typename Dialog>
Dialog* Shown() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

class DesktopUserInterfaceTest : public ApplicationTest {
  protected:
    DesktopUserInterfaceTest() { m_desktop.UseLanguageOf(*m_application); }

    // What the person does as soon as a dialog is there.
    static void Then(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }

    static void Press(const QString& words) {
        Then([words] {
            for (QAbstractButton* const button : Shown<QMessageBox>()->buttons())
                if (button->text() == words) return button->click();
            ADD_FAILURE() << "no button " << words.toStdString();
            Shown<QMessageBox>()->reject();
        });
    }

    MessageAnswer Ask(MessageButtons buttons) {
        return m_desktop.ShowMessage(S("Save any changes?"), S("Sheetwright"), MessageIcon::Question,
                                     buttons);
    }

    DesktopUserInterface m_desktop;
};

TEST_F(DesktopUserInterfaceTest, MessageShowsTextTitleAndIcon) {
    Then([] {
        auto* const box = Shown<QMessageBox>();
        EXPECT_EQ(box->text(), S("<b>5 &lt; 6"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->windowTitle(), S("Load form"));
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        EXPECT_EQ(box->buttons().size(), 1);
        box->buttons().front()->click();
    });
    EXPECT_EQ(
        m_desktop.ShowMessage(S("<b>5 &lt; 6"), S("Load form"), MessageIcon::Critical, MessageButtons::Ok),
        MessageAnswer::Ok);
}

TEST_F(DesktopUserInterfaceTest, AnswerIsThePressedButton) {
    Press(S("&Yes"));
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::Yes);
    Press(S("&No"));
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::No);
    Press(S("Cancel"));
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
    Press(S("&No"));
    EXPECT_EQ(Ask(MessageButtons::YesNo), MessageAnswer::No);
}

TEST_F(DesktopUserInterfaceTest, EscapeCancelsWhereThatIsOffered) {
    Then([] { QTest::keyClick(Shown<QMessageBox>(), Qt::Key_Escape); });
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
    Then([] { QTest::keyClick(Shown<QMessageBox>(), Qt::Key_Escape); });
    EXPECT_EQ(Ask(MessageButtons::Ok), MessageAnswer::Ok);
}

TEST_F(DesktopUserInterfaceTest, EscapeIsNoWhereOnlyYesAndNoAreOffered) {
    Then([] { QTest::keyClick(Shown<QMessageBox>(), Qt::Key_Escape); });
    EXPECT_EQ(Ask(MessageButtons::YesNo), MessageAnswer::No);
}

TEST_F(DesktopUserInterfaceTest, ButtonsSpeakTheLanguageOfTheApplication) {
    m_application->LoadDictionary(S(SHEETWRIGHT_SOURCE_DIR "/share/languages/de/Sheetwright.DIC"));
    Press(S("&Ja"));
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::Yes);
    Press(S("Abbrechen"));
    EXPECT_EQ(Ask(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
}

TEST_F(DesktopUserInterfaceTest, WordOfThePanelItselfIsNoStatus) {
    StatusPanel panel;
    m_desktop.SetStatus(S("Ready"));
    m_desktop.UseStatusPanel(panel);
    EXPECT_EQ(panel.text(), S("Ready"));
    m_desktop.SetStatus(S("Saving fields..."));
    m_desktop.SetStatus(S("Status"));
    EXPECT_EQ(panel.text(), S("Saving fields..."));
    EXPECT_EQ(m_desktop.Status(), S("Saving fields..."));
}

TEST_F(DesktopUserInterfaceTest, WorksWithoutAPanelAndAfterIt) {
    m_desktop.ShowProgress();
    {
        StatusPanel panel;
        m_desktop.UseStatusPanel(panel);
        m_desktop.ShowProgress();
        m_desktop.SetProgress(70);
        EXPECT_EQ(panel.Progress().value(), 70);
    }
    m_desktop.SetProgress(80);
    m_desktop.SetStatus(S("Ready"));
    m_desktop.HideProgress();
    EXPECT_EQ(m_desktop.Status(), S("Ready"));
}

TEST_F(DesktopUserInterfaceTest, PointerIsSetAndNotCounted) {
    m_desktop.SetPointer(Pointer::Hourglass);
    m_desktop.SetPointer(Pointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    m_desktop.SetPointer(Pointer::Normal);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    m_desktop.SetPointer(Pointer::Normal);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopUserInterfaceTest, DialogHasThePointerOfItsOwn) {
    m_desktop.SetPointer(Pointer::Hourglass);
    Then([] {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        Shown<QMessageBox>()->buttons().front()->click();
    });
    Ask(MessageButtons::Ok);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopUserInterfaceTest, PumpingRunsWhatWaitsOnceAndNotWithinItself) {
    int runs = 0;
    std::function<void()> pumpAgain = [&] {
        ++runs;
        m_desktop.PumpMessages();
    };
    QMetaObject::invokeMethod(qApp, pumpAgain, Qt::QueuedConnection);
    m_desktop.PumpMessages();
    EXPECT_EQ(runs, 1);
}

TEST_F(DesktopUserInterfaceTest, OpenDialogShowsWhatItIsToldAndGivesTheChoice) {
    const QString file = Write(S("folder/form.aft"), "x");
    FileDialog dialog;
    dialog.title = S("Open");
    dialog.filter = S("Forms|*.aff|Templates|*.aft;*.aftx");
    dialog.filterIndex = 2;
    dialog.initialFolder = Path(S("folder/"));
    dialog.fileName = S("*.aff");
    dialog.flags = dialogs::kFileMustExist;
    Then([&] {
        auto* const box = Shown<QFileDialog>();
        EXPECT_EQ(box->windowTitle(), S("Open"));
        EXPECT_EQ(box->fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(box->acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(box->selectedNameFilter(), S("Templates (*.aft *.aftx)"));
        EXPECT_EQ(QDir(box->directory()).absolutePath(), QDir(Path(S("folder"))).absolutePath());
        box->selectFile(file);
        QMetaObject::invokeMethod(box, "accept");
    });
    m_desktop.ShowOpen(dialog);
    EXPECT_EQ(dialog.fileName, file);
    EXPECT_EQ(dialog.filterIndex, 2);
}

TEST_F(DesktopUserInterfaceTest, SaveDialogGivesTheExtension) {
    FileDialog dialog;
    dialog.filter = S("Forms|*.aff");
    dialog.defaultExtension = S("aff");
    dialog.initialFolder = Path(S(""));
    dialog.flags = dialogs::kOverwritePrompt | dialogs::kPathMustExist;
    Then([&] {
        auto* const box = Shown<QFileDialog>();
        EXPECT_EQ(box->acceptMode(), QFileDialog::AcceptSave);
        box->selectFile(Path(S("new")));
        QMetaObject::invokeMethod(box, "accept");
    });
    m_desktop.ShowOpen(dialog);
    EXPECT_EQ(dialog.fileName, Path(S("new.aff")));
}

TEST_F(DesktopUserInterfaceTest, CancelledFileDialogRaises32755) {
    FileDialog dialog;
    dialog.fileName = S("kept");
    Then([] { Shown<QFileDialog>()->reject(); });
    EXPECT_EQ(FailureOf([&] { m_desktop.ShowOpen(dialog); }), 32755);
    EXPECT_EQ(dialog.fileName, S("kept"));
}

TEST_F(DesktopUserInterfaceTest, PrinterDialogWithoutPrintersIsCancelled) {
    PrinterDialog dialog;
    EXPECT_EQ(FailureOf([&] { m_desktop.ShowPrinter(dialog); }), 32755);
}

TEST_F(DesktopUserInterfaceTest, PersonIsToldThatThereIsNoPrinter) {
    LazyPrinters printers(*m_application);
    ASSERT_EQ(printers.Count(), 0);
    m_desktop.UsePrinters(printers);
    QString told;
    Then([&] {
        told = Shown<QMessageBox>()->text();
        QTest::keyClick(Shown<QMessageBox>(), Qt::Key_Escape);
    });
    PrinterDialog dialog;
    EXPECT_EQ(FailureOf([&] { m_desktop.ShowPrinter(dialog); }), 32755);
    EXPECT_EQ(told, S("No printer is installed."));
}

TEST(NameFilters, AreWordsAndPatternsInBrackets) {
    EXPECT_THAT(NameFilters(S("Pictures (*.png)|*.png;*.bmp|All Files (*.*)|*.*|Bare")),
                ElementsAre(S("Pictures (*.png *.bmp)"), S("All Files (*)"), S("Bare (*)")));
    EXPECT_THAT(NameFilters(QString()), ElementsAre());
}

TEST_F(DesktopUserInterfaceTest, PrintersAreNotAskedBeforeSomebodyWantsToKnow) {
    const LazyPrinters printers(*m_application);
    EXPECT_FALSE(printers.AreKnown());
    (void)printers.Count();
    EXPECT_TRUE(printers.AreKnown());
}

}  // namespace

}  // namespace sheetwright
