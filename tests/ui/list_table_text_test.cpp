#include "ui/list_table_text.h"

#include "support/short_text.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

using Rows = std::vector<QStringList>;

TEST(TabSeparated, WhatSpreadsheetsTake) {
    EXPECT_EQ(TabSeparated({{S("a"), S("b")}, {S(""), S("c d")}}), S("a\tb\n\tc d\n"));
    EXPECT_EQ(TabSeparated({{S("a\tb"), S("c\r\nd"), S("5\" pipe"), S("\"q\"")}}),
              S("\"a\tb\"\t\"c\r\nd\"\t5\" pipe\t\"\"\"q\"\"\"\n"));
}

TEST(CellsOf, WhatSpreadsheetsGive) {
    EXPECT_EQ(CellsOf(S("a\tb\r\n\tc")), (Rows{{S("a"), S("b")}, {S(""), S("c")}}));
    EXPECT_EQ(CellsOf(S("\"a\"\"\nb\"\tc\n")), (Rows{{S("a\"\nb"), S("c")}}));
    EXPECT_EQ(CellsOf(S("a\t")), (Rows{{S("a"), S("")}}));
    EXPECT_EQ(CellsOf(S("\n\n")), (Rows{{S("")}, {S("")}}));
    EXPECT_EQ(CellsOf({}), Rows());
}

TEST(CellsOf, QuotesThatEndNoCellAreCharacters) {
    EXPECT_EQ(CellsOf(S("\"a\" b\t\"c")), (Rows{{S("\"a\" b"), S("\"c")}}));
    EXPECT_EQ(CellsOf(S("5\" pipe")), (Rows{{S("5\" pipe")}}));
}

TEST(CellsOf, GivesBackWhatWasWritten) {
    const Rows rows{{S("\"\""), S("\""), S("\r")}, {S("\n"), S("a\"b"), S("")}};
    EXPECT_EQ(CellsOf(TabSeparated(rows)), rows);
}

}  // namespace

}  // namespace sheetwright
