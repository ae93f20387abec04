#include "core/help_search.h"

#include "core/help_html.h"
#include "core/help_page.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QByteArray PageOf(const QByteArray& title, const QByteArray& keywords, const QByteArray& body) {
    return "<html><head><meta name=\"keywords\" content=\"" + keywords + "\"/><title>" + title +
           "</title></head><body><p class=\"top\"><a href=\"index.html\">Contents</a></p><h1 id=\"top\">" +
           title + "</h1>" + body + "</body></html>";
}

class HelpSearchTest : public ApplicationTest {
  protected:
    void Add(const char* file, const QByteArray& bytes) const { Write(S(file), bytes); }

    [[nodiscard]] std::vector<HelpResult> Find(const char* words) const {
        return HelpSearch(m_folder.path()).Find(S(words));
    }
    [[nodiscard]] std::vector<QString> Files(const char* words) const {
        std::vector<QString> files;
        for (const HelpResult& result : Find(words))
            files.push_back(result.file);
        return files;
    }
};

TEST_F(HelpSearchTest, TitleComesBeforeKeywordHeadingAndText) {
    Add("a_text.html", PageOf("One", "", "<p>Printing is here.</p>"));
    Add("b_heading.html", PageOf("Two", "", "<h2 id=\"p\">Printing</h2><p>x</p>"));
    Add("c_keyword.html", PageOf("Three", "paper, printing", "<p>x</p>"));
    Add("d_title.html", PageOf("Printing", "", "<p>x</p>"));
    EXPECT_THAT(Files("printing"),
                ElementsAre(S("d_title.html"), S("c_keyword.html"), S("b_heading.html"), S("a_text.html")));
}

TEST_F(HelpSearchTest, WholeWordComesBeforeTheBeginningOfOne) {
    Add("a.html", PageOf("One", "", "<p>listing</p>"));
    Add("b.html", PageOf("Two", "", "<p>list</p>"));
    EXPECT_THAT(Files("list"), ElementsAre(S("b.html"), S("a.html")));
}

TEST_F(HelpSearchTest, EveryWordMustBeThere) {
    Add("a.html", PageOf("Pages", "", "<p>add one</p>"));
    Add("b.html", PageOf("Pages", "", "<p>remove one</p>"));
    EXPECT_THAT(Files("pages remove"), ElementsAre(S("b.html")));
    EXPECT_THAT(Files("pages remove nothing"), IsEmpty());
}

TEST_F(HelpSearchTest, WordIsFoundByItsBeginningOnly) {
    Add("a.html", PageOf("Stationery", "", "<p>x</p>"));
    EXPECT_THAT(Files("stat"), ElementsAre(S("a.html")));
    EXPECT_THAT(Files("ionery"), IsEmpty());
}

TEST_F(HelpSearchTest, CaseAndAccentsDoNotCount) {
    Add("a.html", PageOf("Gr\xC3\xB6\xC3\x9F"
                         "e",
                         "", "<p>caf\xC3\xA9</p>"));
    EXPECT_THAT(Files("GROSSE"), ElementsAre(S("a.html")));
    EXPECT_THAT(Files("cafe"), ElementsAre(S("a.html")));
    EXPECT_THAT(Files("CAF\u00C9"), ElementsAre(S("a.html")));
}

TEST_F(HelpSearchTest, NothingIsFoundForNoWords) {
    Add("a.html", PageOf("One", "", "<p>x</p>"));
    EXPECT_THAT(Files(""), IsEmpty());
    EXPECT_THAT(Files("  +-* "), IsEmpty());
}

TEST_F(HelpSearchTest, ResultLeadsToTheSectionThatTheWordsAreAbout) {
    Add("f.html", PageOf("Functions", "ROUND, SUM",
                         "<p>All of them. ROUND is one.</p><h3 id=\"SUM\">SUM</h3><p>Rounds nothing.</p>"
                         "<h3 id=\"ROUND\">ROUND</h3><p>The nearest whole number.</p>"));
    const std::vector<HelpResult> found = Find("round");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].anchor, S("ROUND"));
    EXPECT_EQ(found[0].heading, S("ROUND"));
    EXPECT_EQ(found[0].excerpt, S("The nearest whole number."));
}

TEST_F(HelpSearchTest, ResultByTitleLeadsToTheTop) {
    Add("f.html", PageOf("Functions", "", "<p>All.</p><h3 id=\"x\">More functions</h3><p>functions</p>"));
    const std::vector<HelpResult> found = Find("functions");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].anchor, S(""));
    EXPECT_EQ(found[0].heading, S(""));
    EXPECT_EQ(found[0].excerpt, S("All."));
}

