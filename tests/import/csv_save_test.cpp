#include "core/paths.h"
#include "import/csv_table_fixture.h"

#include <QDir>

namespace sheetwright {
namespace {

class CsvSaveTest : public CsvTableTest {
  protected:
    void Append(const QString& column, const QString& value) {
        m_table.AddRecord();
        Set(column, value);
        m_table.Update();
    }
    [[nodiscard]] Rows SavedRows() {
        m_table.Save();
        CsvTable again;
        again.SetFileName(m_table.FileName());
        return RowsOf(again);
    }
};

TEST_F(CsvSaveTest, ATableThatNobodyChangedKeepsItsBytes) {
    for (const QByteArray& bytes : {QByteArray("\n\"A\", B \r\n1,\"2\n\n\r3"),
                                    QByteArray("\xEF\xBB\xBF"
                                               "A\n\xC3\xA4"),
                                    QByteArray("A\n\xE4\x81\n"), QByteArray(), QByteArray("a\0b\n", 4)}) {
        Open(bytes);
        EXPECT_EQ(Saved(), bytes);
    }
}

TEST_F(CsvSaveTest, RecordsThatNobodyWroteToKeepTheirBytes) {
    Open("\"A\",B\n\"1\",\"x\"\n 2 ,5\" y,beyond,\"\"\n3\n");
    m_table.SetPosition(3);
    Set(QStringLiteral("B"), QStringLiteral("z"));
    m_table.Update();
    EXPECT_EQ(Saved(), "\"A\",B\n\"1\",\"x\"\n 2 ,5\" y,beyond,\"\"\n3,z\n");
}

TEST_F(CsvSaveTest, ANewFileGetsItsHeaderAndRecords) {
    m_table.SetFileName(Path(QStringLiteral("table.csv")));
    m_table.Columns().Add(QStringLiteral("Date"));
    m_table.Columns().Add(QStringLiteral("Error, all"));
    Append(QStringLiteral("Error, all"), QStringLiteral("13: Type mismatch"));
    EXPECT_EQ(Saved(), "Date,\"Error, all\"\r\n,13: Type mismatch\r\n");
}

TEST_F(CsvSaveTest, ARowIsAppendedToAFileWithoutALineEndAtItsEnd) {
    Open("A,B\n1,2");
    Append(QStringLiteral("A"), QStringLiteral("3"));
    EXPECT_EQ(Saved(), "A,B\n1,2\n3,\n");
    Open("A,B");
    Append(QStringLiteral("A"), QStringLiteral("3"));
    EXPECT_EQ(Saved(), "A,B\r\n3,\r\n");
}

TEST_F(CsvSaveTest, TwoSavesGiveTheSameFile) {
    Open("A\n1\n");
    Append(QStringLiteral("A"), QStringLiteral("2"));
    EXPECT_EQ(Saved(), "A\n1\n2\n");
    EXPECT_EQ(Saved(), "A\n1\n2\n");
    Append(QStringLiteral("A"), QStringLiteral("3"));
    EXPECT_EQ(Saved(), "A\n1\n2\n3\n");
}

TEST_F(CsvSaveTest, ValuesWrittenWithoutUpdateAreNotSaved) {
    Open("A\n1\n");
    Set(QStringLiteral("A"), QStringLiteral("2"));
    EXPECT_EQ(Saved(), "A\n1\n");
}

TEST_F(CsvSaveTest, QuotesWhatNeedsThem) {
    Open("A\r\n");
    const QStringList values({QStringLiteral("a,b"), QStringLiteral("say \"hi\""),
                              QStringLiteral("two\r\nlines"), QStringLiteral(" blank "),
                              QStringLiteral("007"), QStringLiteral("\""), QStringLiteral("\n"),
                              QStringLiteral("end\r")});
    Rows rows;
    for (const QString& value : values) {
        Append(QStringLiteral("A"), value);
        rows.push_back({value});
    }
    EXPECT_EQ(SavedRows(), rows);
    EXPECT_EQ(Read(QStringLiteral("table.csv")),
              "A\r\n\"a,b\"\r\n\"say \"\"hi\"\"\"\r\n\"two\r\nlines\"\r\n\" blank \"\r\n007\r\n\"\"\"\"\r\n"
              "\"\n\"\r\n\"end\r\"\r\n");
}

TEST_F(CsvSaveTest, BlankRecordsOfATableWithOneColumnAreKept) {
    Open("A\n1\n");
    m_table.AddRecord();
    Append(QStringLiteral("A"), QStringLiteral("2"));
    EXPECT_EQ(SavedRows(), Rows({{QStringLiteral("1")}, {QString()}, {QStringLiteral("2")}}));
    EXPECT_EQ(Read(QStringLiteral("table.csv")), "A\n1\n\"\"\n2\n");
}

TEST_F(CsvSaveTest, AColumnWithoutANameIsKept) {
    m_table.SetFileName(Path(QStringLiteral("table.csv")));
    m_table.Columns().Add(QString());
    Append(QString(), QStringLiteral("1"));
    EXPECT_EQ(Saved(), "\"\"\r\n1\r\n");
}

TEST_F(CsvSaveTest, ATableWithoutColumnsIsAnEmptyFile) {
    m_table.SetFileName(Path(QStringLiteral("table.csv")));
    m_table.AddRecord();
    EXPECT_EQ(Saved(), "");
}

TEST_F(CsvSaveTest, ValuesBeyondTheHeaderStayBehindThoseOfTheColumns) {
    Open("A\n1,x,\"y\nz\"\n2\n3,w\n");
    Set(QStringLiteral("A"), QStringLiteral("one"));
    m_table.Update();
    EXPECT_EQ(Saved(), "A\none,x,\"y\nz\"\n2\n3,w\n");
    m_table.Columns().Add(QStringLiteral("B"));
    m_table.Columns().Add(QStringLiteral("C"));
    EXPECT_EQ(Saved(), "A,B,C\none,,,x,\"y\nz\"\n2\n3,,,w\n");
}

TEST_F(CsvSaveTest, AMissingClosingQuoteIsAddedBeforeWhatFollows) {
    Open("A,B\n1,\"two\nthree");
    m_table.AddRecord();
    EXPECT_EQ(Saved(), "A,B\n1,\"two\nthree\"\n,\n");
    Open("A\n1,\"two");
    Set(QStringLiteral("A"), QStringLiteral("x"));
    m_table.Update();
    EXPECT_EQ(Saved(), "A\nx,\"two\"\n");
    Open("A,\"B");
    m_table.AddRecord();
    EXPECT_EQ(Saved(), "A,\"B\"\r\n,\r\n");
}

TEST_F(CsvSaveTest, ASortedTableIsSavedInItsNewOrder) {
    Open("A\n3\n\n1\n2");
    m_table.Sort(QStringLiteral("A"));
    EXPECT_EQ(Saved(), "A\n1\n2\n3\n");
}

TEST_F(CsvSaveTest, ANewRowOfACodePageFileIsInTheCodePage) {
    Open("A\n\xE4\n");
    Append(QStringLiteral("A"), QStringLiteral("\u20AC"));
    EXPECT_EQ(Saved(), "A\n\xE4\n\x80\n");
}

TEST_F(CsvSaveTest, ACharacterThatTheCodePageLacksTurnsTheFileIntoUtf8) {
    Open("A\n\xE4\n");
    Append(QStringLiteral("A"), QStringLiteral("\u03A9"));
    EXPECT_EQ(Saved(), "A\n\xC3\xA4\n\xCE\xA9\n");
    Open("A\n1\n");
    Append(QStringLiteral("A"), QStringLiteral("\u03A9"));
    EXPECT_EQ(Saved(), "A\n1\n\xCE\xA9\n");
}

TEST_F(CsvSaveTest, CodePageBytesThatWouldReadAsUtf8BecomeUtf8) {
    Open("A\n1\n");
    Append(QStringLiteral("A"), QStringLiteral("\u00C3\u00A4"));
    EXPECT_EQ(SavedRows(), Rows({{QStringLiteral("1")}, {QStringLiteral("\u00C3\u00A4")}}));
}

TEST_F(CsvSaveTest, AUtf8FileStaysUtf8WithItsMark) {
    Open(
        "\xEF\xBB\xBF"
        "A\n1\n");
    Append(QStringLiteral("A"), QStringLiteral("\u00E4"));
    EXPECT_EQ(Saved(),
              "\xEF\xBB\xBF"
              "A\n1\n\xC3\xA4\n");
    m_table.Columns().Add(QStringLiteral("B"));
    EXPECT_EQ(Saved(),
              "\xEF\xBB\xBF"
              "A,B\n1\n\xC3\xA4,\n");
}

TEST_F(CsvSaveTest, WhatStandsBeforeTheHeaderStays) {
    Open("\r\n\xEF\xBB\xBF\"A,B\"\r\n1,2\r\n");
    Append(m_table.Columns().At(1).Name(), QStringLiteral("3"));
    EXPECT_EQ(Saved(), "\r\n\xEF\xBB\xBF\"A,B\"\r\n1,2\r\n3,\r\n");
    Open("\xEF\xBB\xBF\n");
    m_table.Columns().Add(QStringLiteral("A"));
    EXPECT_EQ(Saved(), "\xEF\xBB\xBF\nA\r\n");
}

TEST_F(CsvSaveTest, ATableWithoutAFileNameRaises52) {
    EXPECT_EQ(FailureOf([&] { m_table.Save(); }), 52);
}

TEST_F(CsvSaveTest, AMissingFolderRaises76) {
    m_table.SetFileName(m_folder.filePath(QStringLiteral("no/folder/table.csv")));
    m_table.Columns().Add(QStringLiteral("A"));
    EXPECT_EQ(FailureOf([&] { m_table.Save(); }), 76);
}

TEST_F(CsvSaveTest, AFileWithoutWritePermissionRaises75AndStays) {
    Open("A\n1\n");
    QFile::setPermissions(m_table.FileName(), QFileDevice::ReadOwner);
    Append(QStringLiteral("A"), QStringLiteral("2"));
    EXPECT_EQ(FailureOf([&] { m_table.Save(); }), 75);
    EXPECT_EQ(Read(QStringLiteral("table.csv")), "A\n1\n");
    EXPECT_EQ(RowsOf(m_table), Rows({{QStringLiteral("1")}, {QStringLiteral("2")}}));
}

TEST_F(CsvSaveTest, ASaveGoesToTheFileThatWasReadAlsoUnderAPathOfAnotherCase) {
    Write(QStringLiteral("Lists/People.CSV"), "A\n1\n");
    m_table.SetFileName(Path(QStringLiteral("LISTS\\people.csv")));
    Append(QStringLiteral("A"), QStringLiteral("2"));
    EXPECT_EQ(SavedRows(), Rows({{QStringLiteral("1")}, {QStringLiteral("2")}}));
    EXPECT_EQ(Read(QStringLiteral("Lists/People.CSV")), "A\n1\n2\n");
}

TEST_F(CsvSaveTest, ASaveLeavesNothingBesideTheFile) {
    Open("A\n1\n");
    Append(QStringLiteral("A"), QStringLiteral("2"));
    m_table.Save();
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList({QStringLiteral("table.csv")}));
}

}  // namespace
}  // namespace sheetwright
