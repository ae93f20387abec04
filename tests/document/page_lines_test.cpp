#include "document/page_lines.h"

#include "core/failure.h"
#include "support/page_text.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

// Lookups are answered by reading the page first and by its index later; a rule holds for both.
void ExpectFound(const PageLines& page, QStringView name, const std::vector<int>& positions) {
    for (int round = 0; round < 5; ++round) {
        std::vector<int> found;
        for (int at = page.Find(name); at != 0; at = page.FindNext(name, at))
            found.push_back(at);
        EXPECT_EQ(found, positions) << name.toString().toStdString() << " in round " << round;
    }
}

const QStringList kLines{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("A=1"),
                         QStringLiteral("B=x=y"), QStringLiteral("A=2"), QStringLiteral("END PAGE")};

TEST(PageLines, LinesAreCountedFromOne) {
    const PageLines page = PageOf(kLines);
    EXPECT_EQ(page.Count(), 5);
    EXPECT_EQ(page.Line(1), u"BEGIN PAGE 1 DESIGN=1");
    EXPECT_EQ(page.Line(5), u"END PAGE");
}

TEST(PageLines, PositionOutsideThePageIsASubscriptFailure) {
    PageLines page = PageOf(kLines);
    EXPECT_EQ(FailureOf([&] { (void)page.Line(0); }), 9);
    EXPECT_EQ(FailureOf([&] { (void)page.Line(6); }), 9);
    EXPECT_EQ(FailureOf([&] { page.Replace(6, QString()); }), 9);
    EXPECT_EQ(FailureOf([&] { page.Remove(0); }), 9);
    EXPECT_EQ(FailureOf([&] { page.Insert(7, QString()); }), 9);
}

TEST(PageLines, FindGivesTheFirstOfTheNameAndFindNextTheOthers) {
    ExpectFound(PageOf(kLines), u"A", {2, 4});
    ExpectFound(PageOf(kLines), u"B", {3});
    ExpectFound(PageOf(kLines), u"C", {});
}

TEST(PageLines, NamesAreComparedCaseSensitivelyAndWhole) {
    const PageLines page = PageOf({QStringLiteral("H"), QStringLiteral("Name =x"), QStringLiteral("name=y")});
    ExpectFound(page, u"Name", {});
    ExpectFound(page, u"Name ", {2});
    ExpectFound(page, u"Nam", {});
}

TEST(PageLines, NameEndsAtTheFirstEqualsSign) {
    ExpectFound(PageOf(kLines), u"B=x", {});
}

TEST(PageLines, HeaderIsAnItemToo) {
    ExpectFound(PageOf(kLines), u"BEGIN PAGE 1 DESIGN", {1});
}

TEST(PageLines, LineWithoutEqualsSignHasTheEmptyName) {
    ExpectFound(PageOf(kLines), u"", {5});
    ExpectFound(PageOf({QStringLiteral("H"), QStringLiteral("=v"), QStringLiteral("word")}), u"", {1, 2, 3});
}

TEST(PageLines, FindNextGoesOnFromAnyPosition) {
    const PageLines page = PageOf(kLines);
    for (int round = 0; round < 5; ++round) {
        EXPECT_EQ(page.FindNext(u"A", -3), 2);
        EXPECT_EQ(page.FindNext(u"A", 1), 2);
        EXPECT_EQ(page.FindNext(u"A", 3), 4);
        EXPECT_EQ(page.FindNext(u"A", 5), 0);
        EXPECT_EQ(page.FindNext(u"A", 50), 0);
    }
}

TEST(PageLines, EmptyPageHasNoItems) {
    ExpectFound(PageLines(), u"A", {});
    ExpectFound(PageLines(), u"", {});
}

TEST(PageLines, LookupsFollowEveryChange) {
    PageLines page = PageOf(kLines);
    ExpectFound(page, u"A", {2, 4});
    page.Replace(2, QStringLiteral("A=new"));
    ExpectFound(page, u"A", {2, 4});
    page.Replace(2, QStringLiteral("Z=1"));
    ExpectFound(page, u"A", {4});
    ExpectFound(page, u"Z", {2});
    page.Insert(2, QStringLiteral("Z=0"));
    ExpectFound(page, u"Z", {2, 3});
    page.Remove(3);
    ExpectFound(page, u"Z", {2});
    page.Append(QStringLiteral("Z=9"));
    ExpectFound(page, u"Z", {2, 6});
    page.Replace(1, QStringLiteral("Z=header"));
    ExpectFound(page, u"Z", {1, 2, 6});
    page.Clear();
    ExpectFound(page, u"Z", {});
}

TEST(PageLines, LinesKeepTheirOrderThroughChanges) {
    PageLines page = PageOf(kLines);
    page.Remove(3);
    page.Insert(2, QStringLiteral("N=1"));
    page.Insert(6, QStringLiteral("tail"));
    page.Replace(3, QStringLiteral("A=changed"));
    EXPECT_EQ(TextsOf(page), (QStringList{kLines[0], QStringLiteral("N=1"), QStringLiteral("A=changed"),
                                          kLines[3], kLines[4], QStringLiteral("tail")}));
}

TEST(PageLines, SliceIsNotCopiedAndOutlivesItsText) {
    PageLines page;
    {
        const QString text = QStringLiteral("first\nsecond").repeated(1);
        page.AppendSlice(text, QStringView(text).first(5));
        page.AppendSlice(text, QStringView(text).sliced(6));
        EXPECT_EQ(page.Line(2).data(), text.constData() + 6);
    }
    EXPECT_EQ(TextsOf(page), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

TEST(PageLines, SliceOfAnotherTextIsCopied) {
    PageLines page;
    const QString text = QStringLiteral("one").repeated(1);
    page.AppendSlice(text, text);
    {
        const QString other = QStringLiteral("other").repeated(1);
        page.AppendSlice(text, other);
        page.AppendSlice(other, QStringView(other).first(2));
    }
    EXPECT_EQ(TextsOf(page),
              (QStringList{QStringLiteral("one"), QStringLiteral("other"), QStringLiteral("ot")}));
}

TEST(PageLines, CopiesAreIndependent) {
    PageLines page = PageOf(kLines);
    const PageLines copy = page;
    page.Replace(2, QStringLiteral("A=changed"));
    page.Remove(5);
    EXPECT_EQ(TextsOf(copy), kLines);
}

TEST(PageLines, InnerHeaderIsNoticedHoweverItCame) {
    PageLines page = PageOf(kLines);
    EXPECT_FALSE(page.MayHaveInnerHeaders());
    PageLines appended = page;
    appended.Append(QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_TRUE(appended.MayHaveInnerHeaders());
    PageLines replaced = page;
    replaced.Replace(2, QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_TRUE(replaced.MayHaveInnerHeaders());
    PageLines inserted = page;
    inserted.Insert(1, QStringLiteral("BEGIN PAGE 1 DESIGN=1"));
    EXPECT_TRUE(inserted.MayHaveInnerHeaders());
    inserted.Clear();
    EXPECT_FALSE(inserted.MayHaveInnerHeaders());
}

}  // namespace
}  // namespace sheetwright
