#include "document/form_reader.h"

#include "document/document.h"
#include "support/test_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sheetwright {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QByteArray kDesign =
    "VERSION 1.0.4\r\nBEGIN DESIGN\r\n"
    "\tBEGIN PAGE 1\r\n\t\tTitle=Test Sheet\r\n"
    "\t\tBEGIN FIELD\r\n\t\t\tName=Field1\r\n\t\t\tAbsLeft=1440\r\n\t\t\tFormula=SETME(1)\r\n\t\tEND "
    "FIELD\r\n"
    "\t\tBEGIN CHECK\r\n\t\t\tNAME=Check1\r\n\t\tEND CHECK\r\n"
    "\tEND PAGE\r\nEND DESIGN\r\n";

QStringList TextsOf(const PageLines& page) {
    QStringList texts;
    for (int position = 1; position <= page.Count(); ++position)
        texts << page.Line(position).toString();
    return texts;
}

class ReadForm : public ApplicationTest {
  protected:
    ReadForm() { Renew(); }
    ~ReadForm() override { m_document->MyTempDir.clear(); }

    void Renew() {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_document = std::make_unique<frmSheetwright>(*m_application);
        m_document->MyTempDir = Path(QStringLiteral("form/x")).chopped(1);
        m_document->Tag = QStringLiteral("C:\\Forms\\a.aff");
    }
    void ReadText(const QByteArray& text) {
        Write(QStringLiteral("form/a.aff"), text);
        ReadFormFile(*m_document);
    }
    void ReadData(const QByteArray& data) { ReadText(kDesign + "BEGIN DATA\r\n" + data); }
    void MergeText(const QByteArray& text) {
        Write(QStringLiteral("form/more.aft"), text);
        const QString tag = std::exchange(m_document->Tag, QStringLiteral("more.aft"));
        const auto restore = [&] { m_document->Tag = tag; };
        try {
            ReadFormFile(*m_document);
        } catch (const Failure&) {
            restore();
            throw;
        }
        restore();
    }
    [[nodiscard]] QStringList Design(int page) const { return TextsOf(m_document->memory.DesignPage(page)); }
    [[nodiscard]] QStringList Data(int page) const { return TextsOf(m_document->memory.DataPage(page)); }

    std::unique_ptr<frmSheetwright> m_document;
};

TEST_F(ReadForm, DesignLinesAreStoredWithoutIndentation) {
    ReadText(kDesign);
    EXPECT_EQ(Design(1), (QStringList{QStringLiteral("BEGIN PAGE 1"), QStringLiteral("Title=Test Sheet"),
                                      QStringLiteral("BEGIN FIELD"), QStringLiteral("Name=Field1"),
                                      QStringLiteral("AbsLeft=1440"), QStringLiteral("Formula=SETME(1)"),
                                      QStringLiteral("END FIELD"), QStringLiteral("BEGIN CHECK"),
                                      QStringLiteral("NAME=Check1"), QStringLiteral("END CHECK"),
                                      QStringLiteral("END PAGE")}));
}

TEST_F(ReadForm, DataPagesAreStoredWithTheirDesign) {
    ReadData(
        "\tBEGIN PAGE 1 DESIGN=1\r\n\t\tField1=first line\177second line\r\n\t\tCheck1=1\r\n\tEND PAGE\r\n"
        "\tBEGIN PAGE 2 DESIGN=1\r\n\t\tField1=\r\n\tEND PAGE\r\nEND DATA\r\n");
    EXPECT_EQ(m_document->Pages, 2);
    EXPECT_EQ(Data(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"),
                                    QStringLiteral("Field1=first line\r\nsecond line"),
                                    QStringLiteral("Check1=1"), QStringLiteral("END PAGE")}));
    EXPECT_EQ(m_document->memory.WhichDesign(2), 1);
}

TEST_F(ReadForm, TemplateWithThreeDesignsAndNoDataGetsThreeEmptyPages) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nEND PAGE\nBEGIN PAGE 2\nBEGIN FIELD\nName=A\nEND FIELD\nEND PAGE\n"
        "BEGIN PAGE 3\nEND PAGE\nEND DESIGN\n");
    EXPECT_EQ(m_document->Pages, 3);
    EXPECT_EQ(m_document->PageNum, 0);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(Data(2), (QStringList{QStringLiteral("BEGIN PAGE 2 DESIGN=2"), QStringLiteral("A="),
                                    QStringLiteral("END PAGE")}));
    EXPECT_EQ(Data(3), (QStringList{QStringLiteral("BEGIN PAGE 3 DESIGN=3"), QStringLiteral("END PAGE")}));
}

