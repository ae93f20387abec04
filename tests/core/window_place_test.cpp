#include "core/window_place.h"

#include "support/short_text.h"
#include "support/test_application.h"

#include <utility>

namespace sheetwright {
namespace {

const WindowPlace kScreen{0, 0, 28800, 16200};  // 1920 by 1080 pixels
const WindowPlace kRightScreen{28800, 0, 19200, 15360};

class StoredPlace : public ApplicationTest {
  protected:
    void Store(const char* key, const QString& value) const {
        m_application->settings.Write(m_application->Title, S("mdiSheetwright"), S(key), value);
    }
    void Store(const WindowPlace& place) { StoreWindowPlace(*m_application, place, false); }
    [[nodiscard]] QString Setting(const char* key) const {
        return m_application->settings.Read(m_application->Title, S("mdiSheetwright"), S(key));
    }
    [[nodiscard]] WindowPlace Place(const std::vector<WindowPlace>& screens = {kScreen}) const {
        return StoredWindowPlace(*m_application, screens);
    }
};

TEST_F(StoredPlace, AtFirstItIsMostOfTheScreenFromItsCorner) {
    EXPECT_EQ(Place(), (WindowPlace{0, 0, 25920, 14580}));
}

TEST_F(StoredPlace, IsWhereTheWindowStood) {
    const WindowPlace place{1500, 750, 12000, 9000};
    Store(place);
    EXPECT_EQ(Setting("MainLeft"), S("1500"));
    EXPECT_EQ(Setting("MainTop"), S("750"));
    EXPECT_EQ(Setting("MainWidth"), S("12000"));
    EXPECT_EQ(Setting("MainHeight"), S("9000"));
    EXPECT_EQ(Place(), place);
}

TEST_F(StoredPlace, AMinimisedWindowKeepsWhatIsStored) {
    const WindowPlace place{1500, 750, 12000, 9000};
    Store(place);
    StoreWindowPlace(*m_application, {-480000, -480000, 2400, 400}, true);
    EXPECT_EQ(Place(), place);
}

TEST_F(StoredPlace, NonsenseCountsAsNotStored) {
    for (const char* nonsense : {"", "x", "nan", "inf", "-inf", "1e300", "1,5", "0x10", "1 2"}) {
        for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
            Store(key, S(nonsense));
        EXPECT_EQ(Place(), (WindowPlace{0, 0, 25920, 14580})) << nonsense;
    }
}

TEST_F(StoredPlace, EachNumberIsJudgedByItself) {
    Store("MainLeft", S("3000"));
    Store("MainTop", S("?"));
    Store("MainWidth", S("-5"));
    Store("MainHeight", S("9000"));
    EXPECT_EQ(Place(), (WindowPlace{3000, 0, 25920, 9000}));
}

TEST_F(StoredPlace, AWindowBeyondTheScreenComesBack) {
    const std::vector<std::pair<WindowPlace, WindowPlace>> rules{
        {{90000, 90000, 12000, 9000}, {16800, 6750, 12000, 9000}},
        {{-90000, -90000, 12000, 9000}, {0, 0, 12000, 9000}},
        {{3000, -300, 12000, 9000}, {3000, 0, 12000, 9000}},  // its title bar could not be reached
        {{28000, 0, 12000, 9000}, {16800, 0, 12000, 9000}},
    };
    for (const auto& [stored, expected] : rules) {
        Store(stored);
        EXPECT_EQ(Place(), expected);
    }
}

TEST_F(StoredPlace, APartThatCanBeReachedIsEnough) {
    for (const WindowPlace& place :
         {WindowPlace{-6000, 0, 12000, 9000}, WindowPlace{27000, 15000, 12000, 9000}}) {
        Store(place);
        EXPECT_EQ(Place(), place);
    }
}

TEST_F(StoredPlace, ASecondScreenIsAsGood) {
    const WindowPlace place{30000, 300, 12000, 9000};
    Store(place);
    EXPECT_EQ(Place({kScreen, kRightScreen}), place);
    EXPECT_EQ(Place({kScreen}), (WindowPlace{16800, 300, 12000, 9000})) << "when it is unplugged";
}

TEST_F(StoredPlace, AWindowMayReachAcrossScreens) {
    const WindowPlace place{20000, 0, 25000, 15000};
    Store(place);
    EXPECT_EQ(Place({kScreen, kRightScreen}), place);
}

TEST_F(StoredPlace, ALostWindowComesToTheNearestScreen) {
    Store(WindowPlace{60000, 0, 12000, 9000});
    EXPECT_EQ(Place({kScreen, kRightScreen}), (WindowPlace{36000, 0, 12000, 9000}));
}

TEST_F(StoredPlace, SizesStayUsable) {
    Store(WindowPlace{0, 0, 1, 1});
    EXPECT_EQ(Place(), (WindowPlace{0, 0, 4500, 4500}));
    Store(WindowPlace{0, 0, 100000, 100000});
    EXPECT_EQ(Place(), (WindowPlace{0, 0, 28800, 15750})) << "the title bar stands above it";
    EXPECT_EQ(Place({WindowPlace{0, 0, 3000, 1500}}), (WindowPlace{0, 0, 3000, 1050}));
}

TEST_F(StoredPlace, WithoutAScreenSomeSizeIsTaken) {
    EXPECT_EQ(Place({}), (WindowPlace{0, 0, 13824, 10368}));
    EXPECT_EQ(Place({WindowPlace{}}), (WindowPlace{0, 0, 13824, 10368}));
}

TEST_F(StoredPlace, AScreenThatBeginsElsewhereIsRespected) {
    EXPECT_EQ(Place({{-28800, 405, 28800, 15795}}), (WindowPlace{-25920, 405, 25920, 14215.5}));
}

}  // namespace
}  // namespace sheetwright
