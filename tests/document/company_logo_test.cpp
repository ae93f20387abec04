#include "document/company_logo.h"

#include "document/document.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

const QStringList kRecord{QStringLiteral("BEGIN PICTURE"),
                          QStringLiteral("Name=Logo"),
                          QStringLiteral("Picture=companylogo.bmp"),
                          QStringLiteral("AbsLeft=1500"),
                          QStringLiteral("AbsTop=2500"),
                          QStringLiteral("Left=500"),
                          QStringLiteral("Top=700"),
                          QStringLiteral("Stretch=False"),
                          QStringLiteral("Height=100"),
                          QStringLiteral("Width=200"),
                          QStringLiteral("END PICTURE")};

class CompanyLogo : public ApplicationTest {
  protected:
    CompanyLogo() : m_document(*m_application) {
        m_document.MyTempDir = Path(QStringLiteral("form/x")).chopped(1);
        Write(QStringLiteral("logo.bmp"), "BM logo");
    }
    ~CompanyLogo() override { m_document.MyTempDir.clear(); }

    void Configure(const QString& key, const QString& value) {
        m_application->settings.Write(QStringLiteral("Tolvane Quillon Form Designer"),
                                      QStringLiteral("frmPrefs"), key, value);
    }
    void ConfigureLogo() {
        Configure(QStringLiteral("CompanyLogo"), Path(QStringLiteral("logo.bmp")));
        Configure(QStringLiteral("LogoLeft"), QStringLiteral("30"));
        Configure(QStringLiteral("LogoTop"), QStringLiteral("40"));
        Configure(QStringLiteral("LogoHeight"), QStringLiteral("1000"));
        Configure(QStringLiteral("LogoWidth"), QStringLiteral("2000"));
        Configure(QStringLiteral("LogoStretch"), QStringLiteral("1"));
    }
    void AddPage(std::int16_t number, const QStringList& record) {
        m_document.memory.AppendFormDesign(number, QStringLiteral("BEGIN PAGE %1").arg(number));
        for (const QString& line : record)
            m_document.memory.AppendFormDesign(number, line);
        m_document.memory.AppendFormDesign(number, u"END PAGE");
    }
    [[nodiscard]] QStringList Record(int page, int count) const {
        QStringList lines;
        for (int position = 2; position < 2 + count; ++position)
            lines << m_document.memory.DesignPage(page).Line(position).toString();
        return lines;
    }
    [[nodiscard]] bool IsCopied() const {
        return QFile::exists(m_folder.filePath(QStringLiteral("form/newcompanylogo.bmp")));
    }

    frmSheetwright m_document;
};

TEST_F(CompanyLogo, RecordIsRewrittenInPlaceAndTheFileIsCopied) {
    ConfigureLogo();
    AddPage(1, kRecord);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 11),
              (QStringList{QStringLiteral("BEGIN PICTURE"), QStringLiteral("Name=Logo"),
                           QStringLiteral("Picture=newcompanylogo.bmp"), QStringLiteral("AbsLeft=1030"),
                           QStringLiteral("AbsTop=1840"), QStringLiteral("Left=30"), QStringLiteral("Top=40"),
                           QStringLiteral("Stretch=True"), QStringLiteral("Height=1000"),
                           QStringLiteral("Width=2000"), QStringLiteral("END PICTURE")}));
    EXPECT_EQ(Read(QStringLiteral("form/newcompanylogo.bmp")), "BM logo");
}

TEST_F(CompanyLogo, SamePositionAppliesOnEveryPage) {
    ConfigureLogo();
    AddPage(1, kRecord);
    AddPage(2, kRecord);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 11), Record(2, 11));
    EXPECT_EQ(m_document.memory.DesignPage(2).Line(7), u"Left=30");
}

TEST_F(CompanyLogo, WithoutAConfiguredLogoNothingIsDone) {
    AddPage(1, kRecord);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 11), kRecord);
    EXPECT_FALSE(IsCopied());
}

TEST_F(CompanyLogo, TemplateThatReservesNoPlaceIsUntouchedAndNoFileIsCopied) {
    ConfigureLogo();
    QStringList record = kRecord;
    record[2] = QStringLiteral("Picture=other.bmp");
    AddPage(1, record);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 11), record);
    EXPECT_FALSE(IsCopied());
}

TEST_F(CompanyLogo, SubstitutedRecordStaysAsSavedWhateverTheSettingsSayLater) {
    ConfigureLogo();
    AddPage(1, kRecord);
    SubstituteCompanyLogo(m_document);
    const QStringList substituted = Record(1, 11);
    Configure(QStringLiteral("LogoLeft"), QStringLiteral("9999"));
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 11), substituted);
}

TEST_F(CompanyLogo, MissingLogoFileRaises53) {
    ConfigureLogo();
    Configure(QStringLiteral("CompanyLogo"), Path(QStringLiteral("gone.bmp")));
    AddPage(1, kRecord);
    EXPECT_EQ(FailureOf([&] { SubstituteCompanyLogo(m_document); }), 53);
}

