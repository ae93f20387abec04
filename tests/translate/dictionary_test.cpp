#include "translate/dictionary.h"

#include "support/test_application.h"

#include <tuple>

namespace sheetwright {

namespace {

class DictionaryTest : public ApplicationTest {
  protected:
    void Load(const QByteArray& rows) {
        m_dictionary.Load(Write(QStringLiteral("x.DIC"), "ENGLISH,TRANSLATION\r\n" + rows));
    }
    [[nodiscard]] QString Translated(const QString& text, const QString& parameters = QString()) const {
        return m_dictionary.Translate(text, parameters);
    }

    Dictionary m_dictionary;
};

TEST_F(DictionaryTest, FreshOneShowsTheEnglish) {
    EXPECT_FALSE(m_dictionary.IsOpen());
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Ready"));
}

TEST_F(DictionaryTest, MarkersAreFilledWithoutADictionary) {
    EXPECT_EQ(Translated(QStringLiteral("Error:%1 Printing Bitmap"), QStringLiteral("5")),
              QStringLiteral("Error:5 Printing Bitmap"));
}

TEST_F(DictionaryTest, MissingFileIsNoFailure) {
    EXPECT_EQ(FailureOf([&] { m_dictionary.Load(m_folder.filePath(QStringLiteral("none.DIC"))); }),
              std::nullopt);
    EXPECT_FALSE(m_dictionary.IsOpen());
}

TEST_F(DictionaryTest, HiddenFileCounts) {
    m_dictionary.Load(Write(QStringLiteral(".x.DIC"), "ENGLISH,TRANSLATION\r\nReady,Bereit\r\n"));
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Bereit"));
}

TEST_F(DictionaryTest, FolderIsNoDictionary) {
    EXPECT_EQ(FailureOf([&] { m_dictionary.Load(m_folder.path()); }), std::nullopt);
    EXPECT_EQ(FailureOf([&] { m_dictionary.Load(QString()); }), std::nullopt);
    EXPECT_FALSE(m_dictionary.IsOpen());
}

TEST_F(DictionaryTest, TextOfTheDictionaryIsTranslated) {
    Load(
        "Ready,Bereit\r\nSave,Speichern\r\nRevert,Zur\xC3\xBC"
        "cksetzen\r\n");
    EXPECT_TRUE(m_dictionary.IsOpen());
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Bereit"));
    EXPECT_EQ(Translated(QStringLiteral("Revert")), QStringLiteral("Zur\u00FCcksetzen"));
    EXPECT_EQ(Translated(QStringLiteral("Save")), QStringLiteral("Speichern"));
}

TEST_F(DictionaryTest, FirstLetterThatTheDictionaryLacksGivesTheEnglish) {
    Load("Ready,Bereit\r\n");
    EXPECT_EQ(Translated(QStringLiteral("zoom")), QStringLiteral("zoom"));
    EXPECT_EQ(Translated(QStringLiteral("zoom to %1%"), QStringLiteral("50")), QStringLiteral("zoom to 50%"));
}

TEST_F(DictionaryTest, TextThatTheDictionaryLacksGivesTheEnglish) {
    Load("Ready,Bereit\r\nSave,Speichern\r\n");
    EXPECT_EQ(Translated(QStringLiteral("Read")), QStringLiteral("Read"));
    EXPECT_EQ(Translated(QStringLiteral("Ready ")), QStringLiteral("Ready "));
    EXPECT_EQ(Translated(QStringLiteral("Style")), QStringLiteral("Style"));
}

TEST_F(DictionaryTest, TextsThatDifferInCaseAreEntriesOfTheirOwn) {
    Load(
        "page,seite\r\nPage,Seite\r\nZoom,Vergr\xC3\xB6\xC3\x9F"
        "ern\r\n");
    EXPECT_EQ(Translated(QStringLiteral("page")), QStringLiteral("seite"));
    EXPECT_EQ(Translated(QStringLiteral("Page")), QStringLiteral("Seite"));
    EXPECT_EQ(Translated(QStringLiteral("PAGE")), QStringLiteral("PAGE"));
    EXPECT_EQ(Translated(QStringLiteral("zoom")), QStringLiteral("zoom"));
}

TEST_F(DictionaryTest, BlankTranslationGivesTheEnglish) {
    Load("Ready,\r\nSave,\"   \"\r\nOpen\r\n");
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Ready"));
    EXPECT_EQ(Translated(QStringLiteral("Save")), QStringLiteral("Save"));
    EXPECT_EQ(Translated(QStringLiteral("Open")), QStringLiteral("Open"));
}

TEST_F(DictionaryTest, FirstOfEqualEntriesWins) {
    Load("Ready,eins\r\nReady,zwei\r\nA,\r\nA,drei\r\n");
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("eins"));
    EXPECT_EQ(Translated(QStringLiteral("A")), QStringLiteral("A"));
}

TEST_F(DictionaryTest, EveryEntryOfAnUnsortedFileIsFound) {
    Load("z,1\r\nb,2\r\nZ,3\r\nB,4\r\nbb,5\r\nBb,6\r\n%1,7\r\nbB,8\r\na,9\r\n");
    const QStringList texts{QStringLiteral("z"),  QStringLiteral("b"),  QStringLiteral("Z"),
                            QStringLiteral("B"),  QStringLiteral("bb"), QStringLiteral("Bb"),
                            QStringLiteral("%1"), QStringLiteral("bB"), QStringLiteral("a")};
    for (qsizetype entry = 0; entry < texts.size(); ++entry)
        EXPECT_EQ(Translated(texts[entry]), QString::number(entry + 1)) << texts[entry].toStdString();
}

TEST_F(DictionaryTest, TranslationMayMoveTheMarkers) {
    Load("\"%1 of %2\",von %2 die %1\r\n");
    EXPECT_EQ(Translated(QStringLiteral("%1 of %2"), QStringLiteral("3\u00A69")),
              QStringLiteral("von 9 die 3"));
}

TEST_F(DictionaryTest, TranslationIsTheSecondColumnWhateverItsHeader) {
    m_dictionary.Load(Write(QStringLiteral("x.DIC"), "ENGLISH,GERMAN,TRANSLATION\r\nReady,Bereit,x\r\n"));
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Bereit"));
}

TEST_F(DictionaryTest, FileWithoutASecondColumnIsABrokenInstallation) {
    m_dictionary.Load(Write(QStringLiteral("x.DIC"), "ENGLISH\r\nReady\r\n"));
    EXPECT_EQ(FailureOf([&] { std::ignore = Translated(QStringLiteral("Ready")); }), failure::kSubscript);
    EXPECT_EQ(Translated(QStringLiteral("Save")), QStringLiteral("Save"));
}

TEST_F(DictionaryTest, FileWithoutEnglishTranslatesNothing) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("A,B\r\nReady,Bereit\r\n"), QByteArray("\r\n")}) {
        EXPECT_EQ(FailureOf([&] { m_dictionary.Load(Write(QStringLiteral("x.DIC"), bytes)); }), std::nullopt);
        EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Ready"));
    }
}

