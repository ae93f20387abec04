#include "ui/help_window.h"

#include "core/help_page.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/help_browser.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

namespace sheetwright {

namespace {

class HelpWindowTest : public ApplicationTest {
  protected:
    HelpWindowTest() {
        m_application->settings = Settings(Path(S("settings")));
        Write(S("help/index.html"),
              "<title>Help</title><h1>Help</h1><h2 id=\"first\">First steps</h2><ul><li><a "
              "href=\"a.html\">Pages"
              "</a><ul><li><a href=\"a.html#adding\">Adding</a></li></ul></li></ul>");
        Write(S("help/a.html"),
              "<title>Pages</title><h1>Pages</h1><p>needle one</p><p>needle two</p><h2 "
              "id=\"adding\">Adding</h2>"
              "<p>A new <a href=\"b.html\">page</a>. <a href=\"https://example.org/x\">Web</a></p>");
        Write(S("help/b.html"), "<title>Keys</title><h1>Keys</h1><p>Escape</p>");
        Write(S("secret.html"), "<p>secret</p>");
        m_window = std::make_unique<HelpWindow>(*m_application, Path(S("help")));
    }

    template <typename Widget>
    [[nodiscard]] Widget* Find(const char* name) const {
        return m_window->findChild<Widget*>(S(name));
    }
    [[nodiscard]] HelpBrowser& Browser() const { return m_window->Browser(); }
    [[nodiscard]] QString Shown() const { return Browser().toPlainText(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QApplication::setActiveWindow(m_window.get());
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus == nullptr ? m_window.get() : focus, key, modifiers);
    }
    void FollowLink(const char* target) const {
        emit Browser().anchorClicked(Browser().source().resolved(QUrl(S(target))));
    }

    std::unique_ptr<HelpWindow> m_window;
};

TEST_F(HelpWindowTest, FolderIsKnownWhenItHasContents) {
    EXPECT_EQ(HelpFolder(*m_application), m_application->InstallFolder + S("help/"));
    ASSERT_TRUE(QFile::remove(Path(S("help/index.html"))));
    EXPECT_EQ(HelpFolder(*m_application), S(""));
}

TEST_F(HelpWindowTest, ContentsShowTheListsAndTheFirstPage) {
    m_window->OpenContents();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_FALSE(m_window->isModal());
    EXPECT_EQ(Browser().Target(), S("index.html"));
    const auto* const tree = Find<QTreeWidget>("treContents");
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    const QTreeWidgetItem* const pages = tree->topLevelItem(0)->child(0);
    EXPECT_EQ(pages->text(0), S("Pages"));
    EXPECT_EQ(pages->child(0)->text(0), S("Adding"));
    EXPECT_EQ(Find<QTabWidget>("tabHelp")->currentWidget(), tree);
}

TEST_F(HelpWindowTest, EntryOpensItsPlaceAndPlacesSelectTheirEntry) {
    m_window->OpenContents();
    auto* const tree = Find<QTreeWidget>("treContents");
    emit tree->itemActivated(tree->topLevelItem(0)->child(0)->child(0), 0);
    EXPECT_EQ(Browser().Target(), S("a.html#adding"));
    m_window->OpenPage(S("a.html#elsewhere"));
    EXPECT_EQ(tree->currentItem()->text(0), S("Pages"));
    m_window->OpenPage(S("a.html#adding"));
    EXPECT_EQ(tree->currentItem()->text(0), S("Adding"));
}

TEST_F(HelpWindowTest, BackForwardAndHomeByKeys) {
    m_window->OpenContents();
    EXPECT_FALSE(Find<QAction>("Back")->isEnabled());
    FollowLink("a.html");
    FollowLink("b.html");
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Browser().Target(), S("a.html"));
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Browser().Target(), S("b.html"));
    Key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Browser().Target(), S("index.html"));
}

