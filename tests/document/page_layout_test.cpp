#include "document/page_layout.h"

#include "support/page_text.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

PageLines DataPage(int number, const QString& value) {
    return PageOf({QStringLiteral("BEGIN PAGE %1 DESIGN=1").arg(number), QStringLiteral("A=") + value,
                   QStringLiteral("B=") + value, QStringLiteral("A=") + value, QStringLiteral("END PAGE")});
}

TEST(PageLayout, GivesFirstAndNextPositionsBehindTheHeader) {
    const PageLayout layout(DataPage(1, QStringLiteral("x")));
    EXPECT_EQ(layout.First(u"A"), 2);
    EXPECT_EQ(layout.Next(2), 4);
    EXPECT_EQ(layout.Next(4), 0);
    EXPECT_EQ(layout.First(u""), 5);
    EXPECT_EQ(layout.First(u"C"), 0);
    EXPECT_EQ(layout.Name(3), u"B");
}

TEST(PageLayout, SuitsPagesThatDifferInHeaderAndValuesOnly) {
    const PageLayout layout(DataPage(1, QStringLiteral("x")));
    PageLines page = DataPage(2, QStringLiteral("other"));
    EXPECT_TRUE(layout.Suits(page));
    page.Replace(3, QStringLiteral("C=1"));
    EXPECT_FALSE(layout.Suits(page));
    page.Replace(3, QStringLiteral("B=1"));
    EXPECT_TRUE(layout.Suits(page));
    page.Append(QStringLiteral("stray"));
    EXPECT_FALSE(layout.Suits(page));
}

TEST(PageLayout, EmptyPageHasALayoutWithoutNames) {
    const PageLayout layout{PageLines()};
    EXPECT_EQ(layout.First(u""), 0);
    EXPECT_TRUE(layout.Suits(PageLines()));
    EXPECT_TRUE(layout.Suits(PageOf({QStringLiteral("header")})));
}

TEST(PageLayoutPool, PagesWithTheSameNamesShareOneLayout) {
    PageLayoutPool pool;
    const auto first = pool.LayoutOf(DataPage(1, QStringLiteral("x")));
    EXPECT_EQ(pool.LayoutOf(DataPage(2, QStringLiteral("y"))), first);
    EXPECT_NE(pool.LayoutOf(PageOf({QStringLiteral("h"), QStringLiteral("A=")})), first);
}

TEST(PageLayoutPool, KeepsNoLayoutAlive) {
    PageLayoutPool pool;
    std::weak_ptr<const PageLayout> left = pool.LayoutOf(DataPage(1, QString()));
    EXPECT_TRUE(left.expired());
    for (int number = 0; number < 1000; ++number)
        (void)pool.LayoutOf(PageOf({QStringLiteral("h"), QStringLiteral("N%1=").arg(number)}));
    EXPECT_EQ(pool.LayoutOf(DataPage(1, QString()))->First(u"B"), 3);
}

}  // namespace
}  // namespace sheetwright
