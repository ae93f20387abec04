#include "document/recent_files.h"

#include "support/short_text.h"
#include "support/test_application.h"

#include <QDir>

namespace sheetwright {
namespace {

QStringList Captions(const RecentFiles& files) {
    QStringList captions;
    for (const RecentFiles::Entry& entry : files.Entries())
        captions << entry.caption;
    return captions;
}

TEST(RecentFile, IsWhatStandsBehindTheFirstBlank) {
    EXPECT_EQ(RecentFile(S("&1 C:\\Forms\\a.aff")), S("C:\\Forms\\a.aff"));
    EXPECT_EQ(RecentFile(S("&2 /my forms/a b.aff")), S("/my forms/a b.aff"));
    EXPECT_EQ(RecentFile(S("&3")), S("&3"));
    EXPECT_EQ(RecentFile(QString()), QString());
}

TEST(MenuText, UnderlinesTheNumberOnly) {
    EXPECT_EQ(MenuText(S("&1 /R&D/a&b.aff")), S("&1 /R&&D/a&&b.aff"));
    EXPECT_EQ(MenuText(QString()), QString());
}

TEST(RecentFilesList, BeginsHidden) {
    const RecentFiles files;
    for (const RecentFiles::Entry& entry : files.Entries())
        EXPECT_EQ(entry, RecentFiles::Entry());
    EXPECT_TRUE(files.Paths().isEmpty());
}

TEST(RecentFilesList, NewestIsFirstAndCaptionsAreNumbered) {
    RecentFiles files;
    for (const char* path : {"/a.aff", "/b.aff", "/c.aff"})
        files.Add(S(path));
    EXPECT_EQ(Captions(files), (QStringList{S("&1 /c.aff"), S("&2 /b.aff"), S("&3 /a.aff"), {}, {}}));
    EXPECT_EQ(files.Paths(), (QStringList{S("/c.aff"), S("/b.aff"), S("/a.aff")}));
}

TEST(RecentFilesList, TheSixthPushesTheOldestOut) {
    RecentFiles files;
    for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/f"})
        files.Add(S(path));
    EXPECT_EQ(files.Paths(), (QStringList{S("/f"), S("/e"), S("/d"), S("/c"), S("/b")}));
}

TEST(RecentFilesList, APathBehindTheFirstMovesUp) {
    RecentFiles files;
    for (const char* path : {"/a", "/b", "/c", "/d"})
        files.Add(S(path));
    files.Add(S("/b"));
    EXPECT_EQ(files.Paths(), (QStringList{S("/b"), S("/d"), S("/c"), S("/a")}));
    EXPECT_EQ(Captions(files).value(2), S("&3 /c"));
}

TEST(RecentFilesList, TheLastOfFiveMovesUp) {
    RecentFiles files;
    for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/a"})
        files.Add(S(path));
    EXPECT_EQ(files.Paths(), (QStringList{S("/a"), S("/e"), S("/d"), S("/c"), S("/b")}));
}

TEST(RecentFilesList, APathThatIsFirstAlreadyStandsThereTwice) {
    RecentFiles files;
    files.Add(S("/a"));
    files.Add(S("/a"));
    EXPECT_EQ(files.Paths(), (QStringList{S("/a"), S("/a")}));
    files.Add(S("/b"));
    EXPECT_EQ(files.Paths(), (QStringList{S("/b"), S("/a"), S("/a")}));
    for (const char* path : {"/c", "/d", "/e"})
        files.Add(S(path));
    EXPECT_EQ(files.Paths(), (QStringList{S("/e"), S("/d"), S("/c"), S("/b"), S("/a")}))
        << "until it scrolls off";
}

TEST(RecentFilesList, PathsAreComparedExactly) {
    RecentFiles files;
    files.Add(S("/Forms/a.aff"));
    files.Add(S("/b.aff"));
    files.Add(S("/forms/a.aff"));
    EXPECT_EQ(files.Paths(), (QStringList{S("/forms/a.aff"), S("/b.aff"), S("/Forms/a.aff")}));
}

class RecentFilesSettings : public ApplicationTest {
  protected:
    [[nodiscard]] QString Stored(const char* section, int number) const {
        return m_application->settings.Read(m_application->Title, S(section), S("Recent %1").arg(number));
    }
    void Store(const char* section, int number, const char* path) const {
        m_application->settings.Write(m_application->Title, S(section), S("Recent %1").arg(number), S(path));
    }
};

TEST_F(RecentFilesSettings, TheListComesBack) {
    RecentFiles files;
    for (const char* path : {"/a", "/b", "/c"})
        AddToRecentFiles(*m_application, files, S(path));
    SaveRecentFiles(*m_application, files);
    EXPECT_EQ(Stored("Recent Files", 1), S("/c"));
    EXPECT_EQ(Stored("Recent Files", 3), S("/a"));
    EXPECT_EQ(Stored("Recent Files", 4), QString());
    EXPECT_EQ(Captions(LoadRecentFiles(*m_application)), Captions(files));
}

TEST_F(RecentFilesSettings, APathThatStandsTwiceComesBackTwice) {
    RecentFiles files;
    files.Add(S("/a"));
    files.Add(S("/a"));
    SaveRecentFiles(*m_application, files);
    EXPECT_EQ(LoadRecentFiles(*m_application).Paths(), (QStringList{S("/a"), S("/a")}));
}

TEST_F(RecentFilesSettings, GapsAreSkippedWhenLoading) {
    Store("Recent Files", 2, "/two");
    Store("Recent Files", 5, "/five");
    EXPECT_EQ(LoadRecentFiles(*m_application).Paths(), (QStringList{S("/two"), S("/five")}));
}

TEST_F(RecentFilesSettings, LoadingLeavesTheWelcomeListAlone) {
    Store("Recent Files", 1, "/a");
    (void)LoadRecentFiles(*m_application);
    EXPECT_TRUE(WelcomeRecentFiles(*m_application).isEmpty());
}

TEST_F(RecentFilesSettings, HiddenEntriesAreNotStored) {
    Store("Recent Files", 2, "/kept");
    RecentFiles files;
    files.Add(S("/a"));
    SaveRecentFiles(*m_application, files);
    EXPECT_EQ(Stored("Recent Files", 1), S("/a"));
    EXPECT_EQ(Stored("Recent Files", 2), S("/kept"));
}

TEST_F(RecentFilesSettings, TheWelcomeListTakesTwenty) {
    for (int number = 1; number <= 20; ++number)
        Store("wRecent Files", number, QByteArray("/" + QByteArray::number(number)).constData());
    AddToWelcomeRecentFiles(*m_application, S("/new"));
    const QStringList paths = WelcomeRecentFiles(*m_application);
    ASSERT_EQ(paths.size(), 20);
    EXPECT_EQ(paths.first(), S("/new"));
    EXPECT_EQ(paths.last(), S("/19"));
    EXPECT_EQ(Stored("wRecent Files", 20), S("/19"));
    EXPECT_EQ(Stored("wRecent Files", 21), QString());
}

TEST_F(RecentFilesSettings, AKnownPathMovesUpInTheWelcomeList) {
    for (const char* path : {"/a", "/b", "/c", "/a"})
        AddToWelcomeRecentFiles(*m_application, S(path));
    EXPECT_EQ(WelcomeRecentFiles(*m_application), (QStringList{S("/a"), S("/c"), S("/b")}));
    AddToWelcomeRecentFiles(*m_application, S("/a"));
    EXPECT_EQ(WelcomeRecentFiles(*m_application), (QStringList{S("/a"), S("/c"), S("/b")}))
        << "the first is no second time there";
}

TEST_F(RecentFilesSettings, EachTitleHasItsOwnList) {
    RecentFiles files;
    files.Add(S("/a"));
    SaveRecentFiles(*m_application, files);
    Restart(S("Tolvane Ketterlin Professional Viewer"));
    EXPECT_TRUE(LoadRecentFiles(*m_application).Paths().isEmpty());
}

TEST_F(RecentFilesSettings, UnusualPathsSurvive) {
    const QStringList paths{S("C:\\Förms\\a, b;c=d.aff"), S("/line\nbreak/\"q\".aff"), S("@Variant(x).aff"),
                            S("  blanks.aff ")};
    RecentFiles files;
    for (const QString& path : paths)
        files.Add(path);
    SaveRecentFiles(*m_application, files);
    EXPECT_EQ(LoadRecentFiles(*m_application).Paths(), files.Paths());
}

}  // namespace
}  // namespace sheetwright
