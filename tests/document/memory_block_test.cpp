#include "document/memory_block.h"

#include "support/test_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

namespace sheetwright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QStringList TextsOf(const PageLines& page) {
    QStringList texts;
    for (int position = 1; position <= page.Count(); ++position)
        texts << page.Line(position).toString();
    return texts;
}

// A block of data pages with the given designs, one value line each.
MemoryBlock BlockOf(const std::vector<int>& designs) {
    MemoryBlock memory;
    std::int16_t number = 0;
    for (const int design : designs) {
        ++number;
        memory.AppendFormData(number, QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        memory.AppendFormData(number, QStringLiteral("Value=%1").arg(number));
        memory.AppendFormData(number, u"END PAGE");
    }
    return memory;
}

TEST(MemoryBlock, StartsWithoutPages) {
    const MemoryBlock memory;
    EXPECT_EQ(memory.DesignPageCount(), 0);
    EXPECT_EQ(memory.DataPageCount(), 0);
    EXPECT_TRUE(memory.DataPage(0).IsEmpty());
    EXPECT_EQ(FailureOf([&] { (void)memory.DesignPage(1); }), 9);
    EXPECT_EQ(FailureOf([&] { (void)memory.DataPage(-1); }), 9);
}

TEST(MemoryBlock, AppendingGrowsTheArrayAndLeavesHolesEmpty) {
    MemoryBlock memory;
    memory.AppendFormDesign(3, u"BEGIN PAGE 3");
    EXPECT_EQ(memory.DesignPageCount(), 3);
    EXPECT_TRUE(memory.DesignPage(2).IsEmpty());
    memory.AppendFormData(30000, u"BEGIN PAGE 30000 DESIGN=1");
    EXPECT_EQ(memory.DataPageCount(), 30000);
    EXPECT_EQ(memory.WhichDesign(29999), 0);
    EXPECT_EQ(FailureOf([&] { memory.AppendFormData(-1, u"x"); }), 9);
}

TEST(MemoryBlock, EveryChangeOfTheDesignsIsANewRevision) {
    MemoryBlock memory;
    std::vector<std::uint64_t> revisions;
    const auto note = [&] { revisions.push_back(memory.DesignRevision()); };
    note();
    memory.AppendFormDesign(1, u"A=1");
    note();
    memory.ReplaceDesignLine(1, 1, QStringLiteral("A=2"));
    note();
    const MemoryBlock before = memory;
    memory = MemoryBlock();
    note();
    memory = before;
    note();
    memory = BlockOf({1});
    note();
    EXPECT_EQ(std::ranges::adjacent_find(revisions, std::greater_equal()), revisions.end());
    memory.AppendFormData(1, u"A=1");
    EXPECT_EQ(memory.DesignRevision(), revisions.back()) << "data is no design";
}

TEST(MemoryBlock, Character127BecomesALineBreak) {
    MemoryBlock memory;
    memory.AppendFormDesign(1, u"A=one\u007Ftwo");
    memory.AppendFormData(1, u"B=\u007F\u007F");
    EXPECT_EQ(memory.DesignPage(1).Line(1), u"A=one\r\ntwo");
    EXPECT_EQ(memory.DataPage(1).Line(1), u"B=\r\n\r\n");
}

TEST(MemoryBlock, ChangedLinesNeverHoldCharacter127) {
    MemoryBlock memory = BlockOf({1});
    memory.AppendDataLine(1, QStringLiteral("A=\u007F"));
    EXPECT_EQ(memory.DataPage(1).Line(4), u"A=\r\n");
    memory.ReplaceDataLine(1, 4, QStringLiteral("A=x\u007F\ny"));
    EXPECT_EQ(memory.DataPage(1).Line(4), u"A=x\r\n\r\ny");
    EXPECT_EQ(FailureOf([&] { memory.AppendDataLine(2, QString()); }), 9);
}

TEST(MemoryBlock, LinesOfATextAreSlicesOfIt) {
    const QString text = QStringLiteral("A=1\r\nB=\u007F").repeated(1);
    MemoryBlock memory;
    memory.AppendFormData(1, QStringView(text).first(3), text);
    memory.AppendFormData(1, QStringView(text).sliced(5), text);
    EXPECT_EQ(memory.DataPage(1).Line(1).data(), text.constData());
    EXPECT_EQ(memory.DataPage(1).Line(2), u"B=\r\n");
}

TEST(MemoryBlock, WhichDesignReadsTheNumberBehindTheEqualsSignOfTheHeader) {
    const MemoryBlock memory = BlockOf({1, 32767});
    EXPECT_EQ(memory.WhichDesign(1), 1);
    EXPECT_EQ(memory.WhichDesign(2), 32767);
    EXPECT_TRUE(memory.IsDesign(1, 1));
    EXPECT_FALSE(memory.IsDesign(1, 2));
}

TEST(MemoryBlock, HeaderThatIsNoNumberRaisesOnlyWhenItsDesignIsAskedFor) {
    MemoryBlock memory = BlockOf({1, 1, 1});
    memory.ReplaceDataLine(1, 1, QStringLiteral("BEGIN PAGE 1 DESIGN=one"));
    memory.ReplaceDataLine(2, 1, QStringLiteral("BEGIN PAGE 2 DESIGN=32768"));
    EXPECT_EQ(FailureOf([&] { (void)memory.WhichDesign(1); }), 13);
    EXPECT_EQ(FailureOf([&] { (void)memory.WhichDesign(2); }), 6);
    EXPECT_THAT(memory.PagesOf(1), ElementsAre(3));
}

TEST(MemoryBlock, HeaderWithoutEqualsSignIsATypeMismatch) {
    MemoryBlock memory;
    memory.AppendFormData(1, u"BEGIN PAGE 1");
    EXPECT_EQ(FailureOf([&] { (void)memory.WhichDesign(1); }), 13);
}

TEST(MemoryBlock, PagesOfListsADesignsPagesAscending) {
    const MemoryBlock memory = BlockOf({2, 1, 2, 3, 2});
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 3, 5));
    EXPECT_THAT(memory.PagesOf(3), ElementsAre(4));
    EXPECT_THAT(memory.PagesOf(4), IsEmpty());
}

