#include "ui/download_window.h"

#include "dialog_test.h"
#include "support/test_application.h"

#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace sheetwright {

namespace {

using ::testing::IsEmpty;

QStringList LinesOf(const QString& text) {
    DownloadWindowText lines;
    lines.Add(text);
    return lines.TakeEnded() << lines.Open();
}

TEST(DownloadWindowText, LineFeedsEndLines) {
    EXPECT_EQ(LinesOf(S("one\ntwo\n\nrest")), QStringList({S("one"), S("two"), QString(), S("rest")}));
}

TEST(DownloadWindowText, CarriageReturnBeginsTheLineAgain) {
    EXPECT_EQ(LinesOf(S("10 %\r20 %")), QStringList({S("20 %")}));
    EXPECT_EQ(LinesOf(S("done\r\nnext")), QStringList({S("done"), S("next")}));
    EXPECT_EQ(LinesOf(S("kept\r")), QStringList({S("kept")}));
}

TEST(DownloadWindowText, TextMayBeCutAnywhere) {
    DownloadWindowText lines;
    for (const char* part : {"on", "e\r", "\ntw", "o\r", "2"})
        lines.Add(S(part));
    EXPECT_EQ(lines.TakeEnded(), QStringList({S("one")}));
    EXPECT_EQ(lines.Open(), S("2"));
}

TEST(DownloadWindowText, ControlCharactersAreShownAsSigns) {
    EXPECT_EQ(LinesOf(S("a\tb")), QStringList({S("a\tb")}));
    EXPECT_EQ(LinesOf(S("\x1b[31m\x07\x7f")), QStringList({QStringLiteral(u"\u241b[31m\u2407\u2421")}));
    EXPECT_EQ(LinesOf(QString(QChar(u'\0'))), QStringList({QStringLiteral(u"\u2400")}));
    const QString separatorsAndDirections = QStringLiteral(u"\u2028\u2029\u202e\u2066\u0085\ufdd0");
    EXPECT_EQ(LinesOf(separatorsAndDirections), QStringList({QString(6, QChar(0xFFFD))}));
    EXPECT_EQ(LinesOf(QStringLiteral(u"Ω \U0001F600")), QStringList({QStringLiteral(u"Ω \U0001F600")}));
}

TEST(DownloadWindowText, OnlyTheLastLinesAreKept) {
    DownloadWindowText lines;
    for (int line = 1; line <= 100'000; ++line)
        lines.Add(QString::number(line) + u'\n');
    const QStringList kept = lines.TakeEnded();
    EXPECT_EQ(kept.size(), 2000);
    EXPECT_EQ(kept.constLast(), S("100000"));
    EXPECT_THAT(lines.TakeEnded(), IsEmpty());
}

TEST(DownloadWindowText, LineWithoutAnEndGoesOnInTheNext) {
    const QStringList lines = LinesOf(QString(2500, u'x'));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].size(), 1000);
    EXPECT_EQ(lines[2].size(), 500);
    EXPECT_EQ(LinesOf(QString(999, u'x') + QStringLiteral(u"\U0001F600y")).at(0).size(), 1001);
}

class DownloadWindowTest : public ApplicationTest {
  protected:
    void Begin() {
        m_window.Begin(S("MF720"), [this] { ++m_cancelled; });
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }
    template <typename Widget>
    [[nodiscard]] Widget& Part(const char* name) const {
        return *m_window.findChild<Widget*>(S(name));
    }
    [[nodiscard]] QString State() const { return Part<QLabel>("lblState").text(); }
    [[nodiscard]] QString Output() const { return Part<QPlainTextEdit>("txtOutput").toPlainText(); }
    [[nodiscard]] bool ShowsSoon(const QString& end) const {
        return QTest::qWaitFor([&] { return Output().endsWith(end); });
    }

    DownloadWindow m_window{*m_application};
    int m_cancelled = 0;
};

TEST_F(DownloadWindowTest, ShowsWhileADownloadRuns) {
    EXPECT_FALSE(m_window.isVisible());
    Begin();
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(QApplication::activeModalWidget(), &m_window);
    EXPECT_EQ(m_window.windowTitle(), S("Download MF720"));
    EXPECT_EQ(State(), S("Downloading from MF720..."));
    EXPECT_EQ(Part<QProgressBar>("pbDownload").maximum(), 0);
    m_window.End();
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_EQ(m_cancelled, 0);
}

