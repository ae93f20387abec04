#include "ui/list_table_find.h"

#include "support/short_text.h"

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

class FindCellTest : public ::testing::Test {
  protected:
    ListTable m_table{"A,B\nred,Blue\nblue,\"re\nd\"\n,\n", {}};
    ListQuery m_blue{S("blue")};
};

TEST_F(FindCellTest, GoesOnFromACellAndRoundTheEnd) {
    EXPECT_EQ(FindCell(m_table, m_blue, {0, -1}, true), (ListCell{0, 1}));
    EXPECT_EQ(FindCell(m_table, m_blue, {0, 1}, true), (ListCell{1, 0}));
    EXPECT_EQ(FindCell(m_table, m_blue, {1, 0}, true), (ListCell{0, 1}));
    EXPECT_EQ(FindCell(m_table, m_blue, {1, 0}, false), (ListCell{0, 1}));
    EXPECT_EQ(FindCell(m_table, m_blue, {0, 1}, false), (ListCell{1, 0}));
}

TEST_F(FindCellTest, FindsItsOwnCellLast) {
    EXPECT_EQ(FindCell(m_table, {S("red")}, {0, 0}, true), (ListCell{0, 0}));
    EXPECT_EQ(FindCell(m_table, {S("red")}, {0, 0}, false), (ListCell{0, 0}));
}

TEST_F(FindCellTest, MayLookAtCase) {
    const ListQuery exact{S("blue"), Qt::CaseSensitive};
    EXPECT_EQ(FindCell(m_table, exact, {0, 0}, true), (ListCell{1, 0}));
    EXPECT_EQ(CountCells(m_table, exact, 0, 3), 1);
    EXPECT_EQ(CountCells(m_table, m_blue, 0, 3), 2);
}

TEST_F(FindCellTest, NothingIsFoundForNothing) {
    EXPECT_EQ(FindCell(m_table, {}, {0, 0}, true), std::nullopt);
    EXPECT_EQ(FindCell(m_table, {S("green")}, {0, 0}, false), std::nullopt);
    EXPECT_EQ(FindCell(ListTable(), m_blue, {0, -1}, true), std::nullopt);
    EXPECT_EQ(CountCells(m_table, {}, 0, 3), 0);
}

TEST(ListQuery, ReplacesEachPlace) {
    EXPECT_EQ((ListQuery{S("a")}).Replaced(S("Abba"), S("aa")), S("aabbaa"));
    EXPECT_EQ((ListQuery{S("a"), Qt::CaseSensitive}).Replaced(S("Abba"), {}), S("Abb"));
    EXPECT_EQ(ListQuery().Replaced(S("x"), S("y")), S("x"));
}

}  // namespace

}  // namespace sheetwright
