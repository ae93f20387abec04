#include "document/design_walk.h"

#include "support/page_text.h"
#include "support/test_application.h"

#include <QStringList>

namespace sheetwright {
namespace {

using Action = DesignStep::Action;

QStringList KeysOf(const PropertyBag& bag) {
    QStringList keys;
    for (const auto& entry : bag.Entries())
        keys << entry.key + u'=' + entry.item;
    return keys;
}

// "line: what happens", with the keys that the record has by then.
QString TextOf(const DesignStep& step) {
    const QString start = QString::number(step.line) + QStringLiteral(": ");
    const QString keys = u'(' + KeysOf(*step.bag).join(u' ') + u')';
    switch (step.action) {
        case Action::Open:
            return start + QStringLiteral("open ") + step.kind;
        case Action::PageKeys:
            return start + QStringLiteral("page ") + keys;
        case Action::Close:
            return start + QStringLiteral("close ") + step.kind + u' ' + keys;
        case Action::LateKey:
            return start + QStringLiteral("late ") + step.key + u'=' + step.value;
        case Action::EqualKey:
            return start + QStringLiteral("equal ") + step.key;
    }
    return {};
}

QStringList StepsOf(const QStringList& lines) {
    QStringList steps;
    const DesignWalk walk(PageOf(lines));
    for (const DesignStep& step : walk.Steps())
        steps << TextOf(step);
    return steps;
}

TEST(CutDesignLine, TellsALineByWhatItBeginsWith) {
    EXPECT_EQ(CutDesignLine(u"").type, DesignLine::Type::Empty);
    EXPECT_EQ(CutDesignLine(u"BEGIN FIELDX").type, DesignLine::Type::Begin);
    EXPECT_EQ(CutDesignLine(u"BEGIN FIELDX").kind, u"FIEL");
    EXPECT_EQ(CutDesignLine(u"END FRAMEWORK").type, DesignLine::Type::End);
    EXPECT_EQ(CutDesignLine(u"END FRAMEWORK").kind, u"FRAM");
    EXPECT_EQ(CutDesignLine(u"BEGIN").kind, u"");
    EXPECT_EQ(CutDesignLine(u"END").kind, u"");
    EXPECT_EQ(CutDesignLine(u"ENDING=1").type, DesignLine::Type::End);
}

TEST(CutDesignLine, SplitsAKeyAtItsFirstEqualsSign) {
    const DesignLine line = CutDesignLine(u"Formula=a=b");
    EXPECT_EQ(line.type, DesignLine::Type::Key);
    EXPECT_EQ(line.key, u"Formula");
    EXPECT_EQ(line.value, u"a=b");
    EXPECT_EQ(CutDesignLine(u"begin field").key, u"") << "words of records are capitals";
}

TEST(DesignWalk, HandsOutThePageWithItsFirstElement) {
    EXPECT_EQ(
        StepsOf({QStringLiteral("BEGIN PAGE 1"), QStringLiteral("Title=A"), QString(),
                 QStringLiteral("BEGIN FRAME"), QStringLiteral("Width=1"), QStringLiteral("END FRAME"),
                 QStringLiteral("BEGIN LABEL"), QStringLiteral("END LABEL"), QStringLiteral("END PAGE")}),
        QStringList({QStringLiteral("1: open PAGE"), QStringLiteral("4: page (Title=A)"),
                     QStringLiteral("4: open FRAM"), QStringLiteral("6: close FRAM (Width=1)"),
                     QStringLiteral("7: open LABE"), QStringLiteral("8: close LABE ()")}));
}

TEST(DesignWalk, OfAPageWithoutElementsDoesNothing) {
    EXPECT_EQ(StepsOf({QStringLiteral("BEGIN PAGE 1"), QStringLiteral("Orientation=2"),
                       QStringLiteral("END PAGE")}),
              QStringList(QStringLiteral("1: open PAGE")));
    EXPECT_EQ(StepsOf({}), QStringList());
}

TEST(DesignWalk, TakesTheKindFromTheEnd) {
    EXPECT_EQ(
        StepsOf({QStringLiteral("BEGIN FIELD"), QStringLiteral("Name=a"), QStringLiteral("END LABELX")}),
        QStringList({QStringLiteral("1: open FIEL"), QStringLiteral("3: close LABE (Name=a)")}));
    EXPECT_EQ(StepsOf({QStringLiteral("END FRAME")}), QStringList(QStringLiteral("1: close FRAM ()")))
        << "an end without a begin closes an empty record";
}

TEST(DesignWalk, KeepsTheFirstOfEqualKeys) {
    EXPECT_EQ(StepsOf({QStringLiteral("BEGIN FRAME"), QStringLiteral("Width=1"), QStringLiteral("WIDTH=2"),
                       QStringLiteral("END FRAME")}),
              QStringList({QStringLiteral("1: open FRAM"), QStringLiteral("3: equal WIDTH"),
                           QStringLiteral("4: close FRAM (Width=1)")}));
}

TEST(DesignWalk, AddsKeysBehindTheEndOnlyThen) {
    EXPECT_EQ(StepsOf({QStringLiteral("BEGIN FIELD"), QStringLiteral("Name=a"), QStringLiteral("END FIELD"),
                       QStringLiteral("Alignment=2"), QStringLiteral("END PAGE")}),
              QStringList({QStringLiteral("1: open FIEL"), QStringLiteral("3: close FIEL (Name=a)"),
                           QStringLiteral("4: late Alignment=2")}));
}

TEST(DesignWalk, GoesOnWithTheSameRecordUntilTheNextBegins) {
    EXPECT_EQ(
        StepsOf({QStringLiteral("BEGIN FRAME"), QStringLiteral("BEGIN LABEL"), QStringLiteral("Width=1"),
                 QStringLiteral("END LABEL"), QStringLiteral("END FRAME")}),
        QStringList({QStringLiteral("1: open FRAM"), QStringLiteral("2: open LABE"),
                     QStringLiteral("4: close LABE (Width=1)"), QStringLiteral("5: close FRAM (Width=1)")}));
}

TEST(DesignWalk, RewindsToRecordsAsTheyWere) {
    DesignWalk walk(
        PageOf({QStringLiteral("BEGIN FIELD"), QStringLiteral("Name=a"), QStringLiteral("END FIELD")}));
    PropertyBag& bag = *walk.Steps().back().bag;
    bag.Add(QStringLiteral("F"), QStringLiteral("Key"));
    bag.Add(QStringLiteral("2"), QStringLiteral("Alignment"));
    walk.Rewind();
    EXPECT_EQ(KeysOf(bag), QStringList(QStringLiteral("Name=a")));
    EXPECT_FALSE(FailureOf([&] { bag.Add(QStringLiteral("F"), QStringLiteral("Key")); }));
}

}  // namespace
}  // namespace sheetwright
