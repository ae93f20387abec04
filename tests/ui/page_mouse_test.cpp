#include "ui/page_mouse.h"

#include "document/page_view_layout.h"
#include "page_view_test.h"

namespace sheetwright {
namespace {

using PageMouseTest = PageViewTest;

TEST_F(PageMouseTest, ClickIntoAFieldEditsIt) {
    OpenForm();
    Click(CentreOf(2));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    ASSERT_TRUE(View().Editor().IsShown());
    EXPECT_EQ(QApplication::focusWidget(), View().Editor().FocusWidget());
    QTest::keyClicks(QApplication::focusWidget(), S("Paris"));
    Click(CentreOf(1));
    EXPECT_EQ(Text(2), S("Paris"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_TRUE(Document().Changed);
}

TEST_F(PageMouseTest, ClickOnAReadOnlyFieldPassesTheFocusOn) {
    OpenForm();
    Click(CentreOf(3));
    EXPECT_NE(ThePage().CurrentEntry, Entry(3));
}

TEST_F(PageMouseTest, ClickElsewhereLeavesTheField) {
    OpenForm();
    Click(CentreOf(2));
    QTest::keyClicks(QApplication::focusWidget(), S("Rome"));
    Click({700, 500});
    EXPECT_EQ(ThePage().CurrentEntry, kNone);
    EXPECT_FALSE(View().Editor().IsShown());
    EXPECT_TRUE(View().hasFocus());
    EXPECT_EQ(Text(2), S("Rome"));
}

TEST_F(PageMouseTest, ClickOnACheckBoxGoesThroughItsStates) {
    OpenForm();
    QStringList states;
    for (int click = 0; click < 5; ++click) {
        Click(CentreOfCheck(1));
        states << CheckState();
    }
    EXPECT_EQ(states, QStringList({S("1"), S("2"), S("3"), S("0"), S("1")}));
    EXPECT_EQ(ThePage().CurrentEntry, Check(1));
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(PageMouseTest, ReleaseOnAnotherPageThanThePressIsNoClick) {
    OpenForm();
    QTest::mousePress(&View(), Qt::LeftButton, {}, CentreOfCheck(1));
    LoadPage(Document());
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, CentreOfCheck(1));
    EXPECT_EQ(CheckState(), S("0"));
}

TEST_F(PageMouseTest, DoubleClickOnACheckBoxIsTwoClicks) {
    OpenForm();
    Click(CentreOfCheck(1));
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, CentreOfCheck(1));
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, CentreOfCheck(1));
    EXPECT_EQ(CheckState(), S("2"));
}

TEST_F(PageMouseTest, ReleaseElsewhereIsNoClick) {
    OpenForm();
    QTest::mousePress(&View(), Qt::LeftButton, {}, CentreOfCheck(1));
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, CentreOfCheck(1) + QPoint(0, 100));
    EXPECT_EQ(CheckState(), S("0"));
}

TEST_F(PageMouseTest, DoubleClickOnAPictureFieldChoosesAPicture) {
    OpenForm();
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString path = Path(S("red.png"));
    ASSERT_TRUE(image.save(path));
    m_ui.onFileDialog = [&](FileDialog& dialog) { dialog.fileName = path; };
    Click(CentreOfBitmap(1));
    EXPECT_EQ(ThePage().CurrentEntry, Bitmap(1));
    EXPECT_TRUE(m_ui.fileDialogs.empty());
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, CentreOfBitmap(1));
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(ThePage().Bitmaps.At(1).control->Value(), S("red.png"));
    EXPECT_GT(CountOf(Grab(), 0xFF0000), 1000);
}

TEST_F(PageMouseTest, SpaceWorksTheCheckBoxWithTheFocus) {
    OpenForm();
    Click(CentreOfCheck(1));
    Press(Qt::Key_Space);
    EXPECT_EQ(CheckState(), S("2"));
}

