#include "ui/about_box.h"

#include "dialog_test.h"
#include "support/test_application.h"

#include <QTimer>

namespace sheetwright {
namespace {

class AboutBoxTest : public ApplicationTest {
  protected:
    void Load() {
        m_box = std::make_unique<AboutBox>(*m_application, nullptr);
        ASSERT_NO_FATAL_FAILURE(ShowActive(*m_box));
    }
    [[nodiscard]] QString Text(const char* name) { return m_box->findChild<QLabel*>(S(name))->text(); }

    std::unique_ptr<AboutBox> m_box;
};

TEST_F(AboutBoxTest, TellsProductVersionLicenceAndQt) {
    Load();
    const Version version = ProgramVersion();
    EXPECT_EQ(m_box->windowTitle(), S("About Tolvane Quillon Sheetwright"));
    EXPECT_EQ(Text("lblTitle"), S("Tolvane Quillon Sheetwright"));
    EXPECT_EQ(Text("lblVersion"),
              S("Version %1.%2.%3").arg(version.major).arg(version.minor).arg(version.revision));
    EXPECT_EQ(Text("lblLicence"), S("Free software under the MIT License"));
    EXPECT_EQ(Text("lblQt"), S("Runs on Qt %1").arg(S(qVersion())));
    EXPECT_FALSE(m_box->findChild<QLabel*>(S("imgEmblem"))->pixmap().isNull());
}

TEST_F(AboutBoxTest, TellsOfTheViewer) {
    Restart(S("Tolvane Ketterlin Professional Viewer"));
    Load();
    EXPECT_EQ(Text("lblTitle"), S("Tolvane Ketterlin Professional Viewer"));
}

TEST_F(AboutBoxTest, EnterEscapeAndTheButtonLeaveIt) {
    Load();
    QTest::keyClick(m_box.get(), Qt::Key_Return);
    EXPECT_FALSE(m_box->isVisible());
    Load();
    QTest::keyClick(m_box.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_box->isVisible());
    Load();
    QTest::mouseClick(m_box->findChild<QAbstractButton*>(S("cmdOK")), Qt::LeftButton);
    EXPECT_FALSE(m_box->isVisible());
}

TEST_F(AboutBoxTest, IsModal) {
    bool wasModal = false;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* const box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        wasModal = box->objectName() == S("AboutBox");
        QTest::keyClick(box, Qt::Key_Escape);
    });
    ShowAbout(nullptr, *m_application);
    EXPECT_TRUE(wasModal);
}

TEST_F(AboutBoxTest, GermanTextsAreNotCutOff) {
    UseGerman(*m_application);
    Load();
    EXPECT_EQ(m_box->windowTitle(), S("Info über %1").arg(m_application->Title));
    ExpectNothingCutOff(*m_box);
}

}  // namespace
}  // namespace sheetwright
