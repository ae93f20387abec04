#include "fields/entry_test.h"

namespace sheetwright {

namespace {

TEST_F(EntryTest, CommaListFillsBothLists) {
    m_entry.SetAttachedList(S("A,B,,C"));
    EXPECT_EQ(ItemsOf(m_entry.cboCombo()), QStringList({S("A"), S("B"), S("0"), S("C")}));
    EXPECT_EQ(ItemsOf(m_entry.cboDropdown()), ItemsOf(m_entry.cboCombo()));
    EXPECT_EQ(m_entry.ListTable(), nullptr);
}

TEST_F(EntryTest, ItemsOfACommaListAreReadAsFields) {
    const std::pair<const char*, QStringList> rows[] = {
        {"007,x", {S("7"), S("x")}},
        {"A,", {S("A"), S("0")}},
        {"\"a,b\",c", {S("a,b"), S("c")}},
        {"", {}},
    };
    for (const auto& [text, items] : rows) {
        m_entry.Clear();
        m_entry.SetAttachedList(S(text));
        EXPECT_EQ(ItemsOf(m_entry.cboCombo()), items) << text;
    }
}

TEST_F(EntryTest, LongCommaListTakesTimeInProportion) {
    m_entry.SetAttachedList(S("item,").repeated(200'000));
    EXPECT_EQ(m_entry.ListCount(), 200'001);
}

TEST_F(EntryTest, ListFileFillsBothListsWithAColumn) {
    Write(S("LISTS/towns.csv"), "Town,Code\r\nBern,7\r\nUlm,12\r\n");
    m_entry.SetAttachedList(S("@LISTS\\towns,Town"));
    EXPECT_EQ(ItemsOf(m_entry.cboCombo()), QStringList({S("Bern"), S("Ulm")}));
    EXPECT_EQ(ItemsOf(m_entry.cboDropdown()), ItemsOf(m_entry.cboCombo()));
    ASSERT_NE(m_entry.ListTable(), nullptr);
    m_entry.ListTable()->SetPosition(2);
    EXPECT_EQ(m_entry.ListTable()->Columns().At(S("Code")).Value(), S("12"));
    m_entry.Clear();
    m_entry.SetAttachedList(S("@LISTS\\towns,2"));
    EXPECT_EQ(ItemsOf(m_entry.cboDropdown()), QStringList({S("7"), S("12")}));
    m_entry.ReleaseList();
    EXPECT_EQ(m_entry.ListTable(), nullptr);
}

TEST_F(EntryTest, ListFileThatIsMissingLeavesTheListsAloneWithoutAMessage) {
    AddItems({S("A")});
    m_entry.SetAttachedList(S("@LISTS\\none,Town"));
    EXPECT_EQ(ItemsOf(m_entry.cboCombo()), QStringList({S("A")}));
    EXPECT_EQ(m_entry.ListTable(), nullptr);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(EntryTest, ListFileOutsideTheListFolderIsNone) {
    Write(S("outside.csv"), "Town\r\nBern\r\n");
    Write(S("mine/LISTS/towns.csv"), "Town\r\nBern\r\n");
    SetListFolder(*m_application, m_folder.filePath(S("mine")));
    for (const QString& list :
         {S("@..\\outside,Town"), S("@../outside,Town"), S("@LISTS\\..\\..\\outside,Town"),
          S("@LISTS\\../../outside,Town"), S("@\\outside,Town"), S("@\"..\\outside\",Town"),
          u'@' + m_folder.filePath(S("outside")) + S(",Town"),
          u'@' + S("a\\").repeated(500'000) + S("x,Town")}) {
        m_entry.SetAttachedList(list);
        EXPECT_EQ(m_entry.ListCount(), 0) << list.left(50).toStdString();
        EXPECT_EQ(m_entry.ListTable(), nullptr);
    }
    m_entry.SetAttachedList(S("@LISTS/towns,Town"));
    EXPECT_EQ(m_entry.ListCount(), 1);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(EntryTest, ColumnThatIsMissingGivesNoItemsAndNoMessage) {
    Write(S("LISTS/towns.csv"), "Town,Code\r\nBern,7\r\n");
    for (const char* list :
         {"@LISTS\\towns,Land", "@LISTS\\towns,3", "@LISTS\\towns", "@LISTS\\towns,1E99"}) {
        m_entry.SetAttachedList(S(list));
        EXPECT_EQ(m_entry.ListCount(), 0) << list;
        EXPECT_NE(m_entry.ListTable(), nullptr);
    }
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(EntryTest, ItemsAreAddedRemovedAndCleared) {
    AddItems({S("B"), S("C")});
    m_entry.AddItem(S("A"), 0);
    EXPECT_EQ(m_entry.NewIndex(), 0);
    m_entry.SetItemData(2, 42);
    m_entry.SetListIndex(2);
    m_entry.RemoveItem(1);
    EXPECT_EQ(m_entry.ListIndex(), 1);
    EXPECT_EQ(m_entry.ItemData(1), 42);
    EXPECT_EQ(m_entry.NewIndex(), -1);
    EXPECT_EQ(FailureOf([&] { m_entry.RemoveItem(2); }), failure::kInvalidCall);
    EXPECT_EQ(FailureOf([&] { m_entry.AddItem(S("x"), 3); }), failure::kInvalidCall);
    EXPECT_EQ(FailureOf([&] { (void)m_entry.ItemData(2); }), failure::kInvalidProperty);
    EXPECT_EQ(FailureOf([&] { m_entry.SetListIndex(-2); }), failure::kInvalidProperty);
    m_entry.RemoveItem(1);
    EXPECT_EQ(m_entry.ListIndex(), -1);
    m_entry.Clear();
    EXPECT_EQ(m_entry.ListCount(), 0);
    EXPECT_EQ(m_entry.List(0), QString());
    EXPECT_EQ(m_entry.cboCombo().Text(), QString());
}

TEST_F(EntryTest, ClearEmptiesBothListsAndTheirTexts) {
    m_entry.SetAttachedList(S("A,B"));
    m_entry.SetValue(S("B"));
    m_entry.SetFieldType(1);
    TakeEvents();
    m_entry.Clear();
    EXPECT_EQ(m_entry.cboCombo().ListCount() + m_entry.cboDropdown().ListCount(), 0);
    EXPECT_EQ(m_entry.cboCombo().Text() + m_entry.cboDropdown().Text(), QString());
    EXPECT_EQ(m_entry.cboCombo().ListIndex(), -1);
    EXPECT_EQ(m_entry.cboDropdown().ListIndex(), -1);
    EXPECT_EQ(TakeEvents(), QStringList());
    m_entry.SetAttachedList(S("C,D,E"));
    EXPECT_EQ(ItemsOf(m_entry.cboCombo()), QStringList({S("C"), S("D"), S("E")}));
    EXPECT_EQ(ItemsOf(m_entry.cboDropdown()), ItemsOf(m_entry.cboCombo()));
}

TEST_F(EntryTest, SelectingAnItemIsAClickInEveryStyleAndEachTime) {
    AddItems({S("A"), S("B")});
    for (std::uint8_t type = 0; type <= field_type::kPicture; ++type) {
        m_entry.SetFieldType(type);
        m_entry.SetListIndex(1);
        m_entry.SetListIndex(1);
        m_entry.SetListIndex(-1);
        EXPECT_EQ(TakeEvents(), QStringList({S("Click"), S("Click")})) << int{type};
    }
}

TEST_F(EntryTest, SortedListKeepsTheAlphabetAndTheSelectedItem) {
    AddItems({S("c"), S("B"), S("a")});
    m_entry.SetListIndex(0);
    m_entry.SetSorted(true);
    EXPECT_EQ(ItemsOf(m_entry.cboCombo()), QStringList({S("a"), S("B"), S("c")}));
    EXPECT_EQ(m_entry.ListIndex(), 2);
    m_entry.AddItem(S("b"));
    EXPECT_EQ(m_entry.NewIndex(), 2);
    EXPECT_EQ(m_entry.ListIndex(), 3);
    EXPECT_EQ(m_entry.cboCombo().Text(), S("c"));
}

TEST_F(EntryTest, TypedTextBelongsToNoItem) {
    m_entry.SetFieldType(1);
    AddItems({S("A"), S("B")});
    m_entry.ReportPick(1);
    m_entry.ReportText(S("Bx"));
    EXPECT_EQ(m_entry.ListIndex(), -1);
    EXPECT_EQ(m_entry.Value(), S("Bx"));
}

TEST_F(EntryTest, FirstItemInViewIsWithinTheList) {
    AddItems({S("A"), S("B")});
    m_entry.SetTopIndex(1);
    EXPECT_EQ(m_entry.TopIndex(), 1);
    EXPECT_EQ(FailureOf([&] { m_entry.SetTopIndex(2); }), failure::kInvalidProperty);
    m_entry.RemoveItem(1);
    EXPECT_EQ(m_entry.TopIndex(), 0);
}

}  // namespace

}  // namespace sheetwright