TEST_F(PageMouseTest, TabLeavesACheckBoxForTheNextField) {
    OpenForm();
    Click(CentreOfCheck(1));
    Press(Qt::Key_Tab);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_EQ(QApplication::focusWidget(), View().Editor().FocusWidget());
}

TEST_F(PageMouseTest, DragMovesAValue) {
    OpenForm();
    Drag(CentreOf(1), CentreOf(2));
    EXPECT_EQ(Text(1), QString());
    EXPECT_EQ(Text(2), S("Ada"));
    EXPECT_TRUE(Document().Changed);
}

TEST_F(PageMouseTest, DragWithCtrlCopiesAValue) {
    OpenForm();
    Drag(CentreOf(1), CentreOf(2), Qt::ControlModifier);
    EXPECT_EQ(Text(1), S("Ada"));
    EXPECT_EQ(Text(2), S("Ada"));
}

TEST_F(PageMouseTest, DragShowsItsPictureUntilItEnds) {
    OpenForm();
    BeginDrag(CentreOf(1), CentreOf(2));
    EXPECT_EQ(View().cursor().shape(), Qt::BitmapCursor);
    EXPECT_FALSE(View().Editor().IsShown());
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, CentreOf(2));
    EXPECT_EQ(View().cursor().shape(), Qt::IBeamCursor);
}

TEST_F(PageMouseTest, EscapeCancelsADrag) {
    OpenForm();
    BeginDrag(CentreOf(1), CentreOf(2));
    ASSERT_TRUE(View().hasFocus());
    Press(Qt::Key_Escape);
    EXPECT_EQ(ThePage().drag.mode, 0);
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, CentreOf(2));
    EXPECT_EQ(Text(1), S("Ada"));
    EXPECT_EQ(Text(2), S("London"));
}

TEST_F(PageMouseTest, DragEndsWhenTheWindowIsLeft) {
    OpenForm();
    BeginDrag(CentreOf(1), CentreOf(2));
    QEvent event(QEvent::WindowDeactivate);
    QApplication::sendEvent(&View(), &event);
    EXPECT_EQ(ThePage().drag.mode, 0);
    EXPECT_EQ(Text(2), S("London"));
}

TEST_F(PageMouseTest, DragWhoseReleaseGotLostEndsWithTheNextMove) {
    OpenForm();
    BeginDrag(CentreOf(1), CentreOf(2));
    MoveTo(CentreOf(2));
    EXPECT_EQ(ThePage().drag.mode, 0);
    EXPECT_EQ(Text(2), S("London"));
}

TEST_F(PageMouseTest, DropOutsideOfTheViewDropsNothing) {
    OpenForm();
    BeginDrag(CentreOf(1), CentreOf(2));
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(ThePage().drag.mode, 0);
    EXPECT_EQ(Text(1), S("Ada"));
}

TEST_F(PageMouseTest, MiddleButtonPans) {
    OpenForm();
    QTest::mousePress(&View(), Qt::MiddleButton, {}, {300, 300});
    EXPECT_EQ(View().cursor().shape(), Qt::ClosedHandCursor);
    MoveTo({260, 230}, Qt::MiddleButton);
    EXPECT_EQ(ThePage().hsbForm.value, 40);
    EXPECT_EQ(ThePage().vsbForm.value, 70);
    QTest::mouseRelease(&View(), Qt::MiddleButton, {}, {260, 230});
    MoveTo({100, 100});
    EXPECT_EQ(ThePage().hsbForm.value, 40);
    EXPECT_NE(View().cursor().shape(), Qt::ClosedHandCursor);
}

TEST_F(PageMouseTest, WheelScrolls) {
    OpenForm();
    Wheel({0, -120});
    EXPECT_GT(ThePage().vsbForm.value, 0);
    EXPECT_EQ(ThePage().hsbForm.value, 0);
    EXPECT_EQ(Bar(Qt::Vertical)->value(), ThePage().vsbForm.value);
    Wheel({0, 120});
    EXPECT_EQ(ThePage().vsbForm.value, 0);
}