TEST_F(ReadForm, FiveDataPagesOfOneDesignAreFivePages) {
    QByteArray data;
    for (int page = 1; page <= 5; ++page)
        data += "BEGIN PAGE " + QByteArray::number(page) + " DESIGN=1\nEND PAGE\n";
    ReadData(data);
    EXPECT_EQ(m_document->Pages, 5);
    EXPECT_THAT(m_document->memory.PagesOf(1), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(ReadForm, EmptyValuesAreMadeFromNameKeysInAnyCase) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nName=outside\nBEGIN FIELD\nname=a\nEND FIELD\nBEGIN CHECK\nNAME=b\n"
        "Nameplate=c\nEND CHECK\nBEGIN PICTURE\nName=p\nEND PICTURE\nEND PAGE\n");
    EXPECT_EQ(Data(1),
              (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("a="),
                           QStringLiteral("b="), QStringLiteral("late=c="), QStringLiteral("END PAGE")}));
}

TEST_F(ReadForm, KeysOfTheDesignAreExact) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\ntitle=no\nTitle =no\nTitle=yes=1\nBEGIN FIELD\nName =x\nName=y\n"
        "NAME=z\nFormula=F\nEND FIELD\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.PageProps.Count(), 1);
    EXPECT_EQ(m_document->memory.PageProps.At(1), QStringLiteral("yes=1"));
    EXPECT_TRUE(m_document->memory.FormulasOf(1).Contains(u"y"));
}

TEST_F(ReadForm, PageWithoutATitleShiftsTheTitlesOfTheLaterOnes) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nEND PAGE\nBEGIN PAGE 2\nTitle=Second\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.PageProps.At(1), QStringLiteral("Second"));
}

TEST_F(ReadForm, SecondTitleOfAPageRaises457) {
    EXPECT_EQ(
        FailureOf([&] {
            ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nTitle=a\nBEGIN FIELD\nTitle=b\nEND FIELD\nEND PAGE\n");
        }),
        457);
}

TEST_F(ReadForm, ValueKeepsFurtherEqualsSignsAndLosesTrailingBlanks) {
    ReadData("BEGIN PAGE 1 DESIGN=1\nK=a=b=c\n \t K2= x  \n\t\tK3=   \nEND PAGE\n");
    EXPECT_EQ(Data(1)[1], QStringLiteral("K=a=b=c"));
    EXPECT_EQ(Data(1)[2], QStringLiteral("\t K2= x"));
    EXPECT_EQ(Data(1)[3], QStringLiteral("K3="));
}

TEST_F(ReadForm, AllLineEndsAreTakenAndBlankLinesDropped) {
    ReadText("BEGIN DESIGN\rBEGIN PAGE 1\n\n\t \r\nA=1\rEND PAGE\r\nEND DESIGN");
    EXPECT_EQ(Design(1), (QStringList{QStringLiteral("BEGIN PAGE 1"), QStringLiteral("A=1"),
                                      QStringLiteral("END PAGE")}));
}

TEST_F(ReadForm, StrayLinesBehindAPageBelongToIt) {
    ReadData("dropped=1\nBEGIN PAGE 1 DESIGN=1\nEND PAGE\nstray\nBEGIN PAGE 2 DESIGN=1\nEND PAGE\n");
    EXPECT_EQ(Data(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("END PAGE"),
                                    QStringLiteral("stray")}));
}

TEST_F(ReadForm, SectionEndsOnlyAtALineOfItsOwnInCapitals) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nend design\nEND DESIGNER\nEND DESIGN x\n  END DESIGN  \nA=1\n"
        "BEGIN DATA\nBEGIN PAGE 1 DESIGN=1\nEnd Data\nEND DATA\nB=1\n");
    EXPECT_EQ(Design(1).size(), 4);
    EXPECT_EQ(Data(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("End Data")}));
}

TEST_F(ReadForm, EndOfFileEndsASectionWithoutComplaint) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nTitle=x");
    EXPECT_EQ(Design(1).size(), 2);
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(ReadForm, DesignHeaderIsRewrittenInTheReadersOwnForm) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 02x TITLE=1\nEND PAGE\n");
    EXPECT_EQ(Design(2)[0], QStringLiteral("BEGIN PAGE 2"));
}

