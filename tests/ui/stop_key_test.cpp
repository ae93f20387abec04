#include "ui/stop_key.h"

#include "document/document.h"
#include "import/fetchdock.h"
#include "import/import.h"
#include "support/form_text.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/desktop_user_interface.h"
#include "ui/form_window.h"
#include "ui/mdi_sheetwright.h"
#include "ui/status_panel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace sheetwright {

namespace {

void Type(QWidget& widget, Qt::Key key, const QString& text = {}, bool isRepeated = false) {
    QCoreApplication::postEvent(&widget,
                                new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text, isRepeated));
    QCoreApplication::postEvent(&widget,
                                new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text, isRepeated));
}

void Click(QWidget& widget) {
    const QPointF inside(2, 2);
    const QPointF global = widget.mapToGlobal(inside);
    QCoreApplication::postEvent(&widget, new QMouseEvent(QEvent::MouseButtonPress, inside, global,
                                                         Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(&widget, new QMouseEvent(QEvent::MouseButtonRelease, inside, global,
                                                         Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
}

class Painted : public QWidget {
  public:
    int paints = 0;

  protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

class StopHintTest : public ApplicationTest {};

TEST_F(StopHintTest, BarTellsOfTheKeyOnlyWhereItIsAskedFor) {
    DesktopUserInterface desktop;
    StatusPanel panel;
    desktop.UseLanguageOf(*m_application);
    desktop.UseStatusPanel(panel);
    desktop.ShowProgress();
    EXPECT_FALSE(panel.Progress().isTextVisible());
    EXPECT_FALSE(desktop.IsStopWanted());
    EXPECT_TRUE(panel.Progress().isTextVisible());
    EXPECT_EQ(panel.Progress().format(), S("Esc stops"));
    desktop.ShowProgress();
    EXPECT_FALSE(panel.Progress().isTextVisible());
}

TEST(StopKeyTest, EscapeStopsWhatTheProgressBarShows) {
    DesktopUserInterface desktop;
    QWidget window;
    desktop.ShowProgress();
    EXPECT_FALSE(desktop.IsStopWanted());
    desktop.ShowProgress();
    Type(window, Qt::Key_Escape);
    EXPECT_TRUE(desktop.IsStopWanted());
    EXPECT_TRUE(desktop.IsStopWanted()) << "until something else begins";
    desktop.ShowProgress();
    EXPECT_FALSE(desktop.IsStopWanted());
}

TEST(StopKeyTest, WithoutAProgressBarNobodyStopsAnything) {
    DesktopUserInterface desktop;
    QLineEdit field;
    desktop.ShowProgress();
    desktop.HideProgress();
    Type(field, Qt::Key_Escape);
    Type(field, Qt::Key_A, S("a"));
    EXPECT_FALSE(desktop.IsStopWanted());
    EXPECT_EQ(field.text(), QString());
    QCoreApplication::sendPostedEvents(&field);
    EXPECT_EQ(field.text(), S("a")) << "it was not taken away";
}

TEST(StopKeyTest, StopIsForgottenWithTheProgressBar) {
    DesktopUserInterface desktop;
    QWidget window;
    desktop.ShowProgress();
    Type(window, Qt::Key_Escape);
    EXPECT_TRUE(desktop.IsStopWanted());
    desktop.HideProgress();
    EXPECT_FALSE(desktop.IsStopWanted());
}

TEST(StopKeyTest, EscapeThatIsHeldDownSinceBeforeIsNone) {
    StopKey key;
    QWidget window;
    Type(window, Qt::Key_Escape, {}, true);
    EXPECT_FALSE(key.WasPressed());
}

TEST(StopKeyTest, OtherKeysAndClicksAreLost) {
    StopKey key;
    QWidget window;
    QLineEdit field(&window);
    QPushButton button(&window);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    Type(field, Qt::Key_A, S("a"));
    Click(button);
    Type(field, Qt::Key_Escape);
    Type(field, Qt::Key_B, S("b"));
    EXPECT_TRUE(key.WasPressed());
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(clicks, 0);
    Click(button);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 1) << "afterwards all is as usual";
}

TEST(StopKeyTest, WindowsStayOpen) {
    StopKey key;
    QWidget window;
    window.show();
    QCoreApplication::postEvent(&window, new QEvent(QEvent::Close));
    EXPECT_FALSE(key.WasPressed());
    EXPECT_TRUE(window.isVisible());
}

TEST(StopKeyTest, WindowsArePainted) {
    StopKey key;
    Painted window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    const int before = window.paints;
    window.update();
    EXPECT_FALSE(key.WasPressed());
    EXPECT_GT(window.paints, before);
}

// The real window, with a design that adds pages for ever: a second column finds the first one's value.
class StoppedInTheWindow : public ApplicationTest {
  protected:
    StoppedInTheWindow()
        : m_program(m_application->Title, m_folder.path(), Settings(Path(S("set"))), m_desktop) {
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11907,16840\r\n");
        m_program.LoadPaperTable();
        m_desktop.UseLanguageOf(m_program);
        m_frame = std::make_unique<mdiSheetwright>(m_program);
        m_desktop.UseStatusPanel(m_frame->Status());
        m_frame->show();
        QApplication::setActiveWindow(m_frame.get());
    }

    FormWindow& Open() {
        FormText form;
        form.Page(S("A")).Field(S("Client"));
        form.Field(S("k"), {S("DataSource=*,DRIVERS\\meter"), S("NewPageOnReoccur=True")});
        m_frame->DialogFileName = Write(S("form.aff"), form.Data(1, {S("Client=Marlow")}).Bytes());
        m_frame->OpenFromDialogSlot();
        return *m_frame->Active();
    }
    [[nodiscard]] QString Table() const {
        Write(S("DRIVERS/meter/DRIVER.INF"), "");
        return Write(S("DRIVERS/meter/t.csv"), "K,V\r\na,1\r\n");
    }

    DesktopUserInterface m_desktop;
    Application m_program;
    std::unique_ptr<mdiSheetwright> m_frame;
};

TEST_F(StoppedInTheWindow, EscapeEndsAnImportWithoutAnEnd) {
    FormWindow& form = Open();
    frmSheetwright& document = form.Document();
    QWidget* const editor = QApplication::focusWidget();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, S("Finch"));
    const QString shown = m_frame->PagePanel();
    const bool wasChanged = document.Changed;
    m_frame->Run(S("Import"), [&] {
        Type(*editor, Qt::Key_X, S("x"));
        Type(*editor, Qt::Key_PageDown);
        Type(*editor, Qt::Key_Escape);
        m_frame->close();
        EXPECT_TRUE(Import(document, Table()).isStopped);
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_frame->isVisible());
    EXPECT_EQ(document.Pages, 1);
    EXPECT_EQ(m_frame->PagePanel(), shown);
    EXPECT_EQ(document.Changed, wasChanged);
    QWidget* const again = QApplication::focusWidget();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(qobject_cast<QLineEdit*>(again) == nullptr, qobject_cast<QLineEdit*>(editor) == nullptr);
    QTest::keyClick(again, Qt::Key_Tab);
    EXPECT_TRUE(document.Changed);
    SavePage(document);
    EXPECT_TRUE(document.memory.DataPage(1).Line(2) == u"Client=Finch")
        << document.memory.DataPage(1).Line(2).toString().toStdString();
    document.Changed = false;
}

}  // namespace

}  // namespace sheetwright