TEST(MemoryBlock, PagesOfFollowsEveryChange) {
    MemoryBlock memory = BlockOf({2, 1, 2});
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 3));
    memory.ReplaceDataLine(2, 2, QStringLiteral("Value=DESIGN=2"));
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 3));
    memory.ReplaceDataLine(2, 1, QStringLiteral("BEGIN PAGE 2 DESIGN=2"));
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 2, 3));
    memory.ClearDataPage(1);
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(2, 3));
    memory.AppendDataLine(1, QStringLiteral("BEGIN PAGE 1 DESIGN=2"));
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 2, 3));
    memory.InsertDataPage(4, 2);
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(1, 2, 3, 4));
    memory.InsertDataPage(1, 7);
    EXPECT_THAT(memory.PagesOf(2), ElementsAre(2, 3, 4, 5));
    EXPECT_THAT(memory.PagesOf(7), ElementsAre(1));
    memory.AppendFormData(8, u"BEGIN PAGE 8 DESIGN=7");
    EXPECT_THAT(memory.PagesOf(7), ElementsAre(1, 8));
    EXPECT_THAT(memory.PagesOf(0), ElementsAre(6, 7));
}

TEST(MemoryBlock, UndoSnapshotIsNoPageOfADesign) {
    MemoryBlock memory = BlockOf({1});
    memory.AppendDataLine(0, QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_THAT(memory.PagesOf(1), ElementsAre(1));
    memory.ClearDataPage(0);
    EXPECT_THAT(memory.PagesOf(1), ElementsAre(1));
    EXPECT_TRUE(memory.DataPage(0).IsEmpty());
}

TEST(InsertDataPage, InTheMiddleRenumbersEveryLaterHeaderAndKeepsItsDesign) {
    MemoryBlock memory = BlockOf({1, 2, 3});
    memory.InsertDataPage(2, 5);
    EXPECT_EQ(memory.DataPageCount(), 4);
    EXPECT_EQ(TextsOf(memory.DataPage(1))[0], QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_EQ(TextsOf(memory.DataPage(2)),
              (QStringList{QStringLiteral("BEGIN PAGE 2 DESIGN=5"), QStringLiteral("END PAGE")}));
    EXPECT_EQ(TextsOf(memory.DataPage(3)),
              (QStringList{QStringLiteral("BEGIN PAGE 3 DESIGN=2"), QStringLiteral("Value=2"),
                           QStringLiteral("END PAGE")}));
    EXPECT_EQ(memory.DataPage(4).Line(1), u"BEGIN PAGE 4 DESIGN=3");
}

TEST(InsertDataPage, AtTheEndLeavesTheOthersAlone) {
    MemoryBlock memory = BlockOf({1, 1});
    memory.InsertDataPage(3, 1);
    EXPECT_EQ(memory.DataPage(2).Line(1), u"BEGIN PAGE 2 DESIGN=1");
    EXPECT_EQ(memory.DataPage(3).Line(1), u"BEGIN PAGE 3 DESIGN=1");
}

TEST(InsertDataPage, RenumbersEachHeaderOfAPageThatWasReadInParts) {
    MemoryBlock memory = BlockOf({1});
    memory.AppendFormData(1, u"BEGIN PAGE 1 DESIGN=1");
    memory.AppendFormData(1, u"More=2");
    memory.InsertDataPage(1, 1);
    EXPECT_EQ(memory.DataPage(2).Line(1), u"BEGIN PAGE 2 DESIGN=1");
    EXPECT_EQ(memory.DataPage(2).Line(4), u"BEGIN PAGE 2 DESIGN=1");
    EXPECT_EQ(memory.DataPage(2).Line(5), u"More=2");
}

TEST(InsertDataPage, KeepsWhatStandsBehindTheDesign) {
    MemoryBlock memory = BlockOf({1});
    memory.ReplaceDataLine(1, 1, QStringLiteral("BEGIN PAGE 1  x DESIGN=3 y DESIGN=4"));
    memory.InsertDataPage(1, 1);
    EXPECT_EQ(memory.DataPage(2).Line(1), u"BEGIN PAGE 2 DESIGN=3 y DESIGN=4");
}

TEST(InsertDataPage, PositionOutsideTheDocumentIsASubscriptFailure) {
    MemoryBlock memory = BlockOf({1});
    EXPECT_EQ(FailureOf([&] { memory.InsertDataPage(0, 1); }), 9);
    EXPECT_EQ(FailureOf([&] { memory.InsertDataPage(3, 1); }), 9);
    EXPECT_EQ(memory.DataPageCount(), 1);
}

TEST(InsertDataPage, ThereAre32767PagesAtMost) {
    MemoryBlock memory;
    memory.AppendFormData(32766, u"BEGIN PAGE 32766 DESIGN=1");
    memory.InsertDataPage(32767, 1);
    EXPECT_EQ(memory.DataPageCount(), 32767);
    EXPECT_EQ(FailureOf([&] { memory.InsertDataPage(1, 1); }), 6);
    EXPECT_EQ(memory.DataPageCount(), 32767);
}

TEST(AppendFormulas, GrowsTheArrayAndKeepsTheOrder) {
    MemoryBlock memory;
    memory.AppendFormulas(3, QStringLiteral("SETME(1)"), QStringLiteral("Total"));
    memory.AppendFormulas(3, QStringLiteral("SETME(2)"), QStringLiteral("Sum"));
    EXPECT_EQ(memory.FormulasOf(3).Count(), 2);
    EXPECT_EQ(memory.FormulasOf(3).At(QStringLiteral("Sum")), QStringLiteral("SETME(2)"));
    EXPECT_EQ(memory.FormulasOf(3).At(1), QStringLiteral("SETME(1)"));
    EXPECT_TRUE(memory.FormulasOf(1).IsEmpty());
    EXPECT_TRUE(memory.FormulasOf(4).IsEmpty());
    EXPECT_TRUE(memory.FormulasOf(-1).IsEmpty());
}

TEST(AppendFormulas, SecondFieldOfTheSameNameRaises457) {
    MemoryBlock memory;
    memory.AppendFormulas(1, QStringLiteral("1"), QStringLiteral("Total"));
    memory.AppendFormulas(2, QStringLiteral("1"), QStringLiteral("Total"));
    EXPECT_EQ(FailureOf([&] { memory.AppendFormulas(1, QStringLiteral("2"), QStringLiteral("TOTAL")); }),
              457);
    EXPECT_EQ(FailureOf([&] { memory.AppendFormulas(-1, QStringLiteral("2"), QStringLiteral("T")); }), 9);
}

TEST(MemoryBlock, CopiesAreIndependent) {
    MemoryBlock memory = BlockOf({1, 2});
    const MemoryBlock copy = memory;
    memory.InsertDataPage(1, 9);
    memory.ReplaceDataLine(2, 2, QStringLiteral("Value=changed"));
    EXPECT_EQ(copy.DataPageCount(), 2);
    EXPECT_EQ(copy.DataPage(1).Line(2), u"Value=1");
    EXPECT_THAT(copy.PagesOf(1), ElementsAre(1));
}

TEST(ReplaceDataLine, LoneLineBreaksOfAValueAreStoredInPairs) {
    MemoryBlock memory;
    memory.AppendFormData(1, u"BEGIN PAGE 1 DESIGN=1");
    memory.AppendDataLine(1, QStringLiteral("Note=a\rb"));
    EXPECT_EQ(memory.DataPage(1).Line(2), u"Note=a\r\nb");
    memory.ReplaceDataLine(1, 2, QStringLiteral("Note=a\nb"));
    EXPECT_EQ(memory.DataPage(1).Line(2), u"Note=a\r\nb");
}

}  // namespace
}  // namespace sheetwright
