#include "page_view_test.h"

#include "document/page_view_layout.h"
#include "support/paint_counter.h"

namespace sheetwright {
namespace {

TEST_F(PageViewTest, EditorLiesOverItsFieldAfterScrollAndZoom) {
    OpenForm();
    Click(CentreOf(1));
    const auto isOver = [this] {
        const QWidget* const editor = View().Editor().FocusWidget();
        const QPoint centre = editor->mapTo(&View(), editor->rect().center());
        const QPoint wanted = CentreOf(1);
        return (centre - wanted).manhattanLength() <= 6;
    };
    EXPECT_TRUE(isOver());
    ScrollTo(Document(), 30, 40);
    EXPECT_TRUE(isOver());
    View().SetZoom(2);
    EXPECT_TRUE(isOver());
}

TEST_F(PageViewTest, ZoomKeysWork) {
    OpenForm();
    LeaveFields();
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(View().Zoom(), 1.1);
    Press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(View().Zoom(), 1.25);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(View().Zoom(), 1.1);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(View().Zoom(), 1);
    Press(Qt::Key_0, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_LT(View().Zoom(), 1);
    EXPECT_FALSE(ThePage().hsbForm.isVisible);
    EXPECT_NEAR(View().OnScreen({0, 0, 15000, 1}).width(), View().width(), 1);
}

TEST_F(PageViewTest, ZoomKeysWorkWhileAFieldIsEdited) {
    OpenForm();
    Click(CentreOf(1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(View().Zoom(), 1.1);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
}

TEST_F(PageViewTest, ZoomLeavesTheLayoutAlone) {
    OpenForm();
    const Extent place = ThePage().Entries.At(1).place;
    const double width = Document().surfaces->picForm.Width();
    for (const double zoom : {0.25, 0.5, 2.0, 8.0}) {
        View().SetZoom(zoom);
        EXPECT_EQ(ThePage().Entries.At(1).place, place);
        EXPECT_EQ(Document().surfaces->picForm.Width(), width);
    }
    EXPECT_FALSE(Document().Changed);
}

TEST_F(PageViewTest, ScrollRangesFitTheZoom) {
    OpenForm();
    View().SetZoom(2);
    const Page& page = ThePage();
    ScrollTo(Document(), page.hsbForm.max, page.vsbForm.max);
    const QRectF onScreen = View().OnScreen({0, 0, 15000, 18000});
    EXPECT_NEAR(onScreen.right(), View().width(), 2);
    EXPECT_NEAR(onScreen.bottom(), View().height(), 2);
    EXPECT_EQ(Bar(Qt::Horizontal)->maximum(), page.hsbForm.max);
}

TEST_F(PageViewTest, ZoomKeepsTheCentre) {
    OpenForm();
    ScrollTo(Document(), 100, 200);
    const QPointF centre = View().OnPage(QRectF(View().rect()).center());
    View().SetZoom(3);
    const QPointF after = View().OnPage(QRectF(View().rect()).center());
    EXPECT_NEAR(after.x(), centre.x(), 16);
    EXPECT_NEAR(after.y(), centre.y(), 16);
}

TEST_F(PageViewTest, ZoomStaysInItsRange) {
    OpenForm();
    int changes = 0;
    View().ZoomChanged = [&] { ++changes; };
    View().SetZoom(100);
    EXPECT_DOUBLE_EQ(View().Zoom(), 8);
    View().ZoomIn();
    EXPECT_DOUBLE_EQ(View().Zoom(), 8);
    View().SetZoom(-1);
    EXPECT_DOUBLE_EQ(View().Zoom(), 0.25);
    View().ZoomOut();
    EXPECT_DOUBLE_EQ(View().Zoom(), 0.25);
    EXPECT_EQ(changes, 2);
}

TEST_F(PageViewTest, NarrowPageStandsInTheMiddle) {
    OpenForm();
    View().SetZoom(0.5);
    const QRectF page = View().OnScreen({0, 0, 15000, 18000});
    EXPECT_NEAR(page.left(), View().width() - page.right(), 1);
    EXPECT_EQ(page.top(), 0);
    EXPECT_EQ(View().ElementAt(CentreOf(2)), Entry(2));
}

TEST_F(PageViewTest, PlacesOnScreenAndOnThePageAreInverse) {
    OpenForm();
    View().SetZoom(1.5);
    ScrollTo(Document(), 20, 30);
    const QRectF place = View().OnScreen({1500, 3000, 100, 100});
    EXPECT_NEAR(View().OnPage(place.topLeft()).x(), 1500, 1e-6);
    EXPECT_NEAR(View().OnPage(place.topLeft()).y(), 3000, 1e-6);
}

TEST_F(PageViewTest, HiddenElementsAreNotUnderThePointer) {
    OpenForm();
    EXPECT_EQ(View().ElementAt(CentreOf(4)), kNone);
    EXPECT_EQ(View().ElementAt(CentreOf(3)), Entry(3));
    EXPECT_EQ(View().ElementAt(CentreOfCheck(1)), Check(1));
    Document().surfaces->picForm.Visible = false;
    EXPECT_EQ(View().ElementAt(CentreOf(3)), kNone);
}

TEST_F(PageViewTest, ArrowsScrollWhileNoElementHasTheFocus) {
    OpenForm();
    LeaveFields();
    View().setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(ThePage().vsbForm.value, 10);
    EXPECT_EQ(ThePage().hsbForm.value, 10);
}

TEST_F(PageViewTest, CurrentCheckBoxHasAFrame) {
    OpenForm();
    Click(CentreOfCheck(1));
    const QRect place = View().OnScreen(ThePage().Checks.At(1).place).toAlignedRect();
    const QImage focused = Grab();
    EXPECT_NE(focused.pixelColor(place.left() - 1, place.center().y()), Highlight());
    EXPECT_EQ(focused.pixelColor(place.left() - 2, place.center().y()), Highlight());
    EXPECT_EQ(focused.pixelColor(place.left() - 3, place.center().y()), Highlight());
    EXPECT_NE(focused.pixelColor(place.left() - 4, place.center().y()), Highlight());
    EXPECT_EQ(focused.pixelColor(place.center().x(), place.bottom() + 2), Highlight());
    Click(CentreOf(1));
    EXPECT_NE(Grab().pixelColor(place.left() - 2, place.center().y()), Highlight());
}

TEST_F(PageViewTest, ValueThatChangesIsPaintedAnew) {
    OpenForm();
    LeaveFields();
    const QRect place = View().OnScreen(ThePage().Entries.At(2).place).toAlignedRect().adjusted(2, 2, -2, -2);
    const int before = CountOf(Grab().copy(place), 0xFFFFFF);
    TakeText(Document(), Entry(2), QString(), QString());
    EXPECT_GT(CountOf(Grab().copy(place), 0xFFFFFF), before);
    EXPECT_EQ(CountOf(Grab().copy(place), 0xFFFFFF), place.width() * place.height());
}

TEST_F(PageViewTest, ImportIsPaintedNowAndThenAndWhenItHasEnded) {
    OpenForm();
    LeaveFields();
    QCoreApplication::processEvents();
    PaintCounter paints(View());
    Document().Importing = true;
    for (int record = 1; record <= 100; ++record) {
        ThePage().Entries.At(1).text = QString::number(record);
        Document().window->ElementChanged({ElementKind::Entry, 1});
        Document().window->PageChanged();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    EXPECT_LT(paints.Count(), 50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.Count() > 0; })) << "it catches up";

    const int before = paints.Count();
    Document().window->ElementChanged({ElementKind::Entry, 2});
    Document().Importing = false;
    Document().window->ElementChanged({ElementKind::Entry, 1});
    QCoreApplication::processEvents();
    EXPECT_GT(paints.Count(), before) << "at once";
}

TEST_F(PageViewTest, HiddenPageShowsTheDeskOnly) {
    OpenForm();
    LeaveFields();
    Document().surfaces->picForm.Visible = false;
    const QImage image = Grab();
    EXPECT_EQ(CountOf(image, ColourAt(image, 0, 0)), image.width() * image.height());
    EXPECT_NE(ColourAt(image, 0, 0), 0xFFFFFFU);
}

class CrispPage : public PageViewTest {
  protected:
    // A line one pixel wide, and a value.
    CrispPage() {
        m_form = FormText();
        m_form.Page(S("Lines"), {S("PaperSize=11")})
            .Record(S("LINE"), {S("AbsLeft=300"), S("AbsTop=300"), S("Width=3000"), S("Height=0"),
                                S("Direction=0"), S("BorderType=1"), S("BorderWidth=1"), S("BorderColor=0")})
            .Field(S("name"), At(20, 60, 150, 20));
        m_form.Data(1, {S("name=Wide")});
    }

    // The number of pixels that are neither ink nor paper in the page's pixels of that part of the page.
    static int Greys(const QImage& image, const QRect& part) {
        int greys = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x) {
                const unsigned colour = ColourAt(image, x, y);
                greys += colour != 0 && colour != 0xFFFFFF ? 1 : 0;
            }
        return greys;
    }
};

TEST_F(CrispPage, LinesAreSharpAtEveryPixelRatio) {
    OpenForm();
    LeaveFields();
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const QImage image = Grab(ratio);
        const QPointF origin = View().OnScreen({0, 0, 0, 0}).topLeft() * ratio;
        const QRect part(origin.toPoint() + QPoint(30, 10), QSize(100, static_cast<int>(25 * ratio)));
        EXPECT_EQ(Greys(image, part), 0) << ratio;
        EXPECT_GT(CountOf(image.copy(part), 0), 90) << ratio;
    }
}

TEST_F(CrispPage, TextHasAllPixelsOfTheScreen) {
    OpenForm();
    LeaveFields();
    const QRectF place = View().OnScreen(ThePage().Entries.At(1).place);
    const QImage coarse = Grab(1).copy(place.toAlignedRect());
    const QRectF doubled(place.topLeft() * 2, place.size() * 2);
    const QImage fine = Grab(2).copy(doubled.toAlignedRect());
    const QImage blown = coarse.scaled(fine.size());
    int different = 0;
    for (int y = 0; y < fine.height(); ++y)
        for (int x = 0; x < fine.width(); ++x)
            different += ColourAt(fine, x, y) != ColourAt(blown, x, y) ? 1 : 0;
    EXPECT_GT(different, 100);
}

// At eight times its size the page has 8 million pixels, which are kept; at three pixels to the logical one
// 69 million, which are not.
TEST_F(CrispPage, PageTooLargeToBeKeptIsDrawnAsFarAsItIsSeen) {
    OpenForm();
    LeaveFields();
    View().SetZoom(8);
    ScrollTo(Document(), 0, 0);
    const QRect besideLine(160, 120, 1, 80);  // the line lies at 160 below the page's edge
    const QImage kept = Grab(1);
    const QImage exposed = Grab(3);
    const QRect ink = InkOf(kept.copy(besideLine));
    const QRect fineInk = InkOf(exposed.copy(QRect(besideLine.topLeft() * 3, besideLine.size() * 3)));
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_NEAR(fineInk.top(), ink.top() * 3, 3);
    EXPECT_NEAR(fineInk.height(), ink.height() * 3, 3);
}

TEST_F(CrispPage, ChangedPartLooksAsIfAllWerePaintedAnew) {
    OpenForm();
    LeaveFields();
    const QImage before = Grab(2);
    TakeText(Document(), Entry(1), S("Quite another"), QString());
    const QImage part = Grab(2);
    m_window->PageChanged();
    EXPECT_EQ(Grab(2), part);
    EXPECT_NE(before, part);
}

TEST_F(CrispPage, SmallPageHasAShadowAndNoScrollBars) {
    OpenForm();
    EXPECT_FALSE(Bar(Qt::Horizontal)->isVisible());
    EXPECT_FALSE(Bar(Qt::Vertical)->isVisible());
    const QImage image = Grab();
    const QRect page = View().OnScreen({0, 0, 6000, 4500}).toAlignedRect();
    const QColor desk = image.pixelColor(2, 2);
    const QColor edge = image.pixelColor(page.center().x(), page.bottom() + 1);
    EXPECT_LT(edge.lightness(), desk.lightness());
    EXPECT_EQ(image.pixelColor(page.center().x(), page.bottom() + 20), desk);
    EXPECT_EQ(image.pixelColor(page.center().x(), page.bottom()), QColor(Qt::white));
}

}  // namespace
}  // namespace sheetwright