TEST_F(DictionaryTest, LaterDictionaryReplacesTheFirst) {
    Load("Ready,Bereit\r\nSave,Speichern\r\n");
    m_dictionary.Load(Write(QStringLiteral("tips.DIC"), "ENGLISH,TRANSLATION\r\nTip,Tipp\r\n"));
    EXPECT_EQ(Translated(QStringLiteral("Tip")), QStringLiteral("Tipp"));
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Ready"));
}

TEST_F(DictionaryTest, LaterDictionaryThatIsMissingLeavesTheFirst) {
    Load("Ready,Bereit\r\n");
    m_dictionary.Load(m_folder.filePath(QStringLiteral("none.DIC")));
    EXPECT_EQ(Translated(QStringLiteral("Ready")), QStringLiteral("Bereit"));
}

TEST_F(DictionaryTest, EmptyTextStaysEmpty) {
    Load(",nothing\r\nReady,Bereit\r\n");
    EXPECT_EQ(Translated(QString()), QString());
}

TEST_F(DictionaryTest, TextOfAnotherAlphabetIsFound) {
    Load("\xC3\x84nderung,change\r\n\xCE\xA9,omega\r\n");
    EXPECT_EQ(Translated(QStringLiteral("\u03A9")), QStringLiteral("omega"));
    EXPECT_EQ(Translated(QStringLiteral("\u00C4nderung")), QStringLiteral("change"));
}