TEST_F(HelpSearchTest, ExcerptIsShortAndHoldsTheWord) {
    QByteArray words;
    for (int at = 0; at < 100; ++at)
        words += "before ";
    Add("a.html", PageOf("One", "", "<p>" + words + "needle " + words + "</p>"));
    const QString excerpt = Find("needle").at(0).excerpt;
    EXPECT_TRUE(excerpt.contains(S("needle")));
    EXPECT_TRUE(excerpt.startsWith(S("\u2026 before")));
    EXPECT_TRUE(excerpt.endsWith(S("before \u2026")));
    EXPECT_LT(excerpt.size(), 170);
}

TEST_F(HelpSearchTest, ContentsAndWhatLeadsToThemAreNotSearched) {
    Add("index.html", PageOf("Help", "", "<p>masks</p>"));
    Add("masks.html", PageOf("Masks", "", "<p>x</p>"));
    EXPECT_THAT(Files("masks"), ElementsAre(S("masks.html")));
    EXPECT_THAT(Files("contents"), IsEmpty());
}

TEST_F(HelpSearchTest, HeadingWithoutATextHasTheExcerptOfTheNext) {
    Add("a.html", PageOf("One", "", "<h2 id=\"x\">Needles</h2><h3>Kinds</h3><p>Sharp ones.</p>"));
    const HelpResult result = Find("needles").at(0);
    EXPECT_EQ(result.anchor, S("x"));
    EXPECT_EQ(result.excerpt, S("Sharp ones."));
}

TEST_F(HelpSearchTest, LinksToOtherPagesAreNotSearched) {
    Add("a.html", PageOf("One", "", "<p>x</p><h2 id=\"see-also\">See also</h2><p>Needles</p>"));
    EXPECT_THAT(Files("needles"), IsEmpty());
}

TEST_F(HelpSearchTest, MissingFolderHasNoPages) {
    EXPECT_THAT(HelpSearch(Path(S("none"))).Find(S("x")), IsEmpty());
}

TEST_F(HelpSearchTest, PageThatIsTooLongIsLeftOut) {
    Add("a.html", QByteArray("needle ").repeated(100'000));
    Add("b.html", "needle");
    EXPECT_THAT(Files("needle"), ElementsAre(S("b.html")));
}

TEST(HelpPage, BrokenHtmlIsReadAsFarAsItMakesSense) {
    const HelpPage page =
        ReadHelpPage(S("a < b &amp; c &#65;&#x42;&bogus; <b>w</b>ord<!-- no --><h2 id=x>He"
                       "ad</h3>tail <p title='>' class=\"never closed>more"));
    ASSERT_EQ(page.sections.size(), 1U);
    EXPECT_EQ(page.sections[0].anchor, S("x"));
    EXPECT_EQ(page.sections[0].heading, S("Head"));
    EXPECT_TRUE(page.sections[0].text.startsWith(S("tail")));
    EXPECT_EQ(ReadHelpPage(S("a < b &amp; c &#65;&#x42;&bogus; <b>w</b>ord &#0;")).sections[0].text,
              S("a < b & c AB&bogus; word \uFFFD"));
    EXPECT_EQ(ReadHelpPage(S("")).sections.size(), 1U);
    EXPECT_TRUE(ReadHelpPage(S("<style>x</style><script>y")).IsEmpty());
}

TEST(HelpContents, NestedListsStandBelowTheirHeading) {
    const std::vector<HelpEntry> entries = ReadHelpContents(
        S("<h1>Help</h1><p>no</p><h2 id=\"a\">First</h2><ul><li><a href=\"x.html\">X</a><ul><li><a "
          "href='x.html#y'>Y &amp; Z</a></li></ul></li><li>W</li></ul><h2>Second</h2>"),
        S("index.html"));
    std::vector<QString> told;
    for (const HelpEntry& entry : entries)
        told.push_back(QString::number(entry.depth) + u' ' + entry.title + u' ' + entry.target);
    EXPECT_THAT(told, ElementsAre(S("0 First index.html#a"), S("1 X x.html"), S("2 Y & Z x.html#y"),
                                  S("1 W "), S("0 Second ")));
}

TEST(HelpContents, DepthOfHostileListsIsBounded) {
    const std::vector<HelpEntry> entries = ReadHelpContents(S("<ul><li>x").repeated(20'000), S("index.html"));
    ASSERT_FALSE(entries.empty());
    EXPECT_LE(entries.size(), 5000U);
    for (std::size_t at = 1; at < entries.size(); ++at) {
        EXPECT_LE(entries[at].depth, entries[at - 1].depth + 1);
        EXPECT_LE(entries[at].depth, 8);
    }
}

TEST(HelpHtml, KnowsWhatIsTooDeepToBeLaidOut) {
    EXPECT_FALSE(IsTooDeep(S("<table><tr><td>a<td>b<tr><td>c</table>").repeated(200)));
    EXPECT_FALSE(IsTooDeep(S("<p>a<br><li>b").repeated(1000)));
    EXPECT_TRUE(IsTooDeep(S("<b>").repeated(101)));
    EXPECT_TRUE(IsTooDeep(S("<table><tr><td>").repeated(5)));
}

}  // namespace

}  // namespace sheetwright
