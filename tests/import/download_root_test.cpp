#include "import/download_root.h"

#include "support/test_application.h"

namespace sheetwright {

namespace {

class DownloadRootTest : public ApplicationTest {
  protected:
    QString RootOf(const QString& setting) {
        m_application->settings.Write(QStringLiteral("Download Manager"), QStringLiteral("Settings"),
                                      QStringLiteral("Directory"), setting);
        return DownloadRoot(*m_application);
    }
};

TEST_F(DownloadRootTest, IsTheWritableFolderWithoutASetting) {
    EXPECT_EQ(DownloadRoot(*m_application), m_folder.path());
    EXPECT_EQ(RootOf(QString()), m_folder.path());
}

TEST_F(DownloadRootTest, IsTheSettingWithoutTrailingSeparators) {
    EXPECT_EQ(RootOf(QStringLiteral("C:\\Manager\\")), QStringLiteral("C:\\Manager"));
    EXPECT_EQ(RootOf(QStringLiteral("/srv/manager//")), QStringLiteral("/srv/manager"));
}

TEST_F(DownloadRootTest, SettingBelongsToTheTranslatedName) {
    m_application->dictionary.Load(
        Write(QStringLiteral("Sheetwright.DIC"), "English,Translation\r\nDownload Manager,Abholer\r\n"));
    m_application->settings.Write(QStringLiteral("Abholer"), QStringLiteral("Settings"),
                                  QStringLiteral("Directory"), QStringLiteral("/srv/abholer"));
    EXPECT_EQ(DownloadRoot(*m_application), QStringLiteral("/srv/abholer"));
}

}  // namespace

}  // namespace sheetwright