TEST_F(HelpWindowTest, WordsAreSearchedAndEnterOpensTheBestPage) {
    m_window->OpenSearch(S("new page"));
    EXPECT_EQ(Browser().Target(), S("index.html"));
    const auto* const list = Find<QListWidget>("lstResults");
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), S("Pages: Adding"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Browser().Target(), S("a.html#adding"));
    EXPECT_FALSE(Browser().extraSelections().isEmpty());
}

TEST_F(HelpWindowTest, SearchFollowsTheTypingAndTellsWhenNothingIsFound) {
    m_window->OpenSearch();
    QTest::keyClicks(Find<QLineEdit>("txtSearch"), S("escape"));
    EXPECT_EQ(Find<QListWidget>("lstResults")->count(), 1);
    EXPECT_TRUE(Find<QLabel>("lblSearch")->isHidden());
    QTest::keyClicks(Find<QLineEdit>("txtSearch"), S("xyz"));
    EXPECT_EQ(Find<QListWidget>("lstResults")->count(), 0);
    EXPECT_EQ(Find<QLabel>("lblSearch")->text(), S("No page has all of these words."));
    Key(Qt::Key_Return);
    EXPECT_EQ(Browser().Target(), S("index.html"));
}

TEST_F(HelpWindowTest, LinkToTheWebOpensOutside) {
    QList<QUrl> opened;
    Browser().OpenOutside = [&](const QUrl& url) { opened << url; };
    m_window->OpenPage(S("a.html"));
    FollowLink("https://example.org/x");
    EXPECT_EQ(opened, QList<QUrl>{QUrl(S("https://example.org/x"))});
    EXPECT_EQ(Browser().Target(), S("a.html"));
}

TEST_F(HelpWindowTest, NothingOutsideTheFolderIsShown) {
    ASSERT_TRUE(QFile::link(Path(S("secret.html")), Path(S("help/link.html"))));
    for (const char* const target :
         {"../secret.html", "%2e%2e/secret.html", "link.html", "/etc/passwd", "file://host/x.html",
          "ftp://host/x.html", "javascript:x", "data:text/html,x", "help.css", "."}) {
        m_window->OpenPage(S("a.html"));
        FollowLink(target);
        EXPECT_TRUE(Shown().contains(S("is no page of the help."))) << target << ' ' << Shown().toStdString();
        EXPECT_FALSE(Shown().contains(S("\nsecret"))) << target;
    }
}

TEST_F(HelpWindowTest, PictureOutsideTheFolderIsNotRead) {
    Write(S("secret.png"), "x");
    m_window->OpenPage(S("a.html"));
    const QUrl url = QUrl::fromLocalFile(Path(S("secret.png")));
    EXPECT_TRUE(Browser().loadResource(QTextDocument::ImageResource, url).toByteArray().isEmpty());
    EXPECT_TRUE(Browser()
                    .loadResource(QTextDocument::ImageResource, QUrl(S("http://host/x.png")))
                    .toByteArray()
                    .isEmpty());
}

TEST_F(HelpWindowTest, PageThatCanNotBeShownIsTold) {
    Write(S("help/empty.html"), "");
    Write(S("help/deep.html"), QByteArray("<table><tr><td>").repeated(50));
    Write(S("help/long.html"), QByteArray(kLongestHelpPage + 1, 'x'));
    m_window->OpenPage(S("gone.html"));
    EXPECT_TRUE(Shown().contains(S("The page \"gone.html\" of the help is missing.")));
    m_window->OpenPage(S("empty.html"));
    EXPECT_TRUE(Shown().contains(S("The page \"empty.html\" of the help is empty.")));
    for (const char* const name : {"deep.html", "long.html"}) {
        m_window->OpenPage(S(name));
        EXPECT_TRUE(Shown().contains(S("The page \"%1\" of the help can't be shown.").arg(S(name)))) << name;
    }
    Write(S("help/broken.html"), "<h1>Half<p <b>broken</i> &x; <a href='");
    m_window->OpenPage(S("broken.html"));
    EXPECT_TRUE(Shown().contains(S("Half")));
}

