#include "import/csv_table_fixture.h"

namespace sheetwright {
namespace {

class CsvOrderTest : public CsvTableTest {
  protected:
    // Values of the column "Id" in the order of the records, in one text.
    [[nodiscard]] QString Ids() {
        QString ids;
        for (m_table.MoveFirst(); !m_table.AtEnd(); m_table.MoveNext())
            ids += Value(QStringLiteral("Id"));
        return ids;
    }
};

TEST_F(CsvOrderTest, SortsByCharacterCodeAndStandsOnTheFirstRecord) {
    Open("Id,T\n1,b\n2,a\n3,B\n4,\n5,10\n6,9\n");
    m_table.MoveNext();
    m_table.Sort(QStringLiteral("T"));
    EXPECT_EQ(m_table.Position(), 1);
    EXPECT_EQ(Ids(), QStringLiteral("456321"));
}

TEST_F(CsvOrderTest, TheFirstNameIsTheMostSignificant) {
    Open("Id,A,B\n1,x,2\n2,y,1\n3,x,1\n4,y,2\n");
    m_table.Sort(QStringLiteral("A,B"));
    EXPECT_EQ(Ids(), QStringLiteral("3124"));
    m_table.Sort(QStringLiteral("b,a"));
    EXPECT_EQ(Ids(), QStringLiteral("3214"));
}

TEST_F(CsvOrderTest, EqualKeysKeepTheirOrderAlsoFromAnEarlierSort) {
    Open("Id,A,B\n1,x,2\n2,x,1\n3,w,1\n");
    m_table.Sort(QStringLiteral("B"));
    EXPECT_EQ(Ids(), QStringLiteral("231"));
    m_table.Sort(QStringLiteral("A"));
    EXPECT_EQ(Ids(), QStringLiteral("321"));
}

TEST_F(CsvOrderTest, NumbersDatesAndBooleansSortByValueBlanksFirst) {
    Open("Id,N,D,B\n1,10,20240301,0\n2,9,,-1\n3,,20231231,\n4,-2,19990101,-1\n",
         "[N]\nDataType=NUMBER\n[D]\nDataType=DATE\n[B]\nDataType=BOOLEAN\n");
    m_table.Sort(QStringLiteral("N"));
    EXPECT_EQ(Ids(), QStringLiteral("3421"));
    m_table.Sort(QStringLiteral("D"));
    EXPECT_EQ(Ids(), QStringLiteral("2431"));
    m_table.Sort(QStringLiteral("B,Id"));
    EXPECT_EQ(Ids(), QStringLiteral("3241"));
}

TEST_F(CsvOrderTest, SortsWrittenAndAddedRecordsWithTheOthers) {
    Open("Id\n5\n3\n");
    Set(QStringLiteral("Id"), QStringLiteral("1"));
    m_table.Update();
    m_table.AddRecord();
    Set(QStringLiteral("Id"), QStringLiteral("2"));
    m_table.Update();
    m_table.Sort(QStringLiteral("Id"));
    EXPECT_EQ(Ids(), QStringLiteral("123"));
    m_table.AddRecord();
    Set(QStringLiteral("Id"), QStringLiteral("0"));
    m_table.Update();
    EXPECT_EQ(Ids(), QStringLiteral("1230"));
}

TEST_F(CsvOrderTest, WritesGoToTheRightRecordAfterASort) {
    Open("Id,T\n1,b\n2,a\n");
    m_table.Sort(QStringLiteral("T"));
    Set(QStringLiteral("Id"), QStringLiteral("9"));
    m_table.Update();
    EXPECT_EQ(RowsOf(m_table),
              Rows({{QStringLiteral("9"), QStringLiteral("a")}, {QStringLiteral("1"), QStringLiteral("b")}}));
}

TEST_F(CsvOrderTest, ANameThatIsNoColumnRaises5AndLeavesTheOrder) {
    Open("Id\n2\n1\n");
    EXPECT_EQ(FailureOf([&] { m_table.Sort(QStringLiteral("Id,No")); }), 5);
    EXPECT_EQ(FailureOf([&] { m_table.Sort(QString()); }), 5);
    EXPECT_EQ(FailureOf([&] { m_table.Sort(QStringLiteral(" Id")); }), 5);
    EXPECT_EQ(Ids(), QStringLiteral("21"));
}

TEST_F(CsvOrderTest, AListOfNamesMayHoldCommas) {
    Open("Id,\"a,b\"\n1,y\n2,x\n3,x\n");
    m_table.Sort(QStringList{QStringLiteral("a,b"), QStringLiteral("Id")});
    EXPECT_EQ(Ids(), QStringLiteral("231"));
    EXPECT_EQ(FailureOf([&] { m_table.Sort(QStringLiteral("a,b")); }), 5);
}

TEST_F(CsvOrderTest, AnEmptyTableSorts) {
    Open("Id\n");
    m_table.Sort(QStringLiteral("Id"));
    EXPECT_TRUE(m_table.AtEnd());
    m_table.AddRecord();
    EXPECT_EQ(m_table.Position(), 1);
}

TEST_F(CsvOrderTest, FindsTheFirstRecordWhoseColumnsEqualTheValues) {
    Open("PAPERSIZE,ORIENTATION,WIDTH\n9,1,11906\n9,2,16838\n8,1,16838\n9,2,1\n");
    EXPECT_TRUE(m_table.Find(QStringLiteral("PAPERSIZE=9,ORIENTATION=2")));
    EXPECT_EQ(m_table.Position(), 2);
    EXPECT_TRUE(m_table.Find(QStringLiteral("papersize=9,Orientation=1")));
    EXPECT_EQ(Value(QStringLiteral("WIDTH")), QStringLiteral("11906"));
}

TEST_F(CsvOrderTest, WithoutAMatchThePositionStays) {
    Open("PAPERSIZE,ORIENTATION\n9,1\n9,2\n");
    m_table.SetPosition(2);
    for (const QString& filter :
         {QStringLiteral("PAPERSIZE=10,ORIENTATION=1"), QStringLiteral("PAPERSIZE=09"),
          QStringLiteral("PAPERSIZE= 9"), QStringLiteral("PAPERSIZE=")}) {
        EXPECT_FALSE(m_table.Find(filter));
        EXPECT_EQ(m_table.Position(), 2);
    }
}

TEST_F(CsvOrderTest, FindComparesWholeTextsExactly) {
    Open("A,B\nx=1,\n\"say \"\"hi\"\"\",b\n");
    EXPECT_TRUE(m_table.Find(QStringLiteral("A=say \"hi\"")));
    EXPECT_EQ(m_table.Position(), 2);
    EXPECT_TRUE(m_table.Find(QStringLiteral("A=x=1,B=")));
    EXPECT_EQ(m_table.Position(), 1);
    EXPECT_FALSE(m_table.Find(QStringLiteral("B=B")));
}

TEST_F(CsvOrderTest, FindWithANameThatIsNoColumnRaises5) {
    Open("A\n1\n");
    for (const QString& filter :
         {QStringLiteral("B=1"), QStringLiteral("A"), QString(), QStringLiteral("A=1,")})
        EXPECT_EQ(FailureOf([&] { m_table.Find(filter); }), 5);
}

}  // namespace
}  // namespace sheetwright
