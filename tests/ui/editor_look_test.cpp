#include "ui/editor_look.h"

#include "entry_editor_test.h"

namespace sheetwright {
namespace {

// Of what is dark in a picture.
QRect DarkIn(const QImage& image) {
    constexpr int kDark = 100;
    QRect dark;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < kDark) dark |= QRect(x, y, 1, 1);
    return dark;
}

class TheEditorsLook : public EntryEditorTest {
  protected:
    // Of the text inside the field, without its border.
    [[nodiscard]] QRect ShownText(int number) {
        const QRect field =
            View().OnScreen(ThePage().Entries.At(number).place).toRect().adjusted(1, 1, 0, 12);
        const int arrow = field.height();
        return DarkIn(View().grab(field.adjusted(0, 0, HasArrow(number) ? -arrow : 0, 0)).toImage());
    }
    // In the field: beside a text that doesn't stand on the left it moves nothing.
    [[nodiscard]] bool HasArrow(int number) {
        const bool isLeft = ThePage().Entries.At(number).alignment == 0;
        return isLeft && ThePage().FieldProperties[static_cast<std::size_t>(number - 1)]->Contains(u"List");
    }
    // Without the cursor, which stands behind the text or blinks.
    [[nodiscard]] QRect EditedText(int number) {
        Entries_GotFocus(Document(), number);
        Line().deselect();
        Line().setReadOnly(true);
        const QRect text = ShownText(number);
        Line().setReadOnly(false);
        Leave();
        return text;
    }
    void ExpectNoJump(int number) {
        const QRect shown = ShownText(number);
        const QRect edited = EditedText(number);
        ASSERT_FALSE(shown.isEmpty());
        EXPECT_NEAR(edited.left(), shown.left(), 1);
        EXPECT_NEAR(edited.top(), shown.top(), 1);
        EXPECT_NEAR(edited.right(), shown.right(), 1);
        EXPECT_NEAR(edited.bottom(), shown.bottom(), 2);
    }
};

TEST_F(TheEditorsLook, TextStandsWhereThePageShowsIt) {
    const QString plain = S("FontUnderline=False");
    Field(S("a"), {plain}).Field(S("b"), {plain, S("Alignment=1")}).Field(S("c"), {plain, S("Alignment=2")});
    Field(S("d"), {plain, S("FontSize=12"), S("FontName=Times New Roman")})
        .Field(S("e"), {plain, S("FontSize=14")});
    Field(S("f"), {plain, S("FontSize=6"), S("FontBold=True")}).Field(S("g"), {plain, S("List=H,I")});
    Field(S("h"), {plain, S("List=H,I"), S("Alignment=1")})
        .Field(S("i"), {plain, S("List=H,I"), S("Alignment=2")});
    Field(S("j"), {plain, S("FieldType=2"), S("Alignment=2")}).Field(S("k"), {plain, S("FontSize=10")});
    Open({S("a=HxpH"), S("b=HxpH"), S("c=HxpH"), S("d=HxpH"), S("e=HxpH"), S("f=HxpH"), S("g=H"), S("h=H"),
          S("i=H"), S("j=H1H"), S("k=Hxp Hxp Hxp Hxp Hxp H")});
    Leave();
    for (int number = 1; number <= 11; ++number) {
        SCOPED_TRACE(number);
        ExpectNoJump(number);
    }
}

TEST_F(TheEditorsLook, TextStandsWhereAZoomedPageShowsIt) {
    const QString plain = S("FontUnderline=False");
    Field(S("a"), {plain}).Field(S("b"), {plain, S("FontSize=10")});
    Open({S("a=HxpH"), S("b=Hxp Hxp Hxp Hxp Hxp H")});
    Leave();
    View().SetZoom(1.5);
    m_window->resize(1200, 900);
    for (int number = 1; number <= 2; ++number) {
        SCOPED_TRACE(number);
        ExpectNoJump(number);
    }
}

TEST_F(TheEditorsLook, FollowsTheColoursOfTheModel) {
    Field(S("name")).Open({S("name=Ada")});
    ThePage().Entry.SetForeColor(0x0000FF);
    ThePage().Entry.SetBackColor(0xC0FFC0);
    EXPECT_EQ(Focus().palette().color(QPalette::Text), QColor(255, 0, 0));
    EXPECT_EQ(Focus().palette().color(QPalette::Base), QColor(192, 255, 192));
    EXPECT_EQ(Line().text(), S("Ada"));
}

TEST_F(TheEditorsLook, TextIsNeverAsDarkAsWhatLiesBehindIt) {
    Field(S("name")).Open();
    ThePage().Entry.SetForeColor(0);
    ThePage().Entry.SetBackColor(0x202020);
    EXPECT_EQ(Focus().palette().color(QPalette::Text), QColor(Qt::white));
}

TEST(ScreenColour, PartsStandFromRedToBlue) {
    EXPECT_EQ(ScreenColour(0x030201, {}), QColor(1, 2, 3));
}

TEST(ScreenColour, SystemColoursComeFromThePalette) {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Text, Qt::blue);
    EXPECT_EQ(ScreenColour(0x80000005, palette), QColor(Qt::yellow));
    EXPECT_EQ(ScreenColour(0x80000008, palette), QColor(Qt::blue));
    EXPECT_EQ(ScreenColour(0x80000099, palette), QColor(Qt::yellow));
}

}  // namespace
}  // namespace sheetwright