TEST_F(HelpWindowTest, MissingFolderIsTold) {
    m_window = std::make_unique<HelpWindow>(*m_application, Path(S("nothing")) + S("/help"));
    m_window->OpenContents();
    EXPECT_TRUE(Shown().contains(S("The page \"index.html\" of the help is missing.")));
    m_window->OpenSearch(S("x"));
    EXPECT_EQ(Find<QListWidget>("lstResults")->count(), 0);
}

TEST_F(HelpWindowTest, FindsInThePageRoundAndRound) {
    m_window->OpenPage(S("a.html"));
    Key(Qt::Key_F, Qt::ControlModifier);
    auto* const text = Find<QLineEdit>("txtFind");
    ASSERT_TRUE(text->isVisible());
    QTest::keyClicks(text, S("needle"));
    const int first = Browser().textCursor().selectionStart();
    EXPECT_EQ(Browser().textCursor().selectedText(), S("needle"));
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_GT(Browser().textCursor().selectionStart(), first);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Browser().textCursor().selectionStart(), first);
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_GT(Browser().textCursor().selectionStart(), first);
    QTest::keyClicks(text, S("x"));
    EXPECT_EQ(Find<QLabel>("lblFind")->text(), S("Not found"));
}

TEST_F(HelpWindowTest, FindingNothingLeavesThePageWhereItIs) {
    Write(S("help/tall.html"), QByteArray("<p>line</p>").repeated(500) + "<h2 id=\"end\">End</h2>");
    m_window->OpenPage(S("tall.html#end"));
    const int place = Browser().verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    Key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(Find<QLineEdit>("txtFind"), S("qqq"));
    EXPECT_EQ(Find<QLabel>("lblFind")->text(), S("Not found"));
    EXPECT_GE(Browser().verticalScrollBar()->value(), place);
}

TEST_F(HelpWindowTest, EscapeLeavesTheBarFirstThenTheWindow) {
    m_window->OpenPage(S("a.html"));
    Key(Qt::Key_F, Qt::ControlModifier);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Find<QWidget>("picFind")->isVisible());
    EXPECT_TRUE(m_window->isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(HelpWindowTest, F1GoesToTheContents) {
    m_window->OpenSearch();
    Key(Qt::Key_F1);
    EXPECT_EQ(QApplication::focusWidget(), Find<QTreeWidget>("treContents"));
}

TEST_F(HelpWindowTest, ZoomsByKeys) {
    m_window->OpenPage(S("a.html"));
    const double size = Browser().font().pointSizeF();
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(Browser().font().pointSizeF(), size);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(Browser().font().pointSizeF(), size);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(Browser().font().pointSizeF(), size);
}

TEST_F(HelpWindowTest, SizeAndZoomAreRemembered) {
    m_window->OpenContents();
    m_window->resize(500, 400);
    Browser().SetZoom(2);
    m_window->close();
    EXPECT_EQ(m_application->settings.Read(m_application->Title, S("frmHelp"), S("Width")), S("7500"));
    m_window = std::make_unique<HelpWindow>(*m_application, Path(S("help")));
    m_window->OpenContents();
    EXPECT_EQ(m_window->size(), QSize(500, 400));
    EXPECT_EQ(Browser().Zoom(), 2);
}

TEST_F(HelpWindowTest, SenselessSettingsDoNoHarm) {
    for (const char* const key : {"Width", "Height", "Contents", "Zoom"})
        m_application->settings.Write(m_application->Title, S("frmHelp"), S(key), S("-2000000000"));
    m_window->OpenContents();
    EXPECT_EQ(m_window->size(), QSize(360, 260));
    EXPECT_GT(Browser().font().pointSizeF(), 4);
}

TEST(HelpColours, AreTurnedForADarkWindow) {
    EXPECT_EQ(InDarkColours(S("a { color: #202020; background-color: #ffffff; } h1 { top: 1px }")),
              S("a { color: #dfdfdf; background-color: #000000; } h1 { top: 1px }"));
}

}  // namespace

}  // namespace sheetwright
