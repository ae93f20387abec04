#include "form_window_test.h"

#include "document/page_moves.h"
#include "document/page_view_layout.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace sheetwright {
namespace {

class TheFormWindow : public FormWindowTest {
  protected:
    TheFormWindow() {
        m_form.Page(S("First")).Field(S("name"), At(100, 100)).Field(S("far"), At(700, 1100));
        m_form.Data(1, {S("name=Ada"), S("far=away")});
    }
    FormText m_form;
};

TEST_F(TheFormWindow, IsThePortOfItsDocument) {
    FormWindow window(*m_application);
    EXPECT_EQ(window.Document().window, &window);
    EXPECT_FALSE(window.IsShown());
    window.show();
    EXPECT_TRUE(window.IsShown());
    window.hide();
    EXPECT_TRUE(window.IsShown());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TheFormWindow, InsideIsTwipsOfThePageAtTheZoom) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    EXPECT_EQ(m_window->Inside(), (Size{800 * 15, 600 * 15}));
    const double breadth = m_window->ScrollBarBreadth();
    View().SetZoom(2);
    EXPECT_EQ(m_window->Inside(), (Size{400 * 15, 300 * 15}));
    EXPECT_DOUBLE_EQ(m_window->ScrollBarBreadth(), breadth / 2);
}

TEST_F(TheFormWindow, ScrollBarsShowThoseOfThePage) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    const ScrollBar& vertical = ThePage().vsbForm;
    QScrollBar& bar = *Bar(Qt::Vertical);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.maximum(), vertical.max);
    EXPECT_EQ(bar.singleStep(), 10);
    EXPECT_EQ(bar.pageStep(), vertical.largeChange);
    EXPECT_EQ(bar.geometry().right(), m_window->width() - 1);
    EXPECT_EQ(Bar(Qt::Horizontal)->geometry().bottom(), m_window->height() - 1);
    EXPECT_EQ(View().geometry().right() + 1, bar.geometry().left());
}

TEST_F(TheFormWindow, ScrollBarsMoveThePage) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    Bar(Qt::Vertical)->setValue(120);
    Bar(Qt::Horizontal)->setValue(50);
    EXPECT_EQ(ThePage().vsbForm.value, 120);
    EXPECT_EQ(ThePage().hsbForm.value, 50);
    EXPECT_EQ(Document().surfaces->picForm.Top, -120 * 15);
    EXPECT_EQ(View().OnScreen({0, 0, 0, 0}).topLeft(), QPointF(-50, -120));
}

TEST_F(TheFormWindow, FieldThatGetsTheFocusComesIntoView) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    ASSERT_EQ(ThePage().CurrentEntry, Entry(1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    EXPECT_GT(ThePage().vsbForm.value, 0);
    EXPECT_EQ(Bar(Qt::Vertical)->value(), ThePage().vsbForm.value);
    EXPECT_TRUE(View().rect().contains(View().OnScreen(ThePage().entryPlace).toAlignedRect()));
}

TEST_F(TheFormWindow, LargeWindowHidesItsScrollBars) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    m_window->resize(1100, 1300);
    EXPECT_FALSE(Bar(Qt::Horizontal)->isVisible());
    EXPECT_FALSE(Bar(Qt::Vertical)->isVisible());
    EXPECT_EQ(View().size(), m_window->size());
    m_window->resize(1100, 600);
    EXPECT_TRUE(Bar(Qt::Vertical)->isVisible());
    EXPECT_FALSE(Bar(Qt::Horizontal)->isVisible());
}

TEST_F(TheFormWindow, TinyWindowDoesNoHarm) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    m_window->resize(1, 1);
    m_window->resize(300, 0);
    View().FitWidth();
    m_window->resize(800, 600);
    View().ResetZoom();
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_DOUBLE_EQ(View().Zoom(), 1);
}