TEST_F(ReadForm, PagesWithoutANumberAreDropped) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE x\nA=1\nBEGIN FIELD\nName=n\nFormula=f\nEND FIELD\nEND PAGE\n"
        "BEGIN PAGE -3\nB=1\nBEGIN FIELD\nName=n\nFormula=f\nEND FIELD\nEND PAGE\nEND DESIGN\n"
        "BEGIN DATA\nBEGIN PAGE x DESIGN=1\nC=1\nEND PAGE\nBEGIN PAGE -1 DESIGN=1\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.DesignPageCount(), 0);
    EXPECT_EQ(m_document->memory.DataPageCount(), 0);
    EXPECT_EQ(m_document->Pages, 0);
}

TEST_F(ReadForm, DataHeaderWithoutABlankBehindTheNumberRaises5) {
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE 1\nEND PAGE\n"); }), 5);
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE\nEND PAGE\n"); }), 5);
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGES=4\n"); }), 5);
}

TEST_F(ReadForm, DataHeaderWithTwoBlanksHasNoNumber) {
    ReadData("BEGIN PAGE  DESIGN=1\nField1=dropped\nEND PAGE\nBEGIN PAGE 1 DESIGN=1\nEND PAGE\n");
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_EQ(Data(1).size(), 2);
}

TEST_F(ReadForm, DataHeaderWithoutADesignRaises13) {
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE 1 design=1\nEND PAGE\n"); }), 13);
}

TEST_F(ReadForm, PageNumbersPast32767Raise6) {
    EXPECT_EQ(FailureOf([&] { ReadText("BEGIN DESIGN\nBEGIN PAGE 32768\nEND PAGE\n"); }), 6);
    EXPECT_EQ(FailureOf([&] { ReadText("BEGIN DESIGN\nBEGIN PAGE 1000000000\nEND PAGE\n"); }), 6);
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE 32768 DESIGN=1\n"); }), 6);
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE 1e9 DESIGN=1\nBEGIN PAGE 999999 DESIGN=1\n"); }), 6);
}

TEST_F(ReadForm, SparsePageNumbersLeaveEmptyPages) {
    ReadData("BEGIN PAGE 30000 DESIGN=1\nField1=x\nEND PAGE\n");
    EXPECT_EQ(m_document->Pages, 30000);
    EXPECT_TRUE(Data(29999).isEmpty());
    EXPECT_EQ(Data(30000).size(), 3);
}

TEST_F(ReadForm, AsManyPagesAsThereCanBe) {
    QByteArray data;
    for (int page = 1; page <= 32767; ++page)
        data += "BEGIN PAGE " + QByteArray::number(page) + " DESIGN=1\nEND PAGE\n";
    ReadData(data);
    EXPECT_EQ(m_document->Pages, 32767);
    EXPECT_EQ(m_document->memory.PagesOf(1).size(), 32767U);
}

TEST_F(ReadForm, NumericKeysOfTheDesignGetTheLocalDecimalSeparator) {
    m_application->conventions = ConventionsOf(QLocale(QLocale::German, QLocale::Germany));
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nHeight=1.5.2\nLeft=1.5\nTop=1.5\nWidth=1.5\nAbsLeft=1.5\nAbsTop=1.5\n"
        "FontSize=8.25\nOther=1.5\nheight=1.5\nEND PAGE\nEND DESIGN\n"
        "BEGIN DATA\nBEGIN PAGE 1 DESIGN=1\nHeight=1.5\n");
    EXPECT_EQ(Design(1).mid(1, 9), (QStringList{QStringLiteral("Height=1,5.2"), QStringLiteral("Left=1,5"),
                                                QStringLiteral("Top=1,5"), QStringLiteral("Width=1,5"),
                                                QStringLiteral("AbsLeft=1,5"), QStringLiteral("AbsTop=1,5"),
                                                QStringLiteral("FontSize=8,25"), QStringLiteral("Other=1.5"),
                                                QStringLiteral("height=1.5")}));
    EXPECT_EQ(Data(1)[1], QStringLiteral("Height=1.5"));
}

TEST_F(ReadForm, NumericKeysStayWhereThePointIsTheSeparator) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nHeight=1.5\nLeft=1,5\n");
    EXPECT_EQ(Design(1).mid(1), (QStringList{QStringLiteral("Height=1.5"), QStringLiteral("Left=1,5")}));
}

