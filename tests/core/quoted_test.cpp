#include "core/quoted.h"

#include <gtest/gtest.h>

namespace sheetwright {

TEST(Quoted, ShortTextsStayAsTheyAre) {
    EXPECT_EQ(Quoted(u""), QStringLiteral("\"\""));
    EXPECT_EQ(Quoted(u"a \"b\""), QStringLiteral("\"a \"b\"\""));
    EXPECT_EQ(Shortened(QString(60, u'x')), QString(60, u'x'));
}

TEST(Quoted, LongTextsAreCutAfter60Characters) {
    EXPECT_EQ(Shortened(QString(61, u'x')), QString(60, u'x') + QStringLiteral("..."));
    EXPECT_EQ(Quoted(QString(1000, u'x')), u'"' + QString(60, u'x') + QStringLiteral("...\""));
}

TEST(Quoted, NoCharacterIsCutInTwo) {
    const QString text = QString(59, u'x') + QStringLiteral("\U0001F600\U0001F600");
    EXPECT_EQ(Shortened(text), QString(59, u'x') + QStringLiteral("..."));
}

}  // namespace sheetwright