TEST_F(DictionaryTest, ParametersFillTheirMarkers) {
    EXPECT_EQ(Translated(QStringLiteral("%2 %1"), QStringLiteral("a\u00A6b")), QStringLiteral("b a"));
    EXPECT_EQ(Translated(QStringLiteral("%1%1"), QStringLiteral("a\u00A6b")), QStringLiteral("aa"));
}

TEST_F(DictionaryTest, TextWithoutTheFirstMarkerKeepsTheOthers) {
    EXPECT_EQ(Translated(QStringLiteral("only %2"), QStringLiteral("a\u00A6b")), QStringLiteral("only %2"));
}

TEST_F(DictionaryTest, MarkerIsOneDigitLong) {
    EXPECT_EQ(Translated(QStringLiteral("%10 %12"), QStringLiteral("a\u00A6b")), QStringLiteral("a0 a2"));
    EXPECT_EQ(Translated(QStringLiteral("%1%\u0662"), QStringLiteral("a\u00A6b")),
              QStringLiteral("a%\u0662"));
}

TEST_F(DictionaryTest, OnlyTheTranslationTellsWhetherThereAreMarkers) {
    Load("in %1,drinnen\r\nout %2,%1 heraus %2\r\n");
    EXPECT_EQ(Translated(QStringLiteral("in %1"), QStringLiteral("a")), QStringLiteral("drinnen"));
    EXPECT_EQ(Translated(QStringLiteral("out %2"), QStringLiteral("a\u00A6b")), QStringLiteral("a heraus b"));
}

TEST_F(DictionaryTest, PercentSignThatIsNoMarkerStays) {
    EXPECT_EQ(Translated(QStringLiteral("100% sure%1"), QStringLiteral("!")), QStringLiteral("100% sure!"));
    EXPECT_EQ(Translated(QStringLiteral("%1 of 5%"), QStringLiteral("2")), QStringLiteral("2 of 5%"));
    EXPECT_EQ(Translated(QStringLiteral("%%1"), QStringLiteral("2")), QStringLiteral("%2"));
}

TEST_F(DictionaryTest, MarkersOfAValueAreNotFilled) {
    EXPECT_EQ(Translated(QStringLiteral("%1-%2"), QStringLiteral("%2\u00A6x")), QStringLiteral("%2-x"));
}

TEST_F(DictionaryTest, NoughtCountsAsAMarker) {
    EXPECT_EQ(Translated(QStringLiteral("%0%1"), QStringLiteral("a")), QStringLiteral("aa"));
}

TEST_F(DictionaryTest, MarkerWithoutParametersVanishes) {
    EXPECT_EQ(Translated(QStringLiteral("Error %1")), QStringLiteral("Error "));
}

TEST(GetParam, GivesTheNthValue) {
    const QString parameters = QStringLiteral("a\u00A6\u00A6c");
    EXPECT_EQ(GetParam(parameters, 1), QStringLiteral("a"));
    EXPECT_EQ(GetParam(parameters, 2), QString());
    EXPECT_EQ(GetParam(parameters, 3), QStringLiteral("c"));
}

TEST(GetParam, GivesTheLastValueWhenFewerExist) {
    EXPECT_EQ(GetParam(QStringLiteral("a\u00A6b"), 9), QStringLiteral("b"));
    EXPECT_EQ(GetParam(QStringLiteral("a"), 5), QStringLiteral("a"));
    EXPECT_EQ(GetParam(QString(), 5), QString());
    EXPECT_EQ(GetParam(QStringLiteral("a\u00A6"), 9), QString());
}

}  // namespace

}  // namespace sheetwright
