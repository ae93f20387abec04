#include "core/folders.h"
#include "formula/formula_test_base.h"

namespace sheetwright {
namespace {

class ListLookupTest : public FormulaTest {
  protected:
    ListLookupTest() {
        SetListFolder(*m_application, m_folder.path());
        Write(QStringLiteral("LISTS/stock.inf"),
              "[Since]\r\nDataType=DATE\r\n[Sold]\r\nDataType=BOOLEAN\r\n");
        Write(QStringLiteral("LISTS/stock.csv"),
              "Code,Name,Since,Sold\r\nA1,Bolt,19991231,-1\r\nA2,Nut,20000101,0\r\nA1,Screw,20000101,0\r\n");
    }
};

TEST_F(ListLookupTest, FindsTheFirstRecordWithTheKey) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A2\")"), "String Nut");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A1\")"), "String Bolt");
}

TEST_F(ListLookupTest, AllKeysMustMatch) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A1\",\"Since\",\"01/01/2000\")"),
              "String Screw");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"A2\",\"Name\",\"Bolt\")"),
              "String none");
}

TEST_F(ListLookupTest, KeysCompareAsPeopleReadThemAndResultsComeAsStored) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Since\",\"none\",\"Sold\",\"True\")"), "String 19991231");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Sold\",\"true\")"), "String none");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\",\"a1\")"), "String none");
}

TEST_F(ListLookupTest, BooleanKeysAreInTheInstallationsLanguage) {
    Write(QStringLiteral("Sheetwright.DIC"), "English,Translation\r\nTrue,Wahr\r\nFalse,Falsch\r\n");
    m_application->dictionary.Load(Path(QStringLiteral("Sheetwright.DIC")));
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Sold\",\"Falsch\")"), "String Nut");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Sold\",\"False\")"), "String none");
}

TEST_F(ListLookupTest, WithoutKeysTheFirstRecordMatches) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\")"), "String Bolt");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"\",\"\",\"Code\",\"A2\")"), "String Bolt")
        << "a pair of nothing ends the keys";
}

TEST_F(ListLookupTest, AKeyWithoutValueLooksForABlank) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Code\")"), "String none");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"\",\"A2\")"), "failure 5") << "no column";
}

TEST_F(ListLookupTest, TheDefaultIsAText) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",5,\"Code\",\"A9\")"), "String 5");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\")"), "String Bolt");
}

TEST_F(ListLookupTest, AMissingColumnFailsOnceThereIsARecord) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Nothing\",\"none\")"), "failure 5");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\",\"Nothing\",\"x\")"), "failure 5");
    Write(QStringLiteral("LISTS/empty.csv"), "Code,Name\r\n");
    EXPECT_EQ(Told("LISTLOOKUP(\"empty.csv\",\"Nothing\",\"none\")"), "String none");
}

TEST_F(ListLookupTest, TheListIsFoundWhateverItsCase) {
    EXPECT_EQ(Told("LISTLOOKUP(\"STOCK.CSV\",\"Name\",\"none\")"), "String Bolt");
}

TEST_F(ListLookupTest, AMissingListIsLoggedAndGivesTheDefault) {
    EXPECT_EQ(Told("LISTLOOKUP(\"gone.csv\",\"Name\",\"none\",\"Code\",\"A1\")"), "String none");
    ASSERT_EQ(ErrorRows().size(), 1U);
    const QStringList row = ErrorRows().front();
    EXPECT_EQ(row.at(3), QStringLiteral("FListLookup"));
    EXPECT_EQ(row.at(4), QStringLiteral("53: File not found"));
    EXPECT_EQ(row.at(5), QStringLiteral("Error loading list: ") + ListFolder(*m_application) +
                             QStringLiteral("Lists\\gone.csv"));
}

TEST_F(ListLookupTest, AListOutsideTheListsIsLoggedAndGivesTheDefault) {
    Write(QStringLiteral("outside.csv"), "Name\r\nsecret\r\n");
    EXPECT_EQ(Told("LISTLOOKUP(\"..\\outside.csv\",\"Name\",\"none\")"), "String none");
    EXPECT_EQ(Told("LISTLOOKUP(\"../outside.csv\",\"Name\",\"none\")"), "String none");
    EXPECT_EQ(Told("LISTLOOKUP(\"x\\..\\..\\outside.csv\",\"Name\",\"none\")"), "String none");
    ASSERT_EQ(ErrorRows().size(), 3U);
    EXPECT_EQ(ErrorRows().front().at(4), QStringLiteral("52: ") + FailureText(failure::kBadFileName));
    EXPECT_EQ(ErrorRows().front().at(5), QStringLiteral("Error loading list: ") + ListFolder(*m_application) +
                                             QStringLiteral("Lists\\..\\outside.csv"));
}

TEST_F(ListLookupTest, AFolderIsNoList) {
    EXPECT_EQ(Told("LISTLOOKUP(\"\",\"Name\",\"none\")"), "String none");
    EXPECT_EQ(ErrorRows().size(), 1U);
}

TEST_F(ListLookupTest, AListThatIsEvaluatedTwiceIsLoggedTwice) {
    EXPECT_EQ(Told("MAXIMUM(LISTLOOKUP(\"gone.csv\",\"Name\",5))"), "Double 5");
    EXPECT_EQ(ErrorRows().size(), 2U);
}

TEST_F(ListLookupTest, AFailureOfTheLogIsIgnored) {
    Write(QStringLiteral("errors.csv/in the way"), "");
    EXPECT_EQ(Told("LISTLOOKUP(\"gone.csv\",\"Name\",\"none\")"), "String none");
}

TEST_F(ListLookupTest, TheTableIsReadAfreshAtEachCall) {
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\")"), "String Bolt");
    Write(QStringLiteral("LISTS/stock.csv"), "Name\r\nWasher\r\n");
    EXPECT_EQ(Told("LISTLOOKUP(\"stock.csv\",\"Name\",\"none\")"), "String Washer");
}

}  // namespace
}  // namespace sheetwright
