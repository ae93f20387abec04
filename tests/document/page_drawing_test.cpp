#include "document/page_drawing.h"

#include "document/page.h"
#include "print/printing_test.h"
#include "support/pixels.h"
#include "support/short_text.h"

namespace sheetwright {
namespace {

constexpr unsigned kEdge = 0xD3DCE6;

class PageDrawing : public PrintingTest {
  protected:
    PageDrawing() { m_application->CurrentTempDir = m_document.MyTempDir; }

    // Of a field of 3000 by 500 twips at 100, 200.
    TextElement& AddText(const QString& text) {
        TextElement entry;
        entry.text = text;
        entry.place = {100, 200, 2985, 485};
        entry.font.size = 10;
        entry.foreColor = 0xFF;
        return m_document.page->Entries.Load(entry);
    }
    // A read-only one: nothing around its text.
    TextElement& AddPlainText(const QString& text) {
        TextElement& entry = AddText(text);
        entry.isTransparent = true;
        return entry;
    }
    usrEntry& AddCheck(const QString& value, const Extent& place = {1000, 2000, 3000, 300}) {
        usrEntry& control = AddControl(m_document.page->Checks, place);
        control.SetFieldType(field_type::kCheckBox);
        control.SetStates(4);
        control.SetCaption(S("agreed"));
        control.SetBackColor(0xFFFFFF);
        control.SetValue(value);
        return control;
    }
    usrEntry& AddBitmap(const QString& value, const QStringList& record = {S("BorderStyle=0")}) {
        usrEntry& control = AddControl(m_document.page->Bitmaps, {100, 200, 3000, 500});
        control.SetFieldType(field_type::kPicture);
        control.SetValue(value);
        m_document.page->BitmapProperties.push_back(BagOf(record));
        return control;
    }

    using Draw = void (*)(frmSheetwright&, int, PictureSurface&);
    QStringList LastDrawn(Draw draw, int number) {
        m_surface.Cls();
        draw(m_document, number, m_surface);
        return TextsOf(m_surface.Recorded());
    }
    QStringList DrawnEntry() { return LastDrawn(DrawEntry, m_document.page->Entries.Count()); }
    QStringList DrawnCheck() { return LastDrawn(DrawCheck, m_document.page->Checks.Count()); }
    QStringList DrawnBitmap() { return LastDrawn(DrawBitmap, m_document.page->Bitmaps.Count()); }
    [[nodiscard]] static QStringList EdgeLines(int right = 3085) {
        return BoxLines(100, 200, right, 685).replaceInStrings(S("0x000000"), S("0xe6dcd3"));
    }

