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

}  // namespace

}  // namespace sheetwright
