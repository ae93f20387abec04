#include "import/csv_table.h"

#include "import/csv_table_fixture.h"

namespace sheetwright {
namespace {

TEST_F(CsvTableTest, AFreshTableIsEmpty) {
    EXPECT_EQ(m_table.FileName(), QString());
    EXPECT_EQ(m_table.Columns().Count(), 0);
    EXPECT_EQ(m_table.RecordCount(), 0);
    EXPECT_EQ(m_table.Position(), 0);
    EXPECT_TRUE(m_table.AtEnd());
}

TEST_F(CsvTableTest, OpeningPositionsOnTheFirstRecord) {
    Open("Name,Town\r\nAda,London\r\nAlan,Wilmslow\r\n");
    EXPECT_EQ(m_table.FileName(), Path(QStringLiteral("table.csv")));
    EXPECT_EQ(NamesOf(m_table), QStringList({QStringLiteral("Name"), QStringLiteral("Town")}));
    EXPECT_EQ(m_table.RecordCount(), 2);
    EXPECT_EQ(m_table.Position(), 1);
    EXPECT_EQ(CurrentRow(m_table), QStringList({QStringLiteral("Ada"), QStringLiteral("London")}));
}

TEST_F(CsvTableTest, ARecordWithFewerValuesThanColumnsShowsNothingInTheRest) {
    Open("A,B,C\n1\n1,2\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1"), QString(), QString()},
                                     {QStringLiteral("1"), QStringLiteral("2"), QString()}}));
}

TEST_F(CsvTableTest, ValuesBeyondTheHeaderHaveNoColumn) {
    Open("A\n1,2,3\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1")}}));
}

TEST_F(CsvTableTest, LeadingZerosLongNumbersAndBlanksStayAsTheyStand) {
    Open("A,B,C\n007,123456789012345678901234567890,  x \n");
    EXPECT_EQ(CurrentRow(m_table),
              QStringList({QStringLiteral("007"), QStringLiteral("123456789012345678901234567890"),
                           QStringLiteral("  x ")}));
}

TEST_F(CsvTableTest, QuotedValuesHoldCommasQuotesAndLineBreaks) {
    Open("\"A,1\",B\r\n\"x, y\",\"say \"\"hi\"\"\"\r\n\"two\r\nlines\",\"\"\r\n");
    EXPECT_EQ(NamesOf(m_table).front(), QStringLiteral("A,1"));
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("x, y"), QStringLiteral("say \"hi\"")},
                                     {QStringLiteral("two\r\nlines"), QString()}}));
}

TEST_F(CsvTableTest, RecordsEndInAnyKindOfLineEnd) {
    const Rows rows({{QStringLiteral("1")}, {QStringLiteral("2")}, {QStringLiteral("3")}});
    for (const char* bytes : {"A\r\n1\r\n2\r\n3\r\n", "A\n1\n2\n3\n", "A\r1\r2\r3\r", "A\r\n1\n2\r3"}) {
        Open(bytes);
        EXPECT_EQ(RowsOf(m_table), rows) << bytes;
    }
}

TEST_F(CsvTableTest, AnEmptyLineIsNoRecordOutsideQuotes) {
    Open("\n\r\nA\n\n1\n\n\n\"\n\n\"\n\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1")}, {QStringLiteral("\n\n")}}));
}