TEST_F(PageMouseTest, WheelWithShiftScrollsSideways) {
    OpenForm();
    Wheel({0, -120}, Qt::ShiftModifier);
    EXPECT_GT(ThePage().hsbForm.value, 0);
    EXPECT_EQ(ThePage().vsbForm.value, 0);
}

TEST_F(PageMouseTest, SmallTurnsOfTheWheelAddUp) {
    OpenForm();
    for (int turn = 0; turn < 120; ++turn)
        Wheel({0, -1});
    const int slow = ThePage().vsbForm.value;
    ScrollTo(Document(), 0, 0);
    Wheel({0, -120});
    EXPECT_NEAR(ThePage().vsbForm.value, slow, 1);
}

TEST_F(PageMouseTest, WheelWithCtrlZoomsAtThePointer) {
    OpenForm();
    const QPointF position(300, 200);
    const QPointF before = View().OnPage(position);
    Wheel({0, 120}, Qt::ControlModifier, position.toPoint());
    EXPECT_GT(View().Zoom(), 1);
    EXPECT_NEAR(View().OnPage(position).x(), before.x(), 16);
    EXPECT_NEAR(View().OnPage(position).y(), before.y(), 16);
    Wheel({0, -120}, Qt::ControlModifier, position.toPoint());
    EXPECT_DOUBLE_EQ(View().Zoom(), 1);
}

TEST_F(PageMouseTest, PointerTellsWhatCanBeDone) {
    OpenForm();
    const auto shapeAt = [this](QPoint position) {
        MoveTo(position);
        return View().cursor().shape();
    };
    LeaveFields();
    EXPECT_EQ(shapeAt(CentreOf(2)), Qt::IBeamCursor);
    EXPECT_EQ(shapeAt(CentreOf(3)), Qt::ArrowCursor);
    EXPECT_EQ(shapeAt(CentreOfCheck(1)), Qt::PointingHandCursor);
    EXPECT_EQ(shapeAt(CentreOfBitmap(1)), Qt::PointingHandCursor);
    EXPECT_EQ(shapeAt({700, 500}), Qt::ArrowCursor);
}

TEST_F(PageMouseTest, ReadOnlyDocumentIsNotWorked) {
    ASSERT_NO_FATAL_FAILURE(Open(m_form, true));
    ASSERT_TRUE(Document().MyReadonly);
    Click(CentreOf(2));
    EXPECT_FALSE(View().Editor().IsShown());
    Click(CentreOfCheck(1));
    EXPECT_EQ(CheckState(), S("0"));
    Drag(CentreOf(1), CentreOf(2));
    EXPECT_EQ(Text(2), S("London"));
    MoveTo(CentreOf(2));
    EXPECT_EQ(View().cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(Document().Changed);
}

TEST_F(PageMouseTest, NothingIsWorkedWhileTheFrameIsDisabled) {
    OpenForm();
    m_frame.enabled = false;
    Click(CentreOfCheck(1));
    EXPECT_EQ(CheckState(), S("0"));
}

TEST_F(PageMouseTest, FailureOfAnEventIsToldAndStaysInIt) {
    OpenForm();
    m_ui.onFileDialog = [](FileDialog&) { throw Failure(failure::kPathNotFound); };
    Click(CentreOfBitmap(1));
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, CentreOfBitmap(1));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error 76: Path not found")));
    EXPECT_EQ(ErrorRows().size(), 1U);
}

TEST_F(PageMouseTest, DragAtTheEdgeScrolls) {
    OpenForm();
    BeginDrag(CentreOf(1), {300, View().height() - 2});
    EXPECT_TRUE(QTest::qWaitFor([this] { return ThePage().vsbForm.value > 0; }));
    Press(Qt::Key_Escape);
    EXPECT_EQ(Text(1), S("Ada"));
}

}  // namespace
}  // namespace sheetwright