TEST_F(CompanyLogo, RecordThatLacksAKeyGetsNothingAdded) {
    ConfigureLogo();
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
                QStringLiteral("AbsLeft=1500"), QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 4),
              (QStringList{QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=newcompanylogo.bmp"),
                           QStringLiteral("AbsLeft=1530"), QStringLiteral("END PICTURE")}));
}

TEST_F(CompanyLogo, KeysAreTakenInAnyCase) {
    ConfigureLogo();
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("PICTURE=companylogo.bmp"),
                QStringLiteral("LEFT=1"), QStringLiteral("absLEFT=11"), QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 4),
              (QStringList{QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=newcompanylogo.bmp"),
                           QStringLiteral("Left=30"), QStringLiteral("AbsLeft=40")}));
}

TEST_F(CompanyLogo, StretchIsOffUnlessTheSettingIsOne) {
    ConfigureLogo();
    Configure(QStringLiteral("LogoStretch"), QStringLiteral("True"));
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
                QStringLiteral("Stretch=True"), QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(4), u"Stretch=False");
}

TEST_F(CompanyLogo, OnlyAnExactPictureRecordIsALogoRecord) {
    ConfigureLogo();
    const QStringList field{QStringLiteral("BEGIN FIELD"), QStringLiteral("Left=1"),
                            QStringLiteral("Default=companylogo.bmp"), QStringLiteral("END FIELD")};
    AddPage(1, field);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 4), field);
    EXPECT_FALSE(IsCopied());
}

TEST_F(CompanyLogo, FractionsOfOldCoordinatesAreDropped) {
    ConfigureLogo();
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
                QStringLiteral("AbsLeft=1500.9"), QStringLiteral("Left=500.9"), QStringLiteral("AbsTop=10"),
                QStringLiteral("Top=-1.9"), QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(4), u"AbsLeft=1030");
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(6), u"AbsTop=51");
}

TEST_F(CompanyLogo, CoordinatesMayHaveTheLocalDecimalSeparator) {
    ConfigureLogo();
    m_application->conventions = ConventionsOf(QLocale(QLocale::German, QLocale::Germany));
    AddPage(1,
            {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
             QStringLiteral("AbsLeft=1500,9"), QStringLiteral("Left=500,9"), QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(4), u"AbsLeft=1030");
}

TEST_F(CompanyLogo, ValueOfSeveralLinesIsNoKeyAndAKeyNeedsNoValue) {
    ConfigureLogo();
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
                QStringLiteral("Top=1\r\n2"), QStringLiteral("Height="), QStringLiteral("WIDTH"),
                QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 6),
              (QStringList{QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=newcompanylogo.bmp"),
                           QStringLiteral("Top=1\r\n2"), QStringLiteral("Height=1000"),
                           QStringLiteral("Width=2000"), QStringLiteral("END PICTURE")}));
}

TEST_F(CompanyLogo, RecordThatIsNeverClosedStays) {
    ConfigureLogo();
    const QStringList open{QStringLiteral("BEGIN PICTURE"), QStringLiteral("Picture=companylogo.bmp"),
                           QStringLiteral("END PICT")};
    AddPage(1, open);
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(Record(1, 3), open);
    EXPECT_FALSE(IsCopied());
}

TEST_F(CompanyLogo, MarkIsTakenAnywhereInALineButNotInOtherCapitals) {
    ConfigureLogo();
    AddPage(1, {QStringLiteral("BEGIN PICTURE"), QStringLiteral("Tag=x=companylogo.bmp.old"),
                QStringLiteral("Left=1"), QStringLiteral("END PICTURE"), QStringLiteral("BEGIN PICTURE"),
                QStringLiteral("Picture=CompanyLogo.bmp"), QStringLiteral("Left=1"),
                QStringLiteral("END PICTURE")});
    SubstituteCompanyLogo(m_document);
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(4), u"Left=30");
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(7), u"Picture=CompanyLogo.bmp");
    EXPECT_EQ(m_document.memory.DesignPage(1).Line(8), u"Left=1");
}

TEST_F(CompanyLogo, ArithmeticBeyond32BitsIsAnOverflow) {
    ConfigureLogo();
    QStringList record = kRecord;
    record[3] = QStringLiteral("AbsLeft=2147483647");
    record[5] = QStringLiteral("Left=-2147483648");
    AddPage(1, record);
    EXPECT_EQ(FailureOf([&] { SubstituteCompanyLogo(m_document); }), 6);
}

TEST_F(CompanyLogo, SettingBeyond32BitsIsAnOverflow) {
    ConfigureLogo();
    Configure(QStringLiteral("LogoWidth"), QStringLiteral("2147483648"));
    AddPage(1, kRecord);
    EXPECT_EQ(FailureOf([&] { SubstituteCompanyLogo(m_document); }), 6);
}

}  // namespace
}  // namespace sheetwright