TEST_F(DownloadWindowTest, ShowsTheOutputAtOnceAndAsItGrows) {
    Begin();
    m_window.AddOutput(S("first\r\nsec"));
    EXPECT_EQ(Output(), S("first\nsec"));
    m_window.AddOutput(S("ond\n10 %\r"));
    m_window.AddOutput(S("20 %"));
    EXPECT_TRUE(ShowsSoon(S("second\n20 %")));
    m_window.AddOutput(S("\r30 %"));
    EXPECT_TRUE(ShowsSoon(S("second\n30 %")));
}

TEST_F(DownloadWindowTest, KeepsTheLastLinesAndFollowsTheEnd) {
    Begin();
    QString text;
    for (int line = 1; line <= 5000; ++line)
        text += QString::number(line) + u'\n';
    m_window.AddOutput(text);
    const auto& output = Part<QPlainTextEdit>("txtOutput");
    EXPECT_EQ(output.blockCount(), 2000);
    EXPECT_TRUE(Output().endsWith(S("4999\n5000\n")));
    EXPECT_EQ(output.verticalScrollBar()->value(), output.verticalScrollBar()->maximum());
}

TEST_F(DownloadWindowTest, StaysWhereOneHasScrolledTo) {
    Begin();
    m_window.AddOutput(QString(200, u'\n'));
    QScrollBar& bar = *Part<QPlainTextEdit>("txtOutput").verticalScrollBar();
    bar.setValue(10);
    m_window.AddOutput(S("more\n\nend"));
    ASSERT_TRUE(ShowsSoon(S("end")));
    EXPECT_EQ(bar.value(), 10);
}

TEST_F(DownloadWindowTest, ButtonCancelsOnce) {
    Begin();
    QTest::mouseClick(&Part<QPushButton>("cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(m_cancelled, 1);
    EXPECT_EQ(State(), S("Stopping..."));
    EXPECT_FALSE(Part<QPushButton>("cmdCancel").isEnabled());
    QTest::keyClick(&m_window, Qt::Key_Escape);
    m_window.close();
    EXPECT_EQ(m_cancelled, 1);
    EXPECT_TRUE(m_window.isVisible()) << "until the download has ended";
}

TEST_F(DownloadWindowTest, EscapeAndTheCloseBoxCancelToo) {
    Begin();
    QTest::keyClick(&m_window, Qt::Key_Escape);
    EXPECT_EQ(m_cancelled, 1);
    EXPECT_TRUE(m_window.isVisible());
    m_window.End();
    Begin();
    m_window.close();
    EXPECT_EQ(m_cancelled, 2);
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(DownloadWindowTest, NextDownloadBeginsAnew) {
    Begin();
    m_window.AddOutput(S("old\nline"));
    m_window.reject();
    m_window.End();
    Begin();
    EXPECT_EQ(Output(), QString());
    EXPECT_EQ(State(), S("Downloading from MF720..."));
    EXPECT_TRUE(Part<QPushButton>("cmdCancel").isEnabled());
    m_window.AddOutput(S("new"));
    EXPECT_TRUE(ShowsSoon(S("new")));
    EXPECT_FALSE(Output().contains(S("line")));
}

TEST_F(DownloadWindowTest, OutputCanBeReadAndCopiedOnly) {
    Begin();
    const auto& output = Part<QPlainTextEdit>("txtOutput");
    EXPECT_TRUE(output.isReadOnly());
    EXPECT_EQ(output.accessibleName(), S("Messages of the driver"));
    EXPECT_EQ(Part<QProgressBar>("pbDownload").accessibleName(), S("Progress"));
}

TEST_F(DownloadWindowTest, NothingIsCutOff) {
    UseGerman(*m_application);
    DownloadWindow window(*m_application);
    window.Begin(S("MF720"), [] {});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ExpectNothingCutOff(window);
    EXPECT_EQ(window.windowTitle(), S("Von MF720 herunterladen"));
}

}  // namespace

}  // namespace sheetwright