TEST_F(CsvTableTest, APairOfQuotesIsARecordOfOneBlank) {
    Open("A\n\"\"\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QString()}}));
}

TEST_F(CsvTableTest, AFileThatEndsInsideQuotesEndsTheValue) {
    Open("A,B\n1,\"two\nthree");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1"), QStringLiteral("two\nthree")}}));
}

TEST_F(CsvTableTest, AFileWithAHeaderOnlyHasNoRecords) {
    for (const char* bytes : {"A,B", "A,B\r\n", "\"A\",B\n\n"}) {
        Open(bytes);
        EXPECT_EQ(NamesOf(m_table), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
        EXPECT_EQ(m_table.RecordCount(), 0);
        EXPECT_TRUE(m_table.AtEnd());
        EXPECT_EQ(Value(QStringLiteral("A")), QString());
    }
}

TEST_F(CsvTableTest, AnEmptyFileHasNoColumns) {
    for (const char* bytes : {"", "\r\n\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF\r\n"}) {
        Open(bytes);
        EXPECT_EQ(m_table.Columns().Count(), 0);
        EXPECT_EQ(m_table.RecordCount(), 0);
    }
}

TEST_F(CsvTableTest, AFileThatDoesNotExistHasNoColumnsAndKeepsItsName) {
    for (const QString& name : {QStringLiteral("none.csv"), QStringLiteral("no/folder/none.csv")}) {
        m_table.SetFileName(m_folder.filePath(name));
        EXPECT_EQ(m_table.FileName(), m_folder.filePath(name));
        EXPECT_EQ(m_table.Columns().Count(), 0);
        EXPECT_EQ(m_table.RecordCount(), 0);
    }
}

TEST_F(CsvTableTest, OpeningAFolderRaises75AndLeavesNoColumns) {
    Open("A\n1\n");
    EXPECT_EQ(FailureOf([&] { m_table.SetFileName(m_folder.path()); }), 75);
    EXPECT_EQ(m_table.FileName(), m_folder.path());
    EXPECT_EQ(m_table.Columns().Count(), 0);
    EXPECT_EQ(m_table.RecordCount(), 0);
    EXPECT_EQ(FailureOf([&] { m_table.Save(); }), 75);
}

TEST_F(CsvTableTest, AFileThatCannotBeReadRaises75AndIsNotWrittenOver) {
    const QString path = Write(QStringLiteral("secret.csv"), "A\n1\n");
    QFile::setPermissions(path, QFileDevice::WriteOwner);
    QFile probe(path);
    if (probe.open(QIODevice::ReadOnly)) return;  // a superuser reads everything
    EXPECT_EQ(FailureOf([&] { m_table.SetFileName(path); }), 75);
    EXPECT_EQ(FailureOf([&] { m_table.Save(); }), 75);
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    EXPECT_EQ(Read(QStringLiteral("secret.csv")), "A\n1\n");
}

TEST_F(CsvTableTest, OpeningAnotherFileReplacesEverything) {
    Open("A,B\n1,2\n3,4\n", "[A]\nDataType=NUMBER\n");
    m_table.Sort(QStringLiteral("B"));
    m_table.AddRecord();
    m_table.Columns().Add(QStringLiteral("C"));
    m_table.SetFileName(Write(QStringLiteral("other.csv"), "a\nx\n"));
    EXPECT_EQ(NamesOf(m_table), QStringList({QStringLiteral("a")}));
    EXPECT_EQ(m_table.Columns().At(1).DataType(), QStringLiteral("TEXT"));
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("x")}}));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_table.Columns().At(QStringLiteral("B"))); }), 5);
}

TEST_F(CsvTableTest, OpeningItsOwnFileReadsItAgain) {
    Open("A\n1\n");
    Write(QStringLiteral("table.csv"), "A\n1\n2\n");
    m_table.SetFileName(m_table.FileName());
    EXPECT_EQ(m_table.RecordCount(), 2);
    m_table.SetFileName(QString());
    EXPECT_EQ(m_table.Columns().Count(), 0);
}

TEST_F(CsvTableTest, ColumnsAreFoundByNumberAndByNameInAnyCase) {
    Open("Name,\u00C4mter\n1,2\n");
    EXPECT_EQ(&m_table.Columns().At(QStringLiteral("NAME")), &m_table.Columns().At(1));
    EXPECT_EQ(&m_table.Columns().At(QStringLiteral("\u00E4MTER")), &m_table.Columns().At(2));
}