TEST_F(ReadForm, FormulasAreRegisteredUnderTheFieldsName) {
    ReadText(kDesign);
    EXPECT_EQ(m_document->memory.FormulasOf(1).Count(), 1);
    EXPECT_EQ(m_document->memory.FormulasOf(1).At(QStringLiteral("Field1")), QStringLiteral("SETME(1)"));
}

TEST_F(ReadForm, FormulasOnDriversAreNotRegistered) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nBEGIN FIELD\nName=a\nFormula=SETME({DRIVERS\\X})\nEND FIELD\n"
        "BEGIN FIELD\nName=b\nFormula=SETME({drivers\\X})\nEND FIELD\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.FormulasOf(1).Count(), 1);
    EXPECT_TRUE(m_document->memory.FormulasOf(1).Contains(u"b"));
}

TEST_F(ReadForm, PendingFormulaIsForgottenAtTheNextBegin) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nName=a\nFormula=1\nBEGIN FIELD\nEND FIELD\nEND PAGE\n");
    EXPECT_TRUE(m_document->memory.FormulasOf(1).IsEmpty());
}

TEST_F(ReadForm, SecondFormulaOfTheSameFieldNameRaises457) {
    const QByteArray field = "BEGIN FIELD\nName=a\nFormula=1\nEND FIELD\n";
    EXPECT_EQ(FailureOf([&] { ReadText("BEGIN DESIGN\nBEGIN PAGE 1\n" + field + field); }), 457);
}

TEST_F(ReadForm, NewerVersionIsToldAndLoadingGoesOn) {
    ReadText("VERSION 1.1.0\n" + kDesign);
    EXPECT_THAT(
        m_ui.messages,
        ElementsAre(ShownMessage{
            QStringLiteral("This form was saved using a newer version and may not function correctly."),
            m_application->Title, MessageIcon::Exclamation, MessageButtons::Ok}));
    EXPECT_EQ(m_document->Pages, 1);
}