  private:
    usrEntry& AddControl(ElementArray<FieldElement>& elements, const Extent& place) {
        auto control = std::make_unique<usrEntry>(*m_application, m_document.surfaces->pictures);
        control->SetFont({S("Arial"), 10});
        control->SetForeColor(0xFF);
        control->Resize(place.width, place.height);
        return *elements.Load({std::move(control), place, true}).control;
    }
};

TEST_F(PageDrawing, TextOfAReadOnlyFieldStandsWhereItIsPrinted) {
    AddPlainText(S("Value"));
    const QStringList text{S("text 115,245 \"Value\" Arial 10 0x0000ff")};
    EXPECT_EQ(DrawnEntry(), text);
    m_document.page->Entries.At(1).wraps = true;
    EXPECT_EQ(DrawnEntry(), text);
}

TEST_F(PageDrawing, WhereAPrinterIsInstalledTextsStandHigherAsLabelsDo) {
    InstallPrinter();
    AddPlainText(S("Value"));
    EXPECT_EQ(DrawnEntry(), QStringList{S("text 115,200 \"Value\" Arial 10 0x0000ff")});
}

TEST_F(PageDrawing, FieldToTypeInHasItsColourAndALightEdge) {
    TextElement& element = AddText(S("a"));
    element.backColor = 0x0000FF;
    element.alignment = 0;
    EXPECT_EQ(DrawnEntry(), QStringList{S("box 100,200 3085,685 pen 15/5/0x0000ff fill 0/0x0000ff")} +
                                EdgeLines() + QStringList{S("text 115,245 \"a\" Arial 10 0x0000ff")});
}

TEST_F(PageDrawing, EdgeOfARightAlignedFieldIsRoundItsText) {
    AddText(QString()).alignment = 1;
    EXPECT_EQ(DrawnEntry().sliced(1), EdgeLines(3115));
}

TEST_F(PageDrawing, BorderIsThatOnPaper) {
    AddText(QString()).hasBorder = true;
    EXPECT_EQ(DrawnEntry(), QStringList{S("box 100,200 3085,685 pen 15/5/0xffffff fill 0/0xffffff")} +
                                BoxLines(100, 200, 3085, 685));
    AddPlainText(QString()).hasBorder = true;
    EXPECT_EQ(DrawnEntry(), BoxLines(100, 200, 3085, 685));
}

TEST_F(PageDrawing, HiddenElementsDrawNothing) {
    AddText(S("a")).isVisible = false;
    AddCheck(S("1"));
    m_document.page->Checks.At(1).isVisible = false;
    AddBitmap(QString());
    m_document.page->Bitmaps.At(1).isVisible = false;
    EXPECT_EQ(DrawnEntry() + DrawnCheck() + DrawnBitmap(), QStringList());
}

TEST_F(PageDrawing, ElementsThatAreNotThereRaise340) {
    for (const Draw draw : {Draw{DrawEntry}, Draw{DrawCheck}, Draw{DrawBitmap}})
        EXPECT_EQ(FailureOf([&] { (void)LastDrawn(draw, 1); }), 340);
}

TEST_F(PageDrawing, LongTextWrapsOrIsCutAtItsBox) {
    const QString text = S("word ").repeated(30) + S("\r\nsecond");
    TextElement& entry = AddPlainText(text);
    entry.place.height = 2000;
    const QStringList cut = DrawnEntry();
    ASSERT_EQ(cut.size(), 2) << "one line for each paragraph";
    EXPECT_TRUE(cut[0].startsWith(S("text 115,245 \"word word"))) << cut[0].toStdString();
    EXPECT_TRUE(cut[1].contains(S("\"second\"")));
    const auto& line = std::get<DrawnText>(m_surface.Recorded().Items().front());
    EXPECT_LE(m_document.surfaces->picContainer.TextWidth(line.text), 3000);
    EXPECT_GT(m_document.surfaces->picContainer.TextWidth(line.text + S("word")), 3000);
    entry.wraps = true;
    EXPECT_GT(DrawnEntry().size(), 3);
}

TEST_F(PageDrawing, LinesBelowTheBoxAreLeftOut) {
    AddPlainText(S("one\r\ntwo\r\nthree\r\nfour\r\nfive"));
    EXPECT_EQ(DrawnEntry().size(), 2) << "two lines of 10 points in 500 twips";
    EXPECT_EQ(m_document.page->Entries.At(1).text.count(u'\n'), 4);
}

TEST_F(PageDrawing, TextOfMegabytesCostsWhatFits) {
    AddPlainText(S("W").repeated(5'000'000));
    EXPECT_EQ(DrawnEntry().size(), 1);
}

TEST_F(PageDrawing, TextIsAlignedInItsField) {
    AddPlainText(S("abc")).alignment = 1;
    (void)DrawnEntry();
    const double width = m_document.surfaces->picContainer.TextWidth(u"abc");
    const auto left = [&] { return std::get<DrawnText>(m_surface.Recorded().Items().front()).x; };
    EXPECT_DOUBLE_EQ(left(), 115 + 3000 - width);
    m_document.page->Entries.At(1).alignment = 2;
    (void)DrawnEntry();
    EXPECT_DOUBLE_EQ(left(), 115 + (3000 - width) / 2);
}

TEST_F(PageDrawing, TextThatIsTooBroadBeginsAtTheLeftHoweverItIsAligned) {
    AddPlainText(S("W").repeated(100)).alignment = 1;
    const QStringList drawn = DrawnEntry();
    const auto& text = std::get<DrawnText>(m_surface.Recorded().Items().front());
    EXPECT_LT(text.x - 115, m_document.surfaces->picContainer.TextWidth(u"W"));
}

TEST_F(PageDrawing, WhatAPrintJobLeftActsOnNothingAndStays) {
    PrintState& state = m_application->printing;
    AddText(S("a"));
    AddCheck(S("1"));
    AddBitmap(QString());
    const QStringList plain = DrawnEntry() + DrawnCheck() + DrawnBitmap();
    state.AlignmentMode = 2;
    state.PrintXAdjust = 120;
    state.PrintYAdjust = -60;
    m_surface.SetDrawStyle(3);
    m_surface.SetFillStyle(0);
    EXPECT_EQ(DrawnEntry() + DrawnCheck() + DrawnBitmap(), plain);
    EXPECT_EQ(state.AlignmentMode, 2);
    EXPECT_EQ(state.PrintXAdjust, 120);
    EXPECT_EQ(state.PrintYAdjust, -60);
}

TEST_F(PageDrawing, DrawingLetsNoMessagesRun) {
    AddText(S("a"));
    AddCheck(S("2"));
    AddBitmap(QString());
    (void)(DrawnEntry() + DrawnCheck() + DrawnBitmap());
    EXPECT_EQ(m_ui.pumps, 0) << "a window that is being painted would be painted again";
}

TEST_F(PageDrawing, BadPlacesAndFontsAreRaised) {
    AddPlainText(S("a")).place.left = 32768;
    EXPECT_EQ(FailureOf([&] { (void)DrawnEntry(); }), 6);
    AddPlainText(S("a")).font.size = 0;
    EXPECT_EQ(FailureOf([&] { (void)DrawnEntry(); }), 380);
    EXPECT_EQ(m_application->printing.AlignmentMode, 0);
}

TEST_F(PageDrawing, CheckBoxIsThatOnPaper) {
    const auto onPaper = [&](const char* style, const char* value) {
        m_surface.Cls();
        FormDrawing form = Form();
        DrawCheckBox(
            form, m_surface,
            *BagOf(PlaceAt(1000, 2000, 3000, 300) + Font() << S("Style=") + S(style) << S("Caption=agreed")),
            S(value));
        return TextsOf(m_surface.Recorded());
    };
    for (const char* value : {"0", "1", "2", "3"}) {
        AddCheck(S(value));
        EXPECT_EQ(DrawnCheck(), onPaper("0", value)) << value;
        m_document.page->Checks.At(m_document.page->Checks.Count()).control->SetStyle(1);
        EXPECT_EQ(DrawnCheck(), onPaper("1", value)) << value;
    }
}

TEST_F(PageDrawing, CheckBoxInStateTwoStrikesItsCaptionThrough) {
    AddCheck(S("2"));
    EXPECT_EQ(DrawnCheck().last(), S("text 1275,2045 \"agreed\" Arial 10 strikethru 0x0000ff"));
}

TEST_F(PageDrawing, CheckBoxShowsItsColourWhereThePageHasAnother) {
    usrEntry& check = AddCheck(S("0"));
    EXPECT_EQ(DrawnCheck().size(), 2);
    check.SetBackColor(0x00FFFF);
    EXPECT_EQ(DrawnCheck().value(0), S("box 1000,2000 4000,2300 pen 15/5/0x00ffff fill 0/0x00ffff"));
    m_document.surfaces->picForm.BackColor = 0x00FFFF;
    EXPECT_EQ(DrawnCheck().size(), 2);
}

TEST_F(PageDrawing, SystemColoursAreBlackOnWhite) {
    usrEntry& check = AddCheck(S("1"));
    check.SetBackColor(system_colour::kWindow);
    check.SetForeColor(system_colour::kWindowText);
    const QStringList drawn = DrawnCheck();
    ASSERT_EQ(drawn.size(), 3) << "no colour of its own on a white page";
    for (const QString& item : drawn)
        EXPECT_TRUE(item.contains(S("0x000000"))) << item.toStdString();
}

TEST_F(PageDrawing, PictureFillsItsBoxAndKeepsItsShape) {
    WritePicture(S("temporary/photo.png"), 20, 10);
    AddBitmap(S("photo.png"));
    EXPECT_EQ(DrawnBitmap(), QStringList{S("picture 1100,200 1000x500 from 0,0 300x150 of 20x10 pixels")});
}

TEST_F(PageDrawing, PictureHasTheBorderThatItHasOnPaper) {
    WritePicture(S("temporary/photo.png"), 20, 10);
    AddBitmap(S("photo.png"), {S("BorderStyle=1")});
    EXPECT_EQ(DrawnBitmap().first(4), BoxLines(100, 200, 3085, 685));
    AddBitmap(S("photo.png"), {S("BorderStyle=2")});
    EXPECT_EQ(DrawnBitmap().value(0), S("box 100,670 3085,670 pen 15/0/0x000000 fill 1/0x000000"));
    AddBitmap(S("photo.png"), {});
    EXPECT_EQ(DrawnBitmap().size(), 1);
}

TEST_F(PageDrawing, EmptyPictureFieldSaysHowToFillIt) {
    for (const char* value : {"", "0", "gone.png"}) {
        AddBitmap(S(value));
        const QStringList drawn = DrawnBitmap();
        EXPECT_EQ(drawn.first(4), EdgeLines());
        ASSERT_EQ(drawn.size(), 6) << value;
        EXPECT_EQ(drawn[4], S("text 160,290 \"Press SPACE or Double-Click to select\" Arial 8.25 0x707070"));
        EXPECT_TRUE(drawn[5].contains(S("\"picture...\"")));
    }
}

TEST_F(PageDrawing, EmptyPictureFieldThatCannotBeFilledIsBlank) {
    AddBitmap(QString()).SetEnabled(false);
    EXPECT_EQ(DrawnBitmap(), QStringList());
}

class RenderedPage : public PageDrawing {
  protected:
    RenderedPage() {
        PictureSurface& form = m_document.surfaces->picForm;
        form.SetWidth(6000);
        form.SetHeight(3000);
    }
    static constexpr double kScreenResolution = 96;
};

TEST_F(RenderedPage, HasThePagesSizeAndColour) {
    m_document.surfaces->picForm.BackColor = 0x0000FF;
    const QImage image = RenderPageOnScreen(m_document, kScreenResolution);
    EXPECT_EQ(image.size(), QSize(400, 200));
    EXPECT_EQ(CountOf(image, 0xFF0000), 400 * 200);
}

TEST_F(RenderedPage, ShowsWhatIsFixedBehindTheElements) {
    m_document.surfaces->picForm.Line(0, 0, 6000, 3000, 0, u"BF");
    AddText(QString());
    const QImage image = RenderPageOnScreen(m_document, kScreenResolution);
    EXPECT_EQ(ColourAt(image, 3, 3), 0U);
    EXPECT_EQ(ColourAt(image, 50, 25), 0xFFFFFFU) << "inside the field";
    EXPECT_EQ(ColourAt(image, 6, 25), kEdge) << "its edge";
}

TEST_F(RenderedPage, FixedElementsLookAsTheyDoAlone) {
    PictureSurface& form = m_document.surfaces->picForm;
    DrawTextBox(*m_application, form, m_document.surfaces->picContainer, S("A label"), {S("Arial"), 9}, 0,
                {300, 200, 400, 3000});
    form.Line(200, 1000, 3333, 1777, 0x0000FF);
    form.Line(210, 1010, 4000, 2000, 0, u"B");
    EXPECT_EQ(RenderPageOnScreen(m_document, kScreenResolution), form.Render(kScreenResolution));
}

TEST_F(RenderedPage, LeavesOutWhatCannotBeDrawn) {
    AddPlainText(S("lost")).font.size = 0;
    AddCheck(S("1"), {300, 300, 3000, 300});
    const QImage image = RenderPageOnScreen(m_document, kScreenResolution);
    EXPECT_EQ(ColourAt(image, 20, 26), 0xFF0000U) << "the check box's square";
}

TEST_F(RenderedPage, RaisesForNoResolution) {
    EXPECT_EQ(FailureOf([&] { (void)RenderPageOnScreen(m_document, 0); }), 6);
}

}  // namespace
}  // namespace sheetwright