TEST_F(TheFormWindow, SubWindowTellsWhetherItIsMinimised) {
    QMdiArea area;
    area.resize(900, 700);
    auto* const window = new FormWindow(*m_application);
    QMdiSubWindow* const frame = area.addSubWindow(window);
    area.show();
    EXPECT_FALSE(window->IsMinimised());
    frame->showMinimized();
    EXPECT_TRUE(window->IsMinimised());
    frame->showNormal();
    EXPECT_FALSE(window->IsMinimised());
}

TEST_F(TheFormWindow, PageTurnedWhileTheWindowIsMinimisedHasItsPaperAfterwards) {
    m_form.Page(S("Second"), {S("PaperSize=11")}).Field(S("note"), At(100, 100)).Data(2, {S("note=small")});
    QMdiArea area;
    area.resize(900, 700);
    area.show();
    QMdiSubWindow* frame = nullptr;
    FormWindow* window = nullptr;
    OpenForm(
        *m_application, Write(S("form.aff"), m_form.Bytes()),
        [&]() -> frmSheetwright& {
            window = new FormWindow(*m_application);
            frame = area.addSubWindow(window);
            frame->resize(800, 600);
            frame->show();
            return window->Document();
        },
        [](frmSheetwright&) {});
    ASSERT_NE(window, nullptr);
    frame->showMinimized();
    MoveToPage(window->Document(), 2);
    frame->showNormal();
    const PictureSurface& picForm = window->Document().surfaces->picForm;
    EXPECT_EQ(picForm.Width(), 6000);
    EXPECT_EQ(picForm.Height(), 4500);
    EXPECT_FALSE(window->Document().page->vsbForm.isVisible);
    EXPECT_EQ(window->Document().page->picContainer,
              (Size{window->Inside().width - window->ScrollBarBreadth(),
                    window->Inside().height - window->ScrollBarBreadth()}));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TheFormWindow, FocusThatComesBackGoesToTheOpenEditor) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    QWidget* const editor = View().Editor().FocusWidget();
    ASSERT_EQ(QApplication::focusWidget(), editor);
    editor->clearFocus();
    m_window->setFocus();
    EXPECT_EQ(QApplication::focusWidget(), editor);
}

TEST_F(TheFormWindow, PageTurnedWhileAFieldIsEditedLeavesIt) {
    m_form.Data(1, {S("name=Grace"), S("far=near")});
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    QTest::keyClicks(QApplication::focusWidget(), S("Edsger"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_EQ(Document().DataPageNum, 2);
    EXPECT_EQ(Text(1), S("Grace"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp);
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(Text(1), S("Edsger"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_EQ(QApplication::focusWidget(), View().Editor().FocusWidget());
}

TEST_F(TheFormWindow, CloseAsks) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    bool mayClose = false;
    int asked = 0;
    m_window->MayClose = [&](FormWindow& window) {
        ++asked;
        EXPECT_EQ(&window, m_window.get());
        return mayClose;
    };
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    mayClose = true;
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(asked, 2);
}

TEST_F(TheFormWindow, BusyDocumentStaysOpen) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    int asked = 0;
    m_window->MayClose = [&](FormWindow&) { return ++asked > 0; };
    ++Document().Busy;
    EXPECT_FALSE(m_window->close());
    EXPECT_EQ(asked, 0);
    --Document().Busy;
    EXPECT_TRUE(m_window->close());
}

TEST_F(TheFormWindow, FailureWhileClosingKeepsItOpen) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    m_window->MayClose = [](FormWindow&) -> bool { throw Failure(failure::kDiskFull); };
    EXPECT_FALSE(m_window->close());
    EXPECT_EQ(m_ui.messages.size(), 1U);
}

TEST_F(TheFormWindow, ClosesWithAnEditOpen) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form));
    ASSERT_TRUE(View().Editor().IsShown());
    m_window.reset();
    EXPECT_TRUE(m_ui.messages.empty());
}

}  // namespace
}  // namespace sheetwright
