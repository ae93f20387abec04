#include "ui/splash_window.h"

#include "core/settings.h"
#include "dialog_test.h"
#include "support/test_application.h"
#include "ui/desktop_start_up.h"
#include "ui/desktop_user_interface.h"

#include <QImage>

namespace sheetwright {
namespace {

class SplashWindowTest : public ApplicationTest {
  protected:
    [[nodiscard]] static SplashWindow* Shown() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->objectName() == S("SplashWindow")) return static_cast<SplashWindow*>(window);
        return nullptr;
    }
    [[nodiscard]] static QString Text(const QWidget& splash, const char* name) {
        return splash.findChild<QLabel*>(S(name))->text();
    }
};

TEST_F(SplashWindowTest, TellsProductLineAndVersion) {
    const SplashWindow splash(*m_application);
    const Version version = ProgramVersion();
    EXPECT_EQ(Text(splash, "lblProduct"), S("Tolvane Quillon"));
    EXPECT_EQ(Text(splash, "lblProductLine"), S("Sheetwright"));
    EXPECT_EQ(Text(splash, "lblVersion"),
              S("Version %1.%2.%3").arg(version.major).arg(version.minor).arg(version.revision));
}

TEST_F(SplashWindowTest, TheProductLineCanBeSet) {
    SplashWindow splash(*m_application);
    splash.SetProductLine(S("Viewer"));
    EXPECT_EQ(Text(splash, "lblProductLine"), S("Viewer"));
}

TEST_F(SplashWindowTest, HasADrawingBesideItsTexts) {
    SplashWindow splash(*m_application);
    splash.show();
    const QImage image = splash.grab().toImage();
    EXPECT_EQ(image.pixelColor(10, 20), QColor(0x2f, 0x6f, 0xb4));
    EXPECT_EQ(image.pixelColor(400, 20), QColor(0xf4, 0xf7, 0xfa));
    ExpectNothingCutOff(splash);
}

TEST_F(SplashWindowTest, IsNoWindowThatTheProgramLivesFor) {
    const SplashWindow splash(*m_application);
    EXPECT_FALSE(splash.testAttribute(Qt::WA_QuitOnClose));
    EXPECT_EQ(splash.windowType(), Qt::SplashScreen);
}

TEST_F(SplashWindowTest, TheStartLoadsItWithItsLineAndClosesIt) {
    m_application->settings = Settings(Path(S("settings")));
    DesktopUserInterface ui;
    DesktopStartUp start(*m_application, ui);
    start.CloseSplash();
    start.SetSplashProductLine(S("Viewer"));
    ASSERT_NE(Shown(), nullptr);
    EXPECT_FALSE(Shown()->isVisible()) << "not shown yet";
    start.ShowSplash();
    EXPECT_TRUE(Shown()->isVisible());
    EXPECT_TRUE(Shown()->WasPainted());
    EXPECT_EQ(Text(*Shown(), "lblProductLine"), S("Viewer"));
    start.CloseSplash();
    EXPECT_EQ(Shown(), nullptr);
}

}  // namespace
}  // namespace sheetwright