TEST_F(CsvTableTest, AskingForAColumnThatIsNotThereFails) {
    Open("Name\n1\n");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_table.Columns().At(QStringLiteral("Nam"))); }), 5);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_table.Columns().At(QString())); }), 5);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_table.Columns().At(0)); }), 9);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(m_table.Columns().At(2)); }), 9);
}

TEST_F(CsvTableTest, TheFirstOfEqualNamesIsFoundAndTheOthersByNumber) {
    Open("A,a,,\n1,2,3,4\n");
    EXPECT_EQ(Value(QStringLiteral("a")), QStringLiteral("1"));
    EXPECT_EQ(m_table.Columns().At(2).Value(), QStringLiteral("2"));
    EXPECT_EQ(Value(QString()), QStringLiteral("3"));
    EXPECT_EQ(m_table.Columns().At(4).Value(), QStringLiteral("4"));
}

TEST_F(CsvTableTest, ColumnsFollowTheTable) {
    Open("A\n1\n2\n");
    const CsvColumn& column = m_table.Columns().At(1);
    for (int number = 0; number < 100; ++number)
        m_table.Columns().Add(QStringLiteral("N%1").arg(number));
    EXPECT_EQ(column.Value(), QStringLiteral("1"));
    m_table.MoveNext();
    EXPECT_EQ(column.Value(), QStringLiteral("2"));
}

TEST_F(CsvTableTest, PastTheLastRecordThereIsNoCurrentOne) {
    Open("A\n1\n2\n");
    m_table.MoveNext();
    EXPECT_FALSE(m_table.AtEnd());
    m_table.MoveNext();
    EXPECT_TRUE(m_table.AtEnd());
    m_table.MoveNext();
    EXPECT_TRUE(m_table.AtEnd());
    EXPECT_EQ(m_table.Position(), 0);
    EXPECT_EQ(Value(QStringLiteral("A")), QString());
    EXPECT_EQ(FailureOf([&] { Set(QStringLiteral("A"), QStringLiteral("x")); }), 91);
    m_table.MoveFirst();
    EXPECT_EQ(m_table.Position(), 1);
}

TEST_F(CsvTableTest, PositionsOutsideTheRecordsRaise9) {
    Open("A\n1\n2\n");
    m_table.SetPosition(2);
    EXPECT_EQ(Value(QStringLiteral("A")), QStringLiteral("2"));
    for (const std::int32_t number : {-2147483647 - 1, -1, 3, 2147483647})
        EXPECT_EQ(FailureOf([&] { m_table.SetPosition(number); }), 9);
    EXPECT_EQ(m_table.Position(), 2);
}

TEST_F(CsvTableTest, PositionZeroLeavesNoCurrentRecord) {
    Open("A\n1\n2\n");
    m_table.SetPosition(0);
    EXPECT_EQ(m_table.Position(), 0);
    EXPECT_TRUE(m_table.AtEnd());
    EXPECT_EQ(Value(QStringLiteral("A")), QString());
    m_table.SetPosition(2);
    EXPECT_EQ(Value(QStringLiteral("A")), QStringLiteral("2"));
    m_table.SetFileName(QString());
    m_table.SetPosition(0);
    EXPECT_EQ(m_table.Position(), 0);
}

TEST_F(CsvTableTest, WrittenValuesShowAtOnceAndStayWithUpdate) {
    Open("A,B\n1,2\n3,4\n");
    Set(QStringLiteral("B"), QStringLiteral("new"));
    EXPECT_EQ(CurrentRow(m_table), QStringList({QStringLiteral("1"), QStringLiteral("new")}));
    m_table.Update();
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1"), QStringLiteral("new")},
                                     {QStringLiteral("3"), QStringLiteral("4")}}));
}

TEST_F(CsvTableTest, MovingAwayWithoutUpdateDropsWrittenValues) {
    Open("A\n1\n2\n");
    Set(QStringLiteral("A"), QStringLiteral("new"));
    m_table.MoveNext();
    m_table.MoveFirst();
    EXPECT_EQ(Value(QStringLiteral("A")), QStringLiteral("1"));
}

