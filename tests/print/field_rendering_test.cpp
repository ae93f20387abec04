#include "print/printing_test.h"

namespace sheetwright {
namespace {

// A screen pixel on a printer of 600 dots per inch is 6.25 of its own: 6, which are as many twips.
constexpr double kPrinterPen = 6 * 2.4;

class FieldRendering : public PrintingTest {
  protected:
    [[nodiscard]] static QStringList Field(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(100, 200, 3000, 500) + Font()
                                     << QStringLiteral("FieldType=0") << QStringLiteral("BorderStyle=0")
                                     << QStringLiteral("Alignment=0"),
                                 changes);
    }
    [[nodiscard]] static QStringList PictureField(const QStringList& changes = {}) {
        return FormText::Changed(Field(changes), {QStringLiteral("FieldType=1")});
    }
    [[nodiscard]] static QStringList Check(const QStringList& changes = {}) {
        return FormText::Changed(PlaceAt(1000, 2000, 3000, 300) + Font()
                                     << QStringLiteral("Style=0") << QStringLiteral("States=4")
                                     << QStringLiteral("Caption=agreed"),
                                 changes);
    }

    using Drawing = void (*)(FormDrawing&, Device&, const PropertyBag&, const QString&);

    QStringList OnSurface(Drawing draw, const QStringList& lines, const QString& value) {
        m_surface.Cls();
        FormDrawing form = Form();
        draw(form, m_surface, *BagOf(lines), value);
        return TextsOf(m_surface.Recorded());
    }
    QStringList DrawnField(const QStringList& lines, const QString& value) {
        return OnSurface(DrawField, lines, value);
    }
    QStringList DrawnCheckBox(const QStringList& lines, const QString& value) {
        return OnSurface(DrawCheckBox, lines, value);
    }
    std::optional<int> FailureOfField(const QStringList& lines, const QString& value = QStringLiteral("a")) {
        return FailureOf([&] { (void)DrawnField(lines, value); });
    }
    std::optional<int> FailureOfCheckBox(const QStringList& lines) {
        return FailureOf([&] { (void)DrawnCheckBox(lines, QStringLiteral("1")); });
    }
    // The picture that a picture field composes of a picture of that many pixels.
    QString Composed(int width, int height, const QStringList& changes = {}) {
        WritePicture(QStringLiteral("temporary/photo.png"), width, height);
        m_document.surfaces->pictures = PictureCache();
        (void)DrawnField(PictureField(changes), QStringLiteral("photo.png"));
        return TextsOf(m_document.surfaces->picPicture.Recorded()).join(u';');
    }
};

TEST_F(FieldRendering, TextStandsThreePixelsDownAndOneToTheRight) {
    EXPECT_EQ(DrawnField(Field(), QStringLiteral("Value")),
              QStringList(QStringLiteral("text 115,245 \"Value\" Arial 10 0x0000ff")));
}

TEST_F(FieldRendering, BorderIsABoxOrAFlatBoxUnderTheText) {
    EXPECT_EQ(DrawnField(Field({QStringLiteral("BorderStyle=1")}), QStringLiteral("a")),
              BoxLines(100, 200, 3085, 685) << QStringLiteral("text 115,245 \"a\" Arial 10 0x0000ff"));
    EXPECT_EQ(DrawnField(Field({QStringLiteral("BorderStyle=2")}), QStringLiteral("a")),
              QStringList({QStringLiteral("box 100,670 3085,670 pen 15/0/0x000000 fill 1/0x000000"),
                           QStringLiteral("text 115,245 \"a\" Arial 10 0x0000ff")}));
    EXPECT_EQ(DrawnField(Field({QStringLiteral("BorderStyle=3")}), QStringLiteral("a")).size(), 1);
}

TEST_F(FieldRendering, EmptyValueDrawsTheBorderOnly) {
    EXPECT_EQ(DrawnField(Field({QStringLiteral("BorderStyle=1")}), QString()), BoxLines(100, 200, 3085, 685));
}

TEST_F(FieldRendering, ValueOfSeveralLinesIsDrawnLineByLine) {
    const QStringList texts =
        DrawnField(Field({QStringLiteral("Height=2000")}), QStringLiteral("one\r\ntwo"));
    ASSERT_EQ(texts.size(), 2);
    EXPECT_TRUE(texts[0].startsWith(QStringLiteral("text 115,245 \"one\"")));
    EXPECT_TRUE(texts[1].contains(QStringLiteral("\"two\"")));
}

TEST_F(FieldRendering, ValueOfMegabytesIsCutToItsBox) {
    QString value = QStringLiteral("word ").repeated(1'000'000);
    EXPECT_EQ(DrawnField(Field({QStringLiteral("Height=200")}), value).size(), 1);
}

TEST_F(FieldRendering, FieldIsATextForTypesZeroTwoAndNone) {
    for (const char* change : {"FieldType=0", "FieldType=2", "-FieldType", "FieldType="})
        EXPECT_EQ(DrawnField(Field({QString::fromLatin1(change)}), QStringLiteral("a")).size(), 1) << change;
    for (const char* change : {"FieldType=1", "FieldType=6"})
        EXPECT_EQ(DrawnField(Field({QString::fromLatin1(change)}), QStringLiteral("a")).size(), 0) << change;
}

TEST_F(FieldRendering, AlignmentHoldsForOneFieldOnly) {
    InstallPrinter();
    FormDrawing form = Form();
    DrawField(form, m_printer, *BagOf(Field({QStringLiteral("Alignment=0")})), QStringLiteral("abc"));
    EXPECT_EQ(LastPage(), QStringList(QStringLiteral("text 115,245 \"abc\" Arial 10 0x0000ff")));
    EXPECT_EQ(m_application->printing.AlignmentMode, 0);

    const auto leftOf = [&](const char* alignment) {
        DrawField(form, m_printer, *BagOf(Field({QString::fromLatin1(alignment)})), QStringLiteral("abc"));
        EXPECT_EQ(m_application->printing.AlignmentMode, 0);
        return std::get<DrawnText>(m_printer.documents.back().recording.Items().back()).x;
    };
    const double right = leftOf("Alignment=1");
    const double width = m_document.surfaces->picContainer.TextWidth(u"abc");
    EXPECT_DOUBLE_EQ(right, 115 + 3000 - width);
    EXPECT_DOUBLE_EQ(leftOf("Alignment=2"), 115 + (3000 - width) / 2);
}

TEST_F(FieldRendering, BorderOnPaperIsOneScreenPixelWide) {
    InstallPrinter();
    FormDrawing form = Form();
    DrawField(form, m_printer, *BagOf(Field({QStringLiteral("BorderStyle=1")})), QString());
    EXPECT_EQ(LastPage(), BoxLines(100, 200, 3085, 685, kPrinterPen));
}

TEST_F(FieldRendering, MissingOrBadKeysOfAFieldAreRaised) {
    for (const char* change : {"-BorderStyle", "-Alignment", "-FontName", "-FontSize", "-FontBold",
                               "-FontStrikethru", "-ForeColor", "-AbsTop", "-Width"})
        EXPECT_EQ(FailureOfField(Field({QString::fromLatin1(change)})), 5) << change;
    EXPECT_EQ(FailureOfField(Field({QStringLiteral("AbsLeft=32768")})), 6);
    EXPECT_EQ(FailureOfField(Field({QStringLiteral("Alignment=40000")})), 6);
    EXPECT_EQ(FailureOfField(Field({QStringLiteral("FontSize=0")})), 380);
    EXPECT_EQ(LogRows(), QStringList());
}

TEST_F(FieldRendering, PictureFieldDrawsItsComposedPicture) {
    WritePicture(QStringLiteral("temporary/photo.png"), 20, 10);
    EXPECT_EQ(DrawnField(PictureField(), QStringLiteral("photo.png")),
              QStringList(QStringLiteral("picture 100,200 3000x500 from 0,0 3000x500 of 1 items")));
    EXPECT_EQ(m_document.surfaces->imgPicture.width, 300);
}

TEST_F(FieldRendering, PictureKeepsItsShapeAndIsCentred) {
    EXPECT_EQ(Composed(20, 10), QStringLiteral("picture 1000,0 1000x500 from 0,0 300x150 of 20x10 pixels"));
    EXPECT_EQ(Composed(120, 10), QStringLiteral("picture 0,125 3000x250 from 0,0 1800x150 of 120x10 pixels"));
    EXPECT_EQ(Composed(60, 10), QStringLiteral("picture 0,0 3000x500 from 0,0 900x150 of 60x10 pixels"))
        << "the shape of the box";
}

TEST_F(FieldRendering, PictureIsCutToWholeTwips) {
    EXPECT_EQ(Composed(30, 7), QStringLiteral("picture 429,0 2142x500 from 0,0 450x105 of 30x7 pixels"))
        << "2142.857 is cut, not rounded";
}

TEST_F(FieldRendering, LargePhotographFits) {
    EXPECT_EQ(Composed(4000, 100),
              QStringLiteral("picture 0,212.5 3000x75 from 0,0 60000x1500 of 4000x100 pixels"));
}

TEST_F(FieldRendering, PictureFieldWithoutAPictureDrawsItsBorderOnly) {
    const QStringList field = PictureField({QStringLiteral("BorderStyle=1")});
    EXPECT_EQ(DrawnField(field, QString()), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(DrawnField(field, QStringLiteral("gone.png")), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(DrawnField(field, QStringLiteral("0")), BoxLines(100, 200, 3085, 685));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(FieldRendering, PictureFieldRaisesWhatItsPictureRaises) {
    Write(QStringLiteral("temporary/bad.png"), "no picture");
    EXPECT_EQ(FailureOfField(PictureField(), QStringLiteral("bad.png")), 481);
    WritePicture(QStringLiteral("temporary/photo.png"), 20, 10);
    EXPECT_EQ(FailureOfField(PictureField({QStringLiteral("Height=0")}), QStringLiteral("photo.png")), 11);
    EXPECT_EQ(FailureOfField(PictureField({QStringLiteral("Height=-5")}), QStringLiteral("photo.png")), 380);
    EXPECT_EQ(FailureOfField(PictureField({QStringLiteral("Width=40000"), QStringLiteral("Height=40000")}),
                             QStringLiteral("photo.png")),
              6);
}

TEST_F(FieldRendering, CheckBoxHasItsBoxOnTheLeftAndItsCaptionBeside) {
    EXPECT_EQ(DrawnCheckBox(Check(), QStringLiteral("0")),
              QStringList({QStringLiteral("box 1000,2060 1180,2240 pen 15/0/0x0000ff fill 1/0x000000"),
                           QStringLiteral("text 1275,2045 \"agreed\" Arial 10 0x0000ff")}));
}

TEST_F(FieldRendering, CheckBoxOfStyleOneHasItsBoxOnTheRight) {
    EXPECT_EQ(DrawnCheckBox(Check({QStringLiteral("Style=1")}), QStringLiteral("0")),
              QStringList({QStringLiteral("box 3820,2060 4000,2240 pen 15/0/0x0000ff fill 1/0x000000"),
                           QStringLiteral("text 1015,2045 \"agreed\" Arial 10 0x0000ff")}));
}

TEST_F(FieldRendering, CheckBoxHasAMarkForEachState) {
    const auto markOf = [&](const char* value) {
        const QStringList texts = DrawnCheckBox(Check(), QString::fromLatin1(value));
        return texts.size() == 3 ? texts[1] : QString();
    };
    EXPECT_EQ(markOf("1"), QString::fromUtf8("text 1013,2102 \"ü\" WingDings 8 bold 0x0000ff"));
    EXPECT_EQ(markOf("2"), QStringLiteral("text 1028,2072 \"-\" Courier New 8 bold 0x0000ff"));
    EXPECT_EQ(markOf("3"), QStringLiteral("text 1028,2072 \"?\" Courier New 8 bold 0x0000ff"));
    for (const char* other : {"0", "", "4", "-1", "1.5", "yes"})
        EXPECT_EQ(markOf(other), QString()) << other;
    EXPECT_NE(markOf("1x"), QString()) << "a value is read as a number";
}

TEST_F(FieldRendering, CheckBoxInStateTwoStrikesItsCaptionThrough) {
    const auto captionOf = [&](const QStringList& lines, const char* value) {
        return DrawnCheckBox(lines, QString::fromLatin1(value)).last();
    };
    const QString plain = QStringLiteral("text 1275,2045 \"agreed\" Arial 10 0x0000ff");
    const QString struck = QStringLiteral("text 1275,2045 \"agreed\" Arial 10 strikethru 0x0000ff");
    EXPECT_EQ(captionOf(Check(), "1"), plain);
    EXPECT_EQ(captionOf(Check(), "2"), struck);
    EXPECT_EQ(captionOf(Check(), "3"), plain);
    EXPECT_EQ(captionOf(Check({QStringLiteral("FontStrikethru=True")}), "1"), struck);
}

TEST_F(FieldRendering, CheckBoxOnPaperKeepsItsSizeAndPen) {
    InstallPrinter();
    FormDrawing form = Form();
    m_application->printing.AlignmentMode = 2;
    m_printer.SetDrawStyle(3);
    m_printer.SetFillStyle(0);
    DrawCheckBox(form, m_printer, *BagOf(Check()), QStringLiteral("3"));
    EXPECT_EQ(LastPage(),
              QStringList({QStringLiteral("box 1000,2060 1180,2240 pen %1/0/0x0000ff fill 1/0x000000")
                               .arg(item_text::Number(kPrinterPen)),
                           QStringLiteral("text 1028,2072 \"?\" Courier New 8 bold 0x0000ff"),
                           QStringLiteral("text 1275,2045 \"agreed\" Arial 10 0x0000ff")}));
}

TEST_F(FieldRendering, WithoutAPrinterInstalledNoneIsTouched) {
    InstallNoPrinter();
    WritePicture(QStringLiteral("temporary/photo.png"), 20, 10);
    EXPECT_EQ(DrawnField(Field({QStringLiteral("BorderStyle=1")}), QStringLiteral("a")).size(), 5);
    EXPECT_EQ(DrawnField(PictureField(), QStringLiteral("photo.png")).size(), 1);
    EXPECT_EQ(DrawnCheckBox(Check(), QStringLiteral("1")).size(), 3);
    EXPECT_EQ(m_printers.touches, 0);
}

TEST_F(FieldRendering, MissingOrBadKeysOfACheckBoxAreRaised) {
    for (const char* change : {"-Style", "-Caption", "-FontName", "-ForeColor", "-AbsLeft", "-Height"})
        EXPECT_EQ(FailureOfCheckBox(Check({QString::fromLatin1(change)})), 5) << change;
    EXPECT_EQ(FailureOfCheckBox(Check({QStringLiteral("AbsTop=40000")})), 6);
    EXPECT_EQ(LogRows(), QStringList());
}

}  // namespace
}  // namespace sheetwright
