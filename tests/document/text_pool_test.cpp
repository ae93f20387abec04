#include "document/text_pool.h"

#include "support/short_text.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

TEST(TextPool, EqualTextsShareTheirCharacters) {
    TextPool pool;
    const QString first = pool.Shared(u"AbsLeft");
    EXPECT_EQ(first, S("AbsLeft"));
    EXPECT_EQ(pool.Shared(QString(first + u'x').chopped(1)).constData(), first.constData());
}

TEST(TextPool, CaseCounts) {
    TextPool pool;
    EXPECT_EQ(pool.Shared(u"True"), S("True"));
    EXPECT_EQ(pool.Shared(u"true"), S("true"));
}

TEST(TextPool, LongTextsAreTakenAsTheyAre) {
    TextPool pool;
    const QString text(1000, u'a');
    EXPECT_EQ(pool.Shared(text), text);
    EXPECT_NE(pool.Shared(text).constData(), pool.Shared(text).constData());
}

}  // namespace
}  // namespace sheetwright