TEST_F(CsvTableTest, AnAddedRecordIsBlankCurrentAndTheLast) {
    Open("A,B\n1,2\n");
    m_table.AddRecord();
    EXPECT_EQ(m_table.RecordCount(), 2);
    EXPECT_EQ(m_table.Position(), 2);
    EXPECT_EQ(CurrentRow(m_table), QStringList({QString(), QString()}));
    m_table.AddRecord();
    EXPECT_EQ(m_table.Position(), 3);
}

TEST_F(CsvTableTest, AnAddedColumnIsBlankAlsoWhereRecordsHaveValuesBeyondTheHeader) {
    Open("A\n1,beyond\n2\n");
    EXPECT_EQ(m_table.Columns().Add(QStringLiteral("B")).DataType(), QStringLiteral("TEXT"));
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1"), QString()}, {QStringLiteral("2"), QString()}}));
    EXPECT_EQ(FailureOf([&] { m_table.Columns().Add(QStringLiteral("b")); }), 457);
}

TEST_F(CsvTableTest, AColumnMayBeAddedWhileValuesAreBeingWritten) {
    Open("A\n1\n");
    Set(QStringLiteral("A"), QStringLiteral("x"));
    m_table.Columns().Add(QStringLiteral("B"));
    EXPECT_EQ(Value(QStringLiteral("B")), QString());
    Set(QStringLiteral("B"), QStringLiteral("y"));
    m_table.Update();
    EXPECT_EQ(CurrentRow(m_table), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
}

TEST_F(CsvTableTest, TheEncodingIsSettledForTheWholeFile) {
    Open("A\n\xC3\xA4\n\xCE\xA9\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("\u00E4")}, {QStringLiteral("\u03A9")}}));
    Open("A\n\xC3\xA4\n\xE4\n\x80\n");
    EXPECT_EQ(
        RowsOf(m_table),
        Rows({{QStringLiteral("\u00C3\u00A4")}, {QStringLiteral("\u00E4")}, {QStringLiteral("\u20AC")}}));
    Open(
        "\xEF\xBB\xBF"
        "A\n1\n");
    EXPECT_EQ(NamesOf(m_table), QStringList({QStringLiteral("A")}));
}

TEST_F(CsvTableTest, ZeroBytesAreOrdinaryCharacters) {
    Open(QByteArray("A,B\n1\0x,2\n", 11));
    EXPECT_EQ(Value(QStringLiteral("A")), QStringLiteral("1") + QChar(0) + u'x');
    EXPECT_EQ(Value(QStringLiteral("B")), QStringLiteral("2"));
}

TEST_F(CsvTableTest, AHeaderOfCommasGivesNoMoreThan32767Columns) {
    Open(QByteArray(100000, ',') + "\n" + QByteArray(100000, ',') + "x\n1\n");
    EXPECT_EQ(m_table.Columns().Count(), 32767);
    EXPECT_EQ(m_table.RecordCount(), 2);
    EXPECT_EQ(FailureOf([&] { m_table.Columns().Add(QStringLiteral("B")); }), 6);
}

TEST_F(CsvTableTest, ALineOf50MegabytesIsOneRecord) {
    Open("A,B\n" + QByteArray(50 << 20, 'x') + ",2\n\"" + QByteArray(1 << 20, '"') + "\",4\n");
    EXPECT_EQ(m_table.RecordCount(), 2);
    EXPECT_EQ(Value(QStringLiteral("A")).size(), 50 << 20);
    EXPECT_EQ(Value(QStringLiteral("B")), QStringLiteral("2"));
    m_table.MoveNext();
    EXPECT_EQ(Value(QStringLiteral("A")), QString(1 << 19, u'"'));
    EXPECT_EQ(Value(QStringLiteral("B")), QStringLiteral("4"));
}

}  // namespace
}  // namespace sheetwright
