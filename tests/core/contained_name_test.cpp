#include "core/contained_name.h"

#include "support/short_text.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

TEST(ContainedName, NamesAFileInTheFolderOrBelow) {
    for (const char* name : {"towns", "LISTS\\towns", "LISTS/north/towns", "a\\b/c", "..towns", "towns..",
                             "a..b\\c", "...a\\b", "LISTS\\\\towns", "Äpfel\\Ω", " towns", ".towns"})
        EXPECT_TRUE(IsContainedName(S(name))) << name;
    EXPECT_TRUE(IsContainedName(QString(1024, u'a')));
}

TEST(ContainedName, LeadsNowhereElse) {
    for (const char* name :
         {"..", "..\\x", "../x", "a\\..\\..\\x", "a/../../x", "a\\../x", "a/..", ".. \\x", "...\\x", ". ./x",
          ".", "a\\.\\b", "\\x", "/etc/x", "\\\\server\\share\\x", "C:\\x", "c:x", "x:stream", ""})
        EXPECT_FALSE(IsContainedName(S(name))) << name;
}

TEST(ContainedName, NamesAFileAndNoFolder) {
    EXPECT_FALSE(IsContainedName(u"LISTS\\"));
    EXPECT_FALSE(IsContainedName(u"LISTS/"));
}

TEST(ContainedName, HoldsNoControlCharacter) {
    EXPECT_FALSE(IsContainedName(QStringView(u"a\0b", 3)));
    EXPECT_FALSE(IsContainedName(u"a\nb"));
}

TEST(ContainedName, IsOfASaneLength) {
    EXPECT_FALSE(IsContainedName(QString(1025, u'a')));
    EXPECT_FALSE(IsContainedName(S("a\\").repeated(10'000'000) + u'a'));
}

}  // namespace
}  // namespace sheetwright
