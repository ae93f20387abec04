#include "document/design_records.h"

#include "support/test_application.h"

#include <QLocale>

namespace sheetwright {
namespace {

class DesignRecords : public ApplicationTest {
  protected:
    DesignRecords() { m_application->conventions = ConventionsOf(QLocale::c()); }

    void Set(const QString& key, const QString& value) {
        if (m_bag.Contains(key)) m_bag.Remove(key);
        m_bag.Add(value, key);
    }
    template <typename Record>
    [[nodiscard]] Record As() const {
        return Record(*m_application, m_bag);
    }
    [[nodiscard]] RecordView View() const { return As<RecordView>(); }
    void TranslateTruthWords() {
        m_application->LoadDictionary(
            Write(QStringLiteral("words.dic"), "ENGLISH,DEUTSCH\r\nTrue,Wahr\r\nFalse,Falsch\r\n"));
        m_application->conventions = ConventionsOf(QLocale::c());
        ASSERT_EQ(m_application->Translate(QStringLiteral("True")), QStringLiteral("Wahr"));
    }

    PropertyBag m_bag;
};

TEST_F(DesignRecords, TellTheirKindByTheFirstFourLettersOfTheWord) {
    EXPECT_EQ(KindOf(u"FIELDX"), u"FIEL");
    EXPECT_EQ(KindOf(u"FRAME"), u"FRAM");
    EXPECT_EQ(KindOf(u"FRAMEWORK"), u"FRAM");
    EXPECT_EQ(KindOf(u"FRA"), u"FRA");
    EXPECT_EQ(KindOf(u""), u"");
}

TEST_F(DesignRecords, FindKeysInAnyCase) {
    Set(QStringLiteral("Name"), QStringLiteral("first"));
    EXPECT_EQ(View().Text(u"NAME"), QStringLiteral("first"));
}

TEST_F(DesignRecords, RaiseFiveForAMissingKey) {
    EXPECT_EQ(FailureOf([&] { (void)View().Text(u"Name"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Number(u"Width"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Int16(u"Width"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Byte(u"Style"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Colour(u"ForeColor"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Word(u"FontBold"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Boolean(u"ReadOnly"); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)View().Place(); }), 5);
}

TEST_F(DesignRecords, ReadNumbersTolerantly) {
    Set(QStringLiteral("Width"), QStringLiteral("12abc"));
    EXPECT_EQ(View().Width(), 12);
    Set(QStringLiteral("Width"), QStringLiteral("wide"));
    EXPECT_EQ(View().Width(), 0);
    Set(QStringLiteral("Width"), QStringLiteral("720.5"));
    EXPECT_EQ(View().Width(), 720.5);
    m_application->conventions = ConventionsOf(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(View().Width(), 720.5);
    Set(QStringLiteral("Width"), QStringLiteral("720,5"));
    EXPECT_EQ(View().Width(), 720.5);
}

TEST_F(DesignRecords, HaveAPlaceOnThePage) {
    Set(QStringLiteral("AbsLeft"), QStringLiteral("1"));
    Set(QStringLiteral("AbsTop"), QStringLiteral("2"));
    Set(QStringLiteral("Width"), QStringLiteral("3"));
    Set(QStringLiteral("Height"), QStringLiteral("4"));
    Set(QStringLiteral("Left"), QStringLiteral("99"));
    Set(QStringLiteral("Top"), QStringLiteral("99"));
    EXPECT_EQ(View().Place(), (Extent{1, 2, 3, 4})) << "Left and Top mean nothing on the page";
}

TEST_F(DesignRecords, RaiseSixForNumbersThatDontFit) {
    Set(QStringLiteral("n"), QStringLiteral("32767.4"));
    EXPECT_EQ(View().Int16(u"n"), 32767);
    Set(QStringLiteral("n"), QStringLiteral("32768"));
    EXPECT_EQ(FailureOf([&] { (void)View().Int16(u"n"); }), 6);
    Set(QStringLiteral("n"), QStringLiteral("255"));
    EXPECT_EQ(View().Byte(u"n"), 255);
    for (const char* number : {"256", "-1", "99999"}) {
        Set(QStringLiteral("n"), QString::fromLatin1(number));
        EXPECT_EQ(FailureOf([&] { (void)View().Byte(u"n"); }), 6) << number;
    }
}

TEST_F(DesignRecords, TakeColoursWithAndWithoutASign) {
    const auto colourOf = [&](const char* text) {
        Set(QStringLiteral("c"), QString::fromLatin1(text));
        return View().Colour(u"c");
    };
    EXPECT_EQ(colourOf("16777215"), 0xFFFFFFU);
    EXPECT_EQ(colourOf("-2147483648"), 0x80000000U);
    EXPECT_EQ(colourOf("-2147483643"), 0x80000005U);
    EXPECT_EQ(colourOf("4294967295"), 0xFFFFFFFFU);
    EXPECT_EQ(colourOf("2147483648"), 0x80000000U);
    EXPECT_EQ(FailureOf([&] { (void)colourOf("4294967296"); }), 6);
    EXPECT_EQ(FailureOf([&] { (void)colourOf("-2147483649"); }), 6);
}

TEST_F(DesignRecords, TakeTheWordForTrueAndItsTranslation) {
    ASSERT_NO_FATAL_FAILURE(TranslateTruthWords());
    for (const char* text : {"True", "Wahr"}) {
        Set(QStringLiteral("FontBold"), QString::fromLatin1(text));
        EXPECT_TRUE(View().Word(u"FontBold")) << text;
        EXPECT_TRUE(View().Boolean(u"FontBold")) << text;
    }
    for (const char* text : {"true", "-1"}) {
        Set(QStringLiteral("FontBold"), QString::fromLatin1(text));
        EXPECT_FALSE(View().Word(u"FontBold")) << text;
        EXPECT_TRUE(View().Boolean(u"FontBold")) << text;
    }
    for (const char* text : {"False", "Falsch", "0"}) {
        Set(QStringLiteral("FontBold"), QString::fromLatin1(text));
        EXPECT_FALSE(View().Boolean(u"FontBold")) << text;
    }
    Set(QStringLiteral("FontBold"), QStringLiteral("maybe"));
    EXPECT_FALSE(View().Word(u"FontBold"));
    EXPECT_EQ(FailureOf([&] { (void)View().Boolean(u"FontBold"); }), 13);
}

TEST_F(DesignRecords, ArePrintableUnlessTheKeySaysFalse) {
    EXPECT_TRUE(View().IsPrintable());
    for (const char* text : {"True", "1", "", "maybe"}) {
        Set(QStringLiteral("Printable"), QString::fromLatin1(text));
        EXPECT_TRUE(View().IsPrintable()) << text;
    }
    for (const char* text : {"False", "false", "0"}) {
        Set(QStringLiteral("Printable"), QString::fromLatin1(text));
        EXPECT_FALSE(View().IsPrintable()) << text;
    }
}

TEST_F(DesignRecords, PageHasDefaultsForAllButItsPaper) {
    const auto page = As<PageRecord>();
    EXPECT_FALSE(page.HasTitle());
    EXPECT_EQ(page.BackGround(), 16777215U);
    EXPECT_EQ(page.Drivers(), QString());
    EXPECT_EQ(page.PrePrinted(), QString());
    EXPECT_EQ(FailureOf([&] { (void)page.Orientation(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)page.PaperSize(); }), 5);
    Set(QStringLiteral("Orientation"), QStringLiteral("2"));
    Set(QStringLiteral("PaperSize"), QStringLiteral("9"));
    Set(QStringLiteral("BackGround"), QStringLiteral("255"));
    Set(QStringLiteral("Title"), QStringLiteral("Cover"));
    Set(QStringLiteral("Drivers"), QStringLiteral("a,b"));
    Set(QStringLiteral("PrePrinted"), QStringLiteral("scan.bmp|300"));
    EXPECT_EQ(page.Orientation(), 2);
    EXPECT_EQ(page.PaperSize(), 9);
    EXPECT_EQ(page.BackGround(), 255U);
    EXPECT_EQ(page.Title(), QStringLiteral("Cover"));
    EXPECT_EQ(page.Drivers(), QStringLiteral("a,b"));
    EXPECT_EQ(page.PrePrinted(), QStringLiteral("scan.bmp|300"));
}

TEST_F(DesignRecords, ShapeNamesItsFourShapesOnly) {
    const auto nameOf = [&](const char* number) {
        Set(QStringLiteral("Shape"), QString::fromLatin1(number));
        return As<ShapeRecord>().Shape();
    };
    EXPECT_EQ(nameOf("0"), QStringLiteral("rect"));
    EXPECT_EQ(nameOf("1"), QStringLiteral("square"));
    EXPECT_EQ(nameOf("2"), QStringLiteral("oval"));
    EXPECT_EQ(nameOf("3"), QStringLiteral("circle"));
    for (const char* number : {"4", "5", "7", "-1", "1.5"})
        EXPECT_EQ(nameOf(number), QString()) << number;
}

TEST_F(DesignRecords, FieldMayLackWhatImportAndFormulasAdd) {
    const auto field = As<FieldRecord>();
    EXPECT_TRUE(field.Visible());
    EXPECT_EQ(field.Formula(), QString());
    EXPECT_EQ(field.List(), QString());
    EXPECT_EQ(field.DataSource(), QString());
    EXPECT_EQ(field.Format(), QString());
    EXPECT_EQ(FailureOf([&] { (void)field.Name(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)field.WordWrap(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)field.ReadOnly(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)field.Alignment(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)field.BorderStyle(); }), 5);
    EXPECT_EQ(FailureOf([&] { (void)field.TabIdx(); }), 5);
    Set(QStringLiteral("Visible"), QStringLiteral("False"));
    EXPECT_FALSE(field.Visible());
}

TEST_F(DesignRecords, FieldReadsItsImportKeys) {
    Set(QStringLiteral("DataSource"), QStringLiteral("customers.name"));
    Set(QStringLiteral("KeyLevel"), QStringLiteral("2"));
    Set(QStringLiteral("MultiRecordIndex"), QStringLiteral("3"));
    Set(QStringLiteral("NewLineOnChange"), QStringLiteral("True"));
    Set(QStringLiteral("NewLineOnReoccur"), QStringLiteral("False"));
    Set(QStringLiteral("NewPageOnChange"), QStringLiteral("True"));
    Set(QStringLiteral("NewPageOnReoccur"), QStringLiteral("False"));
    const auto field = As<FieldRecord>();
    EXPECT_EQ(field.DataSource(), QStringLiteral("customers.name"));
    EXPECT_EQ(field.KeyLevel(), 2);
    EXPECT_EQ(field.MultiRecordIndex(), 3);
    EXPECT_TRUE(field.NewLineOnChange());
    EXPECT_FALSE(field.NewLineOnReoccur());
    EXPECT_TRUE(field.NewPageOnChange());
    EXPECT_FALSE(field.NewPageOnReoccur());
}

TEST_F(DesignRecords, FieldWithoutATypeIsATextOnPaperAndAPictureOnScreen) {
    EXPECT_TRUE(As<FieldRecord>().PrintsAsText());
    EXPECT_FALSE(As<FieldRecord>().ShowsText());
    for (const char* type : {"0", "2", "00", "2.0", "text", ""}) {
        Set(QStringLiteral("FieldType"), QString::fromLatin1(type));
        EXPECT_TRUE(As<FieldRecord>().PrintsAsText()) << type;
        EXPECT_TRUE(As<FieldRecord>().ShowsText()) << type;
    }
    for (const char* type : {"1", "3", "6"}) {
        Set(QStringLiteral("FieldType"), QString::fromLatin1(type));
        EXPECT_FALSE(As<FieldRecord>().PrintsAsText()) << type;
        EXPECT_FALSE(As<FieldRecord>().ShowsText()) << type;
    }
}

TEST_F(DesignRecords, StylesOfTextsArePaintedByWordAndEditedAsBooleans) {
    Set(QStringLiteral("FontBold"), QStringLiteral("True"));
    Set(QStringLiteral("FontItalic"), QStringLiteral("-1"));
    Set(QStringLiteral("FontUnderline"), QStringLiteral("False"));
    Set(QStringLiteral("FontStrikethru"), QStringLiteral("True"));
    EXPECT_EQ(As<TextRecord>().PaintedStyles(), (FontStyles{true, false, false, true}));
    EXPECT_EQ(As<TextRecord>().ControlStyles(), (FontStyles{true, true, false, true}));
}

TEST_F(DesignRecords, CheckBoxReadsItsLook) {
    Set(QStringLiteral("Style"), QStringLiteral("1"));
    Set(QStringLiteral("States"), QStringLiteral("4"));
    Set(QStringLiteral("Caption"), QStringLiteral("agreed"));
    const auto check = As<CheckRecord>();
    EXPECT_TRUE(check.IsBoxOnTheRight());
    EXPECT_EQ(check.Style(), 1);
    EXPECT_EQ(check.States(), 4);
    EXPECT_EQ(check.Caption(), QStringLiteral("agreed"));
}

}  // namespace
}  // namespace sheetwright
