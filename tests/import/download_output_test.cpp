#include "import/download_output.h"

#include "support/test_application.h"

namespace sheetwright {

namespace {

TEST(DownloadOutput, GivesWhatIsNewOnce) {
    DownloadOutput output;
    output.Add("one\n");
    output.Add("two");
    EXPECT_EQ(output.TakeNew(), QStringLiteral("one\ntwo"));
    EXPECT_EQ(output.TakeNew(), QString());
    EXPECT_EQ(output.Size(), 7);
}

TEST(DownloadOutput, JoinsCharactersThatComeInPieces) {
    DownloadOutput output;
    output.Add("\xE2\x82");
    EXPECT_EQ(output.TakeNew(), QString());
    output.Add("\xAC");
    EXPECT_EQ(output.TakeNew(), QStringLiteral(u"\u20AC"));
}

TEST(DownloadOutput, KeepsTheEndOfTooMuch) {
    DownloadOutput output;
    for (int line = 0; line < 50'000; ++line)
        output.Add(QByteArray::number(line) + '\n');
    const QString text = output.TakeNew();
    EXPECT_LE(text.size(), 65'540);
    EXPECT_TRUE(text.startsWith(QStringLiteral(u"\n\u2026\n")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("\n49998\n49999\n")));
}

TEST(DownloadOutput, KeepsTheEndOfAnEndlessLine) {
    DownloadOutput output;
    output.Add(QByteArray("\xF0\x9F\x98\x80").repeated(100'000));
    const QString text = output.TakeNew().sliced(3);
    EXPECT_LE(text.size(), 65'536);
    EXPECT_TRUE(text.front().isHighSurrogate());
    EXPECT_LE(output.LastLines().size(), 201);
}

TEST(DownloadOutput, LastLinesAreThoseThatAPersonSaw) {
    DownloadOutput output;
    output.Add("first\n10%\r20%\r\n\n\x1B[1mno\tanswer\n  \n");
    EXPECT_EQ(output.LastLines(), QStringLiteral("first\n20%\n[1mno answer"));
}

TEST(DownloadOutput, LastLinesAreTenAtMost) {
    DownloadOutput output;
    for (int line = 1; line <= 12; ++line)
        output.Add(QByteArray::number(line) + '\n');
    EXPECT_EQ(output.LastLines(), QStringLiteral("3\n4\n5\n6\n7\n8\n9\n10\n11\n12"));
}

}  // namespace

}  // namespace sheetwright
