#include "fields/list_table.h"

#include "support/short_text.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

#include <numeric>

namespace sheetwright {

namespace {

QStringList Texts(const ListTable& table, int column) {
    QStringList texts;
    for (int row = 0; row < table.RowCount(); ++row)
        texts << table.Text(row, column);
    return texts;
}

void Write(ListTable& table, int row, int column, const char* text) {
    ListRow changed = table.WithTexts(table.Row(row), {{column, S(text)}});
    table.SwapRow(row, changed);
}

TEST(ListTable, NobodyChangedGivesBackItsBytes) {
    for (const char* bytes :
         {"", "\n\n", "A,B", "A,B\n1,2\n\n3\n", "A\r\"x\ny\",z\r", "\xEF\xBB\xBFName\n\xC3\xA9\n",
          "N\xE9,B\r\n\"open", "\"\"\r\n\"\"\r\n", "A,A,\n1,2,3,4,5\n", "A,B\n \"q\"x, 5\" pipe\n"})
        EXPECT_EQ(ListTable(bytes, {}).Bytes(), QByteArray(bytes)) << bytes;
}

TEST(ListTable, RowsNobodyWroteToKeepTheirBytes) {
    ListTable table("A,B\n\"1\",2\n3,4,5\n\n6\n", {});
    Write(table, 1, 1, "x,\"y\"");
    EXPECT_EQ(table.Bytes(), "A,B\n\"1\",2\n3,\"x,\"\"y\"\"\",5\n6\n");
}

TEST(ListTable, RowThatIsTakenBackIsTheFilesAgain) {
    const QByteArray bytes = "A,B\n\"1\",\"2\"\n";
    ListTable table(bytes, {});
    ListRow row = table.WithTexts(table.Row(0), {{0, S("x")}});
    table.SwapRow(0, row);
    EXPECT_EQ(table.Text(0, 0), S("x"));
    EXPECT_EQ(table.Text(0, 1), S("2"));
    table.SwapRow(0, row);
    EXPECT_EQ(table.Bytes(), bytes);
}

TEST(ListTable, ShortRowsAreBlankInTheRest) {
    ListTable table("A,B,C\n1\n1,2,3,4\n", {});
    EXPECT_EQ(table.Text(0, 2), QString());
    EXPECT_EQ(table.Text(1, 2), S("3"));
    Write(table, 0, 2, "z");
    EXPECT_EQ(table.Bytes(), "A,B,C\n1,,z\n1,2,3,4\n");
}

TEST(ListTable, ValuesWithLineBreaksSurvive) {
    ListTable table("A,B\n\"one\r\ntwo\",\"x\ny\"\n", {});
    EXPECT_EQ(table.Text(0, 0), S("one\r\ntwo"));
    Write(table, 0, 0, "three\nfour");
    EXPECT_EQ(table.Bytes(), "A,B\n\"three\nfour\",\"x\ny\"\n");
    EXPECT_EQ(ListTable(table.Bytes(), {}).Text(0, 1), S("x\ny"));
}

TEST(ListTable, EncodingStaysAsLongAsItHasAllCharacters) {
    ListTable table("A\nN\xE9\n", {});
    EXPECT_EQ(table.Encoding(), CsvEncoding::CodePage);
    table.InsertRows(1, {ListTable::BlankRow()});
    Write(table, 1, 0, "\u20AC\u00FC");
    EXPECT_EQ(table.Bytes(), "A\nN\xE9\n\x80\xFC\n");
    Write(table, 1, 0, "\u03A9");
    EXPECT_EQ(table.Bytes(), QByteArray("A\nN\u00E9\n\u03A9\n"));
    Write(table, 1, 0, "x");
    EXPECT_EQ(table.Bytes(), "A\nN\xE9\nx\n");
}

TEST(ListTable, ByteOrderMarkAndUtf8Stay) {
    ListTable table("\xEF\xBB\xBFName\r\n\xCE\xA9\r\n", {});
    EXPECT_EQ(table.Column(0).name, S("Name"));
    Write(table, 0, 0, "plain");
    EXPECT_EQ(table.Bytes(), "\xEF\xBB\xBFName\r\nplain\r\n");
}

TEST(ListTable, BlankRowsAreKept) {
    ListTable table("A\n1\n", {});
    table.InsertRows(1, {ListTable::BlankRow(), ListTable::BlankRow()});
    EXPECT_EQ(table.Bytes(), "A\n1\n\"\"\n\"\"\n");
    EXPECT_EQ(ListTable(table.Bytes(), {}).RowCount(), 3);
}

TEST(ListTable, RowsComeAndGo) {
    ListTable table("A\n0\n1\n2\n3\n4\n", {});
    const std::vector<ListRow> taken = table.TakeRows({0, 2, 4});
    EXPECT_EQ(Texts(table, 0), QStringList({S("1"), S("3")}));
    table.PutRows({0, 2, 4}, taken);
    EXPECT_EQ(table.Bytes(), "A\n0\n1\n2\n3\n4\n");
    std::vector<ListRow> more = table.TakeRows(1, 2);
    EXPECT_EQ(Texts(table, 0), QStringList({S("0"), S("3"), S("4")}));
    table.InsertRows(3, std::move(more));
    EXPECT_EQ(table.Bytes(), "A\n0\n3\n4\n1\n2\n");
}

TEST(ListTable, SortsByTypeAndStableBothWays) {
    ListTable table("N,T\n10,b\n9,a\n,c\n9,B\n", {{S("n"), S("NUMBER")}});
    const auto sorted = [&](int column, bool isDescending) {
        ListTable copy = table;
        copy.Reorder(0, copy.SortedOrder(column, isDescending));
        return Texts(copy, 1).join(QString());
    };
    EXPECT_EQ(sorted(0, false), S("caBb"));
    EXPECT_EQ(sorted(0, true), S("baBc"));
    EXPECT_EQ(sorted(1, false), S("Babc"));
    EXPECT_EQ(sorted(1, true), S("cbaB"));
}

TEST(ListTable, ColumnsComeAndGoWithTheirValues) {
    const QByteArray bytes = "A,B\n1,2,rest\n3\n";
    ListTable table(bytes, {});
    const ListColumn b = table.Column(1);
    const ListColumn c = table.NewColumn(S("C"), S("DATE"));
    table.InsertColumn(1, c);
    Write(table, 0, 1, "20260131");
    EXPECT_EQ(table.Bytes(), "A,C,B\n1,20260131,2,rest\n3,,\n");
    table.RemoveColumn(2);
    EXPECT_EQ(table.Bytes(), "A,C\n1,20260131,rest\n3,\n");
    table.InsertColumn(2, b);
    EXPECT_EQ(table.Text(0, 2), S("2"));
    table.RemoveColumn(1);
    EXPECT_EQ(table.Bytes(), "A,B\n1,2,rest\n3\n");
}

TEST(ListTable, RenamingLeavesTheRowsAlone) {
    ListTable table("A,B\n\"1\",2\n", {});
    table.SetColumn(0, {0, S("x, y"), S("TEXT")});
    EXPECT_EQ(table.Bytes(), "\"x, y\",B\n\"1\",2\n");
    EXPECT_EQ(table.ColumnNamed(S("X, Y")), 0);
    EXPECT_EQ(table.ColumnNamed(S("A")), std::nullopt);
}

TEST(ListTable, RecordOfNothingIsStillARecord) {
    ListTable table("A,B\n,\n", {});
    table.RemoveColumn(1);
    EXPECT_EQ(table.Bytes(), "A\n\"\"\n");
}

TEST(ListTable, OpenQuotesAtTheEndAreClosedBeforeMoreFollows) {
    ListTable table("A\n\"open", {});
    table.InsertRows(1, {ListTable::BlankRow()});
    Write(table, 1, 0, "x");
    EXPECT_EQ(table.Bytes(), "A\n\"open\"\nx\n");
}

TEST(ListTable, TenThousandColumnsAreRead) {
    QByteArray header;
    QByteArray record;
    for (int column = 0; column < 10'000; ++column) {
        header += (column > 0 ? ",c" : "c") + QByteArray::number(column);
        record += (column > 0 ? "," : "") + QByteArray::number(column);
    }
    ListTable table(header + "\n" + record + "\n", {});
    EXPECT_EQ(table.ColumnCount(), 10'000);
    for (int column = 0; column < 10'000; ++column)
        ASSERT_EQ(table.Text(0, column), QString::number(column));
    Write(table, 0, 9'999, "last");
    EXPECT_TRUE(table.Bytes().endsWith(",9998,last\n"));
}

TEST(ListTable, HasNoMoreColumnsThanTablesHave) {
    ListTable table(QByteArray(32'766, ',') + "\n", {});
    EXPECT_EQ(table.ColumnCount(), 32'767);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(table.NewColumn(S("one more"), S("TEXT"))); }), 6);
}

TEST(ListTable, NewListEndsItsLinesAsTablesDo) {
    ListTable table;
    table.InsertColumn(0, table.NewColumn(S("Name"), S("TEXT")));
    table.InsertRows(0, {ListTable::BlankRow()});
    Write(table, 0, 0, "x");
    EXPECT_EQ(table.Bytes(), "Name\r\nx\r\n");
}

}  // namespace

}  // namespace sheetwright
