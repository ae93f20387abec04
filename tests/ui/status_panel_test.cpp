#include "ui/status_panel.h"

#include "support/paint_counter.h"
#include "support/short_text.h"

#include <QTest>

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

class StatusPanelTest : public ::testing::Test {
  protected:
    StatusPanelTest() {
        m_panel.resize(400, 20);
        m_panel.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_panel));
    }

    StatusPanel m_panel;
    PaintCounter m_paints{m_panel};
};

TEST_F(StatusPanelTest, TextsAreSeenAtOnce) {
    m_panel.ShowStatus(S("Initializing..."));
    const int first = m_paints.Count();
    EXPECT_GE(first, 1);
    m_panel.ShowStatus(S("Sorting..."));
    EXPECT_EQ(m_paints.Count(), first + 1);
    m_panel.ShowStatus(S("Sorting..."));
    EXPECT_EQ(m_paints.Count(), first + 1) << "nothing is new";
}

TEST_F(StatusPanelTest, OfAQuickCountSomeAreSeenAndTheLastOneInTheEnd) {
    constexpr int kRecords = 20000;
    for (int record = 1; record <= kRecords; ++record)
        m_panel.ShowStatus(S("Record %1/20000").arg(record));
    EXPECT_GE(m_paints.Count(), 1);
    EXPECT_LT(m_paints.Count(), kRecords / 2);
    EXPECT_EQ(m_panel.text(), S("Record 20000/20000"));
    m_panel.ShowStatus(S("Ready"));
    const int before = m_paints.Count();
    m_panel.ShowStatus(S("Ready 2"));
    EXPECT_EQ(m_paints.Count(), before + 1) << "a word more is no count";
}

}  // namespace

}  // namespace sheetwright
