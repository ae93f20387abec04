#include "mdi_sheetwright_test.h"

#include <QScreen>

namespace sheetwright {

namespace {

class FramePlacementTest : public MdiSheetwrightTest {
  protected:
    void Store(const char* key, const QString& value) {
        m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S(key), value);
    }
    void Restart() {
        Unload();
        Load();
    }
};

TEST_F(FramePlacementTest, FirstStartIsAtTheOriginAndMostOfTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(m_frame->pos(), QPoint(0, 0));
    EXPECT_EQ(m_frame->size(), QSize(qRound(screen.width() * 0.9), qRound(screen.height() * 0.9)));
}

TEST_F(FramePlacementTest, RemembersItsPlaceAndItsTick) {
    m_frame->setGeometry(20, 30, 500, 400);
    Do("mnuOptionsBlank");
    EXPECT_TRUE(m_frame->close());
    const auto stored = [this](const char* key) {
        return m_application->settings.Read(m_application->Title, S("mdiSheetwright"), S(key));
    };
    EXPECT_EQ(stored("MainWidth"), S("7500"));
    EXPECT_EQ(stored("MainHeight"), S("6000"));
    EXPECT_EQ(stored("BlankSelected"), S("True"));
    Unload();
    Load();
    EXPECT_EQ(m_frame->size(), QSize(500, 400));
    EXPECT_TRUE(m_frame->IsBlankTicked());
}

TEST_F(FramePlacementTest, FrameMinimisedWhenClosedKeepsTheStoredPlace) {
    m_frame->move(20, 30);
    m_frame->resize(500, 400);
    m_frame->close();
    m_frame->move(0, 0);
    m_frame->resize(700, 600);
    m_frame->showMinimized();
    Do("mnuOptionsBlank");
    m_frame->close();
    EXPECT_EQ(Setting("MainLeft"), S("300"));
    EXPECT_EQ(Setting("MainTop"), S("450"));
    EXPECT_EQ(Setting("MainWidth"), S("7500"));
    EXPECT_EQ(Setting("MainHeight"), S("6000"));
    EXPECT_EQ(Setting("BlankSelected"), S("True")) << "only the place is left alone";
}

TEST_F(FramePlacementTest, StoredPlaceOffTheScreenIsBroughtBack) {
    for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S(key), S("9999999999"));
    m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S("MainLeft"), S("-90000"));
    Unload();
    Load();
    EXPECT_GE(m_frame->x(), 0);
    EXPECT_GE(m_frame->width(), 300);
}

TEST_F(FramePlacementTest, NonsenseIsAFirstStart) {
    const QSize first = m_frame->size();
    for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        for (const char* nonsense : {"", "abc", "nan", "1e999", "-1e300"}) {
            Store(key, S(nonsense));
            Restart();
            EXPECT_EQ(m_frame->size(), first) << key << ' ' << nonsense;
        }
}

TEST_F(FramePlacementTest, FrameOfALargerScreenFitsWithItsTitle) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    Store("MainWidth", S("100000"));
    Store("MainHeight", S("100000"));
    Restart();
    EXPECT_EQ(m_frame->size(), QSize(screen.width(), screen.height() - 30));
}

TEST_F(FramePlacementTest, TinyFrameIsMadeUsable) {
    Store("MainWidth", S("15"));
    Store("MainHeight", S("15"));
    Restart();
    EXPECT_GE(m_frame->width(), 300);
    EXPECT_GE(m_frame->height(), 300);
}

TEST_F(FramePlacementTest, MaximisedFrameIsSoAgainAndKeepsItsPlainSize) {
    m_frame->setGeometry(20, 30, 500, 400);
    m_frame->showMaximized();
    m_frame->close();
    EXPECT_EQ(Setting("MainWidth"), S("7500"));
    Restart();
    EXPECT_TRUE(m_frame->isMaximized());
}

TEST_F(FramePlacementTest, BothTicksAreStoredAsBooleanTexts) {
    Do("mnuOptionsSelected");
    m_frame->close();
    EXPECT_EQ(Setting("HighlightSelected"), S("True"));
    EXPECT_EQ(Setting("BlankSelected"), S("False"));
    Restart();
    EXPECT_TRUE(Action("mnuOptionsSelected")->isChecked());
    EXPECT_FALSE(Action("mnuOptionsBlank")->isChecked());
}

}  // namespace

}  // namespace sheetwright
