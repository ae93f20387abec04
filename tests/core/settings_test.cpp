#include "core/settings.h"

#include "support/test_application.h"

#include <QDir>

namespace sheetwright {
namespace {

class SettingsTest : public ::testing::Test {
  protected:
    QString Read(const QString& section, const QString& key, const QString& fallback = {}) const {
        return Settings(m_folder.path()).Read(QStringLiteral("Suite"), section, key, fallback);
    }
    void Write(const QString& section, const QString& key, const QString& value) const {
        Settings(m_folder.path()).Write(QStringLiteral("Suite"), section, key, value);
    }

    QTemporaryDir m_folder;
};

TEST_F(SettingsTest, FolderHasATrailingSeparator) {
    EXPECT_EQ(Settings(QStringLiteral("/etc/x")).Folder(), QStringLiteral("/etc/x/"));
}

TEST_F(SettingsTest, MissingValueReadsAsTheFallback) {
    EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("fallback")),
              QStringLiteral("fallback"));
    EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K")), QString());
}

TEST_F(SettingsTest, ValueIsStoredAtOnce) {
    Write(QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("value"));
    EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("fallback")),
              QStringLiteral("value"));
}

TEST_F(SettingsTest, EmptyValueIsNoMissingValue) {
    Write(QStringLiteral("S"), QStringLiteral("K"), QString());
    EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("fallback")), QString());
}

TEST_F(SettingsTest, ValuesOfAnyCharactersComeBack) {
    for (const QString& value :
         {QStringLiteral("C:\\Forms\\2024\\"), QStringLiteral("a,b;c=\"d\" [e] %f"),
          QStringLiteral("  blanks  "), QStringLiteral("Größe Ω"), QStringLiteral("line\r\nbreak"),
          QStringLiteral("@Invalid()"), QStringLiteral("@ByteArray(x)"), QStringLiteral("#1")}) {
        Write(QStringLiteral("S"), QStringLiteral("K"), value);
        EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K")), value);
    }
}

TEST_F(SettingsTest, SectionsAndKeysMayHoldSeparators) {
    Write(QStringLiteral("a/b"), QStringLiteral("c\\d e"), QStringLiteral("1"));
    Write(QStringLiteral("a"), QStringLiteral("b/c\\d e"), QStringLiteral("2"));
    EXPECT_EQ(Read(QStringLiteral("a/b"), QStringLiteral("c\\d e")), QStringLiteral("1"));
    EXPECT_EQ(Read(QStringLiteral("a"), QStringLiteral("b/c\\d e")), QStringLiteral("2"));
}

TEST_F(SettingsTest, ApplicationsAreApart) {
    Settings settings(m_folder.path());
    settings.Write(QStringLiteral("One"), QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("1"));
    settings.Write(QStringLiteral("../Two/x"), QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("2"));
    EXPECT_EQ(settings.Read(QStringLiteral("One"), QStringLiteral("S"), QStringLiteral("K")),
              QStringLiteral("1"));
    EXPECT_EQ(settings.Read(QStringLiteral("../Two/x"), QStringLiteral("S"), QStringLiteral("K")),
              QStringLiteral("2"));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST_F(SettingsTest, StoreThatCantBeWrittenIsNoFailure) {
    Settings settings(QStringLiteral("/proc/no/such/folder"));
    settings.Write(QStringLiteral("S"), QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("1"));
    EXPECT_EQ(settings.Read(QStringLiteral("S"), QStringLiteral("S"), QStringLiteral("K")), QString());
}

TEST_F(SettingsTest, DamagedStoreReadsAsEmpty) {
    QFile file(m_folder.filePath(QStringLiteral("Suite.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x00\xFF[[[=\n=\n[S\nK", 14);
    file.close();
    EXPECT_EQ(Read(QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("fallback")),
              QStringLiteral("fallback"));
}

}  // namespace
}  // namespace sheetwright