TEST_F(ReadForm, RevisionNumberNeverCounts) {
    ReadText("VERSION 1.0.9\nBEGIN DESIGN\n");
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(ReadForm, VersionIsNoticedAnywhereInTheDesignSectionOnly) {
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nVERSION 2.0.0\nEND DESIGN\nBEGIN DATA\nVERSION 3.0.0\n");
    EXPECT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(Design(1)[1], QStringLiteral("VERSION 2.0.0"));
}

TEST_F(ReadForm, NewerVersionIsNotToldInTheViewer) {
    Restart(QStringLiteral("Tolvane Quillon Sheetwright Viewer"));
    Renew();
    ReadText("VERSION 9.9.9\n" + kDesign);
    EXPECT_THAT(m_ui.messages, IsEmpty());
}

TEST_F(ReadForm, MissingFileIsToldAndLeavesTheDocumentEmpty) {
    ReadFormFile(*m_document);
    EXPECT_THAT(m_ui.messages,
                ElementsAre(ShownMessage{QStringLiteral("Error: File Missing"), m_application->Title,
                                         MessageIcon::Critical, MessageButtons::Ok}));
    EXPECT_EQ(m_document->Pages, 0);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(ReadForm, EmptyFileRaises62) {
    EXPECT_EQ(FailureOf([&] { ReadText(""); }), 62);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_EQ(m_document->PageNum, 0);
}

TEST_F(ReadForm, StatusWordsFollowTheSections) {
    ReadText(kDesign);
    EXPECT_EQ(m_ui.statuses,
              (QStringList{QStringLiteral("Reading template into memory..."),
                           QStringLiteral("Reading data into memory..."),
                           QStringLiteral("Initialising Form Data..."), QStringLiteral("Ready")}));
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(ReadForm, FormWithDataInitialisesNone) {
    ReadData("BEGIN PAGE 1 DESIGN=1\nEND PAGE\n");
    EXPECT_EQ(m_ui.statuses,
              (QStringList{QStringLiteral("Reading template into memory..."),
                           QStringLiteral("Reading data into memory..."), QStringLiteral("Ready")}));
}

TEST_F(ReadForm, ProgressOfTheDesignShowsEvery20LinesAndOfTheDataEachLine) {
    ReadText(QByteArray("x\n").repeated(50) + "END DESIGN\n" + QByteArray("y\n").repeated(4));
    EXPECT_THAT(m_ui.progress, ElementsAre(33, 67, 94, 96, 98, 100));
}

TEST_F(ReadForm, ProgressNeverRepeatsAPercentage) {
    ReadData("BEGIN PAGE 1 DESIGN=1\n" + QByteArray("value=1\n").repeated(5000));
    EXPECT_EQ(std::adjacent_find(m_ui.progress.begin(), m_ui.progress.end(), std::greater_equal<>()),
              m_ui.progress.end());
    EXPECT_EQ(m_ui.progress.back(), 100);
}

TEST_F(ReadForm, FailureHidesTheBarAndRestoresThePointer) {
    EXPECT_EQ(FailureOf([&] { ReadData("BEGIN PAGE 1\n"); }), 5);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(ReadForm, CaptionIsTheBareFileName) {
    ReadText(kDesign);
    EXPECT_EQ(m_document->Caption, QStringLiteral("a.aff"));
}

TEST_F(ReadForm, CaptionOfATemplateIsUntitled) {
    m_document->Tag = QStringLiteral("C:\\Forms\\a.aft");
    Write(QStringLiteral("form/a.aft"), kDesign);
    ReadFormFile(*m_document);
    EXPECT_EQ(m_document->Caption, QStringLiteral("(Untitled)"));
}

TEST_F(ReadForm, CaptionIsSpelledAsTheFileSystemDoes) {
    m_document->Tag = Path(QStringLiteral("disk/A.AFF"));
    Write(QStringLiteral("disk/a.aff"), "x");
    ReadText(kDesign);
    EXPECT_EQ(m_document->Caption, QStringLiteral("a.aff"));
}

TEST_F(ReadForm, OddBytesAreKept) {
    ReadData(QByteArray("BEGIN PAGE 1 DESIGN=1\nA=\0\x01\xE9\nEND PAGE\n", 37));
    EXPECT_EQ(Data(1)[1], QStringLiteral("A=\u0000\u0001\u00E9"));
}

TEST_F(ReadForm, HugeLinesOfNothingAreRead) {
    ReadText(QByteArray(1'000'000, '\0'));
    EXPECT_EQ(m_document->Pages, 0);
    Renew();
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nA=" + QByteArray(1'000'000, 'x'));
    EXPECT_EQ(Design(1)[1].size(), 1'000'002);
}

TEST_F(ReadForm, MergeNumbersTheDesignsOnAndAddsNoDataPage) {
    ReadText(kDesign);
    m_document->PageNum = 1;
    m_ui.statuses.clear();
    MergeText(kDesign + "BEGIN DATA\nBEGIN PAGE 1 DESIGN=1\nField1=theirs\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.DesignPageCount(), 2);
    EXPECT_EQ(Design(2)[0], QStringLiteral("BEGIN PAGE 2"));
    EXPECT_EQ(m_document->memory.PageProps.Count(), 2);
    EXPECT_TRUE(m_document->memory.FormulasOf(2).Contains(u"Field1"));
    EXPECT_EQ(m_document->Pages, 1);
    EXPECT_EQ(Data(1)[1], QStringLiteral("Field1="));
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(m_document->Caption, QStringLiteral("a.aff"));
    EXPECT_EQ(m_ui.statuses.back(), QStringLiteral("Ready"));
}

TEST_F(ReadForm, MergeThatFailsLeavesTheDocumentAsItWas) {
    ReadText(kDesign);
    m_document->PageNum = 1;
    EXPECT_EQ(FailureOf([&] { MergeText(kDesign + "x"); }), std::nullopt);
    const int designs = m_document->memory.DesignPageCount();
    EXPECT_EQ(FailureOf([&] { MergeText("BEGIN DESIGN\nBEGIN PAGE 1\nTitle=a\nTitle=b\n"); }), 457);
    EXPECT_EQ(m_document->memory.DesignPageCount(), designs);
    EXPECT_EQ(m_document->memory.PageProps.Count(), designs);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->DataPageNum, 1);
}

TEST_F(ReadForm, MergedPagesWithoutANumberAreDropped) {
    ReadText(kDesign);
    const QStringList before = Design(1);
    MergeText(
        "BEGIN DESIGN\nstray\nBEGIN PAGE x\nA=1\nBEGIN FIELD\nName=n\nFormula=f\nEND FIELD\nEND PAGE\n"
        "BEGIN PAGE 0\nB=1\nBEGIN PAGE -1\nC=1\nEND PAGE\nEND DESIGN\n");
    EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
    EXPECT_EQ(Design(1), before);
    EXPECT_EQ(m_document->memory.FormulasOf(1).Count(), 1);
}

TEST_F(ReadForm, MergeOfAMissingOrEmptyFileLeavesTheDocumentAsItWas) {
    ReadText(kDesign);
    m_document->PageNum = 1;
    m_document->Tag = QStringLiteral("gone.aft");
    ReadFormFile(*m_document);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList{QStringLiteral("Error: File Missing")});
    EXPECT_EQ(FailureOf([&] { MergeText(""); }), 62);
    EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
    EXPECT_EQ(m_document->memory.PageProps.Count(), 1);
    EXPECT_EQ(m_document->PageNum, 1);
    EXPECT_EQ(m_document->DataPageNum, 1);
    EXPECT_EQ(m_document->Pages, 1);
}

TEST_F(ReadForm, MergedPagesPast32767Raise6AndAreTakenBack) {
    ReadText(kDesign);
    EXPECT_EQ(FailureOf([&] { MergeText("BEGIN DESIGN\nBEGIN PAGE 1\nBEGIN PAGE 32767\nEND PAGE\n"); }), 6);
    EXPECT_EQ(m_document->memory.DesignPageCount(), 1);
}

TEST_F(ReadForm, LineBreaksOfTitlesNamesAndFormulasAreReal) {
    ReadText(
        "BEGIN DESIGN\nBEGIN PAGE 1\nTitle=Two\177lines\nBEGIN FIELD\nName=a\177b\n"
        "Formula=SETME(\"x\177y\")\nEND FIELD\nEND PAGE\n");
    EXPECT_EQ(m_document->memory.PageProps.At(1), QStringLiteral("Two\r\nlines"));
    EXPECT_EQ(m_document->memory.FormulasOf(1).At(QStringLiteral("a\r\nb")),
              QStringLiteral("SETME(\"x\r\ny\")"));
}

TEST_F(ReadForm, TextThatIsOnlyAByteOrderMarkIsAFormWithoutPages) {
    ReadText("\xEF\xBB\xBF");
    EXPECT_EQ(m_document->Pages, 0);
    EXPECT_EQ(m_ui.statuses.back(), QStringLiteral("Ready"));
    EXPECT_FALSE(m_ui.progressShown);
}

TEST_F(ReadForm, LogoIsSubstitutedBeforeTheDataIsRead) {
    m_application->settings.Write(QStringLiteral("Tolvane Quillon Form Designer"), QStringLiteral("frmPrefs"),
                                  QStringLiteral("CompanyLogo"), Write(QStringLiteral("logo.bmp"), "BM"));
    ReadText("BEGIN DESIGN\nBEGIN PAGE 1\nBEGIN PICTURE\nPicture=companylogo.bmp\nEND PICTURE\n");
    EXPECT_EQ(Design(1)[2], QStringLiteral("Picture=newcompanylogo.bmp"));
    EXPECT_EQ(Read(QStringLiteral("form/newcompanylogo.bmp")), "BM");
}

TEST(ComparableVersion, MajorAndMinorGetThreeDigitsEach) {
    EXPECT_EQ(ComparableVersion(u"VERSION 1.0.4"), QStringLiteral("001000"));
    EXPECT_EQ(ComparableVersion(u"12.34."), QStringLiteral("012034"));
    EXPECT_EQ(ComparableVersion(u"1234.0005.9"), QStringLiteral("1234005"));
    EXPECT_EQ(ComparableVersion(u".."), QStringLiteral("000000"));
}

TEST(ComparableVersion, WithoutASecondPointItIsTheDigitsSinceTheFirst) {
    EXPECT_EQ(ComparableVersion(u"VERSION 1.7"), QStringLiteral("7"));
    EXPECT_EQ(ComparableVersion(u"VERSION 15"), QStringLiteral("15"));
    EXPECT_EQ(ComparableVersion(u"VERSION"), QString());
}

TEST(ComparableVersion, OtherCharactersAreSkipped) {
    EXPECT_EQ(ComparableVersion(u"V1a2b.3c4."), QStringLiteral("012034"));
}

}  // namespace
}  // namespace sheetwright
