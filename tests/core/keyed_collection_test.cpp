#include "core/keyed_collection.h"

#include "support/test_application.h"

namespace sheetwright {
namespace {

class KeyedCollectionTest : public ::testing::Test {
  protected:
    KeyedCollectionTest() {
        m_items.Add(1, QStringLiteral("One"));
        m_items.Add(2);
        m_items.Add(3, QStringLiteral("Three"));
    }

    std::vector<int> Items() const {
        std::vector<int> items;
        for (const auto& entry : m_items.Entries())
            items.push_back(entry.item);
        return items;
    }

    template <typename Where>
    std::optional<int> FailureAt(Where where) const {
        return FailureOf([&] { static_cast<void>(m_items.At(where)); });
    }

    KeyedCollection<int> m_items;
};

TEST_F(KeyedCollectionTest, PositionsCountFromOne) {
    EXPECT_EQ(m_items.Count(), 3);
    EXPECT_EQ(m_items.At(1), 1);
    EXPECT_EQ(m_items.At(3), 3);
}

TEST_F(KeyedCollectionTest, PositionOutsideRaises9) {
    EXPECT_EQ(FailureAt(0), 9);
    EXPECT_EQ(FailureAt(4), 9);
    EXPECT_EQ(FailureAt(-1), 9);
    EXPECT_EQ(FailureOf([this] { m_items.Remove(4); }), 9);
}

TEST_F(KeyedCollectionTest, KeysIgnoreCase) {
    EXPECT_EQ(m_items.At(u"ONE"), 1);
    EXPECT_EQ(m_items.At(u"three"), 3);
    m_items.Add(4, QStringLiteral("Größe"));
    EXPECT_EQ(m_items.At(u"GRÖßE"), 4);
    EXPECT_NE(m_items.Find(u"größe"), nullptr);
}

TEST_F(KeyedCollectionTest, MissingKeyRaises5) {
    EXPECT_EQ(FailureAt(QStringView(u"Two")), 5);
    EXPECT_EQ(FailureOf([this] { m_items.Remove(u"Two"); }), 5);
    EXPECT_EQ(m_items.Find(u"Two"), nullptr);
    EXPECT_FALSE(m_items.Contains(u""));
}

TEST_F(KeyedCollectionTest, KeyThatIsThereRaises457AndChangesNothing) {
    EXPECT_EQ(FailureOf([this] { m_items.Add(9, QStringLiteral("oNE")); }), 457);
    EXPECT_EQ(FailureOf([this] { m_items.Insert(9, QStringLiteral("ONE"), 1); }), 457);
    EXPECT_EQ(Items(), (std::vector<int>{1, 2, 3}));
}

TEST_F(KeyedCollectionTest, InsertShiftsWhatStandsBehind) {
    m_items.Insert(10, QStringLiteral("Ten"), 2);
    EXPECT_EQ(Items(), (std::vector<int>{1, 10, 2, 3}));
    EXPECT_EQ(m_items.At(u"Ten"), 10);
    EXPECT_EQ(m_items.At(u"Three"), 3);
    m_items.Insert(20, QStringLiteral("Twenty"), 5);
    EXPECT_EQ(m_items.At(5), 20);
}

TEST_F(KeyedCollectionTest, InsertOutsideRaises9) {
    EXPECT_EQ(FailureOf([this] { m_items.Insert(9, QStringLiteral("x"), 0); }), 9);
    EXPECT_EQ(FailureOf([this] { m_items.Insert(9, QStringLiteral("x"), 5); }), 9);
    EXPECT_EQ(m_items.Count(), 3);
}

TEST_F(KeyedCollectionTest, RemoveFreesTheKey) {
    m_items.Remove(u"ONE");
    EXPECT_EQ(Items(), (std::vector<int>{2, 3}));
    EXPECT_EQ(m_items.At(u"Three"), 3);
    m_items.Add(4, QStringLiteral("one"));
    EXPECT_EQ(m_items.At(u"One"), 4);
}

TEST_F(KeyedCollectionTest, RemoveOfTheLastFreesItsKeyToo) {
    m_items.Remove(3);
    EXPECT_FALSE(m_items.Contains(u"Three"));
    m_items.Remove(2);
    EXPECT_EQ(Items(), (std::vector<int>{1}));
    m_items.Add(5, QStringLiteral("Three"));
    EXPECT_EQ(m_items.At(u"three"), 5);
}

TEST_F(KeyedCollectionTest, EmptyKeyIsAKeyLikeAnyOther) {
    m_items.Add(7, QString());
    EXPECT_EQ(m_items.At(u""), 7);
    EXPECT_EQ(FailureOf([this] { m_items.Add(8, QString()); }), 457);
}

TEST_F(KeyedCollectionTest, ItemsCanBeChangedInPlace) {
    m_items.At(u"one") = 100;
    m_items.At(2) = 200;
    EXPECT_EQ(Items(), (std::vector<int>{100, 200, 3}));
}

TEST_F(KeyedCollectionTest, CopiesAreIndependent) {
    KeyedCollection<int> copy = m_items;
    copy.Remove(u"One");
    EXPECT_EQ(m_items.At(u"One"), 1);
    EXPECT_FALSE(copy.Contains(u"One"));
}

TEST_F(KeyedCollectionTest, ClearForgetsTheKeys) {
    m_items.Clear();
    EXPECT_TRUE(m_items.IsEmpty());
    m_items.Add(1, QStringLiteral("One"));
    EXPECT_EQ(m_items.At(1), 1);
}

TEST_F(KeyedCollectionTest, EntriesTellWhichItemsHaveAKey) {
    EXPECT_EQ(m_items.Entries()[0].key, QStringLiteral("One"));
    EXPECT_TRUE(m_items.Entries()[0].hasKey);
    EXPECT_FALSE(m_items.Entries()[1].hasKey);
}

}  // namespace
}  // namespace sheetwright
