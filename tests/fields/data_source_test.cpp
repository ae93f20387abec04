#include "fields/data_source.h"

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

TEST(CmpDataSource, AlternativeEqualsTheNameInAnyCase) {
    EXPECT_TRUE(CmpDataSource(u"name,probe", u"NAME,Probe"));
    EXPECT_TRUE(CmpDataSource(u"x,y;name,probe", u"Name,Probe"));
    EXPECT_FALSE(CmpDataSource(u"name,probes", u"name,probe"));
    EXPECT_FALSE(CmpDataSource(u"name", u"name,probe"));
}

TEST(CmpDataSource, StarStandsForAnythingBeforeTheFirstComma) {
    EXPECT_TRUE(CmpDataSource(u"*,PROBE", u"name,probe"));
    EXPECT_TRUE(CmpDataSource(u"a,b;*,probe", u"name,probe"));
    EXPECT_TRUE(CmpDataSource(u"*,b,c", u"a,b,c"));
    EXPECT_FALSE(CmpDataSource(u"*,c", u"a,b,c"));
    EXPECT_FALSE(CmpDataSource(u"*probe", u"name,probe"));
    EXPECT_FALSE(CmpDataSource(u"*,name", u"name"));
    EXPECT_TRUE(CmpDataSource(u"*,", u"name,"));
}

TEST(CmpDataSource, SlashesAreAlike) {
    EXPECT_TRUE(CmpDataSource(u"name,Probe\\Data", u"name,probe/data"));
    EXPECT_TRUE(CmpDataSource(u"*,Probe/Data", u"name,probe\\data"));
    EXPECT_FALSE(CmpDataSource(u"name,ProbeData", u"name,probe/data"));
    EXPECT_FALSE(CmpDataSource(u"name,Probe-Data", u"name,probe/data"));
}

TEST(CmpDataSource, QuotesAndParenthesesKeepASemicolon) {
    EXPECT_TRUE(CmpDataSource(u"a(;),b;c,d", u"a(;),b"));
    EXPECT_TRUE(CmpDataSource(u"a\";\",b;c,d", u"a\";\",b"));
    EXPECT_TRUE(CmpDataSource(u"a\"(\",b;c,d", u"c,d"));
    EXPECT_FALSE(CmpDataSource(u"a(;c,d", u"c,d"));
}

TEST(CmpDataSource, FirstCharacterOfALaterAlternativeIsNotLookedAt) {
    EXPECT_TRUE(CmpDataSource(u"x,y;(a,b;c,d", u"(a,b"));
    EXPECT_TRUE(CmpDataSource(u"x,y;(a,b;c,d", u"c,d"));
    EXPECT_FALSE(CmpDataSource(u"(a,b;c,d", u"c,d"));
    EXPECT_TRUE(CmpDataSource(u";;a,b", u";a,b"));
}

TEST(CmpDataSource, EmptyRemainderMatchesNothing) {
    EXPECT_FALSE(CmpDataSource(u"a,b;", u""));
    EXPECT_FALSE(CmpDataSource(u"", u""));
    EXPECT_FALSE(CmpDataSource(u"", u"a,b"));
    EXPECT_TRUE(CmpDataSource(u"a,b;", u"a,b"));
}

TEST(DataSourceIndex, FindsEachElementOnceInItsOrder) {
    DataSourceIndex index;
    index.Add(QStringLiteral("*,Probe/Data;name,probe\\data"), 1);
    index.Add(QStringLiteral("other,probe"), 2);
    index.Add(QStringLiteral("NAME,PROBE\\DATA;NAME,PROBE\\DATA"), 5);
    index.Add(QStringLiteral(""), 6);
    EXPECT_EQ(index.Find(u"name,probe\\data"), (std::vector<int>{1, 5}));
    EXPECT_EQ(index.Find(u"third,PROBE/data"), std::vector<int>{1});
    EXPECT_EQ(index.Find(u"other,probe"), std::vector<int>{2});
    EXPECT_TRUE(index.Find(u"name").empty());
    EXPECT_TRUE(index.Find(u"").empty());
}

}  // namespace

}  // namespace sheetwright
