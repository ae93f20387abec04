#include "document/page_elements.h"

#include "document/page_building_fixture.h"

#include <QFile>

namespace sheetwright {
namespace {

using PageElements = PageBuildingTest;

TEST_F(PageElements, AFieldBecomesATextElementOnePixelSmaller) {
    BuildField({S("ForeColor=255"), S("WordWrap=True"), S("Alignment=2"), S("FontBold=True")});
    ASSERT_EQ(ThePage().Entries.Count(), 1);
    const TextElement& element = ThePage().Entries.At(1);
    EXPECT_EQ(element.place, (Extent{1440, 720.5, 1985, 285}));
    EXPECT_EQ(element.font, (FontSpec{S("Arial"), 8.25, true, false, true, false}));
    EXPECT_EQ(element.foreColor, 255U);
    EXPECT_TRUE(element.wraps);
    EXPECT_EQ(element.alignment, 2);
    EXPECT_FALSE(element.isTransparent);
    EXPECT_TRUE(element.isVisible);
    EXPECT_EQ(element.text, QString());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageElements, ARecordGetsAKeyAndGoesToBothIndexes) {
    Build([](FormText& form) {
        form.Field(S("A")).Field(S("B"), {S("FieldType=2")}).CheckBox(S("C")).PictureField(S("D"));
    });
    EXPECT_EQ(ThePage().names.At(u"a")->At(u"Key"), S("1"));
    EXPECT_EQ(ThePage().names.At(u"B")->At(u"Key"), S("2"));
    EXPECT_EQ(ThePage().names.At(u"C")->At(u"Key"), S("C1"));
    EXPECT_EQ(ThePage().names.At(u"D")->At(u"Key"), S("B1"));
    EXPECT_EQ(ThePage().TabOrders.At(u"4"), ThePage().names.At(u"D"));
    EXPECT_EQ(ThePage().FieldProperties.size(), 2U);
    EXPECT_EQ(ThePage().CheckProperties.front(), ThePage().names.At(u"C"));
    EXPECT_EQ(ThePage().BitmapProperties.front(), ThePage().names.At(u"D"));
}

TEST_F(PageElements, AReadOnlyFieldIsTransparentAndHasItsBorder) {
    Build([](FormText& form) {
        for (const int style : {0, 1, 2})
            form.Field(S("A%1").arg(style), {S("ReadOnly=True"), S("BorderStyle=%1").arg(style)});
        form.Field(S("B"), {S("BorderStyle=1")});
    });
    const auto& entries = ThePage().Entries;
    EXPECT_TRUE(entries.At(1).isTransparent);
    EXPECT_FALSE(entries.At(1).hasBorder);
    EXPECT_TRUE(entries.At(2).hasBorder);
    EXPECT_TRUE(entries.At(3).hasBorder);
    EXPECT_FALSE(entries.At(4).isTransparent);
    EXPECT_FALSE(entries.At(4).hasBorder);
}

TEST_F(PageElements, VisibleIsTrueUnlessItIsFalse) {
    Build([](FormText& form) {
        form.Field(S("A"), {S("Visible=False")}).Field(S("B"), {S("Visible=True")}).Field(S("C"));
        form.Field(S("D"), {S("FieldType=1"), S("Visible=False")});
    });
    EXPECT_FALSE(ThePage().Entries.At(1).isVisible);
    EXPECT_TRUE(ThePage().Entries.At(2).isVisible);
    EXPECT_TRUE(ThePage().Entries.At(3).isVisible);
    EXPECT_FALSE(ThePage().Bitmaps.At(1).isVisible);
}

TEST_F(PageElements, WhatDoesNotPrintShowsOnScreen) {
    BuildRecord(S("FRAME"), QStringList{S("BorderStyle=1"), S("Printable=False")} + FormText::Extent());
    EXPECT_EQ(Painted().size(), 4);
}

TEST_F(PageElements, AnyOtherFieldTypeIsAPictureField) {
    Build([](FormText& form) {
        form.Field(S("A"), {S("FieldType=1")})
            .Field(S("B"), {S("FieldType=6")})
            .Field(S("C"), {S("-FieldType")});
    });
    EXPECT_EQ(ThePage().Bitmaps.Count(), 3);
    EXPECT_EQ(ThePage().FieldProperties.size(), 0U);
    EXPECT_EQ(Bitmap(1).FieldType(), 6);
    EXPECT_EQ(Bitmap(1).Value(), S("0")) << "a page without values";
    EXPECT_TRUE(Bitmap(1).Enabled());
    EXPECT_EQ(ThePage().Bitmaps.At(1).place, (Extent{1440, 720.5, 2000, 300}));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageElements, AReadOnlyPictureFieldIsDisabled) {
    BuildField({S("FieldType=1"), S("ReadOnly=True"), S("ForeColor=7")});
    EXPECT_FALSE(Bitmap(1).Enabled());
    EXPECT_EQ(Bitmap(1).ForeColor(), 7U);
}

TEST_F(PageElements, APictureFieldWithoutReadOnlyIsShownHalfMade) {
    BuildField({S("FieldType=1"), S("-ReadOnly")});
    ExpectOneFailure(S("5: Invalid procedure call or argument"), S("END FIELD"));
    EXPECT_TRUE(ThePage().Bitmaps.At(1).isVisible);
    EXPECT_FALSE(ThePage().names.Contains(u"A"));
}

TEST_F(PageElements, ACheckBoxIsAFieldControl) {
    Build(
        [](FormText& form) {
            form.CheckBox(S("A"), {S("Style=1"), S("Caption=agreed"), S("States=3"), S("ForeColor=255")});
        },
        {S("BackGround=255")});
    EXPECT_EQ(Check(1).Style(), 1);
    EXPECT_EQ(Check(1).Caption(), S("agreed"));
    EXPECT_EQ(Check(1).States(), 3);
    EXPECT_EQ(Check(1).FieldType(), 3);
    EXPECT_EQ(Check(1).Value(), S("0"));
    EXPECT_EQ(Check(1).ForeColor(), 255U);
    EXPECT_EQ(Check(1).BackColor(), 255U) << "the page's";
    EXPECT_TRUE(Check(1).Font().underline);
    EXPECT_EQ(ThePage().Checks.At(1).place, (Extent{1440, 720.5, 2000, 300}));
    EXPECT_EQ(Check(1).Width(), 2000);
    EXPECT_TRUE(ThePage().Checks.At(1).isVisible);
    EXPECT_EQ(m_ui.pumps, 1);
}

// What is painted.

TEST_F(PageElements, AFrameIsDrawnOnlyWithBorderStyle1) {
    BuildRecord(S("FRAME"), QStringList(S("BorderStyle=0")) + PlaceAt(100, 200, 1000, 500));
    EXPECT_TRUE(Painted().isEmpty());
    BuildRecord(S("FRAME"), QStringList(S("BorderStyle=1")) + PlaceAt(100, 200, 1000, 500));
    EXPECT_EQ(Painted(), QStringList({S("line 100,200 1085,200 pen 15/0/0x000000"),
                                      S("line 1085,200 1085,685 pen 15/0/0x000000"),
                                      S("line 1085,685 100,685 pen 15/0/0x000000"),
                                      S("line 100,685 100,200 pen 15/0/0x000000")}));
}

TEST_F(PageElements, ANearlyUprightLineIsExactlyVertical) {
    BuildRecord(S("LINE"),
                QStringList{S("BorderType=1"), S("BorderWidth=1"), S("Direction=0"), S("BorderColor=255")} +
                    PlaceAt(500, 100, 30, 2000));
    EXPECT_EQ(Painted(), QStringList(S("line 500,100 500,2085 pen 15/0/0x0000ff")));
}

TEST_F(PageElements, AnExtentOf60TwipsIsNearlyStraight) {
    const QStringList pen{S("BorderType=1"), S("BorderWidth=1"), S("BorderColor=0")};
    Build([&](FormText& form) {
        const auto line = [&](const QString& direction, const QStringList& place) {
            form.Record(S("LINE"), pen + QStringList(S("Direction=") + direction) + place);
        };
        line(S("1"), PlaceAt(500, 100, 75, 2000));
        line(S("1"), PlaceAt(500, 100, 76, 2000));
        line(S("0"), PlaceAt(500, 100, 2000, 75));
        line(S("0"), PlaceAt(500, 100, 2000, 76));
        line(S("1"), PlaceAt(500, 100, 30, 30));
        line(S("2"), PlaceAt(500, 100, 1000, 1000));
    });
    EXPECT_EQ(Painted(),
              QStringList(
                  {S("line 500,2085 500,100 pen 15/0/0x000000"), S("line 500,2085 561,100 pen 15/0/0x000000"),
                   S("line 500,100 2485,100 pen 15/0/0x000000"), S("line 500,100 2485,161 pen 15/0/0x000000"),
                   S("line 500,100 500,100 pen 15/0/0x000000")}));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageElements, APatternIsOneLessThanItsTypeExceptTheLastAndStaysWhenThereIsNone) {
    Build([](FormText& form) {
        for (const int type : {1, 2, 5, 7, 6})
            form.Record(S("LINE"), QStringList{S("BorderType=%1").arg(type), S("BorderWidth=1"),
                                               S("Direction=0"), S("BorderColor=0")} +
                                       PlaceAt(0, 100 * type, 1000, 15));
        form.Record(S("FRAME"), QStringList(S("BorderStyle=1")) + PlaceAt(0, 0, 1000, 1000));
    });
    EXPECT_EQ(
        Painted().mid(0, 6),
        QStringList({S("line 0,100 985,100 pen 15/0/0x000000"), S("line 0,200 985,200 pen 15/1/0x000000"),
                     S("line 0,500 985,500 pen 15/4/0x000000"), S("line 0,700 985,700 pen 15/4/0x000000"),
                     S("line 0,600 985,600 pen 15/6/0x000000"), S("line 0,0 985,0 pen 15/0/0x000000")}));
}

TEST_F(PageElements, TheFourShapesAreFilledAndSquareAndCircleFitIntoTheirBox) {
    Build([](FormText& form) {
        for (const int shape : {0, 1, 2, 3})
            form.Record(S("SHAPE"), QStringList{S("BorderType=1"), S("BorderWidth=2"), S("FillColor=255"),
                                                S("FillStyle=%1").arg(shape), S("Shape=%1").arg(shape),
                                                S("BorderColor=65280")} +
                                        PlaceAt(0, 0, 1015, 515));
    });
    EXPECT_EQ(Painted(), QStringList({S("box 0,0 1000,500 pen 30/0/0x00ff00 fill 0/0x0000ff"),
                                      S("box 250,0 750,500 pen 30/0/0x00ff00 fill 1/0x0000ff"),
                                      S("ellipse 500,250 500x250 pen 30/0/0x00ff00 fill 2/0x0000ff"),
                                      S("ellipse 500,250 250x250 pen 30/0/0x00ff00 fill 3/0x0000ff")}));
}

TEST_F(PageElements, ALineOfNoPatternKeepsThePenAsItWas) {
    for (const char* type : {"0", "-3", "7", "999"}) {
        BuildRecord(S("LINE"), QStringList{S("BorderType=") + QString::fromLatin1(type), S("BorderWidth=2"),
                                           S("Direction=1"), S("BorderColor=0")} +
                                   PlaceAt(0, 0, 1000, 1000));
        EXPECT_EQ(Painted(), QStringList(S("line 0,985 985,0 pen 30/0/0x000000"))) << type;
        EXPECT_TRUE(m_ui.messages.empty()) << type;
    }
}

TEST_F(PageElements, AShapeThatIsNoneDrawsNothingAndRaisesNothing) {
    BuildRecord(S("SHAPE"), QStringList{S("BorderType=1"), S("BorderWidth=1"), S("FillColor=0"),
                                        S("FillStyle=1"), S("Shape=7"), S("BorderColor=0")} +
                                PlaceAt(0, 0, 1000, 1000));
    EXPECT_TRUE(Painted().isEmpty());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(PageElements, TheRuleOfALabelStands30TwipsAboveItsBottom) {
    BuildRecord(S("LABEL"), QStringList{S("BorderStyle=2"), S("Alignment=0"), S("Caption=")} +
                                PlaceAt(100, 200, 1000, 500) + FormText::Font());
    ASSERT_FALSE(Painted().isEmpty());
    EXPECT_EQ(Painted().front(), S("line 100,670 1085,670 pen 15/0/0x000000"));
}

TEST_F(PageElements, TheOffsetsOfThePrinterDoNotShiftThePage) {
    FormText form;
    form.Page(S("Invoice"))
        .Record(S("LINE"),
                QStringList{S("BorderType=1"), S("BorderWidth=1"), S("Direction=0"), S("BorderColor=0")} +
                    PlaceAt(500, 100, 1000, 15));
    form.Data(1, {});
    Read(form);
    m_application->printing.PrintXAdjust = 100;
    m_application->printing.PrintYAdjust = -20.5F;
    LoadPage(*m_document);
    EXPECT_EQ(Painted(), QStringList(S("line 500,100 1485,100 pen 15/0/0x000000")));
    EXPECT_EQ(m_application->printing.PrintXAdjust, 100);
    EXPECT_EQ(m_application->printing.PrintYAdjust, -20.5F);
}

TEST_F(PageElements, AFailingStatementLosesTheRestOfThatElementOnly) {
    Build([](FormText& form) {
        form.Record(S("LINE"), QStringList{S("BorderType=1"), S("BorderWidth=1"), S("Direction=0")} +
                                   PlaceAt(0, 0, 1000, 1000));
        form.Field(S("A"));
    });
    ExpectOneFailure(S("5: Invalid procedure call or argument"), S("END LINE"));
    EXPECT_TRUE(Painted().isEmpty());
    EXPECT_EQ(ThePage().Entries.Count(), 1);
}

// Pictures.

TEST_F(PageElements, APictureIsStretchedAndTakenIntoTheDocument) {
    WritePicture(S("elsewhere/logo.png"), 20, 10);
    const QString path = Path(S("elsewhere/logo.png"));
    BuildRecord(S("PICTURE"),
                QStringList{S("BorderStyle=0"), S("Picture=") + path} + PlaceAt(100, 200, 1000, 500));
    EXPECT_EQ(Painted(), QStringList(S("picture 100,200 985x485 from 0,0 300x150 of 1 items")));
    EXPECT_TRUE(QFile::exists(m_document->MyTempDir + S("logo.png")));
}

TEST_F(PageElements, ThePictureOfTheArchiveBeatsTheOneOfTheMachine) {
    WritePicture(S("elsewhere/logo.png"), 20, 10);
    WritePicture(S("temporary/logo.png"), 4, 4);
    BuildRecord(S("PICTURE"), QStringList{S("BorderStyle=0"), S("Picture=") + Path(S("elsewhere/logo.png"))} +
                                  PlaceAt(0, 0, 1000, 500));
    EXPECT_EQ(Painted(), QStringList(S("picture 0,0 985x485 from 0,0 60x60 of 1 items")));
}

TEST_F(PageElements, AFramedPictureLiesOnePixelInside) {
    WritePicture(S("temporary/logo.png"), 4, 4);
    BuildRecord(S("PICTURE"),
                QStringList{S("BorderStyle=1"), S("Picture=logo.png")} + PlaceAt(100, 200, 1000, 500));
    ASSERT_EQ(Painted().size(), 5);
    EXPECT_EQ(Painted().at(1), S("line 1085,200 1085,685 pen 15/0/0x000000"));
    EXPECT_EQ(Painted().back(), S("picture 115,215 970x470 from 0,0 60x60 of 1 items"))
        << "up to the right and the bottom line, not over them";
}

TEST_F(PageElements, AMissingPictureIsEmptyWithoutAMessage) {
    for (const char* file : {"", "gone.bmp", "C:\\somewhere\\gone.bmp"}) {
        BuildRecord(S("PICTURE"), QStringList{S("BorderStyle=0"), S("Picture=") + QString::fromLatin1(file)} +
                                      FormText::Extent());
        EXPECT_TRUE(Painted().isEmpty()) << file;
        EXPECT_TRUE(m_ui.messages.empty()) << file;
    }
}

TEST_F(PageElements, WhatIsNoPictureIsAFailureAndIsNotTakenAlong) {
    Write(S("elsewhere/letter.png"), "dear reader");
    BuildRecord(S("PICTURE"),
                QStringList{S("BorderStyle=0"), S("Picture=") + Path(S("elsewhere/letter.png"))} +
                    FormText::Extent());
    ExpectOneFailure(S("481: Invalid picture"), S("END PICTURE"));
    EXPECT_FALSE(QFile::exists(m_document->MyTempDir + S("letter.png")));
}

TEST_F(PageElements, NumbersThatCanBeNoPlaceAreFailures) {
    for (const char* place : {"AbsLeft=99999999999", "AbsTop=-1e300", "Width=1e99"}) {
        m_ui.messages.clear();
        QFile::remove(m_application->LogFolder + S("errors.csv"));
        Build([&](FormText& form) { form.Field(S("A"), {QString::fromLatin1(place)}).Field(S("B")); });
        SCOPED_TRACE(place);
        ExpectOneFailure(S("6: Overflow"), S("END FIELD"));
        EXPECT_FALSE(ThePage().names.Contains(u"A"));
        EXPECT_TRUE(ThePage().names.Contains(u"B"));
    }
}

TEST_F(PageElements, WhatIsNoNumberIs0) {
    for (const char* text : {"AbsLeft=NaN", "AbsLeft=inf", "AbsLeft=abc", "AbsLeft="}) {
        BuildField({QString::fromLatin1(text)});
        EXPECT_EQ(ThePage().Entries.At(1).place.left, 0) << text;
        EXPECT_TRUE(m_ui.messages.empty()) << text;
    }
}

TEST_F(PageElements, AFieldOutsideThePaperIsNotClipped) {
    BuildField({S("AbsLeft=11000"), S("AbsTop=-300"), S("Width=30000")});
    EXPECT_EQ(ThePage().Entries.At(1).place, (Extent{11000, -300, 29985, 285}));
}

TEST_F(PageElements, AFieldWithoutASizeKeepsItsValue) {
    FormText form;
    form.Page(S("P"));
    form.Field(S("A"), {S("Width=0")}).Field(S("B"), {S("Height=-500")}).CheckBox(S("C"), {S("Width=-1")});
    form.Data(1, {S("A=x"), S("B=y"), S("C=1")});
    Show(form);
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(ThePage().Entries.At(1).place.width, 0);
    EXPECT_EQ(ThePage().Entries.At(2).place.height, 0);
    EXPECT_EQ(ThePage().Checks.At(1).place.width, 0);
    EXPECT_EQ(Texts(), QStringList({S("x"), S("y")}));
}

TEST_F(PageElements, AFontSizeThatCanNotBeIsAFailure) {
    for (const char* size : {"FontSize=0", "FontSize=-8", "FontSize=1e300", "FontSize=2161"}) {
        m_ui.messages.clear();
        QFile::remove(m_application->LogFolder + S("errors.csv"));
        BuildField({QString::fromLatin1(size)});
        SCOPED_TRACE(size);
        ExpectOneFailure(S("380: Invalid property value"), S("END FIELD"));
    }
}

}  // namespace
}  // namespace sheetwright
