#include "import/csv_types.h"

#include "import/csv_table.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

QString TypeOf(const QString& inf, const QString& column) {
    const CsvTypes types = ParseCsvTypes(inf);
    const auto found = types.find(column);
    return found == types.end() ? QString() : found->second;
}

TEST(ParseCsvTypes, ASectionNamesAColumnAndDataTypeItsType) {
    const QString inf = QStringLiteral(
        "[Born]\r\nDataType=DATE\r\n\r\n[Member]\r\nDataType=BOOLEAN\r\n"
        "[Fee]\nDataType=NUMBER\n[Name]\nDataType=TEXT\n");
    EXPECT_EQ(TypeOf(inf, QStringLiteral("Born")), QStringLiteral("DATE"));
    EXPECT_EQ(TypeOf(inf, QStringLiteral("Member")), QStringLiteral("BOOLEAN"));
    EXPECT_EQ(TypeOf(inf, QStringLiteral("Fee")), QStringLiteral("NUMBER"));
    EXPECT_EQ(TypeOf(inf, QStringLiteral("Name")), QStringLiteral("TEXT"));
}

TEST(ParseCsvTypes, NamesKeysAndTypesAreReadWithoutRegardToCase) {
    EXPECT_EQ(TypeOf(QStringLiteral("[BORN]\ndatatype = date "), QStringLiteral("born")),
              QStringLiteral("DATE"));
    EXPECT_EQ(TypeOf(QStringLiteral("[\u00C4MTER]\nDATATYPE=\"Number\""), QStringLiteral("\u00E4mter")),
              QStringLiteral("NUMBER"));
}

TEST(ParseCsvTypes, ColumnNamesMayHoldAnyCharacter) {
    for (const QString& name :
         {QStringLiteral("a/b"), QStringLiteral("50 %"), QStringLiteral(" blanks "), QStringLiteral("a]b"),
          QStringLiteral("[x]"), QStringLiteral("a=b;c#d"), QStringLiteral("\u03A9 \u20AC"),
          QStringLiteral("%41"), QStringLiteral("\\n")})
        EXPECT_EQ(TypeOf(QStringLiteral("[%1]\nDataType=DATE\n").arg(name), name), QStringLiteral("DATE"));
}

TEST(ParseCsvTypes, AnUnknownTypeIsText) {
    EXPECT_EQ(TypeOf(QStringLiteral("[A]\nDataType=MONEY"), QStringLiteral("A")), QStringLiteral("TEXT"));
    EXPECT_EQ(TypeOf(QStringLiteral("[A]\nDataType="), QStringLiteral("A")), QStringLiteral("TEXT"));
}

TEST(ParseCsvTypes, OtherLinesArePassedOver) {
    const QString inf =
        QStringLiteral("DataType=NUMBER\n; note\n[A\nDataType\n[A]\nWidth=5\n#\nDataType=DATE\n=\n]");
    EXPECT_EQ(TypeOf(inf, QStringLiteral("A")), QStringLiteral("DATE"));
    EXPECT_EQ(ParseCsvTypes(inf).size(), 1U);
}

TEST(ParseCsvTypes, TheFirstTypeOfAColumnCounts) {
    EXPECT_EQ(TypeOf(QStringLiteral("[A]\nDataType=DATE\nDataType=NUMBER\n[a]\nDataType=BOOLEAN"),
                     QStringLiteral("A")),
              QStringLiteral("DATE"));
}

class CsvTypesTest : public ApplicationTest {};

TEST_F(CsvTypesTest, LieBesideTheTableWhateverItsExtension) {
    Write(QStringLiteral("people.inf"), "[Born]\r\nDataType=DATE\r\n");
    for (const QString& name :
         {QStringLiteral("people.csv"), QStringLiteral("people.dic"), QStringLiteral("people")}) {
        CsvTable table;
        table.SetFileName(Write(name, "Name,BORN\r\nAda,18151210\r\n"));
        EXPECT_EQ(table.Columns().At(1).DataType(), QStringLiteral("TEXT"));
        EXPECT_EQ(table.Columns().At(2).DataType(), QStringLiteral("DATE"));
    }
}

TEST_F(CsvTypesTest, AreFoundUnderAStoredPathOfAnotherCase) {
    Write(QStringLiteral("Lists/People.INF"), "[Born]\nDataType=DATE\n");
    Write(QStringLiteral("Lists/People.CSV"), "Born\n18151210\n");
    CsvTable table;
    table.SetFileName(Path(QStringLiteral("LISTS\\people.csv")));
    EXPECT_EQ(table.Columns().At(1).DataType(), QStringLiteral("DATE"));
    EXPECT_EQ(table.Columns().At(1).Value(), QStringLiteral("18151210"));
}

TEST_F(CsvTypesTest, AreTextWithoutACompanion) {
    Write(QStringLiteral("folder.inf/x"), QByteArray());
    CsvTable table;
    table.SetFileName(Write(QStringLiteral("folder.csv"), "A\n1\n"));
    EXPECT_EQ(table.Columns().At(1).DataType(), QStringLiteral("TEXT"));
}

TEST_F(CsvTypesTest, ADotInAFolderIsNoExtension) {
    Write(QStringLiteral("v1.2/people.inf"), "[A]\nDataType=NUMBER\n");
    CsvTable table;
    table.SetFileName(Write(QStringLiteral("v1.2/people"), "A\n1\n"));
    EXPECT_EQ(table.Columns().At(1).DataType(), QStringLiteral("NUMBER"));
}

}  // namespace
}  // namespace sheetwright
